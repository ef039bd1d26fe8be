#include "DiaryApp/Settings/Localization.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QLibraryInfo>
#include <QtCore/QTranslator>
#include <array>

namespace velmar::localization {

namespace {

struct Row {
    Language language;
    QLatin1String code;
    // What a system's language begins with to be this one.
    QLatin1String systemCode;
    QLatin1String file;
};

constexpr std::array<Row, 3> kRows = {{
    {Language::en, QLatin1String("en"), QLatin1String("en"), QLatin1String(":/i18n/velmar_en.qm")},
    {Language::zhHans, QLatin1String("zh-Hans"), QLatin1String("zh"),
     QLatin1String(":/i18n/velmar_zh_Hans.qm")},
    {Language::ja, QLatin1String("ja"), QLatin1String("ja"), QLatin1String(":/i18n/velmar_ja.qm")},
}};

// What Qt says itself, above all in its own folder dialog. The names of keys aren't asked for: they
// stand in our menus, where they are those on the keyboard in every language.
class QtTexts : public QTranslator {
public:
    using QTranslator::QTranslator;

    [[nodiscard]] QString translate(const char* context, const char* source, const char* comment,
                                    int n) const override {
        if (qstrcmp(context, "QShortcut") == 0) return {};
        return QTranslator::translate(context, source, comment, n);
    }
};

const Row& row(Language language) {
    return kRows[static_cast<std::size_t>(language)];
}

Language& installed() {
    static Language language = Language::en;
    return language;
}

std::optional<Language> ofSystemLanguage(const QString& name) {
    const QString language = name.section(QLatin1Char('-'), 0, 0).section(QLatin1Char('_'), 0, 0);
    for (const Row& each : kRows) {
        if (language.compare(each.systemCode, Qt::CaseInsensitive) == 0) return each.language;
    }
    return std::nullopt;
}

}  // namespace

std::optional<Language> parse(QStringView code) {
    for (const Row& each : kRows) {
        if (each.code == code) return each.language;
    }
    return std::nullopt;
}

QString code(Language language) {
    return row(language).code;
}

QLocale locale(Language language) {
    return QLocale(code(language));
}

std::optional<Language> overrideLanguage(const Settings& settings) {
    const auto forced = settings.environment(QStringLiteral("DIARY_LANGUAGE"));
    if (const auto language = parse(forced.value_or(QString()))) return language;
    return parse(settings.languageOverride().value_or(QString()));
}

Language effectiveLanguage(const Settings& settings, const QStringList& systemLanguages) {
    if (const auto chosen = overrideLanguage(settings)) return *chosen;
    for (const QString& name : systemLanguages) {
        if (const auto language = ofSystemLanguage(name)) return *language;
    }
    return Language::en;
}

Language effectiveLanguage(const Settings& settings) {
    return effectiveLanguage(settings, QLocale::system().uiLanguages());
}

QString qtTextsFolder() {
    return QLibraryInfo::path(QLibraryInfo::TranslationsPath);
}

void install(Language language, const QString& qtTexts) {
    // One translator each for the process: loading another file replaces its texts, and installing
    // it again sends the LanguageChange events.
    static QTranslator* translator = new QTranslator(QCoreApplication::instance());
    static QTranslator* qts = new QtTexts(QCoreApplication::instance());
    QCoreApplication::removeTranslator(translator);
    QCoreApplication::removeTranslator(qts);
    installed() = language;
    // Qt's texts in the program are English.
    const bool hasQts =
        language != Language::en &&
        qts->load(locale(language), QStringLiteral("qtbase"), QStringLiteral("_"), qtTexts);
    if (hasQts) QCoreApplication::installTranslator(qts);
    if (translator->load(row(language).file)) QCoreApplication::installTranslator(translator);
}

QStringList textInAllLanguages(const char* key) {
    QStringList texts;
    for (const Language language : {Language::en, Language::zhHans, Language::ja}) {
        QTranslator translator;
        if (!translator.load(row(language).file)) continue;
        const QString text = translator.translate("", key);
        if (!text.isEmpty()) texts += text;
    }
    return texts;
}

Language installedLanguage() {
    return installed();
}

}  // namespace velmar::localization

// The texts of the interface, checked against each other and against the code that asks for them.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QtCore/QDirIterator>
#include <QtCore/QMap>
#include <QtCore/QRegularExpression>
#include <QtCore/QSet>
#include <QtCore/QXmlStreamReader>

namespace velmar {
namespace {

struct Text {
    QStringList forms;
    bool isCount = false;
    bool isFinished = true;
};

using Texts = QMap<QString, Text>;

const QStringList& languages() {
    static const QStringList all = {QStringLiteral("en"), QStringLiteral("ja"),
                                    QStringLiteral("zh_Hans")};
    return all;
}

void readTranslation(QXmlStreamReader& xml, Text& text) {
    text.isFinished = !xml.attributes().hasAttribute(QLatin1String("type"));
    if (!text.isCount) {
        text.forms = {xml.readElementText()};
        return;
    }
    while (xml.readNextStartElement()) text.forms.append(xml.readElementText());
}

Texts textsOf(const QString& language) {
    QFile file(QStringLiteral(VELMAR_SOURCE_DIR "/translations/velmar_%1.ts").arg(language));
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << file.fileName().toStdString();
    QXmlStreamReader xml(&file);
    Texts texts;
    QString key;
    while (!xml.atEnd()) {
        if (xml.readNext() != QXmlStreamReader::StartElement) continue;
        if (xml.name() == QLatin1String("message")) {
            key = xml.attributes().value(QLatin1String("id")).toString();
            EXPECT_FALSE(texts.contains(key)) << "twice: " << key.toStdString();
            texts[key].isCount =
                xml.attributes().value(QLatin1String("numerus")) == QLatin1String("yes");
        } else if (xml.name() == QLatin1String("translation")) {
            readTranslation(xml, texts[key]);
        }
    }
    EXPECT_FALSE(xml.hasError()) << xml.errorString().toStdString();
    return texts;
}

// The keys that the application's code asks for, each with the file that does.
QMap<QString, QString> usedKeys() {
    static const QRegularExpression call(
        QStringLiteral("(?:qtTrId|QT_TRID_NOOP|QT_TRID_N_NOOP)\\(\\s*\"((?:[^\"\\\\]|\\\\.)*)\""));
    QMap<QString, QString> keys;
    QDirIterator files(QStringLiteral(VELMAR_SOURCE_DIR "/DiaryApp"),
                       {QStringLiteral("*.cpp"), QStringLiteral("*.h")}, QDir::Files,
                       QDirIterator::Subdirectories);
    while (files.hasNext()) {
        QFile file(files.next());
        EXPECT_TRUE(file.open(QIODevice::ReadOnly));
        const QString code = QString::fromUtf8(file.readAll());
        auto calls = call.globalMatch(code);
        while (calls.hasNext()) keys.insert(calls.next().captured(1), file.fileName());
    }
    return keys;
}

QStringList placeholders(const QString& text) {
    static const QRegularExpression place(QStringLiteral("%(?:\\d|n|[a-zA-Z@])"));
    QSet<QString> found;
    auto places = place.globalMatch(text);
    while (places.hasNext()) found.insert(places.next().captured());
    QStringList sorted(found.begin(), found.end());
    sorted.sort();
    return sorted;
}

TEST(Translations, EveryKeyInTheCodeHasAFinishedTextInEveryLanguage) {
    const auto used = usedKeys();
    ASSERT_FALSE(used.isEmpty());
    for (const QString& language : languages()) {
        const Texts texts = textsOf(language);
        for (auto key = used.begin(); key != used.end(); ++key) {
            EXPECT_TRUE(texts.contains(key.key()))
                << language.toStdString() << " lacks \"" << key.key().toStdString()
                << "\", used in " << key.value().toStdString();
        }
        for (auto text = texts.begin(); text != texts.end(); ++text) {
            EXPECT_TRUE(text->isFinished) << language.toStdString() << text.key().toStdString();
            for (const QString& form : text->forms) {
                EXPECT_FALSE(form.trimmed().isEmpty())
                    << language.toStdString() << ": " << text.key().toStdString();
            }
        }
    }
}

TEST(Translations, NoTextIsLeftUnused) {
    const auto used = usedKeys();
    for (const QString& language : languages()) {
        for (const QString& key : textsOf(language).keys()) {
            EXPECT_TRUE(used.contains(key)) << language.toStdString() << ": " << key.toStdString();
        }
    }
}

TEST(Translations, LanguagesAgreeInTheirPlaceholders) {
    const Texts english = textsOf(QStringLiteral("en"));
    for (const QString& language : languages()) {
        const Texts texts = textsOf(language);
        EXPECT_EQ(texts.keys(), english.keys()) << language.toStdString();
        for (auto text = texts.begin(); text != texts.end(); ++text) {
            const QStringList expected = placeholders(english[text.key()].forms.last());
            EXPECT_EQ(text->isCount, english[text.key()].isCount) << text.key().toStdString();
            for (const QString& form : text->forms) {
                EXPECT_EQ(placeholders(form), expected)
                    << language.toStdString() << ": " << form.toStdString();
            }
        }
    }
}

TEST(Translations, PlaceholdersAreNumberedFromOne) {
    for (const QString& language : languages()) {
        const Texts texts = textsOf(language);
        for (const Text& text : texts) {
            QStringList found = placeholders(text.forms.first());
            EXPECT_EQ(found.removeAll(QStringLiteral("%n")) > 0, text.isCount)
                << text.forms.first().toStdString();
            for (int i = 0; i < found.size(); ++i) {
                EXPECT_EQ(found[i], QStringLiteral("%%1").arg(i + 1));
            }
        }
    }
}

TEST(Translations, CountsHaveTheFormsOfTheirLanguage) {
    for (const QString& language : languages()) {
        const int forms = language == QLatin1String("en") ? 2 : 1;
        for (const Text& text : textsOf(language)) {
            EXPECT_EQ(text.forms.size(), text.isCount ? forms : 1)
                << language.toStdString() << ": " << text.forms.value(0).toStdString();
        }
    }
}

}  // namespace
}  // namespace velmar

// The language of the interface, which the user may choose apart from the system's, and the texts
// in it. Texts are looked up with qtTrId(); one that is missing shows its key. Main thread only.
#pragma once

#include <QtCore/QLocale>
#include <QtCore/QString>
#include <QtCore/QStringList>
#include <optional>

#include "DiaryApp/Settings/Settings.h"

namespace velmar {

enum class Language { en, zhHans, ja };

namespace localization {

// "zh-Hans", "en", "ja", exactly; anything else is no supported language.
[[nodiscard]] std::optional<Language> parse(QStringView code);
[[nodiscard]] QString code(Language language);
[[nodiscard]] QLocale locale(Language language);

// DIARY_LANGUAGE if it is supported, else the user's choice if it is.
[[nodiscard]] std::optional<Language> overrideLanguage(const Settings& settings);

// The override, or else the first of the system's languages ("zh-CN", "ja", "en-GB") that the
// interface has; English if it has none of them.
[[nodiscard]] Language effectiveLanguage(const Settings& settings,
                                         const QStringList& systemLanguages);

// The same with the machine's own list.
[[nodiscard]] Language effectiveLanguage(const Settings& settings);

// Where the system has Qt's texts.
[[nodiscard]] QString qtTextsFolder();

// Makes qtTrId() answer in this language from now on, and Qt's own dialogs, where its texts
// (qtbase_ja.qm) are in that folder. Texts on screen stay until they are set again; widgets get a
// LanguageChange event for that.
void install(Language language, const QString& qtTexts = qtTextsFolder());

// The text of a key in every language of the interface, whichever is installed. Reads the other
// languages' texts afresh, so it isn't for every keystroke.
[[nodiscard]] QStringList textInAllLanguages(const char* key);

// The language installed last; English before the first.
[[nodiscard]] Language installedLanguage();

}  // namespace localization

}  // namespace velmar

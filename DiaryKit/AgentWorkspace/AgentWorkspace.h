// Folders for a coding agent: one to convert a diary that no reader here knows, one to convert this
// diary into something else. A workspace holds a copy of the material, an empty folder for the
// result, and the whole task in words. Nothing here starts an agent, or deletes a workspace.
#pragma once

#include <QtCore/QDateTime>
#include <QtCore/QString>
#include <QtCore/QStringView>
#include <QtCore/QTimeZone>
#include <array>
#include <vector>

namespace diary {
struct ImportIssue;
}

namespace diary::AgentWorkspace {

// The language that a workspace is written in, its inner names included.
enum class Language { chinese, english, japanese };

inline constexpr std::array kLanguages = {Language::chinese, Language::english, Language::japanese};

// "zh-Hans", "en", "ja" (BCP 47).
[[nodiscard]] QString code(Language language);

// The language for any language code: Chinese for what begins with "zh", Japanese for "ja", English
// for all else. Case matters.
[[nodiscard]] Language language(QStringView code);

// What an export becomes.
enum class Target { obsidian, dayOne, word };

// The names of what a workspace holds, and of its folder without the date.
struct Names {
    QString importFolder;
    QString exportFolder;
    QString source;
    QString output;
    QString diary;
    QString report;
    QString wordFile;

    bool operator==(const Names&) const = default;
};

[[nodiscard]] const Names& names(Language language);

// Makes the folder "Velmar Import 2026-11-15" in `parent` (with " 2", " 3" … where that name is
// taken), copies the file or folder at `source` into it, and writes the guides. `appName` is what
// the other application is called; `timeZone` dates entries that bring no zone; `date` names the
// folder, in this machine's zone. Gives the folder's path. Throws FileError; what was made by then
// stays. Blocks as long as the copy takes; any thread.
QString createImport(const QString& source, const QString& appName, const QString& parent,
                     Language language, const QTimeZone& timeZone, const QDateTime& date);

// The same for an export: "Velmar Export 2026-11-15" with a copy of the vault's day files. A day
// that can't be read is left out. The vault is only read.
QString createExport(const QString& vault, Target target, const QString& parent, Language language,
                     const QTimeZone& timeZone, const QDateTime& date);

// The task in full, as it stands in VELMAR.md.
[[nodiscard]] QString importSpec(const QString& appName, const QTimeZone& timeZone,
                                 Language language);
[[nodiscard]] QString exportSpec(Target target, const QTimeZone& timeZone, Language language);

// What the user hands to the agent.
[[nodiscard]] QString importPrompt(const QString& appName, Language language);
[[nodiscard]] QString exportPrompt(Target target, Language language);

[[nodiscard]] QString targetName(Target target, Language language);

// What the user hands to the agent after a check: one line an issue.
[[nodiscard]] QString fixPrompt(const std::vector<ImportIssue>& issues, Language language);

}  // namespace diary::AgentWorkspace

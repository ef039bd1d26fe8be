// What a workspace tells a coding agent, once in each language. A file of its own holds each
// language's texts, line for line alike, with the same placeholders:
//
//   {src} {out} {diary} {report} {word}   the workspace's inner names in that language
//   {app} {tz}                            the other application's name; an IANA time zone
//   {target} {targetSpec}                 what an export is to become, and how
//   {file} {year} {line} {inYear}         what an issue is about
#pragma once

#include <QtCore/QMap>
#include <QtCore/QString>

#include "DiaryKit/AgentWorkspace/AgentWorkspace.h"
#include "DiaryKit/Import/ImportIssue.h"

namespace diary::AgentWorkspace {

struct Texts {
    QString importSpec;
    QString importPrompt;
    QString exportSpec;
    QString exportPrompt;
    QString pointer;
    QMap<Target, QString> targetNames;
    QMap<Target, QString> targetSpecs;
    QString fixHeader;
    QString fixFolderLine;
    QString inYear;
    QMap<ImportIssue::Kind, QString> fixLines;
};

// Made once, on first use; any thread.
[[nodiscard]] const Texts& texts(Language language);

[[nodiscard]] Texts englishTexts();
[[nodiscard]] Texts chineseTexts();
[[nodiscard]] Texts japaneseTexts();

}  // namespace diary::AgentWorkspace

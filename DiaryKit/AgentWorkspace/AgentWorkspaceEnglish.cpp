// The English texts of a workspace.
#include "DiaryKit/AgentWorkspace/AgentWorkspaceTexts.h"

namespace diary::AgentWorkspace {

using namespace Qt::StringLiterals;

namespace {

// Each paragraph is a line, as it is in the files.
// clang-format off

QString importSpec() { return uR"text(# Convert a diary to the Velmar format

Velmar set up this folder as a workspace:
- {src}/: the diary exported from "{app}". Read only — don't change, move or delete anything in it.
- {out}/: write the result here.
- Don't read or write any file outside this folder.

## Output format

1. One file per month-day, named MM-DD.md (e.g. 08-11.md, 02-29.md), directly in {out}/ with no subfolders. At most 366; no file for a day without entries.
2. The first line is `# MM-DD`, matching the file name, followed by a blank line.
3. Each year's writing for that day goes in one year section: a line `## YYYY` on its own, then that year's entries. Years in ascending order, each year once per file, a blank line between sections.
4. Several entries on the same day of the same year go in the same section in time order, each preceded by a line `### HH:MM`; with a title, `### HH:MM · Title`; with no known time, `### Title`; with neither, separate the entries with a line `---`. A single entry gets `### Title` before its text if it has a title, otherwise just the text.
5. Keep the text exactly as written: no polishing, summarizing, translating or fixing typos; don't merge, split or drop any entry. Convert rich text (HTML, RTF) to Markdown, keeping only bold, italic, strikethrough, links, lists, to-dos, quotes and horizontal rules.
6. Move headings inside the text down two levels (# becomes ###, ## becomes ####, at most ######). No line of the text may start with `# ` or `## `.
7. Close any ``` code block left open, at the end of its entry.
8. Date each entry by the local time where it was written: convert UTC times and timestamps with the time zone recorded in the export; with no time zone recorded, use {tz}. Entries written after midnight belong to the new day.
9. Text only: remove image references from the text (`![](…)`, `![[…]]`, `<img>` and the like) and don't copy any photos, videos, recordings or attachments.
10. Weather, mood, place and tags, when the original has them, go on the entry's last line, separated by " · ", tags as #tag. Leave the line out when there are none.
11. Content without a date stays out of {out}/; list it in the report.
12. UTF-8, LF line endings, a newline at the end of each file.

Example: {out}/08-11.md

    # 08-11

    ## 2019

    ### 07:52

    Walked up to the tea fields after the rain. They smelled wonderful.

    Hangzhou · Longjing

    ### 21:40 · Evening by the lake

    The bridge was crowded; it only got quiet on Beishan Road.

    ## 2021

    First day of school. My new desk mate talks a lot.

## How to work

1. First look at the structure of {src}/, pick one entry, and tell me where you will take the date, time, title and text from, and roughly how many entries there are. Wait for my go-ahead before converting.
2. Convert with a script, not by hand. Keep the script in this folder (e.g. convert.py) so it can be rerun.
3. Then write a check script (e.g. check.py) that reads {out}/ again: file names match first lines; every `## YYYY` is on its own line and each year appears once per file; no line of the text starts with `# ` or `## `; code blocks are closed; count the entries and compare with the count in {src}/. Fix what's wrong until the check passes.
4. Finally write {report}: how many entries the export had, how many were written, how many day files, the range of years, what was left out (and why), and 3 random entries shown as original and converted.)text"_s; }

QString importPrompt() { return uR"text(Read VELMAR.md in this folder first, then follow it: convert the diary exported from "{app}" in {src}/ to the Velmar format and write it to {out}/.
Show me one entry first and wait for my go-ahead before converting the rest; when done, run the check and write {report}.
Don't change {src}/, and don't touch any file outside this folder.)text"_s; }

QString exportSpec() { return uR"text(# Convert a Velmar diary to {target}

Velmar set up this folder as a workspace:
- {diary}/: a copy of the Velmar diary. Read only — don't change it.
- {out}/: write the result here.
- Don't read or write any file outside this folder.

## The Velmar format

- {diary}/ holds one file per month-day, named MM-DD.md; the first line is `# MM-DD`.
- Each year's writing is a year section: a line `## YYYY` on its own, up to the next `## YYYY` or the end of the file. Only lines that are exactly `## ` and four digits are year headings, and not inside code blocks.
- A section may contain lines `### HH:MM`, `### HH:MM · Title` or `### Title`, marking several entries on that day; otherwise it is one entry. Times are local times in {tz}.
- The text is Markdown. The last line may be place, weather and tags separated by " · ".

## Target: {target}

{targetSpec}

## How to work

1. Pick one day first and show it to me before and after; wait for my go-ahead before converting the rest.
2. Convert with a script, keeping the text exactly as written.
3. When done, count the entries, compare with the number of year sections in {diary}/, and write {report}.)text"_s; }

QString exportPrompt() { return uR"text(Read VELMAR.md in this folder first, then follow it: convert {diary}/ to {target} and write it to {out}/.
Show me one day first and wait for my go-ahead before converting the rest; finally write {report}.
Don't change {diary}/, and don't touch any file outside this folder.)text"_s; }

QString pointer() { return uR"text(# Read VELMAR.md first

The task for this folder and its rules are in VELMAR.md. Read all of it before you start.)text"_s; }

}  // namespace

Texts englishTexts() {
    using Kind = ImportIssue::Kind;
    return {
        .importSpec = importSpec(),
        .importPrompt = importPrompt(),
        .exportSpec = exportSpec(),
        .exportPrompt = exportPrompt(),
        .pointer = pointer(),
        .targetNames = {
            {Target::obsidian, u"Obsidian daily notes"_s},
            {Target::dayOne, u"JSON that Day One can import"_s},
            {Target::word, u"a Word collection"_s},
        },
        .targetSpecs = {
            {Target::obsidian, u"One file per day named YYYY-MM-DD.md, in {out}/<year>/. Several entries on one day are separated by `## HH:MM · Title` (just the title when there is no time). No frontmatter."_s},
            {Target::dayOne, uR"text(Create {out}/Journal.zip containing Journal.json, structured as {"metadata":{"version":"1.0"},"entries":[…]}. One entry per diary entry: uuid (32 uppercase hex digits), creationDate (UTC, like 2020-08-11T13:40:00Z), timeZone ({tz}), text (with `# Title` as the first line when there is a title). Entries without a time count as 12:00 noon local time.)text"_s},
            {Target::word, u"Create a print-friendly Word document {out}/{word}: one chapter per year, each entry under a heading with its date and weekday, body text at 11 pt, a blank line between paragraphs."_s},
        },
        .fixHeader = u"Velmar found the problems below when checking {out}/. Fix them following the rules in VELMAR.md, rerun the check and update {report}:"_s,
        .fixFolderLine = u"- {file}: remove the subfolder; all files go directly in {out}/."_s,
        .inYear = u" (in {year})"_s,
        .fixLines = {
            {Kind::ignoredFile, u"- {file}: not an MM-DD.md; {out}/ should only hold day files."_s},
            {Kind::titleMismatch, u"- {file}: the first line should be `# MM-DD`, matching the file name."_s},
            {Kind::duplicateYear, u"- {file}: `## {year}` appears more than once; a year must be a single section."_s},
            {Kind::undemotedHeading, u"- {file}: the {year} section has a line \"{line}\"; headings in the text move down two levels."_s},
            {Kind::unclosedFence, u"- {file}: a code block in the {year} section is never closed."_s},
            {Kind::invalidDate, u"- {file}: this date doesn't exist{inYear}; check how the dates were worked out."_s},
            {Kind::yearOutOfRange, u"- {file}: the year {year} can't be right; check how the dates were worked out."_s},
            {Kind::unreadable, u"- {file}: can't be read; write it as UTF-8."_s},
        },
    };
}

// clang-format on

}  // namespace diary::AgentWorkspace

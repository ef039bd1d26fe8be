// The Chinese texts of a workspace.
#include "DiaryKit/AgentWorkspace/AgentWorkspaceTexts.h"

namespace diary::AgentWorkspace {

using namespace Qt::StringLiterals;

namespace {

// Each paragraph is a line, as it is in the files.
// clang-format off

QString importSpec() { return uR"text(# 把日记转换成 Velmar 格式

这个文件夹是 Velmar 准备好的工作区：
- {src}/：从“{app}”导出的日记。只读——不要修改、移动或删除里面的任何东西。
- {out}/：结果写在这里。
- 不要读写这个文件夹以外的任何文件。

## 输出格式

1. 每个月日一个文件，文件名为 MM-DD.md（例如 08-11.md、02-29.md），直接放在 {out}/ 里，不建子文件夹。最多 366 个；没有内容的日子不建文件。
2. 第一行是 `# MM-DD`，与文件名一致，后面空一行。
3. 这一天每一年写下的内容各放进一个年份段：单独一行 `## YYYY`，下面是那一年的日记。年份从早到晚排列，同一年在一个文件里只出现一次，段与段之间空一行。
4. 同一年同一天有多篇日记时，按时间先后放在同一段里，每篇前面加一行 `### HH:MM`；有标题的写 `### HH:MM · 标题`；不知道时间的写 `### 标题`；时间和标题都没有的，各篇之间用一行 `---` 隔开。只有一篇时，有标题就在正文前写 `### 标题`，没有就只写正文。
5. 正文一字不改：不润色，不概括，不翻译，不改错别字；不合并、不拆分、不漏掉任何一篇。富文本（HTML、RTF）转换成 Markdown，只保留粗体、斜体、删除线、链接、列表、待办、引用和分隔线。
6. 正文里的标题降两级（# 变成 ###，## 变成 ####，最多到 ######）。正文中不能有以 `# ` 或 `## ` 开头的行。
7. 没有闭合的 ``` 代码块，在那一篇的末尾补上闭合。
8. 每篇的日期按写下它的地方的当地时间算：UTC 时间和时间戳按导出数据里记录的时区换算；没有记录时区的，用 {tz}。过了零点写的，算新的一天。
9. 只要文字：删去正文里的图片引用（`![](…)`、`![[…]]`、`<img>` 等），不要复制任何照片、视频、录音或附件。
10. 原文带有天气、心情、地点和标签的，写在那一篇的最后一行，用“ · ”隔开（点的两边各一个空格），标签写成 #标签。都没有就不写这一行。
11. 没有日期的内容不要写进 {out}/，列在报告里。
12. UTF-8 编码，换行用 LF，每个文件以换行结尾。

示例：{out}/08-11.md

    # 08-11

    ## 2019

    ### 07:52

    雨停以后走到茶园，满山都是茶香。

    杭州 · 龙井

    ### 21:40 · 湖边的晚上

    断桥上人很多，到了北山路才安静下来。

    ## 2021

    开学第一天。新同桌话很多。

## 怎么做

1. 先看 {src}/ 的结构，挑一篇，告诉我日期、时间、标题和正文分别从哪里取，以及大约有多少篇。等我同意后再开始转换。
2. 用脚本转换，不要手工转换。脚本留在这个文件夹里（例如 convert.py），以便重新运行。
3. 然后写一个检查脚本（例如 check.py），重新读取 {out}/：文件名与第一行一致；每个 `## YYYY` 单独一行，同一年在一个文件里只出现一次；正文中没有以 `# ` 或 `## ` 开头的行；代码块都已闭合；数一数有多少篇，与 {src}/ 里的篇数对照。有问题就改，直到检查通过。
4. 最后写 {report}：导出数据里有多少篇，写出了多少篇，多少个日期文件，年份范围，漏掉了什么（以及为什么），再随机挑 3 篇，列出原文和转换后的样子。)text"_s; }

QString importPrompt() { return uR"text(先读这个文件夹里的 VELMAR.md，再照着做：把 {src}/ 里从“{app}”导出的日记转换成 Velmar 格式，写到 {out}/。
先给我看一篇，等我同意后再转换其余的；做完后运行检查，并写好 {report}。
不要修改 {src}/，也不要碰这个文件夹以外的任何文件。)text"_s; }

QString exportSpec() { return uR"text(# 把 Velmar 日记转换成{target}

这个文件夹是 Velmar 准备好的工作区：
- {diary}/：Velmar 日记的副本。只读——不要修改。
- {out}/：结果写在这里。
- 不要读写这个文件夹以外的任何文件。

## Velmar 格式

- {diary}/ 里每个月日一个文件，文件名为 MM-DD.md；第一行是 `# MM-DD`。
- 每一年写下的内容是一个年份段：从单独一行 `## YYYY` 开始，到下一个 `## YYYY` 或文件末尾为止。只有恰好是 `## ` 加四位数字、并且不在代码块里的行才是年份标题。
- 一段里可能有 `### HH:MM`、`### HH:MM · 标题` 或 `### 标题` 这样的行，表示那一天有多篇日记；没有的话就是一篇。时间是 {tz} 的当地时间。
- 正文是 Markdown。最后一行可能是地点、天气和标签，用“ · ”隔开（点的两边各一个空格）。

## 目标：{target}

{targetSpec}

## 怎么做

1. 先挑一天，把转换前后的样子给我看；等我同意后再转换其余的。
2. 用脚本转换，正文一字不改。
3. 做完后数一数有多少篇，与 {diary}/ 里年份段的个数对照，并写好 {report}。)text"_s; }

QString exportPrompt() { return uR"text(先读这个文件夹里的 VELMAR.md，再照着做：把 {diary}/ 转换成{target}，写到 {out}/。
先给我看一天，等我同意后再转换其余的；最后写好 {report}。
不要修改 {diary}/，也不要碰这个文件夹以外的任何文件。)text"_s; }

QString pointer() { return uR"text(# 请先读 VELMAR.md

这个文件夹的任务和规则都写在 VELMAR.md 里。开始之前请把它读完。)text"_s; }

}  // namespace

Texts chineseTexts() {
    using Kind = ImportIssue::Kind;
    return {
        .importSpec = importSpec(),
        .importPrompt = importPrompt(),
        .exportSpec = exportSpec(),
        .exportPrompt = exportPrompt(),
        .pointer = pointer(),
        .targetNames = {
            {Target::obsidian, u"Obsidian 每日笔记"_s},
            {Target::dayOne, u"Day One 可以导入的 JSON"_s},
            {Target::word, u"Word 合集"_s},
        },
        .targetSpecs = {
            {Target::obsidian, u"每天一个文件，文件名为 YYYY-MM-DD.md，放在 {out}/<年份>/ 里。同一天有多篇日记时，用 `## HH:MM · 标题` 隔开（没有时间就只写标题）。不要 frontmatter。"_s},
            {Target::dayOne, uR"text(生成 {out}/Journal.zip，里面是 Journal.json，结构为 {"metadata":{"version":"1.0"},"entries":[…]}。每篇日记一个 entry：uuid（32 位大写十六进制数）、creationDate（UTC，例如 2020-08-11T13:40:00Z）、timeZone（{tz}）、text（有标题时第一行写 `# 标题`）。没有时间的日记按当地时间中午 12:00 算。)text"_s},
            {Target::word, u"生成一份便于打印的 Word 文档 {out}/{word}：每年一章，每篇日记的标题写日期和星期，正文 11 磅，段落之间空一行。"_s},
        },
        .fixHeader = u"Velmar 检查 {out}/ 时发现了下面的问题。请按 VELMAR.md 的规则修改，重新运行检查，并更新 {report}："_s,
        .fixFolderLine = u"- {file}：请去掉这个子文件夹；所有文件直接放在 {out}/ 里。"_s,
        .inYear = u"（{year} 年）"_s,
        .fixLines = {
            {Kind::ignoredFile, u"- {file}：不是 MM-DD.md；{out}/ 里只应该有日期文件。"_s},
            {Kind::titleMismatch, u"- {file}：第一行应该是 `# MM-DD`，与文件名一致。"_s},
            {Kind::duplicateYear, u"- {file}：`## {year}` 出现了不止一次；同一年只能有一段。"_s},
            {Kind::undemotedHeading, u"- {file}：{year} 年这一段里有一行“{line}”；正文里的标题要降两级。"_s},
            {Kind::unclosedFence, u"- {file}：{year} 年这一段里有一个代码块没有闭合。"_s},
            {Kind::invalidDate, u"- {file}：这个日期不存在{inYear}；请检查日期是怎么算出来的。"_s},
            {Kind::yearOutOfRange, u"- {file}：年份 {year} 不对；请检查日期是怎么算出来的。"_s},
            {Kind::unreadable, u"- {file}：读不出来；请写成 UTF-8。"_s},
        },
    };
}

// clang-format on

}  // namespace diary::AgentWorkspace

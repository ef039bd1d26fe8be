<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="zh_CN">
<context>
    <name></name>
    <message id="Diary">
        <source></source>
        <extracomment>Menu of the application.</extracomment>
        <translation>日记</translation>
    </message>
    <message id="Quit %@">
        <source></source>
        <extracomment>%1 is the application's name.</extracomment>
        <translation>退出 %1</translation>
    </message>
    <message id="File">
        <source></source>
        <extracomment>Menu.</extracomment>
        <translation>文件</translation>
    </message>
    <message id="Close">
        <source></source>
        <extracomment>Closes the window.</extracomment>
        <translation>关闭</translation>
    </message>
    <message id="Save">
        <source></source>
        <translation>保存</translation>
    </message>
    <message id="Edit">
        <source></source>
        <extracomment>Menu.</extracomment>
        <translation>编辑</translation>
    </message>
    <message id="Undo">
        <source></source>
        <translation>撤销</translation>
    </message>
    <message id="Redo">
        <source></source>
        <translation>重做</translation>
    </message>
    <message id="Cut">
        <source></source>
        <translation>剪切</translation>
    </message>
    <message id="Copy">
        <source></source>
        <translation>复制</translation>
    </message>
    <message id="Paste">
        <source></source>
        <translation>粘贴</translation>
    </message>
    <message id="Select All">
        <source></source>
        <translation>全选</translation>
    </message>
    <message id="Format">
        <source></source>
        <extracomment>Menu.</extracomment>
        <translation>格式</translation>
    </message>
    <message id="Bold">
        <source></source>
        <translation>粗体</translation>
    </message>
    <message id="Italic">
        <source></source>
        <translation>斜体</translation>
    </message>
    <message id="Strikethrough">
        <source></source>
        <translation>删除线</translation>
    </message>
    <message id="Inline Code">
        <source></source>
        <translation>行内代码</translation>
    </message>
    <message id="Link">
        <source></source>
        <translation>链接</translation>
    </message>
    <message id="Heading 1">
        <source></source>
        <translation>一级标题</translation>
    </message>
    <message id="Heading 2">
        <source></source>
        <translation>二级标题</translation>
    </message>
    <message id="Heading 3">
        <source></source>
        <translation>三级标题</translation>
    </message>
    <message id="Body Text">
        <source></source>
        <translation>正文</translation>
    </message>
    <message id="Bulleted List">
        <source></source>
        <translation>项目符号列表</translation>
    </message>
    <message id="Numbered List">
        <source></source>
        <translation>编号列表</translation>
    </message>
    <message id="To-Do">
        <source></source>
        <translation>待办事项</translation>
    </message>
    <message id="Quote">
        <source></source>
        <translation>引用</translation>
    </message>
    <message id="Check To-Do">
        <source></source>
        <translation>勾选待办事项</translation>
    </message>
    <message id="Indent">
        <source></source>
        <translation>增加缩进</translation>
    </message>
    <message id="Outdent">
        <source></source>
        <translation>减少缩进</translation>
    </message>
    <message id="YearSectionWarning">
        <source></source>
        <extracomment>Pill beside a heading of the text that reads as a year: when the file is read again, a new year begins there. %1 is the year.</extracomment>
        <translation>会另起 %1 年一节</translation>
    </message>
    <message id="Navigate">
        <source></source>
        <extracomment>Menu.</extracomment>
        <translation>前往</translation>
    </message>
    <message id="Previous Day">
        <source></source>
        <translation>前一天</translation>
    </message>
    <message id="Next Day">
        <source></source>
        <translation>后一天</translation>
    </message>
    <message id="Today">
        <source></source>
        <extracomment>Goes to today's page.</extracomment>
        <translation>今天</translation>
    </message>
    <message id="Random Day">
        <source></source>
        <extracomment>Goes to any day with writing.</extracomment>
        <translation>随机一天</translation>
    </message>
    <message id="Window">
        <source></source>
        <extracomment>Menu.</extracomment>
        <translation>窗口</translation>
    </message>
    <message id="Minimize">
        <source></source>
        <translation>最小化</translation>
    </message>
    <message id="Zoom">
        <source></source>
        <extracomment>Makes the window as big as the screen, or back.</extracomment>
        <translation>最大化</translation>
    </message>
    <message id="Day %d / %d">
        <source></source>
        <extracomment>%1 is the number of the day in the year, %2 the number of days.</extracomment>
        <translation>第 %1 天 / %2</translation>
    </message>
    <message id="This file has %d past-year sections" numerus="yes">
        <source></source>
        <translation>
            <numerusform>这个文件里有 %n 个往年段落</numerusform>
        </translation>
    </message>
    <message id="%d year sections" numerus="yes">
        <source></source>
        <translation>
            <numerusform>%n 个年份</numerusform>
        </translation>
    </message>
    <message id="%d years ago" numerus="yes">
        <source></source>
        <translation>
            <numerusform>%n 年前</numerusform>
        </translation>
    </message>
    <message id="This year">
        <source></source>
        <translation>今年</translation>
    </message>
    <message id="Write about this day in %d…">
        <source></source>
        <extracomment>Stands in the empty editor; %1 is a year.</extracomment>
        <translation>写下 %1 年的这一天…</translation>
    </message>
    <message id="NoLeapDayThisYear">
        <source></source>
        <extracomment>Stands in place of the editor; %1 is the next leap year.</extracomment>
        <translation>今年没有二月二十九日。要写别的年份，请在右侧选择；下一次要等到 %1 年。</translation>
    </message>
    <message id="GapLine">
        <source></source>
        <extracomment>%1 is a list of years.</extracomment>
        <translation>未写：%1</translation>
    </message>
    <message id="Viewing ## %@ · %d chars" numerus="yes">
        <source></source>
        <extracomment>%1 is a year, as its heading in the file.</extracomment>
        <translation>
            <numerusform>正在看 ## %1 · %n 字</numerusform>
        </translation>
    </message>
    <message id="RelativeToday">
        <source></source>
        <extracomment>A day, told from today.</extracomment>
        <translation>今天</translation>
    </message>
    <message id="RelativeYesterday">
        <source></source>
        <extracomment>A day, told from today.</extracomment>
        <translation>昨天</translation>
    </message>
    <message id="RelativeDaysAgo" numerus="yes">
        <source></source>
        <extracomment>A day, told from today.</extracomment>
        <translation>
            <numerusform>%n 天前</numerusform>
        </translation>
    </message>
    <message id="ConflictMarker">
        <source></source>
        <extracomment>Stands in the diary between a text and what another device wrote for the same day.</extracomment>
        <translation>—— 另一台设备上也写了 ——</translation>
    </message>
    <message id="MergedRemoteNotice">
        <source></source>
        <translation>已与另一台设备写的内容合并</translation>
    </message>
    <message id="CannotLeaveNotice">
        <source></source>
        <extracomment>%1 is a day, 11-21.</extracomment>
        <translation>%1 既无法保存，也无法另存，因此保持打开</translation>
    </message>
    <message id="KeptOverwrittenNotice">
        <source></source>
        <extracomment>%1 is a day and year, 11-21 2026.</extracomment>
        <translation>另一台设备为 %1 写的内容，已在覆盖前留存</translation>
    </message>
    <message id="KeptUndecodableNotice">
        <source></source>
        <extracomment>%1 is a file's name.</extracomment>
        <translation>%1 里有无法读作文字的内容，保存前已留存副本</translation>
    </message>
    <message id="KeptDraftNotice">
        <source></source>
        <extracomment>%1 is a day and year, 11-21 2026.</extracomment>
        <translation>你为 %1 写的内容没能保存，已另行留存</translation>
    </message>
    <message id="KeptMergeNotice">
        <source></source>
        <extracomment>%1 is a file's name.</extracomment>
        <translation>%1 合并后的内容没能保存，已另行留存</translation>
    </message>
    <message id="KeptDraftOffer">
        <source></source>
        <extracomment>A link with the text of PutBack follows. %1 is a day and year, 11-21 2026.</extracomment>
        <translation>你之前为 %1 写的内容没能保存，但还留着</translation>
    </message>
    <message id="PutBack">
        <source></source>
        <extracomment>Link behind KeptDraftOffer.</extracomment>
        <translation>放回原处</translation>
    </message>
    <message id="SaveFailedTitle">
        <source></source>
        <extracomment>%1 is a file's name.</extracomment>
        <translation>%1 没能保存</translation>
    </message>
    <message id="SaveFailedDiskFull">
        <source></source>
        <translation>磁盘已满。</translation>
    </message>
    <message id="SaveFailedNoPermission">
        <source></source>
        <translation>你没有写入日记文件夹的权限。</translation>
    </message>
    <message id="SaveFailedReadOnly">
        <source></source>
        <translation>日记文件夹所在的磁盘是只读的。</translation>
    </message>
    <message id="SaveFailedFolderMissing">
        <source></source>
        <translation>找不到日记文件夹。</translation>
    </message>
    <message id="SaveFailedOther">
        <source></source>
        <extracomment>%1 is the system's own words.</extracomment>
        <translation>系统的说明：%1</translation>
    </message>
    <message id="SaveFailedNothingLost">
        <source></source>
        <extracomment>Follows one of the causes above, as a paragraph of its own.</extracomment>
        <translation>你写的内容一个字也没有丢。再按一个键或选“保存”就会重试；离开时仍存不下的，会另外留存。</translation>
    </message>
    <message id="OK">
        <source></source>
        <translation>确定</translation>
    </message>
    <message id="AccessibleEditor">
        <source></source>
        <extracomment>Name of the text field, read aloud; %1 is a day and year, 11-21 2026.</extracomment>
        <translation>%1 的日记正文</translation>
    </message>
    <message id="AccessibleTaskDone">
        <source></source>
        <extracomment>Read aloud when the caret comes to a to-do that is checked, or when it is checked.</extracomment>
        <translation>待办事项，已完成</translation>
    </message>
    <message id="AccessibleTaskOpen">
        <source></source>
        <extracomment>Read aloud when the caret comes to a to-do that isn't checked, or when it is unchecked.</extracomment>
        <translation>待办事项，未完成</translation>
    </message>
    <message id="AccessiblePage">
        <source></source>
        <extracomment>Name of the page, read aloud.</extracomment>
        <translation>这一天</translation>
    </message>
    <message id="AccessibleTopBar">
        <source></source>
        <extracomment>Name of the bar above the page, read aloud.</extracomment>
        <translation>顶栏</translation>
    </message>
    <message id="AccessibleStatusBar">
        <source></source>
        <extracomment>Name of the bar below the page, read aloud.</extracomment>
        <translation>状态栏</translation>
    </message>

    <!-- Menus and bars -->
    <message id="AboutText">
        <source></source>
        <extracomment>About box; the copyright line stays as it is.</extracomment>
        <translation>日期是一个你每年都会回来的地方。
© The Velmar authors</translation>
    </message>
    <message id="About %@">
        <source></source>
        <extracomment>%1 is the application's name.</extracomment>
        <translation>关于 %1</translation>
    </message>
    <message id="Check for Updates…">
        <source></source>
        <translation>检查更新…</translation>
    </message>
    <message id="Settings…">
        <source></source>
        <translation>设置…</translation>
    </message>
    <message id="Hide %@">
        <source></source>
        <extracomment>Minimises the window. %1 is the application's name.</extracomment>
        <translation>隐藏 %1</translation>
    </message>
    <message id="Import…">
        <source></source>
        <translation>导入…</translation>
    </message>
    <message id="Import Records…">
        <source></source>
        <extracomment>The list of what was imported, for undo.</extracomment>
        <translation>导入记录…</translation>
    </message>
    <message id="Export…">
        <source></source>
        <translation>导出…</translation>
    </message>
    <message id="Show in Finder">
        <source></source>
        <extracomment>Opens the file manager with the day's file selected.</extracomment>
        <translation>在文件管理器中显示</translation>
    </message>
    <message id="Find…">
        <source></source>
        <translation>查找…</translation>
    </message>
    <message id="Find Next">
        <source></source>
        <translation>查找下一个</translation>
    </message>
    <message id="Find Previous">
        <source></source>
        <translation>查找上一个</translation>
    </message>
    <message id="View">
        <source></source>
        <extracomment>Menu.</extracomment>
        <translation>视图</translation>
    </message>
    <message id="One Year">
        <source></source>
        <extracomment>The page shows one year of the day.</extracomment>
        <translation>单年</translation>
    </message>
    <message id="All Years">
        <source></source>
        <extracomment>The page shows all years of the day.</extracomment>
        <translation>所有年份</translation>
    </message>
    <message id="Toggle Source">
        <source></source>
        <extracomment>Shows the day's file as it is, or the page again.</extracomment>
        <translation>切换源文件</translation>
    </message>
    <message id="Source">
        <source></source>
        <extracomment>Button: shows the day's file as it is.</extracomment>
        <translation>源文件</translation>
    </message>
    <message id="Reader">
        <source></source>
        <extracomment>Button: back from the file to the page.</extracomment>
        <translation>阅读</translation>
    </message>
    <message id="Year Calendar">
        <source></source>
        <extracomment>The window with all days of the year.</extracomment>
        <translation>年历</translation>
    </message>

    <!-- Sidebar, rail and year calendar -->
    <message id="SidebarSearch">
        <source></source>
        <extracomment>Button that opens the search.</extracomment>
        <translation>搜索</translation>
    </message>
    <message id="SidebarPreviousMonth">
        <source></source>
        <extracomment>Button over the month's days.</extracomment>
        <translation>上个月</translation>
    </message>
    <message id="SidebarNextMonth">
        <source></source>
        <extracomment>Button over the month's days.</extracomment>
        <translation>下个月</translation>
    </message>
    <message id="Back to Today">
        <source></source>
        <extracomment>Button; today's date stands beside it.</extracomment>
        <translation>回到今天</translation>
    </message>
    <message id="Days written">
        <source></source>
        <extracomment>Fact about the diary; “214 / 365” stands beside it.</extracomment>
        <translation>写过的天数</translation>
    </message>
    <message id="Earliest year">
        <source></source>
        <extracomment>Fact about the diary; a year stands beside it.</extracomment>
        <translation>最早的年份</translation>
    </message>
    <message id="Files">
        <source></source>
        <extracomment>Fact about the diary; a number stands beside it.</extracomment>
        <translation>文件</translation>
    </message>
    <message id="SidebarYearCalendar">
        <source></source>
        <extracomment>Button that opens the window YearCalendarTitle.</extracomment>
        <translation>年历</translation>
    </message>
    <message id="SidebarSettings">
        <source></source>
        <extracomment>Button that opens the settings.</extracomment>
        <translation>设置</translation>
    </message>
    <message id="AccessibleSidebar">
        <source></source>
        <extracomment>Name of the column left of the page, read aloud.</extracomment>
        <translation>日历</translation>
    </message>
    <message id="AccessibleDayGrid">
        <source></source>
        <extracomment>Name of the month's days, read aloud; %1 is a month's name, %2 a year.</extracomment>
        <translation>%2 年%1的日子</translation>
    </message>
    <message id="AccessibleDayWritten">
        <source></source>
        <extracomment>A day with text in the diary, read aloud; %1 is the day, November 21.</extracomment>
        <translation>%1，写过</translation>
    </message>
    <message id="AccessibleDayToday">
        <source></source>
        <extracomment>Read aloud behind the day that is today.</extracomment>
        <translation>今天</translation>
    </message>
    <message id="RailHead">
        <source></source>
        <extracomment>Head of the column of years.</extracomment>
        <translation>年份</translation>
    </message>
    <message id="AccessibleRail">
        <source></source>
        <extracomment>Name of the column right of the page, read aloud.</extracomment>
        <translation>这一天的各年</translation>
    </message>
    <message id="AllChip">
        <source></source>
        <extracomment>Shows all years of the day at once; %1 is their number.</extracomment>
        <translation>全部 · %1</translation>
    </message>
    <message id="AccessibleAllYears">
        <source></source>
        <extracomment>What the chip AllChip does.</extracomment>
        <translation>显示这一天的所有年份</translation>
    </message>
    <message id="%d chars" numerus="yes">
        <source></source>
        <extracomment>Length of a year's text.</extracomment>
        <translation>
            <numerusform>%n 字</numerusform>
        </translation>
    </message>
    <message id="Not written yet">
        <source></source>
        <extracomment>Stands where a year's text would begin.</extracomment>
        <translation>还没有写</translation>
    </message>
    <message id="This year · writing">
        <source></source>
        <extracomment>On the card of the current year.</extracomment>
        <translation>今年 · 正在写</translation>
    </message>
    <message id="SearchHits" numerus="yes">
        <source></source>
        <extracomment>Matches of a search in one year's text or more.</extracomment>
        <translation>
            <numerusform>%n 处</numerusform>
        </translation>
    </message>
    <message id="Spanning %d years · earliest %@" numerus="yes">
        <source></source>
        <extracomment>Below the years of a day; %1 is a year.</extracomment>
        <translation>
            <numerusform>跨越 %n 年 · 始于 %1</numerusform>
        </translation>
    </message>
    <message id="This day is still empty">
        <source></source>
        <extracomment>Stands there if no earlier year has text.</extracomment>
        <translation>这一天还是空的</translation>
    </message>
    <message id="Add a past year">
        <source></source>
        <extracomment>Card that opens a menu of years.</extracomment>
        <translation>补写往年</translation>
    </message>
    <message id="AccessibleAddYear">
        <source></source>
        <extracomment>Read aloud behind the name of that card.</extracomment>
        <translation>打开年份菜单</translation>
    </message>
    <message id="YearCalendarTitle">
        <source></source>
        <extracomment>Title of the window with all dates of the year.</extracomment>
        <translation>年历</translation>
    </message>
    <message id="%d d" numerus="yes">
        <source></source>
        <extracomment>Number of a month's days with text; as short as it can be.</extracomment>
        <translation>
            <numerusform>%n 天</numerusform>
        </translation>
    </message>
    <message id="YearsWrittenLegend">
        <source></source>
        <extracomment>Ahead of the shades for 0, 1, 2, and 3 or more years.</extracomment>
        <translation>写过的年数</translation>
    </message>
    <message id="YearFootnote">
        <source></source>
        <extracomment>Below the calendar.</extracomment>
        <translation>一格是一个日期，汇集了历年的文字。描边的是 02-29，闰年才轮到它。</translation>
    </message>
    <message id="HeatCell" numerus="yes">
        <source></source>
        <extracomment>A date of the calendar with the number of its written years; %1 is the date, March 7.</extracomment>
        <translation>
            <numerusform>%1 · %n 年</numerusform>
        </translation>
    </message>
    <message id="HeatCellEmpty">
        <source></source>
        <extracomment>The same for a date without text.</extracomment>
        <translation>%1 · 没有写过</translation>
    </message>

    <!-- Page and all years -->
    <message id="(empty file)">
        <source></source>
        <extracomment>Stands in place of a file's source.</extracomment>
        <translation>（空文件）</translation>
    </message>
    <message id="NotWrittenYears">
        <source></source>
        <extracomment>%1 is a year, or the first and last of several: 2021 – 2023.</extracomment>
        <translation>%1 未写</translation>
    </message>
    <message id="WrittenYears" numerus="yes">
        <source></source>
        <extracomment>How many years of the day have text.</extracomment>
        <translation>
            <numerusform>写过 %n 年</numerusform>
        </translation>
    </message>
    <message id="WrittenMissingYears" numerus="yes">
        <source></source>
        <extracomment>How many years of the day have text; %1 is how many have none.</extracomment>
        <translation>
            <numerusform>写过 %n 年 · %1 年未写</numerusform>
        </translation>
    </message>
    <message id="Click a year to write in it">
        <source></source>
        <extracomment>Hint above the cards of all years.</extracomment>
        <translation>点击年份即可书写</translation>
    </message>
    <message id="Keep writing">
        <source></source>
        <extracomment>On this year's card: opens the year.</extracomment>
        <translation>接着写</translation>
    </message>
    <message id="Open">
        <source></source>
        <extracomment>On a past year's card: opens the year.</extracomment>
        <translation>打开</translation>
    </message>
    <message id="Fill in">
        <source></source>
        <extracomment>Button beside years that aren't written: opens the newest of them.</extracomment>
        <translation>补写</translation>
    </message>
    <message id="AccessibleFillIn">
        <source></source>
        <extracomment>Name of the button Fill in, read aloud; %1 is the year that it opens.</extracomment>
        <translation>补写 %1 年</translation>
    </message>
    <message id="CurrentYearEmpty">
        <source></source>
        <extracomment>Stands in this year's empty card.</extracomment>
        <translation>今年还没有写</translation>
    </message>
    <message id="MatchOf">
        <source></source>
        <extracomment>%1 is the number of the match that is stepped to, %2 of how many.</extracomment>
        <translation>%1 / %2</translation>
    </message>
    <message id="AccessibleSource">
        <source></source>
        <extracomment>Name of the file's text, read aloud; %1 is a file's name.</extracomment>
        <translation>%1 的源文本</translation>
    </message>

    <!-- Search -->
    <message id="SearchDays" numerus="yes">
        <source></source>
        <extracomment>Part of SearchCount.</extracomment>
        <translation>
            <numerusform>%n 天</numerusform>
        </translation>
    </message>
    <message id="SearchYears" numerus="yes">
        <source></source>
        <extracomment>Part of SearchCount.</extracomment>
        <translation>
            <numerusform>%n 年</numerusform>
        </translation>
    </message>
    <message id="SearchCount">
        <source></source>
        <extracomment>%1 is the text of SearchHits, %2 of SearchDays, %3 of SearchYears. At most 40 characters wide.</extracomment>
        <translation>%1 · %2 · %3</translation>
    </message>
    <message id="SearchDayYears" numerus="yes">
        <source></source>
        <extracomment>%1 is a date without a year; in how many years it was written.</extracomment>
        <translation>
            <numerusform>%1 · %n 年</numerusform>
        </translation>
    </message>
    <message id="SearchMonthDays" numerus="yes">
        <source></source>
        <extracomment>%1 is the month's name, %2 the year.</extracomment>
        <translation>
            <numerusform>%2 年%1 · %n 天</numerusform>
        </translation>
    </message>
    <message id="SearchYearDays" numerus="yes">
        <source></source>
        <extracomment>%1 is the year.</extracomment>
        <translation>
            <numerusform>%1 年 · %n 天</numerusform>
        </translation>
    </message>
    <message id="SearchPending" numerus="yes">
        <source></source>
        <extracomment>Days whose files the cloud hasn't brought yet.</extracomment>
        <translation>
            <numerusform>还有 %n 天正在下载。</numerusform>
        </translation>
    </message>
    <message id="SearchTruncated">
        <source></source>
        <extracomment>%1 is a number. The search goes from December back, and stops there.</extracomment>
        <translation>从十二月往前数，只列出 %1 条。缩小范围可以看到其余的。</translation>
    </message>
    <message id="SearchHint">
        <source></source>
        <extracomment>Stands below the recent searches.</extracomment>
        <translation>多个词须同时出现。加上年份、月份或日期，可以缩小范围。</translation>
    </message>
    <message id="SearchNoResultsFor">
        <source></source>
        <extracomment>%1 is the line in the search field.</extracomment>
        <translation>没有找到“%1”</translation>
    </message>
    <message id="SearchNoResultsHint">
        <source></source>
        <translation>试试少用几个词，或换一个词。</translation>
    </message>
    <message id="SearchScopeBackToAll">
        <source></source>
        <extracomment>Button: from one year to all of them.</extracomment>
        <translation>搜索所有年份</translation>
    </message>
    <message id="SearchScopeAll">
        <source></source>
        <extracomment>Chip ahead of the years; very short.</extracomment>
        <translation>全部</translation>
    </message>
    <message id="SearchMoreYears">
        <source></source>
        <extracomment>Name of the chip that opens a list of older years.</extracomment>
        <translation>更多年份</translation>
    </message>
    <message id="SearchSearching">
        <source></source>
        <translation>正在搜索…</translation>
    </message>
    <message id="SearchPlaceholder">
        <source></source>
        <extracomment>Stands in the empty search field: what it takes.</extracomment>
        <translation>词语、2024、2024-03、03-07</translation>
    </message>
    <message id="SearchRecent">
        <source></source>
        <extracomment>Head of the list of recent searches.</extracomment>
        <translation>最近搜索</translation>
    </message>
    <message id="SearchKeysHint">
        <source></source>
        <extracomment>The search's keys in two short lines; keys in square brackets. %1 is the text of SearchKeysClear or SearchKeysClose.</extracomment>
        <translation>[↑ ↓] 移动 · [Enter] 打开
[Ctrl Enter] 所有年份 · [Esc] %1</translation>
    </message>
    <message id="SearchKeysClear">
        <source></source>
        <extracomment>What Esc does while there is text in the field.</extracomment>
        <translation>清除</translation>
    </message>
    <message id="SearchKeysClose">
        <source></source>
        <extracomment>What Esc does in an empty field.</extracomment>
        <translation>关闭</translation>
    </message>
    <message id="SearchClear">
        <source></source>
        <extracomment>Name of the button in the search field that empties it.</extracomment>
        <translation>清除</translation>
    </message>
    <message id="AccessibleSearchField">
        <source></source>
        <extracomment>Name of the search field, read aloud.</extracomment>
        <translation>搜索日记</translation>
    </message>
    <message id="AccessibleSearchResults">
        <source></source>
        <extracomment>Name of the list of hits, read aloud.</extracomment>
        <translation>搜索结果</translation>
    </message>
    <message id="AccessibleSearchPane">
        <source></source>
        <extracomment>Name of the search pane, read aloud.</extracomment>
        <translation>搜索</translation>
    </message>

    <!-- Settings and first start -->
    <message id="OnboardTitle">
        <source></source>
        <extracomment>Title of the sheet of a first start.</extracomment>
        <translation>日记放在哪里？</translation>
    </message>
    <message id="OnboardInfo">
        <source></source>
        <extracomment>Below it. Says that a cloud folder keeps machines in step, and that the settings can change it.</extracomment>
        <translation>Velmar 把日记写成普通的 Markdown 文件，一年中的每一天各一份，放在你自己的文件夹里。放进云端文件夹，几台电脑之间会保持一致。以后可以在设置里改。</translation>
    </message>
    <message id="OnboardICloud">
        <source></source>
        <extracomment>Button: the diary goes to the cloud's folder.</extracomment>
        <translation>放进云端文件夹</translation>
    </message>
    <message id="OnboardLocal">
        <source></source>
        <extracomment>Button: the diary stays on this machine.</extracomment>
        <translation>放在这台电脑上</translation>
    </message>
    <message id="Palette.paper">
        <source></source>
        <extracomment>Name of a colour palette.</extracomment>
        <translation>纸</translation>
    </message>
    <message id="Palette.plain">
        <source></source>
        <extracomment>Name of a colour palette, in greys.</extracomment>
        <translation>素</translation>
    </message>
    <message id="Palette.osmanthus">
        <source></source>
        <extracomment>Name of a colour palette, after the yellow flower.</extracomment>
        <translation>桂</translation>
    </message>
    <message id="Palette.celadon">
        <source></source>
        <extracomment>Name of a colour palette, after the glaze.</extracomment>
        <translation>青瓷</translation>
    </message>
    <message id="Palette.ink">
        <source></source>
        <extracomment>Name of a dark colour palette.</extracomment>
        <translation>墨</translation>
    </message>
    <message id="Palette.indigo">
        <source></source>
        <extracomment>Name of a dark colour palette.</extracomment>
        <translation>靛</translation>
    </message>
    <message id="Settings.Title">
        <source></source>
        <extracomment>Title of the window.</extracomment>
        <translation>设置</translation>
    </message>
    <message id="Settings.Appearance">
        <source></source>
        <extracomment>Section, and name of its choice when read aloud.</extracomment>
        <translation>外观</translation>
    </message>
    <message id="Settings.Light">
        <source></source>
        <extracomment>Appearance.</extracomment>
        <translation>浅色</translation>
    </message>
    <message id="Settings.Dark">
        <source></source>
        <extracomment>Appearance.</extracomment>
        <translation>深色</translation>
    </message>
    <message id="Settings.System">
        <source></source>
        <extracomment>Appearance: as the desktop has it.</extracomment>
        <translation>跟随系统</translation>
    </message>
    <message id="Settings.LightPalettes">
        <source></source>
        <extracomment>Name of a group of palettes, read aloud.</extracomment>
        <translation>浅色配色</translation>
    </message>
    <message id="Settings.DarkPalettes">
        <source></source>
        <extracomment>Name of a group of palettes, read aloud.</extracomment>
        <translation>深色配色</translation>
    </message>
    <message id="Settings.Writing">
        <source></source>
        <extracomment>Section.</extracomment>
        <translation>书写</translation>
    </message>
    <message id="Settings.Font">
        <source></source>
        <extracomment>Name of a choice, read aloud.</extracomment>
        <translation>字体</translation>
    </message>
    <message id="Settings.DefaultFont">
        <source></source>
        <extracomment>Choice of a font; %1 is the font that it stands for.</extracomment>
        <translation>默认（%1）</translation>
    </message>
    <message id="Settings.FontSize">
        <source></source>
        <extracomment>Name of a number, read aloud.</extracomment>
        <translation>字号</translation>
    </message>
    <message id="Settings.Smaller">
        <source></source>
        <extracomment>Button of the font size.</extracomment>
        <translation>调小</translation>
    </message>
    <message id="Settings.Larger">
        <source></source>
        <extracomment>Button of the font size.</extracomment>
        <translation>调大</translation>
    </message>
    <message id="Settings.Sample">
        <source></source>
        <extracomment>A sample of the font; one short sentence.</extracomment>
        <translation>日子是一处地方。</translation>
    </message>
    <message id="Settings.GapYears">
        <source></source>
        <extracomment>Check box.</extracomment>
        <translation>在正文下列出没有写的年份</translation>
    </message>
    <message id="Settings.Photos">
        <source></source>
        <extracomment>Section.</extracomment>
        <translation>照片</translation>
    </message>
    <message id="Settings.PhotoStyle">
        <source></source>
        <extracomment>Name of a choice, read aloud.</extracomment>
        <translation>照片排列</translation>
    </message>
    <message id="Settings.Strip">
        <source></source>
        <extracomment>Layout of photos: one row.</extracomment>
        <translation>长条</translation>
    </message>
    <message id="Settings.Timeline">
        <source></source>
        <extracomment>Layout of photos: by their time of day.</extracomment>
        <translation>时间线</translation>
    </message>
    <message id="Settings.Mosaic">
        <source></source>
        <extracomment>Layout of photos: rows of different sizes.</extracomment>
        <translation>拼贴</translation>
    </message>
    <message id="Settings.ShowPhotos">
        <source></source>
        <extracomment>Check box.</extracomment>
        <translation>显示当天拍的照片</translation>
    </message>
    <message id="Settings.NoHiddenPhotos">
        <source></source>
        <extracomment>The count of photos that the user hid is none.</extracomment>
        <translation>没有隐藏的照片</translation>
    </message>
    <message id="Settings.HiddenPhotos" numerus="yes">
        <source></source>
        <extracomment>How many photos the user hid.</extracomment>
        <translation>
            <numerusform>隐藏了 %n 张照片</numerusform>
        </translation>
    </message>
    <message id="Settings.HiddenPhotosSynced" numerus="yes">
        <source></source>
        <extracomment>The same, where the cloud brings the choice to other machines.</extracomment>
        <translation>
            <numerusform>隐藏了 %n 张照片 · 通过日记文件夹保持一致</numerusform>
        </translation>
    </message>
    <message id="Settings.RestoreAll">
        <source></source>
        <extracomment>Button: shows all hidden photos again, after a question.</extracomment>
        <translation>全部恢复…</translation>
    </message>
    <message id="Settings.RestoreAllTitle">
        <source></source>
        <extracomment>Question.</extracomment>
        <translation>恢复所有隐藏的照片？</translation>
    </message>
    <message id="Settings.RestoreAllInfo" numerus="yes">
        <source></source>
        <extracomment>Below it.</extracomment>
        <translation>
            <numerusform>%n 张照片会重新出现在各自的日子里。</numerusform>
        </translation>
    </message>
    <message id="Settings.RestoreAllConfirm">
        <source></source>
        <extracomment>Button that does it.</extracomment>
        <translation>全部恢复</translation>
    </message>
    <message id="Settings.Cancel">
        <source></source>
        <extracomment>Button that leaves a question.</extracomment>
        <translation>取消</translation>
    </message>
    <message id="Settings.Folder">
        <source></source>
        <extracomment>Section.</extracomment>
        <translation>日记文件夹</translation>
    </message>
    <message id="Settings.Choose">
        <source></source>
        <extracomment>Button: opens a window to choose a folder.</extracomment>
        <translation>选择…</translation>
    </message>
    <message id="Settings.ChooseTitle">
        <source></source>
        <extracomment>Title of that window.</extracomment>
        <translation>选择日记文件夹</translation>
    </message>
    <message id="Settings.UseCloud">
        <source></source>
        <extracomment>Button.</extracomment>
        <translation>用云端文件夹</translation>
    </message>
    <message id="Settings.UseDefault">
        <source></source>
        <extracomment>Button: forgets the chosen folder.</extracomment>
        <translation>用默认位置</translation>
    </message>
    <message id="Settings.FolderFailedTitle">
        <source></source>
        <extracomment>A chosen folder can't be used.</extracomment>
        <translation>这个文件夹不能放日记</translation>
    </message>
    <message id="Settings.FolderNotAFolder">
        <source></source>
        <extracomment>%1 is a path.</extracomment>
        <translation>%1 不是文件夹。什么都没有改动。</translation>
    </message>
    <message id="Settings.FolderNotWritable">
        <source></source>
        <extracomment>%1 is a path.</extracomment>
        <translation>Velmar 无权写入 %1。什么都没有改动。</translation>
    </message>
    <message id="Settings.FolderCannotBeMade">
        <source></source>
        <extracomment>%1 is a path.</extracomment>
        <translation>%1 不存在，也无法新建。什么都没有改动。</translation>
    </message>
    <message id="Settings.InAndOut">
        <source></source>
        <extracomment>Section: import and export.</extracomment>
        <translation>导入与导出</translation>
    </message>
    <message id="Settings.Import">
        <source></source>
        <extracomment>Button.</extracomment>
        <translation>导入…</translation>
    </message>
    <message id="Settings.Export">
        <source></source>
        <extracomment>Button.</extracomment>
        <translation>导出…</translation>
    </message>
    <message id="Settings.ImportRecords">
        <source></source>
        <extracomment>Button: opens the list of imports made.</extracomment>
        <translation>导入记录…</translation>
    </message>
    <message id="Settings.Language">
        <source></source>
        <extracomment>Section, and name of its choice when read aloud.</extracomment>
        <translation>语言</translation>
    </message>
    <message id="Settings.SystemLanguage">
        <source></source>
        <extracomment>Choice of a language: the desktop's.</extracomment>
        <translation>跟随系统</translation>
    </message>
    <message id="Settings.Updates">
        <source></source>
        <extracomment>Section.</extracomment>
        <translation>更新</translation>
    </message>
    <message id="Settings.AutoUpdate">
        <source></source>
        <extracomment>Check box.</extracomment>
        <translation>每天检查一次更新</translation>
    </message>
    <message id="Settings.CheckNow">
        <source></source>
        <extracomment>Button: looks for an update.</extracomment>
        <translation>立即检查</translation>
    </message>
    <message id="Settings.UpdateUnsupported">
        <source></source>
        <extracomment>Instead of an update's state: this build has none.</extracomment>
        <translation>这个版本的 Velmar 不会自行更新</translation>
    </message>
    <message id="Settings.NeverChecked">
        <source></source>
        <extracomment>State of updates.</extracomment>
        <translation>还没有检查过</translation>
    </message>
    <message id="Settings.LastChecked">
        <source></source>
        <extracomment>State of updates. %1 is a day, such as today; %2 a time.</extracomment>
        <translation>上次检查：%1 %2</translation>
    </message>
    <message id="Settings.Checking">
        <source></source>
        <extracomment>State of updates.</extracomment>
        <translation>正在检查更新…</translation>
    </message>
    <message id="Settings.UpToDate">
        <source></source>
        <extracomment>State of updates; %1 is a version.</extracomment>
        <translation>Velmar %1 已是最新版本</translation>
    </message>
    <message id="Settings.UpToDateChecked">
        <source></source>
        <extracomment>The same; %2 is a day, such as today; %3 a time.</extracomment>
        <translation>Velmar %1 已是最新版本 · %2 %3 检查过</translation>
    </message>
    <message id="Settings.Downloading">
        <source></source>
        <extracomment>State of updates; %1 is a version.</extracomment>
        <translation>正在下载 Velmar %1…</translation>
    </message>
    <message id="Settings.UpdateReady">
        <source></source>
        <extracomment>State of updates; %1 is a version.</extracomment>
        <translation>Velmar %1 已就绪，退出时安装</translation>
    </message>
    <message id="Settings.UpdateFailed">
        <source></source>
        <extracomment>State of updates.</extracomment>
        <translation>上次检查没有成功</translation>
    </message>

</context>
</TS>

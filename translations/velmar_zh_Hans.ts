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
        <translation>拷贝</translation>
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
        <translation>缩放</translation>
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
        <translation>写下 %1 年的这一天……</translation>
    </message>
    <message id="NoLeapDayThisYear">
        <source></source>
        <extracomment>Stands in place of the editor; %1 is the next leap year.</extracomment>
        <translation>今年没有二月二十九日。下一次要等到 %1 年。</translation>
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
        <translation>好</translation>
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

    <!-- Sidebar, rail and year calendar -->

    <!-- Page and all years -->

    <!-- Search -->

    <!-- Settings and first start -->

</context>
</TS>

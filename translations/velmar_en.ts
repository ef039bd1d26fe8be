<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="en">
<context>
    <name></name>
    <message id="Diary">
        <source></source>
        <extracomment>Menu of the application.</extracomment>
        <translation>Diary</translation>
    </message>
    <message id="Quit %@">
        <source></source>
        <extracomment>%1 is the application's name.</extracomment>
        <translation>Quit %1</translation>
    </message>
    <message id="File">
        <source></source>
        <extracomment>Menu.</extracomment>
        <translation>File</translation>
    </message>
    <message id="Close">
        <source></source>
        <extracomment>Closes the window.</extracomment>
        <translation>Close</translation>
    </message>
    <message id="Save">
        <source></source>
        <translation>Save</translation>
    </message>
    <message id="Edit">
        <source></source>
        <extracomment>Menu.</extracomment>
        <translation>Edit</translation>
    </message>
    <message id="Undo">
        <source></source>
        <translation>Undo</translation>
    </message>
    <message id="Redo">
        <source></source>
        <translation>Redo</translation>
    </message>
    <message id="Cut">
        <source></source>
        <translation>Cut</translation>
    </message>
    <message id="Copy">
        <source></source>
        <translation>Copy</translation>
    </message>
    <message id="Paste">
        <source></source>
        <translation>Paste</translation>
    </message>
    <message id="Select All">
        <source></source>
        <translation>Select All</translation>
    </message>
    <message id="Format">
        <source></source>
        <extracomment>Menu.</extracomment>
        <translation>Format</translation>
    </message>
    <message id="Bold">
        <source></source>
        <translation>Bold</translation>
    </message>
    <message id="Italic">
        <source></source>
        <translation>Italic</translation>
    </message>
    <message id="Strikethrough">
        <source></source>
        <translation>Strikethrough</translation>
    </message>
    <message id="Inline Code">
        <source></source>
        <translation>Inline Code</translation>
    </message>
    <message id="Link">
        <source></source>
        <translation>Link</translation>
    </message>
    <message id="Heading 1">
        <source></source>
        <translation>Heading 1</translation>
    </message>
    <message id="Heading 2">
        <source></source>
        <translation>Heading 2</translation>
    </message>
    <message id="Heading 3">
        <source></source>
        <translation>Heading 3</translation>
    </message>
    <message id="Body Text">
        <source></source>
        <translation>Body Text</translation>
    </message>
    <message id="Bulleted List">
        <source></source>
        <translation>Bulleted List</translation>
    </message>
    <message id="Numbered List">
        <source></source>
        <translation>Numbered List</translation>
    </message>
    <message id="To-Do">
        <source></source>
        <translation>To-Do</translation>
    </message>
    <message id="Quote">
        <source></source>
        <translation>Quote</translation>
    </message>
    <message id="Check To-Do">
        <source></source>
        <translation>Check To-Do</translation>
    </message>
    <message id="Indent">
        <source></source>
        <translation>Indent</translation>
    </message>
    <message id="Outdent">
        <source></source>
        <translation>Outdent</translation>
    </message>
    <message id="YearSectionWarning">
        <source></source>
        <extracomment>Pill beside a heading of the text that reads as a year: when the file is read again, a new year begins there. %1 is the year.</extracomment>
        <translation>Would start the year %1</translation>
    </message>
    <message id="Navigate">
        <source></source>
        <extracomment>Menu.</extracomment>
        <translation>Navigate</translation>
    </message>
    <message id="Previous Day">
        <source></source>
        <translation>Previous Day</translation>
    </message>
    <message id="Next Day">
        <source></source>
        <translation>Next Day</translation>
    </message>
    <message id="Today">
        <source></source>
        <extracomment>Goes to today's page.</extracomment>
        <translation>Today</translation>
    </message>
    <message id="Random Day">
        <source></source>
        <extracomment>Goes to any day with writing.</extracomment>
        <translation>Random Day</translation>
    </message>
    <message id="Window">
        <source></source>
        <extracomment>Menu.</extracomment>
        <translation>Window</translation>
    </message>
    <message id="Minimize">
        <source></source>
        <translation>Minimize</translation>
    </message>
    <message id="Zoom">
        <source></source>
        <extracomment>Makes the window as big as the screen, or back.</extracomment>
        <translation>Zoom</translation>
    </message>
    <message id="Day %d / %d">
        <source></source>
        <extracomment>%1 is the number of the day in the year, %2 the number of days.</extracomment>
        <translation>Day %1 / %2</translation>
    </message>
    <message id="This file has %d past-year sections" numerus="yes">
        <source></source>
        <translation>
            <numerusform>This file has %n past-year section</numerusform>
            <numerusform>This file has %n past-year sections</numerusform>
        </translation>
    </message>
    <message id="%d year sections" numerus="yes">
        <source></source>
        <translation>
            <numerusform>%n year section</numerusform>
            <numerusform>%n year sections</numerusform>
        </translation>
    </message>
    <message id="%d years ago" numerus="yes">
        <source></source>
        <translation>
            <numerusform>%n year ago</numerusform>
            <numerusform>%n years ago</numerusform>
        </translation>
    </message>
    <message id="This year">
        <source></source>
        <translation>This year</translation>
    </message>
    <message id="Write about this day in %d…">
        <source></source>
        <extracomment>Stands in the empty editor; %1 is a year.</extracomment>
        <translation>Write about this day in %1…</translation>
    </message>
    <message id="NoLeapDayThisYear">
        <source></source>
        <extracomment>Stands in place of the editor; %1 is the next leap year.</extracomment>
        <translation>There is no February 29 this year. The next one comes in %1.</translation>
    </message>
    <message id="GapLine">
        <source></source>
        <extracomment>%1 is a list of years.</extracomment>
        <translation>Not written: %1</translation>
    </message>
    <message id="Viewing ## %@ · %d chars" numerus="yes">
        <source></source>
        <extracomment>%1 is a year, as its heading in the file.</extracomment>
        <translation>
            <numerusform>Viewing ## %1 · %n char</numerusform>
            <numerusform>Viewing ## %1 · %n chars</numerusform>
        </translation>
    </message>
    <message id="RelativeToday">
        <source></source>
        <extracomment>A day, told from today.</extracomment>
        <translation>today</translation>
    </message>
    <message id="RelativeYesterday">
        <source></source>
        <extracomment>A day, told from today.</extracomment>
        <translation>yesterday</translation>
    </message>
    <message id="RelativeDaysAgo" numerus="yes">
        <source></source>
        <extracomment>A day, told from today.</extracomment>
        <translation>
            <numerusform>%n day ago</numerusform>
            <numerusform>%n days ago</numerusform>
        </translation>
    </message>
    <message id="ConflictMarker">
        <source></source>
        <extracomment>Stands in the diary between a text and what another device wrote for the same day.</extracomment>
        <translation>— Also written on another device —</translation>
    </message>
    <message id="MergedRemoteNotice">
        <source></source>
        <translation>Merged with what another device wrote on this day</translation>
    </message>
    <message id="CannotLeaveNotice">
        <source></source>
        <extracomment>%1 is a day, 11-21.</extracomment>
        <translation>%1 can be neither saved nor kept elsewhere, so it stays open</translation>
    </message>
    <message id="KeptOverwrittenNotice">
        <source></source>
        <extracomment>%1 is a day and year, 11-21 2026.</extracomment>
        <translation>What another device wrote for %1 was kept before it was overwritten</translation>
    </message>
    <message id="KeptUndecodableNotice">
        <source></source>
        <extracomment>%1 is a file's name.</extracomment>
        <translation>%1 held bytes that are no text; a copy was kept before saving</translation>
    </message>
    <message id="KeptDraftNotice">
        <source></source>
        <extracomment>%1 is a day and year, 11-21 2026.</extracomment>
        <translation>What you wrote for %1 could not be saved; it was kept</translation>
    </message>
    <message id="KeptMergeNotice">
        <source></source>
        <extracomment>%1 is a file's name.</extracomment>
        <translation>The merged text of %1 could not be saved; it was kept</translation>
    </message>
    <message id="KeptDraftOffer">
        <source></source>
        <extracomment>A link with the text of PutBack follows. %1 is a day and year, 11-21 2026.</extracomment>
        <translation>What you wrote for %1 earlier could not be saved, but is kept</translation>
    </message>
    <message id="PutBack">
        <source></source>
        <extracomment>Link behind KeptDraftOffer.</extracomment>
        <translation>Put it back</translation>
    </message>
    <message id="SaveFailedTitle">
        <source></source>
        <extracomment>%1 is a file's name.</extracomment>
        <translation>%1 could not be saved</translation>
    </message>
    <message id="SaveFailedDiskFull">
        <source></source>
        <translation>The disk is full.</translation>
    </message>
    <message id="SaveFailedNoPermission">
        <source></source>
        <translation>You have no permission to write in the diary's folder.</translation>
    </message>
    <message id="SaveFailedReadOnly">
        <source></source>
        <translation>The diary's folder is on a disk that can only be read.</translation>
    </message>
    <message id="SaveFailedFolderMissing">
        <source></source>
        <translation>The diary's folder is not there.</translation>
    </message>
    <message id="SaveFailedOther">
        <source></source>
        <extracomment>%1 is the system's own words.</extracomment>
        <translation>The system reports: %1</translation>
    </message>
    <message id="SaveFailedNothingLost">
        <source></source>
        <extracomment>Follows one of the causes above, as a paragraph of its own.</extracomment>
        <translation>Nothing you wrote is lost. The next key, or Save, tries again; what can't be saved when you leave is kept.</translation>
    </message>
    <message id="OK">
        <source></source>
        <translation>OK</translation>
    </message>
    <message id="AccessibleEditor">
        <source></source>
        <extracomment>Name of the text field, read aloud; %1 is a day and year, 11-21 2026.</extracomment>
        <translation>Diary text of %1</translation>
    </message>
    <message id="AccessibleTaskDone">
        <source></source>
        <extracomment>Read aloud when the caret comes to a to-do that is checked, or when it is checked.</extracomment>
        <translation>To-do, done</translation>
    </message>
    <message id="AccessibleTaskOpen">
        <source></source>
        <extracomment>Read aloud when the caret comes to a to-do that isn't checked, or when it is unchecked.</extracomment>
        <translation>To-do, not done</translation>
    </message>
    <message id="AccessiblePage">
        <source></source>
        <extracomment>Name of the page, read aloud.</extracomment>
        <translation>Day</translation>
    </message>
    <message id="AccessibleTopBar">
        <source></source>
        <extracomment>Name of the bar above the page, read aloud.</extracomment>
        <translation>Top bar</translation>
    </message>
    <message id="AccessibleStatusBar">
        <source></source>
        <extracomment>Name of the bar below the page, read aloud.</extracomment>
        <translation>Status bar</translation>
    </message>

    <!-- Menus and bars -->

    <!-- Sidebar, rail and year calendar -->

    <!-- Page and all years -->

    <!-- Search -->

    <!-- Settings and first start -->

</context>
</TS>

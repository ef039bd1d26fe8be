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
        <translation>Maximize</translation>
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
        <translation>There is no February 29 this year. Its years stand on the right; the next one comes in %1.</translation>
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
        <translation>You have no permission to write in the diary’s folder.</translation>
    </message>
    <message id="SaveFailedReadOnly">
        <source></source>
        <translation>The diary’s folder is on a disk that can only be read.</translation>
    </message>
    <message id="SaveFailedFolderMissing">
        <source></source>
        <translation>The diary’s folder is not there.</translation>
    </message>
    <message id="SaveFailedOther">
        <source></source>
        <extracomment>%1 is the system's own words.</extracomment>
        <translation>The system reports: %1</translation>
    </message>
    <message id="SaveFailedNothingLost">
        <source></source>
        <extracomment>Follows one of the causes above, as a paragraph of its own.</extracomment>
        <translation>Nothing you wrote is lost. The next key, or Save, tries again; what can’t be saved when you leave is kept.</translation>
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
    <message id="AboutText">
        <source></source>
        <extracomment>About box; the copyright line stays as it is.</extracomment>
        <translation>A date is a place you come back to every year.
© The Velmar authors</translation>
    </message>
    <message id="About %@">
        <source></source>
        <extracomment>%1 is the application's name.</extracomment>
        <translation>About %1</translation>
    </message>
    <message id="Check for Updates…">
        <source></source>
        <translation>Check for Updates…</translation>
    </message>
    <message id="Settings…">
        <source></source>
        <translation>Settings…</translation>
    </message>
    <message id="Hide %@">
        <source></source>
        <extracomment>Minimises the window. %1 is the application's name.</extracomment>
        <translation>Hide %1</translation>
    </message>
    <message id="Import…">
        <source></source>
        <translation>Import…</translation>
    </message>
    <message id="Import Records…">
        <source></source>
        <extracomment>The list of what was imported, for undo.</extracomment>
        <translation>Import Records…</translation>
    </message>
    <message id="Export…">
        <source></source>
        <translation>Export…</translation>
    </message>
    <message id="Show in Finder">
        <source></source>
        <extracomment>Opens the file manager with the day's file selected.</extracomment>
        <translation>Show in Files</translation>
    </message>
    <message id="Find…">
        <source></source>
        <translation>Find…</translation>
    </message>
    <message id="Find Next">
        <source></source>
        <translation>Find Next</translation>
    </message>
    <message id="Find Previous">
        <source></source>
        <translation>Find Previous</translation>
    </message>
    <message id="View">
        <source></source>
        <extracomment>Menu.</extracomment>
        <translation>View</translation>
    </message>
    <message id="One Year">
        <source></source>
        <extracomment>The page shows one year of the day.</extracomment>
        <translation>One Year</translation>
    </message>
    <message id="All Years">
        <source></source>
        <extracomment>The page shows all years of the day.</extracomment>
        <translation>All Years</translation>
    </message>
    <message id="Toggle Source">
        <source></source>
        <extracomment>Shows the day's file as it is, or the page again.</extracomment>
        <translation>Toggle Source</translation>
    </message>
    <message id="Source">
        <source></source>
        <extracomment>Button: shows the day's file as it is.</extracomment>
        <translation>Source</translation>
    </message>
    <message id="Reader">
        <source></source>
        <extracomment>Button: back from the file to the page.</extracomment>
        <translation>Reader</translation>
    </message>
    <message id="Year Calendar">
        <source></source>
        <extracomment>The window with all days of the year.</extracomment>
        <translation>Year Calendar</translation>
    </message>

    <!-- Sidebar, rail and year calendar -->
    <message id="SidebarSearch">
        <source></source>
        <extracomment>Button that opens the search.</extracomment>
        <translation>Search</translation>
    </message>
    <message id="SidebarPreviousMonth">
        <source></source>
        <extracomment>Button over the month's days.</extracomment>
        <translation>Previous Month</translation>
    </message>
    <message id="SidebarNextMonth">
        <source></source>
        <extracomment>Button over the month's days.</extracomment>
        <translation>Next Month</translation>
    </message>
    <message id="Back to Today">
        <source></source>
        <extracomment>Button; today's date stands beside it.</extracomment>
        <translation>Back to Today</translation>
    </message>
    <message id="Days written">
        <source></source>
        <extracomment>Fact about the diary; “214 / 365” stands beside it.</extracomment>
        <translation>Days written</translation>
    </message>
    <message id="Earliest year">
        <source></source>
        <extracomment>Fact about the diary; a year stands beside it.</extracomment>
        <translation>Earliest year</translation>
    </message>
    <message id="Files">
        <source></source>
        <extracomment>Fact about the diary; a number stands beside it.</extracomment>
        <translation>Files</translation>
    </message>
    <message id="SidebarYearCalendar">
        <source></source>
        <extracomment>Button that opens the window YearCalendarTitle.</extracomment>
        <translation>Year Calendar</translation>
    </message>
    <message id="SidebarSettings">
        <source></source>
        <extracomment>Button that opens the settings.</extracomment>
        <translation>Settings</translation>
    </message>
    <message id="AccessibleSidebar">
        <source></source>
        <extracomment>Name of the column left of the page, read aloud.</extracomment>
        <translation>Calendar</translation>
    </message>
    <message id="AccessibleDayGrid">
        <source></source>
        <extracomment>Name of the month's days, read aloud; %1 is a month's name, %2 a year.</extracomment>
        <translation>Days of %1 %2</translation>
    </message>
    <message id="AccessibleDayWritten">
        <source></source>
        <extracomment>A day with text in the diary, read aloud; %1 is the day, November 21.</extracomment>
        <translation>%1, written</translation>
    </message>
    <message id="AccessibleDayToday">
        <source></source>
        <extracomment>Read aloud behind the day that is today.</extracomment>
        <translation>Today</translation>
    </message>
    <message id="RailHead">
        <source></source>
        <extracomment>Head of the column of years.</extracomment>
        <translation>Years</translation>
    </message>
    <message id="AccessibleRail">
        <source></source>
        <extracomment>Name of the column right of the page, read aloud.</extracomment>
        <translation>Years of this day</translation>
    </message>
    <message id="AllChip">
        <source></source>
        <extracomment>Shows all years of the day at once; %1 is their number.</extracomment>
        <translation>All · %1</translation>
    </message>
    <message id="AccessibleAllYears">
        <source></source>
        <extracomment>What the chip AllChip does.</extracomment>
        <translation>Show all years of this day</translation>
    </message>
    <message id="%d chars" numerus="yes">
        <source></source>
        <extracomment>Length of a year's text.</extracomment>
        <translation>
            <numerusform>%n char</numerusform>
            <numerusform>%n chars</numerusform>
        </translation>
    </message>
    <message id="Not written yet">
        <source></source>
        <extracomment>Stands where a year's text would begin.</extracomment>
        <translation>Not written yet</translation>
    </message>
    <message id="This year · writing">
        <source></source>
        <extracomment>On the card of the current year.</extracomment>
        <translation>This year · writing</translation>
    </message>
    <message id="SearchHits" numerus="yes">
        <source></source>
        <extracomment>Matches of a search in one year's text or more.</extracomment>
        <translation>
            <numerusform>%n hit</numerusform>
            <numerusform>%n hits</numerusform>
        </translation>
    </message>
    <message id="Spanning %d years · earliest %@" numerus="yes">
        <source></source>
        <extracomment>Below the years of a day; %1 is a year.</extracomment>
        <translation>
            <numerusform>Spanning %n year · earliest %1</numerusform>
            <numerusform>Spanning %n years · earliest %1</numerusform>
        </translation>
    </message>
    <message id="This day is still empty">
        <source></source>
        <extracomment>Stands there if no earlier year has text.</extracomment>
        <translation>This day is still empty</translation>
    </message>
    <message id="Add a past year">
        <source></source>
        <extracomment>Card that opens a menu of years.</extracomment>
        <translation>Add a past year</translation>
    </message>
    <message id="AccessibleAddYear">
        <source></source>
        <extracomment>Read aloud behind the name of that card.</extracomment>
        <translation>Opens a menu of years</translation>
    </message>
    <message id="YearCalendarTitle">
        <source></source>
        <extracomment>Title of the window with all dates of the year.</extracomment>
        <translation>Year Calendar</translation>
    </message>
    <message id="%d d" numerus="yes">
        <source></source>
        <extracomment>Number of a month's days with text; as short as it can be.</extracomment>
        <translation>
            <numerusform>%n d</numerusform>
            <numerusform>%n d</numerusform>
        </translation>
    </message>
    <message id="YearsWrittenLegend">
        <source></source>
        <extracomment>Ahead of the shades for 0, 1, 2, and 3 or more years.</extracomment>
        <translation>Years written</translation>
    </message>
    <message id="YearFootnote">
        <source></source>
        <extracomment>Below the calendar.</extracomment>
        <translation>One square is one date, through all its years. 02-29 is outlined; it comes round in leap years only.</translation>
    </message>
    <message id="HeatCell" numerus="yes">
        <source></source>
        <extracomment>A date of the calendar with the number of its written years; %1 is the date, March 7.</extracomment>
        <translation>
            <numerusform>%1 · %n year</numerusform>
            <numerusform>%1 · %n years</numerusform>
        </translation>
    </message>
    <message id="HeatCellEmpty">
        <source></source>
        <extracomment>The same for a date without text.</extracomment>
        <translation>%1 · not written</translation>
    </message>

    <!-- Page and all years -->
    <message id="(empty file)">
        <source></source>
        <extracomment>Stands in place of a file's source.</extracomment>
        <translation>(empty file)</translation>
    </message>
    <message id="NotWrittenYears">
        <source></source>
        <extracomment>%1 is a year, or the first and last of several: 2021 – 2023.</extracomment>
        <translation>%1 not written</translation>
    </message>
    <message id="WrittenYears" numerus="yes">
        <source></source>
        <extracomment>How many years of the day have text.</extracomment>
        <translation>
            <numerusform>%n year written</numerusform>
            <numerusform>%n years written</numerusform>
        </translation>
    </message>
    <message id="WrittenMissingYears" numerus="yes">
        <source></source>
        <extracomment>How many years of the day have text; %1 is how many have none.</extracomment>
        <translation>
            <numerusform>%n year written · %1 not written</numerusform>
            <numerusform>%n years written · %1 not written</numerusform>
        </translation>
    </message>
    <message id="Click a year to write in it">
        <source></source>
        <extracomment>Hint above the cards of all years.</extracomment>
        <translation>Click a year to write in it</translation>
    </message>
    <message id="Keep writing">
        <source></source>
        <extracomment>On this year's card: opens the year.</extracomment>
        <translation>Keep writing</translation>
    </message>
    <message id="Open">
        <source></source>
        <extracomment>On a past year's card: opens the year.</extracomment>
        <translation>Open</translation>
    </message>
    <message id="Fill in">
        <source></source>
        <extracomment>Button beside years that aren't written: opens the newest of them.</extracomment>
        <translation>Fill in</translation>
    </message>
    <message id="AccessibleFillIn">
        <source></source>
        <extracomment>Name of the button Fill in, read aloud; %1 is the year that it opens.</extracomment>
        <translation>Fill in %1</translation>
    </message>
    <message id="CurrentYearEmpty">
        <source></source>
        <extracomment>Stands in this year's empty card.</extracomment>
        <translation>Nothing written yet this year</translation>
    </message>
    <message id="MatchOf">
        <source></source>
        <extracomment>%1 is the number of the match that is stepped to, %2 of how many.</extracomment>
        <translation>%1 of %2</translation>
    </message>
    <message id="AccessibleSource">
        <source></source>
        <extracomment>Name of the file's text, read aloud; %1 is a file's name.</extracomment>
        <translation>Source of %1</translation>
    </message>

    <!-- Search -->
    <message id="SearchDays" numerus="yes">
        <source></source>
        <extracomment>Part of SearchCount.</extracomment>
        <translation>
            <numerusform>%n day</numerusform>
            <numerusform>%n days</numerusform>
        </translation>
    </message>
    <message id="SearchYears" numerus="yes">
        <source></source>
        <extracomment>Part of SearchCount.</extracomment>
        <translation>
            <numerusform>%n year</numerusform>
            <numerusform>%n years</numerusform>
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
            <numerusform>%1 · %n year</numerusform>
            <numerusform>%1 · %n years</numerusform>
        </translation>
    </message>
    <message id="SearchMonthDays" numerus="yes">
        <source></source>
        <extracomment>%1 is the month's name, %2 the year.</extracomment>
        <translation>
            <numerusform>%1 %2 · %n day</numerusform>
            <numerusform>%1 %2 · %n days</numerusform>
        </translation>
    </message>
    <message id="SearchYearDays" numerus="yes">
        <source></source>
        <extracomment>%1 is the year.</extracomment>
        <translation>
            <numerusform>%1 · %n day</numerusform>
            <numerusform>%1 · %n days</numerusform>
        </translation>
    </message>
    <message id="SearchPending" numerus="yes">
        <source></source>
        <extracomment>Days whose files the cloud hasn't brought yet.</extracomment>
        <translation>
            <numerusform>%n day is still being fetched.</numerusform>
            <numerusform>%n days are still being fetched.</numerusform>
        </translation>
    </message>
    <message id="SearchTruncated">
        <source></source>
        <extracomment>%1 is a number. The search goes from December back, and stops there.</extracomment>
        <translation>The first %1 hits, counted from December back. Narrow the search to see the rest.</translation>
    </message>
    <message id="SearchHint">
        <source></source>
        <extracomment>Stands below the recent searches.</extracomment>
        <translation>Several words must all be there. A year, a month or a date narrows the search.</translation>
    </message>
    <message id="SearchNoResultsFor">
        <source></source>
        <extracomment>%1 is the line in the search field.</extracomment>
        <translation>Nothing with “%1”</translation>
    </message>
    <message id="SearchNoResultsHint">
        <source></source>
        <translation>Try fewer words, or other ones.</translation>
    </message>
    <message id="SearchScopeBackToAll">
        <source></source>
        <extracomment>Button: from one year to all of them.</extracomment>
        <translation>Search All Years</translation>
    </message>
    <message id="SearchScopeAll">
        <source></source>
        <extracomment>Chip ahead of the years; very short.</extracomment>
        <translation>All</translation>
    </message>
    <message id="SearchMoreYears">
        <source></source>
        <extracomment>Name of the chip that opens a list of older years.</extracomment>
        <translation>More years</translation>
    </message>
    <message id="SearchSearching">
        <source></source>
        <translation>Searching…</translation>
    </message>
    <message id="SearchPlaceholder">
        <source></source>
        <extracomment>Stands in the empty search field: what it takes.</extracomment>
        <translation>Words, 2024, 2024-03, 03-07</translation>
    </message>
    <message id="SearchRecent">
        <source></source>
        <extracomment>Head of the list of recent searches.</extracomment>
        <translation>Recent</translation>
    </message>
    <message id="SearchKeysHint">
        <source></source>
        <extracomment>The search's keys in two short lines; keys in square brackets. %1 is the text of SearchKeysClear or SearchKeysClose.</extracomment>
        <translation>[↑ ↓] move · [Enter] open
[Ctrl Enter] all years · [Esc] %1</translation>
    </message>
    <message id="SearchKeysClear">
        <source></source>
        <extracomment>What Esc does while there is text in the field.</extracomment>
        <translation>clear</translation>
    </message>
    <message id="SearchKeysClose">
        <source></source>
        <extracomment>What Esc does in an empty field.</extracomment>
        <translation>close</translation>
    </message>
    <message id="SearchClear">
        <source></source>
        <extracomment>Name of the button in the search field that empties it.</extracomment>
        <translation>Clear</translation>
    </message>
    <message id="AccessibleSearchField">
        <source></source>
        <extracomment>Name of the search field, read aloud.</extracomment>
        <translation>Search the diary</translation>
    </message>
    <message id="AccessibleSearchResults">
        <source></source>
        <extracomment>Name of the list of hits, read aloud.</extracomment>
        <translation>Search results</translation>
    </message>
    <message id="AccessibleSearchPane">
        <source></source>
        <extracomment>Name of the search pane, read aloud.</extracomment>
        <translation>Search</translation>
    </message>

    <!-- Settings and first start -->
    <message id="OnboardTitle">
        <source></source>
        <extracomment>Title of the sheet of a first start.</extracomment>
        <translation>Where should your diary live?</translation>
    </message>
    <message id="OnboardInfo">
        <source></source>
        <extracomment>Below it. Says that a cloud folder keeps machines in step, and that the settings can change it.</extracomment>
        <translation>Velmar keeps it as plain Markdown files, one for each date of the year, in a folder of yours. In the cloud folder it stays in step between your machines. You can change your mind in the settings.</translation>
    </message>
    <message id="OnboardICloud">
        <source></source>
        <extracomment>Button: the diary goes to the cloud's folder.</extracomment>
        <translation>Keep It in the Cloud Folder</translation>
    </message>
    <message id="OnboardLocal">
        <source></source>
        <extracomment>Button: the diary stays on this machine.</extracomment>
        <translation>Keep It on This Computer</translation>
    </message>
    <message id="Palette.paper">
        <source></source>
        <extracomment>Name of a colour palette.</extracomment>
        <translation>Paper</translation>
    </message>
    <message id="Palette.plain">
        <source></source>
        <extracomment>Name of a colour palette, in greys.</extracomment>
        <translation>Plain</translation>
    </message>
    <message id="Palette.osmanthus">
        <source></source>
        <extracomment>Name of a colour palette, after the yellow flower.</extracomment>
        <translation>Osmanthus</translation>
    </message>
    <message id="Palette.celadon">
        <source></source>
        <extracomment>Name of a colour palette, after the glaze.</extracomment>
        <translation>Celadon</translation>
    </message>
    <message id="Palette.ink">
        <source></source>
        <extracomment>Name of a dark colour palette.</extracomment>
        <translation>Ink</translation>
    </message>
    <message id="Palette.indigo">
        <source></source>
        <extracomment>Name of a dark colour palette.</extracomment>
        <translation>Indigo</translation>
    </message>
    <message id="Settings.Title">
        <source></source>
        <extracomment>Title of the window.</extracomment>
        <translation>Settings</translation>
    </message>
    <message id="Settings.Appearance">
        <source></source>
        <extracomment>Section, and name of its choice when read aloud.</extracomment>
        <translation>Appearance</translation>
    </message>
    <message id="Settings.Light">
        <source></source>
        <extracomment>Appearance.</extracomment>
        <translation>Light</translation>
    </message>
    <message id="Settings.Dark">
        <source></source>
        <extracomment>Appearance.</extracomment>
        <translation>Dark</translation>
    </message>
    <message id="Settings.System">
        <source></source>
        <extracomment>Appearance: as the desktop has it.</extracomment>
        <translation>System</translation>
    </message>
    <message id="Settings.LightPalettes">
        <source></source>
        <extracomment>Name of a group of palettes, read aloud.</extracomment>
        <translation>Light palettes</translation>
    </message>
    <message id="Settings.DarkPalettes">
        <source></source>
        <extracomment>Name of a group of palettes, read aloud.</extracomment>
        <translation>Dark palettes</translation>
    </message>
    <message id="Settings.Writing">
        <source></source>
        <extracomment>Section.</extracomment>
        <translation>Writing</translation>
    </message>
    <message id="Settings.Font">
        <source></source>
        <extracomment>Name of a choice, read aloud.</extracomment>
        <translation>Font</translation>
    </message>
    <message id="Settings.DefaultFont">
        <source></source>
        <extracomment>Choice of a font; %1 is the font that it stands for.</extracomment>
        <translation>Default (%1)</translation>
    </message>
    <message id="Settings.FontSize">
        <source></source>
        <extracomment>Name of a number, read aloud.</extracomment>
        <translation>Font size</translation>
    </message>
    <message id="Settings.Smaller">
        <source></source>
        <extracomment>Button of the font size.</extracomment>
        <translation>Smaller</translation>
    </message>
    <message id="Settings.Larger">
        <source></source>
        <extracomment>Button of the font size.</extracomment>
        <translation>Larger</translation>
    </message>
    <message id="Settings.Sample">
        <source></source>
        <extracomment>A sample of the font; one short sentence.</extracomment>
        <translation>A date is a place.</translation>
    </message>
    <message id="Settings.GapYears">
        <source></source>
        <extracomment>Check box.</extracomment>
        <translation>Show the years not written under an entry</translation>
    </message>
    <message id="Settings.Photos">
        <source></source>
        <extracomment>Section.</extracomment>
        <translation>Photos</translation>
    </message>
    <message id="Settings.PhotoStyle">
        <source></source>
        <extracomment>Name of a choice, read aloud.</extracomment>
        <translation>Layout of photos</translation>
    </message>
    <message id="Settings.Strip">
        <source></source>
        <extracomment>Layout of photos: one row.</extracomment>
        <translation>Strip</translation>
    </message>
    <message id="Settings.Timeline">
        <source></source>
        <extracomment>Layout of photos: by their time of day.</extracomment>
        <translation>Timeline</translation>
    </message>
    <message id="Settings.Mosaic">
        <source></source>
        <extracomment>Layout of photos: rows of different sizes.</extracomment>
        <translation>Mosaic</translation>
    </message>
    <message id="Settings.ShowPhotos">
        <source></source>
        <extracomment>Check box.</extracomment>
        <translation>Show the photos taken on the day</translation>
    </message>
    <message id="Settings.NoHiddenPhotos">
        <source></source>
        <extracomment>The count of photos that the user hid is none.</extracomment>
        <translation>No photos hidden</translation>
    </message>
    <message id="Settings.HiddenPhotos" numerus="yes">
        <source></source>
        <extracomment>How many photos the user hid.</extracomment>
        <translation>
            <numerusform>%n photo hidden</numerusform>
            <numerusform>%n photos hidden</numerusform>
        </translation>
    </message>
    <message id="Settings.HiddenPhotosSynced" numerus="yes">
        <source></source>
        <extracomment>The same, where the cloud brings the choice to other machines.</extracomment>
        <translation>
            <numerusform>%n photo hidden · kept in step through the diary folder</numerusform>
            <numerusform>%n photos hidden · kept in step through the diary folder</numerusform>
        </translation>
    </message>
    <message id="Settings.RestoreAll">
        <source></source>
        <extracomment>Button: shows all hidden photos again, after a question.</extracomment>
        <translation>Restore All…</translation>
    </message>
    <message id="Settings.RestoreAllTitle">
        <source></source>
        <extracomment>Question.</extracomment>
        <translation>Restore all hidden photos?</translation>
    </message>
    <message id="Settings.RestoreAllInfo" numerus="yes">
        <source></source>
        <extracomment>Below it.</extracomment>
        <translation>
            <numerusform>%n photo will be shown again on its day.</numerusform>
            <numerusform>%n photos will be shown again on their days.</numerusform>
        </translation>
    </message>
    <message id="Settings.RestoreAllConfirm">
        <source></source>
        <extracomment>Button that does it.</extracomment>
        <translation>Restore All</translation>
    </message>
    <message id="Settings.Cancel">
        <source></source>
        <extracomment>Button that leaves a question.</extracomment>
        <translation>Cancel</translation>
    </message>
    <message id="Settings.Folder">
        <source></source>
        <extracomment>Section.</extracomment>
        <translation>Diary folder</translation>
    </message>
    <message id="Settings.Choose">
        <source></source>
        <extracomment>Button: opens a window to choose a folder.</extracomment>
        <translation>Choose…</translation>
    </message>
    <message id="Settings.ChooseTitle">
        <source></source>
        <extracomment>Title of that window.</extracomment>
        <translation>Choose the diary’s folder</translation>
    </message>
    <message id="Settings.UseCloud">
        <source></source>
        <extracomment>Button.</extracomment>
        <translation>Use Cloud Folder</translation>
    </message>
    <message id="Settings.UseDefault">
        <source></source>
        <extracomment>Button: forgets the chosen folder.</extracomment>
        <translation>Use Default</translation>
    </message>
    <message id="Settings.FolderFailedTitle">
        <source></source>
        <extracomment>A chosen folder can't be used.</extracomment>
        <translation>This folder can’t hold the diary</translation>
    </message>
    <message id="Settings.FolderNotAFolder">
        <source></source>
        <extracomment>%1 is a path.</extracomment>
        <translation>%1 is not a folder. Nothing was changed.</translation>
    </message>
    <message id="Settings.FolderNotWritable">
        <source></source>
        <extracomment>%1 is a path.</extracomment>
        <translation>Velmar may not write in %1. Nothing was changed.</translation>
    </message>
    <message id="Settings.FolderCannotBeMade">
        <source></source>
        <extracomment>%1 is a path.</extracomment>
        <translation>%1 doesn’t exist and can’t be made. Nothing was changed.</translation>
    </message>
    <message id="Settings.InAndOut">
        <source></source>
        <extracomment>Section: import and export.</extracomment>
        <translation>In and out</translation>
    </message>
    <message id="Settings.Import">
        <source></source>
        <extracomment>Button.</extracomment>
        <translation>Import…</translation>
    </message>
    <message id="Settings.Export">
        <source></source>
        <extracomment>Button.</extracomment>
        <translation>Export…</translation>
    </message>
    <message id="Settings.ImportRecords">
        <source></source>
        <extracomment>Button: opens the list of imports made.</extracomment>
        <translation>Import Records…</translation>
    </message>
    <message id="Settings.Language">
        <source></source>
        <extracomment>Section, and name of its choice when read aloud.</extracomment>
        <translation>Language</translation>
    </message>
    <message id="Settings.SystemLanguage">
        <source></source>
        <extracomment>Choice of a language: the desktop's.</extracomment>
        <translation>Same as the system</translation>
    </message>
    <message id="Settings.Updates">
        <source></source>
        <extracomment>Section.</extracomment>
        <translation>Updates</translation>
    </message>
    <message id="Settings.AutoUpdate">
        <source></source>
        <extracomment>Check box.</extracomment>
        <translation>Look for updates once a day</translation>
    </message>
    <message id="Settings.CheckNow">
        <source></source>
        <extracomment>Button: looks for an update.</extracomment>
        <translation>Check Now</translation>
    </message>
    <message id="Settings.UpdateUnsupported">
        <source></source>
        <extracomment>Instead of an update's state: this build has none.</extracomment>
        <translation>This build of Velmar doesn’t update itself</translation>
    </message>
    <message id="Settings.NeverChecked">
        <source></source>
        <extracomment>State of updates.</extracomment>
        <translation>Not checked yet</translation>
    </message>
    <message id="Settings.LastChecked">
        <source></source>
        <extracomment>State of updates. %1 is a day, such as today; %2 a time.</extracomment>
        <translation>Last checked %1, %2</translation>
    </message>
    <message id="Settings.Checking">
        <source></source>
        <extracomment>State of updates.</extracomment>
        <translation>Looking for updates…</translation>
    </message>
    <message id="Settings.UpToDate">
        <source></source>
        <extracomment>State of updates; %1 is a version.</extracomment>
        <translation>Velmar %1 is the newest version</translation>
    </message>
    <message id="Settings.UpToDateChecked">
        <source></source>
        <extracomment>The same; %2 is a day, such as today; %3 a time.</extracomment>
        <translation>Velmar %1 is the newest version · checked %2, %3</translation>
    </message>
    <message id="Settings.Downloading">
        <source></source>
        <extracomment>State of updates; %1 is a version.</extracomment>
        <translation>Downloading Velmar %1…</translation>
    </message>
    <message id="Settings.UpdateReady">
        <source></source>
        <extracomment>State of updates; %1 is a version.</extracomment>
        <translation>Velmar %1 is ready and will be installed when you quit</translation>
    </message>
    <message id="Settings.UpdateFailed">
        <source></source>
        <extracomment>State of updates.</extracomment>
        <translation>The last check failed</translation>
    </message>

</context>
</TS>

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

<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="ja">
<context>
    <name></name>
    <message id="Diary">
        <source></source>
        <extracomment>Menu of the application.</extracomment>
        <translation>日記</translation>
    </message>
    <message id="Quit %@">
        <source></source>
        <extracomment>%1 is the application's name.</extracomment>
        <translation>%1 を終了</translation>
    </message>
    <message id="File">
        <source></source>
        <extracomment>Menu.</extracomment>
        <translation>ファイル</translation>
    </message>
    <message id="Close">
        <source></source>
        <extracomment>Closes the window.</extracomment>
        <translation>閉じる</translation>
    </message>
    <message id="Save">
        <source></source>
        <translation>保存</translation>
    </message>
    <message id="Edit">
        <source></source>
        <extracomment>Menu.</extracomment>
        <translation>編集</translation>
    </message>
    <message id="Undo">
        <source></source>
        <translation>取り消す</translation>
    </message>
    <message id="Redo">
        <source></source>
        <translation>やり直す</translation>
    </message>
    <message id="Cut">
        <source></source>
        <translation>カット</translation>
    </message>
    <message id="Copy">
        <source></source>
        <translation>コピー</translation>
    </message>
    <message id="Paste">
        <source></source>
        <translation>貼り付け</translation>
    </message>
    <message id="Select All">
        <source></source>
        <translation>すべてを選択</translation>
    </message>
    <message id="Format">
        <source></source>
        <extracomment>Menu.</extracomment>
        <translation>書式</translation>
    </message>
    <message id="Bold">
        <source></source>
        <translation>太字</translation>
    </message>
    <message id="Italic">
        <source></source>
        <translation>斜体</translation>
    </message>
    <message id="Strikethrough">
        <source></source>
        <translation>取り消し線</translation>
    </message>
    <message id="Inline Code">
        <source></source>
        <translation>インラインコード</translation>
    </message>
    <message id="Link">
        <source></source>
        <translation>リンク</translation>
    </message>
    <message id="Heading 1">
        <source></source>
        <translation>見出し 1</translation>
    </message>
    <message id="Heading 2">
        <source></source>
        <translation>見出し 2</translation>
    </message>
    <message id="Heading 3">
        <source></source>
        <translation>見出し 3</translation>
    </message>
    <message id="Body Text">
        <source></source>
        <translation>本文</translation>
    </message>
    <message id="Bulleted List">
        <source></source>
        <translation>箇条書き</translation>
    </message>
    <message id="Numbered List">
        <source></source>
        <translation>番号付きリスト</translation>
    </message>
    <message id="To-Do">
        <source></source>
        <translation>チェック項目</translation>
    </message>
    <message id="Quote">
        <source></source>
        <translation>引用</translation>
    </message>
    <message id="Check To-Do">
        <source></source>
        <translation>チェックを付ける</translation>
    </message>
    <message id="Indent">
        <source></source>
        <translation>インデントを増やす</translation>
    </message>
    <message id="Outdent">
        <source></source>
        <translation>インデントを減らす</translation>
    </message>
    <message id="YearSectionWarning">
        <source></source>
        <extracomment>Pill beside a heading of the text that reads as a year: when the file is read again, a new year begins there. %1 is the year.</extracomment>
        <translation>%1 年の節の始まりになります</translation>
    </message>
    <message id="Navigate">
        <source></source>
        <extracomment>Menu.</extracomment>
        <translation>移動</translation>
    </message>
    <message id="Previous Day">
        <source></source>
        <translation>前の日</translation>
    </message>
    <message id="Next Day">
        <source></source>
        <translation>次の日</translation>
    </message>
    <message id="Today">
        <source></source>
        <extracomment>Goes to today's page.</extracomment>
        <translation>今日</translation>
    </message>
    <message id="Random Day">
        <source></source>
        <extracomment>Goes to any day with writing.</extracomment>
        <translation>ランダムな日</translation>
    </message>
    <message id="Window">
        <source></source>
        <extracomment>Menu.</extracomment>
        <translation>ウィンドウ</translation>
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
        <translation>%1 日目 / %2</translation>
    </message>
    <message id="This file has %d past-year sections" numerus="yes">
        <source></source>
        <translation>
            <numerusform>このファイルには過去 %n 年分あります</numerusform>
        </translation>
    </message>
    <message id="%d year sections" numerus="yes">
        <source></source>
        <translation>
            <numerusform>%n 年分</numerusform>
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
        <translation>%1 年のこの日のことを書く…</translation>
    </message>
    <message id="NoLeapDayThisYear">
        <source></source>
        <extracomment>Stands in place of the editor; %1 is the next leap year.</extracomment>
        <translation>今年に 2 月 29 日はありません。ほかの年は右側で選べます。次に巡ってくるのは %1 年です。</translation>
    </message>
    <message id="GapLine">
        <source></source>
        <extracomment>%1 is a list of years.</extracomment>
        <translation>未記入：%1</translation>
    </message>
    <message id="Viewing ## %@ · %d chars" numerus="yes">
        <source></source>
        <extracomment>%1 is a year, as its heading in the file.</extracomment>
        <translation>
            <numerusform>## %1 を表示中 · %n 字</numerusform>
        </translation>
    </message>
    <message id="RelativeToday">
        <source></source>
        <extracomment>A day, told from today.</extracomment>
        <translation>今日</translation>
    </message>
    <message id="RelativeYesterday">
        <source></source>
        <extracomment>A day, told from today.</extracomment>
        <translation>昨日</translation>
    </message>
    <message id="RelativeDaysAgo" numerus="yes">
        <source></source>
        <extracomment>A day, told from today.</extracomment>
        <translation>
            <numerusform>%n 日前</numerusform>
        </translation>
    </message>
    <message id="ConflictMarker">
        <source></source>
        <extracomment>Stands in the diary between a text and what another device wrote for the same day.</extracomment>
        <translation>―― 別のデバイスでも書かれた文 ――</translation>
    </message>
    <message id="MergedRemoteNotice">
        <source></source>
        <translation>別のデバイスで書かれた内容と合わせました</translation>
    </message>
    <message id="CannotLeaveNotice">
        <source></source>
        <extracomment>%1 is a day, 11-21.</extracomment>
        <translation>%1 は保存も退避もできないため、開いたままにします</translation>
    </message>
    <message id="KeptOverwrittenNotice">
        <source></source>
        <extracomment>%1 is a day and year, 11-21 2026.</extracomment>
        <translation>別のデバイスで %1 に書かれた内容は、上書きの前に控えを残しました</translation>
    </message>
    <message id="KeptUndecodableNotice">
        <source></source>
        <extracomment>%1 is a file's name.</extracomment>
        <translation>%1 に文字として読めない部分があったため、保存の前に控えを残しました</translation>
    </message>
    <message id="KeptDraftNotice">
        <source></source>
        <extracomment>%1 is a day and year, 11-21 2026.</extracomment>
        <translation>%1 に書いた内容は保存できなかったため、控えを残しました</translation>
    </message>
    <message id="KeptMergeNotice">
        <source></source>
        <extracomment>%1 is a file's name.</extracomment>
        <translation>%1 を合わせた内容は保存できなかったため、控えを残しました</translation>
    </message>
    <message id="KeptDraftOffer">
        <source></source>
        <extracomment>A link with the text of PutBack follows. %1 is a day and year, 11-21 2026.</extracomment>
        <translation>以前 %1 に書いた内容は保存できませんでしたが、控えがあります</translation>
    </message>
    <message id="PutBack">
        <source></source>
        <extracomment>Link behind KeptDraftOffer.</extracomment>
        <translation>本文に戻す</translation>
    </message>
    <message id="SaveFailedTitle">
        <source></source>
        <extracomment>%1 is a file's name.</extracomment>
        <translation>%1 を保存できませんでした</translation>
    </message>
    <message id="SaveFailedDiskFull">
        <source></source>
        <translation>ディスクの空き容量がありません。</translation>
    </message>
    <message id="SaveFailedNoPermission">
        <source></source>
        <translation>日記のフォルダに書き込む権限がありません。</translation>
    </message>
    <message id="SaveFailedReadOnly">
        <source></source>
        <translation>日記のフォルダは読み出し専用のディスクにあります。</translation>
    </message>
    <message id="SaveFailedFolderMissing">
        <source></source>
        <translation>日記のフォルダが見つかりません。</translation>
    </message>
    <message id="SaveFailedOther">
        <source></source>
        <extracomment>%1 is the system's own words.</extracomment>
        <translation>システムからの報告：%1</translation>
    </message>
    <message id="SaveFailedNothingLost">
        <source></source>
        <extracomment>Follows one of the causes above, as a paragraph of its own.</extracomment>
        <translation>書いた内容は何も失われていません。次のキー入力か「保存」でもう一度試します。離れるときに保存できないものは、別に残しておきます。</translation>
    </message>
    <message id="OK">
        <source></source>
        <translation>OK</translation>
    </message>
    <message id="AccessibleEditor">
        <source></source>
        <extracomment>Name of the text field, read aloud; %1 is a day and year, 11-21 2026.</extracomment>
        <translation>%1 の日記の本文</translation>
    </message>
    <message id="AccessibleTaskDone">
        <source></source>
        <extracomment>Read aloud when the caret comes to a to-do that is checked, or when it is checked.</extracomment>
        <translation>チェック項目、完了</translation>
    </message>
    <message id="AccessibleTaskOpen">
        <source></source>
        <extracomment>Read aloud when the caret comes to a to-do that isn't checked, or when it is unchecked.</extracomment>
        <translation>チェック項目、未完了</translation>
    </message>
    <message id="AccessiblePage">
        <source></source>
        <extracomment>Name of the page, read aloud.</extracomment>
        <translation>この日</translation>
    </message>
    <message id="AccessibleTopBar">
        <source></source>
        <extracomment>Name of the bar above the page, read aloud.</extracomment>
        <translation>トップバー</translation>
    </message>
    <message id="AccessibleStatusBar">
        <source></source>
        <extracomment>Name of the bar below the page, read aloud.</extracomment>
        <translation>ステータスバー</translation>
    </message>

    <!-- Menus and bars -->
    <message id="AboutText">
        <source></source>
        <extracomment>About box; the copyright line stays as it is.</extracomment>
        <translation>日付は、毎年帰ってくる場所。
© The Velmar authors</translation>
    </message>
    <message id="About %@">
        <source></source>
        <extracomment>%1 is the application's name.</extracomment>
        <translation>%1 について</translation>
    </message>
    <message id="Check for Updates…">
        <source></source>
        <translation>アップデートを確認…</translation>
    </message>
    <message id="Settings…">
        <source></source>
        <translation>設定…</translation>
    </message>
    <message id="Hide %@">
        <source></source>
        <extracomment>Minimises the window. %1 is the application's name.</extracomment>
        <translation>%1 を最小化</translation>
    </message>
    <message id="Import…">
        <source></source>
        <translation>読み込む…</translation>
    </message>
    <message id="Import Records…">
        <source></source>
        <extracomment>The list of what was imported, for undo.</extracomment>
        <translation>読み込みの記録…</translation>
    </message>
    <message id="Export…">
        <source></source>
        <translation>書き出す…</translation>
    </message>
    <message id="Show in Finder">
        <source></source>
        <extracomment>Opens the file manager with the day's file selected.</extracomment>
        <translation>ファイルマネージャーで表示</translation>
    </message>
    <message id="Find…">
        <source></source>
        <translation>検索…</translation>
    </message>
    <message id="Find Next">
        <source></source>
        <translation>次を検索</translation>
    </message>
    <message id="Find Previous">
        <source></source>
        <translation>前を検索</translation>
    </message>
    <message id="View">
        <source></source>
        <extracomment>Menu.</extracomment>
        <translation>表示</translation>
    </message>
    <message id="One Year">
        <source></source>
        <extracomment>The page shows one year of the day.</extracomment>
        <translation>ひとつの年</translation>
    </message>
    <message id="All Years">
        <source></source>
        <extracomment>The page shows all years of the day.</extracomment>
        <translation>すべての年</translation>
    </message>
    <message id="Toggle Source">
        <source></source>
        <extracomment>Shows the day's file as it is, or the page again.</extracomment>
        <translation>ソースの切り替え</translation>
    </message>
    <message id="Source">
        <source></source>
        <extracomment>Button: shows the day's file as it is.</extracomment>
        <translation>ソース</translation>
    </message>
    <message id="Reader">
        <source></source>
        <extracomment>Button: back from the file to the page.</extracomment>
        <translation>リーダー</translation>
    </message>
    <message id="Year Calendar">
        <source></source>
        <extracomment>The window with all days of the year.</extracomment>
        <translation>年間カレンダー</translation>
    </message>

    <!-- Sidebar, rail and year calendar -->
    <message id="SidebarSearch">
        <source></source>
        <extracomment>Button that opens the search.</extracomment>
        <translation>検索</translation>
    </message>
    <message id="SidebarPreviousMonth">
        <source></source>
        <extracomment>Button over the month's days.</extracomment>
        <translation>前の月</translation>
    </message>
    <message id="SidebarNextMonth">
        <source></source>
        <extracomment>Button over the month's days.</extracomment>
        <translation>次の月</translation>
    </message>
    <message id="Back to Today">
        <source></source>
        <extracomment>Button; today's date stands beside it.</extracomment>
        <translation>今日に戻る</translation>
    </message>
    <message id="Days written">
        <source></source>
        <extracomment>Fact about the diary; “214 / 365” stands beside it.</extracomment>
        <translation>書いた日数</translation>
    </message>
    <message id="Earliest year">
        <source></source>
        <extracomment>Fact about the diary; a year stands beside it.</extracomment>
        <translation>最初の年</translation>
    </message>
    <message id="Files">
        <source></source>
        <extracomment>Fact about the diary; a number stands beside it.</extracomment>
        <translation>ファイル</translation>
    </message>
    <message id="SidebarYearCalendar">
        <source></source>
        <extracomment>Button that opens the window YearCalendarTitle.</extracomment>
        <translation>年間カレンダー</translation>
    </message>
    <message id="SidebarSettings">
        <source></source>
        <extracomment>Button that opens the settings.</extracomment>
        <translation>設定</translation>
    </message>
    <message id="AccessibleSidebar">
        <source></source>
        <extracomment>Name of the column left of the page, read aloud.</extracomment>
        <translation>カレンダー</translation>
    </message>
    <message id="AccessibleDayGrid">
        <source></source>
        <extracomment>Name of the month's days, read aloud; %1 is a month's name, %2 a year.</extracomment>
        <translation>%2年%1の日付</translation>
    </message>
    <message id="AccessibleDayWritten">
        <source></source>
        <extracomment>A day with text in the diary, read aloud; %1 is the day, November 21.</extracomment>
        <translation>%1、記入済み</translation>
    </message>
    <message id="AccessibleDayToday">
        <source></source>
        <extracomment>Read aloud behind the day that is today.</extracomment>
        <translation>今日</translation>
    </message>
    <message id="RailHead">
        <source></source>
        <extracomment>Head of the column of years.</extracomment>
        <translation>年</translation>
    </message>
    <message id="AccessibleRail">
        <source></source>
        <extracomment>Name of the column right of the page, read aloud.</extracomment>
        <translation>この日の各年</translation>
    </message>
    <message id="AllChip">
        <source></source>
        <extracomment>Shows all years of the day at once; %1 is their number.</extracomment>
        <translation>すべて · %1</translation>
    </message>
    <message id="AccessibleAllYears">
        <source></source>
        <extracomment>What the chip AllChip does.</extracomment>
        <translation>この日のすべての年を表示</translation>
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
        <translation>まだ書いていません</translation>
    </message>
    <message id="This year · writing">
        <source></source>
        <extracomment>On the card of the current year.</extracomment>
        <translation>今年 · 執筆中</translation>
    </message>
    <message id="SearchHits" numerus="yes">
        <source></source>
        <extracomment>Matches of a search in one year's text or more.</extracomment>
        <translation>
            <numerusform>%n 件</numerusform>
        </translation>
    </message>
    <message id="Spanning %d years · earliest %@" numerus="yes">
        <source></source>
        <extracomment>Below the years of a day; %1 is a year.</extracomment>
        <translation>
            <numerusform>%n 年間 · 最初は %1 年</numerusform>
        </translation>
    </message>
    <message id="This day is still empty">
        <source></source>
        <extracomment>Stands there if no earlier year has text.</extracomment>
        <translation>この日はまだ空白です</translation>
    </message>
    <message id="Add a past year">
        <source></source>
        <extracomment>Card that opens a menu of years.</extracomment>
        <translation>過去の年を追加</translation>
    </message>
    <message id="AccessibleAddYear">
        <source></source>
        <extracomment>Read aloud behind the name of that card.</extracomment>
        <translation>年のメニューを開きます</translation>
    </message>
    <message id="YearCalendarTitle">
        <source></source>
        <extracomment>Title of the window with all dates of the year.</extracomment>
        <translation>年間カレンダー</translation>
    </message>
    <message id="%d d" numerus="yes">
        <source></source>
        <extracomment>Number of a month's days with text; as short as it can be.</extracomment>
        <translation>
            <numerusform>%n 日分</numerusform>
        </translation>
    </message>
    <message id="YearsWrittenLegend">
        <source></source>
        <extracomment>Ahead of the shades for 0, 1, 2, and 3 or more years.</extracomment>
        <translation>書いた年数</translation>
    </message>
    <message id="YearFootnote">
        <source></source>
        <extracomment>Below the calendar.</extracomment>
        <translation>ひとマスがひとつの日付で、すべての年が重なっています。枠つきは 02-29、うるう年にだけ巡ってきます。</translation>
    </message>
    <message id="HeatCell" numerus="yes">
        <source></source>
        <extracomment>A date of the calendar with the number of its written years; %1 is the date, March 7.</extracomment>
        <translation>
            <numerusform>%1 · %n 年分</numerusform>
        </translation>
    </message>
    <message id="HeatCellEmpty">
        <source></source>
        <extracomment>The same for a date without text.</extracomment>
        <translation>%1 · 未記入</translation>
    </message>

    <!-- Page and all years -->
    <message id="(empty file)">
        <source></source>
        <extracomment>Stands in place of a file's source.</extracomment>
        <translation>（空のファイル）</translation>
    </message>
    <message id="NotWrittenYears">
        <source></source>
        <extracomment>%1 is a year, or the first and last of several: 2021 – 2023.</extracomment>
        <translation>%1 未記入</translation>
    </message>
    <message id="WrittenYears" numerus="yes">
        <source></source>
        <extracomment>How many years of the day have text.</extracomment>
        <translation>
            <numerusform>%n 年分を記入</numerusform>
        </translation>
    </message>
    <message id="WrittenMissingYears" numerus="yes">
        <source></source>
        <extracomment>How many years of the day have text; %1 is how many have none.</extracomment>
        <translation>
            <numerusform>%n 年分を記入 · %1 年分は未記入</numerusform>
        </translation>
    </message>
    <message id="Click a year to write in it">
        <source></source>
        <extracomment>Hint above the cards of all years.</extracomment>
        <translation>年をクリックして書く</translation>
    </message>
    <message id="Keep writing">
        <source></source>
        <extracomment>On this year's card: opens the year.</extracomment>
        <translation>続きを書く</translation>
    </message>
    <message id="Open">
        <source></source>
        <extracomment>On a past year's card: opens the year.</extracomment>
        <translation>開く</translation>
    </message>
    <message id="Fill in">
        <source></source>
        <extracomment>Button beside years that aren't written: opens the newest of them.</extracomment>
        <translation>書き足す</translation>
    </message>
    <message id="AccessibleFillIn">
        <source></source>
        <extracomment>Name of the button Fill in, read aloud; %1 is the year that it opens.</extracomment>
        <translation>%1 年を書き足す</translation>
    </message>
    <message id="CurrentYearEmpty">
        <source></source>
        <extracomment>Stands in this year's empty card.</extracomment>
        <translation>今年はまだ何も書いていません</translation>
    </message>
    <message id="MatchOf">
        <source></source>
        <extracomment>%1 is the number of the match that is stepped to, %2 of how many.</extracomment>
        <translation>%1 / %2</translation>
    </message>
    <message id="AccessibleSource">
        <source></source>
        <extracomment>Name of the file's text, read aloud; %1 is a file's name.</extracomment>
        <translation>%1 のソース</translation>
    </message>

    <!-- Search -->
    <message id="SearchDays" numerus="yes">
        <source></source>
        <extracomment>Part of SearchCount.</extracomment>
        <translation>
            <numerusform>%n 日</numerusform>
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
            <numerusform>%1 · %n 年分</numerusform>
        </translation>
    </message>
    <message id="SearchMonthDays" numerus="yes">
        <source></source>
        <extracomment>%1 is the month's name, %2 the year.</extracomment>
        <translation>
            <numerusform>%2 年 %1 · %n 日分</numerusform>
        </translation>
    </message>
    <message id="SearchYearDays" numerus="yes">
        <source></source>
        <extracomment>%1 is the year.</extracomment>
        <translation>
            <numerusform>%1 年 · %n 日分</numerusform>
        </translation>
    </message>
    <message id="SearchPending" numerus="yes">
        <source></source>
        <extracomment>Days whose files the cloud hasn't brought yet.</extracomment>
        <translation>
            <numerusform>%n 日分がまだ取得中です。</numerusform>
        </translation>
    </message>
    <message id="SearchTruncated">
        <source></source>
        <extracomment>%1 is a number. The search goes from December back, and stops there.</extracomment>
        <translation>12 月からさかのぼって %1 件までです。条件を絞ると残りも見られます。</translation>
    </message>
    <message id="SearchHint">
        <source></source>
        <extracomment>Stands below the recent searches.</extracomment>
        <translation>すべての語を含む日だけが見つかります。年、月、日付を加えると絞り込めます。</translation>
    </message>
    <message id="SearchNoResultsFor">
        <source></source>
        <extracomment>%1 is the line in the search field.</extracomment>
        <translation>「%1」は見つかりません</translation>
    </message>
    <message id="SearchNoResultsHint">
        <source></source>
        <translation>語を減らすか、別の語で探してみてください。</translation>
    </message>
    <message id="SearchScopeBackToAll">
        <source></source>
        <extracomment>Button: from one year to all of them.</extracomment>
        <translation>すべての年から探す</translation>
    </message>
    <message id="SearchScopeAll">
        <source></source>
        <extracomment>Chip ahead of the years; very short.</extracomment>
        <translation>すべて</translation>
    </message>
    <message id="SearchMoreYears">
        <source></source>
        <extracomment>Name of the chip that opens a list of older years.</extracomment>
        <translation>ほかの年</translation>
    </message>
    <message id="SearchSearching">
        <source></source>
        <translation>検索中…</translation>
    </message>
    <message id="SearchPlaceholder">
        <source></source>
        <extracomment>Stands in the empty search field: what it takes.</extracomment>
        <translation>言葉、2024、2024-03、03-07</translation>
    </message>
    <message id="SearchRecent">
        <source></source>
        <extracomment>Head of the list of recent searches.</extracomment>
        <translation>最近の検索</translation>
    </message>
    <message id="SearchKeysHint">
        <source></source>
        <extracomment>The search's keys in two short lines; keys in square brackets. %1 is the text of SearchKeysClear or SearchKeysClose.</extracomment>
        <translation>[↑ ↓] 移動 · [Enter] 開く
[Ctrl Enter] すべての年 · [Esc] %1</translation>
    </message>
    <message id="SearchKeysClear">
        <source></source>
        <extracomment>What Esc does while there is text in the field.</extracomment>
        <translation>消去</translation>
    </message>
    <message id="SearchKeysClose">
        <source></source>
        <extracomment>What Esc does in an empty field.</extracomment>
        <translation>閉じる</translation>
    </message>
    <message id="SearchClear">
        <source></source>
        <extracomment>Name of the button in the search field that empties it.</extracomment>
        <translation>消去</translation>
    </message>
    <message id="AccessibleSearchField">
        <source></source>
        <extracomment>Name of the search field, read aloud.</extracomment>
        <translation>日記を検索</translation>
    </message>
    <message id="AccessibleSearchResults">
        <source></source>
        <extracomment>Name of the list of hits, read aloud.</extracomment>
        <translation>検索結果</translation>
    </message>
    <message id="AccessibleSearchPane">
        <source></source>
        <extracomment>Name of the search pane, read aloud.</extracomment>
        <translation>検索</translation>
    </message>

    <!-- Settings and first start -->
    <message id="OnboardTitle">
        <source></source>
        <extracomment>Title of the sheet of a first start.</extracomment>
        <translation>日記をどこに置きますか？</translation>
    </message>
    <message id="OnboardInfo">
        <source></source>
        <extracomment>Below it. Says that a cloud folder keeps machines in step, and that the settings can change it.</extracomment>
        <translation>Velmar は日記をふつうの Markdown ファイルとして、一年の日付ごとに一つずつ、ご自分のフォルダに保存します。クラウドのフォルダに置けば、ほかのコンピュータとも同じ内容に保たれます。あとから設定で変えられます。</translation>
    </message>
    <message id="OnboardICloud">
        <source></source>
        <extracomment>Button: the diary goes to the cloud's folder.</extracomment>
        <translation>クラウドのフォルダに置く</translation>
    </message>
    <message id="OnboardLocal">
        <source></source>
        <extracomment>Button: the diary stays on this machine.</extracomment>
        <translation>このコンピュータに置く</translation>
    </message>
    <message id="Palette.paper">
        <source></source>
        <extracomment>Name of a colour palette.</extracomment>
        <translation>紙</translation>
    </message>
    <message id="Palette.plain">
        <source></source>
        <extracomment>Name of a colour palette, in greys.</extracomment>
        <translation>素</translation>
    </message>
    <message id="Palette.osmanthus">
        <source></source>
        <extracomment>Name of a colour palette, after the yellow flower.</extracomment>
        <translation>金木犀</translation>
    </message>
    <message id="Palette.celadon">
        <source></source>
        <extracomment>Name of a colour palette, after the glaze.</extracomment>
        <translation>青磁</translation>
    </message>
    <message id="Palette.ink">
        <source></source>
        <extracomment>Name of a dark colour palette.</extracomment>
        <translation>墨</translation>
    </message>
    <message id="Palette.indigo">
        <source></source>
        <extracomment>Name of a dark colour palette.</extracomment>
        <translation>藍</translation>
    </message>
    <message id="Settings.Title">
        <source></source>
        <extracomment>Title of the window.</extracomment>
        <translation>設定</translation>
    </message>
    <message id="Settings.Appearance">
        <source></source>
        <extracomment>Section, and name of its choice when read aloud.</extracomment>
        <translation>外観</translation>
    </message>
    <message id="Settings.Light">
        <source></source>
        <extracomment>Appearance.</extracomment>
        <translation>ライト</translation>
    </message>
    <message id="Settings.Dark">
        <source></source>
        <extracomment>Appearance.</extracomment>
        <translation>ダーク</translation>
    </message>
    <message id="Settings.System">
        <source></source>
        <extracomment>Appearance: as the desktop has it.</extracomment>
        <translation>システム</translation>
    </message>
    <message id="Settings.LightPalettes">
        <source></source>
        <extracomment>Name of a group of palettes, read aloud.</extracomment>
        <translation>ライトの配色</translation>
    </message>
    <message id="Settings.DarkPalettes">
        <source></source>
        <extracomment>Name of a group of palettes, read aloud.</extracomment>
        <translation>ダークの配色</translation>
    </message>
    <message id="Settings.Writing">
        <source></source>
        <extracomment>Section.</extracomment>
        <translation>執筆</translation>
    </message>
    <message id="Settings.Font">
        <source></source>
        <extracomment>Name of a choice, read aloud.</extracomment>
        <translation>フォント</translation>
    </message>
    <message id="Settings.DefaultFont">
        <source></source>
        <extracomment>Choice of a font; %1 is the font that it stands for.</extracomment>
        <translation>標準（%1）</translation>
    </message>
    <message id="Settings.FontSize">
        <source></source>
        <extracomment>Name of a number, read aloud.</extracomment>
        <translation>文字の大きさ</translation>
    </message>
    <message id="Settings.Smaller">
        <source></source>
        <extracomment>Button of the font size.</extracomment>
        <translation>小さく</translation>
    </message>
    <message id="Settings.Larger">
        <source></source>
        <extracomment>Button of the font size.</extracomment>
        <translation>大きく</translation>
    </message>
    <message id="Settings.Sample">
        <source></source>
        <extracomment>A sample of the font; one short sentence.</extracomment>
        <translation>日付は場所だ。</translation>
    </message>
    <message id="Settings.GapYears">
        <source></source>
        <extracomment>Check box.</extracomment>
        <translation>書いていない年を本文の下に示す</translation>
    </message>
    <message id="Settings.Photos">
        <source></source>
        <extracomment>Section.</extracomment>
        <translation>写真</translation>
    </message>
    <message id="Settings.PhotoStyle">
        <source></source>
        <extracomment>Name of a choice, read aloud.</extracomment>
        <translation>写真の並べ方</translation>
    </message>
    <message id="Settings.Strip">
        <source></source>
        <extracomment>Layout of photos: one row.</extracomment>
        <translation>横一列</translation>
    </message>
    <message id="Settings.Timeline">
        <source></source>
        <extracomment>Layout of photos: by their time of day.</extracomment>
        <translation>時刻順</translation>
    </message>
    <message id="Settings.Mosaic">
        <source></source>
        <extracomment>Layout of photos: rows of different sizes.</extracomment>
        <translation>モザイク</translation>
    </message>
    <message id="Settings.ShowPhotos">
        <source></source>
        <extracomment>Check box.</extracomment>
        <translation>その日に撮った写真を表示する</translation>
    </message>
    <message id="Settings.NoHiddenPhotos">
        <source></source>
        <extracomment>The count of photos that the user hid is none.</extracomment>
        <translation>非表示の写真はありません</translation>
    </message>
    <message id="Settings.HiddenPhotos" numerus="yes">
        <source></source>
        <extracomment>How many photos the user hid.</extracomment>
        <translation>
            <numerusform>%n 枚の写真を非表示にしています</numerusform>
        </translation>
    </message>
    <message id="Settings.HiddenPhotosSynced" numerus="yes">
        <source></source>
        <extracomment>The same, where the cloud brings the choice to other machines.</extracomment>
        <translation>
            <numerusform>%n 枚の写真を非表示 · 日記フォルダを通して同じに保たれます</numerusform>
        </translation>
    </message>
    <message id="Settings.RestoreAll">
        <source></source>
        <extracomment>Button: shows all hidden photos again, after a question.</extracomment>
        <translation>すべて戻す…</translation>
    </message>
    <message id="Settings.RestoreAllTitle">
        <source></source>
        <extracomment>Question.</extracomment>
        <translation>非表示の写真をすべて戻しますか？</translation>
    </message>
    <message id="Settings.RestoreAllInfo" numerus="yes">
        <source></source>
        <extracomment>Below it.</extracomment>
        <translation>
            <numerusform>%n 枚の写真が、それぞれの日にまた表示されます。</numerusform>
        </translation>
    </message>
    <message id="Settings.RestoreAllConfirm">
        <source></source>
        <extracomment>Button that does it.</extracomment>
        <translation>すべて戻す</translation>
    </message>
    <message id="Settings.Cancel">
        <source></source>
        <extracomment>Button that leaves a question.</extracomment>
        <translation>キャンセル</translation>
    </message>
    <message id="Settings.Folder">
        <source></source>
        <extracomment>Section.</extracomment>
        <translation>日記フォルダ</translation>
    </message>
    <message id="Settings.Choose">
        <source></source>
        <extracomment>Button: opens a window to choose a folder.</extracomment>
        <translation>選ぶ…</translation>
    </message>
    <message id="Settings.ChooseTitle">
        <source></source>
        <extracomment>Title of that window.</extracomment>
        <translation>日記フォルダを選ぶ</translation>
    </message>
    <message id="Settings.UseCloud">
        <source></source>
        <extracomment>Button.</extracomment>
        <translation>クラウドのフォルダを使う</translation>
    </message>
    <message id="Settings.UseDefault">
        <source></source>
        <extracomment>Button: forgets the chosen folder.</extracomment>
        <translation>標準の場所を使う</translation>
    </message>
    <message id="Settings.FolderFailedTitle">
        <source></source>
        <extracomment>A chosen folder can't be used.</extracomment>
        <translation>このフォルダには日記を置けません</translation>
    </message>
    <message id="Settings.FolderNotAFolder">
        <source></source>
        <extracomment>%1 is a path.</extracomment>
        <translation>%1 はフォルダではありません。何も変更していません。</translation>
    </message>
    <message id="Settings.FolderNotWritable">
        <source></source>
        <extracomment>%1 is a path.</extracomment>
        <translation>%1 に書き込む権限がありません。何も変更していません。</translation>
    </message>
    <message id="Settings.FolderCannotBeMade">
        <source></source>
        <extracomment>%1 is a path.</extracomment>
        <translation>%1 は存在せず、作ることもできません。何も変更していません。</translation>
    </message>
    <message id="Settings.InAndOut">
        <source></source>
        <extracomment>Section: import and export.</extracomment>
        <translation>データ</translation>
    </message>
    <message id="Settings.Import">
        <source></source>
        <extracomment>Button.</extracomment>
        <translation>読み込む…</translation>
    </message>
    <message id="Settings.Export">
        <source></source>
        <extracomment>Button.</extracomment>
        <translation>書き出す…</translation>
    </message>
    <message id="Settings.ImportRecords">
        <source></source>
        <extracomment>Button: opens the list of imports made.</extracomment>
        <translation>読み込みの記録…</translation>
    </message>
    <message id="Settings.Language">
        <source></source>
        <extracomment>Section, and name of its choice when read aloud.</extracomment>
        <translation>言語</translation>
    </message>
    <message id="Settings.SystemLanguage">
        <source></source>
        <extracomment>Choice of a language: the desktop's.</extracomment>
        <translation>システムと同じ</translation>
    </message>
    <message id="Settings.Updates">
        <source></source>
        <extracomment>Section.</extracomment>
        <translation>アップデート</translation>
    </message>
    <message id="Settings.AutoUpdate">
        <source></source>
        <extracomment>Check box.</extracomment>
        <translation>一日に一度アップデートを確認する</translation>
    </message>
    <message id="Settings.CheckNow">
        <source></source>
        <extracomment>Button: looks for an update.</extracomment>
        <translation>今すぐ確認</translation>
    </message>
    <message id="Settings.UpdateUnsupported">
        <source></source>
        <extracomment>Instead of an update's state: this build has none.</extracomment>
        <translation>この Velmar は自動では更新されません</translation>
    </message>
    <message id="Settings.NeverChecked">
        <source></source>
        <extracomment>State of updates.</extracomment>
        <translation>まだ確認していません</translation>
    </message>
    <message id="Settings.LastChecked">
        <source></source>
        <extracomment>State of updates. %1 is a day, such as today; %2 a time.</extracomment>
        <translation>最後の確認：%1 %2</translation>
    </message>
    <message id="Settings.Checking">
        <source></source>
        <extracomment>State of updates.</extracomment>
        <translation>アップデートを確認しています…</translation>
    </message>
    <message id="Settings.UpToDate">
        <source></source>
        <extracomment>State of updates; %1 is a version.</extracomment>
        <translation>Velmar %1 は最新です</translation>
    </message>
    <message id="Settings.UpToDateChecked">
        <source></source>
        <extracomment>The same; %2 is a day, such as today; %3 a time.</extracomment>
        <translation>Velmar %1 は最新です · %2 %3 に確認</translation>
    </message>
    <message id="Settings.Downloading">
        <source></source>
        <extracomment>State of updates; %1 is a version.</extracomment>
        <translation>Velmar %1 をダウンロードしています…</translation>
    </message>
    <message id="Settings.UpdateReady">
        <source></source>
        <extracomment>State of updates; %1 is a version.</extracomment>
        <translation>Velmar %1 の準備ができました。終了時に入れ替わります</translation>
    </message>
    <message id="Settings.UpdateFailed">
        <source></source>
        <extracomment>State of updates.</extracomment>
        <translation>最後の確認に失敗しました</translation>
    </message>

</context>
</TS>

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
        <translation>ペースト</translation>
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
        <translation>ウインドウ</translation>
    </message>
    <message id="Minimize">
        <source></source>
        <translation>しまう</translation>
    </message>
    <message id="Zoom">
        <source></source>
        <extracomment>Makes the window as big as the screen, or back.</extracomment>
        <translation>拡大／縮小</translation>
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
        <translation>今年に 2 月 29 日はありません。次に巡ってくるのは %1 年です。</translation>
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
        <translation>元に戻す</translation>
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

    <!-- Sidebar, rail and year calendar -->

    <!-- Page and all years -->

    <!-- Search -->

    <!-- Settings and first start -->

</context>
</TS>

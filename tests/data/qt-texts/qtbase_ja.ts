<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="ja">
<context>
    <name>QPlatformTheme</name>
    <message>
        <source>Cancel</source>
        <translation>キャンセル</translation>
    </message>
    <message>
        <source>Today</source>
        <translation>Qt: キャンセル</translation>
    </message>
</context>
<context>
    <name>QShortcut</name>
    <message>
        <source>Left</source>
        <translation>左</translation>
    </message>
</context>
</TS>

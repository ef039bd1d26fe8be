<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="zh_CN">
<context>
    <name>QPlatformTheme</name>
    <message>
        <source>Cancel</source>
        <translation>取消</translation>
    </message>
    <message>
        <source>Today</source>
        <translation>Qt: 取消</translation>
    </message>
</context>
<context>
    <name>QShortcut</name>
    <message>
        <source>Left</source>
        <translation>向左</translation>
    </message>
</context>
</TS>

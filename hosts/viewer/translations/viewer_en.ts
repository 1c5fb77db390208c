<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="en" sourcelanguage="en">
<context>
    <name>Clipboard</name>
    <message numerus="yes">
        <source>Pasted %n objects</source>
        <translation>
            <numerusform>Pasted %n object</numerusform>
            <numerusform>Pasted %n objects</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Copied %n objects</source>
        <translation>
            <numerusform>Copied %n object</numerusform>
            <numerusform>Copied %n objects</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Cut %n objects</source>
        <translation>
            <numerusform>Cut %n object</numerusform>
            <numerusform>Cut %n objects</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Duplicated %n objects</source>
        <translation>
            <numerusform>Duplicated %n object</numerusform>
            <numerusform>Duplicated %n objects</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>vostel::viewer::Document</name>
    <message numerus="yes">
        <source>Added %n objects of %1</source>
        <translation>
            <numerusform>Added %n object of %1</numerusform>
            <numerusform>Added %n objects of %1</numerusform>
        </translation>
    </message>
</context>
</TS>

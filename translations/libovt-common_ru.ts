<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="ru_RU">
<context>
    <name>ConfRootTreeNode</name>
    <message>
        <source>Name</source>
        <translation>Имя</translation>
    </message>
    <message>
        <source>Value</source>
        <translation>Значение</translation>
    </message>
</context>
<context>
    <name>QObject</name>
    <message>
        <source>started</source>
        <translation>запущена</translation>
    </message>
    <message>
        <source>stopped</source>
        <translation>остановлена</translation>
    </message>
</context>
</TS>

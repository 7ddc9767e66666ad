<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="en" sourcelanguage="en">
<context>
    <name>BlockResultsDialog</name>
    <message numerus="yes">
        <source>%n module(s) were rebuilt. These blocks have problems:</source>
        <translation>
            <numerusform>%n module was rebuilt. These blocks have problems:</numerusform>
            <numerusform>%n modules were rebuilt. These blocks have problems:</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>BlockView</name>
    <message numerus="yes">
        <source>%n module(s), %1 bytes, in the order of racks and slots</source>
        <translation>
            <numerusform>%n module, %1 bytes, in the order of racks and slots</numerusform>
            <numerusform>%n modules, %1 bytes, in the order of racks and slots</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>FileCommands</name>
    <message numerus="yes">
        <source>%n module(s) cannot be restored. They stay in the project as they were stored.</source>
        <translation>
            <numerusform>%n module cannot be restored. It stays in the project as it was stored.</numerusform>
            <numerusform>%n modules cannot be restored. They stay in the project as they were stored.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n unavailable module(s) were left out</source>
        <translation>
            <numerusform>%n unavailable module was left out</numerusform>
            <numerusform>%n unavailable modules were left out</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>MainWindow</name>
    <message numerus="yes">
        <source>Paste %n module(s)</source>
        <translation>
            <numerusform>Paste %n module</numerusform>
            <numerusform>Paste %n modules</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n module(s), controller %1</source>
        <translation>
            <numerusform>%n module, controller %1</numerusform>
            <numerusform>%n modules, controller %1</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>StationEdits</name>
    <message numerus="yes">
        <source>Remove %n module(s)</source>
        <translation>
            <numerusform>Remove %n module</numerusform>
            <numerusform>Remove %n modules</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>StationMemory</name>
    <message numerus="yes">
        <source>The area %1 has no room for %n more byte(s). Remove modules or choose a larger controller.</source>
        <translation>
            <numerusform>The area %1 has no room for %n more byte. Remove modules or choose a larger controller.</numerusform>
            <numerusform>The area %1 has no room for %n more bytes. Remove modules or choose a larger controller.</numerusform>
        </translation>
    </message>
</context>
</TS>

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
    <message numerus="yes">
        <source>%1 of %n module(s), %2 bytes, in the order of racks and slots</source>
        <translation>
            <numerusform>%1 of %n module, %2 bytes, in the order of racks and slots</numerusform>
            <numerusform>%1 of %n modules, %2 bytes, in the order of racks and slots</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>CompareDialog</name>
    <message numerus="yes">
        <source>%n difference(s)</source>
        <translation>
            <numerusform>%n difference</numerusform>
            <numerusform>%n differences</numerusform>
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
        <source>Recovered %n module(s) as a new station.</source>
        <translation>
            <numerusform>Recovered %n module as a new station.</numerusform>
            <numerusform>Recovered %n modules as a new station.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n module(s) rebuilt from %1</source>
        <translation>
            <numerusform>%n module rebuilt from %1</numerusform>
            <numerusform>%n modules rebuilt from %1</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>FindDialog</name>
    <message numerus="yes">
        <source>%n module(s) found.</source>
        <translation>
            <numerusform>%n module found.</numerusform>
            <numerusform>%n modules found.</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>MainWindow</name>
    <message numerus="yes">
        <source>%n module(s), controller %1</source>
        <translation>
            <numerusform>%n module, controller %1</numerusform>
            <numerusform>%n modules, controller %1</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n problem(s)</source>
        <translation>
            <numerusform>%n problem</numerusform>
            <numerusform>%n problems</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>ModuleCommands</name>
    <message numerus="yes">
        <source>%n module(s) cannot be moved.</source>
        <translation>
            <numerusform>%n module cannot be moved.</numerusform>
            <numerusform>%n modules cannot be moved.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n module(s) cut</source>
        <translation>
            <numerusform>%n module cut</numerusform>
            <numerusform>%n modules cut</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n module(s) copied</source>
        <translation>
            <numerusform>%n module copied</numerusform>
            <numerusform>%n modules copied</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n module(s) moved</source>
        <translation>
            <numerusform>%n module moved</numerusform>
            <numerusform>%n modules moved</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n module(s) removed</source>
        <translation>
            <numerusform>%n module removed</numerusform>
            <numerusform>%n modules removed</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>PasteResult</name>
    <message numerus="yes">
        <source>%1 of %n module(s) pasted</source>
        <translation>
            <numerusform>%1 of %n module pasted</numerusform>
            <numerusform>%1 of %n modules pasted</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n module(s): %1</source>
        <translation>
            <numerusform>%n module: %1</numerusform>
            <numerusform>%n modules: %1</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>RecoveryQuestion</name>
    <message numerus="yes">
        <source>The copy of %1 has %n module(s). Recover opens it as unsaved changes; the project file stays as it is until you save.</source>
        <translation>
            <numerusform>The copy of %1 has %n module. Recover opens it as unsaved changes; the project file stays as it is until you save.</numerusform>
            <numerusform>The copy of %1 has %n modules. Recover opens it as unsaved changes; the project file stays as it is until you save.</numerusform>
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
    <message numerus="yes">
        <source>Paste %n module(s)</source>
        <translation>
            <numerusform>Paste %n module</numerusform>
            <numerusform>Paste %n modules</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Move %n module(s)</source>
        <translation>
            <numerusform>Move %n module</numerusform>
            <numerusform>Move %n modules</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Paste parameters to %n module(s)</source>
        <translation>
            <numerusform>Paste parameters to %n module</numerusform>
            <numerusform>Paste parameters to %n modules</numerusform>
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
<context>
    <name>StationTools</name>
    <message numerus="yes">
        <source>Parameters pasted to %n module(s)</source>
        <translation>
            <numerusform>Parameters pasted to %n module</numerusform>
            <numerusform>Parameters pasted to %n modules</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n had them already</source>
        <translation>
            <numerusform>%n had them already</numerusform>
            <numerusform>%n had them already</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n of another type left alone</source>
        <translation>
            <numerusform>%n of another type left alone</numerusform>
            <numerusform>%n of another type left alone</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n not available</source>
        <translation>
            <numerusform>%n not available</numerusform>
            <numerusform>%n not available</numerusform>
        </translation>
    </message>
</context>
</TS>

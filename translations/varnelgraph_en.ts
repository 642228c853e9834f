<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="en" sourcelanguage="en">
<context>
    <name>BoundedSelection</name>
    <message numerus="yes">
        <source>At most %n files can be selected at once.</source>
        <translation>
            <numerusform>At most %n file can be selected at once.</numerusform>
            <numerusform>At most %n files can be selected at once.</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>Documents</name>
    <message numerus="yes">
        <source>... and %n more</source>
        <translation>
            <numerusform>... and %n more</numerusform>
            <numerusform>... and %n more</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n record(s) of a mode or chemistry that the file format has no sign for can&apos;t be read back from %1.</source>
        <translation>
            <numerusform>%n record of a mode or chemistry that the file format has no sign for can&apos;t be read back from %1.</numerusform>
            <numerusform>%n records of a mode or chemistry that the file format has no sign for can&apos;t be read back from %1.</numerusform>
        </translation>
    </message>
</context>
</TS>

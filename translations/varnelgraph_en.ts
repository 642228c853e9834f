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
    <name>CoursePanel</name>
    <message numerus="yes">
        <source>%n cycle(s)</source>
        <translation>
            <numerusform>%n cycle</numerusform>
            <numerusform>%n cycles</numerusform>
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
<context>
    <name>LogbookCommands</name>
    <message numerus="yes">
        <source>Move %n file(s) to the waste bin? The rows stay in the logbook.</source>
        <translation>
            <numerusform>Move %n file to the waste bin? The row stays in the logbook.</numerusform>
            <numerusform>Move %n files to the waste bin? The rows stay in the logbook.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n file(s) could not be moved to the waste bin: being recorded, or there is no bin for the disk.</source>
        <translation>
            <numerusform>%n file could not be moved to the waste bin: being recorded, or there is no bin for the disk.</numerusform>
            <numerusform>%n files could not be moved to the waste bin: being recorded, or there is no bin for the disk.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Pack of the %n chosen recording(s):</source>
        <translation>
            <numerusform>Pack of the %n chosen recording:</numerusform>
            <numerusform>Pack of the %n chosen recordings:</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n file(s) moved to the waste bin.</source>
        <translation>
            <numerusform>%n file moved to the waste bin.</numerusform>
            <numerusform>%n files moved to the waste bin.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%1 of %n file(s) moved to the waste bin</source>
        <translation>
            <numerusform>%1 of %n file moved to the waste bin</numerusform>
            <numerusform>%1 of %n files moved to the waste bin</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Open %n recording(s), each in a window of its own?</source>
        <translation>
            <numerusform>Open %n recording, in a window of its own?</numerusform>
            <numerusform>Open %n recordings, each in a window of its own?</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>LogbookStatus</name>
    <message numerus="yes">
        <source>%n recording(s)</source>
        <translation>
            <numerusform>%n recording</numerusform>
            <numerusform>%n recordings</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%1 of %n recording(s)</source>
        <translation>
            <numerusform>%1 of %n recording</numerusform>
            <numerusform>%1 of %n recordings</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n chosen</source>
        <translation>
            <numerusform>%n chosen</numerusform>
            <numerusform>%n chosen</numerusform>
        </translation>
    </message>
</context>
</TS>

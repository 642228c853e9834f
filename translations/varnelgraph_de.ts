<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de" sourcelanguage="en">
<context>
    <name>About</name>
    <message>
        <source>About</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Version </source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>OK</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Maker</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Distributor</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>ActionSet</name>
    <message>
        <source>Pauses the port of the current window.
What its device sends meanwhile is not recorded; what follows is a recording of its own.
To look closer, hold the view instead: key H.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 is paused: what its device sends is not recorded. Press to go on.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>BoundedSelection</name>
    <message numerus="yes">
        <source>At most %n files can be selected at once.</source>
        <translation type="unfinished">
            <numerusform></numerusform>
            <numerusform></numerusform>
        </translation>
    </message>
</context>
<context>
    <name>CapacityDisplay</name>
    <message>
        <source>Next</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Previous</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Varnel - capacity comparison</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>No line since %1</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>CommandLine</name>
    <message>
        <source>Write the recording FILE to &lt;out&gt; as comma-separated values and leave.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Draw the recording FILE to &lt;out&gt; (.png, .svg or .pdf) and leave.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Size of the drawing in pixels, for example 1000x600.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Background of the drawing: black or white.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>View of the drawing: charger, cells or average.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Right axis of the charger view: dv, mah or none.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Leave out a curve: temperature or resistance. May be given twice.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Figure beside a cell&apos;s name: voltage, charge or resistance.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Usage: varnelgraph [options] [FILE...]; see varnelgraph --help.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Not a size between %1x%1 and %2x%2: </source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>unknown word </source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Either --export-csv or --render.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>One recording FILE is needed.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>A recording is not written over: </source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The drawing&apos;s name must end in .png, .svg or .pdf: </source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Records what battery chargers and balancers send over serial ports, and draws it.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Recordings (.acp, .abp) to open.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Language of the texts: en, pl or de. Numbers follow the system.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>DataDisplay</name>
    <message>
        <source>Varnel - Data Display</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>No line since %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Charge</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Discharge</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Balance</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>cell %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Ri avg</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%
Ri delta</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Ri max</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Ri min</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>V avg</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Ah max</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>V max</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>V delta</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>V min</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>DataFileLoader</name>
    <message>
        <source>not a regular file</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>no such file</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>it was changed while it was read</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>not enough memory</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>format error in line %1</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>DataToolBar</name>
    <message>
        <source>Data Tool Bar</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Mode and cells type</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Voltage</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Current</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Temperature</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Energy</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Time</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>DeskArea</name>
    <message>
        <source>No port is listened on
Choose the ports of your devices: File &gt; Preferences.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Listening on %1
A window opens as soon as a device sends.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Saved recordings: File &gt; Open file, or drop them here.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>DeskReaderHost</name>
    <message>
        <source>Error</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>DeviceCommands</name>
    <message>
        <source>Choose the window of the device whose process is to be stopped.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The device on %1 was told to stop its process.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The current window was fed by %1, which is not listened on.
Stop the process of the device on %2?</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Stop process</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 is no longer listened on: its device was not told to stop.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>No port is listened on: choose one in the preferences.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Setting the clock of the device on %1...</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>DialogPreferences</name>
    <message>
        <source>OK</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Refresh</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Reset</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Varnel - preferences</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Set varnel3&apos;s time while starting</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>No port is present. Plug a device in and press Refresh.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Serial ports without a COM name: %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>To be listened on a port needs a COM name. Until you log out it has one by:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Then press Refresh. docs/ports.md tells how ports get their names for good.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Listens on the ticked ports. Ports that are absent now are forgotten.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Reset all settings to default:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Of the texts. Numbers and dates are written as the system has them.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Language, from the next start on:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>System</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>DialogRemoteControl</name>
    <message>
        <source>Remote control</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>SETUP</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Battery</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Power suply</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>MEMORY NR</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>-</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>+</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>BATERRY CONNECT</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>START</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>PROCESS</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>STOP</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>DISCONNECT BATTERY</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Bip Off</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Memory...</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Show the number of the memory that the device has selected</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Close</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Port %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Memory %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Cells %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Time out</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Port %1 is no longer listened on: the remote control is closed.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Information</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>Documents</name>
    <message>
        <source>Chose varnel data file names</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Varnel files (*.acp *.abp)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Open recordings</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Recordings (*.acp)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 of %2 files could not be opened:</source>
        <translation type="unfinished"></translation>
    </message>
    <message numerus="yes">
        <source>... and %n more</source>
        <translation type="unfinished">
            <numerusform></numerusform>
            <numerusform></numerusform>
        </translation>
    </message>
    <message>
        <source>Open file</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Choose file name</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Files that end in .abp are only read. Choose a name that ends in .acp.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>A recording is being written to this file.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Saving was cancelled.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Data saved on disk.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 written.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Can not save file %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Save as</source>
        <translation type="unfinished"></translation>
    </message>
    <message numerus="yes">
        <source>%n record(s) of a mode or chemistry that the file format has no sign for can&apos;t be read back from %1.</source>
        <translation type="unfinished">
            <numerusform></numerusform>
            <numerusform></numerusform>
        </translation>
    </message>
    <message>
        <source>They are kept in %1.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>EndNotice</name>
    <message>
        <source>%1 Ah in %2</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>FileQueue</name>
    <message>
        <source>Opening was cancelled.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>FolderView</name>
    <message>
        <source>The folder is being read...</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>GraphExports</name>
    <message>
        <source>Export as CSV</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Comma-separated values (*.csv)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Save picture</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Picture (*.png)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Drawing (*.svg)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Document (*.pdf)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The name of a picture ends in .png, .svg or .pdf.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>There is no room for it in memory.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Names that end in .acp or .abp are for recordings.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>A recording is being written to this file.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The export was cancelled.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 written.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Can not save file %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Export</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>GraphPrinting</name>
    <message>
        <source>Varnel - graph</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>GraphScene</name>
    <message>
        <source>This recording has no cell data.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Voltage</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>V</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source> V</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>dV</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source> mV/min</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>mV/min</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Energy</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>mAh</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source> mAh</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Cell </source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>No cell is selected.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>All cells are hidden.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Voltage:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Charge:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Max</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Avg</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Min</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Delta</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>mV</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source> mV</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Current</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>A</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source> A</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Temp.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Ri</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>mΩ</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source> mΩ</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>Journal</name>
    <message>
        <source>the file was removed or replaced</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>the disk is full</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>the disk reports an error</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>JournalNotice</name>
    <message>
        <source>recordings</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The file of a running recording was removed or replaced:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>All that was recorded is written again, and recording goes on, in:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Your recordings take %1.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>None of them is deleted unless you do it, in %1.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Open folder</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Recordings</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>LineDispatcher</name>
    <message>
        <source>Not enough memory: a line of %1 is left out.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>ListenedPorts</name>
    <message>
        <source>The current window receives no data: there is nothing to pause.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>No graph window is open: there is nothing to pause.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>No port is listened on: choose one in the preferences.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>No port has been selected.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Start listening on port(s): </source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Stop listen on port(s).</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Stop listening on port %1.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Start listening on port %1.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Stop listening on port %1. Port is removed.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Start listening on new port %1.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>LiveWindows</name>
    <message>
        <source>Journal: %1</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>LoadOutcome</name>
    <message>
        <source>Can not open file %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Format error in </source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Not enough memory to open %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Data loaded from disk.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>No data in file.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>MainWindow</name>
    <message>
        <source>Open file</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Read data from file.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Save as</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Save data to file.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Save sesion</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Save all data as one session</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Preferences</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Aplications preferences.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>E&amp;xit</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Exit the application.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Black</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Background color black.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>White</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Background color white.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Cl&amp;ose</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Close the active window</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Close &amp;All</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Close all the windows</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Tile</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Tile the windows</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Cascade</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Cascade the windows</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Ne&amp;xt</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Move the focus to the next window</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Pre&amp;vious</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Move the focus to the previous window</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Recording</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Recording data from com port.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Capacity comparison</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Print capacity comparison.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Voltage comparison</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Print voltage comparison.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Bar display</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Print bar display.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Active plot</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Print active plot.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;About</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Show the application&apos;s About box</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>About &amp;Qt</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Show the Qt library&apos;s About box</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Set time</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Set time.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source> DATA </source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Show/hide display</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Graph</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Show/hide graph</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Bar Graph</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Show/hide bar graph</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source> T </source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Show/hide themparature</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>  dV </source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Show/hide dV</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source> Rw </source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Show/hide cells internal resistance</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source> B </source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Balancer/Charger plot</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source> Avg </source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Cells/MinMax plot</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source> S </source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Select cells</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source> P% </source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Show/hide power balancer</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source> Vc </source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Cells energy/voltage/internal cel resistance</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Stop process</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Stop process.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Hold view</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Graph windows keep zoom and cursor</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Open recordings...</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Open what was recorded from the devices, saved or not.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Reopen closed recording</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Open again the recording whose window was closed last.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Export as CSV...</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Write the records of the current graph as a table for other programs.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Save picture...</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Write the current graph as its window shows it to a picture file.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Remote control...</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Operate the front panel of the charger.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Varnel Graph %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;File</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Window</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Print</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Tools</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;View switches</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Ready</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>There is no graph window to print.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Start listening on ports...</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Background color</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Main Tool Bar</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>MdiGraphChild</name>
    <message>
        <source>Out of memory since %1: lines go on in the journal only</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Ended or silent since %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>No line since %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>No file name</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Device: </source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>View held</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>NO DATA</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>   Cels:</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>PortObstacle</name>
    <message>
        <source>&quot;%1&quot;, process %2</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Another program holds the port.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Another program holds the port: %1.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Another program holds the port: %1 of the user &quot;%2&quot;.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>You have no right to use the port.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>You have no right to use the port. Join the group &quot;%1&quot; and log in again.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>This program listens on the port already.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>This program listens on the same device already, under another name: %1.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>A program that has ended has left its lock behind.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>A program that has ended has left its lock behind: %1.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The user &quot;%1&quot; or an administrator has to remove the file %2.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>a socket</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>a link</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>a folder</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>a device</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>a pipe</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 should be the port&apos;s lock file and is %2.
The user &quot;%3&quot; or an administrator has to remove it.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>You have no right to make lock files in %1.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>PortQuestions</name>
    <message>
        <source>Question</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>PowerDisplay</name>
    <message>
        <source>NO DATA</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Varnel - bar display</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>No line since %1</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>PrintRequest</name>
    <message>
        <source>Sent to %1.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 written.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Can not print to %1</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>ProcessEnd</name>
    <message>
        <source>Error in process !</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Error</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Process aborted by user.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Aborted</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Process completed.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>End</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>ProgressStrip</name>
    <message>
        <source>Cancel</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>QFileDialog</name>
    <message>
        <source>%1
Directory not found.
Please verify the correct directory name was given.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>RecordingsModel</name>
    <message>
        <source>Length</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>RemoteControls</name>
    <message>
        <source>No port is listened on: choose one in the preferences.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Operate the front panel of the charger.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Remote control</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Remote control...</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 (current window)...</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1...</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>SerialReader</name>
    <message>
        <source>It can&apos;t be locked</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Device %1 failed to open: %2</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>SettingsKeeper</name>
    <message>
        <source>its folder is protected against writing</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>another program holds it</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>the disk is full or reports an error</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>SettingsNotice</name>
    <message>
        <source>Settings</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Not all of your settings could be read. What is missing is as in a new installation.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Your settings can&apos;t be written. What you change holds until the program ends.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>SleepInhibitor</name>
    <message>
        <source>A process is being recorded</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>StaleWatch</name>
    <message>
        <source>%1: no line since %2</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>StatusFacts</name>
    <message>
        <source>The process has ended and its message is gone. It is named here until you look at its window.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Lost: %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The device or its adapter went away. Listening goes on when it is back.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Can&apos;t open: %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>These ports could not be opened.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Paused: %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Recording is paused: what the device sends is lost. Press Recording to go on.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>No data: %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The device has sent no line for a while.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Window closed: %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The graph window was closed. A window opens again with the next process.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Not on disk: %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The journal&apos;s disk takes no more. Lines wait in memory and are written as soon as it does.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Error: %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Aborted: %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Completed: %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Listening: %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The ports are chosen in File &gt; Preferences.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Listening: no port</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>ToolsCommands</name>
    <message>
        <source>There is no graph window.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>No window of an unsaved recording has been closed yet.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The closed recording is no longer there.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>UnsavedWindows</name>
    <message>
        <source>The recording is kept as %1: Tools &gt; Reopen closed recording.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The program closes when the file is written. Cancel gives the file up.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Recording</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Another of the windows is about to be saved as %1.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The recording in window %1 is not saved.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Nothing else keeps it. Save it before its window closes?</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The journal could not keep all of it. Save it before its window closes?</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>Varnel3Data</name>
    <message>
        <source>Varnel 3</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Varnel 2+</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Varnel 2</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Tandor</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>None</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Charge</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Discharge</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Balancing</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Format</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Test</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>VoltageComparison</name>
    <message>
        <source>No cell data</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>No cell %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>All cells are hidden.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>No cell selected</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>NO DATA</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>No line since %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Max %1, cell %2</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Min %1, cell %2</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Spread %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>All cells but the selected</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>All cells, the selected emphasised</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Only the selected cells</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Varnel - voltage comparison</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Cell %1 of every window (arrow keys: another; click or Esc: all cells)</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>WriteOutcome</name>
    <message>
        <source>too many links</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>not a regular file</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The disk did not take all of it.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>main</name>
    <message>
        <source>The program that is running does not answer.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Its process has the number %1.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>End it, or wait for its end, and start again.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
</TS>

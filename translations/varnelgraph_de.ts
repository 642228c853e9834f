<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de" sourcelanguage="en">
<context>
    <name>About</name>
    <message>
        <source>About</source>
        <translation>Über</translation>
    </message>
    <message>
        <source>Version </source>
        <translation>Version </translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>Maker</source>
        <translation>Hersteller</translation>
    </message>
    <message>
        <source>Distributor</source>
        <translation>Vertrieb</translation>
    </message>
    <message>
        <source>Picture of a charger</source>
        <translation>Bild eines Ladegeräts</translation>
    </message>
    <message>
        <source>Closes this box.</source>
        <translation>Schließt dieses Fenster.</translation>
    </message>
</context>
<context>
    <name>ActionSet</name>
    <message>
        <source>Pauses the port of the current window.
What its device sends meanwhile is not recorded; what follows is a recording of its own.
To look closer, hold the view instead: key H.</source>
        <translation>Hält den Port des aktuellen Fensters an.
Was sein Gerät solange sendet, wird nicht aufgezeichnet; was folgt, ist eine eigene Aufzeichnung.
Um genauer hinzusehen, halten Sie stattdessen die Ansicht: Taste H.</translation>
    </message>
    <message>
        <source>%1 is paused: what its device sends is not recorded. Press to go on.</source>
        <translation>%1 ist angehalten: was sein Gerät sendet, wird nicht aufgezeichnet. Drücken, um fortzufahren.</translation>
    </message>
</context>
<context>
    <name>BoundedSelection</name>
    <message numerus="yes">
        <source>At most %n files can be selected at once.</source>
        <translation>
            <numerusform>Höchstens %n Datei kann auf einmal ausgewählt werden.</numerusform>
            <numerusform>Höchstens %n Dateien können auf einmal ausgewählt werden.</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>CapacityDisplay</name>
    <message>
        <source>Next</source>
        <translation>Weiter</translation>
    </message>
    <message>
        <source>Previous</source>
        <translation>Zurück</translation>
    </message>
    <message>
        <source>Varnel - capacity comparison</source>
        <translation>Varnel - Kapazitätsvergleich</translation>
    </message>
    <message>
        <source>No line since %1</source>
        <translation>Keine Daten seit %1</translation>
    </message>
</context>
<context>
    <name>ColumnsMenu</name>
    <message>
        <source>Columns</source>
        <translation>Spalten</translation>
    </message>
</context>
<context>
    <name>CommandLine</name>
    <message>
        <source>Write the recording FILE to &lt;out&gt; as comma-separated values and leave.</source>
        <translation>Die Aufzeichnung FILE als kommagetrennte Werte nach &lt;out&gt; schreiben und beenden.</translation>
    </message>
    <message>
        <source>Draw the recording FILE to &lt;out&gt; (.png, .svg or .pdf) and leave.</source>
        <translation>Die Aufzeichnung FILE nach &lt;out&gt; (.png, .svg oder .pdf) zeichnen und beenden.</translation>
    </message>
    <message>
        <source>Size of the drawing in pixels, for example 1000x600.</source>
        <translation>Größe der Zeichnung in Pixeln, zum Beispiel 1000x600.</translation>
    </message>
    <message>
        <source>Background of the drawing: black or white.</source>
        <translation>Hintergrund der Zeichnung: black (schwarz) oder white (weiß).</translation>
    </message>
    <message>
        <source>View of the drawing: charger, cells or average.</source>
        <translation>Ansicht der Zeichnung: charger (Ladegerät), cells (Zellen) oder average (Mittel).</translation>
    </message>
    <message>
        <source>Right axis of the charger view: dv, mah or none.</source>
        <translation>Rechte Achse der Ladegeräte-Ansicht: dv, mah oder none (keine).</translation>
    </message>
    <message>
        <source>Leave out a curve: temperature or resistance. May be given twice.</source>
        <translation>Eine Kurve weglassen: temperature (Temperatur) oder resistance (Widerstand). Darf zweimal angegeben werden.</translation>
    </message>
    <message>
        <source>Figure beside a cell&apos;s name: voltage, charge or resistance.</source>
        <translation>Wert neben dem Namen einer Zelle: voltage (Spannung), charge (Ladung) oder resistance (Widerstand).</translation>
    </message>
    <message>
        <source>Usage: varnelgraph [options] [FILE...]; see varnelgraph --help.</source>
        <translation>Aufruf: varnelgraph [Optionen] [FILE...]; siehe varnelgraph --help.</translation>
    </message>
    <message>
        <source>Not a size between %1x%1 and %2x%2: </source>
        <translation>Keine Größe zwischen %1x%1 und %2x%2: </translation>
    </message>
    <message>
        <source>unknown word </source>
        <translation>unbekanntes Wort </translation>
    </message>
    <message>
        <source>One recording FILE is needed.</source>
        <translation>Eine Aufzeichnung FILE wird gebraucht.</translation>
    </message>
    <message>
        <source>A recording is not written over: </source>
        <translation>Eine Aufzeichnung wird nicht überschrieben: </translation>
    </message>
    <message>
        <source>The drawing&apos;s name must end in .png, .svg or .pdf: </source>
        <translation>Der Name der Zeichnung muss auf .png, .svg oder .pdf enden: </translation>
    </message>
    <message>
        <source>Records what battery chargers and balancers send over serial ports, and draws it.</source>
        <translation>Zeichnet auf, was Ladegeräte und Balancer über serielle Ports senden, und stellt es dar.</translation>
    </message>
    <message>
        <source>Recordings (.acp, .abp) to open.</source>
        <translation>Aufzeichnungen (.acp, .abp), die geöffnet werden.</translation>
    </message>
    <message>
        <source>Language of the texts: en, pl or de. Numbers follow the system.</source>
        <translation>Sprache der Texte: en, pl oder de. Zahlen richten sich nach dem System.</translation>
    </message>
    <message>
        <source>Lines of the drawing: usual, or distinct without their hues.</source>
        <translation>Linien der Zeichnung: usual (wie üblich) oder distinct (ohne Farben unterscheidbar).</translation>
    </message>
    <message>
        <source>Write the logbook to &lt;out&gt; as comma-separated values and leave.</source>
        <translation>Das Logbuch als kommagetrennte Werte nach &lt;out&gt; schreiben und beenden.</translation>
    </message>
    <message>
        <source>Only one of --export-csv, --logbook-csv and --render.</source>
        <translation>Nur eines von --export-csv, --logbook-csv und --render.</translation>
    </message>
    <message>
        <source>The logbook needs no recording FILE.</source>
        <translation>Das Logbuch braucht keine Aufzeichnung FILE.</translation>
    </message>
</context>
<context>
    <name>CourseCanvas</name>
    <message>
        <source>Point at a point: its recording. A click selects it; arrow keys go from point to point.</source>
        <translation>Zeigen Sie auf einen Punkt: seine Aufzeichnung. Ein Klick wählt sie; die Pfeiltasten gehen von Punkt zu Punkt.</translation>
    </message>
    <message>
        <source>%1: from %2 to %3</source>
        <extracomment>A line of a chart: its name, its first and its last value.</extracomment>
        <translation>%1: von %2 bis %3</translation>
    </message>
</context>
<context>
    <name>CoursePanel</name>
    <message>
        <source>Capacity</source>
        <translation>Kapazität</translation>
    </message>
    <message>
        <source>Energy</source>
        <translation>Energie</translation>
    </message>
    <message>
        <source>Internal resistance</source>
        <translation>Innenwiderstand</translation>
    </message>
    <message>
        <source>Spread of the cells</source>
        <translation>Streuung der Zellen</translation>
    </message>
    <message>
        <source>What the chart shows</source>
        <translation>Was das Diagramm zeigt</translation>
    </message>
    <message>
        <source>by date</source>
        <translation>nach Datum</translation>
    </message>
    <message>
        <source>by cycle</source>
        <translation>nach Zyklus</translation>
    </message>
    <message>
        <source>Against the date, or against the number of the cycle</source>
        <translation>Über dem Datum oder der Nummer des Zyklus</translation>
    </message>
    <message>
        <source>Assign recordings to a pack to see its course.</source>
        <translation>Ordnen Sie einem Akku Aufzeichnungen zu, um seinen Verlauf zu sehen.</translation>
    </message>
    <message>
        <source>Not assigned</source>
        <translation>Nicht zugeordnet</translation>
    </message>
    <message>
        <source>All packs</source>
        <translation>Alle Akkus</translation>
    </message>
    <message>
        <source>state of health %1 %</source>
        <translation>Gesundheitszustand %1 %</translation>
    </message>
    <message numerus="yes">
        <source>%n cycle(s)</source>
        <translation>
            <numerusform>%n Zyklus</numerusform>
            <numerusform>%n Zyklen</numerusform>
        </translation>
    </message>
    <message>
        <source>cell %1 is weak</source>
        <translation>Zelle %1 ist schwach</translation>
    </message>
    <message>
        <source>Not from full to empty, or not to the end: not to be compared with the others.</source>
        <translation>Nicht von voll bis leer oder nicht bis zum Ende: mit den anderen nicht zu vergleichen.</translation>
    </message>
</context>
<context>
    <name>DataDisplay</name>
    <message>
        <source>Varnel - Data Display</source>
        <translation>Varnel - Datenanzeige</translation>
    </message>
    <message>
        <source>No line since %1</source>
        <translation>Keine Daten seit %1</translation>
    </message>
    <message>
        <source>Charge</source>
        <translation>Laden</translation>
    </message>
    <message>
        <source>Discharge</source>
        <translation>Entladen</translation>
    </message>
    <message>
        <source>Balance</source>
        <translation>Balancieren</translation>
    </message>
    <message>
        <source>cell %1</source>
        <translation>Zelle %1</translation>
    </message>
    <message>
        <source>Ri avg</source>
        <translation>Ri Ø</translation>
    </message>
    <message>
        <source>%
Ri delta</source>
        <translation>%
Ri Delta</translation>
    </message>
    <message>
        <source>Ri max</source>
        <translation>Ri max</translation>
    </message>
    <message>
        <source>Ri min</source>
        <translation>Ri min</translation>
    </message>
    <message>
        <source>V avg</source>
        <translation>V Ø</translation>
    </message>
    <message>
        <source>Ah max</source>
        <translation>Ah max</translation>
    </message>
    <message>
        <source>V max</source>
        <translation>V max</translation>
    </message>
    <message>
        <source>V delta</source>
        <translation>V Delta</translation>
    </message>
    <message>
        <source>V min</source>
        <translation>V min</translation>
    </message>
    <message>
        <source>Voltage of the pack or the mean cell: click, or press Space</source>
        <translation>Spannung des Akkus oder der mittleren Zelle: Klick oder Leertaste</translation>
    </message>
    <message>
        <source>window %1</source>
        <translation>Fenster %1</translation>
    </message>
</context>
<context>
    <name>DataFileLoader</name>
    <message>
        <source>not a regular file</source>
        <translation>keine gewöhnliche Datei</translation>
    </message>
    <message>
        <source>no such file</source>
        <translation>keine solche Datei</translation>
    </message>
    <message>
        <source>it was changed while it was read</source>
        <translation>sie wurde geändert, während sie gelesen wurde</translation>
    </message>
    <message>
        <source>not enough memory</source>
        <translation>zu wenig Speicher</translation>
    </message>
    <message>
        <source>format error in line %1</source>
        <translation>Formatfehler in Zeile %1</translation>
    </message>
</context>
<context>
    <name>DataToolBar</name>
    <message>
        <source>Data Tool Bar</source>
        <translation>Datenleiste</translation>
    </message>
    <message>
        <source>Mode and cells type</source>
        <translation>Betriebsart und Zellentyp</translation>
    </message>
    <message>
        <source>Voltage</source>
        <translation>Spannung</translation>
    </message>
    <message>
        <source>Current</source>
        <translation>Strom</translation>
    </message>
    <message>
        <source>Temperature</source>
        <translation>Temperatur</translation>
    </message>
    <message>
        <source>Energy</source>
        <translation>Kapazität</translation>
    </message>
    <message>
        <source>Time</source>
        <translation>Zeit</translation>
    </message>
</context>
<context>
    <name>DeskArea</name>
    <message>
        <source>No port is listened on
Choose the ports of your devices: File &gt; Preferences.</source>
        <translation>An keinem Port wird empfangen
Wählen Sie die Ports Ihrer Geräte: Datei &gt; Einstellungen.</translation>
    </message>
    <message>
        <source>Listening on %1
A window opens as soon as a device sends.</source>
        <translation>Empfang an %1
Ein Fenster öffnet sich, sobald ein Gerät sendet.</translation>
    </message>
    <message>
        <source>Saved recordings: File &gt; Open file, or drop them here.</source>
        <translation>Gespeicherte Aufzeichnungen: Datei &gt; Datei öffnen, oder hier fallen lassen.</translation>
    </message>
</context>
<context>
    <name>DeskReaderHost</name>
    <message>
        <source>Error</source>
        <translation>Fehler</translation>
    </message>
</context>
<context>
    <name>DeviceCommands</name>
    <message>
        <source>Choose the window of the device whose process is to be stopped.</source>
        <translation>Wählen Sie das Fenster des Geräts, dessen Vorgang angehalten werden soll.</translation>
    </message>
    <message>
        <source>The device on %1 was told to stop its process.</source>
        <translation>Das Gerät an %1 wurde angewiesen, seinen Vorgang zu stoppen.</translation>
    </message>
    <message>
        <source>The current window was fed by %1, which is not listened on.
Stop the process of the device on %2?</source>
        <translation>Die Daten des aktuellen Fensters kamen von %1; dort wird nicht empfangen.
Den Vorgang des Geräts an %2 stoppen?</translation>
    </message>
    <message>
        <source>Stop process</source>
        <translation>Vorgang stoppen</translation>
    </message>
    <message>
        <source>%1 is no longer listened on: its device was not told to stop.</source>
        <translation>An %1 wird nicht mehr empfangen: sein Gerät wurde nicht angewiesen zu stoppen.</translation>
    </message>
    <message>
        <source>No port is listened on: choose one in the preferences.</source>
        <translation>An keinem Port wird empfangen: wählen Sie einen in den Einstellungen.</translation>
    </message>
    <message>
        <source>Setting the clock of the device on %1...</source>
        <translation>Die Uhr des Geräts an %1 wird gestellt...</translation>
    </message>
</context>
<context>
    <name>DialogPreferences</name>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>Refresh</source>
        <translation>Suchen</translation>
    </message>
    <message>
        <source>Reset</source>
        <translation>Standard</translation>
    </message>
    <message>
        <source>Varnel - preferences</source>
        <translation>Varnel - Einstellungen</translation>
    </message>
    <message>
        <source>Set varnel3&apos;s time while starting</source>
        <translation>Die Uhr des Varnel 3 beim Start stellen</translation>
    </message>
    <message>
        <source>No port is present. Plug a device in and press Refresh.</source>
        <translation>Kein Port ist da. Schließen Sie ein Gerät an und drücken Sie Suchen.</translation>
    </message>
    <message>
        <source>Serial ports without a COM name: %1</source>
        <translation>Serielle Ports ohne COM-Namen: %1</translation>
    </message>
    <message>
        <source>To be listened on a port needs a COM name. Until you log out it has one by:</source>
        <translation>Zum Empfang braucht ein Port einen COM-Namen. Bis zum Abmelden hat er einen durch:</translation>
    </message>
    <message>
        <source>Then press Refresh. docs/ports.md tells how ports get their names for good.</source>
        <translation>Drücken Sie dann Suchen. Wie Ports auf Dauer zu ihren Namen kommen, steht in docs/ports.md.</translation>
    </message>
    <message>
        <source>Listens on the ticked ports. Ports that are absent now are forgotten.</source>
        <translation>Empfängt an den angekreuzten Ports. Ports, die jetzt fehlen, werden vergessen.</translation>
    </message>
    <message>
        <source>Reset all settings to default:</source>
        <translation>Alle Einstellungen auf:</translation>
    </message>
    <message>
        <source>Of the texts. Numbers and dates are written as the system has them.</source>
        <translation>Für die Texte. Zahlen und Daten stehen da, wie das System sie schreibt.</translation>
    </message>
    <message>
        <source>System</source>
        <translation>System</translation>
    </message>
    <message>
        <source>Language (from next start):</source>
        <translation>Sprache (ab neuem Start):</translation>
    </message>
    <message>
        <source>Changes nothing.</source>
        <translation>Ändert nichts.</translation>
    </message>
    <message>
        <source>Looks for ports that came since the dialog opened.</source>
        <translation>Sucht Ports, die seit dem Öffnen dazugekommen sind.</translation>
    </message>
    <message>
        <source>Unticks all ports and the time, and takes the system&apos;s language. Nothing is stored before OK.</source>
        <translation>Nimmt alle Häkchen weg und stellt die Sprache des Systems ein. Gespeichert wird erst mit OK.</translation>
    </message>
    <message>
        <source>The device gets the computer&apos;s clock with its first process and at the end of one.</source>
        <translation>Das Gerät bekommt die Uhrzeit des Rechners mit seinem ersten Vorgang und am Ende eines Vorgangs.</translation>
    </message>
</context>
<context>
    <name>DialogRemoteControl</name>
    <message>
        <source>Remote control</source>
        <translation>Fernbedienung</translation>
    </message>
    <message>
        <source>SETUP</source>
        <translation>EINSTELLUNG</translation>
    </message>
    <message>
        <source>Battery</source>
        <translation>Akku</translation>
    </message>
    <message>
        <source>Power suply</source>
        <translation>Netzteil</translation>
    </message>
    <message>
        <source>MEMORY NR</source>
        <translation>SPEICHER-NR.</translation>
    </message>
    <message>
        <source>-</source>
        <translation>-</translation>
    </message>
    <message>
        <source>+</source>
        <translation>+</translation>
    </message>
    <message>
        <source>BATERRY CONNECT</source>
        <translation>AKKU ANGESCHLOSSEN</translation>
    </message>
    <message>
        <source>START</source>
        <translation>START</translation>
    </message>
    <message>
        <source>PROCESS</source>
        <translation>VORGANG</translation>
    </message>
    <message>
        <source>STOP</source>
        <translation>STOP</translation>
    </message>
    <message>
        <source>DISCONNECT BATTERY</source>
        <translation>AKKU ABKLEMMEN</translation>
    </message>
    <message>
        <source>Bip Off</source>
        <translation>Ton aus</translation>
    </message>
    <message>
        <source>Memory...</source>
        <translation>Speicher...</translation>
    </message>
    <message>
        <source>Show the number of the memory that the device has selected</source>
        <translation>Die Nummer des Speichers zeigen, den das Gerät gewählt hat</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Schließen</translation>
    </message>
    <message>
        <source>Port %1</source>
        <translation>Port %1</translation>
    </message>
    <message>
        <source>Memory %1</source>
        <translation>Speicher %1</translation>
    </message>
    <message>
        <source>Cells %1</source>
        <translation>Zellen: %1</translation>
    </message>
    <message>
        <source>Time out</source>
        <translation>Das Gerät antwortet nicht</translation>
    </message>
    <message>
        <source>Port %1 is no longer listened on: the remote control is closed.</source>
        <translation>An Port %1 wird nicht mehr empfangen: die Fernbedienung wird geschlossen.</translation>
    </message>
    <message>
        <source>Information</source>
        <translation>Hinweis</translation>
    </message>
    <message>
        <source>A pack is connected</source>
        <translation>Ein Akku ist angeschlossen</translation>
    </message>
    <message>
        <source>Takes this memory</source>
        <translation>Nimmt diesen Speicher</translation>
    </message>
    <message>
        <source>Memory</source>
        <translation>Speicher</translation>
    </message>
    <message>
        <source>The charger is a power supply</source>
        <translation>Das Ladegerät arbeitet als Netzteil</translation>
    </message>
    <message>
        <source>Memory before</source>
        <translation>Voriger Speicher</translation>
    </message>
    <message>
        <source>Next memory</source>
        <translation>Nächster Speicher</translation>
    </message>
    <message>
        <source>One cell less</source>
        <translation>Eine Zelle weniger</translation>
    </message>
    <message>
        <source>Takes this number of cells</source>
        <translation>Nimmt diese Zellenzahl</translation>
    </message>
    <message>
        <source>Number of cells</source>
        <translation>Zahl der Zellen</translation>
    </message>
    <message>
        <source>One cell more</source>
        <translation>Eine Zelle mehr</translation>
    </message>
    <message>
        <source>Starts the process</source>
        <translation>Startet den Vorgang</translation>
    </message>
    <message>
        <source>Stops the process</source>
        <translation>Stoppt den Vorgang</translation>
    </message>
    <message>
        <source>Silences the device</source>
        <translation>Stellt den Ton des Geräts ab</translation>
    </message>
    <message>
        <source>Closes the remote control; the device goes on</source>
        <translation>Schließt die Fernbedienung; das Gerät arbeitet weiter</translation>
    </message>
</context>
<context>
    <name>Documents</name>
    <message>
        <source>Chose varnel data file names</source>
        <translation>Varnel-Dateien auswählen</translation>
    </message>
    <message>
        <source>Varnel files (*.acp *.abp)</source>
        <translation>Varnel-Dateien (*.acp *.abp)</translation>
    </message>
    <message>
        <source>Open recordings</source>
        <translation>Aufzeichnungen öffnen</translation>
    </message>
    <message>
        <source>Recordings (*.acp)</source>
        <translation>Aufzeichnungen (*.acp)</translation>
    </message>
    <message>
        <source>%1 of %2 files could not be opened:</source>
        <translation>%1 von %2 Dateien konnten nicht geöffnet werden:</translation>
    </message>
    <message numerus="yes">
        <source>... and %n more</source>
        <translation>
            <numerusform>... und %n weitere</numerusform>
            <numerusform>... und %n weitere</numerusform>
        </translation>
    </message>
    <message>
        <source>Open file</source>
        <translation>Datei öffnen</translation>
    </message>
    <message>
        <source>Choose file name</source>
        <translation>Dateinamen wählen</translation>
    </message>
    <message>
        <source>Files that end in .abp are only read. Choose a name that ends in .acp.</source>
        <translation>Dateien auf .abp werden nur gelesen. Wählen Sie einen Namen, der auf .acp endet.</translation>
    </message>
    <message>
        <source>A recording is being written to this file.</source>
        <translation>In diese Datei wird gerade aufgezeichnet.</translation>
    </message>
    <message>
        <source>Saving was cancelled.</source>
        <translation>Das Speichern wurde abgebrochen.</translation>
    </message>
    <message>
        <source>Data saved on disk.</source>
        <translation>Daten gespeichert.</translation>
    </message>
    <message>
        <source>%1 written.</source>
        <translation>%1 geschrieben.</translation>
    </message>
    <message>
        <source>Can not save file %1</source>
        <translation>Die Datei %1 kann nicht gespeichert werden</translation>
    </message>
    <message>
        <source>Save as</source>
        <translation>Speichern unter</translation>
    </message>
    <message numerus="yes">
        <source>%n record(s) of a mode or chemistry that the file format has no sign for can&apos;t be read back from %1.</source>
        <translation>
            <numerusform>%n Datensatz, für dessen Betriebsart oder Zellentyp das Dateiformat kein Zeichen hat, lässt sich aus %1 nicht wieder lesen.</numerusform>
            <numerusform>%n Datensätze, für deren Betriebsart oder Zellentyp das Dateiformat kein Zeichen hat, lassen sich aus %1 nicht wieder lesen.</numerusform>
        </translation>
    </message>
    <message>
        <source>They are kept in %1.</source>
        <translation>Sie bleiben in %1 erhalten.</translation>
    </message>
</context>
<context>
    <name>EndNotice</name>
    <message>
        <source>%1 Ah in %2</source>
        <translation>%1 Ah in %2</translation>
    </message>
</context>
<context>
    <name>Explanations</name>
    <message>
        <source>There is no graph window.</source>
        <translation>Es gibt kein Diagrammfenster.</translation>
    </message>
    <message>
        <source>Explanations</source>
        <translation>Erklärungen</translation>
    </message>
</context>
<context>
    <name>FileQueue</name>
    <message>
        <source>Opening was cancelled.</source>
        <translation>Das Öffnen wurde abgebrochen.</translation>
    </message>
</context>
<context>
    <name>FilterLine</name>
    <message>
        <source>From</source>
        <translation>Von</translation>
    </message>
    <message>
        <source>First day of the recordings</source>
        <translation>Erster Tag der Aufzeichnungen</translation>
    </message>
    <message>
        <source>To</source>
        <translation>Bis</translation>
    </message>
    <message>
        <source>Last day of the recordings</source>
        <translation>Letzter Tag der Aufzeichnungen</translation>
    </message>
    <message>
        <source>Filter: words of any column</source>
        <translation>Filter: Wörter aus allen Spalten</translation>
    </message>
    <message>
        <source>Shows the recordings that have all of these words somewhere. Esc shows all again.</source>
        <translation>Zeigt die Aufzeichnungen, in denen alle diese Wörter vorkommen. Esc zeigt wieder alle.</translation>
    </message>
    <message>
        <source>Filter</source>
        <translation>Filter</translation>
    </message>
    <message>
        <source>Recordings of cells of this chemistry</source>
        <translation>Aufzeichnungen von Zellen dieser Chemie</translation>
    </message>
    <message>
        <source>Chemistry</source>
        <translation>Chemie</translation>
    </message>
    <message>
        <source>Any chemistry</source>
        <translation>Jede Chemie</translation>
    </message>
    <message>
        <source>Recordings of this process</source>
        <translation>Aufzeichnungen dieses Vorgangs</translation>
    </message>
    <message>
        <source>Process</source>
        <translation>Vorgang</translation>
    </message>
    <message>
        <source>Any process</source>
        <translation>Jeder Vorgang</translation>
    </message>
</context>
<context>
    <name>FolderView</name>
    <message>
        <source>The folder is being read...</source>
        <translation>Der Ordner wird gelesen...</translation>
    </message>
</context>
<context>
    <name>FoldersDialog</name>
    <message>
        <source>Remove</source>
        <translation>Entfernen</translation>
    </message>
    <message>
        <source>Folders of the logbook</source>
        <translation>Ordner des Logbuchs</translation>
    </message>
    <message>
        <source>Recordings are read from %1 and from these folders:</source>
        <translation>Aufzeichnungen werden aus %1 und aus diesen Ordnern gelesen:</translation>
    </message>
    <message>
        <source>Folders whose recordings stand in the logbook; folders in them are not read</source>
        <translation>Ordner, deren Aufzeichnungen im Logbuch stehen; Ordner darin werden nicht gelesen</translation>
    </message>
    <message>
        <source>Add...</source>
        <translation>Hinzufügen...</translation>
    </message>
    <message>
        <source>Reads another folder, too.</source>
        <translation>Liest einen weiteren Ordner.</translation>
    </message>
    <message>
        <source>The folder is read no longer. Its recordings stay in the logbook.</source>
        <translation>Der Ordner wird nicht mehr gelesen. Seine Aufzeichnungen bleiben im Logbuch.</translation>
    </message>
    <message>
        <source>Reads these folders.</source>
        <translation>Liest diese Ordner.</translation>
    </message>
    <message>
        <source>Changes nothing.</source>
        <translation>Ändert nichts.</translation>
    </message>
</context>
<context>
    <name>GraphExports</name>
    <message>
        <source>Export as CSV</source>
        <translation>Als CSV exportieren</translation>
    </message>
    <message>
        <source>Comma-separated values (*.csv)</source>
        <translation>Kommagetrennte Werte (*.csv)</translation>
    </message>
    <message>
        <source>Save picture</source>
        <translation>Bild speichern</translation>
    </message>
    <message>
        <source>Picture (*.png)</source>
        <translation>Bild (*.png)</translation>
    </message>
    <message>
        <source>Drawing (*.svg)</source>
        <translation>Zeichnung (*.svg)</translation>
    </message>
    <message>
        <source>Document (*.pdf)</source>
        <translation>Dokument (*.pdf)</translation>
    </message>
    <message>
        <source>The name of a picture ends in .png, .svg or .pdf.</source>
        <translation>Der Name eines Bildes endet auf .png, .svg oder .pdf.</translation>
    </message>
    <message>
        <source>There is no room for it in memory.</source>
        <translation>Der Speicher reicht dafür nicht.</translation>
    </message>
    <message>
        <source>Names that end in .acp or .abp are for recordings.</source>
        <translation>Namen auf .acp oder .abp sind für Aufzeichnungen.</translation>
    </message>
    <message>
        <source>A recording is being written to this file.</source>
        <translation>In diese Datei wird gerade aufgezeichnet.</translation>
    </message>
    <message>
        <source>The export was cancelled.</source>
        <translation>Der Export wurde abgebrochen.</translation>
    </message>
    <message>
        <source>%1 written.</source>
        <translation>%1 geschrieben.</translation>
    </message>
    <message>
        <source>Can not save file %1</source>
        <translation>Die Datei %1 kann nicht gespeichert werden</translation>
    </message>
    <message>
        <source>Export</source>
        <translation>Export</translation>
    </message>
</context>
<context>
    <name>GraphPrinting</name>
    <message>
        <source>Varnel - graph</source>
        <translation>Varnel - Diagramm</translation>
    </message>
</context>
<context>
    <name>GraphScene</name>
    <message>
        <source>This recording has no cell data.</source>
        <translation>Diese Aufzeichnung hat keine Zellendaten.</translation>
    </message>
    <message>
        <source>Voltage</source>
        <translation>Spannung</translation>
    </message>
    <message>
        <source>V</source>
        <translation>V</translation>
    </message>
    <message>
        <source> V</source>
        <translation> V</translation>
    </message>
    <message>
        <source>dV</source>
        <translation>dV</translation>
    </message>
    <message>
        <source> mV/min</source>
        <translation> mV/min</translation>
    </message>
    <message>
        <source>mV/min</source>
        <translation>mV/min</translation>
    </message>
    <message>
        <source>Energy</source>
        <translation>Ladung</translation>
    </message>
    <message>
        <source>mAh</source>
        <translation>mAh</translation>
    </message>
    <message>
        <source> mAh</source>
        <translation> mAh</translation>
    </message>
    <message>
        <source>Cell </source>
        <translation>Zelle </translation>
    </message>
    <message>
        <source>No cell is selected.</source>
        <translation>Keine Zelle ist ausgewählt.</translation>
    </message>
    <message>
        <source>All cells are hidden.</source>
        <translation>Alle Zellen sind ausgeblendet.</translation>
    </message>
    <message>
        <source>Voltage:</source>
        <translation>Spannung:</translation>
    </message>
    <message>
        <source>Charge:</source>
        <translation>Ladung:</translation>
    </message>
    <message>
        <source>Max</source>
        <translation>Max</translation>
    </message>
    <message>
        <source>Avg</source>
        <translation>Ø</translation>
    </message>
    <message>
        <source>Min</source>
        <translation>Min</translation>
    </message>
    <message>
        <source>Delta</source>
        <translation>Delta</translation>
    </message>
    <message>
        <source>mV</source>
        <translation>mV</translation>
    </message>
    <message>
        <source> mV</source>
        <translation> mV</translation>
    </message>
    <message>
        <source>Current</source>
        <translation>Strom</translation>
    </message>
    <message>
        <source>A</source>
        <translation>A</translation>
    </message>
    <message>
        <source> A</source>
        <translation> A</translation>
    </message>
    <message>
        <source>Temp.</source>
        <translation>Temp.</translation>
    </message>
    <message>
        <source>Ri</source>
        <translation>Ri</translation>
    </message>
    <message>
        <source>mΩ</source>
        <translation>mΩ</translation>
    </message>
    <message>
        <source> mΩ</source>
        <translation> mΩ</translation>
    </message>
</context>
<context>
    <name>Journal</name>
    <message>
        <source>the file was removed or replaced</source>
        <translation>die Datei wurde entfernt oder ersetzt</translation>
    </message>
    <message>
        <source>the disk is full</source>
        <translation>der Datenträger ist voll</translation>
    </message>
    <message>
        <source>the disk reports an error</source>
        <translation>der Datenträger meldet einen Fehler</translation>
    </message>
</context>
<context>
    <name>JournalNotice</name>
    <message>
        <source>recordings</source>
        <translation>Aufzeichnungen</translation>
    </message>
    <message>
        <source>The file of a running recording was removed or replaced:</source>
        <translation>Die Datei einer laufenden Aufzeichnung wurde entfernt oder ersetzt:</translation>
    </message>
    <message>
        <source>All that was recorded is written again, and recording goes on, in:</source>
        <translation>Alles Aufgezeichnete wird noch einmal geschrieben, und die Aufzeichnung geht weiter, in:</translation>
    </message>
    <message>
        <source>Your recordings take %1.</source>
        <translation>Ihre Aufzeichnungen belegen %1.</translation>
    </message>
    <message>
        <source>None of them is deleted unless you do it, in %1.</source>
        <translation>Keine davon wird gelöscht, es sei denn, Sie tun es selbst, in %1.</translation>
    </message>
    <message>
        <source>Open folder</source>
        <translation>Ordner öffnen</translation>
    </message>
    <message>
        <source>Recordings</source>
        <translation>Aufzeichnungen</translation>
    </message>
</context>
<context>
    <name>LineDispatcher</name>
    <message>
        <source>Not enough memory: a line of %1 is left out.</source>
        <translation>Zu wenig Speicher: eine Zeile von %1 fehlt.</translation>
    </message>
</context>
<context>
    <name>ListenedPorts</name>
    <message>
        <source>The current window receives no data: there is nothing to pause.</source>
        <translation>Das aktuelle Fenster empfängt keine Daten: es gibt nichts anzuhalten.</translation>
    </message>
    <message>
        <source>No graph window is open: there is nothing to pause.</source>
        <translation>Kein Diagrammfenster ist offen: es gibt nichts anzuhalten.</translation>
    </message>
    <message>
        <source>No port is listened on: choose one in the preferences.</source>
        <translation>An keinem Port wird empfangen: wählen Sie einen in den Einstellungen.</translation>
    </message>
    <message>
        <source>No port has been selected.</source>
        <translation>Kein Port ist ausgewählt.</translation>
    </message>
    <message>
        <source>Start listening on port(s): </source>
        <translation>Empfang an: </translation>
    </message>
    <message>
        <source>Stop listen on port(s).</source>
        <translation>Empfang beendet.</translation>
    </message>
    <message>
        <source>Stop listening on port %1.</source>
        <translation>Empfang an Port %1 beendet.</translation>
    </message>
    <message>
        <source>Start listening on port %1.</source>
        <translation>Empfang an Port %1 begonnen.</translation>
    </message>
    <message>
        <source>Stop listening on port %1. Port is removed.</source>
        <translation>Empfang an Port %1 beendet. Der Port ist entfernt.</translation>
    </message>
    <message>
        <source>Start listening on new port %1.</source>
        <translation>Empfang am neuen Port %1 begonnen.</translation>
    </message>
</context>
<context>
    <name>LiveWindows</name>
    <message>
        <source>Journal: %1</source>
        <translation>Journal: %1</translation>
    </message>
</context>
<context>
    <name>LoadOutcome</name>
    <message>
        <source>Can not open file %1</source>
        <translation>Die Datei %1 kann nicht geöffnet werden</translation>
    </message>
    <message>
        <source>Format error in </source>
        <translation>Formatfehler in </translation>
    </message>
    <message>
        <source>Not enough memory to open %1</source>
        <translation>Zu wenig Speicher, um %1 zu öffnen</translation>
    </message>
    <message>
        <source>Data loaded from disk.</source>
        <translation>Daten geladen.</translation>
    </message>
    <message>
        <source>No data in file.</source>
        <translation>Die Datei enthält keine Daten.</translation>
    </message>
</context>
<context>
    <name>Logbook</name>
    <message>
        <source>The logbook can&apos;t be written for now: %1</source>
        <translation>Das Logbuch kann zur Zeit nicht geschrieben werden: %1</translation>
    </message>
    <message>
        <source>The logbook can&apos;t be kept: %1</source>
        <translation>Das Logbuch kann nicht geführt werden: %1</translation>
    </message>
    <message>
        <source>Completed</source>
        <translation>Beendet</translation>
    </message>
    <message>
        <source>Aborted</source>
        <translation>Abgebrochen</translation>
    </message>
    <message>
        <source>Error</source>
        <translation>Fehler</translation>
    </message>
    <message>
        <source>Recording</source>
        <translation>Läuft</translation>
    </message>
    <message>
        <source>No end</source>
        <translation>Ohne Ende</translation>
    </message>
</context>
<context>
    <name>LogbookActions</name>
    <message>
        <source>Open</source>
        <translation>Öffnen</translation>
    </message>
    <message>
        <source>Opens the chosen recordings, each in a graph window.</source>
        <translation>Öffnet die gewählten Aufzeichnungen, jede in einem Graphfenster.</translation>
    </message>
    <message>
        <source>Overlay</source>
        <translation>Übereinanderlegen</translation>
    </message>
    <message>
        <source>Shows the curves of the chosen recordings over each other.</source>
        <translation>Zeigt die Kurven der gewählten Aufzeichnungen übereinander.</translation>
    </message>
    <message>
        <source>Show in folder</source>
        <translation>Im Ordner zeigen</translation>
    </message>
    <message>
        <source>Opens the folder that holds the file.</source>
        <translation>Öffnet den Ordner, in dem die Datei liegt.</translation>
    </message>
    <message>
        <source>Assign to pack...</source>
        <translation>Akku zuordnen...</translation>
    </message>
    <message>
        <source>Tells of which pack the chosen recordings are.</source>
        <translation>Sagt, von welchem Akku die gewählten Aufzeichnungen sind.</translation>
    </message>
    <message>
        <source>Assign to offered pack</source>
        <translation>Angebotenem Akku zuordnen</translation>
    </message>
    <message>
        <source>Assign to none</source>
        <translation>Keinem zuordnen</translation>
    </message>
    <message>
        <source>The chosen recordings have no pack then.</source>
        <translation>Die gewählten Aufzeichnungen haben dann keinen Akku.</translation>
    </message>
    <message>
        <source>Note...</source>
        <translation>Notiz...</translation>
    </message>
    <message>
        <source>Your own words on the recording</source>
        <translation>Eigene Worte zur Aufzeichnung</translation>
    </message>
    <message>
        <source>Delete file...</source>
        <translation>Datei löschen...</translation>
    </message>
    <message>
        <source>Moves the chosen files to the waste bin, after a question.</source>
        <translation>Verschiebt die gewählten Dateien nach einer Rückfrage in den Papierkorb.</translation>
    </message>
    <message>
        <source>Remove from logbook</source>
        <translation>Aus dem Logbuch entfernen</translation>
    </message>
    <message>
        <source>Forgets chosen recordings whose files have gone.</source>
        <translation>Vergisst gewählte Aufzeichnungen, deren Dateien fort sind.</translation>
    </message>
    <message>
        <source>Export as CSV...</source>
        <translation>Als CSV exportieren...</translation>
    </message>
    <message>
        <source>Writes the rows that are shown as a table for other programs.</source>
        <translation>Schreibt die gezeigten Zeilen als Tabelle für andere Programme.</translation>
    </message>
    <message>
        <source>Print table...</source>
        <translation>Tabelle drucken...</translation>
    </message>
    <message>
        <source>Prints the rows and columns that are shown.</source>
        <translation>Druckt die gezeigten Zeilen und Spalten.</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Schließen</translation>
    </message>
    <message>
        <source>Closes the window of the logbook.</source>
        <translation>Schließt das Fenster des Logbuchs.</translation>
    </message>
    <message>
        <source>Undo</source>
        <translation>Rückgängig</translation>
    </message>
    <message>
        <source>Takes back the last change.</source>
        <translation>Nimmt die letzte Änderung zurück.</translation>
    </message>
    <message>
        <source>Redo</source>
        <translation>Wiederholen</translation>
    </message>
    <message>
        <source>Makes the change again that was taken back.</source>
        <translation>Macht die zurückgenommene Änderung wieder.</translation>
    </message>
    <message>
        <source>Filter</source>
        <translation>Filter</translation>
    </message>
    <message>
        <source>Takes the keyboard to the filter.</source>
        <translation>Bringt die Tastatur zum Filter.</translation>
    </message>
    <message>
        <source>Clear filter</source>
        <translation>Filter leeren</translation>
    </message>
    <message>
        <source>Shows every recording of the pack.</source>
        <translation>Zeigt alle Aufzeichnungen des Akkus.</translation>
    </message>
    <message>
        <source>Folders...</source>
        <translation>Ordner...</translation>
    </message>
    <message>
        <source>Chooses folders whose recordings are read, too.</source>
        <translation>Wählt Ordner, deren Aufzeichnungen auch gelesen werden.</translation>
    </message>
    <message>
        <source>Read again</source>
        <translation>Neu lesen</translation>
    </message>
    <message>
        <source>Looks for new and changed files in all folders now.</source>
        <translation>Sucht jetzt in allen Ordnern nach neuen und geänderten Dateien.</translation>
    </message>
    <message>
        <source>New pack...</source>
        <translation>Neuer Akku...</translation>
    </message>
    <message>
        <source>Adds a pack.</source>
        <translation>Fügt einen Akku hinzu.</translation>
    </message>
    <message>
        <source>Rename or change pack...</source>
        <translation>Akku umbenennen oder ändern...</translation>
    </message>
    <message>
        <source>Name, chemistry, cells, nominal capacity and note of the chosen pack</source>
        <translation>Name, Chemie, Zellen, Nennkapazität und Notiz des gewählten Akkus</translation>
    </message>
    <message>
        <source>Merge packs...</source>
        <translation>Akkus zusammenlegen...</translation>
    </message>
    <message>
        <source>Makes one of the chosen pack and another one.</source>
        <translation>Macht aus dem gewählten und einem anderen Akku einen.</translation>
    </message>
    <message>
        <source>Take apart...</source>
        <translation>Trennen...</translation>
    </message>
    <message>
        <source>Moves the chosen recordings of a pack to a new pack like it.</source>
        <translation>Verschiebt die gewählten Aufzeichnungen eines Akkus zu einem neuen, gleichen.</translation>
    </message>
    <message>
        <source>Remove pack</source>
        <translation>Akku entfernen</translation>
    </message>
    <message>
        <source>Removes the chosen pack. Its recordings stay, assigned to none.</source>
        <translation>Entfernt den gewählten Akku. Seine Aufzeichnungen bleiben, keinem zugeordnet.</translation>
    </message>
    <message>
        <source>Save picture...</source>
        <translation>Bild speichern...</translation>
    </message>
    <message>
        <source>Writes the chart as the window shows it to a picture file.</source>
        <translation>Schreibt das Diagramm, wie das Fenster es zeigt, in eine Bilddatei.</translation>
    </message>
    <message>
        <source>Print chart...</source>
        <translation>Diagramm drucken...</translation>
    </message>
    <message>
        <source>Prints the chart.</source>
        <translation>Druckt das Diagramm.</translation>
    </message>
    <message>
        <source>Explain row</source>
        <translation>Zeile erklären</translation>
    </message>
    <message>
        <source>Shows all figures and the curve of the current row. The space bar does so, too.</source>
        <translation>Zeigt alle Werte und die Kurve der aktuellen Zeile. Die Leertaste auch.</translation>
    </message>
    <message>
        <source>Sort by column</source>
        <translation>Nach Spalte sortieren</translation>
    </message>
    <message>
        <source>Sorts by the current column, the second time the other way round.</source>
        <translation>Sortiert nach der aktuellen Spalte, beim zweiten Mal umgekehrt.</translation>
    </message>
    <message>
        <source>Move column left</source>
        <translation>Spalte nach links</translation>
    </message>
    <message>
        <source>Moves the current column to the left.</source>
        <translation>Verschiebt die aktuelle Spalte nach links.</translation>
    </message>
    <message>
        <source>Move column right</source>
        <translation>Spalte nach rechts</translation>
    </message>
    <message>
        <source>Moves the current column to the right.</source>
        <translation>Verschiebt die aktuelle Spalte nach rechts.</translation>
    </message>
    <message>
        <source>Hide column</source>
        <translation>Spalte ausblenden</translation>
    </message>
    <message>
        <source>Hides the current column.</source>
        <translation>Blendet die aktuelle Spalte aus.</translation>
    </message>
    <message>
        <source>Show all columns</source>
        <translation>Alle Spalten zeigen</translation>
    </message>
    <message>
        <source>Shows the hidden columns again.</source>
        <translation>Zeigt die ausgeblendeten Spalten wieder.</translation>
    </message>
    <message>
        <source>&amp;Recordings</source>
        <translation>&amp;Aufzeichnungen</translation>
    </message>
    <message>
        <source>&amp;Edit</source>
        <translation>&amp;Bearbeiten</translation>
    </message>
    <message>
        <source>&amp;Packs</source>
        <translation>A&amp;kkus</translation>
    </message>
    <message>
        <source>&amp;Chart</source>
        <translation>&amp;Diagramm</translation>
    </message>
    <message>
        <source>&amp;View</source>
        <translation>A&amp;nsicht</translation>
    </message>
    <message>
        <source>Takes for each the pack that was used last at the same port with the same cells.</source>
        <translation>Nimmt für jede den Akku, der zuletzt am selben Port mit gleichen Zellen war.</translation>
    </message>
</context>
<context>
    <name>LogbookCommands</name>
    <message>
        <source>No recording is chosen.</source>
        <translation>Keine Aufzeichnung ist gewählt.</translation>
    </message>
    <message>
        <source>The files of the chosen recordings have gone.</source>
        <translation>Die Dateien der gewählten Aufzeichnungen sind fort.</translation>
    </message>
    <message>
        <source>The logbook can&apos;t be kept: nothing can be changed.</source>
        <translation>Das Logbuch kann nicht geführt werden: nichts lässt sich ändern.</translation>
    </message>
    <message>
        <source>More than one recording is chosen.</source>
        <translation>Mehr als eine Aufzeichnung ist gewählt.</translation>
    </message>
    <message>
        <source>The files of the chosen recordings are there.</source>
        <translation>Die Dateien der gewählten Aufzeichnungen sind da.</translation>
    </message>
    <message>
        <source>Assign to offered pack</source>
        <translation>Angebotenem Akku zuordnen</translation>
    </message>
    <message>
        <source>Assign to %1</source>
        <translation>Zu %1 zuordnen</translation>
    </message>
    <message>
        <source>No pack is offered for the chosen recordings.</source>
        <translation>Für die gewählten Aufzeichnungen wird kein Akku angeboten.</translation>
    </message>
    <message>
        <source>No pack is chosen on the left.</source>
        <translation>Links ist kein Akku gewählt.</translation>
    </message>
    <message>
        <source>There is no other pack.</source>
        <translation>Es gibt keinen anderen Akku.</translation>
    </message>
    <message>
        <source>No recording of the pack is chosen.</source>
        <translation>Keine Aufzeichnung des Akkus ist gewählt.</translation>
    </message>
    <message>
        <source>Undo</source>
        <translation>Rückgängig</translation>
    </message>
    <message>
        <source>Redo</source>
        <translation>Wiederholen</translation>
    </message>
    <message>
        <source>Nothing has been changed.</source>
        <translation>Nichts wurde geändert.</translation>
    </message>
    <message>
        <source>Nothing has been taken back.</source>
        <translation>Nichts wurde zurückgenommen.</translation>
    </message>
    <message>
        <source>Show in folder</source>
        <translation>Im Ordner zeigen</translation>
    </message>
    <message>
        <source>No program shows the folder:</source>
        <translation>Kein Programm zeigt den Ordner:</translation>
    </message>
    <message>
        <source>Delete file</source>
        <translation>Datei löschen</translation>
    </message>
    <message numerus="yes">
        <source>Move %n file(s) to the waste bin? The rows stay in the logbook.</source>
        <translation>
            <numerusform>%n Datei in den Papierkorb verschieben? Die Zeile bleibt im Logbuch.</numerusform>
            <numerusform>%n Dateien in den Papierkorb verschieben? Die Zeilen bleiben im Logbuch.</numerusform>
        </translation>
    </message>
    <message>
        <source>Move to waste bin</source>
        <translation>In den Papierkorb</translation>
    </message>
    <message numerus="yes">
        <source>%n file(s) could not be moved to the waste bin: being recorded, or there is no bin for the disk.</source>
        <translation>
            <numerusform>%n Datei ließ sich nicht in den Papierkorb verschieben: sie wird aufgezeichnet, oder der Datenträger hat keinen.</numerusform>
            <numerusform>%n Dateien ließen sich nicht in den Papierkorb verschieben: sie werden aufgezeichnet, oder der Datenträger hat keinen.</numerusform>
        </translation>
    </message>
    <message>
        <source>Assign to pack</source>
        <translation>Akku zuordnen</translation>
    </message>
    <message numerus="yes">
        <source>Pack of the %n chosen recording(s):</source>
        <translation>
            <numerusform>Akku der %n gewählten Aufzeichnung:</numerusform>
            <numerusform>Akku der %n gewählten Aufzeichnungen:</numerusform>
        </translation>
    </message>
    <message>
        <source>New pack</source>
        <translation>Neuer Akku</translation>
    </message>
    <message>
        <source>Change pack</source>
        <translation>Akku ändern</translation>
    </message>
    <message>
        <source>Merge packs</source>
        <translation>Akkus zusammenlegen</translation>
    </message>
    <message>
        <source>Pack whose recordings become those of %1. It goes then.</source>
        <translation>Akku, dessen Aufzeichnungen zu %1 kommen. Er verschwindet dann.</translation>
    </message>
    <message>
        <source>%1 (2)</source>
        <translation>%1 (2)</translation>
    </message>
    <message>
        <source>Take apart</source>
        <translation>Trennen</translation>
    </message>
    <message numerus="yes">
        <source>%n file(s) moved to the waste bin.</source>
        <translation>
            <numerusform>%n Datei in den Papierkorb verschoben.</numerusform>
            <numerusform>%n Dateien in den Papierkorb verschoben.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%1 of %n file(s) moved to the waste bin</source>
        <translation>
            <numerusform>%1 von %n Datei in den Papierkorb verschoben</numerusform>
            <numerusform>%1 von %n Dateien in den Papierkorb verschoben</numerusform>
        </translation>
    </message>
    <message>
        <source>Open</source>
        <translation>Öffnen</translation>
    </message>
    <message numerus="yes">
        <source>Open %n recording(s), each in a window of its own?</source>
        <translation>
            <numerusform>%n Aufzeichnung in einem eigenen Fenster öffnen?</numerusform>
            <numerusform>%n Aufzeichnungen öffnen, jede in einem eigenen Fenster?</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>LogbookEditor</name>
    <message>
        <source>New pack</source>
        <translation>Neuer Akku</translation>
    </message>
    <message>
        <source>Change pack</source>
        <translation>Akku ändern</translation>
    </message>
    <message>
        <source>Rename pack</source>
        <translation>Akku umbenennen</translation>
    </message>
    <message>
        <source>Remove pack</source>
        <translation>Akku entfernen</translation>
    </message>
    <message>
        <source>Assign to pack</source>
        <translation>Akku zuordnen</translation>
    </message>
    <message>
        <source>Merge packs</source>
        <translation>Akkus zusammenlegen</translation>
    </message>
    <message>
        <source>Take apart</source>
        <translation>Trennen</translation>
    </message>
    <message>
        <source>Change note</source>
        <translation>Notiz ändern</translation>
    </message>
    <message>
        <source>Remove from logbook</source>
        <translation>Aus dem Logbuch entfernen</translation>
    </message>
</context>
<context>
    <name>LogbookFile</name>
    <message>
        <source>The logbook can&apos;t be kept: nothing can be written to %1.</source>
        <translation>Das Logbuch kann nicht geführt werden: In %1 kann nichts geschrieben werden.</translation>
    </message>
    <message>
        <source>The logbook is shown as it is and can&apos;t be kept: %1 can&apos;t be written.</source>
        <translation>Das Logbuch wird gezeigt, wie es ist, und kann nicht geführt werden: %1 kann nicht geschrieben werden.</translation>
    </message>
    <message>
        <source>The logbook can&apos;t be read: %1.</source>
        <translation>Das Logbuch kann nicht gelesen werden: %1.</translation>
    </message>
    <message>
        <source>The logbook was written by a newer version and is only shown.</source>
        <translation>Das Logbuch wurde von einer neueren Version geschrieben und wird nur gezeigt.</translation>
    </message>
    <message>
        <source>The logbook can&apos;t be kept: %1</source>
        <translation>Das Logbuch kann nicht geführt werden: %1</translation>
    </message>
    <message>
        <source>The logbook is damaged: %1</source>
        <translation>Das Logbuch ist beschädigt: %1</translation>
    </message>
    <message>
        <source>The logbook was damaged and is made anew from the recordings. The damaged file is now %1.</source>
        <translation>Das Logbuch war beschädigt und wird aus den Aufzeichnungen neu angelegt. Die beschädigte Datei heißt jetzt %1.</translation>
    </message>
    <message>
        <source>The logbook was damaged. Packs, assignments and notes are those of the copy %2; the recordings are read anew. The damaged file is now %1.</source>
        <translation>Das Logbuch war beschädigt. Akkus, Zuordnungen und Notizen stammen aus der Kopie %2; die Aufzeichnungen werden neu gelesen. Die beschädigte Datei heißt jetzt %1.</translation>
    </message>
    <message>
        <source>The logbook was missing. Packs, assignments and notes are those of the copy %1; the recordings are read anew.</source>
        <translation>Das Logbuch fehlte. Akkus, Zuordnungen und Notizen stammen aus der Kopie %1; die Aufzeichnungen werden neu gelesen.</translation>
    </message>
</context>
<context>
    <name>LogbookHost</name>
    <message>
        <source>pack course</source>
        <translation>Akkuverlauf</translation>
    </message>
    <message>
        <source>Folder of recordings</source>
        <translation>Ordner mit Aufzeichnungen</translation>
    </message>
</context>
<context>
    <name>LogbookParts</name>
    <message>
        <source>Logbook</source>
        <translation>Logbuch</translation>
    </message>
    <message>
        <source>What you have changed in the logbook is lost if the program ends now.</source>
        <translation>Was Sie im Logbuch geändert haben, geht verloren, wenn das Programm jetzt endet.</translation>
    </message>
    <message>
        <source>End all the same</source>
        <translation>Trotzdem beenden</translation>
    </message>
</context>
<context>
    <name>LogbookStatus</name>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>%v of %m files</source>
        <translation>%v von %m Dateien</translation>
    </message>
    <message>
        <source>Files that are read for the logbook</source>
        <translation>Dateien, die für das Logbuch gelesen werden</translation>
    </message>
    <message>
        <source>Gives up the files that wait. Edit &gt; Read again goes on.</source>
        <translation>Gibt die wartenden Dateien auf. Bearbeiten &gt; Neu lesen macht weiter.</translation>
    </message>
    <message numerus="yes">
        <source>%n recording(s)</source>
        <translation>
            <numerusform>%n Aufzeichnung</numerusform>
            <numerusform>%n Aufzeichnungen</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%1 of %n recording(s)</source>
        <translation>
            <numerusform>%1 von %n Aufzeichnung</numerusform>
            <numerusform>%1 von %n Aufzeichnungen</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n chosen</source>
        <translation>
            <numerusform>%n gewählt</numerusform>
            <numerusform>%n gewählt</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>LogbookWindow</name>
    <message>
        <source>Varnel - logbook</source>
        <translation>Varnel - Logbuch</translation>
    </message>
    <message>
        <source>Packs</source>
        <translation>Akkus</translation>
    </message>
</context>
<context>
    <name>MainWindow</name>
    <message>
        <source>Open file</source>
        <translation>Datei öffnen</translation>
    </message>
    <message>
        <source>Read data from file.</source>
        <translation>Daten aus einer Datei lesen.</translation>
    </message>
    <message>
        <source>Save as</source>
        <translation>Speichern unter</translation>
    </message>
    <message>
        <source>Save data to file.</source>
        <translation>Daten in einer Datei speichern.</translation>
    </message>
    <message>
        <source>Save sesion</source>
        <translation>Sitzung speichern</translation>
    </message>
    <message>
        <source>Save all data as one session</source>
        <translation>Alle Daten als eine Sitzung speichern</translation>
    </message>
    <message>
        <source>Preferences</source>
        <translation>Einstellungen</translation>
    </message>
    <message>
        <source>Aplications preferences.</source>
        <translation>Einstellungen des Programms.</translation>
    </message>
    <message>
        <source>E&amp;xit</source>
        <translation>&amp;Beenden</translation>
    </message>
    <message>
        <source>Exit the application.</source>
        <translation>Das Programm beenden.</translation>
    </message>
    <message>
        <source>Black</source>
        <translation>Schwarz</translation>
    </message>
    <message>
        <source>Background color black.</source>
        <translation>Schwarzer Hintergrund.</translation>
    </message>
    <message>
        <source>White</source>
        <translation>Weiß</translation>
    </message>
    <message>
        <source>Background color white.</source>
        <translation>Weißer Hintergrund.</translation>
    </message>
    <message>
        <source>Cl&amp;ose</source>
        <translation>S&amp;chließen</translation>
    </message>
    <message>
        <source>Close the active window</source>
        <translation>Das aktive Fenster schließen</translation>
    </message>
    <message>
        <source>Close &amp;All</source>
        <translation>&amp;Alle schließen</translation>
    </message>
    <message>
        <source>Close all the windows</source>
        <translation>Alle Fenster schließen</translation>
    </message>
    <message>
        <source>&amp;Tile</source>
        <translation>&amp;Nebeneinander</translation>
    </message>
    <message>
        <source>Tile the windows</source>
        <translation>Die Fenster nebeneinander anordnen</translation>
    </message>
    <message>
        <source>&amp;Cascade</source>
        <translation>Ü&amp;berlappend</translation>
    </message>
    <message>
        <source>Cascade the windows</source>
        <translation>Die Fenster überlappend anordnen</translation>
    </message>
    <message>
        <source>Ne&amp;xt</source>
        <translation>Näch&amp;stes</translation>
    </message>
    <message>
        <source>Move the focus to the next window</source>
        <translation>Zum nächsten Fenster wechseln</translation>
    </message>
    <message>
        <source>Pre&amp;vious</source>
        <translation>&amp;Vorheriges</translation>
    </message>
    <message>
        <source>Move the focus to the previous window</source>
        <translation>Zum vorherigen Fenster wechseln</translation>
    </message>
    <message>
        <source>Recording</source>
        <translation>Aufzeichnung</translation>
    </message>
    <message>
        <source>Recording data from com port.</source>
        <translation>Daten vom COM-Port aufzeichnen.</translation>
    </message>
    <message>
        <source>Capacity comparison</source>
        <translation>Kapazitätsvergleich</translation>
    </message>
    <message>
        <source>Print capacity comparison.</source>
        <translation>Den Kapazitätsvergleich drucken.</translation>
    </message>
    <message>
        <source>Voltage comparison</source>
        <translation>Spannungsvergleich</translation>
    </message>
    <message>
        <source>Print voltage comparison.</source>
        <translation>Den Spannungsvergleich drucken.</translation>
    </message>
    <message>
        <source>Bar display</source>
        <translation>Balkenanzeige</translation>
    </message>
    <message>
        <source>Print bar display.</source>
        <translation>Die Balkenanzeige drucken.</translation>
    </message>
    <message>
        <source>Active plot</source>
        <translation>Aktives Diagramm</translation>
    </message>
    <message>
        <source>Print active plot.</source>
        <translation>Das aktive Diagramm drucken.</translation>
    </message>
    <message>
        <source>&amp;About</source>
        <translation>Ü&amp;ber</translation>
    </message>
    <message>
        <source>Show the application&apos;s About box</source>
        <translation>Angaben über das Programm zeigen</translation>
    </message>
    <message>
        <source>About &amp;Qt</source>
        <translation>Über &amp;Qt</translation>
    </message>
    <message>
        <source>Show the Qt library&apos;s About box</source>
        <translation>Angaben über die Qt-Bibliothek zeigen</translation>
    </message>
    <message>
        <source>Set time</source>
        <translation>Uhr stellen</translation>
    </message>
    <message>
        <source>Set time.</source>
        <translation>Die Uhr des Geräts stellen.</translation>
    </message>
    <message>
        <source> DATA </source>
        <translation> DATEN </translation>
    </message>
    <message>
        <source>Show/hide display</source>
        <translation>Datenanzeige ein/aus</translation>
    </message>
    <message>
        <source>Graph</source>
        <translation>Diagramm</translation>
    </message>
    <message>
        <source>Show/hide graph</source>
        <translation>Spannungsvergleich ein/aus</translation>
    </message>
    <message>
        <source>Bar Graph</source>
        <translation>Balken</translation>
    </message>
    <message>
        <source>Show/hide bar graph</source>
        <translation>Kapazitätsvergleich ein/aus</translation>
    </message>
    <message>
        <source> T </source>
        <translation> T </translation>
    </message>
    <message>
        <source>Show/hide themparature</source>
        <translation>Temperatur ein/aus</translation>
    </message>
    <message>
        <source>  dV </source>
        <translation>  dV </translation>
    </message>
    <message>
        <source>Show/hide dV</source>
        <translation>dV ein/aus</translation>
    </message>
    <message>
        <source> Rw </source>
        <translation> Rw </translation>
    </message>
    <message>
        <source>Show/hide cells internal resistance</source>
        <translation>Innenwiderstand ein/aus</translation>
    </message>
    <message>
        <source> B </source>
        <translation> B </translation>
    </message>
    <message>
        <source>Balancer/Charger plot</source>
        <translation>Balancer- oder Ladegeräte-Ansicht</translation>
    </message>
    <message>
        <source> Avg </source>
        <translation> Ø </translation>
    </message>
    <message>
        <source>Cells/MinMax plot</source>
        <translation>Zellen oder Min/Max</translation>
    </message>
    <message>
        <source> S </source>
        <translation> S </translation>
    </message>
    <message>
        <source>Select cells</source>
        <translation>Zellen auswählen</translation>
    </message>
    <message>
        <source> P% </source>
        <translation> P% </translation>
    </message>
    <message>
        <source>Show/hide power balancer</source>
        <translation>Balkenanzeige der Zellen ein/aus</translation>
    </message>
    <message>
        <source> Vc </source>
        <translation> Vc </translation>
    </message>
    <message>
        <source>Cells energy/voltage/internal cel resistance</source>
        <translation>Ladung, Spannung oder Innenwiderstand der Zellen</translation>
    </message>
    <message>
        <source>Stop process</source>
        <translation>Vorgang stoppen</translation>
    </message>
    <message>
        <source>Stop process.</source>
        <translation>Den Vorgang stoppen.</translation>
    </message>
    <message>
        <source>Hold view</source>
        <translation>Ansicht halten</translation>
    </message>
    <message>
        <source>Graph windows keep zoom and cursor</source>
        <translation>Diagrammfenster behalten Ausschnitt und Cursor</translation>
    </message>
    <message>
        <source>Open recordings...</source>
        <translation>Aufzeichnungen öffnen...</translation>
    </message>
    <message>
        <source>Open what was recorded from the devices, saved or not.</source>
        <translation>Öffnen, was von den Geräten aufgezeichnet wurde, gespeichert oder nicht.</translation>
    </message>
    <message>
        <source>Reopen closed recording</source>
        <translation>Geschlossene Aufzeichnung wieder öffnen</translation>
    </message>
    <message>
        <source>Open again the recording whose window was closed last.</source>
        <translation>Die Aufzeichnung wieder öffnen, deren Fenster zuletzt geschlossen wurde.</translation>
    </message>
    <message>
        <source>Export as CSV...</source>
        <translation>Als CSV exportieren...</translation>
    </message>
    <message>
        <source>Write the records of the current graph as a table for other programs.</source>
        <translation>Die Datensätze des aktuellen Diagramms als Tabelle für andere Programme schreiben.</translation>
    </message>
    <message>
        <source>Save picture...</source>
        <translation>Bild speichern...</translation>
    </message>
    <message>
        <source>Write the current graph as its window shows it to a picture file.</source>
        <translation>Das aktuelle Diagramm, wie sein Fenster es zeigt, als Bild schreiben.</translation>
    </message>
    <message>
        <source>Remote control...</source>
        <translation>Fernbedienung...</translation>
    </message>
    <message>
        <source>Operate the front panel of the charger.</source>
        <translation>Das Bedienfeld des Ladegeräts vom Rechner aus bedienen.</translation>
    </message>
    <message>
        <source>Varnel Graph %1</source>
        <translation>Varnel Graph %1</translation>
    </message>
    <message>
        <source>&amp;File</source>
        <translation>&amp;Datei</translation>
    </message>
    <message>
        <source>&amp;Window</source>
        <translation>&amp;Fenster</translation>
    </message>
    <message>
        <source>&amp;Print</source>
        <translation>D&amp;rucken</translation>
    </message>
    <message>
        <source>&amp;Tools</source>
        <translation>&amp;Extras</translation>
    </message>
    <message>
        <source>&amp;View switches</source>
        <translation>&amp;Ansicht</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <translation>&amp;Hilfe</translation>
    </message>
    <message>
        <source>Ready</source>
        <translation>Bereit</translation>
    </message>
    <message>
        <source>There is no graph window to print.</source>
        <translation>Es gibt kein Diagrammfenster zum Drucken.</translation>
    </message>
    <message>
        <source>Start listening on ports...</source>
        <translation>Ports werden geöffnet...</translation>
    </message>
    <message>
        <source>Background color</source>
        <translation>Hintergrundfarbe</translation>
    </message>
    <message>
        <source>Main Tool Bar</source>
        <translation>Hauptleiste</translation>
    </message>
    <message>
        <source>Distinct lines</source>
        <translation>Unterscheidbare Linien</translation>
    </message>
    <message>
        <source>Lines differ in dashes and lightness, not in hue alone; bars carry letters</source>
        <translation>Linien unterscheiden sich durch Strichelung und Helligkeit, nicht nur durch Farbe; Balken tragen Buchstaben</translation>
    </message>
    <message>
        <source>User guide</source>
        <translation>Handbuch</translation>
    </message>
    <message>
        <source>Open the manual in your browser.</source>
        <translation>Das Handbuch im Browser öffnen.</translation>
    </message>
    <message>
        <source>Explanations...</source>
        <translation>Erklärungen...</translation>
    </message>
    <message>
        <source>Tells what the status bar and the title of the current graph show.</source>
        <translation>Erklärt, was Statusleiste und Titel des aktuellen Diagramms zeigen.</translation>
    </message>
    <message>
        <source>The large data display</source>
        <translation>Große Datenanzeige</translation>
    </message>
    <message>
        <source>Voltage comparison: cell voltages of several windows side by side</source>
        <translation>Spannungsvergleich: Zellenspannungen mehrerer Fenster nebeneinander</translation>
    </message>
    <message>
        <source>Capacity comparison of the recordings</source>
        <translation>Kapazitätsvergleich der Aufzeichnungen</translation>
    </message>
    <message>
        <source>Curve of the temperature</source>
        <translation>Kurve der Temperatur</translation>
    </message>
    <message>
        <source>dV, energy or neither on the right axis</source>
        <translation>dV, Ladung oder keines davon an der rechten Achse</translation>
    </message>
    <message>
        <source>Curve of the internal resistance</source>
        <translation>Kurve des Innenwiderstands</translation>
    </message>
    <message>
        <source>Balancer view: the cells instead of the pack; in the data display their statistics</source>
        <translation>Balancer-Ansicht: die Zellen statt des Akkus; in der Datenanzeige ihre Statistik</translation>
    </message>
    <message>
        <source>Maximum, average, minimum and spread instead of the cells</source>
        <translation>Maximum, Mittel, Minimum und Differenz statt der Zellen</translation>
    </message>
    <message>
        <source>All cells, selected ones emphasised; + only the selected ones; - all but them</source>
        <translation>Alle Zellen, gewählte hervorgehoben; + nur die gewählten; - alle anderen</translation>
    </message>
    <message>
        <source>Bar display: bars of the cells&apos; deviations</source>
        <translation>Balkenanzeige: Abweichungen der Zellen</translation>
    </message>
    <message>
        <source>The figure of each cell: voltage, charge (Ah) or resistance (Ri)</source>
        <translation>Wert jeder Zelle: Spannung, Ladung (Ah) oder Widerstand (Ri)</translation>
    </message>
    <message>
        <source>Graph window</source>
        <translation>Diagrammfenster</translation>
    </message>
    <message>
        <source>Overlay...</source>
        <translation>Übereinanderlegen...</translation>
    </message>
    <message>
        <source>Lay the curves of recordings over each other.</source>
        <translation>Die Kurven von Aufzeichnungen übereinanderlegen.</translation>
    </message>
    <message>
        <source>Logbook</source>
        <translation>Logbuch</translation>
    </message>
    <message>
        <source>What every pack has been through: its recordings, and how it fares.</source>
        <translation>Was jeder Akku erlebt hat: seine Aufzeichnungen und wie es ihm geht.</translation>
    </message>
</context>
<context>
    <name>MdiGraphChild</name>
    <message>
        <source>Out of memory since %1: lines go on in the journal only</source>
        <translation>Kein Speicher seit %1: Zeilen gehen nur noch ins Journal</translation>
    </message>
    <message>
        <source>Ended or silent since %1</source>
        <translation>Beendet oder stumm seit %1</translation>
    </message>
    <message>
        <source>No line since %1</source>
        <translation>Keine Daten seit %1</translation>
    </message>
    <message>
        <source>No file name</source>
        <translation>Ohne Dateinamen</translation>
    </message>
    <message>
        <source>Device: </source>
        <translation>Gerät: </translation>
    </message>
    <message>
        <source>View held</source>
        <translation>Ansicht gehalten</translation>
    </message>
    <message>
        <source>NO DATA</source>
        <translation>KEINE DATEN</translation>
    </message>
    <message>
        <source>   Cels:</source>
        <translation>   Zellen:</translation>
    </message>
    <message>
        <source>Graph %1</source>
        <translation>Diagramm %1</translation>
    </message>
    <message>
        <source>no data</source>
        <translation>keine Daten</translation>
    </message>
    <message>
        <source>%1 volts</source>
        <translation>%1 Volt</translation>
    </message>
</context>
<context>
    <name>NoteDialog</name>
    <message>
        <source>Note</source>
        <translation>Notiz</translation>
    </message>
    <message>
        <source>Your own words on the chosen recordings; the filter finds them.</source>
        <translation>Eigene Worte zur Aufzeichnung; der Filter findet sie.</translation>
    </message>
    <message>
        <source>Keeps the note. It can be undone.</source>
        <translation>Behält die Notiz. Es lässt sich rückgängig machen.</translation>
    </message>
    <message>
        <source>Changes nothing.</source>
        <translation>Ändert nichts.</translation>
    </message>
</context>
<context>
    <name>Overlay</name>
    <message>
        <source>Pack voltage</source>
        <translation>Packspannung</translation>
    </message>
    <message>
        <source>V</source>
        <translation>V</translation>
    </message>
    <message>
        <source>Mean cell</source>
        <translation>Mittlere Zelle</translation>
    </message>
    <message>
        <source>Highest cell</source>
        <translation>Höchste Zelle</translation>
    </message>
    <message>
        <source>Lowest cell</source>
        <translation>Niedrigste Zelle</translation>
    </message>
    <message>
        <source>Spread of the cells</source>
        <translation>Differenz der Zellen</translation>
    </message>
    <message>
        <source>mV</source>
        <translation>mV</translation>
    </message>
    <message>
        <source>Current</source>
        <translation>Strom</translation>
    </message>
    <message>
        <source>A</source>
        <translation>A</translation>
    </message>
    <message>
        <source>Temperature</source>
        <translation>Temperatur</translation>
    </message>
    <message>
        <source>Resistance</source>
        <translation>Widerstand</translation>
    </message>
    <message>
        <source>mΩ</source>
        <translation>mΩ</translation>
    </message>
    <message>
        <source>from %1 to the end</source>
        <translation>von %1 bis zum Ende</translation>
    </message>
    <message>
        <source>No recording is shown: add files, or take the open graph windows.</source>
        <translation>Keine Aufzeichnung wird gezeigt: Dateien hinzufügen oder die offenen Diagrammfenster nehmen.</translation>
    </message>
    <message>
        <source>None of these recordings has such values.</source>
        <translation>Keine dieser Aufzeichnungen hat solche Werte.</translation>
    </message>
    <message>
        <source>Time</source>
        <translation>Zeit</translation>
    </message>
    <message>
        <source>Charge</source>
        <translation>Ladung</translation>
    </message>
    <message>
        <source> mAh</source>
        <translation> mAh</translation>
    </message>
</context>
<context>
    <name>OverlayCommands</name>
    <message>
        <source>not enough memory</source>
        <translation>zu wenig Speicher</translation>
    </message>
    <message>
        <source>no records</source>
        <translation>keine Messwerte</translation>
    </message>
    <message>
        <source>Overlay</source>
        <translation>Übereinander</translation>
    </message>
    <message>
        <source>No more than %1 recordings are shown.</source>
        <translation>Mehr als %1 Aufzeichnungen werden nicht gezeigt.</translation>
    </message>
</context>
<context>
    <name>OverlayPlot</name>
    <message>
        <source>A click picks the recording. Control and drag, or Alt with Left and Right, move its curve.</source>
        <translation>Ein Klick wählt die Aufzeichnung. Ziehen mit Strg oder Alt mit Links und Rechts verschiebt ihre Kurve.</translation>
    </message>
</context>
<context>
    <name>OverlayWindow</name>
    <message>
        <source>&amp;Line up at the start of current</source>
        <translation>Am &amp;Beginn des Stroms ausrichten</translation>
    </message>
    <message>
        <source>Varnel - overlay</source>
        <translation>Varnel - Kurven übereinander</translation>
    </message>
    <message>
        <source> s</source>
        <translation> s</translation>
    </message>
    <message>
        <source>Value</source>
        <translation>Wert</translation>
    </message>
    <message>
        <source>What the recordings are compared by</source>
        <translation>Worin die Aufzeichnungen verglichen werden</translation>
    </message>
    <message>
        <source>Over</source>
        <translation>Über</translation>
    </message>
    <message>
        <source>Time since the start, or the charge that has flowed</source>
        <translation>Die Zeit seit dem Beginn oder die geflossene Ladung</translation>
    </message>
    <message>
        <source>Each recording begins where its current does, not where it was begun</source>
        <translation>Jede Aufzeichnung beginnt, wo ihr Strom beginnt, nicht wo sie begonnen wurde</translation>
    </message>
    <message>
        <source>Shift</source>
        <translation>Verschiebung</translation>
    </message>
    <message>
        <source>Moves the recording that is picked in the legend. With the mouse: Control and drag its curve.</source>
        <translation>Verschiebt die Aufzeichnung, die in der Legende gewählt ist. Mit der Maus: ihre Kurve mit Strg ziehen.</translation>
    </message>
    <message>
        <source>&amp;Value:</source>
        <translation>&amp;Wert:</translation>
    </message>
    <message>
        <source>&amp;Over:</source>
        <translation>&amp;Über:</translation>
    </message>
    <message>
        <source>&amp;Shift:</source>
        <translation>&amp;Verschiebung:</translation>
    </message>
    <message>
        <source>Add &amp;files...</source>
        <translation>&amp;Dateien hinzufügen...</translation>
    </message>
    <message>
        <source>Reads recordings and lays them over those that are shown</source>
        <translation>Liest Aufzeichnungen und legt sie über die gezeigten</translation>
    </message>
    <message>
        <source>Open &amp;windows</source>
        <translation>&amp;Offene Fenster</translation>
    </message>
    <message>
        <source>Shows the open graph windows as they are now</source>
        <translation>Zeigt die offenen Diagrammfenster, wie sie jetzt sind</translation>
    </message>
    <message>
        <source>&amp;Remove</source>
        <translation>&amp;Entfernen</translation>
    </message>
    <message>
        <source>Takes the picked recording away, or all of them if none is picked. Key: Delete</source>
        <translation>Nimmt die gewählte Aufzeichnung weg, ohne Wahl alle. Taste: Entf</translation>
    </message>
    <message>
        <source>Save &amp;picture...</source>
        <translation>B&amp;ild speichern...</translation>
    </message>
    <message>
        <source>Writes what is shown to a picture file</source>
        <translation>Schreibt das Gezeigte als Bild</translation>
    </message>
    <message>
        <source>Pr&amp;int...</source>
        <translation>Dr&amp;ucken...</translation>
    </message>
    <message>
        <source>Prints what is shown</source>
        <translation>Druckt das Gezeigte</translation>
    </message>
</context>
<context>
    <name>PackChoice</name>
    <message>
        <source>New pack...</source>
        <translation>Neuer Akku...</translation>
    </message>
    <message>
        <source>Takes the chosen pack. It can be undone.</source>
        <translation>Nimmt den gewählten Akku. Es lässt sich rückgängig machen.</translation>
    </message>
    <message>
        <source>Changes nothing.</source>
        <translation>Ändert nichts.</translation>
    </message>
</context>
<context>
    <name>PackCourse</name>
    <message>
        <source>No recording of this pack tells it.</source>
        <translation>Keine Aufzeichnung dieses Akkus sagt es.</translation>
    </message>
    <message>
        <source>nominal</source>
        <translation>Nennwert</translation>
    </message>
    <message>
        <source>Assign recordings to packs to see how these fare: choose rows, then Recordings &gt; Assign to pack.</source>
        <translation>Ordnen Sie Aufzeichnungen Akkus zu, um zu sehen, wie es diesen geht: Zeilen wählen, dann Aufzeichnungen &gt; Akku zuordnen.</translation>
    </message>
    <message>
        <source>worn out below 80 %</source>
        <translation>verbraucht unter 80 %</translation>
    </message>
    <message>
        <source>No recordings yet. They come from your devices, from files that you open, and from the folders of Edit &gt; Folders.</source>
        <translation>Noch keine Aufzeichnungen. Sie kommen von Ihren Geräten, von Dateien, die Sie öffnen, und aus den Ordnern unter Bearbeiten &gt; Ordner.</translation>
    </message>
    <message>
        <source>Tell the nominal capacity of the packs to see how they fare: choose one, then Packs &gt; Rename or change pack.</source>
        <translation>Geben Sie die Nennkapazität der Akkus an, um zu sehen, wie es ihnen geht: Akku wählen, dann Akkus &gt; Akku umbenennen oder ändern.</translation>
    </message>
    <message>
        <source>No recording of the packs tells it.</source>
        <translation>Keine Aufzeichnung der Akkus gibt darüber Auskunft.</translation>
    </message>
</context>
<context>
    <name>PackDialog</name>
    <message>
        <source>Keeps what stands here. It can be undone.</source>
        <translation>Behält, was hier steht. Es lässt sich rückgängig machen.</translation>
    </message>
    <message>
        <source>Changes nothing.</source>
        <translation>Ändert nichts.</translation>
    </message>
    <message>
        <source>What the pack is called; write it on the pack, too.</source>
        <translation>Wie der Akku heißt; schreiben Sie es auch darauf.</translation>
    </message>
    <message>
        <source>Kind of the cells</source>
        <translation>Art der Zellen</translation>
    </message>
    <message>
        <source>not said</source>
        <translation>keine Angabe</translation>
    </message>
    <message>
        <source>Number of cells in series</source>
        <translation>Zahl der Zellen in Reihe</translation>
    </message>
    <message>
        <source>As printed on the pack: the state of health is reckoned from it.</source>
        <translation>Wie auf dem Akku gedruckt: daraus ergibt sich der Gesundheitszustand.</translation>
    </message>
    <message>
        <source>Your own words: maker, bought when, used for what</source>
        <translation>Eigene Worte: Hersteller, wann gekauft, wofür</translation>
    </message>
    <message>
        <source>Name:</source>
        <translation>Name:</translation>
    </message>
    <message>
        <source>Chemistry:</source>
        <translation>Chemie:</translation>
    </message>
    <message>
        <source>Cells:</source>
        <translation>Zellen:</translation>
    </message>
    <message>
        <source>Nominal capacity:</source>
        <translation>Nennkapazität:</translation>
    </message>
    <message>
        <source>Note:</source>
        <translation>Notiz:</translation>
    </message>
</context>
<context>
    <name>PackList</name>
    <message>
        <source>%1 mAh nominal</source>
        <translation>%1 mAh Nennkapazität</translation>
    </message>
    <message>
        <source>Give the nominal capacity to see the state of health.</source>
        <translation>Geben Sie die Nennkapazität an, um den Gesundheitszustand zu sehen.</translation>
    </message>
    <message>
        <source>All recordings</source>
        <translation>Alle Aufzeichnungen</translation>
    </message>
    <message>
        <source>Every recording, of whichever pack</source>
        <translation>Jede Aufzeichnung, von welchem Akku auch immer</translation>
    </message>
    <message>
        <source>Not assigned</source>
        <translation>Nicht zugeordnet</translation>
    </message>
    <message>
        <source>Recordings without a pack</source>
        <translation>Aufzeichnungen ohne Akku</translation>
    </message>
    <message>
        <source>Worn out: below 80 % of its nominal capacity.</source>
        <translation>Verbraucht: unter 80 % der Nennkapazität.</translation>
    </message>
    <message>
        <source>Cell %1 is weak: %2 mV between the highest and the lowest when the pack is empty.</source>
        <translation>Zelle %1 ist schwach: %2 mV zwischen höchster und niedrigster bei leerem Akku.</translation>
    </message>
    <message>
        <source>worn out</source>
        <translation>verbraucht</translation>
    </message>
    <message>
        <source>Pack</source>
        <translation>Akku</translation>
    </message>
    <message>
        <source>Health</source>
        <translation>Zustand</translation>
    </message>
    <message>
        <source>Per year</source>
        <translation>Pro Jahr</translation>
    </message>
    <message>
        <source>Cycles</source>
        <translation>Zyklen</translation>
    </message>
    <message>
        <source>Newest</source>
        <translation>Letzte</translation>
    </message>
    <message>
        <source>Name of the battery pack</source>
        <translation>Name des Akkus</translation>
    </message>
    <message>
        <source>State of health: what the newest full discharge gave, of the nominal capacity</source>
        <translation>Gesundheitszustand: was die letzte volle Entladung ergab, von der Nennkapazität</translation>
    </message>
    <message>
        <source>By how much the state of health changes in a year</source>
        <translation>Um wie viel sich der Gesundheitszustand in einem Jahr ändert</translation>
    </message>
    <message>
        <source>Charges, or discharges where there are more of these</source>
        <translation>Ladungen, oder Entladungen, wo es davon mehr gibt</translation>
    </message>
    <message>
        <source>Start of the newest recording</source>
        <translation>Beginn der letzten Aufzeichnung</translation>
    </message>
    <message>
        <source>weak cell</source>
        <translation>schwache Zelle</translation>
    </message>
</context>
<context>
    <name>PortObstacle</name>
    <message>
        <source>&quot;%1&quot;, process %2</source>
        <translation>„%1“, Prozess %2</translation>
    </message>
    <message>
        <source>Another program holds the port.</source>
        <translation>Ein anderes Programm belegt den Port.</translation>
    </message>
    <message>
        <source>Another program holds the port: %1.</source>
        <translation>Ein anderes Programm belegt den Port: %1.</translation>
    </message>
    <message>
        <source>Another program holds the port: %1 of the user &quot;%2&quot;.</source>
        <translation>Ein anderes Programm belegt den Port: %1 des Benutzers „%2“.</translation>
    </message>
    <message>
        <source>You have no right to use the port.</source>
        <translation>Sie haben kein Recht, den Port zu benutzen.</translation>
    </message>
    <message>
        <source>You have no right to use the port. Join the group &quot;%1&quot; and log in again.</source>
        <translation>Sie haben kein Recht, den Port zu benutzen. Treten Sie der Gruppe „%1“ bei und melden Sie sich neu an.</translation>
    </message>
    <message>
        <source>This program listens on the port already.</source>
        <translation>Dieses Programm empfängt bereits an dem Port.</translation>
    </message>
    <message>
        <source>This program listens on the same device already, under another name: %1.</source>
        <translation>Dieses Programm empfängt bereits von demselben Gerät, unter anderem Namen: %1.</translation>
    </message>
    <message>
        <source>A program that has ended has left its lock behind.</source>
        <translation>Ein beendetes Programm hat seine Sperre hinterlassen.</translation>
    </message>
    <message>
        <source>A program that has ended has left its lock behind: %1.</source>
        <translation>Ein beendetes Programm hat seine Sperre hinterlassen: %1.</translation>
    </message>
    <message>
        <source>The user &quot;%1&quot; or an administrator has to remove the file %2.</source>
        <translation>Der Benutzer „%1“ oder ein Administrator muss die Datei %2 entfernen.</translation>
    </message>
    <message>
        <source>a socket</source>
        <translation>ein Socket</translation>
    </message>
    <message>
        <source>a link</source>
        <translation>eine Verknüpfung</translation>
    </message>
    <message>
        <source>a folder</source>
        <translation>ein Ordner</translation>
    </message>
    <message>
        <source>a device</source>
        <translation>ein Gerät</translation>
    </message>
    <message>
        <source>a pipe</source>
        <translation>eine Pipe</translation>
    </message>
    <message>
        <source>%1 should be the port&apos;s lock file and is %2.
The user &quot;%3&quot; or an administrator has to remove it.</source>
        <translation>%1 sollte die Sperrdatei des Ports sein und ist %2.
Der Benutzer „%3“ oder ein Administrator muss das entfernen.</translation>
    </message>
    <message>
        <source>You have no right to make lock files in %1.</source>
        <translation>Sie haben kein Recht, Sperrdateien in %1 anzulegen.</translation>
    </message>
</context>
<context>
    <name>PortQuestions</name>
    <message>
        <source>Question</source>
        <translation>Frage</translation>
    </message>
</context>
<context>
    <name>PowerDisplay</name>
    <message>
        <source>NO DATA</source>
        <translation>KEINE DATEN</translation>
    </message>
    <message>
        <source>Varnel - bar display</source>
        <translation>Varnel - Balkenanzeige</translation>
    </message>
    <message>
        <source>No line since %1</source>
        <translation>Keine Daten seit %1</translation>
    </message>
    <message>
        <source>window %1</source>
        <translation>Fenster %1</translation>
    </message>
    <message>
        <source>cell %1: %2, balancing %3 %</source>
        <translation>Zelle %1: %2, Balancieren %3 %</translation>
    </message>
</context>
<context>
    <name>PrintRequest</name>
    <message>
        <source>Sent to %1.</source>
        <translation>An %1 gesendet.</translation>
    </message>
    <message>
        <source>%1 written.</source>
        <translation>%1 geschrieben.</translation>
    </message>
    <message>
        <source>Can not print to %1</source>
        <translation>Auf %1 kann nicht gedruckt werden</translation>
    </message>
</context>
<context>
    <name>ProcessEnd</name>
    <message>
        <source>Error in process !</source>
        <translation>Fehler im Vorgang!</translation>
    </message>
    <message>
        <source>Error</source>
        <translation>Fehler</translation>
    </message>
    <message>
        <source>Process aborted by user.</source>
        <translation>Vorgang vom Benutzer abgebrochen.</translation>
    </message>
    <message>
        <source>Aborted</source>
        <translation>Abgebrochen</translation>
    </message>
    <message>
        <source>Process completed.</source>
        <translation>Vorgang abgeschlossen.</translation>
    </message>
    <message>
        <source>End</source>
        <translation>Ende</translation>
    </message>
</context>
<context>
    <name>ProgressStrip</name>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
</context>
<context>
    <name>QCommandLineParser</name>
    <message>
        <source>Displays help on commandline options.</source>
        <translation>Zeigt Hilfe zu den Kommandozeilenoptionen an.</translation>
    </message>
    <message>
        <source>Displays help including Qt specific options.</source>
        <translation>Zeigt Hilfe einschließlich Qt-spezifischer Optionen an.</translation>
    </message>
</context>
<context>
    <name>QFileDialog</name>
    <message>
        <source>%1
Directory not found.
Please verify the correct directory name was given.</source>
        <translation>%1
Der Ordner wurde nicht gefunden.
Prüfen Sie, ob der Name stimmt.</translation>
    </message>
</context>
<context>
    <name>QPrintDialog</name>
    <message>
        <source>Invalid Pages Definition</source>
        <translation>Ungültige Seitendefinition</translation>
    </message>
</context>
<context>
    <name>QPrintPropertiesWidget</name>
    <message>
        <source>Advanced</source>
        <translation>Erweitert</translation>
    </message>
</context>
<context>
    <name>QPrintSettingsOutput</name>
    <message>
        <source>Double Sided Printing</source>
        <translation>Beidseitiger Druck</translation>
    </message>
    <message>
        <source>Off</source>
        <translation>Aus</translation>
    </message>
    <message>
        <source>Long side binding</source>
        <translation>Lange Seite</translation>
    </message>
    <message>
        <source>Short side binding</source>
        <translation>Kurze Seite</translation>
    </message>
    <message>
        <source>Pages</source>
        <translation>Seiten</translation>
    </message>
</context>
<context>
    <name>RecordingColumns</name>
    <message>
        <source>%1 (gone)</source>
        <translation>%1 (fort)</translation>
    </message>
    <message>
        <source>Start</source>
        <translation>Beginn</translation>
    </message>
    <message>
        <source>When the process began; ≈ from the time of the file</source>
        <translation>Wann der Vorgang begann; ≈ aus der Zeit der Datei</translation>
    </message>
    <message>
        <source>Pack</source>
        <translation>Akku</translation>
    </message>
    <message>
        <source>The battery pack; grey with ?: the one to be offered</source>
        <translation>Der Akku; grau mit ?: der angebotene</translation>
    </message>
    <message>
        <source>Device</source>
        <translation>Gerät</translation>
    </message>
    <message>
        <source>The charger that sent the records</source>
        <translation>Das Ladegerät, das die Datensätze sandte</translation>
    </message>
    <message>
        <source>Port</source>
        <translation>Port</translation>
    </message>
    <message>
        <source>The serial port, from the name of the file</source>
        <translation>Der serielle Port, aus dem Namen der Datei</translation>
    </message>
    <message>
        <source>Process</source>
        <translation>Vorgang</translation>
    </message>
    <message>
        <source>Charge, discharge, balancing, format or test</source>
        <translation>Laden, Entladen, Balancieren, Formieren oder Test</translation>
    </message>
    <message>
        <source>Chemistry</source>
        <translation>Chemie</translation>
    </message>
    <message>
        <source>Kind of the cells</source>
        <translation>Art der Zellen</translation>
    </message>
    <message>
        <source>Cells</source>
        <translation>Zellen</translation>
    </message>
    <message>
        <source>Number of cells in series</source>
        <translation>Zahl der Zellen in Reihe</translation>
    </message>
    <message>
        <source>Duration</source>
        <translation>Dauer</translation>
    </message>
    <message>
        <source>Hours, minutes and seconds to the end of the process</source>
        <translation>Stunden, Minuten und Sekunden bis zum Ende des Vorgangs</translation>
    </message>
    <message>
        <source>Charge [mAh]</source>
        <translation>Ladung [mAh]</translation>
    </message>
    <message>
        <source>What went in or came out, as in the capacity comparison</source>
        <translation>Was hinein- oder herausging, wie im Kapazitätsvergleich</translation>
    </message>
    <message>
        <source>Energy [Wh]</source>
        <translation>Energie [Wh]</translation>
    </message>
    <message>
        <source>Voltage times current, over the time</source>
        <translation>Spannung mal Strom, über die Zeit</translation>
    </message>
    <message>
        <source>Start [V]</source>
        <translation>Beginn [V]</translation>
    </message>
    <message>
        <source>Voltage of the pack at the start</source>
        <translation>Spannung des Akkus zu Beginn</translation>
    </message>
    <message>
        <source>End [V]</source>
        <translation>Ende [V]</translation>
    </message>
    <message>
        <source>Voltage of the pack at the end</source>
        <translation>Spannung des Akkus am Ende</translation>
    </message>
    <message>
        <source>Max. [°C]</source>
        <translation>Max. [°C]</translation>
    </message>
    <message>
        <source>Highest temperature</source>
        <translation>Höchste Temperatur</translation>
    </message>
    <message>
        <source>Resistance [mΩ]</source>
        <translation>Widerstand [mΩ]</translation>
    </message>
    <message>
        <source>Internal resistance of the pack</source>
        <translation>Innenwiderstand des Akkus</translation>
    </message>
    <message>
        <source>Cells [mΩ]</source>
        <translation>Zellen [mΩ]</translation>
    </message>
    <message>
        <source>Internal resistance of each cell, from the first on</source>
        <translation>Innenwiderstand jeder Zelle, von der ersten an</translation>
    </message>
    <message>
        <source>Spread [mV]</source>
        <translation>Streuung [mV]</translation>
    </message>
    <message>
        <source>Highest cell less the lowest, at the end</source>
        <translation>Höchste Zelle weniger niedrigste, am Ende</translation>
    </message>
    <message>
        <source>Ended</source>
        <translation>Geendet</translation>
    </message>
    <message>
        <source>How the process ended</source>
        <translation>Wie der Vorgang endete</translation>
    </message>
    <message>
        <source>Note</source>
        <translation>Notiz</translation>
    </message>
    <message>
        <source>Your own words</source>
        <translation>Eigene Worte</translation>
    </message>
    <message>
        <source>File</source>
        <translation>Datei</translation>
    </message>
    <message>
        <source>Where the records are kept</source>
        <translation>Wo die Datensätze liegen</translation>
    </message>
</context>
<context>
    <name>RecordingView</name>
    <message>
        <source>Recordings</source>
        <translation>Aufzeichnungen</translation>
    </message>
</context>
<context>
    <name>RecordingsModel</name>
    <message>
        <source>Length</source>
        <translation>Dauer</translation>
    </message>
</context>
<context>
    <name>RemoteControls</name>
    <message>
        <source>No port is listened on: choose one in the preferences.</source>
        <translation>An keinem Port wird empfangen: wählen Sie einen in den Einstellungen.</translation>
    </message>
    <message>
        <source>Operate the front panel of the charger.</source>
        <translation>Das Bedienfeld des Ladegeräts vom Rechner aus bedienen.</translation>
    </message>
    <message>
        <source>Remote control</source>
        <translation>Fernbedienung</translation>
    </message>
    <message>
        <source>Remote control...</source>
        <translation>Fernbedienung...</translation>
    </message>
    <message>
        <source>%1 (current window)...</source>
        <translation>%1 (aktuelles Fenster)...</translation>
    </message>
    <message>
        <source>%1...</source>
        <translation>%1...</translation>
    </message>
</context>
<context>
    <name>SaveDialog</name>
    <message>
        <source>Windows has no files of this name. Choose another one.</source>
        <translation>Unter diesem Namen gibt es in Windows keine Dateien. Wählen Sie einen anderen.</translation>
    </message>
</context>
<context>
    <name>SerialReader</name>
    <message>
        <source>It can&apos;t be locked</source>
        <translation>Er kann nicht gesperrt werden</translation>
    </message>
    <message>
        <source>Device %1 failed to open: %2</source>
        <translation>Gerät %1 konnte nicht geöffnet werden: %2</translation>
    </message>
</context>
<context>
    <name>SettingsKeeper</name>
    <message>
        <source>its folder is protected against writing</source>
        <translation>ihr Ordner ist schreibgeschützt</translation>
    </message>
    <message>
        <source>another program holds it</source>
        <translation>ein anderes Programm belegt sie</translation>
    </message>
    <message>
        <source>the disk is full or reports an error</source>
        <translation>der Datenträger ist voll oder meldet einen Fehler</translation>
    </message>
</context>
<context>
    <name>SettingsNotice</name>
    <message>
        <source>Settings</source>
        <translation>Einstellungen</translation>
    </message>
    <message>
        <source>Not all of your settings could be read. What is missing is as in a new installation.</source>
        <translation>Nicht alle Ihre Einstellungen konnten gelesen werden. Was fehlt, ist wie nach einer neuen Installation.</translation>
    </message>
    <message>
        <source>Your settings can&apos;t be written. What you change holds until the program ends.</source>
        <translation>Ihre Einstellungen können nicht geschrieben werden. Änderungen gelten, bis das Programm endet.</translation>
    </message>
</context>
<context>
    <name>SleepInhibitor</name>
    <message>
        <source>A process is being recorded</source>
        <translation>Ein Vorgang wird aufgezeichnet</translation>
    </message>
</context>
<context>
    <name>StaleWatch</name>
    <message>
        <source>%1: no line since %2</source>
        <translation>%1: keine Daten seit %2</translation>
    </message>
</context>
<context>
    <name>StatusFacts</name>
    <message>
        <source>The process has ended and its message is gone. It is named here until you look at its window.</source>
        <translation>Der Vorgang ist zu Ende und seine Meldung weg. Er steht hier, bis Sie sein Fenster ansehen.</translation>
    </message>
    <message>
        <source>Lost: %1</source>
        <translation>Getrennt: %1</translation>
    </message>
    <message>
        <source>The device or its adapter went away. Listening goes on when it is back.</source>
        <translation>Das Gerät oder sein Adapter ist weg. Der Empfang geht weiter, wenn es wieder da ist.</translation>
    </message>
    <message>
        <source>Can&apos;t open: %1</source>
        <translation>Nicht zu öffnen: %1</translation>
    </message>
    <message>
        <source>These ports could not be opened.</source>
        <translation>Diese Ports konnten nicht geöffnet werden.</translation>
    </message>
    <message>
        <source>Paused: %1</source>
        <translation>Angehalten: %1</translation>
    </message>
    <message>
        <source>Recording is paused: what the device sends is lost. Press Recording to go on.</source>
        <translation>Die Aufzeichnung ist angehalten: was das Gerät sendet, geht verloren. Drücken Sie Aufzeichnung, um fortzufahren.</translation>
    </message>
    <message>
        <source>No data: %1</source>
        <translation>Keine Daten: %1</translation>
    </message>
    <message>
        <source>The device has sent no line for a while.</source>
        <translation>Das Gerät hat eine Weile nichts gesendet.</translation>
    </message>
    <message>
        <source>Window closed: %1</source>
        <translation>Fenster geschlossen: %1</translation>
    </message>
    <message>
        <source>The graph window was closed. A window opens again with the next process.</source>
        <translation>Das Diagrammfenster wurde geschlossen. Mit dem nächsten Vorgang öffnet sich wieder eines.</translation>
    </message>
    <message>
        <source>Not on disk: %1</source>
        <translation>Nicht gesichert: %1</translation>
    </message>
    <message>
        <source>The journal&apos;s disk takes no more. Lines wait in memory and are written as soon as it does.</source>
        <translation>Der Datenträger des Journals nimmt nichts mehr an. Zeilen warten im Speicher und werden geschrieben, sobald er es tut.</translation>
    </message>
    <message>
        <source>Error: %1</source>
        <translation>Fehler: %1</translation>
    </message>
    <message>
        <source>Aborted: %1</source>
        <translation>Abgebrochen: %1</translation>
    </message>
    <message>
        <source>Completed: %1</source>
        <translation>Abgeschlossen: %1</translation>
    </message>
    <message>
        <source>Listening: %1</source>
        <translation>Empfang: %1</translation>
    </message>
    <message>
        <source>The ports are chosen in File &gt; Preferences.</source>
        <translation>Die Ports werden unter Datei &gt; Einstellungen gewählt.</translation>
    </message>
    <message>
        <source>Listening: no port</source>
        <translation>Empfang: kein Port</translation>
    </message>
</context>
<context>
    <name>ToolsCommands</name>
    <message>
        <source>There is no graph window.</source>
        <translation>Es gibt kein Diagrammfenster.</translation>
    </message>
    <message>
        <source>No window of an unsaved recording has been closed yet.</source>
        <translation>Es wurde noch kein Fenster einer ungespeicherten Aufzeichnung geschlossen.</translation>
    </message>
    <message>
        <source>The closed recording is no longer there.</source>
        <translation>Die geschlossene Aufzeichnung ist nicht mehr da.</translation>
    </message>
</context>
<context>
    <name>UnsavedWindows</name>
    <message>
        <source>The recording is kept as %1: Tools &gt; Reopen closed recording.</source>
        <translation>Die Aufzeichnung bleibt als %1 erhalten: Extras &gt; Geschlossene Aufzeichnung wieder öffnen.</translation>
    </message>
    <message>
        <source>The program closes when the file is written. Cancel gives the file up.</source>
        <translation>Das Programm schließt, wenn die Datei geschrieben ist. Abbrechen gibt die Datei auf.</translation>
    </message>
    <message>
        <source>Recording</source>
        <translation>Aufzeichnung</translation>
    </message>
    <message>
        <source>Another of the windows is about to be saved as %1.</source>
        <translation>Ein anderes der Fenster wird gerade als %1 gespeichert.</translation>
    </message>
    <message>
        <source>The recording in window %1 is not saved.</source>
        <translation>Die Aufzeichnung in Fenster %1 ist nicht gespeichert.</translation>
    </message>
    <message>
        <source>Nothing else keeps it. Save it before its window closes?</source>
        <translation>Sonst ist sie nirgends. Speichern, bevor ihr Fenster schließt?</translation>
    </message>
    <message>
        <source>The journal could not keep all of it. Save it before its window closes?</source>
        <translation>Das Journal konnte nicht alles behalten. Speichern, bevor ihr Fenster schließt?</translation>
    </message>
</context>
<context>
    <name>UserGuide</name>
    <message>
        <source>The user guide is not installed.</source>
        <translation>Das Handbuch ist nicht installiert.</translation>
    </message>
    <message>
        <source>No program opens the user guide. It lies in:</source>
        <translation>Kein Programm öffnet das Handbuch. Es liegt in:</translation>
    </message>
    <message>
        <source>User guide</source>
        <translation>Handbuch</translation>
    </message>
</context>
<context>
    <name>Varnel3Data</name>
    <message>
        <source>Varnel 3</source>
        <translation>Varnel 3</translation>
    </message>
    <message>
        <source>Varnel 2+</source>
        <translation>Varnel 2+</translation>
    </message>
    <message>
        <source>Varnel 2</source>
        <translation>Varnel 2</translation>
    </message>
    <message>
        <source>Tandor</source>
        <translation>Tandor</translation>
    </message>
    <message>
        <source>None</source>
        <translation>Keine Angabe</translation>
    </message>
    <message>
        <source>Charge</source>
        <translation>Laden</translation>
    </message>
    <message>
        <source>Discharge</source>
        <translation>Entladen</translation>
    </message>
    <message>
        <source>Balancing</source>
        <translation>Balancieren</translation>
    </message>
    <message>
        <source>Format</source>
        <translation>Formieren</translation>
    </message>
    <message>
        <source>Test</source>
        <translation>Test</translation>
    </message>
</context>
<context>
    <name>VoltageComparison</name>
    <message>
        <source>No cell data</source>
        <translation>Keine Zellendaten</translation>
    </message>
    <message>
        <source>No cell %1</source>
        <translation>Keine Zelle %1</translation>
    </message>
    <message>
        <source>All cells are hidden.</source>
        <translation>Alle Zellen sind ausgeblendet.</translation>
    </message>
    <message>
        <source>No cell selected</source>
        <translation>Keine Zelle gewählt</translation>
    </message>
    <message>
        <source>NO DATA</source>
        <translation>KEINE DATEN</translation>
    </message>
    <message>
        <source>No line since %1</source>
        <translation>Keine Daten seit %1</translation>
    </message>
    <message>
        <source>Max %1, cell %2</source>
        <translation>Max %1, Zelle %2</translation>
    </message>
    <message>
        <source>Min %1, cell %2</source>
        <translation>Min %1, Zelle %2</translation>
    </message>
    <message>
        <source>Spread %1</source>
        <translation>Differenz %1</translation>
    </message>
    <message>
        <source>All cells but the selected</source>
        <translation>Alle Zellen außer den gewählten</translation>
    </message>
    <message>
        <source>All cells, the selected emphasised</source>
        <translation>Alle Zellen, die gewählten hervorgehoben</translation>
    </message>
    <message>
        <source>Only the selected cells</source>
        <translation>Nur die gewählten Zellen</translation>
    </message>
    <message>
        <source>Varnel - voltage comparison</source>
        <translation>Varnel - Spannungsvergleich</translation>
    </message>
    <message>
        <source>Cell %1 of every window (arrow keys: another; click or Esc: all cells)</source>
        <translation>Zelle %1 aus jedem Fenster (Pfeiltasten: andere; Klick oder Esc: alle)</translation>
    </message>
    <message>
        <source>cell %1: %2 volts</source>
        <translation>Zelle %1: %2 Volt</translation>
    </message>
    <message>
        <source>window %1</source>
        <translation>Fenster %1</translation>
    </message>
</context>
<context>
    <name>WriteOutcome</name>
    <message>
        <source>too many links</source>
        <translation>zu viele Verknüpfungen</translation>
    </message>
    <message>
        <source>not a regular file</source>
        <translation>keine gewöhnliche Datei</translation>
    </message>
    <message>
        <source>The disk did not take all of it.</source>
        <translation>Der Datenträger hat nicht alles angenommen.</translation>
    </message>
</context>
<context>
    <name>main</name>
    <message>
        <source>The program that is running does not answer.</source>
        <translation>Das laufende Programm antwortet nicht.</translation>
    </message>
    <message>
        <source>Its process has the number %1.</source>
        <translation>Sein Prozess hat die Nummer %1.</translation>
    </message>
    <message>
        <source>End it, or wait for its end, and start again.</source>
        <translation>Beenden Sie es oder warten Sie sein Ende ab und starten Sie neu.</translation>
    </message>
</context>
</TS>

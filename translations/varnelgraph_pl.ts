<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="pl" sourcelanguage="en">
<context>
    <name>About</name>
    <message>
        <source>About</source>
        <translation>O programie</translation>
    </message>
    <message>
        <source>Version </source>
        <translation>Wersja </translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>Maker</source>
        <translation>Producent</translation>
    </message>
    <message>
        <source>Distributor</source>
        <translation>Dystrybutor</translation>
    </message>
    <message>
        <source>Picture of a charger</source>
        <translation>Obraz ładowarki</translation>
    </message>
    <message>
        <source>Closes this box.</source>
        <translation>Zamyka to okno.</translation>
    </message>
</context>
<context>
    <name>ActionSet</name>
    <message>
        <source>Pauses the port of the current window.
What its device sends meanwhile is not recorded; what follows is a recording of its own.
To look closer, hold the view instead: key H.</source>
        <translation>Wstrzymuje port bieżącego okna.
To, co urządzenie wyśle w tym czasie, nie zostanie nagrane; dalszy ciąg będzie osobnym nagraniem.
Aby przyjrzeć się bliżej, zatrzymaj widok: klawisz H.</translation>
    </message>
    <message>
        <source>%1 is paused: what its device sends is not recorded. Press to go on.</source>
        <translation>%1 jest wstrzymany: dane z urządzenia nie są nagrywane. Naciśnij, aby wznowić.</translation>
    </message>
</context>
<context>
    <name>BoundedSelection</name>
    <message numerus="yes">
        <source>At most %n files can be selected at once.</source>
        <translation>
            <numerusform>Jednocześnie można zaznaczyć najwyżej %n plik.</numerusform>
            <numerusform>Jednocześnie można zaznaczyć najwyżej %n pliki.</numerusform>
            <numerusform>Jednocześnie można zaznaczyć najwyżej %n plików.</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>CapacityDisplay</name>
    <message>
        <source>Next</source>
        <translation>Następne</translation>
    </message>
    <message>
        <source>Previous</source>
        <translation>Poprzednie</translation>
    </message>
    <message>
        <source>Varnel - capacity comparison</source>
        <translation>Varnel - porównanie pojemności</translation>
    </message>
    <message>
        <source>No line since %1</source>
        <translation>Brak danych od %1</translation>
    </message>
</context>
<context>
    <name>ColumnsMenu</name>
    <message>
        <source>Columns</source>
        <translation>Kolumny</translation>
    </message>
</context>
<context>
    <name>CommandLine</name>
    <message>
        <source>Write the recording FILE to &lt;out&gt; as comma-separated values and leave.</source>
        <translation>Zapisz nagranie FILE do &lt;out&gt; jako wartości rozdzielane przecinkami i zakończ.</translation>
    </message>
    <message>
        <source>Draw the recording FILE to &lt;out&gt; (.png, .svg or .pdf) and leave.</source>
        <translation>Narysuj nagranie FILE do &lt;out&gt; (.png, .svg lub .pdf) i zakończ.</translation>
    </message>
    <message>
        <source>Size of the drawing in pixels, for example 1000x600.</source>
        <translation>Rozmiar rysunku w pikselach, na przykład 1000x600.</translation>
    </message>
    <message>
        <source>Background of the drawing: black or white.</source>
        <translation>Tło rysunku: black (czarne) lub white (białe).</translation>
    </message>
    <message>
        <source>View of the drawing: charger, cells or average.</source>
        <translation>Widok rysunku: charger (ładowarka), cells (ogniwa) lub average (średnia).</translation>
    </message>
    <message>
        <source>Right axis of the charger view: dv, mah or none.</source>
        <translation>Prawa oś widoku ładowarki: dv, mah lub none (brak).</translation>
    </message>
    <message>
        <source>Leave out a curve: temperature or resistance. May be given twice.</source>
        <translation>Pomiń krzywą: temperature (temperatura) lub resistance (rezystancja). Można podać dwa razy.</translation>
    </message>
    <message>
        <source>Figure beside a cell&apos;s name: voltage, charge or resistance.</source>
        <translation>Wartość obok nazwy ogniwa: voltage (napięcie), charge (ładunek) lub resistance (rezystancja).</translation>
    </message>
    <message>
        <source>Usage: varnelgraph [options] [FILE...]; see varnelgraph --help.</source>
        <translation>Użycie: varnelgraph [opcje] [FILE...]; zobacz varnelgraph --help.</translation>
    </message>
    <message>
        <source>Not a size between %1x%1 and %2x%2: </source>
        <translation>To nie jest rozmiar od %1x%1 do %2x%2: </translation>
    </message>
    <message>
        <source>unknown word </source>
        <translation>nieznane słowo </translation>
    </message>
    <message>
        <source>One recording FILE is needed.</source>
        <translation>Potrzebne jest jedno nagranie FILE.</translation>
    </message>
    <message>
        <source>A recording is not written over: </source>
        <translation>Nagranie nie zostanie nadpisane: </translation>
    </message>
    <message>
        <source>The drawing&apos;s name must end in .png, .svg or .pdf: </source>
        <translation>Nazwa rysunku musi kończyć się na .png, .svg lub .pdf: </translation>
    </message>
    <message>
        <source>Records what battery chargers and balancers send over serial ports, and draws it.</source>
        <translation>Nagrywa to, co ładowarki i balansery wysyłają przez porty szeregowe, i rysuje wykresy.</translation>
    </message>
    <message>
        <source>Recordings (.acp, .abp) to open.</source>
        <translation>Nagrania (.acp, .abp) do otwarcia.</translation>
    </message>
    <message>
        <source>Language of the texts: en, pl or de. Numbers follow the system.</source>
        <translation>Język tekstów: en, pl lub de. Liczby zależą od systemu.</translation>
    </message>
    <message>
        <source>Lines of the drawing: usual, or distinct without their hues.</source>
        <translation>Linie rysunku: usual (zwykłe) lub distinct (rozróżnialne bez barw).</translation>
    </message>
    <message>
        <source>Write the logbook to &lt;out&gt; as comma-separated values and leave.</source>
        <translation>Zapisz kronikę do &lt;out&gt; jako wartości rozdzielane przecinkami i zakończ.</translation>
    </message>
    <message>
        <source>Only one of --export-csv, --logbook-csv and --render.</source>
        <translation>Tylko jedno z --export-csv, --logbook-csv i --render.</translation>
    </message>
    <message>
        <source>The logbook needs no recording FILE.</source>
        <translation>Kronika nie wymaga nagrania FILE.</translation>
    </message>
</context>
<context>
    <name>CourseCanvas</name>
    <message>
        <source>Point at a point: its recording. A click selects it; arrow keys go from point to point.</source>
        <translation>Wskaż punkt: jego nagranie. Kliknięcie je zaznacza; strzałki prowadzą od punktu do punktu.</translation>
    </message>
    <message>
        <source>%1: from %2 to %3</source>
        <extracomment>A line of a chart: its name, its first and its last value.</extracomment>
        <translation>%1: od %2 do %3</translation>
    </message>
</context>
<context>
    <name>CoursePanel</name>
    <message>
        <source>Capacity</source>
        <translation>Pojemność</translation>
    </message>
    <message>
        <source>Energy</source>
        <translation>Energia</translation>
    </message>
    <message>
        <source>Internal resistance</source>
        <translation>Rezystancja wewnętrzna</translation>
    </message>
    <message>
        <source>Spread of the cells</source>
        <translation>Rozrzut ogniw</translation>
    </message>
    <message>
        <source>What the chart shows</source>
        <translation>Co pokazuje wykres</translation>
    </message>
    <message>
        <source>by date</source>
        <translation>według daty</translation>
    </message>
    <message>
        <source>by cycle</source>
        <translation>według cyklu</translation>
    </message>
    <message>
        <source>Against the date, or against the number of the cycle</source>
        <translation>Względem daty albo numeru cyklu</translation>
    </message>
    <message>
        <source>Assign recordings to a pack to see its course.</source>
        <translation>Przypisz nagrania do pakietu, aby zobaczyć jego przebieg.</translation>
    </message>
    <message>
        <source>Not assigned</source>
        <translation>Nieprzypisane</translation>
    </message>
    <message>
        <source>All packs</source>
        <translation>Wszystkie pakiety</translation>
    </message>
    <message>
        <source>state of health %1 %</source>
        <translation>stan zdrowia %1 %</translation>
    </message>
    <message numerus="yes">
        <source>%n cycle(s)</source>
        <translation>
            <numerusform>%n cykl</numerusform>
            <numerusform>%n cykle</numerusform>
            <numerusform>%n cykli</numerusform>
        </translation>
    </message>
    <message>
        <source>cell %1 is weak</source>
        <translation>ogniwo %1 jest słabe</translation>
    </message>
    <message>
        <source>Not from full to empty, or not to the end: not to be compared with the others.</source>
        <translation>Nie od pełnego do pustego albo nie do końca: nie do porównania z innymi.</translation>
    </message>
</context>
<context>
    <name>DataDisplay</name>
    <message>
        <source>Varnel - Data Display</source>
        <translation>Varnel - wskazania</translation>
    </message>
    <message>
        <source>No line since %1</source>
        <translation>Brak danych od %1</translation>
    </message>
    <message>
        <source>Charge</source>
        <translation>Ładowanie</translation>
    </message>
    <message>
        <source>Discharge</source>
        <translation>Rozładowanie</translation>
    </message>
    <message>
        <source>Balance</source>
        <translation>Balansowanie</translation>
    </message>
    <message>
        <source>cell %1</source>
        <translation>ogn. %1</translation>
    </message>
    <message>
        <source>Ri avg</source>
        <translation>Ri śr.</translation>
    </message>
    <message>
        <source>%
Ri delta</source>
        <translation>%
Ri delta</translation>
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
        <translation>V śr.</translation>
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
        <translation>V delta</translation>
    </message>
    <message>
        <source>V min</source>
        <translation>V min</translation>
    </message>
    <message>
        <source>Voltage of the pack or the mean cell: click, or press Space</source>
        <translation>Napięcie pakietu lub średnie ogniwa: kliknij lub naciśnij spację</translation>
    </message>
    <message>
        <source>window %1</source>
        <translation>okno %1</translation>
    </message>
</context>
<context>
    <name>DataFileLoader</name>
    <message>
        <source>not a regular file</source>
        <translation>to nie jest zwykły plik</translation>
    </message>
    <message>
        <source>no such file</source>
        <translation>nie ma takiego pliku</translation>
    </message>
    <message>
        <source>it was changed while it was read</source>
        <translation>plik zmienił się podczas czytania</translation>
    </message>
    <message>
        <source>not enough memory</source>
        <translation>za mało pamięci</translation>
    </message>
    <message>
        <source>format error in line %1</source>
        <translation>błąd formatu w wierszu %1</translation>
    </message>
</context>
<context>
    <name>DataToolBar</name>
    <message>
        <source>Data Tool Bar</source>
        <translation>Pasek danych</translation>
    </message>
    <message>
        <source>Mode and cells type</source>
        <translation>Tryb i typ ogniw</translation>
    </message>
    <message>
        <source>Voltage</source>
        <translation>Napięcie</translation>
    </message>
    <message>
        <source>Current</source>
        <translation>Prąd</translation>
    </message>
    <message>
        <source>Temperature</source>
        <translation>Temperatura</translation>
    </message>
    <message>
        <source>Energy</source>
        <translation>Pojemność</translation>
    </message>
    <message>
        <source>Time</source>
        <translation>Czas</translation>
    </message>
</context>
<context>
    <name>DeskArea</name>
    <message>
        <source>No port is listened on
Choose the ports of your devices: File &gt; Preferences.</source>
        <translation>Nasłuch nie jest prowadzony na żadnym porcie
Wybierz porty swoich urządzeń: Plik &gt; Ustawienia.</translation>
    </message>
    <message>
        <source>Listening on %1
A window opens as soon as a device sends.</source>
        <translation>Nasłuch na %1
Okno otworzy się, gdy tylko urządzenie zacznie wysyłać dane.</translation>
    </message>
    <message>
        <source>Saved recordings: File &gt; Open file, or drop them here.</source>
        <translation>Zapisane nagrania: Plik &gt; Otwórz plik albo upuść je tutaj.</translation>
    </message>
</context>
<context>
    <name>DeskReaderHost</name>
    <message>
        <source>Error</source>
        <translation>Błąd</translation>
    </message>
</context>
<context>
    <name>DeviceCommands</name>
    <message>
        <source>Choose the window of the device whose process is to be stopped.</source>
        <translation>Wybierz okno urządzenia, którego proces ma zostać zatrzymany.</translation>
    </message>
    <message>
        <source>The device on %1 was told to stop its process.</source>
        <translation>Urządzenie na %1 otrzymało polecenie zatrzymania procesu.</translation>
    </message>
    <message>
        <source>The current window was fed by %1, which is not listened on.
Stop the process of the device on %2?</source>
        <translation>Bieżące okno otrzymywało dane z %1, gdzie nasłuch nie jest prowadzony.
Zatrzymać proces urządzenia na %2?</translation>
    </message>
    <message>
        <source>Stop process</source>
        <translation>Zatrzymaj proces</translation>
    </message>
    <message>
        <source>%1 is no longer listened on: its device was not told to stop.</source>
        <translation>Nasłuch na %1 zakończony: urządzenie nie otrzymało polecenia zatrzymania.</translation>
    </message>
    <message>
        <source>No port is listened on: choose one in the preferences.</source>
        <translation>Brak nasłuchu na portach: wybierz port w ustawieniach.</translation>
    </message>
    <message>
        <source>Setting the clock of the device on %1...</source>
        <translation>Ustawianie zegara urządzenia na %1...</translation>
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
        <translation>Anuluj</translation>
    </message>
    <message>
        <source>Refresh</source>
        <translation>Odśwież</translation>
    </message>
    <message>
        <source>Reset</source>
        <translation>Przywróć</translation>
    </message>
    <message>
        <source>Varnel - preferences</source>
        <translation>Varnel - ustawienia</translation>
    </message>
    <message>
        <source>Set varnel3&apos;s time while starting</source>
        <translation>Ustaw zegar Varnel 3 przy starcie</translation>
    </message>
    <message>
        <source>No port is present. Plug a device in and press Refresh.</source>
        <translation>Nie ma żadnego portu. Podłącz urządzenie i naciśnij Odśwież.</translation>
    </message>
    <message>
        <source>Serial ports without a COM name: %1</source>
        <translation>Porty szeregowe bez nazwy COM: %1</translation>
    </message>
    <message>
        <source>To be listened on a port needs a COM name. Until you log out it has one by:</source>
        <translation>Do nasłuchu port potrzebuje nazwy COM. Do wylogowania nadasz ją poleceniami:</translation>
    </message>
    <message>
        <source>Then press Refresh. docs/ports.md tells how ports get their names for good.</source>
        <translation>Potem naciśnij Odśwież. Jak nadać portom nazwy na stałe, opisuje docs/ports.md.</translation>
    </message>
    <message>
        <source>Listens on the ticked ports. Ports that are absent now are forgotten.</source>
        <translation>Nasłuchuje na zaznaczonych portach. Porty teraz nieobecne zostaną zapomniane.</translation>
    </message>
    <message>
        <source>Reset all settings to default:</source>
        <translation>Ustawienia domyślne:</translation>
    </message>
    <message>
        <source>Of the texts. Numbers and dates are written as the system has them.</source>
        <translation>Dotyczy tekstów. Liczby i daty są zapisywane tak jak w systemie.</translation>
    </message>
    <message>
        <source>System</source>
        <translation>System</translation>
    </message>
    <message>
        <source>Language (from next start):</source>
        <translation>Język (od nowego startu):</translation>
    </message>
    <message>
        <source>Changes nothing.</source>
        <translation>Niczego nie zmienia.</translation>
    </message>
    <message>
        <source>Looks for ports that came since the dialog opened.</source>
        <translation>Szuka portów, które pojawiły się po otwarciu okna.</translation>
    </message>
    <message>
        <source>Unticks all ports and the time, and takes the system&apos;s language. Nothing is stored before OK.</source>
        <translation>Odznacza wszystkie porty i zegar, przywraca język systemu. Zapisuje dopiero OK.</translation>
    </message>
    <message>
        <source>The device gets the computer&apos;s clock with its first process and at the end of one.</source>
        <translation>Urządzenie dostaje czas komputera z pierwszym procesem i na końcu procesu.</translation>
    </message>
</context>
<context>
    <name>DialogRemoteControl</name>
    <message>
        <source>Remote control</source>
        <translation>Zdalne sterowanie</translation>
    </message>
    <message>
        <source>SETUP</source>
        <translation>USTAWIENIA</translation>
    </message>
    <message>
        <source>Battery</source>
        <translation>Akumulator</translation>
    </message>
    <message>
        <source>Power suply</source>
        <translation>Zasilacz</translation>
    </message>
    <message>
        <source>MEMORY NR</source>
        <translation>NR PAMIĘCI</translation>
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
        <translation>AKUMULATOR PODŁĄCZONY</translation>
    </message>
    <message>
        <source>START</source>
        <translation>START</translation>
    </message>
    <message>
        <source>PROCESS</source>
        <translation>PROCES</translation>
    </message>
    <message>
        <source>STOP</source>
        <translation>STOP</translation>
    </message>
    <message>
        <source>DISCONNECT BATTERY</source>
        <translation>ODŁĄCZ AKUMULATOR</translation>
    </message>
    <message>
        <source>Bip Off</source>
        <translation>Wycisz</translation>
    </message>
    <message>
        <source>Memory...</source>
        <translation>Pamięć...</translation>
    </message>
    <message>
        <source>Show the number of the memory that the device has selected</source>
        <translation>Pokaż numer pamięci wybranej w urządzeniu</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Zamknij</translation>
    </message>
    <message>
        <source>Port %1</source>
        <translation>Port %1</translation>
    </message>
    <message>
        <source>Memory %1</source>
        <translation>Pamięć %1</translation>
    </message>
    <message>
        <source>Cells %1</source>
        <translation>Ogniwa: %1</translation>
    </message>
    <message>
        <source>Time out</source>
        <translation>Brak odpowiedzi urządzenia</translation>
    </message>
    <message>
        <source>Port %1 is no longer listened on: the remote control is closed.</source>
        <translation>Nasłuch na porcie %1 zakończony: zdalne sterowanie zostaje zamknięte.</translation>
    </message>
    <message>
        <source>Information</source>
        <translation>Informacja</translation>
    </message>
    <message>
        <source>A pack is connected</source>
        <translation>Podłączony jest akumulator</translation>
    </message>
    <message>
        <source>Takes this memory</source>
        <translation>Wybiera tę pamięć</translation>
    </message>
    <message>
        <source>Memory</source>
        <translation>Pamięć</translation>
    </message>
    <message>
        <source>The charger is a power supply</source>
        <translation>Ładowarka pracuje jako zasilacz</translation>
    </message>
    <message>
        <source>Memory before</source>
        <translation>Poprzednia pamięć</translation>
    </message>
    <message>
        <source>Next memory</source>
        <translation>Następna pamięć</translation>
    </message>
    <message>
        <source>One cell less</source>
        <translation>Jedno ogniwo mniej</translation>
    </message>
    <message>
        <source>Takes this number of cells</source>
        <translation>Wybiera tę liczbę ogniw</translation>
    </message>
    <message>
        <source>Number of cells</source>
        <translation>Liczba ogniw</translation>
    </message>
    <message>
        <source>One cell more</source>
        <translation>Jedno ogniwo więcej</translation>
    </message>
    <message>
        <source>Starts the process</source>
        <translation>Uruchamia proces</translation>
    </message>
    <message>
        <source>Stops the process</source>
        <translation>Zatrzymuje proces</translation>
    </message>
    <message>
        <source>Silences the device</source>
        <translation>Wycisza urządzenie</translation>
    </message>
    <message>
        <source>Closes the remote control; the device goes on</source>
        <translation>Zamyka zdalne sterowanie; urządzenie pracuje dalej</translation>
    </message>
</context>
<context>
    <name>Documents</name>
    <message>
        <source>Chose varnel data file names</source>
        <translation>Wybierz pliki danych Varnel</translation>
    </message>
    <message>
        <source>Varnel files (*.acp *.abp)</source>
        <translation>Pliki Varnel (*.acp *.abp)</translation>
    </message>
    <message>
        <source>Open recordings</source>
        <translation>Otwórz nagrania</translation>
    </message>
    <message>
        <source>Recordings (*.acp)</source>
        <translation>Nagrania (*.acp)</translation>
    </message>
    <message>
        <source>%1 of %2 files could not be opened:</source>
        <translation>Nie udało się otworzyć plików (%1 z %2):</translation>
    </message>
    <message numerus="yes">
        <source>... and %n more</source>
        <translation>
            <numerusform>... i jeszcze %n</numerusform>
            <numerusform>... i jeszcze %n</numerusform>
            <numerusform>... i jeszcze %n</numerusform>
        </translation>
    </message>
    <message>
        <source>Open file</source>
        <translation>Otwórz plik</translation>
    </message>
    <message>
        <source>Choose file name</source>
        <translation>Wybierz nazwę pliku</translation>
    </message>
    <message>
        <source>Files that end in .abp are only read. Choose a name that ends in .acp.</source>
        <translation>Pliki .abp są tylko do odczytu. Wybierz nazwę kończącą się na .acp.</translation>
    </message>
    <message>
        <source>A recording is being written to this file.</source>
        <translation>Do tego pliku zapisywane jest właśnie nagranie.</translation>
    </message>
    <message>
        <source>Saving was cancelled.</source>
        <translation>Zapis został anulowany.</translation>
    </message>
    <message>
        <source>Data saved on disk.</source>
        <translation>Dane zapisano na dysku.</translation>
    </message>
    <message>
        <source>%1 written.</source>
        <translation>Zapisano %1.</translation>
    </message>
    <message>
        <source>Can not save file %1</source>
        <translation>Nie można zapisać pliku %1</translation>
    </message>
    <message>
        <source>Save as</source>
        <translation>Zapisz jako</translation>
    </message>
    <message numerus="yes">
        <source>%n record(s) of a mode or chemistry that the file format has no sign for can&apos;t be read back from %1.</source>
        <translation>
            <numerusform>Z pliku %1 nie da się odczytać z powrotem %n rekordu: format pliku nie ma oznaczenia jego trybu lub typu ogniw.</numerusform>
            <numerusform>Z pliku %1 nie da się odczytać z powrotem %n rekordów: format pliku nie ma oznaczenia ich trybu lub typu ogniw.</numerusform>
            <numerusform>Z pliku %1 nie da się odczytać z powrotem %n rekordów: format pliku nie ma oznaczenia ich trybu lub typu ogniw.</numerusform>
        </translation>
    </message>
    <message>
        <source>They are kept in %1.</source>
        <translation>Są zachowane w %1.</translation>
    </message>
</context>
<context>
    <name>EndNotice</name>
    <message>
        <source>%1 Ah in %2</source>
        <translation>%1 Ah w %2</translation>
    </message>
</context>
<context>
    <name>Explanations</name>
    <message>
        <source>There is no graph window.</source>
        <translation>Nie ma okna wykresu.</translation>
    </message>
    <message>
        <source>Explanations</source>
        <translation>Objaśnienia</translation>
    </message>
</context>
<context>
    <name>FileQueue</name>
    <message>
        <source>Opening was cancelled.</source>
        <translation>Otwieranie zostało anulowane.</translation>
    </message>
</context>
<context>
    <name>FilterLine</name>
    <message>
        <source>From</source>
        <translation>Od</translation>
    </message>
    <message>
        <source>First day of the recordings</source>
        <translation>Pierwszy dzień nagrań</translation>
    </message>
    <message>
        <source>To</source>
        <translation>Do</translation>
    </message>
    <message>
        <source>Last day of the recordings</source>
        <translation>Ostatni dzień nagrań</translation>
    </message>
    <message>
        <source>Filter: words of any column</source>
        <translation>Filtr: słowa z dowolnej kolumny</translation>
    </message>
    <message>
        <source>Shows the recordings that have all of these words somewhere. Esc shows all again.</source>
        <translation>Pokazuje nagrania, które mają gdzieś wszystkie te słowa. Esc pokazuje znów wszystkie.</translation>
    </message>
    <message>
        <source>Filter</source>
        <translation>Filtr</translation>
    </message>
    <message>
        <source>Recordings of cells of this chemistry</source>
        <translation>Nagrania ogniw tego typu</translation>
    </message>
    <message>
        <source>Chemistry</source>
        <translation>Typ ogniw</translation>
    </message>
    <message>
        <source>Any chemistry</source>
        <translation>Każdy typ</translation>
    </message>
    <message>
        <source>Recordings of this process</source>
        <translation>Nagrania tego procesu</translation>
    </message>
    <message>
        <source>Process</source>
        <translation>Proces</translation>
    </message>
    <message>
        <source>Any process</source>
        <translation>Każdy proces</translation>
    </message>
</context>
<context>
    <name>FolderView</name>
    <message>
        <source>The folder is being read...</source>
        <translation>Odczyt folderu...</translation>
    </message>
</context>
<context>
    <name>FoldersDialog</name>
    <message>
        <source>Remove</source>
        <translation>Usuń</translation>
    </message>
    <message>
        <source>Folders of the logbook</source>
        <translation>Foldery kroniki</translation>
    </message>
    <message>
        <source>Recordings are read from %1 and from these folders:</source>
        <translation>Nagrania są czytane z %1 i z tych folderów:</translation>
    </message>
    <message>
        <source>Folders whose recordings stand in the logbook; folders in them are not read</source>
        <translation>Foldery, których nagrania są w kronice; foldery w nich nie są czytane</translation>
    </message>
    <message>
        <source>Add...</source>
        <translation>Dodaj...</translation>
    </message>
    <message>
        <source>Reads another folder, too.</source>
        <translation>Czyta także inny folder.</translation>
    </message>
    <message>
        <source>The folder is read no longer. Its recordings stay in the logbook.</source>
        <translation>Folder nie będzie już czytany. Jego nagrania zostają w kronice.</translation>
    </message>
    <message>
        <source>Reads these folders.</source>
        <translation>Czyta te foldery.</translation>
    </message>
    <message>
        <source>Changes nothing.</source>
        <translation>Niczego nie zmienia.</translation>
    </message>
</context>
<context>
    <name>GraphExports</name>
    <message>
        <source>Export as CSV</source>
        <translation>Eksportuj jako CSV</translation>
    </message>
    <message>
        <source>Comma-separated values (*.csv)</source>
        <translation>Wartości rozdzielane przecinkami (*.csv)</translation>
    </message>
    <message>
        <source>Save picture</source>
        <translation>Zapisz obraz</translation>
    </message>
    <message>
        <source>Picture (*.png)</source>
        <translation>Obraz (*.png)</translation>
    </message>
    <message>
        <source>Drawing (*.svg)</source>
        <translation>Rysunek (*.svg)</translation>
    </message>
    <message>
        <source>Document (*.pdf)</source>
        <translation>Dokument (*.pdf)</translation>
    </message>
    <message>
        <source>The name of a picture ends in .png, .svg or .pdf.</source>
        <translation>Nazwa obrazu kończy się na .png, .svg lub .pdf.</translation>
    </message>
    <message>
        <source>There is no room for it in memory.</source>
        <translation>Brakuje na to pamięci.</translation>
    </message>
    <message>
        <source>Names that end in .acp or .abp are for recordings.</source>
        <translation>Nazwy kończące się na .acp i .abp są dla nagrań.</translation>
    </message>
    <message>
        <source>A recording is being written to this file.</source>
        <translation>Do tego pliku zapisywane jest właśnie nagranie.</translation>
    </message>
    <message>
        <source>The export was cancelled.</source>
        <translation>Eksport został anulowany.</translation>
    </message>
    <message>
        <source>%1 written.</source>
        <translation>Zapisano %1.</translation>
    </message>
    <message>
        <source>Can not save file %1</source>
        <translation>Nie można zapisać pliku %1</translation>
    </message>
    <message>
        <source>Export</source>
        <translation>Eksport</translation>
    </message>
</context>
<context>
    <name>GraphPrinting</name>
    <message>
        <source>Varnel - graph</source>
        <translation>Varnel - wykres</translation>
    </message>
</context>
<context>
    <name>GraphScene</name>
    <message>
        <source>This recording has no cell data.</source>
        <translation>To nagranie nie ma danych ogniw.</translation>
    </message>
    <message>
        <source>Voltage</source>
        <translation>Napięcie</translation>
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
        <translation>Ładunek</translation>
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
        <translation>Ogniwo </translation>
    </message>
    <message>
        <source>No cell is selected.</source>
        <translation>Nie wybrano ogniwa.</translation>
    </message>
    <message>
        <source>All cells are hidden.</source>
        <translation>Wszystkie ogniwa są ukryte.</translation>
    </message>
    <message>
        <source>Voltage:</source>
        <translation>Napięcie:</translation>
    </message>
    <message>
        <source>Charge:</source>
        <translation>Ładunek:</translation>
    </message>
    <message>
        <source>Max</source>
        <translation>Max</translation>
    </message>
    <message>
        <source>Avg</source>
        <translation>Śr.</translation>
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
        <translation>Prąd</translation>
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
        <translation>plik został usunięty lub podmieniony</translation>
    </message>
    <message>
        <source>the disk is full</source>
        <translation>dysk jest pełny</translation>
    </message>
    <message>
        <source>the disk reports an error</source>
        <translation>dysk zgłasza błąd</translation>
    </message>
</context>
<context>
    <name>JournalNotice</name>
    <message>
        <source>recordings</source>
        <translation>nagrania</translation>
    </message>
    <message>
        <source>The file of a running recording was removed or replaced:</source>
        <translation>Plik trwającego nagrania został usunięty lub podmieniony:</translation>
    </message>
    <message>
        <source>All that was recorded is written again, and recording goes on, in:</source>
        <translation>Całe nagranie jest zapisywane od nowa i trwa dalej w:</translation>
    </message>
    <message>
        <source>Your recordings take %1.</source>
        <translation>Twoje nagrania zajmują %1.</translation>
    </message>
    <message>
        <source>None of them is deleted unless you do it, in %1.</source>
        <translation>Żadne nie zniknie, dopóki sam go nie usuniesz, w %1.</translation>
    </message>
    <message>
        <source>Open folder</source>
        <translation>Otwórz folder</translation>
    </message>
    <message>
        <source>Recordings</source>
        <translation>Nagrania</translation>
    </message>
</context>
<context>
    <name>LineDispatcher</name>
    <message>
        <source>Not enough memory: a line of %1 is left out.</source>
        <translation>Za mało pamięci: wiersz z %1 został pominięty.</translation>
    </message>
</context>
<context>
    <name>ListenedPorts</name>
    <message>
        <source>The current window receives no data: there is nothing to pause.</source>
        <translation>Bieżące okno nie odbiera danych: nie ma czego wstrzymać.</translation>
    </message>
    <message>
        <source>No graph window is open: there is nothing to pause.</source>
        <translation>Nie ma otwartego okna wykresu: nie ma czego wstrzymać.</translation>
    </message>
    <message>
        <source>No port is listened on: choose one in the preferences.</source>
        <translation>Brak nasłuchu na portach: wybierz port w ustawieniach.</translation>
    </message>
    <message>
        <source>No port has been selected.</source>
        <translation>Nie wybrano portu.</translation>
    </message>
    <message>
        <source>Start listening on port(s): </source>
        <translation>Nasłuch na portach: </translation>
    </message>
    <message>
        <source>Stop listen on port(s).</source>
        <translation>Nasłuch zakończony.</translation>
    </message>
    <message>
        <source>Stop listening on port %1.</source>
        <translation>Koniec nasłuchu na porcie %1.</translation>
    </message>
    <message>
        <source>Start listening on port %1.</source>
        <translation>Nasłuch na porcie %1.</translation>
    </message>
    <message>
        <source>Stop listening on port %1. Port is removed.</source>
        <translation>Koniec nasłuchu na porcie %1. Port został odłączony.</translation>
    </message>
    <message>
        <source>Start listening on new port %1.</source>
        <translation>Nasłuch na nowym porcie %1.</translation>
    </message>
</context>
<context>
    <name>LiveWindows</name>
    <message>
        <source>Journal: %1</source>
        <translation>Dziennik: %1</translation>
    </message>
</context>
<context>
    <name>LoadOutcome</name>
    <message>
        <source>Can not open file %1</source>
        <translation>Nie można otworzyć pliku %1</translation>
    </message>
    <message>
        <source>Format error in </source>
        <translation>Błąd formatu w </translation>
    </message>
    <message>
        <source>Not enough memory to open %1</source>
        <translation>Za mało pamięci, aby otworzyć %1</translation>
    </message>
    <message>
        <source>Data loaded from disk.</source>
        <translation>Dane wczytano z dysku.</translation>
    </message>
    <message>
        <source>No data in file.</source>
        <translation>Plik nie zawiera danych.</translation>
    </message>
</context>
<context>
    <name>Logbook</name>
    <message>
        <source>The logbook can&apos;t be written for now: %1</source>
        <translation>Kroniki nie można teraz zapisać: %1</translation>
    </message>
    <message>
        <source>The logbook can&apos;t be kept: %1</source>
        <translation>Kroniki nie można prowadzić: %1</translation>
    </message>
    <message>
        <source>Completed</source>
        <translation>Zakończony</translation>
    </message>
    <message>
        <source>Aborted</source>
        <translation>Przerwany</translation>
    </message>
    <message>
        <source>Error</source>
        <translation>Błąd</translation>
    </message>
    <message>
        <source>Recording</source>
        <translation>Nagrywa</translation>
    </message>
    <message>
        <source>No end</source>
        <translation>Bez końca</translation>
    </message>
</context>
<context>
    <name>LogbookActions</name>
    <message>
        <source>Open</source>
        <translation>Otwórz</translation>
    </message>
    <message>
        <source>Opens the chosen recordings, each in a graph window.</source>
        <translation>Otwiera zaznaczone nagrania, każde w oknie wykresu.</translation>
    </message>
    <message>
        <source>Overlay</source>
        <translation>Nałóż na siebie</translation>
    </message>
    <message>
        <source>Shows the curves of the chosen recordings over each other.</source>
        <translation>Pokazuje krzywe zaznaczonych nagrań jedne na drugich.</translation>
    </message>
    <message>
        <source>Show in folder</source>
        <translation>Pokaż w folderze</translation>
    </message>
    <message>
        <source>Opens the folder that holds the file.</source>
        <translation>Otwiera folder, w którym jest plik.</translation>
    </message>
    <message>
        <source>Assign to pack...</source>
        <translation>Przypisz do pakietu...</translation>
    </message>
    <message>
        <source>Tells of which pack the chosen recordings are.</source>
        <translation>Mówi, z którego pakietu są zaznaczone nagrania.</translation>
    </message>
    <message>
        <source>Assign to offered pack</source>
        <translation>Przypisz do proponowanego pakietu</translation>
    </message>
    <message>
        <source>Assign to none</source>
        <translation>Nie przypisuj</translation>
    </message>
    <message>
        <source>The chosen recordings have no pack then.</source>
        <translation>Zaznaczone nagrania nie mają wtedy pakietu.</translation>
    </message>
    <message>
        <source>Note...</source>
        <translation>Notatka...</translation>
    </message>
    <message>
        <source>Your own words on the recording</source>
        <translation>Własne słowa o nagraniu</translation>
    </message>
    <message>
        <source>Delete file...</source>
        <translation>Usuń plik...</translation>
    </message>
    <message>
        <source>Moves the chosen files to the waste bin, after a question.</source>
        <translation>Przenosi zaznaczone pliki do kosza, po zapytaniu.</translation>
    </message>
    <message>
        <source>Remove from logbook</source>
        <translation>Usuń z kroniki</translation>
    </message>
    <message>
        <source>Forgets chosen recordings whose files have gone.</source>
        <translation>Zapomina zaznaczone nagrania, których plików już nie ma.</translation>
    </message>
    <message>
        <source>Export as CSV...</source>
        <translation>Eksportuj jako CSV...</translation>
    </message>
    <message>
        <source>Writes the rows that are shown as a table for other programs.</source>
        <translation>Zapisuje pokazane wiersze jako tabelę dla innych programów.</translation>
    </message>
    <message>
        <source>Print table...</source>
        <translation>Drukuj tabelę...</translation>
    </message>
    <message>
        <source>Prints the rows and columns that are shown.</source>
        <translation>Drukuje pokazane wiersze i kolumny.</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Zamknij</translation>
    </message>
    <message>
        <source>Closes the window of the logbook.</source>
        <translation>Zamyka okno kroniki.</translation>
    </message>
    <message>
        <source>Undo</source>
        <translation>Cofnij</translation>
    </message>
    <message>
        <source>Takes back the last change.</source>
        <translation>Cofa ostatnią zmianę.</translation>
    </message>
    <message>
        <source>Redo</source>
        <translation>Ponów</translation>
    </message>
    <message>
        <source>Makes the change again that was taken back.</source>
        <translation>Wprowadza znów cofniętą zmianę.</translation>
    </message>
    <message>
        <source>Filter</source>
        <translation>Filtr</translation>
    </message>
    <message>
        <source>Takes the keyboard to the filter.</source>
        <translation>Przenosi klawiaturę do filtra.</translation>
    </message>
    <message>
        <source>Clear filter</source>
        <translation>Wyczyść filtr</translation>
    </message>
    <message>
        <source>Shows every recording of the pack.</source>
        <translation>Pokazuje każde nagranie pakietu.</translation>
    </message>
    <message>
        <source>Folders...</source>
        <translation>Foldery...</translation>
    </message>
    <message>
        <source>Chooses folders whose recordings are read, too.</source>
        <translation>Wybiera foldery, których nagrania też są czytane.</translation>
    </message>
    <message>
        <source>Read again</source>
        <translation>Czytaj ponownie</translation>
    </message>
    <message>
        <source>Looks for new and changed files in all folders now.</source>
        <translation>Szuka teraz nowych i zmienionych plików we wszystkich folderach.</translation>
    </message>
    <message>
        <source>New pack...</source>
        <translation>Nowy pakiet...</translation>
    </message>
    <message>
        <source>Adds a pack.</source>
        <translation>Dodaje pakiet.</translation>
    </message>
    <message>
        <source>Rename or change pack...</source>
        <translation>Zmień nazwę lub pakiet...</translation>
    </message>
    <message>
        <source>Name, chemistry, cells, nominal capacity and note of the chosen pack</source>
        <translation>Nazwa, typ ogniw, ich liczba, pojemność znamionowa i notatka wybranego pakietu</translation>
    </message>
    <message>
        <source>Merge packs...</source>
        <translation>Połącz pakiety...</translation>
    </message>
    <message>
        <source>Makes one of the chosen pack and another one.</source>
        <translation>Robi jeden z wybranego i innego pakietu.</translation>
    </message>
    <message>
        <source>Take apart...</source>
        <translation>Rozdziel...</translation>
    </message>
    <message>
        <source>Moves the chosen recordings of a pack to a new pack like it.</source>
        <translation>Przenosi zaznaczone nagrania pakietu do nowego, takiego samego.</translation>
    </message>
    <message>
        <source>Remove pack</source>
        <translation>Usuń pakiet</translation>
    </message>
    <message>
        <source>Removes the chosen pack. Its recordings stay, assigned to none.</source>
        <translation>Usuwa wybrany pakiet. Jego nagrania zostają, nieprzypisane.</translation>
    </message>
    <message>
        <source>Save picture...</source>
        <translation>Zapisz obraz...</translation>
    </message>
    <message>
        <source>Writes the chart as the window shows it to a picture file.</source>
        <translation>Zapisuje wykres tak, jak pokazuje go okno, do pliku obrazu.</translation>
    </message>
    <message>
        <source>Print chart...</source>
        <translation>Drukuj wykres...</translation>
    </message>
    <message>
        <source>Prints the chart.</source>
        <translation>Drukuje wykres.</translation>
    </message>
    <message>
        <source>Explain row</source>
        <translation>Objaśnij wiersz</translation>
    </message>
    <message>
        <source>Shows all figures and the curve of the current row. The space bar does so, too.</source>
        <translation>Pokazuje wszystkie wartości i krzywą bieżącego wiersza. Spacja też.</translation>
    </message>
    <message>
        <source>Sort by column</source>
        <translation>Sortuj według kolumny</translation>
    </message>
    <message>
        <source>Sorts by the current column, the second time the other way round.</source>
        <translation>Sortuje według bieżącej kolumny, za drugim razem odwrotnie.</translation>
    </message>
    <message>
        <source>Move column left</source>
        <translation>Przesuń kolumnę w lewo</translation>
    </message>
    <message>
        <source>Moves the current column to the left.</source>
        <translation>Przesuwa bieżącą kolumnę w lewo.</translation>
    </message>
    <message>
        <source>Move column right</source>
        <translation>Przesuń kolumnę w prawo</translation>
    </message>
    <message>
        <source>Moves the current column to the right.</source>
        <translation>Przesuwa bieżącą kolumnę w prawo.</translation>
    </message>
    <message>
        <source>Hide column</source>
        <translation>Ukryj kolumnę</translation>
    </message>
    <message>
        <source>Hides the current column.</source>
        <translation>Ukrywa bieżącą kolumnę.</translation>
    </message>
    <message>
        <source>Show all columns</source>
        <translation>Pokaż wszystkie kolumny</translation>
    </message>
    <message>
        <source>Shows the hidden columns again.</source>
        <translation>Pokazuje znów ukryte kolumny.</translation>
    </message>
    <message>
        <source>&amp;Recordings</source>
        <translation>&amp;Nagrania</translation>
    </message>
    <message>
        <source>&amp;Edit</source>
        <translation>&amp;Edycja</translation>
    </message>
    <message>
        <source>&amp;Packs</source>
        <translation>&amp;Pakiety</translation>
    </message>
    <message>
        <source>&amp;Chart</source>
        <translation>&amp;Wykres</translation>
    </message>
    <message>
        <source>&amp;View</source>
        <translation>Wi&amp;dok</translation>
    </message>
    <message>
        <source>Takes for each the pack that was used last at the same port with the same cells.</source>
        <translation>Bierze dla każdego pakiet, który ostatnio był na tym samym porcie z takimi samymi ogniwami.</translation>
    </message>
</context>
<context>
    <name>LogbookCommands</name>
    <message>
        <source>No recording is chosen.</source>
        <translation>Żadne nagranie nie jest zaznaczone.</translation>
    </message>
    <message>
        <source>The files of the chosen recordings have gone.</source>
        <translation>Plików zaznaczonych nagrań już nie ma.</translation>
    </message>
    <message>
        <source>The logbook can&apos;t be kept: nothing can be changed.</source>
        <translation>Kroniki nie można prowadzić: niczego nie można zmienić.</translation>
    </message>
    <message>
        <source>More than one recording is chosen.</source>
        <translation>Zaznaczono więcej niż jedno nagranie.</translation>
    </message>
    <message>
        <source>The files of the chosen recordings are there.</source>
        <translation>Pliki zaznaczonych nagrań istnieją.</translation>
    </message>
    <message>
        <source>Assign to offered pack</source>
        <translation>Przypisz do proponowanego pakietu</translation>
    </message>
    <message>
        <source>Assign to %1</source>
        <translation>Przypisz do %1</translation>
    </message>
    <message>
        <source>No pack is offered for the chosen recordings.</source>
        <translation>Dla zaznaczonych nagrań nie ma propozycji pakietu.</translation>
    </message>
    <message>
        <source>No pack is chosen on the left.</source>
        <translation>Po lewej nie wybrano pakietu.</translation>
    </message>
    <message>
        <source>There is no other pack.</source>
        <translation>Nie ma innego pakietu.</translation>
    </message>
    <message>
        <source>No recording of the pack is chosen.</source>
        <translation>Nie zaznaczono nagrania pakietu.</translation>
    </message>
    <message>
        <source>Undo</source>
        <translation>Cofnij</translation>
    </message>
    <message>
        <source>Redo</source>
        <translation>Ponów</translation>
    </message>
    <message>
        <source>Nothing has been changed.</source>
        <translation>Niczego nie zmieniono.</translation>
    </message>
    <message>
        <source>Nothing has been taken back.</source>
        <translation>Niczego nie cofnięto.</translation>
    </message>
    <message>
        <source>Show in folder</source>
        <translation>Pokaż w folderze</translation>
    </message>
    <message>
        <source>No program shows the folder:</source>
        <translation>Żaden program nie pokazuje folderu:</translation>
    </message>
    <message>
        <source>Delete file</source>
        <translation>Usuń plik</translation>
    </message>
    <message numerus="yes">
        <source>Move %n file(s) to the waste bin? The rows stay in the logbook.</source>
        <translation>
            <numerusform>Przenieść %n plik do kosza? Wiersz zostaje w kronice.</numerusform>
            <numerusform>Przenieść %n pliki do kosza? Wiersze zostają w kronice.</numerusform>
            <numerusform>Przenieść %n plików do kosza? Wiersze zostają w kronice.</numerusform>
        </translation>
    </message>
    <message>
        <source>Move to waste bin</source>
        <translation>Przenieś do kosza</translation>
    </message>
    <message numerus="yes">
        <source>%n file(s) could not be moved to the waste bin: being recorded, or there is no bin for the disk.</source>
        <translation>
            <numerusform>%n pliku nie można było przenieść do kosza: jest nagrywany albo dysk nie ma kosza.</numerusform>
            <numerusform>%n plików nie można było przenieść do kosza: są nagrywane albo dysk nie ma kosza.</numerusform>
            <numerusform>%n plików nie można było przenieść do kosza: są nagrywane albo dysk nie ma kosza.</numerusform>
        </translation>
    </message>
    <message>
        <source>Assign to pack</source>
        <translation>Przypisz do pakietu</translation>
    </message>
    <message numerus="yes">
        <source>Pack of the %n chosen recording(s):</source>
        <translation>
            <numerusform>Pakiet %n zaznaczonego nagrania:</numerusform>
            <numerusform>Pakiet %n zaznaczonych nagrań:</numerusform>
            <numerusform>Pakiet %n zaznaczonych nagrań:</numerusform>
        </translation>
    </message>
    <message>
        <source>New pack</source>
        <translation>Nowy pakiet</translation>
    </message>
    <message>
        <source>Change pack</source>
        <translation>Zmiana pakietu</translation>
    </message>
    <message>
        <source>Merge packs</source>
        <translation>Połącz pakiety</translation>
    </message>
    <message>
        <source>Pack whose recordings become those of %1. It goes then.</source>
        <translation>Pakiet, którego nagrania przejdą do %1. Potem znika.</translation>
    </message>
    <message>
        <source>%1 (2)</source>
        <translation>%1 (2)</translation>
    </message>
    <message>
        <source>Take apart</source>
        <translation>Rozdziel</translation>
    </message>
    <message numerus="yes">
        <source>%n file(s) moved to the waste bin.</source>
        <translation>
            <numerusform>Przeniesiono %n plik do kosza.</numerusform>
            <numerusform>Przeniesiono %n pliki do kosza.</numerusform>
            <numerusform>Przeniesiono %n plików do kosza.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%1 of %n file(s) moved to the waste bin</source>
        <translation>
            <numerusform>Przeniesiono do kosza: %1 z %n pliku</numerusform>
            <numerusform>Przeniesiono do kosza: %1 z %n plików</numerusform>
            <numerusform>Przeniesiono do kosza: %1 z %n plików</numerusform>
        </translation>
    </message>
    <message>
        <source>Open</source>
        <translation>Otwórz</translation>
    </message>
    <message numerus="yes">
        <source>Open %n recording(s), each in a window of its own?</source>
        <translation>
            <numerusform>Otworzyć %n nagranie w osobnym oknie?</numerusform>
            <numerusform>Otworzyć %n nagrania, każde w osobnym oknie?</numerusform>
            <numerusform>Otworzyć %n nagrań, każde w osobnym oknie?</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>LogbookEditor</name>
    <message>
        <source>New pack</source>
        <translation>Nowy pakiet</translation>
    </message>
    <message>
        <source>Change pack</source>
        <translation>Zmiana pakietu</translation>
    </message>
    <message>
        <source>Rename pack</source>
        <translation>Zmiana nazwy pakietu</translation>
    </message>
    <message>
        <source>Remove pack</source>
        <translation>Usunięcie pakietu</translation>
    </message>
    <message>
        <source>Assign to pack</source>
        <translation>Przypisanie do pakietu</translation>
    </message>
    <message>
        <source>Merge packs</source>
        <translation>Połączenie pakietów</translation>
    </message>
    <message>
        <source>Take apart</source>
        <translation>Rozdzielenie</translation>
    </message>
    <message>
        <source>Change note</source>
        <translation>Zmiana notatki</translation>
    </message>
    <message>
        <source>Remove from logbook</source>
        <translation>Usunięcie z kroniki</translation>
    </message>
</context>
<context>
    <name>LogbookFile</name>
    <message>
        <source>The logbook can&apos;t be kept: nothing can be written to %1.</source>
        <translation>Kroniki nie można prowadzić: w %1 nie można nic zapisać.</translation>
    </message>
    <message>
        <source>The logbook is shown as it is and can&apos;t be kept: %1 can&apos;t be written.</source>
        <translation>Kronika jest pokazywana, jaka jest, i nie można jej prowadzić: nie można zapisać %1.</translation>
    </message>
    <message>
        <source>The logbook can&apos;t be read: %1.</source>
        <translation>Kroniki nie można odczytać: %1.</translation>
    </message>
    <message>
        <source>The logbook was written by a newer version and is only shown.</source>
        <translation>Kronikę zapisała nowsza wersja; jest tylko pokazywana.</translation>
    </message>
    <message>
        <source>The logbook can&apos;t be kept: %1</source>
        <translation>Kroniki nie można prowadzić: %1</translation>
    </message>
    <message>
        <source>The logbook is damaged: %1</source>
        <translation>Kronika jest uszkodzona: %1</translation>
    </message>
    <message>
        <source>The logbook was damaged and is made anew from the recordings. The damaged file is now %1.</source>
        <translation>Kronika była uszkodzona i powstaje na nowo z nagrań. Uszkodzony plik to teraz %1.</translation>
    </message>
    <message>
        <source>The logbook was damaged. Packs, assignments and notes are those of the copy %2; the recordings are read anew. The damaged file is now %1.</source>
        <translation>Kronika była uszkodzona. Pakiety, przypisania i notatki pochodzą z kopii %2; nagrania są czytane na nowo. Uszkodzony plik to teraz %1.</translation>
    </message>
    <message>
        <source>The logbook was missing. Packs, assignments and notes are those of the copy %1; the recordings are read anew.</source>
        <translation>Kroniki nie było. Pakiety, przypisania i notatki pochodzą z kopii %1; nagrania są czytane na nowo.</translation>
    </message>
</context>
<context>
    <name>LogbookHost</name>
    <message>
        <source>pack course</source>
        <translation>przebieg pakietu</translation>
    </message>
    <message>
        <source>Folder of recordings</source>
        <translation>Folder nagrań</translation>
    </message>
</context>
<context>
    <name>LogbookParts</name>
    <message>
        <source>Logbook</source>
        <translation>Kronika</translation>
    </message>
    <message>
        <source>What you have changed in the logbook is lost if the program ends now.</source>
        <translation>To, co zmieniono w kronice, przepadnie, jeśli program teraz się zakończy.</translation>
    </message>
    <message>
        <source>End all the same</source>
        <translation>Zakończ mimo to</translation>
    </message>
</context>
<context>
    <name>LogbookStatus</name>
    <message>
        <source>Cancel</source>
        <translation>Anuluj</translation>
    </message>
    <message>
        <source>%v of %m files</source>
        <translation>%v z %m plików</translation>
    </message>
    <message>
        <source>Files that are read for the logbook</source>
        <translation>Pliki czytane dla kroniki</translation>
    </message>
    <message>
        <source>Gives up the files that wait. Edit &gt; Read again goes on.</source>
        <translation>Porzuca oczekujące pliki. Edycja &gt; Czytaj ponownie wznawia.</translation>
    </message>
    <message numerus="yes">
        <source>%n recording(s)</source>
        <translation>
            <numerusform>%n nagranie</numerusform>
            <numerusform>%n nagrania</numerusform>
            <numerusform>%n nagrań</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%1 of %n recording(s)</source>
        <translation>
            <numerusform>%1 z %n nagrania</numerusform>
            <numerusform>%1 z %n nagrań</numerusform>
            <numerusform>%1 z %n nagrań</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n chosen</source>
        <translation>
            <numerusform>%n zaznaczone</numerusform>
            <numerusform>%n zaznaczone</numerusform>
            <numerusform>%n zaznaczonych</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>LogbookWindow</name>
    <message>
        <source>Varnel - logbook</source>
        <translation>Varnel - kronika</translation>
    </message>
    <message>
        <source>Packs</source>
        <translation>Pakiety</translation>
    </message>
</context>
<context>
    <name>MainWindow</name>
    <message>
        <source>Open file</source>
        <translation>Otwórz plik</translation>
    </message>
    <message>
        <source>Read data from file.</source>
        <translation>Wczytuje dane z pliku.</translation>
    </message>
    <message>
        <source>Save as</source>
        <translation>Zapisz jako</translation>
    </message>
    <message>
        <source>Save data to file.</source>
        <translation>Zapisuje dane do pliku.</translation>
    </message>
    <message>
        <source>Save sesion</source>
        <translation>Zapisz sesję</translation>
    </message>
    <message>
        <source>Save all data as one session</source>
        <translation>Zapisuje wszystkie dane jako jedną sesję</translation>
    </message>
    <message>
        <source>Preferences</source>
        <translation>Ustawienia</translation>
    </message>
    <message>
        <source>Aplications preferences.</source>
        <translation>Ustawienia programu.</translation>
    </message>
    <message>
        <source>E&amp;xit</source>
        <translation>Za&amp;kończ</translation>
    </message>
    <message>
        <source>Exit the application.</source>
        <translation>Kończy pracę programu.</translation>
    </message>
    <message>
        <source>Black</source>
        <translation>Czarne</translation>
    </message>
    <message>
        <source>Background color black.</source>
        <translation>Czarne tło.</translation>
    </message>
    <message>
        <source>White</source>
        <translation>Białe</translation>
    </message>
    <message>
        <source>Background color white.</source>
        <translation>Białe tło.</translation>
    </message>
    <message>
        <source>Cl&amp;ose</source>
        <translation>Za&amp;mknij</translation>
    </message>
    <message>
        <source>Close the active window</source>
        <translation>Zamyka aktywne okno</translation>
    </message>
    <message>
        <source>Close &amp;All</source>
        <translation>Zamknij &amp;wszystkie</translation>
    </message>
    <message>
        <source>Close all the windows</source>
        <translation>Zamyka wszystkie okna</translation>
    </message>
    <message>
        <source>&amp;Tile</source>
        <translation>&amp;Sąsiadująco</translation>
    </message>
    <message>
        <source>Tile the windows</source>
        <translation>Układa okna obok siebie</translation>
    </message>
    <message>
        <source>&amp;Cascade</source>
        <translation>&amp;Kaskadowo</translation>
    </message>
    <message>
        <source>Cascade the windows</source>
        <translation>Układa okna kaskadowo</translation>
    </message>
    <message>
        <source>Ne&amp;xt</source>
        <translation>&amp;Następne</translation>
    </message>
    <message>
        <source>Move the focus to the next window</source>
        <translation>Przechodzi do następnego okna</translation>
    </message>
    <message>
        <source>Pre&amp;vious</source>
        <translation>&amp;Poprzednie</translation>
    </message>
    <message>
        <source>Move the focus to the previous window</source>
        <translation>Przechodzi do poprzedniego okna</translation>
    </message>
    <message>
        <source>Recording</source>
        <translation>Rejestracja</translation>
    </message>
    <message>
        <source>Recording data from com port.</source>
        <translation>Rejestracja danych z portu COM.</translation>
    </message>
    <message>
        <source>Capacity comparison</source>
        <translation>Porównanie pojemności</translation>
    </message>
    <message>
        <source>Print capacity comparison.</source>
        <translation>Drukuje porównanie pojemności.</translation>
    </message>
    <message>
        <source>Voltage comparison</source>
        <translation>Porównanie napięć</translation>
    </message>
    <message>
        <source>Print voltage comparison.</source>
        <translation>Drukuje porównanie napięć.</translation>
    </message>
    <message>
        <source>Bar display</source>
        <translation>Słupki ogniw</translation>
    </message>
    <message>
        <source>Print bar display.</source>
        <translation>Drukuje słupki ogniw.</translation>
    </message>
    <message>
        <source>Active plot</source>
        <translation>Aktywny wykres</translation>
    </message>
    <message>
        <source>Print active plot.</source>
        <translation>Drukuje aktywny wykres.</translation>
    </message>
    <message>
        <source>&amp;About</source>
        <translation>&amp;O programie</translation>
    </message>
    <message>
        <source>Show the application&apos;s About box</source>
        <translation>Pokazuje informacje o programie</translation>
    </message>
    <message>
        <source>About &amp;Qt</source>
        <translation>O &amp;Qt</translation>
    </message>
    <message>
        <source>Show the Qt library&apos;s About box</source>
        <translation>Pokazuje informacje o bibliotece Qt</translation>
    </message>
    <message>
        <source>Set time</source>
        <translation>Ustaw zegar</translation>
    </message>
    <message>
        <source>Set time.</source>
        <translation>Ustawia zegar urządzenia.</translation>
    </message>
    <message>
        <source> DATA </source>
        <translation> DANE </translation>
    </message>
    <message>
        <source>Show/hide display</source>
        <translation>Pokaż/ukryj wskazania</translation>
    </message>
    <message>
        <source>Graph</source>
        <translation>Wykres</translation>
    </message>
    <message>
        <source>Show/hide graph</source>
        <translation>Pokaż/ukryj porównanie napięć</translation>
    </message>
    <message>
        <source>Bar Graph</source>
        <translation>Słupki</translation>
    </message>
    <message>
        <source>Show/hide bar graph</source>
        <translation>Pokaż/ukryj porównanie pojemności</translation>
    </message>
    <message>
        <source> T </source>
        <translation> T </translation>
    </message>
    <message>
        <source>Show/hide themparature</source>
        <translation>Pokaż/ukryj temperaturę</translation>
    </message>
    <message>
        <source>  dV </source>
        <translation>  dV </translation>
    </message>
    <message>
        <source>Show/hide dV</source>
        <translation>Pokaż/ukryj dV</translation>
    </message>
    <message>
        <source> Rw </source>
        <translation> Rw </translation>
    </message>
    <message>
        <source>Show/hide cells internal resistance</source>
        <translation>Pokaż/ukryj rezystancję wewnętrzną</translation>
    </message>
    <message>
        <source> B </source>
        <translation> B </translation>
    </message>
    <message>
        <source>Balancer/Charger plot</source>
        <translation>Wykres balansera/ładowarki</translation>
    </message>
    <message>
        <source> Avg </source>
        <translation> Śr </translation>
    </message>
    <message>
        <source>Cells/MinMax plot</source>
        <translation>Wykres ogniw lub min/maks.</translation>
    </message>
    <message>
        <source> S </source>
        <translation> S </translation>
    </message>
    <message>
        <source>Select cells</source>
        <translation>Wybór ogniw</translation>
    </message>
    <message>
        <source> P% </source>
        <translation> P% </translation>
    </message>
    <message>
        <source>Show/hide power balancer</source>
        <translation>Pokaż/ukryj słupki ogniw</translation>
    </message>
    <message>
        <source> Vc </source>
        <translation> Vc </translation>
    </message>
    <message>
        <source>Cells energy/voltage/internal cel resistance</source>
        <translation>Ładunek, napięcie lub rezystancja ogniw</translation>
    </message>
    <message>
        <source>Stop process</source>
        <translation>Zatrzymaj proces</translation>
    </message>
    <message>
        <source>Stop process.</source>
        <translation>Zatrzymuje proces.</translation>
    </message>
    <message>
        <source>Hold view</source>
        <translation>Zatrzymaj widok</translation>
    </message>
    <message>
        <source>Graph windows keep zoom and cursor</source>
        <translation>Okna wykresów zachowują powiększenie i kursor</translation>
    </message>
    <message>
        <source>Open recordings...</source>
        <translation>Otwórz nagrania...</translation>
    </message>
    <message>
        <source>Open what was recorded from the devices, saved or not.</source>
        <translation>Otwiera to, co nagrano z urządzeń, zapisane lub nie.</translation>
    </message>
    <message>
        <source>Reopen closed recording</source>
        <translation>Otwórz ponownie zamknięte nagranie</translation>
    </message>
    <message>
        <source>Open again the recording whose window was closed last.</source>
        <translation>Otwiera ponownie nagranie z ostatnio zamkniętego okna.</translation>
    </message>
    <message>
        <source>Export as CSV...</source>
        <translation>Eksportuj jako CSV...</translation>
    </message>
    <message>
        <source>Write the records of the current graph as a table for other programs.</source>
        <translation>Zapisuje rekordy bieżącego wykresu jako tabelę dla innych programów.</translation>
    </message>
    <message>
        <source>Save picture...</source>
        <translation>Zapisz obraz...</translation>
    </message>
    <message>
        <source>Write the current graph as its window shows it to a picture file.</source>
        <translation>Zapisuje bieżący wykres tak, jak go widać, do pliku obrazu.</translation>
    </message>
    <message>
        <source>Remote control...</source>
        <translation>Zdalne sterowanie...</translation>
    </message>
    <message>
        <source>Operate the front panel of the charger.</source>
        <translation>Obsługa panelu ładowarki z komputera.</translation>
    </message>
    <message>
        <source>Varnel Graph %1</source>
        <translation>Varnel Graph %1</translation>
    </message>
    <message>
        <source>&amp;File</source>
        <translation>&amp;Plik</translation>
    </message>
    <message>
        <source>&amp;Window</source>
        <translation>&amp;Okno</translation>
    </message>
    <message>
        <source>&amp;Print</source>
        <translation>&amp;Drukuj</translation>
    </message>
    <message>
        <source>&amp;Tools</source>
        <translation>&amp;Narzędzia</translation>
    </message>
    <message>
        <source>&amp;View switches</source>
        <translation>&amp;Widok</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <translation>Pomo&amp;c</translation>
    </message>
    <message>
        <source>Ready</source>
        <translation>Gotowy</translation>
    </message>
    <message>
        <source>There is no graph window to print.</source>
        <translation>Nie ma okna wykresu do wydrukowania.</translation>
    </message>
    <message>
        <source>Start listening on ports...</source>
        <translation>Otwieranie portów...</translation>
    </message>
    <message>
        <source>Background color</source>
        <translation>Kolor tła</translation>
    </message>
    <message>
        <source>Main Tool Bar</source>
        <translation>Główny pasek narzędzi</translation>
    </message>
    <message>
        <source>Distinct lines</source>
        <translation>Wyraźne linie</translation>
    </message>
    <message>
        <source>Lines differ in dashes and lightness, not in hue alone; bars carry letters</source>
        <translation>Linie różnią się kreskowaniem i jasnością, nie tylko barwą; słupki mają litery</translation>
    </message>
    <message>
        <source>User guide</source>
        <translation>Podręcznik</translation>
    </message>
    <message>
        <source>Open the manual in your browser.</source>
        <translation>Otwiera podręcznik w przeglądarce.</translation>
    </message>
    <message>
        <source>Explanations...</source>
        <translation>Objaśnienia...</translation>
    </message>
    <message>
        <source>Tells what the status bar and the title of the current graph show.</source>
        <translation>Objaśnia pasek stanu i tytuł bieżącego wykresu.</translation>
    </message>
    <message>
        <source>The large data display</source>
        <translation>Duże wskazania</translation>
    </message>
    <message>
        <source>Voltage comparison: cell voltages of several windows side by side</source>
        <translation>Porównanie napięć: napięcia ogniw z kilku okien obok siebie</translation>
    </message>
    <message>
        <source>Capacity comparison of the recordings</source>
        <translation>Porównanie pojemności nagrań</translation>
    </message>
    <message>
        <source>Curve of the temperature</source>
        <translation>Krzywa temperatury</translation>
    </message>
    <message>
        <source>dV, energy or neither on the right axis</source>
        <translation>Na prawej osi dV, ładunek lub nic</translation>
    </message>
    <message>
        <source>Curve of the internal resistance</source>
        <translation>Krzywa rezystancji wewnętrznej</translation>
    </message>
    <message>
        <source>Balancer view: the cells instead of the pack; in the data display their statistics</source>
        <translation>Widok balansera: ogniwa zamiast pakietu; na wskazaniach ich statystyka</translation>
    </message>
    <message>
        <source>Maximum, average, minimum and spread instead of the cells</source>
        <translation>Maksimum, średnia, minimum i rozrzut zamiast ogniw</translation>
    </message>
    <message>
        <source>All cells, selected ones emphasised; + only the selected ones; - all but them</source>
        <translation>Wszystkie ogniwa, wybrane wyróżnione; + tylko wybrane; - wszystkie oprócz nich</translation>
    </message>
    <message>
        <source>Bar display: bars of the cells&apos; deviations</source>
        <translation>Słupki ogniw: odchylenia ogniw</translation>
    </message>
    <message>
        <source>The figure of each cell: voltage, charge (Ah) or resistance (Ri)</source>
        <translation>Wartość każdego ogniwa: napięcie, ładunek (Ah) lub rezystancja (Ri)</translation>
    </message>
    <message>
        <source>Graph window</source>
        <translation>Okno wykresu</translation>
    </message>
    <message>
        <source>Overlay...</source>
        <translation>Nałóż krzywe...</translation>
    </message>
    <message>
        <source>Lay the curves of recordings over each other.</source>
        <translation>Nakłada na siebie krzywe nagrań.</translation>
    </message>
    <message>
        <source>Logbook</source>
        <translation>Kronika</translation>
    </message>
    <message>
        <source>What every pack has been through: its recordings, and how it fares.</source>
        <translation>Co przeszedł każdy pakiet: jego nagrania i jak się ma.</translation>
    </message>
</context>
<context>
    <name>MdiGraphChild</name>
    <message>
        <source>Out of memory since %1: lines go on in the journal only</source>
        <translation>Brak pamięci od %1: dane trafiają już tylko do dziennika</translation>
    </message>
    <message>
        <source>Ended or silent since %1</source>
        <translation>Koniec lub cisza od %1</translation>
    </message>
    <message>
        <source>No line since %1</source>
        <translation>Brak danych od %1</translation>
    </message>
    <message>
        <source>No file name</source>
        <translation>Bez nazwy</translation>
    </message>
    <message>
        <source>Device: </source>
        <translation>Urządzenie: </translation>
    </message>
    <message>
        <source>View held</source>
        <translation>Widok zatrzymany</translation>
    </message>
    <message>
        <source>NO DATA</source>
        <translation>BRAK DANYCH</translation>
    </message>
    <message>
        <source>   Cels:</source>
        <translation>   Ogniwa:</translation>
    </message>
    <message>
        <source>Graph %1</source>
        <translation>Wykres %1</translation>
    </message>
    <message>
        <source>no data</source>
        <translation>brak danych</translation>
    </message>
    <message>
        <source>%1 volts</source>
        <translation>napięcie %1 V</translation>
    </message>
</context>
<context>
    <name>NoteDialog</name>
    <message>
        <source>Note</source>
        <translation>Notatka</translation>
    </message>
    <message>
        <source>Your own words on the chosen recordings; the filter finds them.</source>
        <translation>Własne słowa o nagraniu; filtr je znajduje.</translation>
    </message>
    <message>
        <source>Keeps the note. It can be undone.</source>
        <translation>Zachowuje notatkę. Można to cofnąć.</translation>
    </message>
    <message>
        <source>Changes nothing.</source>
        <translation>Niczego nie zmienia.</translation>
    </message>
</context>
<context>
    <name>Overlay</name>
    <message>
        <source>Pack voltage</source>
        <translation>Napięcie pakietu</translation>
    </message>
    <message>
        <source>V</source>
        <translation>V</translation>
    </message>
    <message>
        <source>Mean cell</source>
        <translation>Średnie ogniwo</translation>
    </message>
    <message>
        <source>Highest cell</source>
        <translation>Najwyższe ogniwo</translation>
    </message>
    <message>
        <source>Lowest cell</source>
        <translation>Najniższe ogniwo</translation>
    </message>
    <message>
        <source>Spread of the cells</source>
        <translation>Rozrzut ogniw</translation>
    </message>
    <message>
        <source>mV</source>
        <translation>mV</translation>
    </message>
    <message>
        <source>Current</source>
        <translation>Prąd</translation>
    </message>
    <message>
        <source>A</source>
        <translation>A</translation>
    </message>
    <message>
        <source>Temperature</source>
        <translation>Temperatura</translation>
    </message>
    <message>
        <source>Resistance</source>
        <translation>Rezystancja</translation>
    </message>
    <message>
        <source>mΩ</source>
        <translation>mΩ</translation>
    </message>
    <message>
        <source>from %1 to the end</source>
        <translation>od %1 do końca</translation>
    </message>
    <message>
        <source>No recording is shown: add files, or take the open graph windows.</source>
        <translation>Nie ma nagrań: dodaj pliki albo weź otwarte okna wykresów.</translation>
    </message>
    <message>
        <source>None of these recordings has such values.</source>
        <translation>Żadne z tych nagrań nie ma takich wartości.</translation>
    </message>
    <message>
        <source>Time</source>
        <translation>Czas</translation>
    </message>
    <message>
        <source>Charge</source>
        <translation>Ładunek</translation>
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
        <translation>za mało pamięci</translation>
    </message>
    <message>
        <source>no records</source>
        <translation>brak pomiarów</translation>
    </message>
    <message>
        <source>Overlay</source>
        <translation>Nałożone krzywe</translation>
    </message>
    <message>
        <source>No more than %1 recordings are shown.</source>
        <translation>Pokazuje się najwyżej %1 nagrań.</translation>
    </message>
</context>
<context>
    <name>OverlayPlot</name>
    <message>
        <source>A click picks the recording. Control and drag, or Alt with Left and Right, move its curve.</source>
        <translation>Kliknięcie wybiera nagranie. Przeciągnięcie z Control albo Alt ze strzałkami w lewo i w prawo przesuwa jego krzywą.</translation>
    </message>
</context>
<context>
    <name>OverlayWindow</name>
    <message>
        <source>&amp;Line up at the start of current</source>
        <translation>&amp;Wyrównaj do początku prądu</translation>
    </message>
    <message>
        <source>Varnel - overlay</source>
        <translation>Varnel - nałożone krzywe</translation>
    </message>
    <message>
        <source> s</source>
        <translation> s</translation>
    </message>
    <message>
        <source>Value</source>
        <translation>Wartość</translation>
    </message>
    <message>
        <source>What the recordings are compared by</source>
        <translation>Co się w nagraniach porównuje</translation>
    </message>
    <message>
        <source>Over</source>
        <translation>Względem</translation>
    </message>
    <message>
        <source>Time since the start, or the charge that has flowed</source>
        <translation>Czas od początku albo ładunek, który przepłynął</translation>
    </message>
    <message>
        <source>Each recording begins where its current does, not where it was begun</source>
        <translation>Każde nagranie zaczyna się tam, gdzie jego prąd, a nie tam, gdzie je rozpoczęto</translation>
    </message>
    <message>
        <source>Shift</source>
        <translation>Przesunięcie</translation>
    </message>
    <message>
        <source>Moves the recording that is picked in the legend. With the mouse: Control and drag its curve.</source>
        <translation>Przesuwa nagranie wybrane w legendzie. Myszą: przeciągnij jego krzywą z klawiszem Control.</translation>
    </message>
    <message>
        <source>&amp;Value:</source>
        <translation>W&amp;artość:</translation>
    </message>
    <message>
        <source>&amp;Over:</source>
        <translation>Wz&amp;ględem:</translation>
    </message>
    <message>
        <source>&amp;Shift:</source>
        <translation>&amp;Przesunięcie:</translation>
    </message>
    <message>
        <source>Add &amp;files...</source>
        <translation>&amp;Dodaj pliki...</translation>
    </message>
    <message>
        <source>Reads recordings and lays them over those that are shown</source>
        <translation>Wczytuje nagrania i nakłada je na pokazane</translation>
    </message>
    <message>
        <source>Open &amp;windows</source>
        <translation>&amp;Otwarte okna</translation>
    </message>
    <message>
        <source>Shows the open graph windows as they are now</source>
        <translation>Pokazuje otwarte okna wykresów w ich obecnym stanie</translation>
    </message>
    <message>
        <source>&amp;Remove</source>
        <translation>&amp;Usuń</translation>
    </message>
    <message>
        <source>Takes the picked recording away, or all of them if none is picked. Key: Delete</source>
        <translation>Usuwa wybrane nagranie, a bez wyboru wszystkie. Klawisz: Delete</translation>
    </message>
    <message>
        <source>Save &amp;picture...</source>
        <translation>Zapisz o&amp;braz...</translation>
    </message>
    <message>
        <source>Writes what is shown to a picture file</source>
        <translation>Zapisuje to, co widać, do pliku obrazu</translation>
    </message>
    <message>
        <source>Pr&amp;int...</source>
        <translation>Dru&amp;kuj...</translation>
    </message>
    <message>
        <source>Prints what is shown</source>
        <translation>Drukuje to, co widać</translation>
    </message>
</context>
<context>
    <name>PackChoice</name>
    <message>
        <source>New pack...</source>
        <translation>Nowy pakiet...</translation>
    </message>
    <message>
        <source>Takes the chosen pack. It can be undone.</source>
        <translation>Bierze wybrany pakiet. Można to cofnąć.</translation>
    </message>
    <message>
        <source>Changes nothing.</source>
        <translation>Niczego nie zmienia.</translation>
    </message>
</context>
<context>
    <name>PackCourse</name>
    <message>
        <source>No recording of this pack tells it.</source>
        <translation>Żadne nagranie tego pakietu tego nie mówi.</translation>
    </message>
    <message>
        <source>nominal</source>
        <translation>znamionowa</translation>
    </message>
    <message>
        <source>Assign recordings to packs to see how these fare: choose rows, then Recordings &gt; Assign to pack.</source>
        <translation>Przypisz nagrania do pakietów, aby zobaczyć, jak się mają: zaznacz wiersze, potem Nagrania &gt; Przypisz do pakietu.</translation>
    </message>
    <message>
        <source>worn out below 80 %</source>
        <translation>zużyty poniżej 80 %</translation>
    </message>
    <message>
        <source>No recordings yet. They come from your devices, from files that you open, and from the folders of Edit &gt; Folders.</source>
        <translation>Jeszcze nie ma nagrań. Przychodzą z urządzeń, z otwieranych plików i z folderów z menu Edycja &gt; Foldery.</translation>
    </message>
    <message>
        <source>Tell the nominal capacity of the packs to see how they fare: choose one, then Packs &gt; Rename or change pack.</source>
        <translation>Podaj pojemność znamionową pakietów, aby zobaczyć, jak się mają: wybierz pakiet, potem Pakiety &gt; Zmień nazwę lub pakiet.</translation>
    </message>
    <message>
        <source>No recording of the packs tells it.</source>
        <translation>Żadne nagranie pakietów o tym nie mówi.</translation>
    </message>
</context>
<context>
    <name>PackDialog</name>
    <message>
        <source>Keeps what stands here. It can be undone.</source>
        <translation>Zachowuje to, co tu stoi. Można to cofnąć.</translation>
    </message>
    <message>
        <source>Changes nothing.</source>
        <translation>Niczego nie zmienia.</translation>
    </message>
    <message>
        <source>What the pack is called; write it on the pack, too.</source>
        <translation>Jak nazywa się pakiet; napisz to także na nim.</translation>
    </message>
    <message>
        <source>Kind of the cells</source>
        <translation>Typ ogniw</translation>
    </message>
    <message>
        <source>not said</source>
        <translation>nie podano</translation>
    </message>
    <message>
        <source>Number of cells in series</source>
        <translation>Liczba ogniw szeregowo</translation>
    </message>
    <message>
        <source>As printed on the pack: the state of health is reckoned from it.</source>
        <translation>Jak nadrukowano na pakiecie: z niej liczy się stan zdrowia.</translation>
    </message>
    <message>
        <source>Your own words: maker, bought when, used for what</source>
        <translation>Własne słowa: producent, kiedy kupiony, do czego</translation>
    </message>
    <message>
        <source>Name:</source>
        <translation>Nazwa:</translation>
    </message>
    <message>
        <source>Chemistry:</source>
        <translation>Typ ogniw:</translation>
    </message>
    <message>
        <source>Cells:</source>
        <translation>Ogniwa:</translation>
    </message>
    <message>
        <source>Nominal capacity:</source>
        <translation>Pojemność znamionowa:</translation>
    </message>
    <message>
        <source>Note:</source>
        <translation>Notatka:</translation>
    </message>
</context>
<context>
    <name>PackList</name>
    <message>
        <source>%1 mAh nominal</source>
        <translation>%1 mAh znamionowo</translation>
    </message>
    <message>
        <source>Give the nominal capacity to see the state of health.</source>
        <translation>Podaj pojemność znamionową, aby zobaczyć stan zdrowia.</translation>
    </message>
    <message>
        <source>All recordings</source>
        <translation>Wszystkie nagrania</translation>
    </message>
    <message>
        <source>Every recording, of whichever pack</source>
        <translation>Każde nagranie, z dowolnego pakietu</translation>
    </message>
    <message>
        <source>Not assigned</source>
        <translation>Nieprzypisane</translation>
    </message>
    <message>
        <source>Recordings without a pack</source>
        <translation>Nagrania bez pakietu</translation>
    </message>
    <message>
        <source>Worn out: below 80 % of its nominal capacity.</source>
        <translation>Zużyty: poniżej 80 % pojemności znamionowej.</translation>
    </message>
    <message>
        <source>Cell %1 is weak: %2 mV between the highest and the lowest when the pack is empty.</source>
        <translation>Ogniwo %1 jest słabe: %2 mV między najwyższym a najniższym, gdy pakiet jest pusty.</translation>
    </message>
    <message>
        <source>worn out</source>
        <translation>zużyty</translation>
    </message>
    <message>
        <source>Pack</source>
        <translation>Pakiet</translation>
    </message>
    <message>
        <source>Health</source>
        <translation>Zdrowie</translation>
    </message>
    <message>
        <source>Per year</source>
        <translation>Na rok</translation>
    </message>
    <message>
        <source>Cycles</source>
        <translation>Cykle</translation>
    </message>
    <message>
        <source>Newest</source>
        <translation>Ostatnie</translation>
    </message>
    <message>
        <source>Name of the battery pack</source>
        <translation>Nazwa pakietu</translation>
    </message>
    <message>
        <source>State of health: what the newest full discharge gave, of the nominal capacity</source>
        <translation>Stan zdrowia: ile dało ostatnie pełne rozładowanie z pojemności znamionowej</translation>
    </message>
    <message>
        <source>By how much the state of health changes in a year</source>
        <translation>O ile stan zdrowia zmienia się w ciągu roku</translation>
    </message>
    <message>
        <source>Charges, or discharges where there are more of these</source>
        <translation>Ładowania, albo rozładowania, jeśli tych jest więcej</translation>
    </message>
    <message>
        <source>Start of the newest recording</source>
        <translation>Początek ostatniego nagrania</translation>
    </message>
    <message>
        <source>weak cell</source>
        <translation>słabe ogniwo</translation>
    </message>
</context>
<context>
    <name>PortObstacle</name>
    <message>
        <source>&quot;%1&quot;, process %2</source>
        <translation>„%1”, proces %2</translation>
    </message>
    <message>
        <source>Another program holds the port.</source>
        <translation>Port zajmuje inny program.</translation>
    </message>
    <message>
        <source>Another program holds the port: %1.</source>
        <translation>Port zajmuje inny program: %1.</translation>
    </message>
    <message>
        <source>Another program holds the port: %1 of the user &quot;%2&quot;.</source>
        <translation>Port zajmuje inny program: %1 użytkownika „%2”.</translation>
    </message>
    <message>
        <source>You have no right to use the port.</source>
        <translation>Nie masz uprawnień do tego portu.</translation>
    </message>
    <message>
        <source>You have no right to use the port. Join the group &quot;%1&quot; and log in again.</source>
        <translation>Nie masz uprawnień do tego portu. Dołącz do grupy „%1” i zaloguj się ponownie.</translation>
    </message>
    <message>
        <source>This program listens on the port already.</source>
        <translation>Ten program już nasłuchuje na tym porcie.</translation>
    </message>
    <message>
        <source>This program listens on the same device already, under another name: %1.</source>
        <translation>Ten program już nasłuchuje na tym urządzeniu pod inną nazwą: %1.</translation>
    </message>
    <message>
        <source>A program that has ended has left its lock behind.</source>
        <translation>Zakończony program zostawił po sobie blokadę.</translation>
    </message>
    <message>
        <source>A program that has ended has left its lock behind: %1.</source>
        <translation>Zakończony program zostawił po sobie blokadę: %1.</translation>
    </message>
    <message>
        <source>The user &quot;%1&quot; or an administrator has to remove the file %2.</source>
        <translation>Użytkownik „%1” lub administrator musi usunąć plik %2.</translation>
    </message>
    <message>
        <source>a socket</source>
        <translation>gniazdo</translation>
    </message>
    <message>
        <source>a link</source>
        <translation>dowiązanie</translation>
    </message>
    <message>
        <source>a folder</source>
        <translation>folder</translation>
    </message>
    <message>
        <source>a device</source>
        <translation>urządzenie</translation>
    </message>
    <message>
        <source>a pipe</source>
        <translation>potok</translation>
    </message>
    <message>
        <source>%1 should be the port&apos;s lock file and is %2.
The user &quot;%3&quot; or an administrator has to remove it.</source>
        <translation>%1 powinno być plikiem blokady portu, a jest to %2.
Musi to usunąć użytkownik „%3” lub administrator.</translation>
    </message>
    <message>
        <source>You have no right to make lock files in %1.</source>
        <translation>Nie masz uprawnień do tworzenia plików blokad w %1.</translation>
    </message>
</context>
<context>
    <name>PortQuestions</name>
    <message>
        <source>Question</source>
        <translation>Pytanie</translation>
    </message>
</context>
<context>
    <name>PowerDisplay</name>
    <message>
        <source>NO DATA</source>
        <translation>BRAK DANYCH</translation>
    </message>
    <message>
        <source>Varnel - bar display</source>
        <translation>Varnel - słupki ogniw</translation>
    </message>
    <message>
        <source>No line since %1</source>
        <translation>Brak danych od %1</translation>
    </message>
    <message>
        <source>window %1</source>
        <translation>okno %1</translation>
    </message>
    <message>
        <source>cell %1: %2, balancing %3 %</source>
        <translation>ogniwo %1: %2, balansowanie %3 %</translation>
    </message>
</context>
<context>
    <name>PrintRequest</name>
    <message>
        <source>Sent to %1.</source>
        <translation>Wysłano do %1.</translation>
    </message>
    <message>
        <source>%1 written.</source>
        <translation>Zapisano %1.</translation>
    </message>
    <message>
        <source>Can not print to %1</source>
        <translation>Nie można drukować do %1</translation>
    </message>
</context>
<context>
    <name>ProcessEnd</name>
    <message>
        <source>Error in process !</source>
        <translation>Błąd procesu!</translation>
    </message>
    <message>
        <source>Error</source>
        <translation>Błąd</translation>
    </message>
    <message>
        <source>Process aborted by user.</source>
        <translation>Proces przerwany przez użytkownika.</translation>
    </message>
    <message>
        <source>Aborted</source>
        <translation>Przerwano</translation>
    </message>
    <message>
        <source>Process completed.</source>
        <translation>Proces zakończony.</translation>
    </message>
    <message>
        <source>End</source>
        <translation>Koniec</translation>
    </message>
</context>
<context>
    <name>ProgressStrip</name>
    <message>
        <source>Cancel</source>
        <translation>Anuluj</translation>
    </message>
</context>
<context>
    <name>QCommandLineParser</name>
    <message>
        <source>Displays help on commandline options.</source>
        <translation>Wyświetla pomoc dotyczącą opcji wiersza poleceń.</translation>
    </message>
    <message>
        <source>Displays help including Qt specific options.</source>
        <translation>Wyświetla pomoc wraz z opcjami samego Qt.</translation>
    </message>
</context>
<context>
    <name>QFileDialog</name>
    <message>
        <source>%1
Directory not found.
Please verify the correct directory name was given.</source>
        <translation>%1
Nie znaleziono folderu.
Sprawdź, czy podano właściwą nazwę.</translation>
    </message>
</context>
<context>
    <name>QPrintDialog</name>
    <message>
        <source>Invalid Pages Definition</source>
        <translation>Błędny wybór stron</translation>
    </message>
</context>
<context>
    <name>QPrintPropertiesWidget</name>
    <message>
        <source>Advanced</source>
        <translation>Zaawansowane</translation>
    </message>
</context>
<context>
    <name>QPrintSettingsOutput</name>
    <message>
        <source>Double Sided Printing</source>
        <translation>Drukowanie dwustronne</translation>
    </message>
    <message>
        <source>Off</source>
        <translation>Wyłączone</translation>
    </message>
    <message>
        <source>Long side binding</source>
        <translation>Po długiej krawędzi</translation>
    </message>
    <message>
        <source>Short side binding</source>
        <translation>Po krótkiej krawędzi</translation>
    </message>
    <message>
        <source>Pages</source>
        <translation>Strony</translation>
    </message>
</context>
<context>
    <name>RecordingColumns</name>
    <message>
        <source>%1 (gone)</source>
        <translation>%1 (brak)</translation>
    </message>
    <message>
        <source>Start</source>
        <translation>Początek</translation>
    </message>
    <message>
        <source>When the process began; ≈ from the time of the file</source>
        <translation>Kiedy zaczął się proces; ≈ z czasu pliku</translation>
    </message>
    <message>
        <source>Pack</source>
        <translation>Pakiet</translation>
    </message>
    <message>
        <source>The battery pack; grey with ?: the one to be offered</source>
        <translation>Pakiet; szary z ?: proponowany</translation>
    </message>
    <message>
        <source>Device</source>
        <translation>Urządzenie</translation>
    </message>
    <message>
        <source>The charger that sent the records</source>
        <translation>Ładowarka, która wysłała rekordy</translation>
    </message>
    <message>
        <source>Port</source>
        <translation>Port</translation>
    </message>
    <message>
        <source>The serial port, from the name of the file</source>
        <translation>Port szeregowy, z nazwy pliku</translation>
    </message>
    <message>
        <source>Process</source>
        <translation>Proces</translation>
    </message>
    <message>
        <source>Charge, discharge, balancing, format or test</source>
        <translation>Ładowanie, rozładowanie, balansowanie, formatowanie lub test</translation>
    </message>
    <message>
        <source>Chemistry</source>
        <translation>Typ ogniw</translation>
    </message>
    <message>
        <source>Kind of the cells</source>
        <translation>Typ ogniw</translation>
    </message>
    <message>
        <source>Cells</source>
        <translation>Ogniwa</translation>
    </message>
    <message>
        <source>Number of cells in series</source>
        <translation>Liczba ogniw szeregowo</translation>
    </message>
    <message>
        <source>Duration</source>
        <translation>Czas</translation>
    </message>
    <message>
        <source>Hours, minutes and seconds to the end of the process</source>
        <translation>Godziny, minuty i sekundy do końca procesu</translation>
    </message>
    <message>
        <source>Charge [mAh]</source>
        <translation>Ładunek [mAh]</translation>
    </message>
    <message>
        <source>What went in or came out, as in the capacity comparison</source>
        <translation>Ile weszło lub wyszło, jak w porównaniu pojemności</translation>
    </message>
    <message>
        <source>Energy [Wh]</source>
        <translation>Energia [Wh]</translation>
    </message>
    <message>
        <source>Voltage times current, over the time</source>
        <translation>Napięcie razy prąd, w czasie</translation>
    </message>
    <message>
        <source>Start [V]</source>
        <translation>Początek [V]</translation>
    </message>
    <message>
        <source>Voltage of the pack at the start</source>
        <translation>Napięcie pakietu na początku</translation>
    </message>
    <message>
        <source>End [V]</source>
        <translation>Koniec [V]</translation>
    </message>
    <message>
        <source>Voltage of the pack at the end</source>
        <translation>Napięcie pakietu na końcu</translation>
    </message>
    <message>
        <source>Max. [°C]</source>
        <translation>Maks. [°C]</translation>
    </message>
    <message>
        <source>Highest temperature</source>
        <translation>Najwyższa temperatura</translation>
    </message>
    <message>
        <source>Resistance [mΩ]</source>
        <translation>Rezystancja [mΩ]</translation>
    </message>
    <message>
        <source>Internal resistance of the pack</source>
        <translation>Rezystancja wewnętrzna pakietu</translation>
    </message>
    <message>
        <source>Cells [mΩ]</source>
        <translation>Ogniwa [mΩ]</translation>
    </message>
    <message>
        <source>Internal resistance of each cell, from the first on</source>
        <translation>Rezystancja wewnętrzna każdego ogniwa, od pierwszego</translation>
    </message>
    <message>
        <source>Spread [mV]</source>
        <translation>Rozrzut [mV]</translation>
    </message>
    <message>
        <source>Highest cell less the lowest, at the end</source>
        <translation>Najwyższe ogniwo minus najniższe, na końcu</translation>
    </message>
    <message>
        <source>Ended</source>
        <translation>Zakończenie</translation>
    </message>
    <message>
        <source>How the process ended</source>
        <translation>Jak zakończył się proces</translation>
    </message>
    <message>
        <source>Note</source>
        <translation>Notatka</translation>
    </message>
    <message>
        <source>Your own words</source>
        <translation>Własne słowa</translation>
    </message>
    <message>
        <source>File</source>
        <translation>Plik</translation>
    </message>
    <message>
        <source>Where the records are kept</source>
        <translation>Gdzie są rekordy</translation>
    </message>
</context>
<context>
    <name>RecordingView</name>
    <message>
        <source>Recordings</source>
        <translation>Nagrania</translation>
    </message>
</context>
<context>
    <name>RecordingsModel</name>
    <message>
        <source>Length</source>
        <translation>Czas</translation>
    </message>
</context>
<context>
    <name>RemoteControls</name>
    <message>
        <source>No port is listened on: choose one in the preferences.</source>
        <translation>Brak nasłuchu na portach: wybierz port w ustawieniach.</translation>
    </message>
    <message>
        <source>Operate the front panel of the charger.</source>
        <translation>Obsługa panelu ładowarki z komputera.</translation>
    </message>
    <message>
        <source>Remote control</source>
        <translation>Zdalne sterowanie</translation>
    </message>
    <message>
        <source>Remote control...</source>
        <translation>Zdalne sterowanie...</translation>
    </message>
    <message>
        <source>%1 (current window)...</source>
        <translation>%1 (bieżące okno)...</translation>
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
        <translation>Windows nie zna plików o takiej nazwie. Wybierz inną.</translation>
    </message>
</context>
<context>
    <name>SerialReader</name>
    <message>
        <source>It can&apos;t be locked</source>
        <translation>Nie można założyć blokady</translation>
    </message>
    <message>
        <source>Device %1 failed to open: %2</source>
        <translation>Nie udało się otworzyć urządzenia %1: %2</translation>
    </message>
</context>
<context>
    <name>SettingsKeeper</name>
    <message>
        <source>its folder is protected against writing</source>
        <translation>folder jest chroniony przed zapisem</translation>
    </message>
    <message>
        <source>another program holds it</source>
        <translation>plik zajmuje inny program</translation>
    </message>
    <message>
        <source>the disk is full or reports an error</source>
        <translation>dysk jest pełny lub zgłasza błąd</translation>
    </message>
</context>
<context>
    <name>SettingsNotice</name>
    <message>
        <source>Settings</source>
        <translation>Ustawienia</translation>
    </message>
    <message>
        <source>Not all of your settings could be read. What is missing is as in a new installation.</source>
        <translation>Nie wszystkie ustawienia udało się odczytać. Brakujące są takie jak po instalacji.</translation>
    </message>
    <message>
        <source>Your settings can&apos;t be written. What you change holds until the program ends.</source>
        <translation>Nie można zapisać ustawień. Zmiany obowiązują do zakończenia programu.</translation>
    </message>
</context>
<context>
    <name>SleepInhibitor</name>
    <message>
        <source>A process is being recorded</source>
        <translation>Trwa rejestracja procesu</translation>
    </message>
</context>
<context>
    <name>StaleWatch</name>
    <message>
        <source>%1: no line since %2</source>
        <translation>%1: brak danych od %2</translation>
    </message>
</context>
<context>
    <name>StatusFacts</name>
    <message>
        <source>The process has ended and its message is gone. It is named here until you look at its window.</source>
        <translation>Proces się zakończył, a komunikat zniknął. Pozostaje tu, dopóki nie obejrzysz jego okna.</translation>
    </message>
    <message>
        <source>Lost: %1</source>
        <translation>Odłączono: %1</translation>
    </message>
    <message>
        <source>The device or its adapter went away. Listening goes on when it is back.</source>
        <translation>Urządzenie lub jego adapter zniknęły. Nasłuch wróci razem z nimi.</translation>
    </message>
    <message>
        <source>Can&apos;t open: %1</source>
        <translation>Nie do otwarcia: %1</translation>
    </message>
    <message>
        <source>These ports could not be opened.</source>
        <translation>Tych portów nie udało się otworzyć.</translation>
    </message>
    <message>
        <source>Paused: %1</source>
        <translation>Wstrzymano: %1</translation>
    </message>
    <message>
        <source>Recording is paused: what the device sends is lost. Press Recording to go on.</source>
        <translation>Rejestracja wstrzymana: dane z urządzenia przepadają. Naciśnij Rejestracja, aby wznowić.</translation>
    </message>
    <message>
        <source>No data: %1</source>
        <translation>Brak danych: %1</translation>
    </message>
    <message>
        <source>The device has sent no line for a while.</source>
        <translation>Urządzenie od pewnego czasu nic nie wysyła.</translation>
    </message>
    <message>
        <source>Window closed: %1</source>
        <translation>Okno zamknięte: %1</translation>
    </message>
    <message>
        <source>The graph window was closed. A window opens again with the next process.</source>
        <translation>Okno wykresu zamknięto. Nowe otworzy się z następnym procesem.</translation>
    </message>
    <message>
        <source>Not on disk: %1</source>
        <translation>Nie na dysku: %1</translation>
    </message>
    <message>
        <source>The journal&apos;s disk takes no more. Lines wait in memory and are written as soon as it does.</source>
        <translation>Dysk dziennika nie przyjmuje danych. Czekają w pamięci i zostaną zapisane, gdy to będzie możliwe.</translation>
    </message>
    <message>
        <source>Error: %1</source>
        <translation>Błąd: %1</translation>
    </message>
    <message>
        <source>Aborted: %1</source>
        <translation>Przerwano: %1</translation>
    </message>
    <message>
        <source>Completed: %1</source>
        <translation>Zakończono: %1</translation>
    </message>
    <message>
        <source>Listening: %1</source>
        <translation>Nasłuch: %1</translation>
    </message>
    <message>
        <source>The ports are chosen in File &gt; Preferences.</source>
        <translation>Porty wybiera się w Plik &gt; Ustawienia.</translation>
    </message>
    <message>
        <source>Listening: no port</source>
        <translation>Nasłuch: brak</translation>
    </message>
</context>
<context>
    <name>ToolsCommands</name>
    <message>
        <source>There is no graph window.</source>
        <translation>Nie ma okna wykresu.</translation>
    </message>
    <message>
        <source>No window of an unsaved recording has been closed yet.</source>
        <translation>Nie zamknięto jeszcze okna z niezapisanym nagraniem.</translation>
    </message>
    <message>
        <source>The closed recording is no longer there.</source>
        <translation>Zamkniętego nagrania już nie ma.</translation>
    </message>
</context>
<context>
    <name>UnsavedWindows</name>
    <message>
        <source>The recording is kept as %1: Tools &gt; Reopen closed recording.</source>
        <translation>Nagranie zachowano jako %1: Narzędzia &gt; Otwórz ponownie zamknięte nagranie.</translation>
    </message>
    <message>
        <source>The program closes when the file is written. Cancel gives the file up.</source>
        <translation>Program zamknie się po zapisaniu pliku. Anuluj rezygnuje z pliku.</translation>
    </message>
    <message>
        <source>Recording</source>
        <translation>Nagranie</translation>
    </message>
    <message>
        <source>Another of the windows is about to be saved as %1.</source>
        <translation>Inne okno jest właśnie zapisywane jako %1.</translation>
    </message>
    <message>
        <source>The recording in window %1 is not saved.</source>
        <translation>Nagranie w oknie %1 nie jest zapisane.</translation>
    </message>
    <message>
        <source>Nothing else keeps it. Save it before its window closes?</source>
        <translation>Nie ma go nigdzie indziej. Zapisać przed zamknięciem okna?</translation>
    </message>
    <message>
        <source>The journal could not keep all of it. Save it before its window closes?</source>
        <translation>Dziennik nie zachował całości. Zapisać przed zamknięciem okna?</translation>
    </message>
</context>
<context>
    <name>UserGuide</name>
    <message>
        <source>The user guide is not installed.</source>
        <translation>Podręcznik nie jest zainstalowany.</translation>
    </message>
    <message>
        <source>No program opens the user guide. It lies in:</source>
        <translation>Żaden program nie otwiera podręcznika. Znajduje się w:</translation>
    </message>
    <message>
        <source>User guide</source>
        <translation>Podręcznik</translation>
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
        <translation>Brak</translation>
    </message>
    <message>
        <source>Charge</source>
        <translation>Ładowanie</translation>
    </message>
    <message>
        <source>Discharge</source>
        <translation>Rozładowanie</translation>
    </message>
    <message>
        <source>Balancing</source>
        <translation>Balansowanie</translation>
    </message>
    <message>
        <source>Format</source>
        <translation>Formowanie</translation>
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
        <translation>Brak danych ogniw</translation>
    </message>
    <message>
        <source>No cell %1</source>
        <translation>Brak ogniwa %1</translation>
    </message>
    <message>
        <source>All cells are hidden.</source>
        <translation>Wszystkie ogniwa są ukryte.</translation>
    </message>
    <message>
        <source>No cell selected</source>
        <translation>Nie wybrano ogniwa</translation>
    </message>
    <message>
        <source>NO DATA</source>
        <translation>BRAK DANYCH</translation>
    </message>
    <message>
        <source>No line since %1</source>
        <translation>Brak danych od %1</translation>
    </message>
    <message>
        <source>Max %1, cell %2</source>
        <translation>Maks. %1, ogniwo %2</translation>
    </message>
    <message>
        <source>Min %1, cell %2</source>
        <translation>Min %1, ogniwo %2</translation>
    </message>
    <message>
        <source>Spread %1</source>
        <translation>Rozrzut %1</translation>
    </message>
    <message>
        <source>All cells but the selected</source>
        <translation>Wszystkie ogniwa oprócz wybranych</translation>
    </message>
    <message>
        <source>All cells, the selected emphasised</source>
        <translation>Wszystkie ogniwa, wybrane wyróżnione</translation>
    </message>
    <message>
        <source>Only the selected cells</source>
        <translation>Tylko wybrane ogniwa</translation>
    </message>
    <message>
        <source>Varnel - voltage comparison</source>
        <translation>Varnel - porównanie napięć</translation>
    </message>
    <message>
        <source>Cell %1 of every window (arrow keys: another; click or Esc: all cells)</source>
        <translation>Ogniwo %1 każdego okna (strzałki: inne; kliknięcie lub Esc: wszystkie)</translation>
    </message>
    <message>
        <source>cell %1: %2 volts</source>
        <translation>ogniwo %1: %2 V</translation>
    </message>
    <message>
        <source>window %1</source>
        <translation>okno %1</translation>
    </message>
</context>
<context>
    <name>WriteOutcome</name>
    <message>
        <source>too many links</source>
        <translation>za dużo dowiązań</translation>
    </message>
    <message>
        <source>not a regular file</source>
        <translation>to nie jest zwykły plik</translation>
    </message>
    <message>
        <source>The disk did not take all of it.</source>
        <translation>Dysk nie przyjął całości.</translation>
    </message>
</context>
<context>
    <name>main</name>
    <message>
        <source>The program that is running does not answer.</source>
        <translation>Uruchomiony już program nie odpowiada.</translation>
    </message>
    <message>
        <source>Its process has the number %1.</source>
        <translation>Numer jego procesu: %1.</translation>
    </message>
    <message>
        <source>End it, or wait for its end, and start again.</source>
        <translation>Zakończ go albo poczekaj na jego koniec i uruchom ponownie.</translation>
    </message>
</context>
</TS>

<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de" sourcelanguage="en">
<context>
    <name>Core::Project</name>
    <message>
        <source>Can not read the project %1: %2</source>
        <translation>Das Projekt %1 kann nicht gelesen werden: %2</translation>
    </message>
    <message>
        <source>The project has no file yet: choose one to save it to.</source>
        <translation>Das Projekt hat noch keine Datei: Wählen Sie eine, in die es gespeichert wird.</translation>
    </message>
</context>
<context>
    <name>Core::ProjectOption</name>
    <message>
        <source>&amp;Top module:</source>
        <translation>&amp;Top-Modul:</translation>
    </message>
    <message>
        <source>&amp;Verilog standard:</source>
        <translation>&amp;Verilog-Standard:</translation>
    </message>
    <message>
        <source>&amp;Synthesis tool:</source>
        <translation>&amp;Synthesewerkzeug:</translation>
    </message>
    <message>
        <source>By file type</source>
        <translation>Nach Dateityp</translation>
    </message>
    <message>
        <source>Include Paths</source>
        <translation>Include-Pfade</translation>
    </message>
    <message>
        <source>Folders for included files</source>
        <translation>Ordner für eingebundene Dateien</translation>
    </message>
    <message>
        <source>Library Paths</source>
        <translation>Bibliothekspfade</translation>
    </message>
    <message>
        <source>Folders that are searched for modules that no file of the project defines</source>
        <translation>Ordner, in denen Module gesucht werden, die keine Datei des Projekts definiert</translation>
    </message>
    <message>
        <source>Library Suffixes</source>
        <translation>Bibliotheksendungen</translation>
    </message>
    <message>
        <source>What the names of the files in library paths end with, as .v</source>
        <translation>Womit die Namen der Dateien in den Bibliothekspfaden enden, etwa .v</translation>
    </message>
    <message>
        <source>Defines</source>
        <translation>Makros</translation>
    </message>
    <message>
        <source>Macros, NAME or NAME=VALUE</source>
        <translation>Makros, NAME oder NAME=WERT</translation>
    </message>
    <message>
        <source>Undefines</source>
        <translation>Gelöschte Makros</translation>
    </message>
    <message>
        <source>Macros that the design shall not see, though the reading of it defines them</source>
        <translation>Makros, die das Design nicht sehen soll, obwohl sie beim Lesen definiert sind</translation>
    </message>
    <message>
        <source>Parameters</source>
        <translation>Parameter</translation>
    </message>
    <message>
        <source>Parameters or generics of the top module, NAME=VALUE</source>
        <translation>Parameter oder Generics des Top-Moduls, NAME=WERT</translation>
    </message>
</context>
<context>
    <name>JEX</name>
    <message>
        <source>equal</source>
        <translation>gleich</translation>
    </message>
    <message>
        <source>notEqual</source>
        <translation>ungleich</translation>
    </message>
    <message>
        <source>less</source>
        <translation>kleiner</translation>
    </message>
    <message>
        <source>greater</source>
        <translation>größer</translation>
    </message>
    <message>
        <source>inRange</source>
        <translation>im Bereich</translation>
    </message>
    <message>
        <source>rising</source>
        <translation>steigend</translation>
    </message>
    <message>
        <source>falling</source>
        <translation>fallend</translation>
    </message>
    <message>
        <source>dynamic</source>
        <translation>dynamisch</translation>
    </message>
    <message>
        <source>static</source>
        <translation>statisch</translation>
    </message>
    <message>
        <source>group</source>
        <translation>Gruppe</translation>
    </message>
    <message>
        <source>net</source>
        <translation>Netz</translation>
    </message>
    <message>
        <source>bus</source>
        <translation>Bus</translation>
    </message>
    <message>
        <source>clock</source>
        <translation>Takt</translation>
    </message>
    <message>
        <source>edge</source>
        <translation>Flanke</translation>
    </message>
    <message>
        <source>triggerMode</source>
        <translation>Trigger-Modus</translation>
    </message>
    <message>
        <source>triggerImplementation</source>
        <translation>Realisierung des Triggers</translation>
    </message>
    <message>
        <source>captureImplementation</source>
        <translation>Realisierung der Aufzeichnung</translation>
    </message>
    <message>
        <source>storageSize</source>
        <translation>Speichertiefe</translation>
    </message>
    <message>
        <source>segments</source>
        <translation>Segmente</translation>
    </message>
    <message>
        <source>captureAmount</source>
        <translation>Aufzeichnungslänge</translation>
    </message>
    <message>
        <source>triggerPosition</source>
        <translation>Trigger-Position</translation>
    </message>
    <message>
        <source>forceTriggerByFallingEdge</source>
        <translation>Trigger durch fallende Flanke erzwingen</translation>
    </message>
    <message>
        <source>captureInitialData</source>
        <translation>Anfangsdaten aufzeichnen</translation>
    </message>
    <message>
        <source>topModule</source>
        <translation>Top-Modul</translation>
    </message>
    <message>
        <source>implementation</source>
        <translation>Realisierung</translation>
    </message>
    <message>
        <source>inputRegister</source>
        <translation>Eingangsregister</translation>
    </message>
    <message>
        <source>enabled</source>
        <translation>aktiv</translation>
    </message>
    <message>
        <source>port</source>
        <translation>Trigger-Port</translation>
    </message>
    <message>
        <source>function</source>
        <translation>Funktion</translation>
    </message>
    <message>
        <source>value</source>
        <translation>Wert</translation>
    </message>
    <message>
        <source>upperValue</source>
        <translation>Obergrenze</translation>
    </message>
    <message>
        <source>shown as</source>
        <translation>Anzeigename</translation>
    </message>
    <message>
        <source>type</source>
        <translation>Art</translation>
    </message>
    <message>
        <source>capture</source>
        <translation>Aufzeichnung</translation>
    </message>
    <message>
        <source>valid</source>
        <translation>gültig</translation>
    </message>
</context>
<context>
    <name>JEX::JexFile</name>
    <message>
        <source>The file &quot;%1&quot; is not written: %2</source>
        <translation>Die Datei „%1“ wird nicht geschrieben: %2</translation>
    </message>
    <message>
        <source>The file &quot;%1&quot; cannot be read: %2.</source>
        <translation>Die Datei „%1“ kann nicht gelesen werden: %2.</translation>
    </message>
</context>
<context>
    <name>JEX::MatchFunction</name>
    <message>
        <source>Equal</source>
        <translation>Gleich</translation>
    </message>
    <message>
        <source>Not equal</source>
        <translation>Ungleich</translation>
    </message>
    <message>
        <source>Less</source>
        <translation>Kleiner</translation>
    </message>
    <message>
        <source>Greater</source>
        <translation>Größer</translation>
    </message>
    <message>
        <source>In range</source>
        <translation>Im Bereich</translation>
    </message>
</context>
<context>
    <name>JEX::MatchUnitDialog</name>
    <message>
        <source>Match Unit</source>
        <translation>Vergleichseinheit</translation>
    </message>
    <message>
        <source>Trigger &amp;Port:</source>
        <translation>Trigger-&amp;Port:</translation>
    </message>
    <message>
        <source>&amp;Function:</source>
        <translation>&amp;Funktion:</translation>
    </message>
    <message>
        <source>Enter As:</source>
        <translation>Eingabe als:</translation>
    </message>
    <message>
        <source>&amp;Binary</source>
        <translation>&amp;Binär</translation>
    </message>
    <message>
        <source>&amp;Hexadecimal</source>
        <translation>&amp;Hexadezimal</translation>
    </message>
    <message>
        <source>For functions that compare numbers.</source>
        <translation>Für Funktionen, die Zahlen vergleichen.</translation>
    </message>
    <message>
        <source>&amp;Decimal</source>
        <translation>&amp;Dezimal</translation>
    </message>
    <message>
        <source>Sets every bit to any level, or the bounds as far apart as they can be</source>
        <translation>Setzt jedes Bit auf „beliebig“ oder die Grenzen so weit auseinander wie möglich</translation>
    </message>
    <message>
        <source>&amp;Reset</source>
        <translation>&amp;Zurücksetzen</translation>
    </message>
    <message>
        <source>&amp;Value:</source>
        <translation>&amp;Wert:</translation>
    </message>
    <message>
        <source>&amp;Upper Bound:</source>
        <translation>&amp;Obergrenze:</translation>
    </message>
    <message>
        <source>Bits of the trigger port</source>
        <translation>Bits des Trigger-Ports</translation>
    </message>
    <message>
        <source>The bits of the trigger port, the first character of the value at the top</source>
        <translation>Die Bits des Trigger-Ports, das erste Zeichen des Werts zuoberst</translation>
    </message>
    <message>
        <source>Value</source>
        <translation>Wert</translation>
    </message>
    <message>
        <source>Upper</source>
        <translation>Oben</translation>
    </message>
    <message>
        <source>Signal</source>
        <translation>Signal</translation>
    </message>
    <message>
        <source>A number of the digits 0 to 9.</source>
        <translation>Eine Zahl aus den Ziffern 0 bis 9.</translation>
    </message>
    <message>
        <source>Each digit: 0 to 9 and A to F.</source>
        <translation>Jede Ziffer: 0 bis 9 und A bis F.</translation>
    </message>
    <message>
        <source>Each digit: 0 to 9, A to F, or X for bits of any level.</source>
        <translation>Jede Ziffer: 0 bis 9, A bis F oder X für Bits mit beliebigem Pegel.</translation>
    </message>
    <message>
        <source>Each bit: 0 or 1; the first one is the most significant.</source>
        <translation>Jedes Bit: 0 oder 1; das erste ist das höchstwertige.</translation>
    </message>
    <message>
        <source>Each bit: 0, 1, X any level, R rising edge, F falling edge, B either edge, N no edge.</source>
        <translation>Jedes Bit: 0, 1, X beliebiger Pegel, R steigende Flanke, F fallende Flanke, B eine der beiden Flanken, N keine Flanke.</translation>
    </message>
    <message>
        <source>Match Unit M%1</source>
        <translation>Vergleichseinheit M%1</translation>
    </message>
    <message>
        <source>&amp;Lower Bound:</source>
        <translation>&amp;Untergrenze:</translation>
    </message>
    <message>
        <source>Lower</source>
        <translation>Unten</translation>
    </message>
    <message>
        <source>Warning</source>
        <translation>Warnung</translation>
    </message>
</context>
<context>
    <name>JEX::MatchUnitModel</name>
    <message>
        <source>Enabled</source>
        <translation>Aktiv</translation>
    </message>
    <message>
        <source>Number</source>
        <translation>Nummer</translation>
    </message>
    <message>
        <source>Unit</source>
        <translation>Einheit</translation>
    </message>
    <message>
        <source>Trigger Port</source>
        <translation>Trigger-Port</translation>
    </message>
    <message>
        <source>Function</source>
        <translation>Funktion</translation>
    </message>
    <message>
        <source>Value</source>
        <translation>Wert</translation>
    </message>
</context>
<context>
    <name>JEX::MatchValue</name>
    <message>
        <source>1 bit</source>
        <translation>1 Bit</translation>
    </message>
    <message>
        <source>%1 bits</source>
        <translation>%1 Bit</translation>
    </message>
    <message>
        <source>%1 cannot hold &quot;%2&quot;: %3</source>
        <translation>%1 kann „%2“ nicht enthalten: %3</translation>
    </message>
    <message>
        <source>a decimal number has the digits 0 to 9.</source>
        <translation>Eine Dezimalzahl hat die Ziffern 0 bis 9.</translation>
    </message>
    <message>
        <source>%1 is empty.</source>
        <translation>%1 ist leer.</translation>
    </message>
    <message>
        <source>%1 is larger than %2, the largest number of %3.</source>
        <translation>%1 ist größer als %2, die größte Zahl mit %3.</translation>
    </message>
    <message>
        <source>each bit is 0 or 1.</source>
        <translation>Jedes Bit ist 0 oder 1.</translation>
    </message>
    <message>
        <source>each bit is 0, 1, X (any level), R (rising edge), F (falling edge), B (either edge) or N (no edge).</source>
        <translation>Jedes Bit ist 0, 1, X (beliebiger Pegel), R (steigende Flanke), F (fallende Flanke), B (eine der beiden Flanken) oder N (keine Flanke).</translation>
    </message>
    <message>
        <source>The function &quot;%1&quot; compares numbers and takes no &quot;%2&quot;: each bit must be 0 or 1.</source>
        <translation>Die Funktion „%1“ vergleicht Zahlen und nimmt kein „%2“: Jedes Bit muss 0 oder 1 sein.</translation>
    </message>
    <message>
        <source>%1 has %2, but the trigger port has %3.</source>
        <translation>%1 hat %2, aber der Trigger-Port hat %3.</translation>
    </message>
    <message>
        <source>The lower bound %1 is above the upper bound %2.</source>
        <translation>Die Untergrenze %1 liegt über der Obergrenze %2.</translation>
    </message>
    <message>
        <source>each hexadecimal digit is 0 to 9, A to F, or X for bits of any level.</source>
        <translation>Jede Hexadezimalziffer ist 0 bis 9, A bis F oder X für Bits mit beliebigem Pegel.</translation>
    </message>
    <message>
        <source>1 hexadecimal digit</source>
        <translation>1 Hexadezimalziffer</translation>
    </message>
    <message>
        <source>%1 hexadecimal digits</source>
        <translation>%1 Hexadezimalziffern</translation>
    </message>
    <message>
        <source>%1 has %2, but the %3 of the trigger port take %4.</source>
        <translation>%1 hat %2, aber die %3 des Trigger-Ports brauchen %4.</translation>
    </message>
    <message>
        <source>%1 begins with %2, but its first digit stands for %3 only and is at most %4.</source>
        <translation>%1 beginnt mit %2, aber die erste Ziffer steht nur für %3 und ist höchstens %4.</translation>
    </message>
    <message>
        <source>The value %1 has no decimal form: each bit must be 0 or 1.</source>
        <translation>Der Wert %1 hat keine dezimale Form: Jedes Bit muss 0 oder 1 sein.</translation>
    </message>
    <message>
        <source>The value %1 has no hexadecimal form: the bits of a digit must all be 0 or 1, or all be X.</source>
        <translation>Der Wert %1 hat keine hexadezimale Form: Die Bits einer Ziffer müssen alle 0 oder 1 oder alle X sein.</translation>
    </message>
    <message>
        <source>The lower bound</source>
        <translation>Die Untergrenze</translation>
    </message>
    <message>
        <source>The value</source>
        <translation>Der Wert</translation>
    </message>
    <message>
        <source>The upper bound</source>
        <translation>Die Obergrenze</translation>
    </message>
    <message>
        <source>Trigger Port %1 holds no signals: fill it first, or choose another one.</source>
        <translation>Trigger-Port %1 enthält keine Signale: Füllen Sie ihn zuerst, oder wählen Sie einen anderen.</translation>
    </message>
    <message>
        <source>%1 to %2</source>
        <translation>%1 bis %2</translation>
    </message>
    <message>
        <source>Not bound</source>
        <translation>Nicht zugeordnet</translation>
    </message>
    <message>
        <source>%1 (%2)</source>
        <translation>%1 (%2)</translation>
    </message>
    <message>
        <source>Trigger Port %1</source>
        <translation>Trigger-Port %1</translation>
    </message>
</context>
<context>
    <name>JEX_TOOL::Resource</name>
    <message>
        <source>registers</source>
        <translation>Register</translation>
    </message>
</context>
<context>
    <name>QUARRY</name>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
</context>
<context>
    <name>QUARRY::CatchRtl</name>
    <message>
        <source>ERROR: A design is being read already. Try again when that is done.</source>
        <translation>ERROR: Es wird schon ein Design gelesen. Versuchen Sie es danach noch einmal.</translation>
    </message>
    <message>
        <source>Error</source>
        <translation>Fehler</translation>
    </message>
    <message>
        <source>The design could not be read.</source>
        <translation>Das Design konnte nicht gelesen werden.</translation>
    </message>
    <message>
        <source>Read Design</source>
        <translation>Design lesen</translation>
    </message>
    <message>
        <source>Read Modules</source>
        <translation>Module lesen</translation>
    </message>
    <message>
        <source>ERROR: Reading the design was cancelled.</source>
        <translation>ERROR: Das Lesen des Designs wurde abgebrochen.</translation>
    </message>
</context>
<context>
    <name>QUARRY::Confinement</name>
    <message>
        <source>bubblewrap is not installed</source>
        <translation>bubblewrap ist nicht installiert</translation>
    </message>
    <message>
        <source>%1 does not start</source>
        <translation>%1 startet nicht</translation>
    </message>
    <message>
        <source>this system does not let bubblewrap work</source>
        <translation>Dieses System lässt bubblewrap nicht arbeiten</translation>
    </message>
</context>
<context>
    <name>QUARRY::Elaborator</name>
    <message>
        <source>WARNING: The tools that read the design run with your rights, since %1. VHDL is therefore not started, and its signals are shown as GHDL translates them. %2</source>
        <translation>WARNING: Die Werkzeuge, die das Design lesen, laufen mit Ihren Rechten (%1). VHDL wird deshalb nicht gestartet, und seine Signale werden so gezeigt, wie GHDL sie übersetzt. %2</translation>
    </message>
    <message>
        <source>Install Debian&apos;s package bubblewrap.</source>
        <translation>Installieren Sie das Debian-Paket bubblewrap.</translation>
    </message>
    <message>
        <source>Let this user make user namespaces (kernel.unprivileged_userns_clone).</source>
        <translation>Erlauben Sie diesem Benutzer User-Namespaces (kernel.unprivileged_userns_clone).</translation>
    </message>
    <message>
        <source>No temporary folder could be made in %1. Make room on the disk, or let the variable TMPDIR name a folder that can be written.</source>
        <translation>In %1 ließ sich kein temporärer Ordner anlegen. Schaffen Sie Platz auf dem Datenträger, oder nennen Sie in der Variablen TMPDIR einen beschreibbaren Ordner.</translation>
    </message>
    <message>
        <source>%1 is not read: %2. Remove it from the project.</source>
        <translation>%1 wird nicht gelesen: %2. Entfernen Sie die Datei aus dem Projekt.</translation>
    </message>
    <message>
        <source>%1 cannot be read: %2. Remove it from the project or restore it.</source>
        <translation>%1 kann nicht gelesen werden: %2. Entfernen Sie die Datei aus dem Projekt, oder stellen Sie sie wieder her.</translation>
    </message>
    <message>
        <source>The design could not be read: its missing modules could not be replaced.</source>
        <translation>Das Design konnte nicht gelesen werden: Seine fehlenden Module ließen sich nicht ersetzen.</translation>
    </message>
    <message>
        <source>Reading 1 source file</source>
        <translation>1 Quelldatei wird gelesen</translation>
    </message>
    <message>
        <source>Reading %1 source files</source>
        <translation>%1 Quelldateien werden gelesen</translation>
    </message>
    <message>
        <source>Verilator ended with code %1 and gave no design. Check that %2 is Verilator 5.</source>
        <translation>Verilator endete mit Code %1 und lieferte kein Design. Prüfen Sie, ob %2 Verilator 5 ist.</translation>
    </message>
    <message>
        <source>WARNING: The VHDL sources cannot be read and are left out.</source>
        <translation>WARNING: Die VHDL-Quellen sind nicht lesbar und werden ausgelassen.</translation>
    </message>
    <message>
        <source>WARNING: The Verilog sources cannot be read and are left out.</source>
        <translation>WARNING: Die Verilog-Quellen sind nicht lesbar und werden ausgelassen.</translation>
    </message>
    <message>
        <source>In the Verilog that %1 made of the %2 sources: </source>
        <translation>Im Verilog, das %1 aus den %2-Quellen gemacht hat: </translation>
    </message>
    <message>
        <source>%1 more like these are not shown.</source>
        <translation>%1 weitere dieser Art werden nicht gezeigt.</translation>
    </message>
    <message>
        <source>These modules have no definition: %1. Add the files that define them to the project.</source>
        <translation>Diese Module haben keine Definition: %1. Nehmen Sie die Dateien, die sie definieren, in das Projekt auf.</translation>
    </message>
</context>
<context>
    <name>QUARRY::MissingPackages</name>
    <message>
        <source>package %1 is in no file of the project</source>
        <translation>Das Package %1 steht in keiner Datei des Projekts</translation>
    </message>
    <message>
        <source>package %1 is in no file of the project that is enabled. It is in %2</source>
        <translation>Das Package %1 steht in keiner aktiven Datei des Projekts. Es steht in %2</translation>
    </message>
</context>
<context>
    <name>QUARRY::NetlistBuilder</name>
    <message>
        <source>ERROR: Module %1 has %2 nets, and a design can have %3 here. Look for a range that is too large in it.</source>
        <translation>ERROR: Modul %1 hat %2 Netze, und ein Design kann hier %3 haben. Suchen Sie darin nach einem zu großen Bereich.</translation>
    </message>
    <message>
        <source>ERROR: The design has more than %1 instances. Look for a loop or an array of instances that is too large.</source>
        <translation>ERROR: Das Design hat mehr als %1 Instanzen. Suchen Sie nach einer zu großen Schleife oder einem zu großen Array von Instanzen.</translation>
    </message>
    <message>
        <source>ERROR: The design has more than %1 nets. Look for a range, a loop or an array that is too large.</source>
        <translation>ERROR: Das Design hat mehr als %1 Netze. Suchen Sie nach einem zu großen Bereich oder Array oder einer zu großen Schleife.</translation>
    </message>
</context>
<context>
    <name>QUARRY::NetlistReader</name>
    <message>
        <source>ERROR: The design has no top module. Add the file that holds it to the project.</source>
        <translation>ERROR: Das Design hat kein Top-Modul. Nehmen Sie die Datei, die es enthält, in das Projekt auf.</translation>
    </message>
</context>
<context>
    <name>QUARRY::NetlistTree</name>
    <message>
        <source>ERROR: The module %1 contains itself.</source>
        <translation>ERROR: Das Modul %1 enthält sich selbst.</translation>
    </message>
</context>
<context>
    <name>QUARRY::ReadingJob</name>
    <message>
        <source>Building the netlist</source>
        <translation>Die Netzliste wird aufgebaut</translation>
    </message>
    <message>
        <source>ERROR: No module named &quot;%1&quot; was found. Set another top module.</source>
        <translation>ERROR: Es wurde kein Modul „%1“ gefunden. Legen Sie ein anderes Top-Modul fest.</translation>
    </message>
    <message>
        <source>ERROR: The sources contain no module.</source>
        <translation>ERROR: Die Quellen enthalten kein Modul.</translation>
    </message>
    <message>
        <source>ERROR: The design has several top modules (%1). Set one of them.</source>
        <translation>ERROR: Das Design hat mehrere Top-Module (%1). Legen Sie eines davon fest.</translation>
    </message>
</context>
<context>
    <name>QUARRY::ReadingRepairs</name>
    <message>
        <source>WARNING: The top module has no parameter %1. Its value is left out.</source>
        <translation>WARNING: Das Top-Modul hat keinen Parameter %1. Sein Wert wird ausgelassen.</translation>
    </message>
    <message>
        <source>WARNING: %1:%2: The file has errors and is left out: the top module does not need it.</source>
        <translation>WARNING: %1:%2: Die Datei hat Fehler und wird ausgelassen: Das Top-Modul braucht sie nicht.</translation>
    </message>
    <message>
        <source>WARNING: %1:%2: %3. The tool cannot take this, so module %4 is left out.</source>
        <translation>WARNING: %1:%2: %3. Das Werkzeug kann damit nicht umgehen, daher wird Modul %4 ausgelassen.</translation>
    </message>
    <message>
        <source>WARNING: No top module is set. Set it, and what it does not need may have errors: there is none in what these need: %1</source>
        <translation>WARNING: Es ist kein Top-Modul festgelegt. Ist es festgelegt, darf das, was es nicht braucht, Fehler haben. Keine Fehler hat, was diese brauchen: %1</translation>
    </message>
    <message>
        <source>WARNING: %1:%2: This is no Verilog, so the file is read as SystemVerilog.</source>
        <translation>WARNING: %1:%2: Das ist kein Verilog, daher wird die Datei als SystemVerilog gelesen.</translation>
    </message>
    <message>
        <source>WARNING: The sources can be read only with the macro VERILATOR, which synthesis does not define. What depends on it may differ in hardware.</source>
        <translation>WARNING: Die Quellen sind nur mit dem Makro VERILATOR lesbar, das die Synthese nicht definiert. Was davon abhängt, kann in der Hardware anders sein.</translation>
    </message>
    <message>
        <source>What is bound to a single instance is not shown. Bind it to the module.</source>
        <translation>Was an eine einzelne Instanz gebunden ist, wird nicht gezeigt. Binden Sie es an das Modul.</translation>
    </message>
</context>
<context>
    <name>QUARRY::ReadingSentences</name>
    <message>
        <source>WARNING: No module is named &quot;%1&quot;. The top modules of the design are: %2</source>
        <translation>WARNING: Kein Modul heißt „%1“. Die Top-Module des Designs sind: %2</translation>
    </message>
    <message>
        <source>WARNING: What is encrypted in these files is not shown, as if it were in a black box: %1</source>
        <translation>WARNING: Was in diesen Dateien verschlüsselt ist, wird nicht gezeigt, als läge es in einer Blackbox: %1</translation>
    </message>
    <message>
        <source>WARNING: These modules have no definition and are shown as black boxes, with nothing inside: %1</source>
        <translation>WARNING: Diese Module haben keine Definition und werden als leere Blackboxes gezeigt: %1</translation>
    </message>
    <message>
        <source>WARNING: Module %1 is in %2, which the project has disabled.</source>
        <translation>WARNING: Modul %1 steht in %2, das im Projekt deaktiviert ist.</translation>
    </message>
    <message>
        <source>WARNING: Module %1 is in %2, which is no source of the project.</source>
        <translation>WARNING: Modul %1 steht in %2, das keine Quelle des Projekts ist.</translation>
    </message>
</context>
<context>
    <name>QUARRY::ScratchDir</name>
    <message>
        <source>ERROR: The temporary folder %1 is full. Make room on its disk, or let the variable TMPDIR name another folder.</source>
        <translation>ERROR: Der temporäre Ordner %1 ist voll. Schaffen Sie Platz auf dem Datenträger, oder nennen Sie in der Variablen TMPDIR einen anderen Ordner.</translation>
    </message>
</context>
<context>
    <name>QUARRY::SourceCopies</name>
    <message>
        <source>ERROR: %1 cannot be read: %2.</source>
        <translation>ERROR: %1 kann nicht gelesen werden: %2.</translation>
    </message>
    <message>
        <source>ERROR: %1 includes %2, which is no regular file.</source>
        <translation>ERROR: %1 bindet %2 ein, das keine reguläre Datei ist.</translation>
    </message>
</context>
<context>
    <name>QUARRY::ToolMessage</name>
    <message>
        <source>(%1 times)</source>
        <translation>(%1-mal)</translation>
    </message>
    <message>
        <source>Module %1 is declared a second time. What %2:%3 declares is used.</source>
        <translation>Modul %1 ist ein zweites Mal deklariert. Es gilt, was %2:%3 deklariert.</translation>
    </message>
</context>
<context>
    <name>QUARRY::ToolRun</name>
    <message>
        <source>ERROR: %1 could not be started (%2: %3). Install it, or let the variable %4 name the program.</source>
        <translation>ERROR: %1 konnte nicht gestartet werden (%2: %3). Installieren Sie es, oder nennen Sie in der Variablen %4 das Programm.</translation>
    </message>
    <message>
        <source>ERROR: %1 %2. %3</source>
        <translation>ERROR: %1 %2. %3</translation>
    </message>
    <message>
        <source>did not end within %1 seconds and was stopped</source>
        <translation>war nach %1 Sekunden nicht fertig und wurde abgebrochen</translation>
    </message>
    <message>
        <source>If the design needs longer, let the variable JEX_TOOL_TIMEOUT give a larger number of seconds.</source>
        <translation>Braucht das Design länger, geben Sie in der Variablen JEX_TOOL_TIMEOUT mehr Sekunden an.</translation>
    </message>
    <message>
        <source>needed more memory than the %1 that it may take</source>
        <translation>brauchte mehr Speicher als die erlaubten %1</translation>
    </message>
    <message>
        <source>Look for a range or a loop that is too large. If the design needs more, allow more MB: under Project / Tool Memory in the workbench, with --tool-memory, or in the variable JEX_TOOL_MEMORY.</source>
        <translation>Suchen Sie nach einem zu großen Bereich oder einer zu großen Schleife. Braucht das Design mehr, erlauben Sie mehr MB: in der Workbench unter Projekt / Werkzeugspeicher, mit --tool-memory oder in der Variablen JEX_TOOL_MEMORY.</translation>
    </message>
    <message>
        <source>Look for the source that causes it by leaving files out.</source>
        <translation>Suchen Sie die verursachende Quelle, indem Sie Dateien auslassen.</translation>
    </message>
    <message>
        <source>ERROR: %1 (%2) does not know %3, so it is of another version. Install Debian&apos;s package, or let the variable %4 name another program.</source>
        <translation>ERROR: %1 (%2) kennt %3 nicht, ist also eine andere Version. Installieren Sie das Debian-Paket, oder nennen Sie in der Variablen %4 ein anderes Programm.</translation>
    </message>
    <message>
        <source>ERROR: %1 crashed or was killed before it finished. Read the design again; if it happens again, look for the source that causes it by leaving files out.</source>
        <translation>ERROR: %1 stürzte ab oder wurde beendet, bevor es fertig war. Lesen Sie das Design noch einmal; geschieht es wieder, suchen Sie die verursachende Quelle, indem Sie Dateien auslassen.</translation>
    </message>
    <message>
        <source>there is no such file</source>
        <translation>Es gibt keine solche Datei</translation>
    </message>
    <message>
        <source>it is not executable</source>
        <translation>Sie ist nicht ausführbar</translation>
    </message>
    <message>
        <source>ERROR: %1 is not run, since %2.</source>
        <translation>ERROR: %1 wird nicht ausgeführt: %2.</translation>
    </message>
    <message>
        <source>wrote more than %1 of messages and was stopped</source>
        <translation>schrieb mehr als %1 an Meldungen und wurde abgebrochen</translation>
    </message>
    <message>
        <source>wrote more than %1 of files and was stopped</source>
        <translation>schrieb mehr als %1 an Dateien und wurde abgebrochen</translation>
    </message>
    <message>
        <source>ERROR: %1 %2 while it %3 %4. %5</source>
        <translation>ERROR: %1 %2 (beim %3: %4). %5</translation>
    </message>
    <message>
        <source>read</source>
        <translation>Lesen</translation>
    </message>
</context>
<context>
    <name>QUARRY::VerilatorDesign</name>
    <message>
        <source>ERROR: The elaborated design %1 cannot be read: %2.</source>
        <translation>ERROR: Das elaborierte Design %1 kann nicht gelesen werden: %2.</translation>
    </message>
    <message>
        <source>ERROR: %1 is not a complete design that Verilator wrote. Read the design again.</source>
        <translation>ERROR: %1 ist kein vollständiges, von Verilator geschriebenes Design. Lesen Sie das Design noch einmal.</translation>
    </message>
</context>
<context>
    <name>QUARRY::VerilatorRun</name>
    <message>
        <source>the Verilog sources</source>
        <translation>die Verilog-Quellen</translation>
    </message>
</context>
<context>
    <name>QUARRY::VhdlAdapt</name>
    <message>
        <source>WARNING: VHDL entity %1, which Verilog instantiates, cannot be translated with the default values of its generics. It is shown as a black box.</source>
        <translation>WARNING: Die VHDL-Entity %1, die Verilog instanziiert, lässt sich mit den Vorgabewerten ihrer Generics nicht übersetzen. Sie wird als Blackbox gezeigt.</translation>
    </message>
    <message>
        <source>WARNING: The generics that Verilog sets on VHDL entity %1 (%2) have no effect here: the entity is shown with its default values.</source>
        <translation>WARNING: Die Generics, die Verilog an der VHDL-Entity %1 setzt (%2), wirken hier nicht: Die Entity wird mit ihren Vorgabewerten gezeigt.</translation>
    </message>
    <message>
        <source>WARNING: VHDL entity %1, which Verilog instantiates, cannot be translated with the generics that it is given. It is shown as a black box.</source>
        <translation>WARNING: Die VHDL-Entity %1, die Verilog instanziiert, lässt sich mit den gesetzten Generics nicht übersetzen. Sie wird als Blackbox gezeigt.</translation>
    </message>
</context>
<context>
    <name>QUARRY::VhdlAnalysis</name>
    <message>
        <source>WARNING: %1:%2: %3 is declared a second time. What %4 declares is used.</source>
        <translation>WARNING: %1:%2: %3 ist ein zweites Mal deklariert. Es gilt, was %4 deklariert.</translation>
    </message>
    <message>
        <source>WARNING: %1:%2: %3 has no architecture and is shown as a black box, with nothing inside.</source>
        <translation>WARNING: %1:%2: %3 hat keine Architecture und wird als leere Blackbox gezeigt.</translation>
    </message>
    <message>
        <source>the VHDL sources</source>
        <translation>die VHDL-Quellen</translation>
    </message>
</context>
<context>
    <name>QUARRY::VhdlPart</name>
    <message>
        <source>Reading the VHDL files</source>
        <translation>Die VHDL-Dateien werden gelesen</translation>
    </message>
    <message>
        <source>Translating VHDL entity %1</source>
        <translation>Die VHDL-Entity %1 wird übersetzt</translation>
    </message>
    <message>
        <source>WARNING: GHDL crashed on VHDL entity %1 and cannot translate what is in it.</source>
        <translation>WARNING: GHDL stürzte bei der VHDL-Entity %1 ab und kann ihren Inhalt nicht übersetzen.</translation>
    </message>
    <message>
        <source>GHDL crashed and gave no design.</source>
        <translation>GHDL stürzte ab und lieferte kein Design.</translation>
    </message>
    <message>
        <source>GHDL ended with code %1 and gave no design.</source>
        <translation>GHDL endete mit Code %1 und lieferte kein Design.</translation>
    </message>
    <message>
        <source>Look for the VHDL source that causes it by leaving files out, or check that %1 is GHDL 2 or later.</source>
        <translation>Suchen Sie die verursachende VHDL-Quelle, indem Sie Dateien auslassen, oder prüfen Sie, ob %1 GHDL 2 oder neuer ist.</translation>
    </message>
    <message>
        <source>VHDL entity %1</source>
        <translation>VHDL-Entity %1</translation>
    </message>
</context>
<context>
    <name>QUARRY::VhdlRepairs</name>
    <message>
        <source>WARNING: %1:%2: package %3 is in no file of the project that is enabled. It is in %4</source>
        <translation>WARNING: %1:%2: Das Package %3 steht in keiner aktiven Datei des Projekts. Es steht in %4</translation>
    </message>
    <message>
        <source>WARNING: %1:%2: package %3 is in no file of the project</source>
        <translation>WARNING: %1:%2: Das Package %3 steht in keiner Datei des Projekts</translation>
    </message>
</context>
<context>
    <name>QUARRY::VhdlSimulation</name>
    <message>
        <source>WARNING: %1The attribute foreign can run code from outside the design. The VHDL is therefore not started, and its signals are shown as GHDL translates them.</source>
        <translation>WARNING: %1Das Attribut foreign kann Code von außerhalb des Designs ausführen. Das VHDL wird deshalb nicht gestartet, und seine Signale werden so gezeigt, wie GHDL sie übersetzt.</translation>
    </message>
    <message>
        <source>the first moment of VHDL entity %1</source>
        <translation>der erste Augenblick der VHDL-Entity %1</translation>
    </message>
</context>
<context>
    <name>QUtil::RegularFile</name>
    <message>
        <source>a folder</source>
        <translation>ein Ordner</translation>
    </message>
    <message>
        <source>a named pipe</source>
        <translation>eine benannte Pipe</translation>
    </message>
    <message>
        <source>a socket</source>
        <translation>ein Socket</translation>
    </message>
    <message>
        <source>a device</source>
        <translation>ein Gerät</translation>
    </message>
    <message>
        <source>a link that leads to itself</source>
        <translation>ein Link, der auf sich selbst zeigt</translation>
    </message>
    <message>
        <source>it is %1</source>
        <translation>es ist %1</translation>
    </message>
    <message>
        <source>it is %1, not a regular file</source>
        <translation>es ist %1, keine reguläre Datei</translation>
    </message>
    <message>
        <source>it is larger than %1 MiB</source>
        <translation>größer als %1 MiB</translation>
    </message>
</context>
<context>
    <name>QUtil::Saving</name>
    <message>
        <source>it has %1 names (hard links)</source>
        <translation>Sie hat %1 Namen (Hardlinks)</translation>
    </message>
    <message>
        <source>its folder cannot be written to</source>
        <translation>In ihren Ordner kann nicht geschrieben werden</translation>
    </message>
    <message>
        <source>creating a file in its folder</source>
        <translation>Anlegen einer Datei in ihrem Ordner</translation>
    </message>
    <message>
        <source>another program is saving it</source>
        <translation>ein anderes Programm speichert sie gerade</translation>
    </message>
    <message>
        <source>keeping a backup</source>
        <translation>Aufheben einer Sicherung</translation>
    </message>
    <message>
        <source>writing</source>
        <translation>Schreiben</translation>
    </message>
    <message>
        <source>closing</source>
        <translation>Schließen</translation>
    </message>
    <message>
        <source>reading what it holds for a backup</source>
        <translation>Lesen ihres Inhalts für eine Sicherung</translation>
    </message>
    <message>
        <source>opening</source>
        <translation>Öffnen</translation>
    </message>
    <message>
        <source>%1; what it held is kept in %2</source>
        <translation>%1; ihr voriger Inhalt ist in %2 aufgehoben</translation>
    </message>
    <message>
        <source>its last save did not end; what it held before is kept in %1, which is to be put in its place or removed</source>
        <translation>Ihr letztes Speichern ging nicht zu Ende; ihr voriger Inhalt ist in %1 aufgehoben, das an ihre Stelle gehört oder zu entfernen ist</translation>
    </message>
    <message>
        <source>reading the backup</source>
        <translation>Lesen der Sicherung</translation>
    </message>
    <message>
        <source>Can not save to %1: %2.</source>
        <translation>Kann nicht in %1 speichern: %2.</translation>
    </message>
    <message>
        <source>Can not save to %1: %2 failed (%3).</source>
        <translation>Kann nicht in %1 speichern: %2 fehlgeschlagen (%3).</translation>
    </message>
    <message>
        <source>flushing to the disk</source>
        <translation>Übertragen auf den Datenträger</translation>
    </message>
    <message>
        <source>flushing the folder to the disk</source>
        <translation>Übertragen des Ordners auf den Datenträger</translation>
    </message>
    <message>
        <source>replacing the file</source>
        <translation>Ersetzen der Datei</translation>
    </message>
</context>
<context>
    <name>RTLJEX::AoOptionWidget</name>
    <message>
        <source>Trigger Options</source>
        <translation>Trigger-Optionen</translation>
    </message>
    <message>
        <source>Capture Options</source>
        <translation>Aufzeichnungsoptionen</translation>
    </message>
    <message>
        <source>the capture list</source>
        <translation>Aufzeichnungsliste</translation>
    </message>
    <message>
        <source>trigger port %1</source>
        <translation>Trigger-Port %1</translation>
    </message>
</context>
<context>
    <name>RTLJEX::CaptureOptionWidget</name>
    <message>
        <source>Capture Options</source>
        <translation>Aufzeichnungsoptionen</translation>
    </message>
    <message>
        <source>Sample Clock</source>
        <translation>Abtasttakt</translation>
    </message>
    <message>
        <source>Clock:</source>
        <translation>Takt:</translation>
    </message>
    <message>
        <source>Search the clock</source>
        <translation>Takt suchen</translation>
    </message>
    <message>
        <source>Search the design for the clock net</source>
        <translation>Sucht das Taktnetz im Design</translation>
    </message>
    <message>
        <source>...</source>
        <translation>...</translation>
    </message>
    <message>
        <source>Sample On:</source>
        <translation>Abtasten bei:</translation>
    </message>
    <message>
        <source>Rising</source>
        <translation>Steigend</translation>
    </message>
    <message>
        <source>Falling</source>
        <translation>Fallend</translation>
    </message>
    <message>
        <source>Capture</source>
        <translation>Aufzeichnung</translation>
    </message>
    <message>
        <source>Storage Size:</source>
        <translation>Speichertiefe:</translation>
    </message>
    <message>
        <source>Segments Number:</source>
        <translation>Anzahl Segmente:</translation>
    </message>
    <message>
        <source>Capture Amount:</source>
        <translation>Aufzeichnungslänge:</translation>
    </message>
    <message>
        <source>Trigger Position:</source>
        <translation>Trigger-Position:</translation>
    </message>
    <message>
        <source>JEX Implementation:</source>
        <translation>JEX-Realisierung:</translation>
    </message>
    <message>
        <source>Capture Initial Data</source>
        <translation>Anfangsdaten aufzeichnen</translation>
    </message>
    <message>
        <source>Force Trigger by Falling Edge</source>
        <translation>Trigger durch fallende Flanke erzwingen</translation>
    </message>
    <message>
        <source>Capture Utilization</source>
        <translation>Auslastung der Aufzeichnung</translation>
    </message>
    <message>
        <source>BSRAM Usage :</source>
        <translation>BSRAM-Auslastung :</translation>
    </message>
    <message>
        <source>Capture Signals</source>
        <translation>Aufgezeichnete Signale</translation>
    </message>
    <message>
        <source>MSB</source>
        <translation>MSB</translation>
    </message>
    <message>
        <source>LSB</source>
        <translation>LSB</translation>
    </message>
    <message>
        <source>Capture signals</source>
        <translation>Aufgezeichnete Signale</translation>
    </message>
    <message>
        <source>Add</source>
        <translation>Hinzufügen</translation>
    </message>
    <message>
        <source>Add From Trigger</source>
        <translation>Vom Trigger hinzufügen</translation>
    </message>
    <message>
        <source>Remove</source>
        <translation>Entfernen</translation>
    </message>
    <message>
        <source>The net whose edges take the samples. What is captured has to be stable there as for any register with this clock.</source>
        <translation>Das Netz, dessen Flanken abtasten. Was aufgezeichnet wird, muss dort so stabil sein wie für jedes Register mit diesem Takt.</translation>
    </message>
    <message>
        <source>Searches the design for the clock.</source>
        <translation>Sucht den Takt im Design.</translation>
    </message>
    <message>
        <source>One sample is taken at each rising edge of the clock.</source>
        <translation>Bei jeder steigenden Flanke des Takts wird abgetastet.</translation>
    </message>
    <message>
        <source>One sample is taken at each falling edge of the clock.</source>
        <translation>Bei jeder fallenden Flanke des Takts wird abgetastet.</translation>
    </message>
    <message>
        <source>How many samples the core holds, all windows together.</source>
        <translation>Wie viele Abtastwerte der Core aufnimmt, in allen Fenstern zusammen.</translation>
    </message>
    <message>
        <source>How many windows are captured one after the other, each with a trigger of its own. The storage is cut into as many parts, or into the next power of two.</source>
        <translation>Wie viele Fenster nacheinander aufgezeichnet werden, jedes mit einem eigenen Trigger. Der Speicher wird in so viele Teile geteilt oder in die nächste Zweierpotenz.</translation>
    </message>
    <message>
        <source>How many samples a window has.</source>
        <translation>Wie viele Abtastwerte ein Fenster hat.</translation>
    </message>
    <message>
        <source>How many samples of the window come before the sample that triggers. A trigger is passed over until there are that many.</source>
        <translation>Wie viele Abtastwerte des Fensters vor dem auslösenden liegen. Bis es so viele sind, wird ein Trigger übergangen.</translation>
    </message>
    <message>
        <source>What the storage is built from. What the device does not have, or not for a capture of this size, is not offered.</source>
        <translation>Woraus der Speicher besteht. Was der Baustein nicht hat, oder nicht für eine Aufzeichnung dieser Größe, wird nicht angeboten.</translation>
    </message>
    <message>
        <source>The first window after configuration begins with the first sample, without a trigger.</source>
        <translation>Das erste Fenster nach der Konfiguration beginnt mit dem ersten Abtastwert, ohne Trigger.</translation>
    </message>
    <message>
        <source>The line that forces a trigger does so at its falling edge, not at its rising one.</source>
        <translation>Die Leitung, die einen Trigger erzwingt, tut das bei ihrer fallenden Flanke, nicht bei der steigenden.</translation>
    </message>
    <message>
        <source>What the capture needs of what the device has; in red when it does not fit.</source>
        <translation>Was die Aufzeichnung von dem braucht, was der Baustein hat; in Rot, wenn es nicht passt.</translation>
    </message>
    <message>
        <source>What each sample holds, the most significant bit at the top. Rows that are not captured stay at the end of the list.</source>
        <translation>Was jeder Abtastwert enthält, das höchstwertige Bit zuoberst. Zeilen, die nicht aufgezeichnet werden, bleiben am Ende der Liste.</translation>
    </message>
</context>
<context>
    <name>RTLJEX::CaptureUsage</name>
    <message>
        <source>%1 Usage :</source>
        <translation>%1-Auslastung :</translation>
    </message>
    <message>
        <source>Register Usage :</source>
        <translation>Register-Auslastung :</translation>
    </message>
    <message>
        <source>&lt;font color = red&gt;%1&lt;/font&gt;</source>
        <translation>&lt;font color = red&gt;%1&lt;/font&gt;</translation>
    </message>
</context>
<context>
    <name>RTLJEX::ChangedBanner</name>
    <message>
        <source>Form</source>
        <translation>Formular</translation>
    </message>
    <message>
        <source>Netlist File has been changed.</source>
        <translation>Die Netzlistendatei hat sich geändert.</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
</context>
<context>
    <name>RTLJEX::ConfigCheck</name>
    <message>
        <source>Core %1: </source>
        <translation>Core %1: </translation>
    </message>
    <message>
        <source>No sample clock specified</source>
        <translation>Kein Abtasttakt angegeben</translation>
    </message>
    <message>
        <source>The specified sample clock does not exist</source>
        <translation>Der angegebene Abtasttakt existiert nicht</translation>
    </message>
    <message>
        <source>M%1 doesn&apos;t bind a trigger port</source>
        <translation>M%1 ist keinem Trigger-Port zugeordnet</translation>
    </message>
    <message>
        <source>Trigger port %1 for M%2 is not available</source>
        <translation>Trigger-Port %1 für M%2 ist nicht verfügbar</translation>
    </message>
    <message>
        <source>Length of M%1 is not equal to trigger port %2</source>
        <translation>Die Länge von M%1 ist ungleich der von Trigger-Port %2</translation>
    </message>
    <message>
        <source>M%1 in expression &quot;%2&quot; is not enable</source>
        <translation>M%1 im Ausdruck „%2“ ist nicht aktiv</translation>
    </message>
    <message>
        <source>No available trigger ports</source>
        <translation>Keine verfügbaren Trigger-Ports</translation>
    </message>
    <message>
        <source>No available match units</source>
        <translation>Keine verfügbaren Vergleichseinheiten</translation>
    </message>
    <message>
        <source>No expressions specified</source>
        <translation>Keine Ausdrücke angegeben</translation>
    </message>
    <message>
        <source>No capture signals specified</source>
        <translation>Keine aufzuzeichnenden Signale angegeben</translation>
    </message>
</context>
<context>
    <name>RTLJEX::CurrentDevice</name>
    <message>
        <source>The project has no device that is known, so there is nothing to measure the usage against.</source>
        <translation>Das Projekt hat keinen bekannten Baustein, daher gibt es nichts, woran die Auslastung gemessen wird.</translation>
    </message>
</context>
<context>
    <name>RTLJEX::DesignJudgement</name>
    <message>
        <source>Error</source>
        <translation>Fehler</translation>
    </message>
    <message>
        <source>Design files are not exist.</source>
        <translation>Es gibt keine Designdateien.</translation>
    </message>
    <message>
        <source>Design files contain some errors.</source>
        <translation>Die Designdateien enthalten Fehler.</translation>
    </message>
    <message>
        <source>Design files contain some errors</source>
        <translation>Die Designdateien enthalten Fehler</translation>
    </message>
    <message>
        <source>Get no module from design.</source>
        <translation>Das Design ergibt kein Modul.</translation>
    </message>
    <message>
        <source>Invalid Top Module</source>
        <translation>Ungültiges Top-Modul</translation>
    </message>
    <message>
        <source>Multiple Top Module</source>
        <translation>Mehrere Top-Module</translation>
    </message>
    <message>
        <source>Multiple top, please set top module.</source>
        <translation>Mehrere Top-Module; bitte legen Sie das Top-Modul fest.</translation>
    </message>
    <message>
        <source>Get module &quot;%1&quot; failed, just received default module &quot;%2&quot;.</source>
        <translation>Das Modul „%1“ war nicht zu bekommen, nur das voreingestellte Modul „%2“.</translation>
    </message>
    <message>
        <source>TS_JTAG used in design conflicts with ZUB.</source>
        <translation>Das im Design verwendete TS_JTAG verträgt sich nicht mit ZUB.</translation>
    </message>
    <message>
        <source>No module named &quot;%1&quot;, please reset top module.</source>
        <translation>Es gibt kein Modul „%1“; bitte legen Sie das Top-Modul neu fest.</translation>
    </message>
</context>
<context>
    <name>RTLJEX::JexConfigFilePage</name>
    <message>
        <source>JEX Configure File</source>
        <translation>JEX-Konfigurationsdatei</translation>
    </message>
    <message>
        <source>Enter a name for your JEX configure file.</source>
        <translation>Geben Sie einen Namen für die JEX-Konfigurationsdatei ein.</translation>
    </message>
    <message>
        <source>Name:</source>
        <translation>Name:</translation>
    </message>
    <message>
        <source>.zub</source>
        <translation>.zub</translation>
    </message>
    <message>
        <source>File %1 already exists.
Do you want to replace it?</source>
        <translation>Die Datei %1 existiert bereits.
Möchten Sie sie ersetzen?</translation>
    </message>
    <message>
        <source>Create File</source>
        <translation>Datei anlegen</translation>
    </message>
</context>
<context>
    <name>RTLJEX::JexFileWizardFactory</name>
    <message>
        <source>RTL JEX Config File</source>
        <translation>RTL-JEX-Konfigurationsdatei</translation>
    </message>
    <message>
        <source>Create a RTL JEX Config File.</source>
        <translation>Legt eine RTL-JEX-Konfigurationsdatei an.</translation>
    </message>
</context>
<context>
    <name>RTLJEX::JexInserterView</name>
    <message>
        <source>%1 open file failed.</source>
        <translation>%1: Die Datei konnte nicht geöffnet werden.</translation>
    </message>
    <message>
        <source>What is shown can not be put into a file.</source>
        <translation>Was gezeigt wird, lässt sich nicht in eine Datei schreiben.</translation>
    </message>
    <message>
        <source>Warning</source>
        <translation>Warnung</translation>
    </message>
    <message>
        <source>Support 16 AOs at most.</source>
        <translation>Es werden höchstens 16 AOs unterstützt.</translation>
    </message>
    <message>
        <source>Design files changed. Do you want to reload?</source>
        <translation>Die Designdateien haben sich geändert. Möchten Sie sie neu laden?</translation>
    </message>
    <message>
        <source>Top module changed. Do you want to reload?</source>
        <translation>Das Top-Modul hat sich geändert. Möchten Sie neu laden?</translation>
    </message>
    <message>
        <source>Reload Jex</source>
        <translation>Jex neu laden</translation>
    </message>
    <message>
        <source>Invalid JEX file.</source>
        <translation>Ungültige JEX-Datei.</translation>
    </message>
    <message>
        <source>Error</source>
        <translation>Fehler</translation>
    </message>
    <message>
        <source>%1 does not stand there any more.</source>
        <translation>%1 steht dort nicht mehr.</translation>
    </message>
    <message>
        <source>%1 Nothing was changed.</source>
        <translation>%1 Es wurde nichts geändert.</translation>
    </message>
    <message>
        <source>Your settings contain some errors.</source>
        <translation>Ihre Einstellungen enthalten Fehler.</translation>
    </message>
    <message>
        <source>AO %1</source>
        <translation>AO %1</translation>
    </message>
</context>
<context>
    <name>RTLJEX::JexLiteInserterView</name>
    <message>
        <source>JEX Config View</source>
        <translation>JEX-Konfiguration</translation>
    </message>
    <message>
        <source>AO Core:</source>
        <translation>AO-Core:</translation>
    </message>
    <message>
        <source>New</source>
        <translation>Neu</translation>
    </message>
    <message>
        <source>Remove</source>
        <translation>Entfernen</translation>
    </message>
</context>
<context>
    <name>RTLJEX::JexModePage</name>
    <message>
        <source>JEX Mode</source>
        <translation>JEX-Modus</translation>
    </message>
    <message>
        <source>Choose the mode of JEX</source>
        <translation>Wählen Sie den Modus von JEX</translation>
    </message>
    <message>
        <source>Standard Mode</source>
        <translation>Standard-Modus</translation>
    </message>
    <message>
        <source>Create a JEX Config File</source>
        <translation>Legt eine JEX-Konfigurationsdatei an</translation>
    </message>
    <message>
        <source>Lite Mode</source>
        <translation>Lite-Modus</translation>
    </message>
    <message>
        <source>Create a simplified version of JEX Config File(without trigger port)</source>
        <translation>Legt eine vereinfachte JEX-Konfigurationsdatei an (ohne Trigger-Port)</translation>
    </message>
</context>
<context>
    <name>RTLJEX::JexSignalSelectDialog</name>
    <message>
        <source>Search Nets</source>
        <translation>Netze suchen</translation>
    </message>
    <message>
        <source>Name:</source>
        <translation>Name:</translation>
    </message>
    <message>
        <source>Search</source>
        <translation>Suchen</translation>
    </message>
    <message>
        <source>Normal</source>
        <translation>Normal</translation>
    </message>
    <message>
        <source>Finds every net whose full name contains the text.</source>
        <translation>Findet jedes Netz, dessen voller Name den Text enthält.</translation>
    </message>
    <message>
        <source>Wildcard</source>
        <translation>Platzhalter</translation>
    </message>
    <message>
        <source>* stands for any text, ? for one character, [ab] for one of these. The whole full name has to match: *clk* finds what contains clk, top/u0/* all that is in top/u0 and below.</source>
        <translation>* steht für beliebigen Text, ? für ein Zeichen, [ab] für eines von diesen. Der ganze volle Name muss passen: *clk* findet, was clk enthält, top/u0/* alles, was in top/u0 und darunter liegt.</translation>
    </message>
    <message>
        <source>Regular Expression</source>
        <translation>Regulärer Ausdruck</translation>
    </message>
    <message>
        <source>The whole full name has to match: .*clk.* finds what contains clk, .*/(ready|valid) what is called ready or valid.</source>
        <translation>Der ganze volle Name muss passen: .*clk.* findet, was clk enthält, .*/(ready|valid) was ready oder valid heißt.</translation>
    </message>
    <message>
        <source>Case Sensitive</source>
        <translation>Groß-/Kleinschreibung beachten</translation>
    </message>
    <message>
        <source>Advanced Filter</source>
        <translation>Erweiterter Filter</translation>
    </message>
    <message>
        <source>Search In</source>
        <translation>Suchen in</translation>
    </message>
    <message>
        <source>Include Subentries</source>
        <translation>Mit Unterinstanzen</translation>
    </message>
    <message>
        <source>Also searches the instances below the chosen one.</source>
        <translation>Durchsucht auch die Instanzen unter der gewählten.</translation>
    </message>
    <message>
        <source>Hierarchy View</source>
        <translation>Hierarchische Ansicht</translation>
    </message>
    <message>
        <source>Shows what was found as a tree of modules.</source>
        <translation>Zeigt das Gefundene als Baum von Modulen.</translation>
    </message>
    <message>
        <source>Nets found</source>
        <translation>Gefundene Netze</translation>
    </message>
    <message>
        <source>Buses: %1, single nets: %2</source>
        <translation>Busse: %1, einzelne Netze: %2</translation>
    </message>
    <message>
        <source>not a valid expression: %1</source>
        <translation>kein gültiger Ausdruck: %1</translation>
    </message>
</context>
<context>
    <name>RTLJEX::JexStandardInserterView</name>
    <message>
        <source>Ao Core</source>
        <translation>Ao-Core</translation>
    </message>
    <message>
        <source>Right-click to add or remove a core</source>
        <translation>Rechtsklick, um einen Core hinzuzufügen oder zu entfernen</translation>
    </message>
    <message>
        <source>Core %1</source>
        <translation>Core %1</translation>
    </message>
    <message>
        <source>Add</source>
        <translation>Hinzufügen</translation>
    </message>
    <message>
        <source>Remove</source>
        <translation>Entfernen</translation>
    </message>
    <message>
        <source>Warning</source>
        <translation>Warnung</translation>
    </message>
    <message>
        <source>The only Ao can not be removed.</source>
        <translation>Der einzige Ao kann nicht entfernt werden.</translation>
    </message>
    <message>
        <source>Confirm</source>
        <translation>Bestätigen</translation>
    </message>
    <message>
        <source>Do you want to remove AO %1 ?</source>
        <translation>Möchten Sie AO %1 entfernen ?</translation>
    </message>
    <message>
        <source>Your settings contain some errors.             </source>
        <translation>Ihre Einstellungen enthalten Fehler.             </translation>
    </message>
</context>
<context>
    <name>RTLJEX::JexSummaryPage</name>
    <message>
        <source>Summary</source>
        <translation>Zusammenfassung</translation>
    </message>
    <message>
        <source>    Jex Mode: %1</source>
        <translation>    Jex-Modus: %1</translation>
    </message>
    <message>
        <source>    Name: %1</source>
        <translation>    Name: %1</translation>
    </message>
</context>
<context>
    <name>RTLJEX::JexViewManager</name>
    <message>
        <source>Error</source>
        <translation>Fehler</translation>
    </message>
    <message>
        <source>Can not open %1:
Invalid JEX file.</source>
        <translation>%1 kann nicht geöffnet werden:
Ungültige JEX-Datei.</translation>
    </message>
    <message>
        <source>&amp;Save &quot;%1&quot;</source>
        <translation>„%1“ &amp;speichern</translation>
    </message>
    <message>
        <source>Save &quot;%1&quot;</source>
        <translation>„%1“ speichern</translation>
    </message>
</context>
<context>
    <name>RTLJEX::JexWizard</name>
    <message>
        <source>New RTL JEX Wizard</source>
        <translation>Neue RTL-JEX-Datei</translation>
    </message>
</context>
<context>
    <name>RTLJEX::LiteCaptureOptionWidget</name>
    <message>
        <source>Capture Options</source>
        <translation>Aufzeichnungsoptionen</translation>
    </message>
    <message>
        <source>Sample Clock</source>
        <translation>Abtasttakt</translation>
    </message>
    <message>
        <source>Clock:</source>
        <translation>Takt:</translation>
    </message>
    <message>
        <source>Search the clock</source>
        <translation>Takt suchen</translation>
    </message>
    <message>
        <source>Search the design for the clock net</source>
        <translation>Sucht das Taktnetz im Design</translation>
    </message>
    <message>
        <source>...</source>
        <translation>...</translation>
    </message>
    <message>
        <source>Sample On:</source>
        <translation>Abtasten bei:</translation>
    </message>
    <message>
        <source>Rising</source>
        <translation>Steigend</translation>
    </message>
    <message>
        <source>Falling</source>
        <translation>Fallend</translation>
    </message>
    <message>
        <source>Capture</source>
        <translation>Aufzeichnung</translation>
    </message>
    <message>
        <source>Capture Amount:</source>
        <translation>Aufzeichnungslänge:</translation>
    </message>
    <message>
        <source>JEX Implementation:</source>
        <translation>JEX-Realisierung:</translation>
    </message>
    <message>
        <source>Enable Capture Data Input Register</source>
        <translation>Eingangsregister für Aufzeichnungsdaten</translation>
    </message>
    <message>
        <source>Capture Initial Data</source>
        <translation>Anfangsdaten aufzeichnen</translation>
    </message>
    <message>
        <source>Capture Utilization</source>
        <translation>Auslastung der Aufzeichnung</translation>
    </message>
    <message>
        <source>BSRAM Usage :</source>
        <translation>BSRAM-Auslastung :</translation>
    </message>
    <message>
        <source>Capture Signals</source>
        <translation>Aufgezeichnete Signale</translation>
    </message>
    <message>
        <source>MSB</source>
        <translation>MSB</translation>
    </message>
    <message>
        <source>LSB</source>
        <translation>LSB</translation>
    </message>
    <message>
        <source>Capture signals</source>
        <translation>Aufgezeichnete Signale</translation>
    </message>
    <message>
        <source>Add</source>
        <translation>Hinzufügen</translation>
    </message>
    <message>
        <source>Remove</source>
        <translation>Entfernen</translation>
    </message>
    <message>
        <source>The net whose edges take the samples. What is captured has to be stable there as for any register with this clock.</source>
        <translation>Das Netz, dessen Flanken abtasten. Was aufgezeichnet wird, muss dort so stabil sein wie für jedes Register mit diesem Takt.</translation>
    </message>
    <message>
        <source>Searches the design for the clock.</source>
        <translation>Sucht den Takt im Design.</translation>
    </message>
    <message>
        <source>One sample is taken at each rising edge of the clock.</source>
        <translation>Bei jeder steigenden Flanke des Takts wird abgetastet.</translation>
    </message>
    <message>
        <source>One sample is taken at each falling edge of the clock.</source>
        <translation>Bei jeder fallenden Flanke des Takts wird abgetastet.</translation>
    </message>
    <message>
        <source>How many samples a window has.</source>
        <translation>Wie viele Abtastwerte ein Fenster hat.</translation>
    </message>
    <message>
        <source>What the storage is built from. What the device does not have, or not for a capture of this size, is not offered.</source>
        <translation>Woraus der Speicher besteht. Was der Baustein nicht hat, oder nicht für eine Aufzeichnung dieser Größe, wird nicht angeboten.</translation>
    </message>
    <message>
        <source>The captured signals go through one register more before they are stored, which makes the clock easier to reach.</source>
        <translation>Die aufgezeichneten Signale laufen vor dem Speichern durch ein weiteres Register, womit der Takt leichter zu erreichen ist.</translation>
    </message>
    <message>
        <source>The window begins with the first sample after configuration, too, not only when the core is armed.</source>
        <translation>Das Fenster beginnt auch mit dem ersten Abtastwert nach der Konfiguration, nicht nur, wenn der Core scharfgeschaltet wird.</translation>
    </message>
    <message>
        <source>What the capture needs of what the device has; in red when it does not fit.</source>
        <translation>Was die Aufzeichnung von dem braucht, was der Baustein hat; in Rot, wenn es nicht passt.</translation>
    </message>
    <message>
        <source>What each sample holds, the most significant bit at the top. Rows that are not captured stay at the end of the list.</source>
        <translation>Was jeder Abtastwert enthält, das höchstwertige Bit zuoberst. Zeilen, die nicht aufgezeichnet werden, bleiben am Ende der Liste.</translation>
    </message>
</context>
<context>
    <name>RTLJEX::MessageDlg</name>
    <message>
        <source>Dialog</source>
        <translation>Dialog</translation>
    </message>
    <message>
        <source>Messages</source>
        <translation>Meldungen</translation>
    </message>
</context>
<context>
    <name>RTLJEX::MuExpressionDialog</name>
    <message>
        <source>Expression</source>
        <translation>Ausdruck</translation>
    </message>
    <message>
        <source>AND</source>
        <translation>UND</translation>
    </message>
    <message>
        <source>Both; binds tighter than ^</source>
        <translation>Beide; bindet stärker als ^</translation>
    </message>
    <message>
        <source>OR</source>
        <translation>ODER</translation>
    </message>
    <message>
        <source>At least one; binds loosest</source>
        <translation>Mindestens eines; bindet am schwächsten</translation>
    </message>
    <message>
        <source>XOR</source>
        <translation>XOR</translation>
    </message>
    <message>
        <source>Exactly one; binds tighter than |</source>
        <translation>Genau eines; bindet stärker als |</translation>
    </message>
    <message>
        <source>NOT</source>
        <translation>NICHT</translation>
    </message>
    <message>
        <source>Not; binds tightest</source>
        <translation>Nicht; bindet am stärksten</translation>
    </message>
    <message>
        <source>Left bracket</source>
        <translation>Klammer auf</translation>
    </message>
    <message>
        <source>Right bracket</source>
        <translation>Klammer zu</translation>
    </message>
    <message>
        <source>Takes away the last part of the expression (Backspace).</source>
        <translation>Nimmt den letzten Teil des Ausdrucks weg (Rücktaste).</translation>
    </message>
    <message>
        <source>Backspace</source>
        <translation>Rücktaste</translation>
    </message>
    <message>
        <source>C&amp;lear</source>
        <translation>&amp;Leeren</translation>
    </message>
    <message>
        <source>Warning</source>
        <translation>Warnung</translation>
    </message>
    <message>
        <source>Please input the right expression</source>
        <translation>Bitte geben Sie einen gültigen Ausdruck ein</translation>
    </message>
</context>
<context>
    <name>RTLJEX::NamedSignals</name>
    <message>
        <source>%1 is missing in the design.</source>
        <translation>%1 fehlt im Design.</translation>
    </message>
    <message>
        <source>%1 is missing in the design; nearest: %2.</source>
        <translation>%1 fehlt im Design; am ähnlichsten: %2.</translation>
    </message>
    <message>
        <source>There is no design to look the signals up in.</source>
        <translation>Es gibt kein Design, in dem die Signale zu suchen wären.</translation>
    </message>
    <message>
        <source>%1 must not be probed: it is tied to a constant or is a bidirectional pin.</source>
        <translation>%1 darf nicht gemessen werden: Es liegt auf einer Konstanten oder ist ein bidirektionaler Pin.</translation>
    </message>
    <message>
        <source>There are %1 names, of which the first %2 were looked up.</source>
        <translation>Es sind %1 Namen, von denen die ersten %2 gesucht wurden.</translation>
    </message>
</context>
<context>
    <name>RTLJEX::Rebinding</name>
    <message>
        <source>The design does not have %1 so.</source>
        <translation>So hat das Design %1 nicht.</translation>
    </message>
</context>
<context>
    <name>RTLJEX::ReloadBanner</name>
    <message>
        <source>Keep It</source>
        <translation>Beibehalten</translation>
    </message>
    <message>
        <source>Reload</source>
        <translation>Neu laden</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Schließen</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>The file &apos;%1&apos; has been removed on disk.
Do you still want to keep it?</source>
        <translation>Die Datei „%1“ wurde auf dem Datenträger gelöscht.
Möchten Sie sie trotzdem behalten?</translation>
    </message>
    <message>
        <source>The file &apos;%1&apos; changed on disk.
Do you want to reload?</source>
        <translation>Die Datei „%1“ wurde auf dem Datenträger geändert.
Möchten Sie sie neu laden?</translation>
    </message>
</context>
<context>
    <name>RTLJEX::Renaming</name>
    <message>
        <source>A list would hold %1 twice.</source>
        <translation>Eine Liste enthielte %1 zweimal.</translation>
    </message>
    <message>
        <source>The bus %1 would hold %2.</source>
        <translation>Der Bus %1 enthielte %2.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; and &quot;%2&quot; differ in their range: a renamed signal keeps its width.</source>
        <translation>„%1“ und „%2“ haben verschiedene Bereiche: Ein umbenanntes Signal behält seine Breite.</translation>
    </message>
</context>
<context>
    <name>RTLJEX::Saving</name>
    <message>
        <source>For RTL Design, JEX is only available for TarselSynthesis. Please change Synthesis Tool to TarselSynthesis in Configurations.</source>
        <translation>Für RTL-Designs ist JEX nur mit TarselSynthesis verfügbar. Bitte stellen Sie in der Konfiguration das Synthesewerkzeug auf TarselSynthesis um.</translation>
    </message>
    <message>
        <source>Error</source>
        <translation>Fehler</translation>
    </message>
    <message>
        <source>Can not save to %1</source>
        <translation>Kann nicht in %1 speichern</translation>
    </message>
    <message>
        <source>Save changes to &quot;%1&quot; ?</source>
        <translation>Änderungen in „%1“ speichern ?</translation>
    </message>
    <message>
        <source>Save</source>
        <translation>Speichern</translation>
    </message>
</context>
<context>
    <name>RTLJEX::StaleReport</name>
    <message>
        <source>%1 of %2</source>
        <translation>%1 von %2</translation>
    </message>
    <message>
        <source>Core %1: capture signal %2</source>
        <translation>Core %1: Aufgezeichnetes Signal %2</translation>
    </message>
    <message>
        <source>Core %1: clock signal %2</source>
        <translation>Core %1: Taktsignal %2</translation>
    </message>
    <message>
        <source>Core %1: trigger port %2 signal %3</source>
        <translation>Core %1: Trigger-Port %2, Signal %3</translation>
    </message>
    <message>
        <source>%1 is missing in the design</source>
        <translation>%1 fehlt im Design</translation>
    </message>
    <message>
        <source>%1 changed in width, it is now %2</source>
        <translation>%1 hat eine andere Breite, es ist jetzt %2</translation>
    </message>
    <message>
        <source>%1 is now excluded from probing</source>
        <translation>%1 ist jetzt von der Messung ausgeschlossen</translation>
    </message>
    <message>
        <source>%1 moved, it is now %2</source>
        <translation>%1 liegt anderswo, es ist jetzt %2</translation>
    </message>
    <message>
        <source>%1; nearest: %2</source>
        <translation>%1; am ähnlichsten: %2</translation>
    </message>
</context>
<context>
    <name>RTLJEX::TriggerOptionWidget</name>
    <message>
        <source>Trigger Options</source>
        <translation>Trigger-Optionen</translation>
    </message>
    <message>
        <source>Mode:</source>
        <translation>Modus:</translation>
    </message>
    <message>
        <source>Dynamic</source>
        <translation>Dynamisch</translation>
    </message>
    <message>
        <source>Static</source>
        <translation>Statisch</translation>
    </message>
    <message>
        <source>Implementation:</source>
        <translation>Realisierung:</translation>
    </message>
    <message>
        <source>BSRAM Usage:0</source>
        <translation>BSRAM-Auslastung:0</translation>
    </message>
    <message>
        <source>Trigger Ports</source>
        <translation>Trigger-Ports</translation>
    </message>
    <message>
        <source>Trigger ports</source>
        <translation>Trigger-Ports</translation>
    </message>
    <message>
        <source>Double-click a port to choose its signals</source>
        <translation>Doppelklick auf einen Port, um seine Signale zu wählen</translation>
    </message>
    <message>
        <source>Match Units</source>
        <translation>Vergleichseinheiten</translation>
    </message>
    <message>
        <source>Match units</source>
        <translation>Vergleichseinheiten</translation>
    </message>
    <message>
        <source>Double-click a unit to edit it</source>
        <translation>Doppelklick auf eine Einheit, um sie zu bearbeiten</translation>
    </message>
    <message>
        <source>Expressions</source>
        <translation>Ausdrücke</translation>
    </message>
    <message>
        <source>Double-click an expression to edit it, or the empty space to add one</source>
        <translation>Doppelklick auf einen Ausdruck, um ihn zu bearbeiten, oder ins Leere, um einen hinzuzufügen</translation>
    </message>
    <message>
        <source>Error</source>
        <translation>Fehler</translation>
    </message>
    <message>
        <source>Add</source>
        <translation>Hinzufügen</translation>
    </message>
    <message>
        <source>Remove</source>
        <translation>Entfernen</translation>
    </message>
    <message>
        <source>Warning</source>
        <translation>Warnung</translation>
    </message>
    <message>
        <source>Support 16 expressions at most.</source>
        <translation>Es werden höchstens 16 Ausdrücke unterstützt.</translation>
    </message>
    <message>
        <source>Not part of Static mode, which has M0 to M9</source>
        <translation>Nicht Teil des statischen Modus, der M0 bis M9 hat</translation>
    </message>
    <message>
        <source>Trigger Port %1</source>
        <translation>Trigger-Port %1</translation>
    </message>
    <message>
        <source>Support 64 signals at most.</source>
        <translation>Es werden höchstens 64 Signale unterstützt.</translation>
    </message>
</context>
<context>
    <name>RTLJEX::TriggerPortDialog</name>
    <message>
        <source>Trigger Port</source>
        <translation>Trigger-Port</translation>
    </message>
    <message>
        <source>MSB</source>
        <translation>MSB</translation>
    </message>
    <message>
        <source>LSB</source>
        <translation>LSB</translation>
    </message>
    <message>
        <source>Signals of the trigger port</source>
        <translation>Signale des Trigger-Ports</translation>
    </message>
    <message>
        <source>Add Signals</source>
        <translation>Signale hinzufügen</translation>
    </message>
    <message>
        <source>Remove</source>
        <translation>Entfernen</translation>
    </message>
    <message>
        <source>Warning</source>
        <translation>Warnung</translation>
    </message>
    <message>
        <source>Support 64 signals at most.</source>
        <translation>Es werden höchstens 64 Signale unterstützt.</translation>
    </message>
</context>
<context>
    <name>RTLJEX::TriggerSingalSelectDialog</name>
    <message>
        <source>Add From Trigger</source>
        <translation>Vom Trigger hinzufügen</translation>
    </message>
    <message>
        <source>Signals of the ticked ports</source>
        <translation>Signale der angekreuzten Ports</translation>
    </message>
    <message>
        <source>Trigger Port %1</source>
        <translation>Trigger-Port %1</translation>
    </message>
</context>
<context>
    <name>RTLJEX::signalTreeWidget</name>
    <message>
        <source>Ungroup</source>
        <translation>Gruppe auflösen</translation>
    </message>
    <message>
        <source>Group</source>
        <translation>Gruppieren</translation>
    </message>
    <message>
        <source>Rename</source>
        <translation>Umbenennen</translation>
    </message>
    <message>
        <source>Restore Original Name</source>
        <translation>Ursprünglichen Namen wiederherstellen</translation>
    </message>
    <message>
        <source>Reverse</source>
        <translation>Umkehren</translation>
    </message>
    <message>
        <source>Enable</source>
        <translation>Aktivieren</translation>
    </message>
    <message>
        <source>Disable</source>
        <translation>Deaktivieren</translation>
    </message>
</context>
<context>
    <name>ResultRow</name>
    <message>
        <source>Excluded: tied to a constant, or a bidirectional pin</source>
        <translation>Ausgeschlossen: liegt auf einer Konstanten oder ist ein bidirektionaler Pin</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>Name</translation>
    </message>
</context>
<context>
    <name>SignalRow</name>
    <message>
        <source>Not captured</source>
        <translation>Nicht aufgezeichnet</translation>
    </message>
    <message>
        <source>Not in the design</source>
        <translation>Nicht im Design</translation>
    </message>
    <message>
        <source>Marked as faulty in the file</source>
        <translation>In der Datei als fehlerhaft gekennzeichnet</translation>
    </message>
</context>
</TS>

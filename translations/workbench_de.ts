<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de" sourcelanguage="en">
<context>
    <name>Cli::Difference</name>
    <message>
        <source>capture</source>
        <translation>Aufzeichnung</translation>
    </message>
    <message>
        <source>true</source>
        <translation>ja</translation>
    </message>
    <message>
        <source>false</source>
        <translation>nein</translation>
    </message>
    <message>
        <source>none</source>
        <translation>keiner</translation>
    </message>
    <message>
        <source>mode</source>
        <translation>Modus</translation>
    </message>
    <message>
        <source>captured</source>
        <translation>aufgezeichnet</translation>
    </message>
    <message>
        <source>trigger port %1</source>
        <translation>Trigger-Port %1</translation>
    </message>
    <message>
        <source>match unit M%1</source>
        <translation>Vergleichseinheit M%1</translation>
    </message>
    <message>
        <source>expression %1</source>
        <translation>Ausdruck %1</translation>
    </message>
    <message>
        <source>expression</source>
        <translation>Ausdruck</translation>
    </message>
    <message>
        <source>Core %1 was added</source>
        <translation>Core %1 wurde hinzugefügt</translation>
    </message>
    <message>
        <source>Core %1 was removed</source>
        <translation>Core %1 wurde entfernt</translation>
    </message>
    <message>
        <source>Core %1 moved from place %2 to place %3</source>
        <translation>Core %1 wurde von Platz %2 nach Platz %3 verschoben</translation>
    </message>
    <message>
        <source>File: </source>
        <translation>Datei: </translation>
    </message>
    <message>
        <source>Core %1: </source>
        <translation>Core %1: </translation>
    </message>
    <message>
        <source>%1 was added at row %2</source>
        <translation>%1 wurde in Zeile %2 hinzugefügt</translation>
    </message>
    <message>
        <source>%1 was removed from row %2</source>
        <translation>%1 wurde aus Zeile %2 entfernt</translation>
    </message>
    <message>
        <source>%1 moved from row %2 to row %3</source>
        <translation>%1 wurde von Zeile %2 nach Zeile %3 verschoben</translation>
    </message>
    <message>
        <source>%1 was renamed to %2</source>
        <translation>%1 wurde in %2 umbenannt</translation>
    </message>
    <message>
        <source>%1 changed from %2 to %3</source>
        <translation>%1 wurde von %2 in %3 geändert</translation>
    </message>
</context>
<context>
    <name>Insertion::Analyzer</name>
    <message>
        <source>The design has no net %1.</source>
        <translation>Das Design hat kein Netz %1.</translation>
    </message>
</context>
<context>
    <name>Insertion::BenchInstance</name>
    <message>
        <source>The test bench has no instance &quot;%1&quot; of %2.</source>
        <translation>Die Testbench hat keine Instanz „%1“ von %2.</translation>
    </message>
    <message>
        <source>The test bench has no instance of %1.</source>
        <translation>Die Testbench hat keine Instanz von %1.</translation>
    </message>
    <message>
        <source>The test bench has several instances of %1: %2. Name one of them with --instance.</source>
        <translation>Die Testbench hat mehrere Instanzen von %1: %2. Nennen Sie eine davon mit --instance.</translation>
    </message>
</context>
<context>
    <name>Insertion::BenchReading</name>
    <message>
        <source>%1 cannot be read: %2.</source>
        <translation>%1 kann nicht gelesen werden: %2.</translation>
    </message>
    <message>
        <source>The test bench has no top module, which nobody instantiates.</source>
        <translation>Die Testbench hat kein Top-Modul, das niemand instanziiert.</translation>
    </message>
    <message>
        <source>The test bench has several top modules: %1.</source>
        <translation>Die Testbench hat mehrere Top-Module: %1.</translation>
    </message>
    <message>
        <source>The test bench cannot be read with %1 as its top module.</source>
        <translation>Die Testbench ist mit %1 als Top-Modul nicht lesbar.</translation>
    </message>
</context>
<context>
    <name>Insertion::FlatNetlist</name>
    <message>
        <source>What Yosys read back of the design could not be understood, so nothing is proven. If the disk is full, make room on it.</source>
        <translation>Was Yosys vom Design zurückgelesen hat, ließ sich nicht verstehen, daher ist nichts bewiesen. Ist der Datenträger voll, schaffen Sie Platz darauf.</translation>
    </message>
</context>
<context>
    <name>Insertion::InsertionJob</name>
    <message>
        <source>Reading the design with Yosys</source>
        <translation>Das Design wird mit Yosys gelesen</translation>
    </message>
    <message>
        <source>A module of the design has the name of one of the analyzer&apos;s.</source>
        <translation>Ein Modul des Designs heißt wie eines des Analysators.</translation>
    </message>
    <message>
        <source>A temporary file could not be written. Make room on the disk.</source>
        <translation>Eine temporäre Datei konnte nicht geschrieben werden. Schaffen Sie Platz auf dem Datenträger.</translation>
    </message>
    <message>
        <source>Putting the analyzer into the design</source>
        <translation>Der Analysator wird in das Design eingefügt</translation>
    </message>
    <message>
        <source>Comparing the netlists</source>
        <translation>Die Netzlisten werden verglichen</translation>
    </message>
    <message>
        <source>Proving equivalence</source>
        <translation>Die Äquivalenz wird bewiesen</translation>
    </message>
    <message>
        <source>Synthesizing the original</source>
        <translation>Das Original wird synthetisiert</translation>
    </message>
    <message>
        <source>Yosys did not write what it was asked for, or too much of it.</source>
        <translation>Yosys schrieb nicht das Verlangte oder zu viel davon.</translation>
    </message>
    <message>
        <source>Yosys gave no design.</source>
        <translation>Yosys lieferte kein Design.</translation>
    </message>
    <message>
        <source>WARNING: Yosys cannot read the design: %1</source>
        <translation>WARNING: Yosys kann das Design nicht lesen: %1</translation>
    </message>
    <message>
        <source>WARNING: There is therefore no design.v. For simulations, bind.sv and probe.v attach the analyzer to the untouched sources.</source>
        <translation>WARNING: Daher gibt es kein design.v. Für Simulationen hängen bind.sv und probe.v den Analysator an die unveränderten Quellen.</translation>
    </message>
    <message>
        <source>Yosys does not take the design with the analyzer.</source>
        <translation>Yosys nimmt das Design mit dem Analysator nicht an.</translation>
    </message>
    <message>
        <source>The design with the analyzer is not proven to be the original with nothing but taps, so nothing is written.</source>
        <translation>Es ist nicht bewiesen, dass das Design mit dem Analysator das Original mit nichts als Abgriffen ist, daher wird nichts geschrieben.</translation>
    </message>
    <message>
        <source>Synthesizing the design with the analyzer</source>
        <translation>Das Design mit dem Analysator wird synthetisiert</translation>
    </message>
    <message>
        <source>it may call foreign functions of the sources, and %1.</source>
        <translation>Es könnten fremde Funktionen der Quellen aufgerufen werden. %1.</translation>
    </message>
</context>
<context>
    <name>Insertion::OutputFolder</name>
    <message>
        <source>%1 is a link that leads nowhere.</source>
        <translation>%1 ist ein Link, der nirgendwohin führt.</translation>
    </message>
    <message>
        <source>%1 is not a folder. Name another one for the output.</source>
        <translation>%1 ist kein Ordner. Nennen Sie einen anderen für die Ausgabe.</translation>
    </message>
    <message>
        <source>%1 is a folder of the sources: %2 is in it. Name another one for the output.</source>
        <translation>%1 ist ein Ordner der Quellen: Er enthält %2. Nennen Sie einen anderen für die Ausgabe.</translation>
    </message>
    <message>
        <source>%1 holds other files (%2), which would be lost. Name another folder for the output.</source>
        <translation>%1 enthält andere Dateien (%2), die verloren gingen. Nennen Sie einen anderen Ordner für die Ausgabe.</translation>
    </message>
    <message>
        <source>%1 holds files that were not made here (%2), which would be lost. Name another folder for the output.</source>
        <translation>%1 enthält Dateien, die nicht von hier stammen (%2) und verloren gingen. Nennen Sie einen anderen Ordner für die Ausgabe.</translation>
    </message>
    <message>
        <source>The folder %1 cannot be made.</source>
        <translation>Der Ordner %1 lässt sich nicht anlegen.</translation>
    </message>
    <message>
        <source>%1 cannot be written: %2. Nothing was changed.</source>
        <translation>%1 kann nicht geschrieben werden: %2. Es wurde nichts geändert.</translation>
    </message>
    <message>
        <source>What was put into %1 meanwhile is now in %2.</source>
        <translation>Was inzwischen in %1 gelegt wurde, ist jetzt in %2.</translation>
    </message>
</context>
<context>
    <name>Insertion::RtlilDesign</name>
    <message>
        <source>A temporary file could not be written%1. Make room on the disk.</source>
        <translation>Eine temporäre Datei konnte nicht geschrieben werden%1. Schaffen Sie Platz auf dem Datenträger.</translation>
    </message>
    <message>
        <source>Yosys gave no design, or one that is too large.</source>
        <translation>Yosys lieferte kein Design oder ein zu großes.</translation>
    </message>
    <message>
        <source>Yosys gave only a part of the design. Make room on the disk.</source>
        <translation>Yosys lieferte nur einen Teil des Designs. Schaffen Sie Platz auf dem Datenträger.</translation>
    </message>
</context>
<context>
    <name>Insertion::SimulationJob</name>
    <message>
        <source>A temporary file could not be written. Make room on the disk.</source>
        <translation>Eine temporäre Datei konnte nicht geschrieben werden. Schaffen Sie Platz auf dem Datenträger.</translation>
    </message>
    <message>
        <source>The test bench failed: it said $stop or $fatal, or met a fault of its own.</source>
        <translation>Die Testbench schlug fehl: Sie rief $stop oder $fatal auf oder hatte selbst einen Fehler.</translation>
    </message>
    <message>
        <source>What the simulation wrote cannot be read (%1): %2.</source>
        <translation>Was die Simulation schrieb, ist nicht lesbar (%1): %2.</translation>
    </message>
    <message>
        <source>The test bench failed with code %1.</source>
        <translation>Die Testbench schlug mit Code %1 fehl.</translation>
    </message>
    <message>
        <source>Core %1: %2</source>
        <translation>Core %1: %2</translation>
    </message>
    <message>
        <source>WARNING: Core %1 filled %2 of its %3 windows.</source>
        <translation>WARNING: Core %1 füllte %2 seiner %3 Fenster.</translation>
    </message>
    <message>
        <source>Core %1 did not fill its window: its sample clock %2 had too few edges.</source>
        <translation>Core %1 füllte sein Fenster nicht: Sein Abtasttakt %2 hatte zu wenige Flanken.</translation>
    </message>
    <message>
        <source>Core %1 did not trigger, or not with enough samples behind its trigger.</source>
        <translation>Core %1 löste nicht aus oder nicht mit genügend Abtastwerten hinter dem Trigger.</translation>
    </message>
    <message>
        <source>Core %1: M%2 matched.</source>
        <translation>Core %1: M%2 traf zu.</translation>
    </message>
    <message>
        <source>Core %1: M%2 never matched.</source>
        <translation>Core %1: M%2 traf nie zu.</translation>
    </message>
    <message>
        <source>Core %1: expression %2, %3, held.</source>
        <translation>Core %1: Ausdruck %2, %3, war erfüllt.</translation>
    </message>
    <message>
        <source>Core %1: expression %2, %3, never held.</source>
        <translation>Core %1: Ausdruck %2, %3, war nie erfüllt.</translation>
    </message>
    <message>
        <source>The test bench is not run, since %1.</source>
        <translation>Die Testbench wird nicht ausgeführt: %1.</translation>
    </message>
</context>
<context>
    <name>Insertion::Simulators</name>
    <message>
        <source>Compiling the test bench</source>
        <translation>Die Testbench wird übersetzt</translation>
    </message>
    <message>
        <source>Icarus Verilog does not take the test bench.</source>
        <translation>Icarus Verilog nimmt die Testbench nicht an.</translation>
    </message>
    <message>
        <source>Simulating</source>
        <translation>Es wird simuliert</translation>
    </message>
    <message>
        <source>Verilator does not take the test bench.</source>
        <translation>Verilator nimmt die Testbench nicht an.</translation>
    </message>
    <message>
        <source>Compiling what Verilator made of the test bench</source>
        <translation>Was Verilator aus der Testbench machte, wird übersetzt</translation>
    </message>
    <message>
        <source>What Verilator made of the test bench cannot be compiled.</source>
        <translation>Was Verilator aus der Testbench machte, lässt sich nicht übersetzen.</translation>
    </message>
    <message>
        <source>its program</source>
        <translation>sein Programm</translation>
    </message>
    <message>
        <source>Install verilator, or let the variable JEX_VERILATOR name the program.</source>
        <translation>Installieren Sie verilator, oder nennen Sie in der Variablen JEX_VERILATOR das Programm.</translation>
    </message>
    <message>
        <source>a C++ compiler</source>
        <translation>einen C++-Compiler</translation>
    </message>
    <message>
        <source>Install g++ and make, or let the variable JEX_CXX name a compiler.</source>
        <translation>Installieren Sie g++ und make, oder nennen Sie in der Variablen JEX_CXX einen Compiler.</translation>
    </message>
    <message>
        <source>Install make, or let the variable JEX_MAKE name the program.</source>
        <translation>Installieren Sie make, oder nennen Sie in der Variablen JEX_MAKE das Programm.</translation>
    </message>
    <message>
        <source>A simulation by Verilator needs %1, and %2 is not there. %3</source>
        <translation>Eine Simulation mit Verilator braucht %1, und %2 ist nicht da. %3</translation>
    </message>
    <message>
        <source>the test bench</source>
        <translation>die Testbench</translation>
    </message>
</context>
<context>
    <name>Insertion::Taps</name>
    <message>
        <source>it is inside %1, a module without a definition</source>
        <translation>Es liegt in %1, einem Modul ohne Definition</translation>
    </message>
    <message>
        <source>it is a word of a memory, and these are no nets</source>
        <translation>Es ist ein Wort eines Speichers, und diese sind keine Netze</translation>
    </message>
    <message>
        <source>it has %1 bits there and %2 for Yosys</source>
        <translation>Es hat dort %1 Bit und für Yosys %2</translation>
    </message>
    <message>
        <source>GHDL keeps no net of this name when it translates %1</source>
        <translation>GHDL behält beim Übersetzen von %1 kein Netz dieses Namens</translation>
    </message>
    <message>
        <source>Yosys does not have a net of this name there</source>
        <translation>Yosys hat dort kein Netz dieses Namens</translation>
    </message>
    <message>
        <source>Yosys does not have the scope &quot;%1&quot; there</source>
        <translation>Yosys hat dort den Bereich „%1“ nicht</translation>
    </message>
    <message>
        <source>%1 cannot be tapped: %2.</source>
        <translation>%1 lässt sich nicht abgreifen: %2.</translation>
    </message>
</context>
<context>
    <name>Insertion::YosysCalls</name>
    <message>
        <source>The top module has the name &quot;%1&quot;, which cannot be told to Yosys.</source>
        <translation>Das Top-Modul heißt „%1“, was sich Yosys nicht mitteilen lässt.</translation>
    </message>
    <message>
        <source>The macro &quot;%1&quot; of the project cannot be told to Yosys.</source>
        <translation>Das Makro „%1“ des Projekts lässt sich Yosys nicht mitteilen.</translation>
    </message>
    <message>
        <source>The parameter &quot;%1&quot; of the top module cannot be told to Yosys.</source>
        <translation>Der Parameter „%1“ des Top-Moduls lässt sich Yosys nicht mitteilen.</translation>
    </message>
    <message>
        <source>the design</source>
        <translation>das Design</translation>
    </message>
    <message>
        <source>the design with the analyzer</source>
        <translation>das Design mit dem Analysator</translation>
    </message>
    <message>
        <source>the question whether both designs are equivalent</source>
        <translation>die Frage, ob beide Designs äquivalent sind</translation>
    </message>
</context>
<context>
    <name>QUARRY::ToolRun</name>
    <message>
        <source>ran</source>
        <translation>Ausführen</translation>
    </message>
</context>
<context>
    <name>RTLJEX::CapturedWindow</name>
    <message>
        <source>The captured samples have no status: the core was not read.</source>
        <translation>Die Abtastwerte haben keinen Status: Der Core wurde nicht gelesen.</translation>
    </message>
    <message>
        <source>The captured samples are not complete.</source>
        <translation>Die Abtastwerte sind nicht vollständig.</translation>
    </message>
    <message>
        <source>The captured samples are of another core.</source>
        <translation>Die Abtastwerte stammen von einem anderen Core.</translation>
    </message>
</context>
<context>
    <name>RTLJEX::CoreFault</name>
    <message>
        <source>it is not bound to a trigger port.</source>
        <translation>Sie ist keinem Trigger-Port zugeordnet.</translation>
    </message>
    <message>
        <source>its trigger port holds more than %1 signals.</source>
        <translation>Ihr Trigger-Port enthält mehr als %1 Signale.</translation>
    </message>
    <message>
        <source>it compares by a function that does not exist.</source>
        <translation>Sie vergleicht mit einer Funktion, die es nicht gibt.</translation>
    </message>
    <message>
        <source>it is not well formed.</source>
        <translation>Er ist nicht wohlgeformt.</translation>
    </message>
    <message>
        <source>M%1 is not enabled.</source>
        <translation>M%1 ist nicht aktiv.</translation>
    </message>
    <message>
        <source>M%1 does not exist in Static mode.</source>
        <translation>M%1 gibt es im statischen Modus nicht.</translation>
    </message>
    <message>
        <source>M%1 cannot be made: %2</source>
        <translation>M%1 lässt sich nicht bauen: %2</translation>
    </message>
    <message>
        <source>it has no trigger expression, so it would never trigger.</source>
        <translation>Er hat keinen Trigger-Ausdruck und würde nie auslösen.</translation>
    </message>
    <message>
        <source>it has more than %1 trigger expressions.</source>
        <translation>Er hat mehr als %1 Trigger-Ausdrücke.</translation>
    </message>
    <message>
        <source>the expression &quot;%1&quot; cannot be made: %2</source>
        <translation>Der Ausdruck „%1“ lässt sich nicht bauen: %2</translation>
    </message>
    <message>
        <source>a storage of %1 samples cannot be made: the size is a power of two up to %2.</source>
        <translation>Ein Speicher für %1 Abtastwerte lässt sich nicht bauen: Die Speichertiefe ist eine Zweierpotenz bis %2.</translation>
    </message>
    <message>
        <source>a capture amount of %1 does not fit into one of %2 segments of a storage of %3 samples.</source>
        <translation>Eine Aufzeichnungslänge von %1 passt nicht in eines von %2 Segmenten eines Speichers für %3 Abtastwerte.</translation>
    </message>
    <message>
        <source>a trigger position of %1 does not suit a capture amount of %2: it is from 0 to %3.</source>
        <translation>Eine Trigger-Position von %1 passt nicht zu einer Aufzeichnungslänge von %2: Sie reicht von 0 bis %3.</translation>
    </message>
    <message>
        <source>it captures no signals.</source>
        <translation>Er zeichnet keine Signale auf.</translation>
    </message>
    <message>
        <source>it captures %1 bits, and a core stores at most %2.</source>
        <translation>Er zeichnet %1 Bit auf, und ein Core speichert höchstens %2.</translation>
    </message>
    <message>
        <source>Core %1 cannot be made: %2</source>
        <translation>Core %1 lässt sich nicht bauen: %2</translation>
    </message>
    <message>
        <source>a capture amount of %1 cannot be made: it is a power of two from %2 to %3.</source>
        <translation>Eine Aufzeichnungslänge von %1 lässt sich nicht bauen: Sie ist eine Zweierpotenz von %2 bis %3.</translation>
    </message>
</context>
<context>
    <name>Workbench::DeclarationCommand</name>
    <message>
        <source>Go to &amp;Declaration</source>
        <translation>Zur &amp;Deklaration</translation>
    </message>
    <message>
        <source>Show where the signal of the current row is declared</source>
        <translation>Zeigt, wo das Signal der aktuellen Zeile deklariert ist</translation>
    </message>
    <message>
        <source>Choose a signal first: in a capture list, a trigger port or a message.</source>
        <translation>Wählen Sie zuerst ein Signal: in einer Aufzeichnungsliste, einem Trigger-Port oder einer Meldung.</translation>
    </message>
    <message>
        <source>The design does not have %1.</source>
        <translation>Das Design hat %1 nicht.</translation>
    </message>
    <message>
        <source>It is not known where %1 is declared.</source>
        <translation>Es ist nicht bekannt, wo %1 deklariert ist.</translation>
    </message>
</context>
<context>
    <name>Workbench::DesignTrial</name>
    <message>
        <source>Tr&amp;y Changed Designs</source>
        <translation>Geänderte Designs &amp;testen</translation>
    </message>
    <message>
        <source>Read a design that has changed in the background, and say whether it can be read</source>
        <translation>Liest ein geändertes Design im Hintergrund und meldet, ob es lesbar ist</translation>
    </message>
    <message>
        <source>The design is not readable yet: %1</source>
        <translation>Das Design ist noch nicht lesbar: %1</translation>
    </message>
    <message>
        <source>it has no sources.</source>
        <translation>Es hat keine Quellen.</translation>
    </message>
    <message>
        <source>The design can be read again.</source>
        <translation>Das Design ist wieder lesbar.</translation>
    </message>
    <message>
        <source>WARNING: The design can be read, but: %1</source>
        <translation>WARNING: Das Design ist lesbar, aber: %1</translation>
    </message>
</context>
<context>
    <name>Workbench::DeviceDialog</name>
    <message>
        <source>Part</source>
        <translation>Teilenummer</translation>
    </message>
    <message>
        <source>Series</source>
        <translation>Serie</translation>
    </message>
    <message>
        <source>Device</source>
        <translation>Baustein</translation>
    </message>
    <message>
        <source>Package</source>
        <translation>Gehäuse</translation>
    </message>
    <message>
        <source>Filter, or a part number</source>
        <translation>Filter oder eine Teilenummer</translation>
    </message>
    <message>
        <source>Filter</source>
        <translation>Filter</translation>
    </message>
    <message>
        <source>Devices</source>
        <translation>Bausteine</translation>
    </message>
    <message>
        <source>(none)</source>
        <translation>(keiner)</translation>
    </message>
    <message>
        <source>The package is not known; the figures are those of %1.</source>
        <translation>Das Gehäuse ist nicht bekannt; die Zahlen sind die von %1.</translation>
    </message>
    <message>
        <source>No device has such a name.</source>
        <translation>Kein Baustein heißt so ähnlich.</translation>
    </message>
    <message>
        <source>No device has this name. These are near:</source>
        <translation>Kein Baustein heißt so. Ähnlich heißen:</translation>
    </message>
</context>
<context>
    <name>Workbench::DuplicateCore</name>
    <message>
        <source>&amp;Duplicate Core</source>
        <translation>Core &amp;duplizieren</translation>
    </message>
    <message>
        <source>Add a core that is set up as the chosen one</source>
        <translation>Fügt einen Core hinzu, der wie der gewählte eingestellt ist</translation>
    </message>
    <message>
        <source>Core %1</source>
        <translation>Core %1</translation>
    </message>
    <message>
        <source>Duplicate Core</source>
        <translation>Core duplizieren</translation>
    </message>
</context>
<context>
    <name>Workbench::EditMenu</name>
    <message>
        <source>&amp;Undo %1</source>
        <translation>&amp;Rückgängig: %1</translation>
    </message>
    <message>
        <source>&amp;Undo</source>
        <translation>&amp;Rückgängig</translation>
    </message>
    <message>
        <source>&amp;Redo %1</source>
        <translation>&amp;Wiederherstellen: %1</translation>
    </message>
    <message>
        <source>&amp;Redo</source>
        <translation>&amp;Wiederherstellen</translation>
    </message>
</context>
<context>
    <name>Workbench::EditSource</name>
    <message>
        <source>Move</source>
        <translation>Verschieben</translation>
    </message>
    <message>
        <source>Remove</source>
        <translation>Entfernen</translation>
    </message>
    <message>
        <source>Edit</source>
        <translation>Bearbeiten</translation>
    </message>
    <message>
        <source>Rename</source>
        <translation>Umbenennen</translation>
    </message>
    <message>
        <source>Add Signals</source>
        <translation>Signale hinzufügen</translation>
    </message>
</context>
<context>
    <name>Workbench::FileMenu</name>
    <message>
        <source>(none)</source>
        <translation>(keine)</translation>
    </message>
    <message>
        <source>Save &amp;As...</source>
        <translation>Speichern &amp;unter...</translation>
    </message>
    <message>
        <source>Sa&amp;ve All</source>
        <translation>&amp;Alle speichern</translation>
    </message>
    <message>
        <source>Chec&amp;k</source>
        <translation>&amp;Prüfen</translation>
    </message>
    <message>
        <source>Re&amp;load</source>
        <translation>Neu &amp;laden</translation>
    </message>
    <message>
        <source>Clos&amp;e All</source>
        <translation>Alle schl&amp;ießen</translation>
    </message>
    <message>
        <source>Recent &amp;Files</source>
        <translation>Zuletzt geöffnete &amp;Dateien</translation>
    </message>
    <message>
        <source>&amp;Recent Projects</source>
        <translation>Zuletzt geöffnete P&amp;rojekte</translation>
    </message>
</context>
<context>
    <name>Workbench::FindBar</name>
    <message>
        <source>M&amp;atch case</source>
        <translation>&amp;Groß-/Kleinschreibung</translation>
    </message>
    <message>
        <source>Find</source>
        <translation>Suchen</translation>
    </message>
    <message>
        <source>Next</source>
        <translation>Weiter</translation>
    </message>
    <message>
        <source>Previous</source>
        <translation>Zurück</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Schließen</translation>
    </message>
    <message>
        <source>Around the end</source>
        <translation>Über das Ende hinaus</translation>
    </message>
    <message>
        <source>Not found</source>
        <translation>Nicht gefunden</translation>
    </message>
</context>
<context>
    <name>Workbench::GuideWindow</name>
    <message>
        <source>Guide</source>
        <translation>Anleitung</translation>
    </message>
    <message>
        <source>&amp;Contents</source>
        <translation>&amp;Inhalt</translation>
    </message>
    <message>
        <source>&amp;Back</source>
        <translation>&amp;Zurück</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Schließen</translation>
    </message>
</context>
<context>
    <name>Workbench::InstanceModel</name>
    <message>
        <source>%1
module %2</source>
        <translation>%1
Modul %2</translation>
    </message>
</context>
<context>
    <name>Workbench::MainWindow</name>
    <message>
        <source>Warning</source>
        <translation>Warnung</translation>
    </message>
    <message>
        <source>Open</source>
        <translation>Öffnen</translation>
    </message>
    <message>
        <source>Configurations and projects (*.zub *.jexprj *.toml *.eda.yml *.eda.yaml);;All files (*)</source>
        <translation>Konfigurationen und Projekte (*.zub *.jexprj *.toml *.eda.yml *.eda.yaml);;Alle Dateien (*)</translation>
    </message>
    <message>
        <source>New Project</source>
        <translation>Neues Projekt</translation>
    </message>
    <message>
        <source>Open Project</source>
        <translation>Projekt öffnen</translation>
    </message>
    <message>
        <source>Projects (*.jexprj *.toml *.eda.yml *.eda.yaml)</source>
        <translation>Projekte (*.jexprj *.toml *.eda.yml *.eda.yaml)</translation>
    </message>
    <message>
        <source>Add Files</source>
        <translation>Dateien hinzufügen</translation>
    </message>
    <message>
        <source>Design files and configurations (%1 *.zub);;All files (*)</source>
        <translation>Designdateien und Konfigurationen (%1 *.zub);;Alle Dateien (*)</translation>
    </message>
    <message>
        <source>VHDL Library</source>
        <translation>VHDL-Bibliothek</translation>
    </message>
    <message>
        <source>Library of the files; empty: the one under whose name they are used:</source>
        <translation>Bibliothek der Dateien; leer: diejenige, unter deren Namen sie benutzt werden:</translation>
    </message>
    <message>
        <source>Tool Memory</source>
        <translation>Werkzeugspeicher</translation>
    </message>
    <message>
        <source>Memory that each tool which reads the design may take, in MB.
With 0, half of what is free, at most 8192 MB:</source>
        <translation>Speicher, den jedes Werkzeug beim Lesen des Designs belegen darf, in MB.
Bei 0 die Hälfte des freien, höchstens 8192 MB:</translation>
    </message>
    <message>
        <source>About</source>
        <translation>Über</translation>
    </message>
    <message>
        <source>JEX Workbench %1

Edits the configuration of logic analyzers that are built into an FPGA design: choose the nets to record, say how much is recorded, and save it for the implementation flow.</source>
        <translation>JEX Workbench %1

Bearbeitet die Konfiguration von Logikanalysatoren, die in ein FPGA-Design eingebaut werden: Netze für die Aufzeichnung wählen, ihren Umfang festlegen und sie für den Implementierungsablauf speichern.</translation>
    </message>
    <message>
        <source>Unnamed project</source>
        <translation>Unbenanntes Projekt</translation>
    </message>
    <message>
        <source>Top: from the sources</source>
        <translation>Top: aus den Quellen</translation>
    </message>
    <message>
        <source>Top: %1</source>
        <translation>Top: %1</translation>
    </message>
    <message>
        <source>&amp;File</source>
        <translation>&amp;Datei</translation>
    </message>
    <message>
        <source>&amp;New...</source>
        <translation>&amp;Neu...</translation>
    </message>
    <message>
        <source>&amp;Open...</source>
        <translation>Ö&amp;ffnen...</translation>
    </message>
    <message>
        <source>&amp;Save</source>
        <translation>&amp;Speichern</translation>
    </message>
    <message>
        <source>&amp;Close</source>
        <translation>S&amp;chließen</translation>
    </message>
    <message>
        <source>&amp;Quit</source>
        <translation>&amp;Beenden</translation>
    </message>
    <message>
        <source>&amp;Edit</source>
        <translation>&amp;Bearbeiten</translation>
    </message>
    <message>
        <source>&amp;Project</source>
        <translation>&amp;Projekt</translation>
    </message>
    <message>
        <source>&amp;New Project...</source>
        <translation>&amp;Neues Projekt...</translation>
    </message>
    <message>
        <source>&amp;Open Project...</source>
        <translation>Projekt ö&amp;ffnen...</translation>
    </message>
    <message>
        <source>&amp;Save Project</source>
        <translation>Projekt &amp;speichern</translation>
    </message>
    <message>
        <source>Save Project &amp;As...</source>
        <translation>Projekt speichern &amp;unter...</translation>
    </message>
    <message>
        <source>&amp;Close Project</source>
        <translation>Projekt schl&amp;ießen</translation>
    </message>
    <message>
        <source>Add &amp;Files...</source>
        <translation>Dateien &amp;hinzufügen...</translation>
    </message>
    <message>
        <source>&amp;Remove Files</source>
        <translation>Dateien &amp;entfernen</translation>
    </message>
    <message>
        <source>O&amp;ptions...</source>
        <translation>&amp;Optionen...</translation>
    </message>
    <message>
        <source>&amp;Device...</source>
        <translation>&amp;Baustein...</translation>
    </message>
    <message>
        <source>&amp;Tool Memory...</source>
        <translation>&amp;Werkzeugspeicher...</translation>
    </message>
    <message>
        <source>Source Co&amp;mmand...</source>
        <translation>&amp;Quelltextbefehl...</translation>
    </message>
    <message>
        <source>&amp;Run</source>
        <translation>&amp;Ausführen</translation>
    </message>
    <message>
        <source>&amp;View</source>
        <translation>A&amp;nsicht</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <translation>&amp;Hilfe</translation>
    </message>
    <message>
        <source>&amp;Guide</source>
        <translation>&amp;Anleitung</translation>
    </message>
    <message>
        <source>&amp;About</source>
        <translation>Ü&amp;ber</translation>
    </message>
    <message>
        <source>Project</source>
        <translation>Projekt</translation>
    </message>
    <message>
        <source>Netlist</source>
        <translation>Netzliste</translation>
    </message>
    <message>
        <source>Messages</source>
        <translation>Meldungen</translation>
    </message>
</context>
<context>
    <name>Workbench::MessageModel</name>
    <message>
        <source>Error: %1</source>
        <translation>Fehler: %1</translation>
    </message>
    <message>
        <source>Error, past: %1</source>
        <translation>Fehler, vorbei: %1</translation>
    </message>
    <message>
        <source>Warning: %1</source>
        <translation>Warnung: %1</translation>
    </message>
    <message>
        <source>Warning, past: %1</source>
        <translation>Warnung, vorbei: %1</translation>
    </message>
    <message>
        <source>Note: %1</source>
        <translation>Hinweis: %1</translation>
    </message>
    <message>
        <source>Note, past: %1</source>
        <translation>Hinweis, vorbei: %1</translation>
    </message>
    <message>
        <source>A double click or Return shows where it is.</source>
        <translation>Ein Doppelklick oder die Eingabetaste zeigt, wo es ist.</translation>
    </message>
    <message>
        <source>And %1 more like that.</source>
        <translation>Und %1 weitere dieser Art.</translation>
    </message>
</context>
<context>
    <name>Workbench::MessagePane</name>
    <message>
        <source>No messages.</source>
        <translation>Keine Meldungen.</translation>
    </message>
    <message>
        <source>Messages</source>
        <translation>Meldungen</translation>
    </message>
    <message>
        <source>Show messages of this kind</source>
        <translation>Meldungen dieser Art zeigen</translation>
    </message>
    <message>
        <source>Copy</source>
        <translation>Kopieren</translation>
    </message>
    <message>
        <source>Copy the selected messages, or all that are shown</source>
        <translation>Kopiert die ausgewählten Meldungen oder alle gezeigten</translation>
    </message>
    <message>
        <source>Save...</source>
        <translation>Speichern...</translation>
    </message>
    <message>
        <source>Write the messages that are shown to a file</source>
        <translation>Schreibt die gezeigten Meldungen in eine Datei</translation>
    </message>
    <message>
        <source>Clear</source>
        <translation>Leeren</translation>
    </message>
    <message>
        <source>Forget all messages</source>
        <translation>Vergisst alle Meldungen</translation>
    </message>
    <message>
        <source>Errors (%1)</source>
        <translation>Fehler (%1)</translation>
    </message>
    <message>
        <source>Warnings (%1)</source>
        <translation>Warnungen (%1)</translation>
    </message>
    <message>
        <source>Notes (%1)</source>
        <translation>Hinweise (%1)</translation>
    </message>
    <message>
        <source>&amp;Show</source>
        <translation>&amp;Zeigen</translation>
    </message>
    <message>
        <source>&amp;Open %1</source>
        <translation>%1 ö&amp;ffnen</translation>
    </message>
    <message>
        <source>&amp;Copy</source>
        <translation>&amp;Kopieren</translation>
    </message>
    <message>
        <source>Sa&amp;ve...</source>
        <translation>&amp;Speichern...</translation>
    </message>
    <message>
        <source>C&amp;lear</source>
        <translation>&amp;Leeren</translation>
    </message>
    <message>
        <source>Save Messages</source>
        <translation>Meldungen speichern</translation>
    </message>
    <message>
        <source>Text (*.txt);;All files (*)</source>
        <translation>Text (*.txt);;Alle Dateien (*)</translation>
    </message>
</context>
<context>
    <name>Workbench::Messenger</name>
    <message>
        <source>Candidate for the top module: %1. A double click takes it.</source>
        <translation>Kandidat für das Top-Modul: %1. Ein Doppelklick nimmt ihn.</translation>
    </message>
    <message>
        <source>Saved %1.</source>
        <translation>%1 wurde gespeichert.</translation>
    </message>
    <message>
        <source>Replace All Alike, as by %1</source>
        <translation>Alle entsprechend ersetzen, wie durch %1</translation>
    </message>
    <message>
        <source>Replace by %1</source>
        <translation>Ersetzen durch %1</translation>
    </message>
    <message>
        <source>%1: Replaced %2</source>
        <translation>%1: Ersetzt wurde %2</translation>
    </message>
</context>
<context>
    <name>Workbench::NetModel</name>
    <message>
        <source>1 bit</source>
        <translation>1 Bit</translation>
    </message>
    <message>
        <source>%1 bits</source>
        <translation>%1 Bit</translation>
    </message>
    <message>
        <source>Not offered: it is tied to a constant, or is a bidirectional pin.</source>
        <translation>Nicht angeboten: Es liegt auf einer Konstanten oder ist ein bidirektionaler Pin.</translation>
    </message>
    <message>
        <source>Net</source>
        <translation>Netz</translation>
    </message>
    <message>
        <source>Bits</source>
        <translation>Bits</translation>
    </message>
</context>
<context>
    <name>Workbench::NetlistPane</name>
    <message>
        <source>Filter of nets</source>
        <translation>Filter der Netze</translation>
    </message>
    <message>
        <source>Filter: part of a full name</source>
        <translation>Filter: Teil eines vollen Namens</translation>
    </message>
    <message>
        <source>Substring</source>
        <translation>Teiltext</translation>
    </message>
    <message>
        <source>Wildcard</source>
        <translation>Platzhalter</translation>
    </message>
    <message>
        <source>Regular Expression</source>
        <translation>Regulärer Ausdruck</translation>
    </message>
    <message>
        <source>What the filter is</source>
        <translation>Was der Filter ist</translation>
    </message>
    <message>
        <source>A wildcard and a regular expression have to match the whole full name: &quot;*/state[[]*&quot;, &quot;.*/(irq|ack)&quot;.</source>
        <translation>Platzhalter und reguläre Ausdrücke müssen zum ganzen vollen Namen passen: „*/state[[]*“, „.*/(irq|ack)“.</translation>
    </message>
    <message>
        <source>Case Sensitive</source>
        <translation>Groß-/Kleinschreibung beachten</translation>
    </message>
    <message>
        <source>Instances</source>
        <translation>Instanzen</translation>
    </message>
    <message>
        <source>Nets</source>
        <translation>Netze</translation>
    </message>
    <message>
        <source>Open a project to see its nets.</source>
        <translation>Öffnen Sie ein Projekt, um seine Netze zu sehen.</translation>
    </message>
    <message>
        <source>Reading the design ...</source>
        <translation>Das Design wird gelesen ...</translation>
    </message>
    <message>
        <source>The design cannot be read: %1</source>
        <translation>Das Design ist nicht lesbar: %1</translation>
    </message>
    <message>
        <source>it has no sources.</source>
        <translation>Es hat keine Quellen.</translation>
    </message>
    <message>
        <source>%1 so far ...</source>
        <translation>%1 bisher ...</translation>
    </message>
    <message>
        <source>%1 found</source>
        <translation>%1 gefunden</translation>
    </message>
    <message>
        <source>Add Signals</source>
        <translation>Signale hinzufügen</translation>
    </message>
</context>
<context>
    <name>Workbench::NewFileDialog</name>
    <message>
        <source>New File</source>
        <translation>Neue Datei</translation>
    </message>
    <message>
        <source>Kind of file</source>
        <translation>Art der Datei</translation>
    </message>
    <message>
        <source>&amp;Folder:</source>
        <translation>O&amp;rdner:</translation>
    </message>
    <message>
        <source>&amp;Browse...</source>
        <translation>&amp;Durchsuchen...</translation>
    </message>
    <message>
        <source>Choose Folder</source>
        <translation>Ordner wählen</translation>
    </message>
</context>
<context>
    <name>Workbench::OptionsDialog</name>
    <message>
        <source>Project Options</source>
        <translation>Projektoptionen</translation>
    </message>
</context>
<context>
    <name>Workbench::ProjectBanner</name>
    <message>
        <source>Re&amp;load</source>
        <translation>Neu &amp;laden</translation>
    </message>
    <message>
        <source>&amp;Keep It</source>
        <translation>Beibehal&amp;ten</translation>
    </message>
    <message>
        <source>&amp;Close</source>
        <translation>Schl&amp;ießen</translation>
    </message>
    <message>
        <source>The project &apos;%1&apos; changed on disk.
Do you want to reload it?</source>
        <translation>Das Projekt „%1“ wurde auf dem Datenträger geändert.
Möchten Sie es neu laden?</translation>
    </message>
    <message>
        <source>The project &apos;%1&apos; has been removed on disk.
Do you still want to keep it?</source>
        <translation>Das Projekt „%1“ wurde auf dem Datenträger gelöscht.
Möchten Sie es trotzdem behalten?</translation>
    </message>
</context>
<context>
    <name>Workbench::ProjectTree</name>
    <message>
        <source>%1 (missing)</source>
        <translation>%1 (fehlt)</translation>
    </message>
    <message>
        <source>%1 (disabled)</source>
        <translation>%1 (deaktiviert)</translation>
    </message>
    <message>
        <source>Device: none chosen</source>
        <translation>Baustein: keiner gewählt</translation>
    </message>
    <message>
        <source>Device: %1</source>
        <translation>Baustein: %1</translation>
    </message>
    <message>
        <source>Top module: %1</source>
        <translation>Top-Modul: %1</translation>
    </message>
    <message>
        <source>Project</source>
        <translation>Projekt</translation>
    </message>
    <message>
        <source>Unnamed project</source>
        <translation>Unbenanntes Projekt</translation>
    </message>
    <message>
        <source>Design files</source>
        <translation>Designdateien</translation>
    </message>
    <message>
        <source>Configurations</source>
        <translation>Konfigurationen</translation>
    </message>
    <message>
        <source>No project is open.</source>
        <translation>Es ist kein Projekt geöffnet.</translation>
    </message>
    <message>
        <source>&amp;Open</source>
        <translation>Ö&amp;ffnen</translation>
    </message>
    <message>
        <source>Part of the &amp;Design</source>
        <translation>Teil des &amp;Designs</translation>
    </message>
    <message>
        <source>File &amp;Type</source>
        <translation>Datei&amp;typ</translation>
    </message>
    <message>
        <source>Other</source>
        <translation>Andere</translation>
    </message>
    <message>
        <source>&amp;Library...</source>
        <translation>&amp;Bibliothek...</translation>
    </message>
    <message>
        <source>&amp;Remove from Project</source>
        <translation>Aus dem Projekt &amp;entfernen</translation>
    </message>
    <message>
        <source>Set as To&amp;p</source>
        <translation>Als To&amp;p-Modul</translation>
    </message>
    <message>
        <source>Set as To&amp;p: %1</source>
        <translation>Als To&amp;p-Modul: %1</translation>
    </message>
    <message>
        <source>Top module: from the sources</source>
        <translation>Top-Modul: aus den Quellen</translation>
    </message>
</context>
<context>
    <name>Workbench::Recovery</name>
    <message>
        <source>Close as &amp;Draft</source>
        <translation>Als &amp;Entwurf schließen</translation>
    </message>
    <message>
        <source>Close the file without saving it, and offer what it holds now when it is opened again</source>
        <translation>Schließt die Datei, ohne sie zu speichern, und bietet ihren jetzigen Inhalt beim nächsten Öffnen an</translation>
    </message>
    <message>
        <source>%1 was closed, since the design cannot be read. What was edited is kept, and comes back with the file.</source>
        <translation>%1 wurde geschlossen, weil das Design nicht lesbar ist. Was bearbeitet wurde, ist aufgehoben und kommt mit der Datei zurück.</translation>
    </message>
    <message>
        <source>Closed %1 as a draft, which is offered when it is opened again.</source>
        <translation>%1 wurde als Entwurf geschlossen, der beim nächsten Öffnen angeboten wird.</translation>
    </message>
    <message>
        <source>Draft</source>
        <translation>Entwurf</translation>
    </message>
    <message>
        <source>A draft of &apos;%1&apos; of %2 is kept:

%3

Do you want to go on with it?</source>
        <translation>Von „%1“ gibt es einen Entwurf vom %2:

%3

Möchten Sie damit weiterarbeiten?</translation>
    </message>
    <message>
        <source>&amp;Open the Draft</source>
        <translation>Entwurf ö&amp;ffnen</translation>
    </message>
    <message>
        <source>&amp;Discard the Draft</source>
        <translation>Entwurf &amp;verwerfen</translation>
    </message>
    <message>
        <source>Not &amp;Now</source>
        <translation>&amp;Jetzt nicht</translation>
    </message>
    <message>
        <source>The draft of %1 is damaged. It is left where it is: %2</source>
        <translation>Der Entwurf von %1 ist beschädigt. Er bleibt, wo er ist: %2</translation>
    </message>
    <message>
        <source>What was edited of %1 could not be brought back. It is kept, and offered again at the next start.</source>
        <translation>Was an %1 bearbeitet wurde, ließ sich nicht zurückholen. Es ist aufgehoben und wird beim nächsten Start wieder angeboten.</translation>
    </message>
    <message>
        <source>Brought back what was edited of %1. It is not saved yet.</source>
        <translation>Was an %1 bearbeitet wurde, ist zurückgeholt. Es ist noch nicht gespeichert.</translation>
    </message>
</context>
<context>
    <name>Workbench::RecoveryDialog</name>
    <message>
        <source>draft</source>
        <translation>Entwurf</translation>
    </message>
    <message>
        <source>its design could not be read</source>
        <translation>Design war nicht lesbar</translation>
    </message>
    <message>
        <source>not saved</source>
        <translation>nicht gespeichert</translation>
    </message>
    <message>
        <source>The copy is damaged.</source>
        <translation>Die Kopie ist beschädigt.</translation>
    </message>
    <message>
        <source>What it holds is what the file holds.</source>
        <translation>Der Inhalt ist der der Datei.</translation>
    </message>
    <message>
        <source>and %1 more</source>
        <translation>und %1 weitere</translation>
    </message>
    <message>
        <source>Recover Files</source>
        <translation>Dateien wiederherstellen</translation>
    </message>
    <message>
        <source>A workbench ended before these files were saved. What was edited is kept. Recovering opens the file and shows it again; nothing is saved by that.</source>
        <translation>Eine Workbench endete, bevor diese Dateien gespeichert waren. Was bearbeitet wurde, ist aufgehoben. Wiederherstellen öffnet die Datei und zeigt es wieder; gespeichert wird dadurch nichts.</translation>
    </message>
    <message>
        <source>Files that were not saved</source>
        <translation>Nicht gespeicherte Dateien</translation>
    </message>
    <message>
        <source>File</source>
        <translation>Datei</translation>
    </message>
    <message>
        <source>Kept</source>
        <translation>Aufgehoben</translation>
    </message>
    <message>
        <source>Why</source>
        <translation>Grund</translation>
    </message>
    <message>
        <source>What differs from the file</source>
        <translation>Was von der Datei abweicht</translation>
    </message>
    <message>
        <source>&amp;Recover</source>
        <translation>&amp;Wiederherstellen</translation>
    </message>
    <message>
        <source>&amp;Discard</source>
        <translation>&amp;Verwerfen</translation>
    </message>
    <message>
        <source>Decide &amp;Later</source>
        <translation>&amp;Später entscheiden</translation>
    </message>
</context>
<context>
    <name>Workbench::RecoveryStore</name>
    <message>
        <source>The folder &quot;%1&quot;, which keeps what is edited for the case of a crash, cannot be made.</source>
        <translation>Der Ordner „%1“, der Bearbeitetes für den Fall eines Absturzes aufhebt, lässt sich nicht anlegen.</translation>
    </message>
    <message>
        <source>No folder in &quot;%1&quot;, which keeps what is edited for the case of a crash, can be locked.</source>
        <translation>In „%1“, das Bearbeitetes für den Fall eines Absturzes aufhebt, lässt sich kein Ordner sperren.</translation>
    </message>
</context>
<context>
    <name>Workbench::ReopenBanner</name>
    <message>
        <source>&amp;Open Again</source>
        <translation>&amp;Wieder öffnen</translation>
    </message>
    <message>
        <source>%1 was closed, since the design could not be read. What was edited is kept.</source>
        <translation>%1 wurde geschlossen, weil das Design nicht lesbar war. Was bearbeitet wurde, ist aufgehoben.</translation>
    </message>
    <message>
        <source>%1 were closed, since the design could not be read. What was edited is kept.</source>
        <translation>%1 wurden geschlossen, weil das Design nicht lesbar war. Was bearbeitet wurde, ist aufgehoben.</translation>
    </message>
    <message>
        <source>The design can be read again.</source>
        <translation>Das Design ist wieder lesbar.</translation>
    </message>
    <message>
        <source>As soon as the design can be read, it can be opened again.</source>
        <translation>Sobald das Design lesbar ist, kann wieder geöffnet werden.</translation>
    </message>
    <message>
        <source>&apos;%1&apos;</source>
        <translation>„%1“</translation>
    </message>
</context>
<context>
    <name>Workbench::RowFinder</name>
    <message>
        <source>Fi&amp;nd row:</source>
        <translation>Zeile su&amp;chen:</translation>
    </message>
    <message>
        <source>Next</source>
        <translation>Weiter</translation>
    </message>
    <message>
        <source>Previous</source>
        <translation>Zurück</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Schließen</translation>
    </message>
    <message>
        <source>Not found</source>
        <translation>Nicht gefunden</translation>
    </message>
    <message>
        <source>%1 of %2</source>
        <translation>%1 von %2</translation>
    </message>
    <message>
        <source>%1 found</source>
        <translation>%1 gefunden</translation>
    </message>
</context>
<context>
    <name>Workbench::RowMenu</name>
    <message>
        <source>&amp;Find...</source>
        <translation>&amp;Suchen...</translation>
    </message>
    <message>
        <source>Find &amp;Next</source>
        <translation>Weitersu&amp;chen</translation>
    </message>
    <message>
        <source>Find Pre&amp;vious</source>
        <translation>Rückwärts suc&amp;hen</translation>
    </message>
    <message>
        <source>&amp;Move Rows Up</source>
        <translation>Zeilen nach &amp;oben</translation>
    </message>
    <message>
        <source>Move Rows D&amp;own</source>
        <translation>Zeilen nach &amp;unten</translation>
    </message>
</context>
<context>
    <name>Workbench::RunMenu</name>
    <message>
        <source>&amp;Insert into Design...</source>
        <translation>In das Design &amp;einfügen...</translation>
    </message>
    <message>
        <source>&amp;Simulate Capture...</source>
        <translation>Aufzeichnung &amp;simulieren...</translation>
    </message>
    <message>
        <source>&amp;Open Waveform</source>
        <translation>Signalverlauf ö&amp;ffnen</translation>
    </message>
    <message>
        <source>Configuration</source>
        <translation>Konfiguration</translation>
    </message>
    <message>
        <source>Configurations (*.zub)</source>
        <translation>Konfigurationen (*.zub)</translation>
    </message>
    <message>
        <source>%1 has changes that are not saved. Save it first.</source>
        <translation>%1 hat Änderungen, die nicht gespeichert sind. Speichern Sie zuerst.</translation>
    </message>
    <message>
        <source>New Folder for the Analyzer</source>
        <translation>Neuer Ordner für den Analysator</translation>
    </message>
    <message>
        <source>No program was found that shows %1. Install Debian&apos;s package gtkwave.</source>
        <translation>Es wurde kein Programm gefunden, das %1 zeigt. Installieren Sie das Debian-Paket gtkwave.</translation>
    </message>
    <message>
        <source>Read Design</source>
        <translation>Design lesen</translation>
    </message>
    <message>
        <source>Cancelled.</source>
        <translation>Abgebrochen.</translation>
    </message>
    <message>
        <source>The design cannot be read.</source>
        <translation>Das Design ist nicht lesbar.</translation>
    </message>
    <message>
        <source>Insert into Design</source>
        <translation>In das Design einfügen</translation>
    </message>
    <message>
        <source>Cancelled: nothing was written.</source>
        <translation>Abgebrochen: Es wurde nichts geschrieben.</translation>
    </message>
    <message>
        <source>The analyzer of %1 is in %2.</source>
        <translation>Der Analysator von %1 ist in %2.</translation>
    </message>
    <message>
        <source>Simulate Capture</source>
        <translation>Aufzeichnung simulieren</translation>
    </message>
    <message>
        <source>What was captured is in %1. Run &gt; Open Waveform shows it.</source>
        <translation>Das Aufgezeichnete ist in %1. Ausführen &gt; Signalverlauf öffnen zeigt es.</translation>
    </message>
</context>
<context>
    <name>Workbench::SaveGuard</name>
    <message>
        <source>The file &apos;%1&apos; changed on disk since it was read or saved here.
Overwrite it, or reload it and lose what was edited here?</source>
        <translation>Die Datei „%1“ wurde auf dem Datenträger geändert, seit sie hier gelesen oder gespeichert wurde.
Überschreiben oder neu laden und verlieren, was hier bearbeitet wurde?</translation>
    </message>
    <message>
        <source>The file &apos;%1&apos; changed on disk since it was read or saved here.
Overwrite it, or discard what was edited here?</source>
        <translation>Die Datei „%1“ wurde auf dem Datenträger geändert, seit sie hier gelesen oder gespeichert wurde.
Überschreiben oder verwerfen, was hier bearbeitet wurde?</translation>
    </message>
    <message>
        <source>The file &apos;%1&apos; can not be replaced in one step without a loss: %2. It is written in place, and a backup is kept until that has ended.</source>
        <translation>Die Datei „%1“ lässt sich nicht verlustfrei in einem Schritt ersetzen: %2. Sie wird an Ort und Stelle geschrieben; bis dahin bleibt eine Sicherung erhalten.</translation>
    </message>
    <message>
        <source>&amp;Overwrite</source>
        <translation>Ü&amp;berschreiben</translation>
    </message>
    <message>
        <source>&amp;Write in Place</source>
        <translation>An Ort und &amp;Stelle schreiben</translation>
    </message>
    <message>
        <source>&amp;Discard</source>
        <translation>&amp;Verwerfen</translation>
    </message>
    <message>
        <source>&amp;Reload</source>
        <translation>Neu &amp;laden</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>Save</source>
        <translation>Speichern</translation>
    </message>
    <message>
        <source>; </source>
        <comment>between reasons</comment>
        <translation>. </translation>
    </message>
</context>
<context>
    <name>Workbench::ShownSource</name>
    <message>
        <source>Can not show %1: %2.</source>
        <translation>%1 kann nicht gezeigt werden: %2.</translation>
    </message>
    <message>
        <source>%1 is a binary file, which is not shown.</source>
        <translation>%1 ist eine Binärdatei, die nicht gezeigt wird.</translation>
    </message>
    <message>
        <source>The first %1 lines are shown.</source>
        <translation>Es werden die ersten %1 Zeilen gezeigt.</translation>
    </message>
    <message>
        <source>Lines are shown up to their first %1 letters.</source>
        <translation>Zeilen werden bis zu ihren ersten %1 Zeichen gezeigt.</translation>
    </message>
</context>
<context>
    <name>Workbench::SignalTransfer</name>
    <message>
        <source>&amp;Copy Signals</source>
        <translation>Signale &amp;kopieren</translation>
    </message>
    <message>
        <source>&amp;Paste Signals</source>
        <translation>Signale &amp;einfügen</translation>
    </message>
    <message>
        <source>Copy the chosen rows, or the chosen nets of the netlist</source>
        <translation>Kopiert die gewählten Zeilen oder die gewählten Netze der Netzliste</translation>
    </message>
    <message>
        <source>Put the copied signals where the user is at work: a capture list or a trigger port</source>
        <translation>Fügt die kopierten Signale dort ein, wo gearbeitet wird: in eine Aufzeichnungsliste oder einen Trigger-Port</translation>
    </message>
    <message>
        <source>Choose a core&apos;s capture list or a trigger port first: that is where signals go.</source>
        <translation>Wählen Sie zuerst die Aufzeichnungsliste eines Cores oder einen Trigger-Port: Dorthin kommen die Signale.</translation>
    </message>
    <message>
        <source>And %1 more like that.</source>
        <translation>Und %1 weitere dieser Art.</translation>
    </message>
    <message>
        <source>Added to %1.</source>
        <translation>Hinzugefügt in: %1.</translation>
    </message>
    <message>
        <source>Nothing was added to %1: it is all there already.</source>
        <translation>Nichts hinzugefügt in: %1. Es ist schon alles da.</translation>
    </message>
</context>
<context>
    <name>Workbench::SimulateDialog</name>
    <message>
        <source>Simulate Capture</source>
        <translation>Aufzeichnung simulieren</translation>
    </message>
    <message>
        <source>&amp;Add...</source>
        <translation>&amp;Hinzufügen...</translation>
    </message>
    <message>
        <source>&amp;Remove</source>
        <translation>&amp;Entfernen</translation>
    </message>
    <message>
        <source>&amp;Browse...</source>
        <translation>&amp;Durchsuchen...</translation>
    </message>
    <message>
        <source>&amp;Test bench:</source>
        <translation>&amp;Testbench:</translation>
    </message>
    <message>
        <source>&amp;Waveform:</source>
        <translation>&amp;Signalverlauf:</translation>
    </message>
    <message>
        <source>&amp;Simulator:</source>
        <translation>S&amp;imulator:</translation>
    </message>
    <message>
        <source>Test Bench</source>
        <translation>Testbench</translation>
    </message>
    <message>
        <source>Verilog (*.v *.sv);;All files (*)</source>
        <translation>Verilog (*.v *.sv);;Alle Dateien (*)</translation>
    </message>
    <message>
        <source>Captured Windows</source>
        <translation>Aufgezeichnete Fenster</translation>
    </message>
    <message>
        <source>Waveforms (*.vcd)</source>
        <translation>Signalverläufe (*.vcd)</translation>
    </message>
    <message>
        <source>Verilator knows 0 and 1 only: what is unknown starts as 0.</source>
        <translation>Verilator kennt nur 0 und 1: Unbekanntes beginnt als 0.</translation>
    </message>
    <message>
        <source>%1 is there already and will be replaced.</source>
        <translation>%1 gibt es schon und wird ersetzt.</translation>
    </message>
</context>
<context>
    <name>Workbench::SourceCommand</name>
    <message>
        <source>The command begins with the name of a program.</source>
        <translation>Der Befehl beginnt mit dem Namen eines Programms.</translation>
    </message>
    <message>
        <source>The command must not use a shell, which could take a file name for a command.</source>
        <translation>Der Befehl darf keine Shell benutzen, die einen Dateinamen für einen Befehl halten könnte.</translation>
    </message>
    <message>
        <source>%f must not stand inside of other commands, which could take a file name for one.</source>
        <translation>%f darf nicht in anderen Befehlen stehen, die einen Dateinamen für einen Befehl halten könnten.</translation>
    </message>
    <message>
        <source>The command does not say where the file name goes: %f is missing.</source>
        <translation>Der Befehl sagt nicht, wohin der Dateiname gehört: %f fehlt.</translation>
    </message>
</context>
<context>
    <name>Workbench::SourceOpener</name>
    <message>
        <source>Project &gt; Source Command sets it.</source>
        <translation>Projekt &gt; Quelltextbefehl legt ihn fest.</translation>
    </message>
    <message>
        <source>Can not start %1 to show %2.</source>
        <translation>%1 lässt sich nicht starten, um %2 zu zeigen.</translation>
    </message>
    <message>
        <source>Source Command</source>
        <translation>Quelltextbefehl</translation>
    </message>
    <message>
        <source>Command that shows a line of a source, as in &quot;code -g %f:%l&quot;: %f is the file, %l the line.
When it is empty, sources are shown in a tab of the workbench:</source>
        <translation>Befehl, der eine Zeile einer Quelldatei zeigt, etwa „code -g %f:%l“: %f ist die Datei, %l die Zeile.
Ist er leer, werden Quelldateien in einem Reiter der Workbench gezeigt:</translation>
    </message>
    <message>
        <source>Nothing was changed.</source>
        <translation>Es wurde nichts geändert.</translation>
    </message>
</context>
<context>
    <name>Workbench::StateTexts</name>
    <message>
        <source>Open a project (Project &gt; Open Project) or a configuration (File &gt; Open),
or drop one here. Project &gt; New Project starts with nothing.</source>
        <translation>Öffnen Sie ein Projekt (Projekt &gt; Projekt öffnen) oder eine Konfiguration (Datei &gt; Öffnen),
oder legen Sie eines hier ab. Projekt &gt; Neues Projekt beginnt mit nichts.</translation>
    </message>
    <message>
        <source>Double-click a configuration in the project tree to edit it.
File &gt; New makes one, Project &gt; Add Files adds sources of the design.</source>
        <translation>Doppelklick auf eine Konfiguration im Projektbaum bearbeitet sie.
Datei &gt; Neu legt eine an, Projekt &gt; Dateien hinzufügen nimmt Quellen des Designs auf.</translation>
    </message>
    <message>
        <source>The project has no sources of a design yet:
Project &gt; Add Files takes them, or drop them here.</source>
        <translation>Das Projekt hat noch keine Quellen eines Designs:
Projekt &gt; Dateien hinzufügen nimmt sie auf, oder legen Sie sie hier ab.</translation>
    </message>
    <message>
        <source>Device: none, so usages are measured against 0</source>
        <translation>Baustein: keiner, Auslastungen werden an 0 gemessen</translation>
    </message>
    <message>
        <source>Device: %1</source>
        <translation>Baustein: %1</translation>
    </message>
</context>
<context>
    <name>Workbench::StringListEdit</name>
    <message>
        <source>Add</source>
        <translation>Hinzufügen</translation>
    </message>
    <message>
        <source>Remove</source>
        <translation>Entfernen</translation>
    </message>
    <message>
        <source>Up</source>
        <translation>Nach oben</translation>
    </message>
    <message>
        <source>Down</source>
        <translation>Nach unten</translation>
    </message>
    <message>
        <source>Choose Folder</source>
        <translation>Ordner wählen</translation>
    </message>
</context>
<context>
    <name>Workbench::TopModuleBox</name>
    <message>
        <source>Found from the sources</source>
        <translation>Aus den Quellen ermittelt</translation>
    </message>
</context>
<context>
    <name>Workbench::Workspace</name>
    <message>
        <source>Save As</source>
        <translation>Speichern unter</translation>
    </message>
    <message>
        <source>Configurations</source>
        <translation>Konfigurationen</translation>
    </message>
    <message>
        <source>Can not save to %1: %2.</source>
        <translation>Kann nicht in %1 speichern: %2.</translation>
    </message>
    <message>
        <source>%1 is open in another tab. Close that first.</source>
        <translation>%1 ist in einem anderen Reiter geöffnet. Schließen Sie ihn zuerst.</translation>
    </message>
    <message>
        <source>Saved as %1.</source>
        <translation>Als %1 gespeichert.</translation>
    </message>
    <message>
        <source>The check found nothing.</source>
        <translation>Die Prüfung hat nichts gefunden.</translation>
    </message>
    <message>
        <source>The check found this, in all: %1</source>
        <translation>Die Prüfung hat dies gefunden, insgesamt: %1</translation>
    </message>
    <message>
        <source>Read %1 again, and lose what was edited here?</source>
        <translation>%1 neu lesen und verlieren, was hier bearbeitet wurde?</translation>
    </message>
    <message>
        <source>Reload</source>
        <translation>Neu laden</translation>
    </message>
    <message>
        <source>&amp;Reload</source>
        <translation>Neu &amp;laden</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>%1: The design has all signals again.</source>
        <translation>%1: Das Design hat wieder alle Signale.</translation>
    </message>
    <message>
        <source>Error</source>
        <translation>Fehler</translation>
    </message>
    <message>
        <source>Opened the project %1.</source>
        <translation>Das Projekt %1 wurde geöffnet.</translation>
    </message>
    <message>
        <source>Read the project %1. Save Project As makes one of the workbench&apos;s own of it.</source>
        <translation>Das Projekt %1 wurde gelesen. Projekt speichern unter macht daraus eines der Workbench.</translation>
    </message>
    <message>
        <source>The project&apos;s file %1 is missing.</source>
        <translation>Die Datei %1 des Projekts fehlt.</translation>
    </message>
    <message>
        <source>Save Project</source>
        <translation>Projekt speichern</translation>
    </message>
    <message>
        <source>Saved the project %1.</source>
        <translation>Das Projekt %1 wurde gespeichert.</translation>
    </message>
    <message>
        <source>Read the project %1 again.</source>
        <translation>Das Projekt %1 wurde neu gelesen.</translation>
    </message>
    <message>
        <source>Projects</source>
        <translation>Projekte</translation>
    </message>
    <message>
        <source>%1 exists already.
Replace it?</source>
        <translation>%1 existiert bereits.
Ersetzen?</translation>
    </message>
    <message>
        <source>The project has changes that are not saved.
Save the changes to this project?</source>
        <translation>Das Projekt hat Änderungen, die nicht gespeichert sind.
Die Änderungen an diesem Projekt speichern?</translation>
    </message>
    <message>
        <source>The project has changes that are not saved.
Save the changes to &quot;%1&quot;?</source>
        <translation>Das Projekt hat Änderungen, die nicht gespeichert sind.
Die Änderungen in „%1“ speichern?</translation>
    </message>
    <message>
        <source>Read %1 again.</source>
        <translation>%1 wurde neu gelesen.</translation>
    </message>
    <message>
        <source>%1 could not be read again. The editor keeps what it has.</source>
        <translation>%1 konnte nicht neu gelesen werden. Der Editor behält, was er hat.</translation>
    </message>
    <message>
        <source>Backup</source>
        <translation>Sicherung</translation>
    </message>
    <message>
        <source>The last save of the file &apos;%1&apos; did not end, and it may be damaged. What it held before is kept in &apos;%2&apos; of %3.</source>
        <translation>Das letzte Speichern der Datei „%1“ ging nicht zu Ende; sie kann beschädigt sein. Was sie vorher enthielt, ist in „%2“ vom %3 aufgehoben.</translation>
    </message>
    <message>
        <source>&amp;Restore</source>
        <translation>&amp;Wiederherstellen</translation>
    </message>
    <message>
        <source>&amp;Discard the Backup</source>
        <translation>Sicherung &amp;verwerfen</translation>
    </message>
    <message>
        <source>Can not open %1: %2.</source>
        <translation>%1 kann nicht geöffnet werden: %2.</translation>
    </message>
    <message>
        <source>There is no file %1.</source>
        <translation>Es gibt keine Datei %1.</translation>
    </message>
    <message>
        <source>There is no editor for %1.</source>
        <translation>Für %1 gibt es keinen Editor.</translation>
    </message>
    <message>
        <source>Opened %1.</source>
        <translation>%1 wurde geöffnet.</translation>
    </message>
    <message>
        <source>Could not open %1.</source>
        <translation>%1 konnte nicht geöffnet werden.</translation>
    </message>
    <message>
        <source>The top module is %1.</source>
        <translation>Das Top-Modul ist %1.</translation>
    </message>
</context>
</TS>

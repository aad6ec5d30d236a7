#include "insertion/harness.h"

#include "gateware/verilogtext.h"
#include "insertion/analyzer.h"
#include "insertion/attaching.h"

namespace Insertion {
namespace {

const char *const sharedControls[] = {"clock", "capture", "shift", "update", "tdi"};

using RTLJEX::decimal;

class Harness
{
public:
    Harness(const Analyzer &analyzer, const HarnessPlace &place, const QMap<int, int> &windows)
        : m_analyzer(analyzer), m_place(place), m_windows(windows)
    {
    }

    QByteArray text()
    {
        add("`timescale 1ps / 1ps\nmodule jex_harness;");
        if (isAbove())
            add(m_place.benchTop.toUtf8() + ' ' + m_place.benchTop.toUtf8() + "();");
        if (m_place.prefix.isEmpty())
            attach();
        if (!isAbove())
            addControls();
        addEnd();
        if (m_place.records)
            addRecord();
        add("endmodule");
        return isAbove() ? m_text : m_text + RTLJEX::readerSource();
    }

private:
    bool isAbove() const { return m_place.simulator == Simulator::Verilator; }
    void add(const QByteArray &line) { m_text += line + '\n'; }

    void addControls()
    {
        for (const Analyzer::Core &core : m_analyzer.cores())
            addReader(core);
        for (const char *control : sharedControls)
            addShared(control);
        connectPorts();
        addReading();
    }

    // As the simulator sees the module with all cores.
    QByteArray cores() const
    {
        return m_place.prefix.isEmpty() ? QByteArray("cores")
                                        : m_place.instance.toUtf8() + '.' + m_place.prefix + "_cores";
    }

    QByteArray file(const QByteArray &name) const { return '"' + m_place.folder.toUtf8() + '/' + name + '"'; }

    void addReader(const Analyzer::Core &core)
    {
        const QByteArray own = decimal(core.core.number);
        QByteArray ports;
        for (const char *control : {"clock", "select", "capture", "shift", "update", "tdi"}) {
            add(QByteArray("wire ") + control + '_' + own + ';');
            ports += QByteArray(".ctl_") + control + '(' + control + '_' + own + "), ";
        }
        add("wire tdo_" + own + ";\nreg want_" + own + ";\ninitial want_" + own + " = 1'b0;");
        add("jex_reader #(.SAMPLE_BITS(" + decimal(core.module.layout.sampleWidth()) + "), .SAMPLES(" +
            decimal(core.module.layout.storedSamples()) + "), .FILE(" + file("core_" + own + ".txt") +
            ")) reader_" + own + " (" + ports + ".ctl_tdo(tdo_" + own + "));");
        const QByteArray windows = cores() + ".core_" + own + ".windows";
        add("always @(" + windows + ") if (" + windows +
            " == " + decimal(m_windows.value(core.core.number, core.module.layout.windows)) + ") want_" +
            own + " = 1'b1;");
    }

    // Readers that have nothing to do hold their lines at 0.
    void addShared(const QByteArray &control)
    {
        QByteArray any;
        for (const Analyzer::Core &core : m_analyzer.cores())
            any += (any.isEmpty() ? "" : " | ") + control + '_' + decimal(core.core.number);
        add("wire all_" + control + " = " + any + ';');
    }

    void attach()
    {
        QByteArray ports;
        const QList<Tap> &taps = m_analyzer.taps().taps();
        for (int i = 0; i < taps.size(); ++i) {
            const QByteArray range = '[' + decimal(taps.at(i).width() - 1) + ":0] ";
            add("wire " + range + "tap_" + decimal(i) + " = " + m_place.instance.toUtf8() + '.' +
                verilogPath(taps.at(i)) + ';');
            ports += ".tap_" + decimal(i) + "(tap_" + decimal(i) + "),\n    ";
        }
        ports.chop(6);
        add("jex_cores cores (\n    " + ports + ");");
    }

    // They are left open where the cores are, and in the netlist by the test bench.
    void connectPorts()
    {
        const QByteArray port = m_place.prefix.isEmpty()
                                    ? QByteArray("cores.ctl_")
                                    : m_place.instance.toUtf8() + '.' + m_place.prefix + "_ctl_";
        add("initial begin");
        for (const char *control : sharedControls)
            add("    force " + port + control + " = all_" + control + ';');
        for (const Analyzer::Core &core : m_analyzer.cores()) {
            const QByteArray own = decimal(core.core.number);
            add("    force " + port + "select_" + own + " = select_" + own + ';');
        }
        add("end");
        for (const Analyzer::Core &core : m_analyzer.cores()) {
            const QByteArray own = decimal(core.core.number);
            add("assign tdo_" + own + " = " + port + "tdo_" + own + ';');
        }
    }

    // One after the other, since the lines are shared.
    void addReading()
    {
        QByteArray any;
        for (const Analyzer::Core &core : m_analyzer.cores())
            any += (any.isEmpty() ? "want_" : " | want_") + decimal(core.core.number);
        add("always begin\n    wait (" + any + ");");
        for (const Analyzer::Core &core : m_analyzer.cores()) {
            const QByteArray own = decimal(core.core.number);
            add("    if (want_" + own + ") begin reader_" + own + ".read_all; want_" + own + " = 1'b0; end");
        }
        add("end");
    }

    void addEnd()
    {
        add("integer file;\ninteger at;\nfinal begin\n    file = $fopen(" + this->file("end.txt") +
            ", \"w\");");
        for (const Analyzer::Core &core : m_analyzer.cores()) {
            const QByteArray own = decimal(core.core.number), name = cores() + ".core_" + own;
            add("    $fwrite(file, \"" + own + " %b %b\\n\", " + name + ".windows, " + name + ".seen);");
        }
        add("    $fclose(file);");
        for (const Analyzer::Core &core : m_analyzer.cores()) {
            if (isAbove())
                addLook(core);
        }
        add("end");
    }

    // What the reader would write of the core.
    void addLook(const Analyzer::Core &core)
    {
        const QByteArray own = decimal(core.core.number), name = cores() + ".core_" + own;
        const RTLJEX::CoreLayout &layout = core.module.layout;
        QByteArray style = RTLJEX::style(core.core.implementation);
        add("    file = $fopen(" + file("core_" + own + ".txt") +
            ", \"w\");\n    $fwrite(file, \"status %b%b " + "%b %b\\n\", " + name + ".windows, {14'd0, " +
            name + ".done, 1'b0}, " + name + ".seen, 32'd" + decimal(layout.sampleWidth()) +
            ");\n    for (at = 0; at < " + decimal(layout.storedSamples()) +
            "; at = at + 1)\n        $fwrite(file, \"%b\\n\", " + name + ".core.memory." +
            style.replace('"', "") + ".words[at]);\n    $fclose(file);");
    }

    void addRecord()
    {
        add("integer raw = 0;\nreg [63:0] noted = {64{1'b1}};\ntask note_time;\nbegin\n"
            "    if (raw == 0) raw = $fopen(" +
            file("raw.txt") +
            ", \"w\");\n    if (noted != $time) begin noted = $time; $fwrite(raw, \"#%0d\\n\", noted); end\n"
            "end\nendtask");
        for (int i = 0; i < m_analyzer.taps().taps().size(); ++i) {
            const QByteArray name = "tap_" + decimal(i), tap = cores() + '.' + name;
            add("always begin\n    note_time;\n    $fwrite(raw, \"b%b " + name + "\\n\", " + tap +
                ");\n    @(" + tap + ");\nend");
        }
    }

    const Analyzer &m_analyzer;
    const HarnessPlace &m_place;
    const QMap<int, int> &m_windows;
    QByteArray m_text;
};

} // namespace

QByteArray harnessText(const Analyzer &analyzer, const HarnessPlace &place, const QMap<int, int> &windows)
{
    return Harness(analyzer, place, windows).text();
}

QByteArray recordHead(const Analyzer &analyzer)
{
    QByteArray text = "$timescale 1ps $end\n$scope module taps $end\n";
    const QList<Tap> &taps = analyzer.taps().taps();
    for (int i = 0; i < taps.size(); ++i) {
        const QByteArray name = "tap_" + decimal(i), width = decimal(taps.at(i).width());
        text += "$var wire " + width + ' ' + name + ' ' + name +
                (taps.at(i).width() > 1 ? " [" + decimal(taps.at(i).width() - 1) + ":0]" : QByteArray()) +
                " $end\n";
    }
    return text + "$upscope $end\n$enddefinitions $end\n";
}

QByteArray withWindows(const QByteArray &text, int windows)
{
    const int begin = 7, length = 32, countBits = 15; // "status 0cccccccccccccccllll..."
    const QByteArray count = QByteArray::number(windows, 2).rightJustified(countBits, '0');
    return text.startsWith("status ") && text.size() > begin + length
               ? QByteArray(text).replace(begin + 1, countBits, count)
               : text;
}

QMap<int, CoreEnd> readEnds(const QByteArray &text)
{
    QMap<int, CoreEnd> ends;
    for (const QByteArray &line : text.split('\n')) {
        const QList<QByteArray> words = line.split(' ');
        if (words.size() != 3)
            continue;
        CoreEnd end;
        // Unknown before the first clock: then nothing was finished or seen.
        end.windows = words.at(1).toInt(nullptr, 2);
        end.seen = words.at(2).toUInt(nullptr, 2);
        ends.insert(words.first().toInt(), end);
    }
    return ends;
}

} // namespace Insertion

#include "insertion/harness.h"

#include "insertion/analyzer.h"
#include "insertion/attaching.h"

namespace Insertion {
namespace {

const char *const sharedControls[] = {"clock", "capture", "shift", "update", "tdi"};

QByteArray number(int value)
{
    return QByteArray::number(value);
}

class Harness
{
public:
    Harness(const Analyzer &analyzer, const HarnessPlace &place, const QMap<int, int> &windows)
        : m_analyzer(analyzer), m_place(place), m_windows(windows)
    {
    }

    QByteArray text()
    {
        add("`timescale 1ns / 1ps\nmodule jex_harness;");
        for (const Analyzer::Core &core : m_analyzer.cores())
            addReader(core);
        for (const char *control : sharedControls)
            addShared(control);
        if (m_place.prefix.isEmpty())
            attach();
        else
            connectPorts();
        addReading();
        addEnd();
        if (m_place.records)
            addRecord();
        add("endmodule");
        return m_text + RTLJEX::readerSource();
    }

private:
    void add(const QByteArray &line) { m_text += line + '\n'; }

    // As the simulator sees the module with all cores.
    QByteArray cores() const
    {
        return m_place.prefix.isEmpty() ? QByteArray("cores")
                                        : m_place.instance.toUtf8() + '.' + m_place.prefix + "_cores";
    }

    QByteArray file(const QByteArray &name) const { return '"' + m_place.folder.toUtf8() + '/' + name + '"'; }

    void addReader(const Analyzer::Core &core)
    {
        const QByteArray own = number(core.core.number);
        QByteArray ports;
        for (const char *control : {"clock", "select", "capture", "shift", "update", "tdi"}) {
            add(QByteArray("wire ") + control + '_' + own + ';');
            ports += QByteArray(".ctl_") + control + '(' + control + '_' + own + "), ";
        }
        add("wire tdo_" + own + ";\nreg want_" + own + ";\ninitial want_" + own + " = 1'b0;");
        add("jex_reader #(.SAMPLE_BITS(" + number(core.module.layout.sampleWidth()) + "), .SAMPLES(" +
            number(core.module.layout.storedSamples()) + "), .FILE(" + file("core_" + own + ".txt") +
            ")) reader_" + own + " (" + ports + ".ctl_tdo(tdo_" + own + "));");
        const QByteArray windows = cores() + ".core_" + own + ".windows";
        add("always @(" + windows + ") if (" + windows +
            " == " + number(m_windows.value(core.core.number, core.module.layout.windows)) + ") want_" + own +
            " = 1'b1;");
    }

    // Readers that have nothing to do hold their lines at 0.
    void addShared(const QByteArray &control)
    {
        QByteArray any;
        for (const Analyzer::Core &core : m_analyzer.cores())
            any += (any.isEmpty() ? "" : " | ") + control + '_' + number(core.core.number);
        add("wire all_" + control + " = " + any + ';');
    }

    void attach()
    {
        QByteArray ports;
        const QList<Tap> &taps = m_analyzer.taps().taps();
        for (int i = 0; i < taps.size(); ++i) {
            const QByteArray range = '[' + number(taps.at(i).width() - 1) + ":0] ";
            add("wire " + range + "tap_" + number(i) + " = " + m_place.instance.toUtf8() + '.' +
                verilogPath(taps.at(i)) + ';');
            ports += ".tap_" + number(i) + "(tap_" + number(i) + "),\n    ";
        }
        for (const char *control : sharedControls)
            ports += QByteArray(".ctl_") + control + "(all_" + control + "),\n    ";
        for (const Analyzer::Core &core : m_analyzer.cores()) {
            const QByteArray own = number(core.core.number);
            ports += ".ctl_select_" + own + "(select_" + own + "),\n    .ctl_tdo_" + own + "(tdo_" + own +
                     "),\n    ";
        }
        ports.chop(6);
        add("jex_cores cores (\n    " + ports + ");");
    }

    // The test bench leaves these ports of the design open.
    void connectPorts()
    {
        const QByteArray port = m_place.instance.toUtf8() + '.' + m_place.prefix + "_ctl_";
        add("initial begin");
        for (const char *control : sharedControls)
            add("    force " + port + control + " = all_" + control + ';');
        for (const Analyzer::Core &core : m_analyzer.cores()) {
            const QByteArray own = number(core.core.number);
            add("    force " + port + "select_" + own + " = select_" + own + ';');
        }
        add("end");
        for (const Analyzer::Core &core : m_analyzer.cores()) {
            const QByteArray own = number(core.core.number);
            add("assign tdo_" + own + " = " + port + "tdo_" + own + ';');
        }
    }

    // One after the other, since the lines are shared.
    void addReading()
    {
        QByteArray any;
        for (const Analyzer::Core &core : m_analyzer.cores())
            any += (any.isEmpty() ? "want_" : " | want_") + number(core.core.number);
        add("always begin\n    wait (" + any + ");");
        for (const Analyzer::Core &core : m_analyzer.cores()) {
            const QByteArray own = number(core.core.number);
            add("    if (want_" + own + ") begin reader_" + own + ".read_all; want_" + own + " = 1'b0; end");
        }
        add("end");
    }

    void addEnd()
    {
        add("integer ends;\nfinal begin\n    ends = $fopen(" + file("end.txt") + ", \"w\");");
        for (const Analyzer::Core &core : m_analyzer.cores()) {
            const QByteArray own = number(core.core.number), name = cores() + ".core_" + own;
            add("    $fwrite(ends, \"" + own + " %b %b\\n\", " + name + ".windows, " + name + ".seen);");
        }
        add("    $fclose(ends);\nend");
    }

    void addRecord()
    {
        add("initial begin\n    $dumpfile(" + file("raw.vcd") + ");");
        for (int i = 0; i < m_analyzer.taps().taps().size(); ++i)
            add("    $dumpvars(0, " + cores() + ".tap_" + number(i) + ");");
        add("end");
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

#include "tests/gateware/simulation.h"

#include "tests/support/files.h"
#include "tests/support/tools.h"

using namespace RTLJEX;

namespace {

enum { EdgesAfter = 12, StatusWords = 3 };

// What both simulators run: inputs by the number of the edge, control ports by the number of their clock.
const char head[] =
    "module bench(input wire clk, input wire ctl, input wire [31:0] half, input wire [31:0] step);\n";
const char instance[] = R"(
reg [%WIDTH-1:0] inputs_%I [0:%LAST];
reg [5:0] tape_%I [0:%CLOCKS];
integer file_%I;
initial begin
  $readmemb("inputs_%I.txt", inputs_%I);
  $readmemb("tape_%I.txt", tape_%I);
  file_%I = $fopen("tdo_%I.txt", "w");
end
wire [%WIDTH-1:0] in_%I = inputs_%I[half > %LAST ? %LAST : half];
wire [5:0] now_%I = tape_%I[step];
wire tdo_%I;
always @(posedge ctl) if (now_%I[5]) $fwrite(file_%I, "%b", tdo_%I);
jex_core_%I core_%I(.clk(clk), %PORTS
  .ctl_clock(ctl), .ctl_select(now_%I[0]), .ctl_capture(now_%I[1]), .ctl_shift(now_%I[2]),
  .ctl_update(now_%I[3]), .ctl_tdi(now_%I[4]), .ctl_tdo(tdo_%I), .windows(), .done(), .seen());
)";

// What moves it: between two edges of the clock as many clocks of the control ports as a list says.
const char icarusDriver[] = R"(
module driver;
reg clk = 1'b0, ctl = 1'b0;
reg [31:0] half = 0, step = 0, left;
reg [31:0] ticks [0:%EDGES];
bench bench(clk, ctl, half, step);
initial begin
  $readmemh("ticks.txt", ticks);
  while (half <= %EDGES) begin
    for (left = ticks[half]; left > 0; left = left - 1) begin
      #1 ctl = 1'b1;
      #1 ctl = 1'b0;
      step = step + 1;
    end
    #1 clk = ~clk;
    half <= half + 1;
    #1;
  end
  $finish;
end
endmodule
)";
const char verilatorDriver[] = R"(
#include <cstdio>
#include "Vbench.h"
double sc_time_stamp() { return 0; }
int main() {
  Vbench bench;
  unsigned ticks;
  FILE *list = fopen("ticks.txt", "r");
  bench.eval();
  while (fscanf(list, "%x", &ticks) == 1) {
    for (; ticks; --ticks) {
      bench.ctl = 1; bench.eval();
      bench.ctl = 0; ++bench.step; bench.eval();
    }
    bench.clk = !bench.clk; bench.eval();
    ++bench.half; bench.eval();
  }
  bench.final();
}
)";

// What the control port of a core gets, clock by clock, and what it says at the clocks that are recorded.
class ControlTape
{
public:
    void command(int code, quint32 argument)
    {
        const quint64 bits = quint64(code) << 32 | argument;
        for (int i = 0; i < 40; ++i)
            shift(bits >> i & 1 ? '1' : '0', false);
        update();
    }

    // The last digit first.
    void load(const QByteArray &settings)
    {
        command(5, 0);
        for (int i = settings.size() - 1; i >= 0; --i)
            shift(settings[i], false);
        update();
    }

    void read(int words)
    {
        add("000011");
        for (int i = 0; i < 32 * words; ++i)
            shift('0', true);
        update();
    }

    void idleUntil(int clocks) { add("000000", clocks - m_lines.size()); }

    int clocks() const { return m_lines.size(); }
    QByteArray text() const { return m_lines.join('\n') + '\n'; } // a line for each clock

private:
    // A line: recorded, tdi, update, shift, capture, select.
    void add(const char *line, int times = 1)
    {
        for (int i = 0; i < times; ++i)
            m_lines += line;
    }

    void shift(char bit, bool isRecorded)
    {
        const QByteArray line = QByteArray(isRecorded ? "1" : "0") + bit + "0101";
        m_lines += line;
    }

    void update()
    {
        add("001001");
        add("000000");
    }

    QList<QByteArray> m_lines;
};

// The recorded bits as 32-bit words.
QList<QByteArray> recordedWords(const QByteArray &bits)
{
    QList<QByteArray> words;
    for (int at = 0; at + 32 <= bits.size(); at += 32) {
        QByteArray word = bits.mid(at, 32);
        std::reverse(word.begin(), word.end());
        words += word;
    }
    return words;
}

QByteArray number(int value)
{
    return QByteArray::number(value);
}

// The bits of all inputs of a core: the ports with the highest number on top, then the data; and the
// connections of a vector "in" of them.
QByteArray inputLine(const coremodel::Sample &sample)
{
    QByteArray bits = sample.data;
    for (const QByteArray &port : sample.ports)
        bits = port + bits;
    return bits;
}

QByteArray inputPorts(const Bench &bench, int core)
{
    const CoreModule &module = bench.modules[core];
    QByteArray text = ".data(in[" + number(module.layout.dataWidth - 1) + ":0]), ";
    int low = module.layout.dataWidth;
    const QMap<int, QByteArray> &sample = bench.cores[core]->halves.first().ports;
    for (auto it = sample.begin(); it != sample.end(); ++it) {
        const int top = low + it.value().size() - 1;
        if (module.portNumbers.contains(it.key()))
            text += ".trig_" + number(it.key()) + "(in[" + number(top) + ":" + number(low) + "]), ";
        low = top + 1;
    }
    return text;
}

QByteArray instanceText(const Bench &bench, int i, int clocks)
{
    const RandomCore &core = *bench.cores[i];
    return QByteArray(instance)
        .replace("%PORTS", inputPorts(bench, i).replace("(in[", "(in_%I["))
        .replace("%WIDTH", number(inputLine(core.halves.first()).size()))
        .replace("%LAST", number(core.halves.size() - 1))
        .replace("%CLOCKS", number(clocks - 1))
        .replace("%I", number(i));
}

void addCommands(ControlTape *tape, const RandomCore &core, int half)
{
    for (const RandomCore::At &command : core.commands) {
        if (command.half != half)
            continue;
        if (command.kind != coremodel::Command::Arm) {
            tape->command(2, command.kind == coremodel::Command::ForceHigh);
            continue;
        }
        if (!core.settings.isEmpty())
            tape->load(core.settings);
        tape->command(1, 0);
    }
}

int wordsOf(const CoreLayout &layout)
{
    return (layout.sampleWidth() + 31) / 32;
}

// The tapes of all cores, as long as each other at every edge of the clock, and the list of those lengths.
QList<ControlTape> tapesOf(const Bench &bench, QByteArray *ticks)
{
    QList<ControlTape> tapes;
    for (int i = 0; i < bench.cores.size(); ++i)
        tapes += ControlTape();
    int clocks = 0;
    for (int half = 0; half <= bench.edges(); ++half) {
        int most = clocks;
        for (int i = 0; i < tapes.size(); ++i) {
            addCommands(&tapes[i], *bench.cores[i], half);
            if (half == bench.edges()) {
                tapes[i].idleUntil(tapes[i].clocks() + 4); // what changed last has come over
                tapes[i].read(StatusWords);
                tapes[i].command(4, 0);
                tapes[i].read(wordsOf(bench.modules[i].layout) * bench.modules[i].layout.storedSamples());
            }
            most = qMax(most, tapes[i].clocks());
        }
        for (ControlTape &tape : tapes)
            tape.idleUntil(most);
        *ticks += QByteArray::number(most - clocks, 16) + '\n';
        clocks = most;
    }
    return tapes;
}

// As the simulation's own reader writes it.
QByteArray captureFile(const QByteArray &bits, const CoreLayout &layout)
{
    const QList<QByteArray> words = recordedWords(bits);
    QByteArray text = "status " + QList<QByteArray>(words.mid(0, StatusWords)).join(' ') + '\n';
    for (int at = StatusWords; at < words.size(); at += wordsOf(layout)) {
        QByteArray sample;
        for (const QByteArray &word : words.mid(at, wordsOf(layout)))
            sample = word + sample;
        text += sample.right(layout.sampleWidth()) + '\n';
    }
    return text;
}

void runIn(const Folder &folder, const QByteArray &sources, int edges, Simulator simulator)
{
    if (simulator == Icarus) {
        folder.write("bench.v", sources + QByteArray(icarusDriver).replace("%EDGES", number(edges)));
        runTool(folder.path(), "iverilog", {"-g2001", "-s", "driver", "-o", "bench.vvp", "bench.v"});
        runTool(folder.path(), "vvp", {"-n", "bench.vvp"});
        return;
    }
    folder.write("bench.v", sources);
    folder.write("driver.cpp", verilatorDriver);
    runTool(folder.path(), "verilator",
            {"--cc", "--exe", "--build", "-Wno-lint", "-Wno-style", "--top-module", "bench", "--x-initial",
             "0", "--output-split", "0", "-MAKEFLAGS", "OPT_GLOBAL=-O0 OPT_FAST=-O0 OPT_SLOW=-O0", "bench.v",
             "driver.cpp"});
    runTool(folder.path(), "obj_dir/Vbench", {});
}

} // namespace

int Bench::edges() const
{
    int most = 0;
    for (const RandomCore *core : cores)
        most = qMax(most, core->halves.size() + int(EdgesAfter));
    return most;
}

QString captureText(const CapturedCore &core)
{
    QStringList lines(QString("done %1 level %2 seen %3")
                          .arg(core.isDone)
                          .arg(core.level)
                          .arg(core.seen, 8, 16, QChar('0')));
    for (const CapturedWindow &window : core.windows) {
        QString line = QString("trigger %1:").arg(window.trigger);
        for (const QByteArray &sample : window.samples)
            line += ' ' + sample;
        lines += line;
    }
    return lines.join('\n');
}

QStringList simulate(const Bench &bench, Simulator simulator)
{
    Folder folder;
    if (qEnvironmentVariableIsSet("KEEP"))
        folder.dir.setAutoRemove(false);
    QByteArray ticks;
    const QList<ControlTape> tapes = tapesOf(bench, &ticks);
    folder.write("ticks.txt", ticks);
    QByteArray text = bench.sources + head;
    for (int i = 0; i < bench.cores.size(); ++i) {
        QByteArray lines;
        for (const coremodel::Sample &sample : bench.cores[i]->halves)
            lines += inputLine(sample) + '\n';
        folder.write(QString("inputs_%1.txt").arg(i), lines);
        folder.write(QString("tape_%1.txt").arg(i), tapes[i].text());
        text += instanceText(bench, i, tapes[i].clocks());
    }
    runIn(folder, text + "endmodule\n", bench.edges(), simulator);
    QStringList texts;
    for (int i = 0; i < bench.cores.size(); ++i) {
        const CoreLayout &layout = bench.modules[i].layout;
        CapturedCore core;
        QString error;
        const QByteArray file = captureFile(folder.read(QString("tdo_%1.txt").arg(i)), layout);
        texts += readCapture(file, layout, &core, &error) ? captureText(core) : error;
    }
    return texts;
}

#include "cli/arguments.h"
#include "cli/corerows.h"
#include "cli/design.h"
#include "cli/findings.h"
#include "host/regularfile.h"
#include "signals/namedsignals.h"

namespace Cli {
namespace {

bool readNames(const QString &source, QStringList &names, QString *error)
{
    QByteArray bytes;
    QString reason;
    if (!QUtil::readFileOrStream(source, 64 * QUtil::MiB, &bytes, &reason)) {
        *error = "The names in \"" + source + "\" cannot be read: " + reason + '.';
        return false;
    }
    names << RTLJEX::signalNames(QString::fromUtf8(bytes));
    return true;
}

struct Target
{
    int core = -1; // its number; -1: the only one
    int port = -1; // -1: the capture list
    bool isNew = false;
};

bool readTarget(const Arguments &arguments, Target *target, QString *error)
{
    bool isNumber = true;
    const QString core = arguments.parser.value("core");
    target->isNew = core == "new";
    if (!core.isEmpty() && !target->isNew)
        target->core = core.toInt(&isNumber);
    if (!isNumber || target->core < -1)
        *error = "A core is a number as jex show prints it, or \"new\", not \"" + core + "\".";
    else if (arguments.parser.isSet("port"))
        target->port = arguments.parser.value("port").toInt(&isNumber);
    if (error->isEmpty() && arguments.parser.isSet("port") &&
        (!isNumber || target->port < 0 || target->port >= JEX::PortCount))
        *error = QString("Trigger ports have the numbers 0 to %1.").arg(JEX::PortCount - 1);
    return error->isEmpty();
}

// A core as the editor makes it, with the first free number.
bool addCore(RTLJEX::Configuration &configuration, QString *error)
{
    if (configuration.cores().size() >= JEX::CoreLimit) {
        *error = QString("The file has %1 cores already, and cannot have more.").arg(JEX::CoreLimit);
        return false;
    }
    int number = 0;
    while (coreNumbered(configuration, number).signalRows)
        ++number;
    configuration.addCore(number);
    return true;
}

bool findCore(RTLJEX::Configuration &configuration, const Target &target, RTLJEX::AnyCore *core,
              QString *error)
{
    if (target.isNew && !addCore(configuration, error))
        return false;
    const QList<RTLJEX::AnyCore> cores = configuration.cores();
    if (target.isNew || (target.core < 0 && cores.size() == 1))
        *core = cores.last();
    else if (target.core >= 0)
        *core = coreNumbered(configuration, target.core);
    if (core->signalRows)
        return true;
    *error = target.core < 0 ? QString("Say --core: ") : QString("There is no core %1: ").arg(target.core);
    *error += "the file has " + (cores.isEmpty() ? QString("none, --core new makes one.")
                                                 : "cores " + coreNumbers(configuration) + '.');
    return false;
}

bool addTo(const RTLJEX::AnyCore &core, int port, const QList<JEX::SignalItem> &chosen, QString *error)
{
    if (port < 0) {
        setCaptureRows(core, RTLJEX::withCaptureSignals(*core.signalRows, chosen));
        return true;
    }
    if (!core.standard) {
        *error = "The core has no trigger ports.";
        return false;
    }
    JEX::TriggerPort *target = core.standard->getTrigger(port);
    const QList<JEX::SignalItem> rows = RTLJEX::withPortSignals(target->signalItems, chosen);
    if (JEX::widthOf(rows) > JEX::TriggerPort::WidthLimit) {
        *error = QString("Trigger port %1 would have %2 bits; %3 at most.")
                     .arg(port)
                     .arg(JEX::widthOf(rows))
                     .arg(int(JEX::TriggerPort::WidthLimit));
        return false;
    }
    target->signalItems = rows;
    return true;
}

ExitCode addToFile(const QString &file, const Target &target, const QStringList &names,
                   const QUARRY::RtlNetlist &netlist, const Arguments &arguments, Output &out)
{
    RTLJEX::Configuration configuration;
    RTLJEX::AnyCore core;
    QString error;
    if (!arguments.open(file, configuration))
        return CouldNotRun;
    if (!findCore(configuration, target, &core, &error))
        return arguments.fail(error + " Nothing was changed.");
    QStringList faults;
    const QList<JEX::SignalItem> chosen = RTLJEX::signalsNamed(&netlist, names, &faults);
    if (!faults.isEmpty())
        return arguments.fail(faults.join("\njex add: ") + "\njex add: Nothing was changed.", Findings);
    if (!addTo(core, target.port, chosen, &error))
        return arguments.fail(error + " Nothing was changed.", Findings);
    if (!configuration.rewrite(file, &error))
        return arguments.fail(error);
    const RTLJEX::FileFindings findings = configuration.judge(netlist);
    printFindings(file, findings, out);
    return findings.isEmpty() ? Fine : Findings;
}

} // namespace

ExitCode add(const QStringList &words, Output &out)
{
    Arguments arguments(
        "add", "FILE DESIGN --core N --signals NAMES|-",
        "Adds nets and buses to the capture list of a core, or to one of its trigger ports, by the rules of\n"
        "the editor: what is there already is enabled, bits give way to their bus. Then checks the file as\n"
        "jex check does. Names are full ones, \"top/u0/state[2:0]\" or \"top/u0/state\", each behind a\n"
        "--signals of its own; a file or \"-\" (what jex nets prints) has one in each line.");
    arguments.parser.addPositionalArgument("FILE", "The configuration; " + hdlFiles());
    arguments.parser.addOptions({
        {"core", "The number of the core; \"new\" makes one. Not needed where there is just one.", "N"},
        {"port", "The trigger port that gets the signals, in place of the capture list.", "P"},
        {"signals", "A full name, or \"-\" for standard input.", "NAMES"},
        {"signals-from", "A file of names.", "LIST"},
    });
    arguments.addDesign();
    CommandLine::DesignOptions options;
    Target target;
    QString error;
    QStringList names;
    if (!arguments.read(words, out))
        return arguments.result();
    if (!readTarget(arguments, &target, &error))
        return arguments.refuse(error);
    if (!arguments.readDesign(arguments.files(), options))
        return arguments.result();
    const QString file = arguments.takeConfigurations(options).value(0);
    if (file.isEmpty())
        return arguments.result();
    QStringList lists = arguments.parser.values("signals-from");
    for (const QString &name : arguments.parser.values("signals"))
        (name == "-" ? lists : names) << name;
    for (const QString &list : lists) {
        if (!readNames(list, names, &error))
            return arguments.fail(error);
    }
    if (names.isEmpty())
        return arguments.refuse("Name the signals, with --signals.");
    Design design;
    if (!design.open(options) || !design.elaborate())
        return CouldNotRun;
    return addToFile(file, target, names, *design.netlist(), arguments, out);
}

} // namespace Cli

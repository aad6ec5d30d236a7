#include "cli/arguments.h"
#include "cli/configurationdiff.h"
#include "cli/setting.h"
#include "gateware/corefault.h"

namespace Cli {

ExitCode set(const QStringList &words, Output &out)
{
    Arguments arguments("set", "FILE KEY=VALUE...",
                        "Sets fields of a configuration (.zub), all of those named or none, and says what "
                        "changed; 1 when the\n"
                        "analyzer cannot be made of it yet. Keys name the fields that jex show prints: "
                        "core0.clock=top/clk, core0.storageSize=1024, core0.M3.port=2,\n"
                        "core0.M3.value=01XR, core0.expression1=M0&M3 (without a value it is removed),\n"
                        "core0.capture.top/ready.alias=\"ready flag\", core0.capture.top/ready.capture=no.");
    arguments.parser.addPositionalArgument("FILE", "The configuration.");
    arguments.parser.addPositionalArgument("KEY=VALUE", "What is set.");
    arguments.parser.addOption({"dry-run", "Print what would change, and write nothing."});
    if (!arguments.read(words, out))
        return arguments.result();
    const QString file = arguments.files().value(0);
    if (arguments.files().size() < 2)
        return arguments.refuse("Name one configuration (.zub) and what is to be set.");
    RTLJEX::Configuration before, configuration;
    QString error;
    if (!arguments.open(file, before) || !arguments.open(file, configuration))
        return CouldNotRun;
    for (const QString &word : arguments.files().mid(1)) {
        Setting setting;
        if (!setting.read(word, &error))
            return arguments.refuse(error);
        if (!setting.apply(configuration, &error))
            return arguments.fail(error + " Nothing was changed.", WrongUse);
    }
    for (const Difference &difference : differences(before, configuration))
        out.line(differenceSentence(difference));
    if (!arguments.parser.isSet("dry-run") && !configuration.rewrite(file, &error))
        return arguments.fail(error);
    ExitCode result = Fine;
    for (const RTLJEX::AnyCore &core : configuration.cores()) {
        const QString fault = RTLJEX::coreFault(core);
        if (!fault.isEmpty())
            result = arguments.fail(fault, Findings);
    }
    return result;
}

} // namespace Cli

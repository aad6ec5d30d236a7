#include <QFileInfo>

#include "check/configuration.h"
#include "cli/arguments.h"
#include "host/regularfile.h"

namespace Cli {

ExitCode makeNew(const QStringList &words, Output &out)
{
    Arguments arguments("new", "FILE --mode MODE",
                        "Makes a configuration without cores. Overwrites nothing.");
    arguments.parser.addPositionalArgument("FILE", "The new file; its name ends in .zub.");
    const QStringList modes = JEX::modeNames();
    arguments.parser.addOption({"mode", oneOf(modes).toLower() + '.', "MODE"});
    if (!arguments.read(words, out))
        return arguments.result();
    const QString mode = modes.value(
        modes.indexOf(QRegExp(arguments.parser.value("mode"), Qt::CaseInsensitive, QRegExp::FixedString)));
    if (arguments.files().size() != 1)
        return arguments.refuse("Name one file.");
    if (mode.isEmpty())
        return arguments.refuse("Say --mode " + modes.join(" or --mode ").toLower() + '.');
    const QString file = arguments.files().first();
    if (!file.endsWith(".zub", Qt::CaseInsensitive))
        return arguments.refuse("The name of a configuration ends in .zub, \"" + file + "\" does not.");
    if (QFileInfo::exists(file) || QFileInfo(file).isSymLink())
        return arguments.fail("The file \"" + file + "\" exists already. Name another one, or remove it.");
    const RTLJEX::Configuration empty(JEX::modeNamed(mode));
    QString error;
    return empty.rewrite(file, &error) ? Fine : arguments.fail(error);
}

ExitCode format(const QStringList &words, Output &out)
{
    Arguments arguments(
        "fmt", "FILE...",
        "Reads configurations (.zub) and writes them as the editor does. A file that has this\n"
        "form already is not touched; comments are not kept. What is read from \"-\" goes to standard "
        "output.");
    arguments.parser.addPositionalArgument("FILE", "The configurations.");
    arguments.parser.addOption(
        {"check", "Write nothing; list the files that would change, and end with 1 if there is one."});
    if (!arguments.read(words, out))
        return arguments.result();
    if (arguments.files().isEmpty())
        return arguments.refuse("Name a configuration (.zub).");
    ExitCode result = Fine;
    for (const QString &file : arguments.files()) {
        RTLJEX::Configuration configuration;
        QByteArray bytes;
        QString error;
        bool done = configuration.read(file, &error) && configuration.toBytes(&bytes, &error);
        if (done && !arguments.parser.isSet("check")) {
            if (QUtil::isStreamName(file))
                out.write(bytes.constData(), size_t(bytes.size()));
            else
                done = configuration.rewrite(file, &error);
        } else if (done && !configuration.wasReadFrom(bytes)) {
            out.line(file);
            result = qMax(result, Findings);
        }
        if (!done)
            result = arguments.fail(error);
    }
    return result;
}

} // namespace Cli

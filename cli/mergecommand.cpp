#include <QFileInfo>

#include "cli/arguments.h"
#include "cli/configurationmerge.h"

namespace Cli {
namespace {

// What both sides added has an empty file for its base.
bool isEmptyFile(const QString &path)
{
    const QFileInfo info(path);
    return info.isFile() && info.size() == 0;
}

ExitCode write(const RTLJEX::Configuration &configuration, const QString &file, const Arguments &arguments,
               Output &out)
{
    QByteArray bytes;
    QString error;
    if (file == "-" && configuration.toBytes(&bytes, &error))
        out.write(bytes.constData(), size_t(bytes.size()));
    else if (file != "-")
        configuration.rewrite(file, &error);
    return error.isEmpty() ? Fine : arguments.fail(error);
}

} // namespace

ExitCode merge(const QStringList &words, Output &out)
{
    Arguments arguments(
        "merge", "BASE OURS THEIRS [--output FILE]",
        "Brings what changed from BASE to THEIRS into OURS, all configurations (.zub) of one mode: fields,\n"
        "match units, signals and cores that only one side changed. What both changed differently stays as\n"
        "in OURS, is told, and ends with 1. As a merge driver of git: jex merge %O %A %B");
    arguments.parser.addPositionalArgument("BASE", "What both sides began with; may be empty.");
    arguments.parser.addPositionalArgument("OURS", "One side, which gets the result.");
    arguments.parser.addPositionalArgument("THEIRS", "The other side.");
    arguments.parser.addOption(
        {"output", "Write the result there, and leave OURS as it is; \"-\" prints it.", "FILE"});
    if (!arguments.read(words, out))
        return arguments.result();
    if (arguments.files().size() != 3)
        return arguments.refuse("Name three configurations (.zub).");
    RTLJEX::Configuration ours, theirs;
    if (!arguments.open(arguments.files().at(1), ours) || !arguments.open(arguments.files().at(2), theirs))
        return CouldNotRun;
    const bool isAdded = isEmptyFile(arguments.files().at(0));
    RTLJEX::Configuration base(isAdded ? ours.mode() : JEX::InvalidMode);
    if (!isAdded && !arguments.open(arguments.files().at(0), base))
        return CouldNotRun;
    if (theirs.mode() != ours.mode() || base.mode() != ours.mode())
        return arguments.fail("The files are " + base.modeName() + ", " + ours.modeName() + " and " +
                              theirs.modeName() +
                              "; only those of one mode can be merged. Nothing was changed.");
    const QStringList conflicts = mergeConfigurations(base, theirs, ours);
    const QString output = arguments.parser.value("output");
    ExitCode result = write(ours, output.isEmpty() ? arguments.files().at(1) : output, arguments, out);
    for (const QString &conflict : conflicts)
        result = qMax(result, arguments.fail(conflict + '.', Findings));
    return result;
}

} // namespace Cli

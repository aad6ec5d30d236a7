#include "cli/arguments.h"
#include "cli/configurationdiff.h"

namespace Cli {
namespace {

Json differenceJson(const Difference &difference)
{
    Json json;
    json["core"] = difference.core < 0 ? Json(nullptr) : Json(difference.core);
    json["place"] = QUtil::toUtf8(difference.place);
    json["what"] = QUtil::toUtf8(difference.what);
    json["name"] = QUtil::toUtf8(difference.name);
    json["from"] = difference.from;
    json["to"] = difference.to;
    return json;
}

} // namespace

ExitCode diff(const QStringList &words, Output &out)
{
    Arguments arguments(
        "diff", "OLD NEW",
        "Says in words what changed from one configuration (.zub) to another: cores, settings,\n"
        "and signals added, removed, moved and renamed. 1 when anything did.");
    arguments.parser.addPositionalArgument("OLD", "The older configuration.");
    arguments.parser.addPositionalArgument("NEW", "The newer one.");
    arguments.addJson();
    if (!arguments.read(words, out))
        return arguments.result();
    if (arguments.files().size() != 2)
        return arguments.refuse("Name two configurations (.zub).");
    RTLJEX::Configuration older, newer;
    if (!arguments.open(arguments.files().at(0), older) || !arguments.open(arguments.files().at(1), newer))
        return CouldNotRun;
    const QList<Difference> found = differences(older, newer);
    Json json = Json::array();
    for (const Difference &difference : found) {
        if (arguments.json())
            json.push_back(differenceJson(difference));
        else
            out.line(differenceSentence(difference));
    }
    if (arguments.json())
        printJson(json, out);
    return found.isEmpty() ? Fine : Findings;
}

} // namespace Cli

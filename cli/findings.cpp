#include "cli/findings.h"

namespace Cli {
namespace {

Json staleJson(const RTLJEX::StaleSignal &signal)
{
    using RTLJEX::StaleSignal;
    static const char *const places[] = {"clock", "trigger", "capture"};
    static_assert(sizeof places / sizeof *places == StaleSignal::Capture + 1, "each place has a name");
    Json json;
    json["core"] = signal.shown;
    json["place"] = places[signal.place];
    if (signal.place == StaleSignal::Trigger)
        json["port"] = signal.port;
    json["name"] = toStd(signal.name);
    json["alias"] = toStd(signal.alias);
    json["group"] = toStd(signal.group);
    json["fault"] = toStd(RTLJEX::staleWord(signal.fault));
    json["now"] = toStd(signal.now);
    json["nearest"] = toJson(signal.nearest);
    return json;
}

} // namespace

void printFindings(const QString &file, const RTLJEX::FileFindings &findings, Output &out)
{
    for (const QString &line : findings.errors)
        out.line(file + ": " + line);
    for (const RTLJEX::StaleSignal &signal : findings.stale)
        out.line(file + ": " + RTLJEX::staleSentence(signal));
    if (findings.isEmpty())
        out.line(file + ": no findings");
}

Json findingsJson(const QString &file, const RTLJEX::Configuration &configuration,
                  const RTLJEX::FileFindings &findings)
{
    Json json;
    json["file"] = toStd(file);
    json["mode"] = toStd(configuration.modeName());
    json["errors"] = toJson(findings.errors);
    json["stale"] = Json::array();
    for (const RTLJEX::StaleSignal &signal : findings.stale)
        json["stale"].push_back(staleJson(signal));
    return json;
}

} // namespace Cli

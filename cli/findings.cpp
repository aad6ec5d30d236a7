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
    json["name"] = QUtil::toUtf8(signal.name);
    json["alias"] = QUtil::toUtf8(signal.alias);
    json["group"] = QUtil::toUtf8(signal.group);
    json["fault"] = QUtil::toUtf8(RTLJEX::staleWord(signal.fault));
    json["now"] = QUtil::toUtf8(signal.now);
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
    json["file"] = QUtil::toUtf8(file);
    json["mode"] = QUtil::toUtf8(configuration.modeName());
    json["errors"] = toJson(findings.errors);
    json["stale"] = Json::array();
    for (const RTLJEX::StaleSignal &signal : findings.stale)
        json["stale"].push_back(staleJson(signal));
    return json;
}

} // namespace Cli

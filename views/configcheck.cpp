#include "views/configcheck.h"

#include <QRegExp>
#include <QStringList>

#include "model/jex/core.h"
#include "model/netlist/rtlnetlist.h"

namespace RTLJEX {

namespace {

// The lines of one core, each behind its prefix. Numbers fill %1 and %2 of a text; user text is put in at
// once with them, so that a "%1" in it stays as it is.
class ErrorLines
{
public:
    explicit ErrorLines(QStringList *lines) : m_lines(lines) {}

    void setCore(int number) { m_prefix = QString::fromLatin1("Core %1: ").arg(number); }
    void add(const QString &text) { m_lines->append(m_prefix + text); }
    void add(const char *text) { add(QString::fromLatin1(text)); }
    void add(const char *text, int a) { add(QString::fromLatin1(text).arg(a)); }
    void add(const char *text, int a, int b) { add(QString::fromLatin1(text).arg(a).arg(b)); }
    void add(const char *text, int a, const QString &b)
    {
        add(QString::fromLatin1(text).arg(QString::number(a), b));
    }

private:
    QStringList *m_lines;
    QString m_prefix;
};

void checkClock(const QString &clock, const QUARRY::RtlNetlist *netlist, ErrorLines *found)
{
    if (clock.isEmpty()) {
        found->add("No sample clock specified");
    } else if (!netlist || !netlist->findNet(clock)) {
        found->add("The specified sample clock does not exist");
    }
}

void checkUnit(const JEX::MatchUnit &unit, ErrorLines *found)
{
    const JEX::TriggerPort *port = unit.triggerPort;
    if (!port) {
        found->add("M%1 doesn't bind a trigger port", unit.unitNumber);
    } else if (port->signalItems.isEmpty()) {
        found->add("Trigger port %1 for M%2 is not available", port->portNumber, unit.unitNumber);
    } else if (unit.value.size() != port->width()) {
        found->add("Length of M%1 is not equal to trigger port %2", unit.unitNumber, port->portNumber);
    }
}

// Any run of digits counts as a unit number, also one that names no unit; one too long for an integer is
// passed over.
void checkExpression(const JEX::AoCore &core, const QString &expression, ErrorLines *found)
{
    QRegExp digits(QLatin1String("\\d+"));
    for (int at = digits.indexIn(expression); at >= 0;
         at = digits.indexIn(expression, at + digits.matchedLength())) {
        bool isNumber = false;
        const int number = digits.cap().toInt(&isNumber);
        const JEX::MatchUnit *unit = core.matchUnit(number);
        if (isNumber && !(unit && unit->enabled)) {
            found->add("M%1 in expression \"%2\" is not enable", number, expression);
        }
    }
}

void checkTrigger(const JEX::AoCore &core, ErrorLines *found)
{
    if (core.availableTriggers().isEmpty()) {
        found->add("No available trigger ports");
    }
    const QList<JEX::MatchUnit *> units = core.enabledMatchUnits();
    if (units.isEmpty()) {
        found->add("No available match units");
    }
    for (const JEX::MatchUnit *unit : units) {
        checkUnit(*unit, found);
    }
    if (core.expressions.isEmpty()) {
        found->add("No expressions specified");
    }
    for (const QString &expression : core.expressions) {
        checkExpression(core, expression, found);
    }
}

bool anyEnabled(const QList<JEX::SignalItem> &items)
{
    for (const JEX::SignalItem &item : items) {
        if (item.capEnable) {
            return true;
        }
    }
    return false;
}

bool report(const QStringList &lines, QString *errors)
{
    if (errors) {
        *errors = lines.join(QLatin1String("\n"));
    }
    return lines.isEmpty();
}

} // namespace

bool checkStandardCores(const QList<JEX::AoCore *> &cores, const QUARRY::RtlNetlist *netlist, QString *errors)
{
    QStringList lines;
    ErrorLines found(&lines);
    for (const JEX::AoCore *core : cores) {
        found.setCore(core->coreNumber);
        checkTrigger(*core, &found);
        checkClock(core->sampleClock, netlist, &found);
        if (!anyEnabled(core->enabledCaptureSignals)) {
            found.add("No capture signals specified");
        }
    }
    return report(lines, errors);
}

// Lite cores are told by their position, not by their number, and their enabled signals are taken as such.
bool checkLiteCores(const QList<JEX::AOCore_Lite *> &cores, const QUARRY::RtlNetlist *netlist,
                    QString *errors)
{
    QStringList lines;
    ErrorLines found(&lines);
    for (int i = 0; i < cores.size(); ++i) {
        found.setCore(i);
        checkClock(cores.at(i)->sampleClock, netlist, &found);
        if (cores.at(i)->enabledCaptureSignals.isEmpty()) {
            found.add("No capture signals specified");
        }
    }
    return report(lines, errors);
}

} // namespace RTLJEX

#include "views/configcheck.h"

#include <QCoreApplication>
#include <QRegExp>
#include <QStringList>

#include "model/jex/core.h"
#include "model/netlist/rtlnetlist.h"

namespace RTLJEX {

namespace {

struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(RTLJEX::ConfigCheck)
};

// The errors of one core, each line behind its prefix.
class CoreErrors
{
public:
    explicit CoreErrors(QList<CheckError> *errors) : m_errors(errors) {}

    void setCore(int position, int shown)
    {
        m_place.core = position;
        m_prefix = Texts::tr("Core %1: ").arg(shown);
    }
    void setPlace(CheckError::Place place, int unit = -1, const QString &expression = QString())
    {
        m_place.place = place;
        m_place.unit = unit;
        m_place.expression = expression;
    }
    void add(const QString &text)
    {
        m_errors->append(m_place);
        m_errors->last().line = m_prefix + text;
    }

private:
    QList<CheckError> *m_errors;
    CheckError m_place; // of those that follow
    QString m_prefix;
};

void checkClock(const QString &clock, const QUARRY::RtlNetlist *netlist, CoreErrors *found)
{
    found->setPlace(CheckError::Clock);
    if (clock.isEmpty())
        found->add(Texts::tr("No sample clock specified"));
    else if (!netlist || !netlist->findNet(clock))
        found->add(Texts::tr("The specified sample clock does not exist"));
}

void checkUnit(const JEX::MatchUnit &unit, CoreErrors *found)
{
    found->setPlace(CheckError::Units, unit.unitNumber);
    const JEX::TriggerPort *port = unit.triggerPort;
    if (!port) {
        found->add(Texts::tr("M%1 doesn't bind a trigger port").arg(unit.unitNumber));
    } else if (port->signalItems.isEmpty()) {
        found->add(
            Texts::tr("Trigger port %1 for M%2 is not available").arg(port->portNumber).arg(unit.unitNumber));
    } else if (unit.value.size() != port->width()) {
        found->add(Texts::tr("Length of M%1 is not equal to trigger port %2")
                       .arg(unit.unitNumber)
                       .arg(port->portNumber));
    }
}

// Any run of digits counts as a unit number, also one that names no unit; one too long for an integer is
// passed over.
void checkExpression(const JEX::AoCore &core, const QString &expression, CoreErrors *found)
{
    found->setPlace(CheckError::Expressions, -1, expression);
    QRegExp digits(QLatin1String("\\d+"));
    for (int at = digits.indexIn(expression); at >= 0;
         at = digits.indexIn(expression, at + digits.matchedLength())) {
        bool isNumber = false;
        const int number = digits.cap().toInt(&isNumber);
        const JEX::MatchUnit *unit = core.matchUnit(number);
        if (isNumber && !(unit && unit->enabled)) {
            found->add(
                Texts::tr("M%1 in expression \"%2\" is not enable").arg(QString::number(number), expression));
        }
    }
}

void checkTrigger(const JEX::AoCore &core, CoreErrors *found)
{
    found->setPlace(CheckError::Ports);
    if (core.availableTriggers().isEmpty())
        found->add(Texts::tr("No available trigger ports"));
    const QList<JEX::MatchUnit *> units = core.enabledMatchUnits();
    found->setPlace(CheckError::Units);
    if (units.isEmpty())
        found->add(Texts::tr("No available match units"));
    for (const JEX::MatchUnit *unit : units)
        checkUnit(*unit, found);
    found->setPlace(CheckError::Expressions);
    if (core.expressions.isEmpty())
        found->add(Texts::tr("No expressions specified"));
    for (const QString &expression : core.expressions)
        checkExpression(core, expression, found);
}

bool anyEnabled(const QList<JEX::SignalItem> &items)
{
    for (const JEX::SignalItem &item : items) {
        if (item.capEnable)
            return true;
    }
    return false;
}

QList<CheckError> errorsOf(const QList<JEX::AoCore *> &cores, const QUARRY::RtlNetlist *netlist)
{
    QList<CheckError> errors;
    CoreErrors found(&errors);
    for (int i = 0; i < cores.size(); ++i) {
        const JEX::AoCore &core = *cores.at(i);
        found.setCore(i, core.coreNumber);
        checkTrigger(core, &found);
        checkClock(core.sampleClock, netlist, &found);
        if (!anyEnabled(core.enabledCaptureSignals)) {
            found.setPlace(CheckError::Capture);
            found.add(Texts::tr("No capture signals specified"));
        }
    }
    return errors;
}

// Cores without a trigger are told by their position, not by their number, and their enabled signals are
// taken as such.
template <class Core>
QList<CheckError> errorsOf(const QList<Core *> &cores, const QUARRY::RtlNetlist *netlist)
{
    QList<CheckError> errors;
    CoreErrors found(&errors);
    for (int i = 0; i < cores.size(); ++i) {
        found.setCore(i, i);
        checkClock(cores.at(i)->sampleClock, netlist, &found);
        if (cores.at(i)->enabledCaptureSignals.isEmpty()) {
            found.setPlace(CheckError::Capture);
            found.add(Texts::tr("No capture signals specified"));
        }
    }
    return errors;
}

} // namespace

QList<CheckError> coreErrors(const JEX::CoreList &cores, const QUARRY::RtlNetlist *netlist)
{
    return std::visit([netlist](const auto &list) { return errorsOf(list, netlist); }, cores);
}

bool checkCores(const JEX::CoreList &cores, const QUARRY::RtlNetlist *netlist, QString *errors)
{
    QStringList lines;
    for (const CheckError &error : coreErrors(cores, netlist))
        lines << error.line;
    if (errors)
        *errors = lines.join(QLatin1String("\n"));
    return lines.isEmpty();
}

} // namespace RTLJEX

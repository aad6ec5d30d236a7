#include "check/configuration.h"

#include "host/regularfile.h"
#include "model/jex/jexfile.h"
#include "model/jex/zubfields.h"
#include "model/jex/zubinput.h"
#include "model/jex/zubreader.h"
#include "model/jex/zubwriter.h"

namespace RTLJEX {
namespace {

template <class Core>
AnyCore anyCore(Core *core)
{
    AnyCore any;
    any.number = core->coreNumber;
    any.clock = &core->sampleClock;
    any.topModule = &core->topModuleName;
    any.signalRows = &core->captureSignals;
    any.enabledRows = &core->enabledCaptureSignals;
    any.edge = core->sampleEdge;
    return any;
}

AnyCore anyCoreOf(JEX::AoCore *core)
{
    AnyCore any = anyCore(core);
    any.ports = core->triggerPorts;
    any.depth = core->storageSize;
    any.implementation = JEX::implementationOf(core->captureImplementation);
    any.standard = core;
    return any;
}

AnyCore anyCoreOf(JEX::AOCore_Lite *core)
{
    AnyCore any = anyCore(core);
    any.depth = core->captureAmount;
    any.implementation = JEX::implementationOf(core->implementation);
    any.lite = core;
    return any;
}

template <class Core>
void takeSignals(const Core &from, Core *to)
{
    to->sampleClock = from.sampleClock;
    to->captureSignals = from.captureSignals;
    to->enabledCaptureSignals = from.enabledCaptureSignals;
}

} // namespace

Configuration::~Configuration()
{
    deleteCores();
}

void Configuration::deleteCores()
{
    qDeleteAll(m_standard);
    qDeleteAll(m_lite);
    m_standard.clear();
    m_lite.clear();
}

void Configuration::swap(Configuration &other)
{
    qSwap(m_mode, other.m_mode);
    qSwap(m_read, other.m_read);
    qSwap(m_standard, other.m_standard);
    qSwap(m_lite, other.m_lite);
}

void Configuration::takeSignalsOf(const Configuration &other)
{
    deleteCores();
    m_mode = other.m_mode;
    for (const JEX::AoCore *core : other.m_standard) {
        m_standard << new JEX::AoCore(core->coreNumber);
        takeSignals(*core, m_standard.last());
        for (int i = 0; i < JEX::PortCount; ++i)
            m_standard.last()->triggerPorts.at(i)->signalItems = core->triggerPorts.at(i)->signalItems;
    }
    for (const JEX::AOCore_Lite *core : other.m_lite) {
        m_lite << new JEX::AOCore_Lite;
        m_lite.last()->coreNumber = core->coreNumber;
        takeSignals(*core, m_lite.last());
    }
}

bool Configuration::accepts(const QString &path) const
{
    return m_mode == JEX::StandardMode ? JEX::checkJEXStandardFile(path)
                                       : m_mode == JEX::LiteMode && JEX::checkJEXLiteFile(path);
}

bool Configuration::read(const QString &path, QString *error)
{
    deleteCores();
    QByteArray bytes;
    QString fault;
    if (JEX::readZubInput(path, &bytes, &fault)) {
        m_read = QUtil::FileMark(bytes);
        if (m_mode == JEX::InvalidMode)
            m_mode = JEX::zubMode(bytes);
        JEX::ZubReader reader(bytes, path);
        // The reader says what is wrong with a file of neither mode, too.
        if (m_mode == JEX::StandardMode)
            m_standard = reader.standardCores();
        else
            m_lite = reader.liteCores();
        fault = reader.error();
    }
    if (error)
        *error = fault;
    return fault.isEmpty();
}

bool Configuration::toBytes(QByteArray *bytes, QString *error) const
{
    return m_mode == JEX::StandardMode ? JEX::zubFromCores(m_standard, bytes, error)
                                       : JEX::zubFromCores(m_lite, bytes, error);
}

bool Configuration::write(const QString &path, QString *error) const
{
    return m_mode == JEX::StandardMode ? JEX::writeJEXConfigToXml(m_standard, path, error)
                                       : JEX::writeJEXConfigToXml_Lite(m_lite, path, error);
}

bool Configuration::rewrite(const QString &path, QString *error) const
{
    QByteArray bytes;
    if (!toBytes(&bytes, error)) {
        *error = QLatin1String("The file \"") + path + QLatin1String("\" is not written: ") + *error;
        return false;
    }
    const QUtil::FileMark now = QUtil::FileMark::of(path);
    if (now == QUtil::FileMark(bytes))
        return true;
    if (!m_read.isNull() && !now.isNull() && now != m_read)
        *error =
            QLatin1String("The file \"") + path +
            QLatin1String("\" has changed since it was read, and is left as it is. Run the command again.");
    else if (QUtil::isStreamName(path))
        *error = QLatin1String("\"") + path +
                 QLatin1String("\" is a stream, which cannot be replaced. Name a file.");
    else
        return write(path, error);
    return false;
}

QString Configuration::modeName() const
{
    return QLatin1String(JEX::modeName(m_mode));
}

QList<AnyCore> Configuration::cores() const
{
    QList<AnyCore> cores;
    for (JEX::AoCore *core : m_standard)
        cores << anyCoreOf(core);
    for (JEX::AOCore_Lite *core : m_lite)
        cores << anyCoreOf(core);
    return cores;
}

bool Configuration::check(const QUARRY::RtlNetlist *netlist, QString *errors) const
{
    return m_mode == JEX::StandardMode ? checkStandardCores(m_standard, netlist, errors)
                                       : checkLiteCores(m_lite, netlist, errors);
}

QList<CheckError> Configuration::errors(const QUARRY::RtlNetlist *netlist) const
{
    return m_mode == JEX::StandardMode ? standardErrors(m_standard, netlist) : liteErrors(m_lite, netlist);
}

QList<StaleSignal> Configuration::staleSignals(const QUARRY::RtlNetlist &netlist) const
{
    return m_mode == JEX::StandardMode ? RTLJEX::staleSignals(m_standard, netlist)
                                       : RTLJEX::staleSignals(m_lite, netlist);
}

FileFindings Configuration::judge(const QUARRY::RtlNetlist &netlist) const
{
    QString errors;
    check(&netlist, &errors);
    FileFindings findings;
    findings.errors = errors.split(QLatin1Char('\n'), QString::SkipEmptyParts);
    findings.stale = staleSignals(netlist);
    return findings;
}

} // namespace RTLJEX

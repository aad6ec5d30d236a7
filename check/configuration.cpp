#include "check/configuration.h"

#include "host/regularfile.h"
#include "model/jex/jexfile.h"
#include "model/jex/zubinput.h"
#include "model/jex/zubreader.h"
#include "model/jex/zubwriter.h"

namespace RTLJEX {
namespace {

template <class Core>
void takeSignals(const Core &from, Core *to)
{
    to->sampleClock = from.sampleClock;
    to->captureSignals = from.captureSignals;
    to->enabledCaptureSignals = from.enabledCaptureSignals;
}

void takePorts(const JEX::AoCore &from, JEX::AoCore *to)
{
    for (int i = 0; i < JEX::PortCount; ++i)
        to->triggerPorts.at(i)->signalItems = from.triggerPorts.at(i)->signalItems;
}

template <class Core>
void takePorts(const Core &, Core *)
{
}

} // namespace

Configuration::Configuration(JEX::JexMode mode) : m_mode(mode), m_cores(JEX::emptyListOf(mode))
{
}

Configuration::~Configuration()
{
    JEX::deleteCores(m_cores);
}

// Without cores then.
void Configuration::setMode(JEX::JexMode mode)
{
    const JEX::CoreList old = m_cores;
    m_mode = mode;
    m_cores = JEX::emptyListOf(mode);
    JEX::deleteCores(old);
}

void Configuration::swap(Configuration &other)
{
    qSwap(m_mode, other.m_mode);
    qSwap(m_read, other.m_read);
    m_cores.swap(other.m_cores);
}

void Configuration::addCore(int number)
{
    std::visit(
        [number](auto &list) {
            typedef std::remove_reference_t<decltype(*list.first())> Core;
            list << JEX::newCore<Core>(number);
        },
        m_cores);
}

void Configuration::takeSignalsOf(const Configuration &other)
{
    setMode(other.m_mode);
    for (const AnyCore &core : other.cores()) {
        addCore(core.number);
        core.visit([this](const auto &from) {
            typedef std::decay_t<decltype(from)> Core;
            takeSignals(from, coresOf<Core>().last());
            takePorts(from, coresOf<Core>().last());
        });
    }
}

bool Configuration::accepts(const QString &path) const
{
    return JEX::isFileOfMode(path, m_mode);
}

bool Configuration::read(const QString &path, QString *error)
{
    setMode(m_mode);
    QByteArray bytes;
    QString fault;
    if (JEX::readZubInput(path, &bytes, &fault)) {
        m_read = QUtil::FileMark(bytes);
        if (m_mode == JEX::InvalidMode)
            m_mode = JEX::zubMode(bytes);
        JEX::ZubReader reader(bytes, path);
        // The reader says what is wrong with a file of no mode, too.
        m_cores = reader.cores(m_mode);
        fault = reader.error();
    }
    if (error)
        *error = fault;
    return fault.isEmpty();
}

bool Configuration::toBytes(QByteArray *bytes, QString *error) const
{
    return JEX::zubFromCores(m_cores, bytes, error);
}

bool Configuration::write(const QString &path, QString *error) const
{
    return JEX::writeCores(m_cores, path, error);
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
    return anyCores(m_cores);
}

bool Configuration::check(const QUARRY::RtlNetlist *netlist, QString *errors) const
{
    return checkCores(m_cores, netlist, errors);
}

QList<CheckError> Configuration::errors(const QUARRY::RtlNetlist *netlist) const
{
    return coreErrors(m_cores, netlist);
}

QList<StaleSignal> Configuration::staleSignals(const QUARRY::RtlNetlist &netlist) const
{
    return RTLJEX::staleSignals(cores(), netlist);
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

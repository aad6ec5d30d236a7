#include "cli/configuration.h"

#include <QFile>
#include <QFileInfo>

#include "host/atomicfile.h"
#include "model/jex/jexfile.h"
#include "model/jex/zubfields.h"
#include "model/jex/zubwriter.h"
#include "signals/stalereport.h"
#include "views/configcheck.h"

namespace Cli {
namespace {

template <class Core>
CoreRecord recordOf(Core *core)
{
    CoreRecord record;
    record.number = core->coreNumber;
    record.clock = &core->sampleClock;
    record.topModule = &core->topModuleName;
    record.signalRows = &core->captureSignals;
    record.enabledRows = &core->enabledCaptureSignals;
    return record;
}

} // namespace

Configuration::~Configuration()
{
    qDeleteAll(m_standard);
    qDeleteAll(m_lite);
}

bool Configuration::read(const QString &path, QString *error)
{
    bool ok = false;
    m_mode = JEX::jexModeFromJexConfigFile(path);
    // The reader says what is wrong with a file of neither mode, too.
    if (m_mode == JEX::StandardMode)
        m_standard = JEX::readJEXConfigFromXml(path, &ok, error);
    else
        m_lite = JEX::readJEXConfigFromXml_Lite(path, &ok, error);
    return ok;
}

bool Configuration::toBytes(QByteArray *bytes, QString *error) const
{
    return m_mode == JEX::StandardMode ? JEX::zubFromCores(m_standard, bytes, error)
                                       : JEX::zubFromCores(m_lite, bytes, error);
}

bool Configuration::write(const QString &path, QString *error) const
{
    QByteArray bytes, old;
    if (!toBytes(&bytes, error)) {
        *error = "The file \"" + path + "\" is not written: " + *error;
        return false;
    }
    QString unread;
    if (QFileInfo::exists(path) && readFile(path, &old, &unread) && old == bytes)
        return true;
    return QUtil::writeFileAtomically(path, bytes, error);
}

QString Configuration::modeName() const
{
    return JEX::modeName(m_mode);
}

QList<CoreRecord> Configuration::cores() const
{
    QList<CoreRecord> records;
    for (JEX::AoCore *core : m_standard) {
        records << recordOf(core);
        records.last().standard = core;
    }
    for (JEX::AOCore_Lite *core : m_lite) {
        records << recordOf(core);
        records.last().lite = core;
    }
    return records;
}

QStringList Configuration::check(const QUARRY::RtlNetlist &netlist) const
{
    QString lines;
    if (m_mode == JEX::StandardMode)
        RTLJEX::checkStandardCores(m_standard, &netlist, &lines);
    else
        RTLJEX::checkLiteCores(m_lite, &netlist, &lines);
    return lines.split('\n', Qt::SkipEmptyParts);
}

QList<RTLJEX::StaleSignal> Configuration::staleSignals(const QUARRY::RtlNetlist &netlist) const
{
    return m_mode == JEX::StandardMode ? RTLJEX::staleSignals(m_standard, netlist)
                                       : RTLJEX::staleSignals(m_lite, netlist);
}

bool readFile(const QString &path, QByteArray *bytes, QString *error)
{
    QFile file(path);
    if (file.open(QIODevice::ReadOnly)) {
        *bytes = file.readAll();
        if (file.error() == QFile::NoError)
            return true;
    }
    *error = "The file \"" + path + "\" cannot be read: " + file.errorString() + '.';
    return false;
}

} // namespace Cli

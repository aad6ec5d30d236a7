#include "cli/configuration.h"

#include "host/atomicfile.h"
#include "host/regularfile.h"
#include "model/jex/zubfields.h"
#include "model/jex/zubinput.h"
#include "model/jex/zubreader.h"
#include "model/jex/zubwriter.h"
#include "signals/stalereport.h"
#include "views/configcheck.h"

namespace Cli {
namespace {

template <class Core>
QList<Setting> settingsOf(const Core &core, const JEX::FieldTable<Core> &table)
{
    QList<Setting> settings;
    for (const JEX::Field<Core> *field = table.begin; field != table.begin + table.size; ++field) {
        Json value;
        if (field->text)
            value = toStd(core.*field->text);
        else if (field->flag)
            value = core.*field->flag;
        else if (field->rule.kind == JEX::Rule::Words)
            value = toStd(field->rule.toText(core.*field->number));
        else
            value = core.*field->number;
        if (qstrcmp(field->name, "number") != 0)
            settings.append({field->name, value});
    }
    return settings;
}

template <class Core>
CoreRecord recordOf(Core *core, const JEX::FieldTable<Core> &table)
{
    CoreRecord record;
    record.number = core->coreNumber;
    record.settings = settingsOf(*core, table);
    record.clock = &core->sampleClock;
    record.topModule = &core->topModuleName;
    record.signalRows = &core->captureSignals;
    record.enabledRows = &core->enabledCaptureSignals;
    return record;
}

} // namespace

QString settingText(const Json &value)
{
    return value.is_string() ? fromStd(value.get<std::string>()) : fromStd(value.dump());
}

Configuration::~Configuration()
{
    qDeleteAll(m_standard);
    qDeleteAll(m_lite);
}

bool Configuration::read(const QString &path, QString *error)
{
    QByteArray bytes;
    if (!JEX::readZubInput(path, &bytes, error))
        return false;
    m_read = QUtil::FileMark(bytes);
    m_mode = JEX::zubMode(bytes);
    JEX::ZubReader reader(bytes, path);
    // The reader says what is wrong with a file of neither mode, too.
    if (m_mode == JEX::StandardMode)
        m_standard = reader.standardCores();
    else
        m_lite = reader.liteCores();
    *error = reader.error();
    return error->isEmpty();
}

bool Configuration::toBytes(QByteArray *bytes, QString *error) const
{
    return m_mode == JEX::StandardMode ? JEX::zubFromCores(m_standard, bytes, error)
                                       : JEX::zubFromCores(m_lite, bytes, error);
}

bool Configuration::write(const QString &path, QString *error) const
{
    QByteArray bytes;
    if (!toBytes(&bytes, error)) {
        *error = "The file \"" + path + "\" is not written: " + *error;
        return false;
    }
    const QUtil::FileMark now = QUtil::FileMark::of(path);
    if (now == QUtil::FileMark(bytes))
        return true;
    if (!m_read.isNull() && !now.isNull() && now != m_read)
        *error = "The file \"" + path +
                 "\" has changed since it was read, and is left as it is. Run the command again.";
    else if (QUtil::isStreamName(path))
        *error = "\"" + path + "\" is a stream, which cannot be replaced. Name a file.";
    else
        return QUtil::writeFileAtomically(path, bytes, error);
    return false;
}

QString Configuration::modeName() const
{
    return JEX::modeName(m_mode);
}

QList<CoreRecord> Configuration::cores() const
{
    QList<CoreRecord> records;
    for (JEX::AoCore *core : m_standard) {
        records << recordOf(core, JEX::standardFields());
        records.last().standard = core;
    }
    for (JEX::AOCore_Lite *core : m_lite) {
        records << recordOf(core, JEX::liteFields());
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

} // namespace Cli

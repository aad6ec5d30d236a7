#pragma once

#include <QByteArray>
#include <QList>
#include <QString>

#include "cli/json.h"
#include "host/filemark.h"
#include "model/jex/core.h"

namespace QUARRY {
class RtlNetlist;
}
namespace RTLJEX {
struct StaleSignal;
}

namespace Cli {

// One attribute of a core, by the name and with the words of the ".zub" format.
struct Setting
{
    QString name;
    Json value;
};
QString settingText(const Json &value); // without quotes

// What a core of either mode has. Points into the configuration.
struct CoreRecord
{
    int number = 0;
    QList<Setting> settings; // all attributes but the number
    QString *clock = nullptr;
    QString *topModule = nullptr;
    QList<JEX::SignalItem> *signalRows = nullptr;
    QList<JEX::SignalItem> *enabledRows = nullptr;
    JEX::AoCore *standard = nullptr;  // null in a Lite file
    JEX::AOCore_Lite *lite = nullptr; // null in a Standard file
};

// A configuration file of either mode in memory.
class Configuration
{
public:
    Configuration() = default;
    explicit Configuration(JEX::JexMode mode) : m_mode(mode) {} // without cores
    ~Configuration();

    // False, with a sentence, when the file cannot be read. A stream is taken as well (see regularfile.h).
    bool read(const QString &path, QString *error);
    // Whether the file that was read holds these bytes.
    bool wasReadFrom(const QByteArray &bytes) const { return m_read == QUtil::FileMark(bytes); }
    // Writes the file unless it holds these bytes already; refuses when it has changed since it was read.
    bool write(const QString &path, QString *error) const;
    bool toBytes(QByteArray *bytes, QString *error) const;

    JEX::JexMode mode() const { return m_mode; }
    QString modeName() const;
    QList<CoreRecord> cores() const;

    // The editor's check, one line for each finding.
    QStringList check(const QUARRY::RtlNetlist &netlist) const;
    QList<RTLJEX::StaleSignal> staleSignals(const QUARRY::RtlNetlist &netlist) const;

private:
    Configuration(const Configuration &) = delete;
    Configuration &operator=(const Configuration &) = delete;

    JEX::JexMode m_mode = JEX::InvalidMode;
    QUtil::FileMark m_read; // null: nothing was read
    QList<JEX::AoCore *> m_standard;
    QList<JEX::AOCore_Lite *> m_lite;
};

} // namespace Cli

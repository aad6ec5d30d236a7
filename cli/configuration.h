#pragma once

#include <QByteArray>
#include <QList>
#include <QString>

#include "cli/json.h"
#include "model/jex/core.h"

namespace QUARRY {
class RtlNetlist;
}
namespace RTLJEX {
struct StaleSignal;
}

namespace Cli {

// What a core of either mode has. Points into the configuration.
struct CoreRecord
{
    int number = 0;
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

    // False, with a sentence, when the file cannot be read.
    bool read(const QString &path, QString *error);
    // Writes the file unless it holds these bytes already.
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
    QList<JEX::AoCore *> m_standard;
    QList<JEX::AOCore_Lite *> m_lite;
};

// False, with a sentence.
bool readFile(const QString &path, QByteArray *bytes, QString *error);

} // namespace Cli

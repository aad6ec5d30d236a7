#pragma once

#include <QByteArray>
#include <QList>
#include <QString>
#include <QStringList>

#include "check/anycore.h"
#include "check/stalereport.h"
#include "host/filemark.h"
#include "model/jex/modes.h"
#include "views/configcheck.h"

namespace RTLJEX {

// What is wrong with a configuration beside a design; one line or one signal is a finding.
struct FileFindings
{
    QStringList errors; // lines of the check, with which an editor does not save
    QList<StaleSignal> stale;

    bool isEmpty() const { return errors.isEmpty() && stale.isEmpty(); }
};

// A configuration file of any mode in memory, for everyone who reads, judges or writes one. Owns its
// cores.
class Configuration
{
public:
    // Without cores. One that is made of no mode takes that of the first file it reads.
    explicit Configuration(JEX::JexMode mode = JEX::InvalidMode);
    ~Configuration();
    void swap(Configuration &other);

    // Whether a file is well-formed and of this mode; what its values are worth is judged by reading.
    bool accepts(const QString &path) const;
    // The cores of the file in place of those it has. False, with a sentence, when the file cannot be read:
    // then it has none. A stream is taken as well (see regularfile.h).
    bool read(const QString &path, QString *error);
    bool toBytes(QByteArray *bytes, QString *error) const;
    // False leaves the old file as it was, with a sentence; where that is null, it goes to the debug output.
    bool write(const QString &path, QString *error) const;

    // For programs that nobody watches: leaves a file that holds these bytes already as it is, and refuses
    // one that has changed since it was read.
    bool rewrite(const QString &path, QString *error) const;
    // Whether the file that was read held these bytes.
    bool wasReadFrom(const QByteArray &bytes) const { return m_read == QUtil::FileMark(bytes); }

    // The cores of another one in place of its own, with no more than their clocks and signals.
    void takeSignalsOf(const Configuration &other);

    JEX::JexMode mode() const { return m_mode; }
    QString modeName() const;
    QList<AnyCore> cores() const;
    // As the editor makes one; the number must be free.
    void addCore(int number);
    // For who knows the mode, and for who visits. Who takes a core out deletes it.
    template <class Core>
    QList<Core *> &coresOf()
    {
        return std::get<QList<Core *>>(m_cores);
    }
    JEX::CoreList &coreList() { return m_cores; }

    // The editor's check before it saves, see configcheck.h. Both pointers may be null.
    bool check(const QUARRY::RtlNetlist *netlist, QString *errors) const;
    QList<CheckError> errors(const QUARRY::RtlNetlist *netlist) const;
    QList<StaleSignal> staleSignals(const QUARRY::RtlNetlist &netlist) const;
    FileFindings judge(const QUARRY::RtlNetlist &netlist) const; // by both

private:
    Configuration(const Configuration &);
    Configuration &operator=(const Configuration &);

    void setMode(JEX::JexMode mode);

    JEX::JexMode m_mode;
    QUtil::FileMark m_read; // null: nothing was read
    JEX::CoreList m_cores;
};

} // namespace RTLJEX

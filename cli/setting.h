#pragma once

#include <QString>

#include "check/configuration.h"

namespace Cli {

// One "KEY=VALUE" of jex set. The key names a field as jex show prints it:
//   core0.clock  core0.M3.value  core0.capture.NAME.alias  core0.port2.NAME.alias  core0.expression1
class Setting
{
public:
    // False with a sentence when the words are no key and value.
    bool read(const QString &word, QString *error);

    // Changes the configuration. False with a sentence when it has no such place, or that cannot hold the
    // value; then nothing has changed.
    bool apply(const RTLJEX::Configuration &configuration, QString *error) const;

private:
    bool setInCore(const RTLJEX::AnyCore &core, QString *error) const;
    bool setExpression(JEX::AoCore &core, QString *error) const;
    bool setUnit(JEX::AoCore &core, QString *error) const;
    bool setSignal(const RTLJEX::AnyCore &core, QString *error) const;
    template <class Record>
    bool setField(Record &record, JEX::AoCore *core, QString *error) const;
    bool fail(const QString &sentence, QString *error) const;

    QString m_key;
    QString m_value;
    QString m_place; // within the core: "", "M3", "expression1", "capture", "port2"
    QString m_signal;
    QString m_field;
    int m_core = -1;
};

} // namespace Cli

#pragma once

#include <QByteArray>
#include <QList>
#include <QStringList>

#include "gateware/coretext.h"
#include "insertion/taps.h"

namespace Insertion {

// All cores of a configuration as one module, "jex_cores", which has an input "tap_N" for each net that they
// look at. Its control port is that of the cores, with a "ctl_select_N" and a "ctl_tdo_N" for core N.
class Analyzer
{
public:
    struct Port
    {
        QByteArray name;    // of the core, "trig_3"
        QList<TapBit> bits; // from bit 0 up
    };
    struct Core
    {
        RTLJEX::AnyCore core; // points into the configuration
        RTLJEX::CoreModule module;
        TapBit clock;
        QList<Port> ports;
    };

    // The configuration and the netlist must outlive it.
    Analyzer(const RTLJEX::Configuration &configuration, const RTLJEX::CoreOptions &options,
             const QUARRY::RtlNetlist &netlist);

    const QStringList &faults() const { return m_faults; } // sentences; any: it cannot be made
    const QList<Core> &cores() const { return m_cores; }
    TapList &taps() { return m_taps; }
    const TapList &taps() const { return m_taps; }

    QByteArray coresText() const; // the whole of "cores.v"
    QList<QByteArray> controlInputs() const;
    QList<QByteArray> controlOutputs() const;
    // Of an instance of "jex_cores" that nobody arms: its Lite cores begin at once.
    QByteArray parametersUnarmed() const;

private:
    bool canStartArmed() const { return !m_cores.isEmpty() && m_cores.first().module.canStartArmed; }
    QByteArray bitText(const TapBit &bit, int width) const;
    QByteArray portText(const Port &port) const;

    QList<Core> m_cores;
    TapList m_taps;
    QByteArray m_modules; // text of the cores
    bool m_startsArmed;
    QStringList m_faults;
};

// How a bit of a tap is called, "soc/u_uart/count[3]".
QString bitName(const Tap &tap, const TapBit &bit);

} // namespace Insertion

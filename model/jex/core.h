#pragma once

#include <QList>
#include <QString>
#include <QStringList>

#include "model/jex/codes.h"
#include "model/jex/signalitem.h"

namespace JEX {

class AoCore;

// The mode of a configuration file; any other value means none.
enum JexMode { InvalidMode = 0, StandardMode = 10087, LiteMode = 10088 };

// One trigger port of a Standard core; owned by the core.
struct TriggerPort
{
    enum { WidthLimit = 64 };

    qint32 portNumber = 0;
    QList<SignalItem> signalItems;

    QList<SignalItem> singleSignals() const; // flattened to bits: each bus replaced by its members
    int width() const { return widthOf(signalItems); }

    static FieldTable<TriggerPort> fields();
};

// One comparator of a Standard core; owned by the core.
struct MatchUnit
{
    qint32 unitNumber = 0; // M0 to M15
    bool enabled = false;
    TriggerPort *triggerPort = nullptr; // of the same core; null: not bound
    qint32 function = MatchEqual;       // MatchFunction
    QString value;                      // one character a bit of the bound port, in the order of its bits
    QString upperValue;                 // second bound of a range; empty otherwise
    const AoCore *core = nullptr;       // the owner, whose ports the unit can be bound to; null: none

    static FieldTable<MatchUnit> fields();
};

// What a file and a core hold at most.
enum Limit { CoreLimit = 16, PortCount = 16, UnitCount = 16, ExpressionLimit = 16 };

// One analyzer core of a Standard file. Owns its ports and units; not copied.
class AoCore
{
public:
    static constexpr JexMode mode = StandardMode;
    static FieldTable<AoCore> fields();

    // A core with the defaults below, 16 empty ports and 16 units that are disabled and not bound.
    explicit AoCore(int number);
    ~AoCore();

    qint32 coreNumber;
    QString sampleClock;                                // full name of the clock net; empty: none chosen
    qint32 sampleEdge = RisingEdge;                     // SampleEdge
    qint32 triggerMode = DynamicTrigger;                // TriggerMode
    qint32 triggerImplementation = BsramImplementation; // Implementation
    qint32 captureImplementation = BsramImplementation; // Implementation
    qint32 storageSize = 1024;                          // power of two, 4 to 65536
    qint32 captureAmount = 1024;             // power of two, 4 to storage size / segments; 0: none fits
    qint32 triggerPosition = 0;              // 0 to capture amount - 4, which may be -4
    qint32 windowNumber = 1;                 // segments, 1 to storage size / 4
    QList<TriggerPort *> triggerPorts;       // 16, numbered from 0
    QList<MatchUnit *> matchUnits;           // 16, M0 to M15
    QStringList expressions;                 // at most 16
    QList<SignalItem> enabledCaptureSignals; // those of captureSignals with capEnable, same order
    QList<SignalItem> captureSignals;
    QString topModuleName;
    bool forceTriggerByFallingEdge = false;
    bool captureInitialData = false;

    bool isStatic() const { return triggerMode == StaticTrigger; }
    QList<TriggerPort *> availableTriggers() const; // ports that hold signals
    QList<MatchUnit *> enabledMatchUnits() const;
    TriggerPort *getTrigger(int index) const; // null when there is none
    MatchUnit *matchUnit(int number) const;   // null for a number that is no unit

private:
    AoCore(const AoCore &);
    AoCore &operator=(const AoCore &);
};

// One analyzer core of a Lite file.
struct AOCore_Lite
{
    static constexpr JexMode mode = LiteMode;
    static FieldTable<AOCore_Lite> fields();

    qint32 coreNumber = 0;
    QString sampleClock;
    qint32 sampleEdge = RisingEdge;              // SampleEdge
    qint32 implementation = BsramImplementation; // Implementation
    qint32 captureAmount = 1024;
    bool enableCaptureDataInputRegister = false;
    bool captureInitialData = false;
    QList<SignalItem> enabledCaptureSignals;
    QList<SignalItem> captureSignals;
    QString topModuleName; // never set by the Lite editor
};

} // namespace JEX

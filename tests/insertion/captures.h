#pragma once

#include "insertion/simulationjob.h"
#include "tests/elaboration/sources.h"
#include "tests/support/signaltext.h"

#include <QtTest>

// Adds a Lite core that captures these signals.
inline JEX::AOCore_Lite &addLite(RTLJEX::Configuration &configuration, const QString &clock,
                                 const QList<JEX::SignalItem> &rows, int amount = 1024)
{
    JEX::AOCore_Lite *core = new JEX::AOCore_Lite;
    core->sampleClock = clock;
    core->captureAmount = amount;
    core->captureSignals = core->enabledCaptureSignals = rows;
    configuration.coresOf<JEX::AOCore_Lite>() << core;
    return *core;
}

// One such core alone.
struct LiteConfiguration : RTLJEX::Configuration
{
    LiteConfiguration(const QString &clock, const QList<JEX::SignalItem> &rows, int amount = 1024)
        : Configuration(JEX::LiteMode)
    {
        addLite(*this, clock, rows, amount);
    }
};

// Adds a Standard core that captures windows of these signals when the one of its trigger has the value.
inline JEX::AoCore &addStandard(RTLJEX::Configuration &configuration, const QString &clock,
                                const QList<JEX::SignalItem> &rows, int amount, int windows,
                                const JEX::SignalItem &trigger, const QString &value)
{
    JEX::AoCore *core = new JEX::AoCore(configuration.coresOf<JEX::AoCore>().size());
    core->sampleClock = clock;
    core->storageSize = amount * windows;
    core->captureAmount = amount;
    core->windowNumber = windows;
    core->captureSignals = core->enabledCaptureSignals = rows;
    core->triggerPorts[0]->signalItems = {trigger};
    core->matchUnits[0]->enabled = true;
    core->matchUnits[0]->triggerPort = core->triggerPorts[0];
    core->matchUnits[0]->value = value;
    core->expressions << "M0";
    configuration.coresOf<JEX::AoCore>() << core;
    return *core;
}

template <class Job>
void finish(Job &job)
{
    QSignalSpy end(&job, SIGNAL(finished()));
    job.start();
    QVERIFY(end.wait(240000));
}

#pragma once

#include "host/project.h"
#include "model/jex/jexfile.h"
#include "tests/support/files.h"
#include "tests/support/signaltext.h"

// A project in a folder of its own, open as long as this lives.
class Workspace : public Folder
{
public:
    Workspace()
    {
        Core::ProjectData data;
        data.name = "work";
        project.setData(data);
        Core::ProjectManager::setCurrentProject(&project);
    }
    ~Workspace() { Core::ProjectManager::setCurrentProject(nullptr); }

    void addDesign(const QString &name, const QByteArray &text) { project.addFile(write(name, text)); }

    // A file with that many cores, each on the clock "top/clk" and capturing it; a Standard core triggers on
    // it as well. There is nothing for the check to find.
    QString writeConfig(JEX::JexMode mode, const QString &name, int count) const
    {
        QList<JEX::AoCore *> standard;
        QList<JEX::AOCore_Lite *> lite;
        for (int i = 0; i < count; ++i) {
            standard << addTrigger(addCapture(new JEX::AoCore(i)));
            lite << addCapture(new JEX::AOCore_Lite);
            lite.last()->coreNumber = i;
        }
        if (!(mode == JEX::StandardMode ? JEX::writeJEXConfigToXml(standard, path(name))
                                        : JEX::writeJEXConfigToXml_Lite(lite, path(name))))
            qFatal("cannot write %s", qPrintable(path(name)));
        qDeleteAll(standard);
        qDeleteAll(lite);
        return path(name);
    }
    QString writeLite(const QString &name, int count) const
    {
        return writeConfig(JEX::LiteMode, name, count);
    }

    Core::Project project;

private:
    static JEX::SignalItem clock() { return signalFromText("s:top/clk"); }
    template <class Core>
    static Core *addCapture(Core *core)
    {
        core->sampleClock = clock().name;
        core->captureSignals << clock();
        core->enabledCaptureSignals << clock();
        return core;
    }
    static JEX::AoCore *addTrigger(JEX::AoCore *core)
    {
        core->triggerPorts.first()->signalItems << clock();
        core->matchUnits.first()->enabled = true;
        core->matchUnits.first()->triggerPort = core->triggerPorts.first();
        core->matchUnits.first()->value = "1";
        core->expressions << "M0";
        return core;
    }
};

static const char counterDesign[] = "module top(input clk, input [3:0] d, output reg [3:0] q);\n"
                                    "  always @(posedge clk) q <= d;\n"
                                    "endmodule\n";

#pragma once

#include <QFile>
#include <QTemporaryDir>

#include "host/project.h"
#include "model/jex/jexfile.h"

// A project in a folder of its own, open as long as this lives.
class Workspace
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

    QString path(const QString &name) const { return dir.path() + "/" + name; }

    QString write(const QString &name, const QByteArray &text) const
    {
        QFile file(path(name));
        if (!file.open(QIODevice::WriteOnly) || file.write(text) != text.size())
            qFatal("cannot write %s", qPrintable(file.fileName()));
        return file.fileName();
    }

    QByteArray read(const QString &name) const
    {
        QFile file(path(name));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("(cannot be read)");
    }

    void addDesign(const QString &name, const QByteArray &text) { project.addFile(write(name, text)); }

    // A Lite file with that many cores, each on the clock "top/clk" and capturing it.
    QString writeLite(const QString &name, int count) const
    {
        QList<JEX::AOCore_Lite *> cores;
        for (int i = 0; i < count; ++i) {
            JEX::AOCore_Lite *core = new JEX::AOCore_Lite;
            core->coreNumber = i;
            core->sampleClock = "top/clk";
            JEX::SignalItem signal;
            signal.name = "top/clk";
            signal.type = 0;
            core->captureSignals << signal;
            core->enabledCaptureSignals << signal;
            cores << core;
        }
        if (!JEX::writeJEXConfigToXml_Lite(cores, path(name)))
            qFatal("cannot write %s", qPrintable(path(name)));
        qDeleteAll(cores);
        return path(name);
    }

    QTemporaryDir dir;
    Core::Project project;
};

static const char counterDesign[] = "module top(input clk, input [3:0] d, output reg [3:0] q);\n"
                                    "  always @(posedge clk) q <= d;\n"
                                    "endmodule\n";

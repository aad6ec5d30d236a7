#pragma once

#include <QString>
#include <QStringList>

#include "commandline/designoptions.h"

namespace Workbench {

// What the program was asked to do.
struct StartOptions : CommandLine::DesignOptions
{
    QString plugin;
    QString log;         // file for what was done; empty: none
    QString shot;        // where a picture of the window goes
    bool report = false; // print what was found and end
    bool verbose = false;
    bool help = false;
    bool version = false;
};

// False with sentences when the words make no sense.
bool parseCommandLine(const QStringList &arguments, StartOptions &options, QStringList &messages);
QString helpText();

} // namespace Workbench

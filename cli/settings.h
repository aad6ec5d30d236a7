#pragma once

#include <QList>
#include <QString>

#include "check/configuration.h"
#include "cli/json.h"

namespace Cli {

// One attribute of a core, by the name and with the words of the ".zub" format.
struct Setting
{
    QString name;
    Json value;
};

QList<Setting> settingsOf(const RTLJEX::AnyCore &core); // all attributes but the number
QString settingText(const Json &value);                 // without quotes

} // namespace Cli

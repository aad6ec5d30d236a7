#pragma once

#include <QList>
#include <QPair>
#include <QString>
#include <QStringList>

#include "check/configuration.h"

namespace Cli {

// Replaces the beginning of full names: "top/u_uart" that of everything in the instance, "top/u0/state" that
// of the net or bus and its bits. Whole components only: "top/u" is no beginning of "top/u0/state".
class Renaming
{
public:
    Renaming() = default;
    // False, with a sentence, when these make no rename. A range that both end in is left out.
    bool set(const QString &from, const QString &to, QString *error);

    QString renamed(const QString &name) const; // the same when it has another beginning

    // Renames clocks, trigger and capture signals and the top module. Gives the old and new name of each row
    // and single net that changed, once, in the order of the file.
    QList<QPair<QString, QString>> apply(RTLJEX::Configuration &configuration) const;

private:
    QString m_from;
    QString m_to;
};

// What no editor lets happen, a sentence for each: names that stand twice in a list, and buses with bits of
// another name.
QStringList brokenRows(const RTLJEX::Configuration &configuration);

} // namespace Cli

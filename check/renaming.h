#pragma once

#include <QList>
#include <QPair>
#include <QString>
#include <QStringList>

#include "check/configuration.h"

namespace RTLJEX {

// Replaces the beginning of full names: "top/u_uart" that of everything in the instance, "top/u0/state" that
// of the net or bus and its bits. Whole components only: "top/u" is no beginning of "top/u0/state".
class Renaming
{
public:
    typedef QList<QPair<QString, QString>> Changes; // old and new name

    Renaming() = default;
    // False, with a sentence, when these make no rename. A range that both end in is left out.
    bool set(const QString &from, const QString &to, QString *error);

    // The rename of a signal that moved with the instance it is in: what both names end in is left out.
    bool setMove(const QString &name, const QString &now, QString *error);

    QString renamed(const QString &name) const; // the same when it has another beginning

    // Renames clocks, trigger and capture signals and the top module. Gives the old and new name of each row
    // and single net that changed, once, in the order of the file.
    Changes apply(Configuration &configuration) const;
    // As above, but no more than the rows and clocks in which these signals stand.
    Changes applyTo(const QList<StaleSignal> &stale, Configuration &configuration) const;

private:
    QString m_from;
    QString m_to;
};

// What no editor lets happen, a sentence for each: names that stand twice in a list, and buses with bits of
// another name.
QStringList brokenRows(const Configuration &configuration);

} // namespace RTLJEX

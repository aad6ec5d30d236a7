#pragma once

#include <QString>
#include <QStringList>

namespace QUARRY {
class RtlNetlist;
}

namespace RTLJEX {

// Why an editor cannot work on a design. Empty title: it can.
struct DesignFault
{
    QString title;
    QString text;
    QStringList details; // the parser's messages, shown in place of the text when there are any

    bool isNull() const { return title.isEmpty(); }
};

// What the parser found out about the project's modules.
struct ModuleFindings
{
    QString top; // the project's top module; empty: none set
    QStringList topModules;
    QStringList modules;
    QStringList messages;
};

DesignFault judgeFiles(const QStringList &files);
DesignFault judgeModules(const ModuleFindings &findings);
// A null netlist is not at fault: the parser has told the user why there is none.
DesignFault judgeNetlist(const QString &top, const QUARRY::RtlNetlist *netlist);

} // namespace RTLJEX

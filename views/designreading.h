#pragma once

#include <QMap>
#include <QString>
#include <QStringList>
#include <QVariant>

class QWidget;
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

// Reads the project's design for an editor and shows the user the first fault found. On success *netlist
// belongs to the caller, and is null when the parser gave none. False too when the editor died while
// a dialog was open.
bool readDesign(QWidget *editor, QUARRY::RtlNetlist **netlist);

// The two steps of reading: which modules there are, and the netlist below the top one (null: failed).
void catchDesignModules(QMap<QString, QVariant> &info, QStringList &topModules, QStringList &modules,
                        QStringList &messages);
QUARRY::RtlNetlist *catchDesignNetlist();

// The project's include paths, made absolute.
QStringList projectIncludePaths();

} // namespace RTLJEX

#pragma once

#include <QString>
#include <QStringList>

namespace QUARRY {
class RtlNetlist;
struct ModuleList;
} // namespace QUARRY

namespace RTLJEX {

// Posted before the user is told that an editor cannot work on a design, with the sentence as "text".
constexpr char DesignRefusedTopic[] = "JEX.Design.Refused";

// Why an editor cannot work on a design. Empty title: it can.
struct DesignFault
{
    QString title;
    QString text;
    QStringList details; // the parser's messages, shown in place of the text when there are any

    QString sentence() const; // both, or what stands above the details

    bool isNull() const { return title.isEmpty(); }
};

// The steps of reading a design, each judged before the next. `top` is the project's top module; empty: none
// set.
// That there are any at all.
DesignFault judgeFiles(const QStringList &files);
// What the tools said of them, and that one module is the top.
DesignFault judgeModules(const QString &top, const QUARRY::ModuleList &found);
// A null netlist is not at fault: the parser has told the user why there is none.
DesignFault judgeNetlist(const QString &top, const QUARRY::RtlNetlist *netlist);

} // namespace RTLJEX

#pragma once

#include <QByteArray>
#include <QList>
#include <QString>
#include <QStringList>

namespace QUARRY {

class SafeNames;

// One finding of a tool.
struct ToolMessage
{
    enum Severity { Error, Warning };
    Severity severity = Error;
    QString code; // Verilator's name for the kind, "PKGNODECL"; may be empty
    QString file; // as the tool names it; empty when the message has no place
    int line = 0;
    int column = 0;
    QString otherFile; // as above: of the declaration that counts, where there are two
    int otherLine = 0;
    QString text;
    QStringList notes; // the indented lines below the message
};

// "%Error-PKGNODECL: a.sv:1:16: text", "%Warning-MULTITOP: a.v:3:8: text", "%Error: text"; source lines
// and carets are left out.
QList<ToolMessage> parseVerilatorMessages(const QByteArray &output);

// The user's name of the file, absolute; empty when the message has no place.
QString realFile(const ToolMessage &message, const SafeNames &names, const QString &workingDir);

// Equal warnings as one, with their number.
QList<ToolMessage> folded(const QList<ToolMessage> &messages);

// "ERROR: /path/a.v:12: text" with the real name of the file. Relative names are taken from workingDir.
QString messageText(const ToolMessage &message, const SafeNames &names, const QString &workingDir);

} // namespace QUARRY

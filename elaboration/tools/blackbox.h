#pragma once

#include <QByteArray>
#include <QHash>
#include <QList>
#include <QPair>
#include <QSet>
#include <QString>
#include <QStringList>

#include "elaboration/tools/designdump.h"
#include "elaboration/tools/toolmessages.h"

namespace QUARRY {

// The modules that the design instantiates but nobody defines: vendor primitives, encrypted cores. Each
// is given a made-up definition with exactly the ports and parameters that the design connects.
class BlackBoxes
{
public:
    void collect(const DesignDump &dump, const QStringList &missing);

    // Adapts the made-up ports to what the tool says of them. False when nothing could be changed.
    bool adapt(const QList<ToolMessage> &errors);

    QByteArray sources() const; // SystemVerilog
    bool isEmpty() const { return m_names.isEmpty(); }
    QStringList names() const { return m_names; } // in the order in which they were found

private:
    struct Box
    {
        QStringList ports;
        QStringList parameters;
        QSet<QString> typeParameters;
        QHash<QString, QString> interfaces; // port to "ifc.modport"
        QHash<QString, int> widths;
        QSet<QString> arrays;
        int positionalPorts = 0;
        int positionalParameters = 0;
    };
    void add(const DumpCell &cell, const DesignDump &dump);
    static bool adaptPort(Box &box, const QString &port, const QString &error);
    void place(const DumpPin &pin, const QString &box, const QString &port);

    QStringList m_names;
    QHash<QString, Box> m_boxes;
    QHash<QString, QPair<QString, QString>> m_places; // "line:column" to box and port
};

} // namespace QUARRY

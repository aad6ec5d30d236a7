#pragma once

#include <QRandomGenerator>

#include "tests/support/signaltext.h"

// Up to six records of all kinds over few names, so that much of it meets: nets, bits of two buses, the buses
// and groups of them, with flags.
class RandomSignals
{
public:
    explicit RandomSignals(quint32 seed) : m_random(seed) {}

    QList<JEX::SignalItem> list()
    {
        QList<JEX::SignalItem> items;
        for (int i = below(7); i > 0; --i)
            items << signalFromText(record());
        return items;
    }
    int below(int limit) { return m_random.bounded(limit); }

private:
    QString flags() { return QString(below(3) ? "" : "!") + (below(6) ? "" : "~") + (below(6) ? "" : "^"); }
    QString single()
    {
        return below(2) ? QString("s:") + "xyz"[below(3)]
                        : QString("b:%1%2").arg("ab"[below(2)]).arg(below(3));
    }
    QString record()
    {
        const int kind = below(4);
        if (kind < 2)
            return flags() + single() + (below(4) ? "" : "=n");
        QStringList members;
        const QChar bus = "ab"[below(2)];
        for (int i = kind == 2 ? 2 : below(4); i >= 0; --i)
            members << flags() + (kind == 2 ? QString("b:%1%2").arg(bus).arg(i) : single());
        const QString name = kind == 2 ? QString("b:") + bus.toUpper()
                                       : QString("g:group_%1[%2:0]").arg(below(2)).arg(members.size() - 1);
        return flags() + name + '{' + members.join(',') + '}';
    }

    QRandomGenerator m_random;
};

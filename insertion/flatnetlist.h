#pragma once

#include <QByteArray>
#include <QHash>
#include <QMap>
#include <QSet>
#include <QString>

#include <vector>

namespace Insertion {

// The top module of a flattened design, from the text of write_rtlil, bit by bit: bits that are joined by
// assignments are one net. Bits have numbers; what is less than 0 is a constant.
class FlatNetlist
{
public:
    struct Wire
    {
        int firstBit = 0;
        int width = 1;
        QByteArray port; // "input", "output", "inout"; empty: none
        QByteArray init; // its initial value, as the text has it
    };
    struct Port
    {
        int name = 0;  // of the pool, as for the type
        int first = 0; // in cellBits(), the least significant bit first
        int width = 0;
    };
    struct Cell
    {
        QByteArray name;
        int type = 0;
        int parameters = 0; // of the pool: all of them as one text
        std::vector<Port> ports;
    };
    enum Constant { Zero = -1, One = -2, Unknown = -3, Open = -4 };

    // False, with a sentence, when it is no such text.
    bool read(const QString &path, QString *error);

    const QMap<QByteArray, Wire> &wires() const { return m_wires; } // in an order that is always the same
    const QMap<QByteArray, QByteArray> &memories() const { return m_memories; } // with their shape
    const std::vector<Cell> &cells() const { return m_cells; }
    int cellBit(const Port &port, int index) const { return m_cellBits[size_t(port.first + index)]; }
    const QByteArray &text(int poolEntry) const { return m_pool[size_t(poolEntry)]; }

    int bitCount() const { return int(m_parents.size()); }
    int netOf(int bit) const; // the bit that stands for the whole net; constants stay
    // The constants that a net is tied to, as a set of 1 << -Constant.
    int constantsOf(int net) const { return m_constants[size_t(net)]; }

private:
    struct Reader;
    int pooled(const QByteArray &text);
    bool parse(QByteArray line, std::vector<int> &bits) const; // a signal; false: not understood
    bool parsePart(const QByteArray &text, int &at, std::vector<int> &bits) const;
    void join(const std::vector<int> &left, const std::vector<int> &right);

    QMap<QByteArray, Wire> m_wires;
    QMap<QByteArray, QByteArray> m_memories;
    std::vector<Cell> m_cells;
    std::vector<int> m_cellBits;
    mutable std::vector<int> m_parents;
    std::vector<uchar> m_constants;
    std::vector<QByteArray> m_pool;
    QHash<QByteArray, int> m_poolNumbers;
};

} // namespace Insertion

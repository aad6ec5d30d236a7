#pragma once

#include "elaboration/reading/vhdlscopes.h"

#include <QByteArray>
#include <QHash>
#include <QStringList>

#include <deque>
#include <vector>

namespace QUARRY {

// The bytes of a wave file. Whatever they are, reading ends: behind the last one, after a number that makes
// no sense, and when what a few of them stand for would fill the memory, all are 0 and isBad() is true.
class GhwInput
{
public:
    explicit GhwInput(const QByteArray &bytes);

    int byte();
    QByteArray text(int size);
    bool skip(int size);
    int number(); // of four bytes, least first
    quint64 unsignedNumber() { return packed(false); }
    qint64 signedNumber() { return qint64(packed(true)); }
    bool isBad() const { return m_isBad; }
    void setBad() { m_isBad = true; }
    // To be called for all that is larger in memory than in the file.
    void spend(size_t bytes);
    void spend(const QString &text) { spend(size_t(text.size()) * sizeof(QChar)); }

private:
    quint64 packed(bool isSigned); // of seven bits a byte

    const QByteArray m_bytes;
    qint64 m_memory; // that is left
    int m_at = 0;
    bool m_isBad = false;
};

struct GhwRange
{
    bool isDownwards = false;
    qint64 left = 0;
    qint64 right = 0;

    qint64 length() const { return qMax<qint64>(0, (isDownwards ? left - right : right - left) + 1); }
};

struct GhwType
{
    enum Kind { Enumeration, Integer, Array, Record, Other };
    Kind kind = Other;
    QString name;       // empty for one without
    QStringList labels; // of an enumeration
    bool isBit = false; // std_ulogic, bit or boolean
    GhwRange range;     // of a scalar
    const GhwType *element = nullptr;
    std::vector<GhwRange> dimensions; // of an array
    int dimensionCount = 0;
    QStringList fieldNames; // of a record
    std::vector<const GhwType *> fields;
    bool isBounded = true;
    qint64 scalars = 1; // that the file counts in a signal of the type
    int levels = 0;     // of types in it
    int width = 0;      // bits, as GHDL translates it; 0: not shown
};

// The types of a wave file, and what a signal of a type is shown as.
class GhwTypes
{
public:
    void read(GhwInput &in, const QStringList &strings);
    const GhwType *find(GhwInput &in) const; // by the number that comes next; null: no such type
    QString readValue(GhwInput &in, const GhwType *type) const;
    void shape(GhwInput &in, const GhwType &type, bool isPort, VhdlSignal &signal) const;

private:
    static void readEnumeration(GhwInput &in, const QStringList &strings, GhwType &type);
    void readRecord(GhwInput &in, const QStringList &strings, GhwType &type) const;
    GhwType readType(GhwInput &in, const QStringList &strings);
    GhwRange readRange(GhwInput &in) const;
    const GhwType *readBounds(GhwInput &in, const GhwType *base);
    const GhwType *keep(GhwType type);
    static GhwType copied(GhwInput &in, const GhwType &type, const QString &name);
    static void measure(GhwType &type);
    static int widthOf(const GhwType &type);
    class Shapes;

    std::deque<GhwType> m_types;  // in the order of their numbers, from 1; each refers to those before it
    std::deque<GhwType> m_bounds; // types without a number
    mutable QHash<const GhwType *, std::shared_ptr<const VhdlElements>> m_shapes[2]; // of signals, of ports
};

} // namespace QUARRY

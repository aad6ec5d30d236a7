#include "elaboration/reading/ghwtypes.h"

namespace QUARRY {
namespace {

// Larger arrays are memories.
const qint64 mostElements = 32;
const qint64 mostBits = 1 << 20; // of a signal that is shown
const int mostLevels = 64;       // of types in types
const qint64 mostScalars = qint64(1) << 30;
// Of memory, for what the file says in few bytes.
const qint64 memoryPerByte = 128;
const qint64 leastMemory = qint64(16) << 20;
const qint64 mostMemory = qint64(1) << 30;

enum GhwKind {
    EnumerationOfTwo = 22,
    Enumeration8 = 23,
    Integer32 = 25,
    Integer64 = 26,
    Real = 27,
    Physical32 = 28,
    Physical64 = 29,
    ArrayType = 31,
    RecordType = 32,
    ScalarSubtype = 34,
    ArraySubtype = 35,
    OpenArraySubtype = 37,
    RecordSubtype = 38,
    OpenRecordSubtype = 39
};

int bitsFor(quint64 count) // of values, from 0 on
{
    int bits = 0;
    while (bits < 63 && (quint64(1) << bits) < count)
        ++bits;
    return bits;
}

QString string(GhwInput &in, const QStringList &strings)
{
    return strings.value(int(qMin<quint64>(in.unsignedNumber(), 1u << 30)));
}

} // namespace

GhwInput::GhwInput(const QByteArray &bytes)
    : m_bytes(bytes), m_memory(qBound(leastMemory, bytes.size() * memoryPerByte, mostMemory))
{
}

void GhwInput::spend(size_t bytes)
{
    m_memory -= qint64(bytes);
    m_isBad = m_isBad || m_memory < 0;
}

int GhwInput::byte()
{
    if (m_at < m_bytes.size() && !m_isBad)
        return uchar(m_bytes.at(m_at++));
    m_isBad = true;
    return 0;
}

QByteArray GhwInput::text(int size)
{
    const QByteArray part = m_bytes.mid(m_at, size);
    skip(size);
    return part;
}

bool GhwInput::skip(int size)
{
    m_isBad = m_isBad || size > m_bytes.size() - m_at;
    m_at = m_isBad ? m_bytes.size() : m_at + size;
    return !m_isBad;
}

int GhwInput::number()
{
    quint32 value = 0;
    for (int i = 0; i < 4; ++i)
        value |= quint32(byte()) << (8 * i);
    return int(qMin(value, quint32(1) << 30));
}

quint64 GhwInput::packed(bool isSigned)
{
    quint64 value = 0;
    for (int shift = 0; shift < 64; shift += 7) {
        const int part = byte();
        value |= quint64(part & 127) << shift;
        if (part >= 128)
            continue;
        if (isSigned && (part & 64) && shift + 7 < 64)
            value |= ~quint64(0) << (shift + 7);
        return value;
    }
    m_isBad = true;
    return 0;
}

void GhwTypes::read(GhwInput &in, const QStringList &strings)
{
    in.skip(4);
    const int count = in.number();
    for (int i = 0; i < count && !in.isBad(); ++i) {
        m_types.push_back(readType(in, strings));
        measure(m_types.back());
    }
    in.skip(1);
}

const GhwType *GhwTypes::find(GhwInput &in) const
{
    const quint64 number = in.unsignedNumber();
    return number > 0 && number <= m_types.size() ? &m_types[size_t(number) - 1] : nullptr;
}

const GhwType *GhwTypes::keep(GhwType type)
{
    m_bounds.push_back(std::move(type));
    measure(m_bounds.back());
    return &m_bounds.back();
}

GhwType GhwTypes::copied(GhwInput &in, const GhwType &type, const QString &name)
{
    in.spend(sizeof type + type.fields.size() * sizeof(GhwType *) +
             type.dimensions.size() * sizeof(GhwRange));
    GhwType copy = in.isBad() ? GhwType() : type;
    copy.name = name;
    return copy;
}

GhwRange GhwTypes::readRange(GhwInput &in) const
{
    GhwRange range;
    const int kind = in.byte();
    range.isDownwards = kind & 128;
    const int plain = kind & 127;
    const bool isByte = plain == EnumerationOfTwo || plain == Enumeration8;
    const bool isReal = plain == Real;
    if (isReal)
        in.skip(16);
    for (qint64 *limit : {&range.left, &range.right}) {
        if (!isReal)
            *limit = isByte ? in.byte() : in.signedNumber();
    }
    const qint64 most = qint64(1) << 40; // no array is so large, and numbers below cannot overflow
    range.left = qBound(-most, range.left, most);
    range.right = qBound(-most, range.right, most);
    return range;
}

void GhwTypes::readEnumeration(GhwInput &in, const QStringList &strings, GhwType &type)
{
    type.kind = GhwType::Enumeration;
    const quint64 count = in.unsignedNumber();
    for (quint64 i = 0; i < count && !in.isBad(); ++i) {
        type.labels.append(string(in, strings) + QLatin1Char('=') + QString::number(i));
        in.spend(type.labels.last());
    }
    type.range.right = qint64(qMin<quint64>(count, 256)) - 1;
    type.isBit = (type.name == QLatin1String("std_ulogic") && count == 9) ||
                 ((type.name == QLatin1String("bit") || type.name == QLatin1String("boolean")) && count == 2);
}

void GhwTypes::readRecord(GhwInput &in, const QStringList &strings, GhwType &type) const
{
    type.kind = GhwType::Record;
    const quint64 count = in.unsignedNumber();
    for (quint64 i = 0; i < count && !in.isBad(); ++i) {
        type.fieldNames.append(string(in, strings));
        type.fields.push_back(find(in));
        if (!type.fields.back())
            in.setBad();
        else
            type.isBounded = type.isBounded && type.fields.back()->isBounded;
    }
}

GhwType GhwTypes::readType(GhwInput &in, const QStringList &strings)
{
    GhwType type;
    const int kind = in.byte();
    type.name = string(in, strings);
    switch (kind) {
    case EnumerationOfTwo:
    case Enumeration8: {
        readEnumeration(in, strings, type);
        break;
    }
    case Integer32:
    case Integer64:
        type.kind = GhwType::Integer;
        type.range.left = -(qint64(1) << 31);
        type.range.right = (qint64(1) << 31) - 1;
        break;
    case Real:
        break;
    case Physical32:
    case Physical64: {
        const quint64 count = in.unsignedNumber();
        for (quint64 i = 0; i < count && !in.isBad(); ++i) {
            string(in, strings);
            in.signedNumber();
        }
        break;
    }
    case ScalarSubtype: {
        if (const GhwType *base = find(in))
            type = copied(in, *base, type.name);
        type.range = readRange(in);
        break;
    }
    case ArrayType: {
        type.kind = GhwType::Array;
        type.isBounded = false;
        type.element = find(in);
        const quint64 count = in.unsignedNumber();
        for (quint64 i = 0; i < count && !in.isBad(); ++i)
            find(in);
        type.dimensionCount = int(qMin<quint64>(count, mostLevels));
        if (count == 0)
            in.setBad();
        break;
    }
    case RecordType:
        readRecord(in, strings, type);
        break;
    case ArraySubtype:
    case RecordSubtype: {
        const GhwType *base = find(in);
        const GhwType *bounded = base ? readBounds(in, base) : nullptr;
        if (bounded)
            type = copied(in, *bounded, type.name.isEmpty() ? base->name : type.name);
        break;
    }
    case OpenArraySubtype:
    case OpenRecordSubtype:
        if (const GhwType *base = find(in))
            type = copied(in, *base, type.name);
        break;
    default:
        in.setBad();
    }
    return type;
}

// The bounds of what the base leaves open.
const GhwType *GhwTypes::readBounds(GhwInput &in, const GhwType *base)
{
    GhwType type = copied(in, *base, base->name);
    type.isBounded = true;
    if (type.levels > mostLevels)
        in.setBad();
    if (type.kind == GhwType::Array) {
        type.dimensions.clear();
        for (int i = 0; i < type.dimensionCount && !in.isBad(); ++i)
            type.dimensions.push_back(readRange(in));
        if (type.element && !type.element->isBounded)
            type.element = in.isBad() ? nullptr : readBounds(in, type.element);
    } else if (type.kind == GhwType::Record) {
        for (const GhwType *&field : type.fields) {
            if (field && !field->isBounded)
                field = in.isBad() ? nullptr : readBounds(in, field);
        }
    }
    return keep(type);
}

int GhwTypes::widthOf(const GhwType &type)
{
    const qint64 low = type.range.isDownwards ? type.range.right : type.range.left;
    const qint64 high = type.range.isDownwards ? type.range.left : type.range.right;
    if (low > high)
        return 0;
    if (low >= 0)
        return bitsFor(quint64(high) + 1);
    return 1 + qMax(bitsFor(quint64(-low)), high < 0 ? 0 : bitsFor(quint64(high) + 1));
}

// What counts too much is cut off: the file holds no such signal.
void GhwTypes::measure(GhwType &type)
{
    qint64 width = 0;
    if (type.kind == GhwType::Enumeration || type.kind == GhwType::Integer) {
        width = type.isBit ? 1 : widthOf(type);
    } else if (type.kind == GhwType::Array) {
        width = type.element ? type.element->width : 0;
        type.scalars = type.element ? type.element->scalars : 0;
        for (const GhwRange &range : type.dimensions) {
            width = qMin(width * qMin(range.length(), mostBits), mostBits);
            type.scalars = qMin(type.scalars * qMin(range.length(), mostScalars), mostScalars);
        }
    } else if (type.kind == GhwType::Record) {
        type.scalars = 0;
        for (const GhwType *field : type.fields) {
            width = qMin(width + (field ? field->width : 0), mostBits);
            type.scalars = qMin(type.scalars + (field ? field->scalars : 0), mostScalars);
        }
    }
    type.width = type.isBounded && width < mostBits ? int(width) : 0;
    for (const GhwType *field : type.fields)
        type.levels = qMax(type.levels, field ? field->levels + 1 : 0);
    type.levels = qMax(type.levels, type.element ? type.element->levels + 1 : 0);
}

QString GhwTypes::readValue(GhwInput &in, const GhwType *type) const
{
    if (type && type->kind == GhwType::Enumeration)
        return type->labels.value(in.byte()).section(QLatin1Char('='), 0, -2);
    return QString::number(in.signedNumber());
}

// Takes elements apart down to what is one net or bus.
class GhwTypes::Shapes
{
public:
    Shapes(GhwInput &in, bool isPort) : m_in(in), m_isPort(isPort) {}

    void add(const GhwType &type, const VhdlElement &place)
    {
        m_in.spend(place.name);
        if (type.width == 0 || type.levels > mostLevels || m_in.isBad())
            return;
        if (type.kind == GhwType::Array)
            return addArray(type, 0, place);
        if (type.kind == GhwType::Record)
            return addRecord(type, place);
        VhdlElement element = place;
        element.isBus = type.width > 1;
        element.left = type.width - 1;
        addShape(type, element);
    }

    VhdlElements elements;

private:
    void addShape(const GhwType &type, VhdlElement &element)
    {
        if (type.kind != GhwType::Array)
            element.type = type.name;
        if (type.kind == GhwType::Enumeration && !type.isBit)
            element.labels = type.labels;
        elements.push_back(element);
    }

    // The leftmost element has the most significant bits.
    void addArray(const GhwType &type, size_t dimension, const VhdlElement &place)
    {
        const GhwRange &range = type.dimensions[dimension];
        const bool isLast = dimension + 1 == type.dimensions.size();
        const bool isScalar =
            type.element->kind == GhwType::Enumeration || type.element->kind == GhwType::Integer;
        VhdlElement element = place;
        if (isLast && isScalar && type.element->width == 1) {
            element.isBus = true;
            element.left = int(range.left);
            element.right = int(range.right);
            return addShape(type, element);
        }
        if (range.length() > mostElements && !m_isPort)
            return;
        int width = type.element->width;
        for (size_t i = dimension + 1; i < type.dimensions.size(); ++i)
            width *= int(type.dimensions[i].length());
        for (int i = 0; i < range.length() && !m_in.isBad(); ++i) {
            const qint64 index = range.isDownwards ? range.left - i : range.left + i;
            element.name = place.name + QLatin1Char('[') + QString::number(index) + QLatin1Char(']');
            element.offset = place.offset + width * int(range.length() - 1 - i);
            if (isLast)
                add(*type.element, element);
            else
                addArray(type, dimension + 1, element);
        }
    }

    // A port of a record type becomes one for each of its members.
    void addRecord(const GhwType &type, const VhdlElement &place)
    {
        VhdlElement element = place;
        for (size_t i = 0; i < type.fields.size() && !m_in.isBad(); ++i) {
            const QString &field = type.fieldNames.at(int(i));
            element.name = place.name + QLatin1Char('.') + field;
            if (place.name.isEmpty()) {
                element.member = field;
                element.memberOffset = element.offset;
                element.memberWidth = type.fields[i]->width;
            }
            add(*type.fields[i], element);
            element.offset += type.fields[i]->width;
        }
    }

    GhwInput &m_in;
    const bool m_isPort;
};

void GhwTypes::shape(GhwInput &in, const GhwType &type, bool isPort, VhdlSignal &signal) const
{
    signal.width = type.width;
    std::shared_ptr<const VhdlElements> &known = m_shapes[isPort ? 1 : 0][&type];
    if (!known) {
        Shapes shapes(in, isPort);
        shapes.add(type, VhdlElement());
        known = std::make_shared<const VhdlElements>(std::move(shapes.elements));
    }
    const bool isWhole = known->size() == 1 && known->front().name.isEmpty();
    signal.hasShape = isWhole;
    signal.isBus = isWhole && known->front().isBus;
    signal.left = isWhole ? known->front().left : 0;
    signal.right = isWhole ? known->front().right : 0;
    if (!isWhole)
        signal.elements = known;
}

} // namespace QUARRY

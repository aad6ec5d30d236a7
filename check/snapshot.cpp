#include "check/snapshot.h"

#include <QCryptographicHash>
#include <QSet>
#include <QStringList>

#include <memory>

#include "check/configuration.h"
#include "model/jex/resourcetable.h"
#include "model/jex/zubfields.h"
#include "model/jex/zubinput.h"
#include "model/jex/zubreader.h"
#include "model/jex/zubwriter.h"

namespace RTLJEX {

namespace {

const char head[] = "jexsnapshot 1";
const char lastLine[] = "end\n";
const int sizeLimit = 64 << 20; // as of a file
const int lineLimit = 64 << 10;

QByteArray encoded(const QString &text)
{
    return text.toUtf8().toPercentEncoding();
}

QString decoded(const QByteArray &word)
{
    return QString::fromUtf8(QByteArray::fromPercentEncoding(word));
}

// One spelling a number.
bool toNumber(const QByteArray &word, int most, int *number)
{
    bool isNumber = false;
    *number = word.toInt(&isNumber);
    return isNumber && *number >= 0 && *number <= most && word == QByteArray::number(*number);
}

QByteArray restOf(const JEX::LeftOut &leftOut)
{
    QByteArray lines;
    if (leftOut.triggerImplementation >= 0)
        lines += "implementation " + QByteArray::number(leftOut.triggerImplementation) + '\n';
    for (int unit : leftOut.units)
        lines += "unit " + QByteArray::number(unit) + '\n';
    for (QMap<int, QString>::const_iterator it = leftOut.expressions.constBegin();
         it != leftOut.expressions.constEnd(); ++it)
        lines += "expression " + QByteArray::number(it.key()) + ' ' + encoded(it.value()) + '\n';
    return lines;
}

bool readLine(const QList<QByteArray> &words, JEX::LeftOut *leftOut)
{
    int number = 0;
    if (words.size() == 2 && words.first() == "implementation")
        return toNumber(words.at(1), JEX_TOOL::ResourceCount - 1, &leftOut->triggerImplementation);
    if (words.size() == 2 && words.first() == "unit") {
        leftOut->units.append(0);
        return toNumber(words.at(1), JEX::UnitCount - 1, &leftOut->units.last());
    }
    if (words.size() != 3 || words.first() != "expression" ||
        !toNumber(words.at(1), JEX::ExpressionLimit - 1, &number))
        return false;
    leftOut->expressions.insert(number, decoded(words.at(2)));
    return true;
}

// What was read has to say the same again.
bool readRest(const QByteArray &rest, JEX::LeftOut *leftOut)
{
    *leftOut = JEX::LeftOut();
    if (rest.size() > lineLimit)
        return false;
    QList<QByteArray> lines = rest.split('\n');
    const bool isWhole = lines.takeLast().isEmpty();
    for (const QByteArray &line : lines) {
        if (!readLine(line.split(' '), leftOut))
            return false;
    }
    return isWhole && restOf(*leftOut) == rest;
}

bool complete(JEX::AoCore *core, const JEX::LeftOut &leftOut)
{
    for (int unit : leftOut.units)
        core->matchUnits.at(unit)->enabled = true;
    const int rows = core->expressions.size() + leftOut.expressions.size();
    return rows <= JEX::ExpressionLimit &&
           (leftOut.expressions.isEmpty() || leftOut.expressions.keys().last() < rows);
}

template <class Core>
bool complete(Core *, const JEX::LeftOut &leftOut)
{
    return restOf(leftOut).isEmpty();
}

// Walks over the bytes; what is not there gives false.
class Cursor
{
public:
    explicit Cursor(const QByteArray &bytes) : m_bytes(bytes) {}

    bool words(QList<QByteArray> *words)
    {
        const int end = m_bytes.indexOf('\n', m_at);
        if (end < 0 || end - m_at > lineLimit)
            return false;
        *words = m_bytes.mid(m_at, end - m_at).split(' ');
        m_at = end + 1;
        return true;
    }
    bool take(const QByteArray &size, QByteArray *part)
    {
        int count = 0;
        if (!toNumber(size, m_bytes.size() - m_at, &count))
            return false;
        *part = m_bytes.mid(m_at, count);
        m_at += count;
        return true;
    }
    bool ends() const
    {
        return m_bytes.size() - m_at == int(sizeof lastLine) - 1 && m_bytes.endsWith(lastLine);
    }

private:
    const QByteArray m_bytes;
    int m_at = 0;
};

bool readHead(Cursor *cursor, Snapshot *snapshot)
{
    QList<QByteArray> words;
    if (!cursor->words(&words) || words.size() != 4 || words.at(0) + ' ' + words.at(1) != head)
        return false;
    snapshot->mode = JEX::modeNamed(QString::fromUtf8(words.at(2)));
    snapshot->file = decoded(words.at(3));
    return snapshot->mode != JEX::InvalidMode;
}

bool readCore(Cursor *cursor, CoreSnapshot *core)
{
    QList<QByteArray> words;
    if (!cursor->words(&words) || words.size() != 6 || words.first() != "core" ||
        !toNumber(words.at(2), JEX::CoreLimit - 1, &core->number))
        return false;
    core->identity = words.at(1).toULongLong();
    core->digest = words.at(5);
    return words.at(1) == QByteArray::number(core->identity) && cursor->take(words.at(3), &core->zub) &&
           cursor->take(words.at(4), &core->rest);
}

template <class Core>
bool pack(Core *core, const JEX::LeftOut &leftOut, CoreSnapshot *packed)
{
    QString error;
    packed->number = core->coreNumber;
    packed->zub.clear();
    packed->rest = restOf(leftOut);
    core->coreNumber = 0;
    const bool isPacked = JEX::zubFromCores(QList<Core *>() << core, &packed->zub, &error);
    core->coreNumber = packed->number;
    packed->digest = snapshotDigest(*packed);
    return isPacked;
}

template <class Core>
bool unpack(const CoreSnapshot &packed, JEX::LeftOut *leftOut, QList<Core *> *list)
{
    QString error;
    const QString name = QLatin1String("snapshot");
    if (packed.digest != snapshotDigest(packed) || !readRest(packed.rest, leftOut) ||
        !JEX::keepsZubBounds(packed.zub, name, &error))
        return false;
    const QList<Core *> cores = JEX::ZubReader(packed.zub, name).cores<Core>();
    if (cores.size() == 1 && complete(cores.first(), *leftOut)) {
        cores.first()->coreNumber = packed.number;
        list->append(cores.first());
        return true;
    }
    qDeleteAll(cores);
    return false;
}

} // namespace

QByteArray snapshotDigest(const CoreSnapshot &core)
{
    QCryptographicHash hash(QCryptographicHash::Sha1);
    hash.addData(core.zub);
    hash.addData(core.rest);
    return hash.result().toHex();
}

bool CoreSnapshot::showsSame(const CoreSnapshot &other) const
{
    return digest == other.digest && rest == other.rest && zub == other.zub;
}

bool operator==(const CoreSnapshot &a, const CoreSnapshot &b)
{
    return a.identity == b.identity && a.number == b.number && a.showsSame(b);
}

bool packCore(JEX::CorePointer core, const JEX::LeftOut &leftOut, CoreSnapshot *packed)
{
    return std::visit([&](auto *record) { return pack(record, leftOut, packed); }, core);
}

bool unpackCore(const CoreSnapshot &packed, JEX::LeftOut *leftOut, JEX::CoreList *cores)
{
    return std::visit([&](auto &list) { return unpack(packed, leftOut, &list); }, *cores);
}

QByteArray Snapshot::toBytes() const
{
    int size = lineLimit;
    for (const CoreSnapshot &core : cores)
        size += 256 + core.zub.size() + core.rest.size();
    QByteArray bytes;
    bytes.reserve(size);
    bytes += QByteArray(head) + ' ' + JEX::modeName(mode) + ' ' + encoded(file) + '\n';
    for (const CoreSnapshot &core : cores) {
        bytes += "core " + QByteArray::number(core.identity) + ' ' + QByteArray::number(core.number) + ' ' +
                 QByteArray::number(core.zub.size()) + ' ' + QByteArray::number(core.rest.size()) + ' ' +
                 core.digest + '\n';
        bytes += core.zub;
        bytes += core.rest;
    }
    bytes += lastLine;
    return bytes;
}

bool Snapshot::fromBytes(const QByteArray &bytes, Snapshot *snapshot)
{
    *snapshot = Snapshot();
    Cursor cursor(bytes);
    if (bytes.size() > sizeLimit || !readHead(&cursor, snapshot))
        return false;
    QSet<int> numbers;
    QSet<quint64> identities;
    while (!cursor.ends()) {
        snapshot->cores.append(CoreSnapshot());
        const CoreSnapshot &core = snapshot->cores.last();
        if (snapshot->cores.size() > JEX::CoreLimit || !readCore(&cursor, &snapshot->cores.last()) ||
            numbers.contains(core.number) || identities.contains(core.identity))
            return false;
        numbers.insert(core.number);
        identities.insert(core.identity);
    }
    return !snapshot->cores.isEmpty();
}

bool readSnapshot(const Snapshot &snapshot, Configuration *configuration)
{
    Configuration fresh(snapshot.mode);
    for (const CoreSnapshot &packed : snapshot.cores) {
        JEX::LeftOut leftOut;
        if (!unpackCore(packed, &leftOut, &fresh.coreList()))
            return false;
    }
    configuration->swap(fresh);
    return true;
}

} // namespace RTLJEX

#include "host/jsonfault.h"

#include <QList>
#include <QSet>
#include <QStringList>

#include <nlohmann/json.hpp>

#include "host/utf8.h"

namespace Core {
namespace {

// Finds out where and why a text is no JSON, which the reading that builds the document only says by
// throwing, and what that reading would pass over: a key that stands twice.
class FaultFinder : public nlohmann::json_sax<nlohmann::json>
{
public:
    QString fault;

    explicit FaultFinder(const QByteArray &bytes) : m_bytes(bytes) {}

    bool null() override { return value(); }
    bool boolean(bool) override { return value(); }
    bool number_integer(number_integer_t) override { return value(); }
    bool number_unsigned(number_unsigned_t) override { return value(); }
    bool number_float(number_float_t, const string_t &) override { return value(); }
    bool string(string_t &) override { return value(); }
    bool binary(binary_t &) override { return value(); }
    bool start_object(std::size_t) override { return begin(false); }
    bool start_array(std::size_t) override { return begin(true); }
    bool end_object() override { return end(); }
    bool end_array() override { return end(); }

    bool key(string_t &text) override
    {
        Level &level = m_levels.last();
        level.key = QUtil::fromUtf8(text);
        if (!level.keys.contains(level.key)) {
            level.keys.insert(level.key);
            return true;
        }
        QStringList place;
        for (const Level &outer : m_levels)
            place << (outer.isList ? QString::fromLatin1("entry %1").arg(outer.entries)
                                   : QLatin1Char('"') + outer.key + QLatin1Char('"'));
        return fail(place.join(QLatin1String(", ")) + QLatin1String(" stands twice."));
    }

    bool parse_error(std::size_t at, const std::string &last,
                     const nlohmann::detail::exception &cause) override
    {
        // "[json.exception.parse_error.101] parse error at line 3, column 5: ... - unexpected '}'; expected
        // ..."
        const QString text = QUtil::fromUtf8(cause.what());
        const QString reason =
            cause.id == outOfRange
                ? QString::fromLatin1("the number %1 is too large").arg(QUtil::fromUtf8(last))
                : text.mid(text.indexOf(QLatin1String(" - ")) + 3);
        const int line = 1 + m_bytes.left(int(at) - 1).count('\n');
        return fail(QString::fromLatin1("line %1: %2.").arg(QString::number(line), reason));
    }

private:
    static const int outOfRange = 406; // as the library numbers its faults
    static const int depthLimit = 16;

    struct Level
    {
        bool isList = false;
        int entries = 0;
        QString key; // the last one
        QSet<QString> keys;
    };

    bool fail(const QString &text)
    {
        fault = text;
        return false;
    }
    bool value()
    {
        if (!m_levels.isEmpty())
            ++m_levels.last().entries;
        return true;
    }
    bool begin(bool isList)
    {
        value();
        if (m_levels.size() == depthLimit)
            return fail(QString::fromLatin1("it is nested more than %1 deep.").arg(int(depthLimit)));
        m_levels.append(Level());
        m_levels.last().isList = isList;
        return true;
    }
    bool end()
    {
        m_levels.removeLast();
        return true;
    }

    const QByteArray &m_bytes;
    QList<Level> m_levels;
};

} // namespace

QString jsonFault(const QByteArray &bytes)
{
    FaultFinder finder(bytes);
    nlohmann::json::sax_parse(bytes.constData(), bytes.constData() + bytes.size(), &finder);
    return finder.fault;
}

} // namespace Core

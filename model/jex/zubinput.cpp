#include "model/jex/zubinput.h"

#include <QCoreApplication>
#include <QRegExp>

#include <cstring>

#include "host/backupfile.h"
#include "host/regularfile.h"
#include "model/jex/zubtokens.h"

namespace JEX {

namespace {

const qint64 sizeLimit = 64 * QUtil::MiB;
const int attributeLimit = 64; // the XML reader compares each with each

// Finds out, in one pass, whether the text keeps to what the XML reader can be given. Follows the grammar
// only as far as it has to: where the text breaks it, the reader stops, too.
class BoundsCheck
{
public:
    explicit BoundsCheck(const QByteArray &bytes)
        : m_begin(bytes.constData()), m_at(m_begin), m_end(m_begin + bytes.size())
    {
    }

    QString fault; // empty: it keeps to them

    void run()
    {
        // The bytes that make up the markup are those of ASCII in UTF-8, and in no other encoding for sure.
        if (isUtf16())
            return fail(latin("it is not in UTF-8."));
        while (fault.isEmpty() && moveTo('<')) {
            if (skips("<!--")) {
                moveBehind("-->");
            } else if (skips("<![CDATA[")) {
                moveBehind("]]>");
            } else if (starts("<!DOCTYPE")) {
                fail(latin("a configuration holds no document type declaration."));
            } else if (starts("<?")) {
                checkEncoding();
                skips("<?");
                moveBehind("?>");
            } else {
                checkElement();
            }
        }
    }

    int line() const { return 1 + QByteArray::fromRawData(m_begin, int(m_at - m_begin)).count('\n'); }

private:
    bool isUtf16() const
    {
        return m_end - m_begin > 1 &&
               (m_begin[0] == 0 || m_begin[1] == 0 || std::memcmp(m_begin, "\xff\xfe", 2) == 0 ||
                std::memcmp(m_begin, "\xfe\xff", 2) == 0);
    }

    bool starts(const char *text) const
    {
        const size_t size = std::strlen(text);
        return size_t(m_end - m_at) >= size && std::memcmp(m_at, text, size) == 0;
    }

    bool skips(const char *text)
    {
        const bool found = starts(text);
        m_at += found ? std::strlen(text) : 0;
        return found;
    }

    // To the next such character; false, and at the end, when there is none.
    bool moveTo(char character)
    {
        const void *found = std::memchr(m_at, character, size_t(m_end - m_at));
        m_at = found ? static_cast<const char *>(found) : m_end;
        return found;
    }

    void moveBehind(const char *text)
    {
        while (moveTo(*text) && !skips(text))
            ++m_at;
    }

    // What the XML reader would take for another encoding it would decode to another text than this one.
    void checkEncoding()
    {
        const int most = 1024;
        const QString text = QString::fromLatin1(m_at, int(qMin<qint64>(m_end - m_at, most)));
        const int end = text.indexOf(latin("?>"));
        QRegExp encoding(latin("\\sencoding\\s*=\\s*[\"']([^\"']*)"));
        if (!text.contains(QRegExp(latin("^<\\?xml\\s"))))
            return;
        if (end < 0)
            fail(latin("its XML declaration does not end."));
        else if (encoding.indexIn(text.left(end)) >= 0 &&
                 !QRegExp(latin("utf-?8"), Qt::CaseInsensitive).exactMatch(encoding.cap(1)))
            fail(latin("it is not in UTF-8."));
    }

    void checkElement()
    {
        int attributes = 0;
        for (++m_at; m_at != m_end;) {
            const char found = *m_at++;
            if (found == '>')
                return;
            if (found == '=' && ++attributes > attributeLimit)
                return fail(latin("an element has more than ") + QString::number(attributeLimit) +
                            latin(" attributes."));
            if ((found == '"' || found == '\'') && moveTo(found))
                ++m_at;
        }
    }

    void fail(const QString &text) { fault = text; }

    const char *m_begin;
    const char *m_at;
    const char *m_end;
};

bool fail(const QString &name, const QString &reason, QString *error)
{
    *error =
        QCoreApplication::translate("JEX::JexFile", "The file \"%1\" cannot be read: %2.").arg(name, reason);
    return false;
}

} // namespace

bool keepsZubBounds(const QByteArray &bytes, const QString &name, QString *error)
{
    BoundsCheck check(bytes);
    check.run();
    if (!check.fault.isEmpty())
        *error = latin("Line ") + QString::number(check.line()) + latin(" of the file \"") + name +
                 latin("\": ") + check.fault;
    return check.fault.isEmpty();
}

bool readZubFile(const QString &path, QByteArray *bytes, QString *error)
{
    QString reason = QUtil::pendingBackupFault(path);
    if (!reason.isEmpty() || !QUtil::readRegularFile(path, sizeLimit, bytes, &reason))
        return fail(path, reason, error);
    return keepsZubBounds(*bytes, path, error);
}

bool readZubInput(const QString &word, QByteArray *bytes, QString *error)
{
    if (!QUtil::isStreamName(word))
        return readZubFile(word, bytes, error);
    QString reason;
    if (!QUtil::readFileOrStream(word, sizeLimit, bytes, &reason))
        return fail(word, reason, error);
    return keepsZubBounds(*bytes, word, error);
}

} // namespace JEX

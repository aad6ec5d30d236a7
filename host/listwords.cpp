#include "host/listwords.h"

#include <QDir>
#include <QRegExp>
#include <QSet>

namespace Core {
namespace {

class Words
{
public:
    Words(const QString &text, const QString &list) : m_text(text), m_list(list), m_at(0), m_line(1) {}

    QStringList faults;

    QList<ListWord> all()
    {
        QList<ListWord> words;
        while (skipBlanksAndComments()) {
            ListWord word = {QString(), m_line, true};
            while (m_at < m_text.size() && !next().isSpace() && !atContinuation())
                takeOne(word);
            words.append(word);
        }
        return words;
    }

private:
    QChar next(int offset = 0) const
    {
        return m_at + offset < m_text.size() ? m_text.at(m_at + offset) : QChar();
    }

    bool atContinuation() const { return next() == QLatin1Char('\\') && next(1) == QLatin1Char('\n'); }

    void advance(int count = 1)
    {
        for (; count > 0 && m_at < m_text.size(); --count)
            m_line += m_text.at(m_at++) == QLatin1Char('\n');
    }

    // False at the end of the text.
    bool skipBlanksAndComments()
    {
        while (m_at < m_text.size()) {
            const QChar c = next();
            if (c.isSpace() || atContinuation())
                advance();
            else if (c == QLatin1Char('#') || (c == QLatin1Char('/') && next(1) == QLatin1Char('/')))
                skipTo(QLatin1String("\n"), false);
            else if (c == QLatin1Char('/') && next(1) == QLatin1Char('*'))
                skipTo(QLatin1String("*/"), true);
            else
                return true;
        }
        return false;
    }

    void skipTo(const QString &end, bool required)
    {
        const int found = m_text.indexOf(end, m_at);
        if (found < 0 && required)
            fail(m_line, QLatin1String("this comment does not end."));
        advance((found < 0 ? m_text.size() : found + end.size()) - m_at);
    }

    void takeOne(ListWord &word)
    {
        const QChar c = next();
        if (c == QLatin1Char('"')) {
            takeQuoted(word);
        } else if (c == QLatin1Char('$')) {
            takeVariable(word);
        } else {
            if (c == QLatin1Char('\\') && (next(1) == QLatin1Char(' ') || next(1) == QLatin1Char('"')))
                advance();
            word.text.append(next());
            advance();
        }
    }

    void takeQuoted(ListWord &word)
    {
        const int begin = m_line;
        for (advance(); m_at < m_text.size() && next() != QLatin1Char('"');) {
            if (next() == QLatin1Char('$')) {
                takeVariable(word);
                continue;
            }
            if (next() == QLatin1Char('\\') && (next(1) == QLatin1Char('"') || next(1) == QLatin1Char('\\')))
                advance();
            word.text.append(next());
            advance();
        }
        if (m_at >= m_text.size())
            fail(begin, QLatin1String("these quotes do not end."));
        advance();
    }

    // $NAME, ${NAME} or $(NAME); a dollar sign that no name follows is itself.
    void takeVariable(ListWord &word)
    {
        QRegExp form(QLatin1String("\\$(?:(\\w+)|\\{(\\w+)\\}|\\((\\w+)\\))"));
        if (form.indexIn(m_text, m_at, QRegExp::CaretAtOffset) != m_at) {
            word.text.append(next());
            advance();
            return;
        }
        const QString name = form.cap(1) + form.cap(2) + form.cap(3);
        const QByteArray value = qgetenv(name.toLocal8Bit().constData());
        if (value.isNull() && !m_unset.contains(name)) {
            fail(m_line, QString::fromLatin1("the environment variable \"%1\" is not set.").arg(name));
            m_unset.insert(name);
        }
        word.isWhole = word.isWhole && !value.isNull();
        word.text.append(QString::fromLocal8Bit(value));
        advance(form.matchedLength());
    }

    void fail(int line, const QString &fault) { faults.append(placeInList(m_list, line) + fault); }

    QString m_text;
    QString m_list;
    int m_at;
    int m_line;
    QSet<QString> m_unset;
};

} // namespace

QString placeInList(const QString &list, int line)
{
    return QString::fromLatin1("%1:%2: ").arg(QDir::toNativeSeparators(list), QString::number(line));
}

QList<ListWord> splitFileList(const QString &text, const QString &list, QStringList &faults)
{
    Words words(text, list);
    const QList<ListWord> all = words.all();
    faults += words.faults;
    return all;
}

} // namespace Core

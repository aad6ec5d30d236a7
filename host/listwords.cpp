#include "host/listwords.h"

#include <QDir>
#include <QSet>

#include "host/variable.h"

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

    void takeVariable(ListWord &word)
    {
        Variable variable;
        if (!readVariable(m_text, m_at, variable)) {
            word.text.append(next());
            advance();
            return;
        }
        if (!variable.isSet && !m_unset.contains(variable.name)) {
            fail(m_line, variable.fault());
            m_unset.insert(variable.name);
        }
        word.isWhole = word.isWhole && variable.isSet;
        word.text.append(variable.value);
        advance(variable.length);
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

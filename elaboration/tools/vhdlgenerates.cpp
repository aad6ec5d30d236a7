#include "elaboration/tools/vhdlgenerates.h"

#include <vector>

#include "elaboration/reading/vhdlwords.h"
#include "elaboration/tools/sourcetext.h"

namespace QUARRY {
namespace {

// Of what takes the place of the statements. A selector and its choices are short.
const int mostWritten = 16 * 1024 * 1024;

class CaseGenerates
{
public:
    explicit CaseGenerates(const QByteArray &text) : m_text(withoutComments(text, VhdlSource)), m_words(text)
    {
    }

    struct Edit
    {
        int begin, end;
        QByteArray by;
    };

    std::vector<Edit> find()
    {
        for (m_at = 0; m_at < m_words.count() && m_written < mostWritten; ++m_at) {
            const bool isEnd = is("end", -1);
            if (isEnd && is("generate"))
                pop(false);
            else if (isEnd && is("case"))
                pop(true);
            else if (is("case"))
                open(m_at);
            else if (is(":") && (is("for", 1) || is("if", 1)))
                open(m_at + 1);
            else if (is("when") && !m_open.empty() && m_open.back().isCase &&
                     (is(";", -1) || is("generate", -1) || is(">", -1)))
                replaceAlternative();
        }
        if (m_written >= mostWritten)
            m_edits.clear();
        return m_edits;
    }

private:
    struct Statement
    {
        bool isSequential = false; // "case x is"
        bool isCase = false;       // "case x generate"
        bool anyAlternative = false;
        QByteArray selector;
    };

    bool is(const char *word, int ahead = 0) const { return m_words.at(m_at + ahead).is(word); }

    void pop(bool isSequential)
    {
        if (!m_open.empty() && m_open.back().isSequential == isSequential)
            m_open.pop_back();
    }

    // From "case", "for" or "if" on.
    void open(int first)
    {
        int last = first + 1;
        while (last < m_words.count() && !m_words.at(last).is("generate") && !m_words.at(last).is("is") &&
               !m_words.at(last).is("then") && !m_words.at(last).is("loop") && !m_words.at(last).is(";"))
            ++last;
        Statement statement;
        const bool isCase = m_words.at(first).is("case");
        statement.isSequential = isCase && m_words.at(last).is("is");
        statement.isCase = isCase && m_words.at(last).is("generate");
        if (statement.isCase) {
            statement.selector = textOf(first + 1, last);
            m_edits.push_back({m_words.at(first).at, m_words.at(last).end(), QByteArray()});
        }
        if (statement.isSequential || m_words.at(last).is("generate"))
            m_open.push_back(statement);
        m_at = last;
    }

    // The text of the words from `first` to before `end`, with strings, which are none.
    QByteArray textOf(int first, int end) const
    {
        const int begin = m_words.at(first - 1).end();
        return m_text.mid(begin, m_words.at(end).at - begin).simplified();
    }

    // "when label : 1 | 3 to 5 =>"
    void replaceAlternative()
    {
        Statement &statement = m_open.back();
        const int first = m_at;
        int choice = m_at + 1;
        QByteArray label;
        if (m_words.at(choice).isName() && m_words.at(choice + 1).is(":")) {
            label = textOf(choice, choice + 1) + " : ";
            choice += 2;
        }
        QByteArray condition;
        int depth = 0;
        int direction = 0;
        for (m_at = choice; m_at < m_words.count() && m_written < mostWritten && !is(";"); ++m_at) {
            depth += is("(") ? 1 : is(")") ? -1 : 0;
            const bool isLast = depth == 0 && is("=") && is(">", 1);
            if (depth == 0 && (is("to") || is("downto")))
                direction = m_at;
            if (!isLast && !(depth == 0 && is("|")))
                continue;
            const QByteArray tested = test(statement, choice, direction, m_at);
            m_written += tested.size();
            condition += (condition.isEmpty() ? "" : " or ") + tested;
            choice = m_at + 1;
            direction = 0;
            if (isLast)
                break;
        }
        const bool isElse = statement.anyAlternative && condition == "true";
        const QByteArray word = isElse ? "else " : statement.anyAlternative ? "elsif " : "if ";
        statement.anyAlternative = true;
        condition = isElse ? QByteArray() : condition + ' ';
        m_edits.push_back(
            {m_words.at(first).at, m_words.at(++m_at).end(), word + label + condition + "generate"});
    }

    QByteArray test(const Statement &statement, int first, int direction, int end) const
    {
        if (m_words.at(first).is("others"))
            return "true";
        const QByteArray value = '(' + statement.selector + ')';
        if (direction == 0)
            return '(' + value + " = " + textOf(first, end) + ')';
        const bool isUp = m_words.at(direction).is("to");
        return '(' + value + (isUp ? " >= " : " <= ") + textOf(first, direction) + " and " + value +
               (isUp ? " <= " : " >= ") + textOf(direction + 1, end) + ')';
    }

    const QByteArray m_text;
    const VhdlWords m_words;
    std::vector<Statement> m_open;
    std::vector<Edit> m_edits;
    int m_at = 0;
    int m_written = 0;
};

} // namespace

bool replaceCaseGenerates(QByteArray &text)
{
    const std::vector<CaseGenerates::Edit> edits = CaseGenerates(text).find();
    QByteArray result;
    int copied = 0;
    for (const CaseGenerates::Edit &edit : edits) {
        result += text.mid(copied, edit.begin - copied) + edit.by;
        result += QByteArray(text.mid(edit.begin, edit.end - edit.begin).count('\n'), '\n');
        copied = edit.end;
    }
    text = result + text.mid(copied);
    return !edits.empty();
}

} // namespace QUARRY

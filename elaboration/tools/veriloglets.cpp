#include "elaboration/tools/veriloglets.h"

#include <cctype>

#include "elaboration/tools/verilogtokens.h"

namespace QUARRY {
namespace {

const int longestExpansion = 64 * 1024;
const int mostExpanded = 16 * 1024 * 1024; // of one source
const int mostLevels = 64;                 // of uses in the arguments of uses
const int mostTokens = 1000;               // of a use
const int longestLine = 4096;              // that names a file
const int mostImported = 100 * 1000;       // lets of one source
const int lettersPerToken = 64;            // of an expansion, which takes as long to write
const int mostLookedAt = 1000 * 1000;      // tokens of uses in one source, each time they are

struct Range
{
    int from;
    int end;
};

void append(LetText &text, const LetText &more)
{
    text.texts.last() += more.texts.first();
    text.texts += more.texts.mid(1);
    text.formals += more.formals;
    text.size += more.size - 1;
}

void append(LetText &text, const QByteArray &more)
{
    text.texts.last() += more;
    text.size += more.size();
}

class LetExpander
{
public:
    LetExpander(QByteArray &text, BlankedNames &names) : m_text(text), m_tokens(text), m_names(names) {}

    bool run()
    {
        for (int i = 0; i < m_tokens.size() && m_expanded.size() - m_done < mostExpanded;)
            i = qMax(i + 1, take(i));
        if (m_done == 0)
            return false;
        m_text = m_expanded + m_text.mid(m_done);
        return true;
    }

private:
    struct Use
    {
        int end = 0; // 0: it is none
        LetText text;
    };
    struct Declared
    {
        int depth;
        VerilogLet let;
    };

    // The token behind what was taken; `i` when it was nothing.
    int take(int i)
    {
        if (m_tokens.at(i).define)
            return i;
        followScope(i);
        if (m_tokens.is(i, "let") && m_tokens.isName(i + 1) && m_tokens.isAny(i + 2, {"(", "="}))
            return declare(i);
        if (m_tokens.is(i, "import"))
            return takeImport(i);
        if (m_tokens.is(i, "`include"))
            takeInclude(i);
        const Use use = m_lets.isEmpty() && m_names.lets.isEmpty() ? Use() : useAt(i, QList<QByteArray>(), 0);
        if (use.end)
            replace({i, use.end}, use.text.texts.first());
        return use.end;
    }

    // Names are known up to the end of the block, or of the module or package, that declares them.
    void followScope(int i)
    {
        if (m_tokens.is(i, "begin")) {
            ++m_depth;
        } else if (m_depth == 0 &&
                   m_tokens.isAny(i, {"module", "macromodule", "package", "interface", "program"})) {
            m_depth = 1;
            const int name = m_tokens.isAny(i + 1, {"automatic", "static"}) ? i + 2 : i + 1;
            m_package = m_tokens.is(i, "package") ? m_tokens.word(name) : QByteArray();
        } else if (m_tokens.is(i, "end")) {
            leave(qMax(m_depth - 1, 1));
        } else if (m_tokens.isAny(i, {"endmodule", "endpackage", "endinterface", "endprogram"})) {
            leave(0);
            m_package.clear();
        }
    }

    void leave(int depth)
    {
        m_depth = depth;
        while (!m_declared.isEmpty() && m_lets[m_declared.last()].last().depth > depth)
            m_lets[m_declared.takeLast()].removeLast();
    }

    int declare(int i)
    {
        VerilogLet let;
        const int equals = m_tokens.is(i + 2, "(") ? behindParentheses(i + 2) : i + 2;
        const int end = endOf(equals, ";", qMin(m_tokens.size(), equals + reach()));
        if (!m_tokens.is(equals, "=") || !m_tokens.is(end, ";"))
            return i;
        let.isKnown = (equals == i + 2 || readFormals({i + 3, equals - 1}, let)) && !holdsDirective(i, end);
        let.expression = rendered({equals + 1, end}, let.formals, 1);
        let.isKnown = let.isKnown && let.expression.size < longestExpansion;
        addHere(m_tokens.word(i + 1), let);
        publish(m_tokens.word(i + 1), let);
        return end;
    }

    // For other sources.
    void publish(const QByteArray &name, const VerilogLet &let)
    {
        if (m_depth == 1 && !m_package.isEmpty())
            m_names.lets[m_package].insert(name, let);
        else if (m_depth == 0 && !m_names.file.isEmpty())
            m_names.includables[m_names.file].insert(name, let);
    }

    void addHere(const QByteArray &name, VerilogLet let)
    {
        QList<Declared> &lets = m_lets[name];
        if (lets.isEmpty() || lets.last().depth != m_depth) {
            lets.append({m_depth, let});
            m_declared.append(name);
            return;
        }
        VerilogLet &other = lets.last().let; // as in two branches of `ifdef
        other.isKnown = let.isKnown && other.isKnown && other.formals == let.formals &&
                        other.defaults == let.defaults && other.expression.texts == let.expression.texts &&
                        other.expression.formals == let.expression.formals;
    }

    // "a", "untyped b = 1", "logic [3:0] c"
    bool readFormals(Range ports, VerilogLet &let)
    {
        for (const Range &port : parts(ports)) {
            const int value = endOf(port.from, "=", port.end);
            QByteArray name;
            for (int i = port.from; i < value; ++i) {
                if (m_tokens.is(i, "["))
                    i = behindParentheses(i) - 1;
                else if (m_tokens.isName(i))
                    name = m_tokens.word(i);
            }
            if (name.isEmpty())
                return port.from == port.end && let.formals.isEmpty();
            let.formals.append(name);
            const Range given = {value + 1, port.end};
            let.defaults.append(value < port.end ? rendered(given, QList<QByteArray>(), 1).texts.first()
                                                 : QByteArray());
        }
        return true;
    }

    // One that may choose between texts.
    bool holdsDirective(int from, int end) const
    {
        for (int i = from; i < end; ++i) {
            if (m_tokens.isAny(i, {"`ifdef", "`ifndef", "`elsif", "`else", "`endif", "`include", "`define"}))
                return true;
        }
        return false;
    }

    // A name in quotes is no token.
    void takeInclude(int i)
    {
        QByteArray line = m_text.mid(m_tokens.at(i).end, longestLine);
        line.truncate(qMax(0, line.indexOf('\n')));
        const QByteArray name = line.trimmed().split('"').value(1);
        const VerilogLets lets = m_names.includables.value(name.mid(name.lastIndexOf('/') + 1));
        addAll(lets);
        for (auto let = lets.begin(); let != lets.end() && m_imported < mostImported; ++let)
            publish(let.key(), let.value());
    }

    void addAll(const VerilogLets &lets)
    {
        for (auto let = lets.begin(); let != lets.end() && ++m_imported < mostImported; ++let)
            addHere(let.key(), let.value());
    }

    // "import p::*, q::either;": what is a `let` cannot be imported by its name any more.
    int takeImport(int i)
    {
        for (++i; m_tokens.isName(i) && isScope(i + 1); i += m_tokens.is(i, ",") ? 1 : 0) {
            const VerilogLets lets = m_names.lets.value(m_tokens.word(i));
            const QByteArray name = m_tokens.word(i + 3);
            if (name == "*")
                addAll(lets);
            if (lets.contains(name)) {
                addHere(name, lets.value(name));
                replace({i + 3, i + 4}, "*");
            }
            i += 4;
        }
        return i;
    }

    // The expansion of a use that begins at a token, where these formal arguments are known.
    Use useAt(int i, const QList<QByteArray> &formals, int level) const
    {
        Use use;
        const bool isQualified =
            isScope(i + 1) && m_names.lets.value(m_tokens.word(i)).contains(m_tokens.word(i + 3));
        const int name = isQualified ? i + 3 : i;
        if (level > mostLevels || m_lookedAt > mostLookedAt || !isPlainName(i) ||
            (!isQualified && !m_lets.contains(m_tokens.word(i))))
            return use;
        const QList<Declared> known = m_lets.value(m_tokens.word(name));
        if (!isQualified && known.isEmpty())
            return use;
        const VerilogLet let =
            isQualified ? m_names.lets.value(m_tokens.word(i)).value(m_tokens.word(name)) : known.last().let;
        const bool hasArguments =
            m_tokens.is(name + 1, "(") && (!let.formals.isEmpty() || m_tokens.is(name + 2, ")"));
        const int end = hasArguments ? behindParentheses(name + 1) : name + 1;
        if (!let.isKnown || (hasArguments && !m_tokens.is(end - 1, ")")))
            return use;
        QList<LetText> given;
        const Range between = {name + 2, hasArguments ? end - 1 : name + 2};
        if (readArguments(between, let, formals, level, given)) {
            use.text = substituted(let.expression, given);
            m_lookedAt += use.text.size / lettersPerToken + let.expression.formals.size();
            use.end = use.text.size < longestExpansion ? end : 0;
        }
        return use;
    }

    bool readArguments(Range between, const VerilogLet &let, const QList<QByteArray> &formals, int level,
                       QList<LetText> &given) const
    {
        for (const QByteArray &value : let.defaults) {
            given.append(LetText());
            append(given.last(), value.isEmpty() ? value : '(' + value + ')');
        }
        int position = 0;
        for (Range part : parts(between)) {
            int formal = position++;
            if (m_tokens.is(part.from, ".")) {
                formal = let.formals.indexOf(m_tokens.word(part.from + 1));
                part = {part.from + 3, part.end - 1};
            }
            if (part.from >= part.end)
                continue;
            if (formal < 0 || formal >= given.size())
                return false;
            const LetText value = rendered(part, formals, level + 1);
            given[formal] = LetText();
            append(given[formal], isOperand(part) ? "" : "(");
            append(given[formal], value);
            append(given[formal], isOperand(part) ? "" : ")");
        }
        for (const LetText &value : given) {
            if (value.size < 2)
                return false;
        }
        return true;
    }

    static LetText substituted(const LetText &expression, const QList<LetText> &given)
    {
        LetText text;
        append(text, "(" + expression.texts.first());
        for (int i = 0; i < expression.formals.size() && text.size < longestExpansion; ++i) {
            append(text, given.at(expression.formals.at(i)));
            append(text, expression.texts.at(i + 1));
        }
        append(text, ")");
        return text;
    }

    // The text of an expression on one line.
    LetText rendered(Range range, const QList<QByteArray> &formals, int level) const
    {
        LetText text;
        for (int i = range.from; i < range.end && text.size < longestExpansion;) {
            ++m_lookedAt;
            if (i > range.from)
                append(text, gapBefore(i));
            const int formal = isPlainName(i) ? formals.indexOf(m_tokens.word(i)) : -1;
            const Use use = formal < 0 ? useAt(i, formals, level) : Use();
            if (formal >= 0) {
                text.formals.append(formal);
                text.texts.append(QByteArray());
                ++text.size;
            } else if (use.end) {
                append(text, use.text);
            } else {
                append(text, m_tokens.word(i));
            }
            i = use.end ? use.end : i + 1;
        }
        return text;
    }

    // Strings, too, stand between the tokens.
    QByteArray gapBefore(int i) const
    {
        const int from = m_tokens.at(i - 1).end;
        return m_tokens.text().mid(from, m_tokens.at(i).start - from).replace('\n', ' ').replace('\r', ' ');
    }

    bool isScope(int i) const { return m_tokens.is(i, ":") && m_tokens.is(i + 1, ":"); }

    // Neither a member nor the digits of "4'b0".
    bool isPlainName(int i) const
    {
        const bool isNumber = m_tokens.is(i - 1, "'") && m_tokens.at(i - 1).end == m_tokens.at(i).start;
        return m_tokens.isName(i) && !isNumber && !m_tokens.is(i - 1, ".") && !isScope(i - 2);
    }

    // What can be selected from, and needs no parentheses.
    bool isOperand(Range range) const
    {
        for (int i = range.from; i < range.end; ++i) {
            const QByteArray word = m_tokens.word(i);
            if (word == "[")
                i = behindParentheses(i) - 1;
            else if (!m_tokens.isName(i) && !std::isdigit(uchar(word.at(0))) && word != "." && word != ":" &&
                     word != "'")
                return false;
        }
        return true;
    }

    int reach() const { return m_lookedAt < mostLookedAt ? mostTokens : 1; }

    int behindParentheses(int i) const
    {
        const int end = m_tokens.behindParentheses(i, reach());
        m_lookedAt += end - i;
        return end;
    }

    // The first token outside of parentheses that is that sign; `end` when there is none.
    int endOf(int from, const char *sign, int end) const
    {
        int at = from;
        while (at < end && !m_tokens.is(at, sign))
            at = m_tokens.isAny(at, {"(", "[", "{"}) ? behindParentheses(at) : at + 1;
        m_lookedAt += at - from;
        return qMin(at, end);
    }

    // What stands between commas; one that is empty when there is nothing at all.
    std::vector<Range> parts(Range range) const
    {
        std::vector<Range> all;
        for (int from = range.from; from <= range.end;) {
            const int end = endOf(from, ",", range.end);
            all.push_back({from, end});
            from = end + 1;
        }
        return all;
    }

    void replace(Range range, const QByteArray &with)
    {
        const int start = m_tokens.at(range.from).start;
        const int end = m_tokens.at(range.end - 1).end;
        m_expanded += m_text.mid(m_done, start - m_done) + with +
                      QByteArray(m_text.mid(start, end - start).count('\n'), '\n');
        m_done = end;
    }

    QByteArray &m_text;
    const VerilogTokens m_tokens;
    BlankedNames &m_names;
    QHash<QByteArray, QList<Declared>> m_lets; // the innermost one last
    QList<QByteArray> m_declared;              // their names, in order
    QByteArray m_package;                      // that is being read
    int m_depth = 0;                           // 1: a module or package; each block adds one
    int m_imported = 0;
    mutable int m_lookedAt = 0;
    QByteArray m_expanded; // of the text up to m_done
    int m_done = 0;
};

} // namespace

bool expandLets(QByteArray &systemVerilog, BlankedNames &names)
{
    return LetExpander(systemVerilog, names).run();
}

} // namespace QUARRY

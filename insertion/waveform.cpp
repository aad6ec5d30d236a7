#include "insertion/waveform.h"

#include <QMap>
#include <QSet>
#include <QStringList>

#include <algorithm>
#include <memory>

namespace Insertion {
namespace {

// One variable of the dump.
struct Variable
{
    QByteArray code;
    QByteArray scope; // "core_0.soc."
    QByteArray name;
    QByteArray range; // "[7:0]" behind the name; empty: one bit
    int firstBit = 0; // of the data; the leftmost one of the row; -1: of no row
    int width = 1;
    QByteArray last;
};

struct Scope
{
    QByteArray path; // with a dot at the end
    QMap<QByteArray, std::shared_ptr<Scope>> children;
    QList<int> variables;
    QSet<QByteArray> names;
};

// Names of a dump end at a blank, and one with a dollar sign in front may be a command: "$end".
QByteArray dumpName(QString name)
{
    name = name.simplified().replace(' ', '_');
    return name.startsWith('$') ? '_' + name.mid(1).toUtf8() : name.toUtf8();
}

// "!" to "~", then two of them, and so on.
QByteArray codeOf(int number)
{
    QByteArray code;
    do {
        code += char('!' + number % 94);
        number = number / 94 - 1;
    } while (number >= 0);
    return code;
}

// The instances that a row is in; a group, whose bits may be anywhere, is in none.
QStringList pathOf(const JEX::SignalItem &row)
{
    if (row.isGroup() && !row.members.isEmpty())
        return {};
    QStringList words = row.name.split('/');
    words.removeLast();
    return words;
}

class CoreDump
{
public:
    CoreDump(const Analyzer::Core &core, int &codes) : m_name("core_" + QByteArray::number(core.core.number))
    {
        m_root.path = m_name + '.';
        m_trigger = addVariable(m_root, "trigger", QByteArray(), -1, 1, codes);
        m_window = addVariable(m_root, "window", "[15:0]", -1, 16, codes);
        int bit = 0;
        for (const JEX::SignalItem &row : *core.core.enabledRows) {
            Scope *scope = &m_root;
            for (const QString &word : pathOf(row)) {
                std::shared_ptr<Scope> &child = scope->children[dumpName(word)];
                if (!child) {
                    child = std::make_shared<Scope>();
                    child->path = scope->path + dumpName(word) + '.';
                }
                scope = child.get();
            }
            QString shortName = row.isGroup() ? row.name : row.name.section('/', -1);
            QString range;
            if (!row.isSingle()) {
                range = shortName.mid(shortName.lastIndexOf('['));
                shortName.chop(range.size());
                // The range says what stands first, so it holds for bits in its own order alone.
                const QString first = row.members.first().name.section('[', -1).section(']', 0, 0);
                if (row.isGroup() || range.mid(1).section(':', 0, 0) != first)
                    range = '[' + QString::number(row.width() - 1) + ":0]";
            }
            const QString shown = row.alias.isEmpty() ? shortName : row.alias;
            addVariable(*scope, dumpName(shown), range.toUtf8(), bit, row.width(), codes);
            bit += row.width();
        }
    }

    QByteArray declarations() const
    {
        return "$scope module " + m_name + " $end\n" + declared(m_root) + "$upscope $end\n";
    }

    QList<QByteArray> rowNames() const
    {
        QList<QByteArray> names;
        for (const Variable &variable : m_variables) {
            if (variable.firstBit >= 0)
                names << variable.scope + variable.name + variable.range;
        }
        return names;
    }

    int sampleCount(const RTLJEX::CapturedCore &captured) const
    {
        int count = 0;
        for (const RTLJEX::CapturedWindow &window : captured.windows)
            count += window.samples.size();
        return count;
    }

    // What changes with that sample, counted over all windows.
    QByteArray changes(const RTLJEX::CapturedCore &captured, int sample)
    {
        int window = 0;
        while (window < captured.windows.size() && sample >= captured.windows.at(window).samples.size())
            sample -= captured.windows.at(window++).samples.size();
        QByteArray text;
        if (window == captured.windows.size())
            return text;
        const RTLJEX::CapturedWindow &now = captured.windows.at(window);
        QByteArray bits = now.samples.at(sample);
        std::reverse(bits.begin(), bits.end());
        for (int i = 0; i < m_variables.size(); ++i) {
            Variable &variable = m_variables[i];
            QByteArray value;
            if (i == m_trigger)
                value = now.trigger == sample ? "1" : "0";
            else if (i == m_window)
                value = QByteArray::number(window, 2);
            else
                value = bits.mid(variable.firstBit, variable.width);
            if (value != variable.last)
                text += (variable.range.isEmpty() ? value : 'b' + value + ' ') + variable.code + '\n';
            variable.last = value;
        }
        return text;
    }

private:
    // A second one of that name in a scope gets a number.
    int addVariable(Scope &scope, const QByteArray &name, const QByteArray &range, int firstBit, int width,
                    int &codes)
    {
        Variable variable;
        variable.code = codeOf(codes++);
        variable.scope = scope.path;
        variable.name = name.isEmpty() ? QByteArray("signal") : name;
        for (int more = 2; scope.names.contains(variable.name); ++more)
            variable.name = name + '_' + QByteArray::number(more);
        scope.names.insert(variable.name);
        variable.range = range;
        variable.firstBit = firstBit;
        variable.width = width;
        scope.variables << m_variables.size();
        m_variables << variable;
        return m_variables.size() - 1;
    }

    QByteArray declared(const Scope &scope) const
    {
        QByteArray text;
        for (int number : scope.variables) {
            const Variable &variable = m_variables.at(number);
            text += "$var wire " + QByteArray::number(variable.width) + ' ' + variable.code + ' ' +
                    variable.name + (variable.range.isEmpty() ? QByteArray() : ' ' + variable.range) +
                    " $end\n";
        }
        for (auto it = scope.children.begin(); it != scope.children.end(); ++it)
            text += "$scope module " + it.key() + " $end\n" + declared(*it.value()) + "$upscope $end\n";
        return text;
    }

    QByteArray m_name;
    Scope m_root;
    QList<Variable> m_variables;
    int m_trigger = 0;
    int m_window = 0;
};

} // namespace

QList<QByteArray> rowNames(const Analyzer::Core &core)
{
    int codes = 0;
    return CoreDump(core, codes).rowNames();
}

QByteArray waveformText(const Analyzer &analyzer, const QList<RTLJEX::CapturedCore> &captured)
{
    QByteArray text = "$comment One sample is ten units of time. $end\n$timescale 1ns $end\n";
    QList<CoreDump> dumps;
    int codes = 0, samples = 0;
    for (const Analyzer::Core &core : analyzer.cores()) {
        dumps << CoreDump(core, codes);
        text += dumps.last().declarations();
        samples = qMax(samples, dumps.last().sampleCount(captured.value(dumps.size() - 1)));
    }
    text += "$enddefinitions $end\n";
    for (int sample = 0; sample < samples; ++sample) {
        QByteArray changes;
        for (int i = 0; i < dumps.size(); ++i)
            changes += dumps[i].changes(captured.value(i), sample);
        if (!changes.isEmpty())
            text += '#' + QByteArray::number(sample * unitsPerSample) + '\n' + changes;
    }
    return text + '#' + QByteArray::number(samples * unitsPerSample) + '\n';
}

} // namespace Insertion

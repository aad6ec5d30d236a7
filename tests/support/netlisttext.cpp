#include "tests/support/netlisttext.h"

#include "model/netlist/netlistbuilder.h"

#include <QHash>
#include <QRegularExpression>

using QUARRY::NetDecl;

namespace {

QRegularExpressionMatch rangeIn(const QString &word)
{
    static const QRegularExpression bus("^(.+)\\[(-?\\d+):(-?\\d+)\\]$");
    return bus.match(word);
}

NetDecl netFromText(const QString &text)
{
    const QStringList words = text.split(' ', Qt::SkipEmptyParts);
    const QRegularExpressionMatch range = rangeIn(words.first());
    NetDecl net;
    net.name = range.hasMatch() ? range.captured(1) : words.first();
    net.isBus = range.hasMatch();
    net.left = range.captured(2).toInt();
    net.right = range.captured(3).toInt();
    for (const QString &mark : words.mid(1)) {
        bool isBit = false;
        const int bit = mark.mid(1).toInt(&isBit);
        if (mark == "x")
            net.excluded = true;
        else if (net.isBus && isBit && mark.startsWith('x'))
            net.excludedBits.append(bit);
        else
            qFatal("netlistFromText: cannot read \"%s\"", qPrintable(text));
    }
    return net;
}

class Reader
{
public:
    explicit Reader(const QString &text) : m_lines(text.split('\n').filter(QRegularExpression("\\S"))) {}

    QUARRY::RtlNetlist *read()
    {
        if (!m_lines.isEmpty())
            readInstance(0, nullptr);
        return m_builder.take();
    }

private:
    int indent(int line) const { return int(m_lines.at(line).indexOf(QRegularExpression("\\S"))); }

    // What stands deeper than an instance's own lines belongs to the instance above it.
    void readInstance(int first, QUARRY::Hierachy *parent)
    {
        const QString head = m_lines.at(first).trimmed();
        QUARRY::ModuleDecl module;
        module.name = head.section(':', parent ? 1 : 0);
        QString key = module.name;
        QVector<int> children;
        const int depth = indent(first);
        bool inChild = false;
        for (int i = first + 1; i < m_lines.size() && (!parent || indent(i) > depth); ++i) {
            if (inChild && indent(i) > depth + 2)
                continue;
            if (indent(i) != depth + 2)
                qFatal("netlistFromText: \"%s\" fits no instance above it", qPrintable(m_lines.at(i)));
            const QString text = m_lines.at(i).trimmed();
            inChild = text.contains(':') && !rangeIn(text.section(' ', 0, 0)).hasMatch();
            if (inChild) {
                children.append(i);
            } else if (text == "TS_JTAG!") {
                m_builder.setUsesTsJtag();
            } else {
                module.nets.append(netFromText(text));
                key += '\n' + text;
            }
        }
        if (!m_modules.contains(key))
            m_modules.insert(key, m_builder.addModule(module));
        QUARRY::Hierachy *node =
            parent ? m_builder.addInstance(parent, head.section(':', 0, 0), m_modules.value(key))
                   : m_builder.addTop(head, m_modules.value(key));
        for (int child : children)
            readInstance(child, node);
    }

    const QStringList m_lines;
    QUARRY::NetlistBuilder m_builder;
    QHash<QString, int> m_modules;
};

} // namespace

QUARRY::RtlNetlist *netlistFromText(const QString &text)
{
    return Reader(text).read();
}

#include "tests/support/netlisttext.h"

#include "model/quarry/netlistbuilder.h"

#include <QHash>
#include <QRegularExpression>

#include <deque>

using QUARRY::ModuleDecl;
using QUARRY::NetDecl;
using QUARRY::NetlistBuilder;

namespace {

struct Instance
{
    QString name;
    ModuleDecl module;
    QString netLines; // what the module declares, as drawn
    std::deque<Instance> children;
};

class Reader
{
public:
    QUARRY::RtlNetlist *read(const QString &text)
    {
        for (const QString &line : text.split(QLatin1Char('\n')))
            if (!line.trimmed().isEmpty())
                readLine(line);
        if (!m_open.isEmpty())
            build(m_top, nullptr);
        return m_builder.take();
    }

private:
    void readLine(const QString &line)
    {
        const QString text = line.trimmed();
        const int indent = int(line.indexOf(text));
        if (m_open.isEmpty()) {
            m_base = indent;
            m_top.name = m_top.module.name = text;
            m_open.append(&m_top);
            return;
        }
        const int level = (indent - m_base) / 2;
        if (indent != m_base + 2 * level || level < 1 || level > m_open.size())
            qFatal("netlistFromText: the indentation of \"%s\" fits no instance above it", qPrintable(line));
        m_open.resize(level);
        if (text == QLatin1String("TS_JTAG!"))
            m_builder.setUsesTsJtag();
        else
            readEntry(text, m_open.last());
    }

    void readEntry(const QString &text, Instance *owner)
    {
        const QStringList words = text.split(QLatin1Char(' '), Qt::SkipEmptyParts);
        static const QRegularExpression bus(QStringLiteral("^(.+)\\[(-?\\d+):(-?\\d+)\\]$"));
        const QRegularExpressionMatch range = bus.match(words.first());
        const int colon = words.first().indexOf(QLatin1Char(':'));
        if (!range.hasMatch() && colon >= 0) {
            if (words.size() > 1 || colon == 0)
                qFatal("netlistFromText: cannot read \"%s\"", qPrintable(text));
            owner->children.emplace_back();
            Instance *child = &owner->children.back();
            child->name = text.left(colon);
            child->module.name = text.mid(colon + 1);
            m_open.append(child);
            return;
        }
        NetDecl net;
        net.name = range.hasMatch() ? range.captured(1) : words.first();
        net.isBus = range.hasMatch();
        net.left = range.captured(2).toInt();
        net.right = range.captured(3).toInt();
        for (const QString &mark : words.mid(1)) {
            bool isBit = false;
            const int bit = mark.mid(1).toInt(&isBit);
            if (mark == QLatin1String("x"))
                net.excluded = true;
            else if (net.isBus && isBit && mark.startsWith(QLatin1Char('x')))
                net.excludedBits.append(bit);
            else
                qFatal("netlistFromText: cannot read \"%s\"", qPrintable(text));
        }
        owner->module.nets.append(net);
        owner->netLines += text + QLatin1Char('\n');
    }

    void build(const Instance &instance, QUARRY::Hierachy *parent)
    {
        const QString key = instance.module.name + QLatin1Char('\n') + instance.netLines;
        if (!m_modules.contains(key))
            m_modules.insert(key, m_builder.addModule(instance.module));
        const int module = m_modules.value(key);
        QUARRY::Hierachy *node = parent ? m_builder.addInstance(parent, instance.name, module)
                                        : m_builder.addTop(instance.name, module);
        for (const Instance &child : instance.children)
            build(child, node);
    }

    NetlistBuilder m_builder;
    Instance m_top;
    QVector<Instance *> m_open; // the instances that the next line can belong to, the top first
    int m_base = 0;
    QHash<QString, int> m_modules;
};

} // namespace

QUARRY::RtlNetlist *netlistFromText(const QString &text)
{
    return Reader().read(text);
}

QUARRY::RtlNetlist *netlistFromText(const char *text)
{
    return netlistFromText(QString::fromUtf8(text));
}

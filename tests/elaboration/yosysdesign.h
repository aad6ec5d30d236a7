#pragma once

#include "tests/elaboration/sources.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QRegularExpression>

using namespace QUARRY;

// A tool that has to do what it is told, and what it prints.
inline QByteArray runIn(const Sources &folder, const QString &program, const QStringList &arguments)
{
    QProcess process;
    process.setWorkingDirectory(folder.path());
    process.start(program, arguments);
    if (!process.waitForFinished(120000) || process.exitCode() != 0)
        qFatal("%s: %s", qPrintable(program), process.readAllStandardError().constData());
    return process.readAllStandardOutput();
}

// What Yosys and the netlist call the nets of a design, in the words of Yosys.
inline QString ranged(const QString &path, int left, int right)
{
    return QString("%1 [%2:%3]").arg(path).arg(left).arg(right);
}

// Yosys joins scopes and instances by dots, and knows no difference between a net and a bus of one bit.
inline QString asYosysWritesIt(const QString &path)
{
    return QString(path).replace('/', '.');
}

struct Names
{
    QStringList all;
    QSet<QString> mayBeUnknown; // GHDL drops what nothing reads, Yosys never sees it
};

inline void addOurs(const Hierachy *node, const QString &vhdl, Names &names)
{
    const int first = names.all.size();
    const QString path = node->fullPathName() + '/';
    for (const RtlNet *net : node->nets)
        names.all += ranged(asYosysWritesIt(path + net->name()), 0, 0);
    for (const RtlNetBus *bus : node->buses) {
        const QString name = bus->BusName();
        names.all += asYosysWritesIt(path + name).insert(path.size() + name.lastIndexOf('['), ' ');
    }
    if (vhdl.contains("entity " + node->moduleName + " is"))
        names.mayBeUnknown += QSet<QString>(names.all.begin() + first, names.all.end());
    for (const Hierachy *child : node->children)
        addOurs(child, vhdl, names);
}

class YosysDesign
{
public:
    YosysDesign(const QByteArray &json, const QString &vhdl)
        : m_modules(QJsonDocument::fromJson(json).object()["modules"].toObject()), m_vhdl(vhdl)
    {
    }

    void add(const QString &module, const QString &path, QSet<QString> &names) const
    {
        const QJsonObject nets = m_modules[module].toObject()["netnames"].toObject();
        for (auto it = nets.begin(); it != nets.end(); ++it) {
            const QJsonObject net = it.value().toObject();
            const int low = net["offset"].toInt();
            const int high = low + net["bits"].toArray().size() - 1;
            const bool upwards = net["upto"].toInt();
            if (!net["hide_name"].toInt() && isWritten(module, it.key()))
                names += ranged(path + '.' + plain(it.key()), upwards ? low : high, upwards ? high : low);
        }
        const QJsonObject memories = m_modules[module].toObject()["memories"].toObject();
        for (auto it = memories.begin(); it != memories.end(); ++it) {
            const QJsonObject memory = it.value().toObject();
            const int size = memory["size"].toInt();
            for (int i = 0; i < size && size <= 32; ++i)
                names += ranged(
                    QString("%1.%2[%3]").arg(path, plain(it.key())).arg(memory["start_offset"].toInt() + i),
                    memory["width"].toInt() - 1, 0);
        }
        const QJsonObject cells = m_modules[module].toObject()["cells"].toObject();
        for (auto it = cells.begin(); it != cells.end(); ++it) {
            const QString type = it.value().toObject()["type"].toString();
            if (m_modules.contains(type))
                add(type, path + '.' + plain(it.key()), names);
        }
    }

private:
    // It keeps the backslash of an escaped name that begins with a digit.
    static QString plain(QString name)
    {
        if (name.startsWith('\\'))
            name.remove(0, 1);
        return asYosysWritesIt(name);
    }

    // "f$func$..." holds the locals of a function. What GHDL made up does not stand in the VHDL.
    bool isWritten(const QString &module, const QString &name) const
    {
        if (!m_vhdl.contains("entity " + module + " is"))
            return !name.contains("$func$");
        return m_vhdl.contains(QRegularExpression("\\b" + QRegularExpression::escape(name) + "\\b"));
    }

    QJsonObject m_modules;
    QString m_vhdl;
};

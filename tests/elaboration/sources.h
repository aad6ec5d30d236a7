#pragma once

#include "elaboration/elaboration.h"
#include "host/designmanager.h"
#include "host/project.h"
#include "model/netlist/rtlnetlist.h"
#include "tests/support/files.h"

#include <QRegularExpression>

#include <memory>

// The sources of one design, in a folder of their own.
class Sources : public Folder
{
public:
    QString script(const QString &name, const QByteArray &text) const
    {
        const QString file = write(name, "#!/bin/sh\n" + text + "\n");
        QFile::setPermissions(file, QFile::ReadOwner | QFile::ExeOwner);
        return file;
    }

    // The language goes by the suffix.
    QUARRY::DesignInput input(const QStringList &names) const
    {
        QUARRY::DesignInput input;
        input.workingDir = path();
        for (const QString &name : names) {
            QUARRY::DesignSource source;
            source.path = path(name);
            source.type = name.endsWith(".vhd") ? 4 : name.endsWith(".sv") ? 3 : 2;
            input.files += source;
        }
        return input;
    }
};

// The design of these sources; where there is none, it is told why.
inline std::unique_ptr<QUARRY::RtlNetlist> netlistOf(const QUARRY::DesignInput &input)
{
    QStringList messages;
    std::unique_ptr<QUARRY::RtlNetlist> netlist(QUARRY::buildNetlist(input, messages));
    if (!netlist)
        qWarning("%s", qPrintable(messages.join('\n')));
    return netlist;
}

// What a project reads.
inline QUARRY::DesignInput projectInput(const QString &path)
{
    Core::Project project;
    QString error;
    if (!project.load(path, &error))
        qFatal("%s", qPrintable(error));
    Core::ProjectManager::setCurrentProject(&project);
    const QUARRY::DesignInput input =
        QUARRY::designInputFromInfo(TE::TaskEngine::instance()->designManager()->getSourceFileInfo());
    Core::ProjectManager::setCurrentProject(nullptr);
    return input;
}

// In the pattern * stands for any text, such as a tool's own words.
inline bool fits(const QString &text, const QString &pattern)
{
    const QString expression = QRegularExpression::escape(pattern).replace("\\*", ".*");
    const QRegularExpression whole("^" + expression + "$", QRegularExpression::DotMatchesEverythingOption);
    return whole.match(text).hasMatch();
}

// One line for each node, "top/u0:uart clk tied! data[7:0]!5!4": what an exclamation mark follows is
// excluded.
inline void draw(const QUARRY::Hierachy &node, QStringList &lines)
{
    QStringList words(node.fullPathName() + ':' + node.moduleName);
    for (const QUARRY::RtlNet *net : node.nets)
        words += net->name() + (net->excluded ? "!" : "");
    for (const QUARRY::RtlNetBus *bus : node.buses) {
        words += bus->BusName() + (bus->excluded ? "!" : "");
        for (const QUARRY::RtlNet *bit : bus->members) {
            if (bit->excluded && !bus->excluded)
                words.last() += '!' + bit->name().section('[', -1).chopped(1);
        }
    }
    lines += words.join(' ');
    for (const QUARRY::Hierachy *child : node.children)
        draw(*child, lines);
}

inline QStringList drawn(const QUARRY::RtlNetlist *netlist)
{
    QStringList lines;
    if (netlist)
        draw(*netlist->topHierarchy, lines);
    if (netlist && netlist->usesTsJtag)
        lines += "TS_JTAG!";
    return lines;
}

#pragma once

#include "tests/elaboration/sources.h"
#include "tests/support/tablerow.h"

using namespace QUARRY;

// What is told of modules that nobody defines.
inline QString boxed(const QString &modules)
{
    return "\nWARNING: These modules have no definition and are shown as black boxes, with nothing inside: " +
           modules;
}

// The base of tests that read designs whose sources stand in a table, in a temporary folder of their own.
class ReadingTest : public QObject
{
    Q_OBJECT

protected Q_SLOTS:
    void init()
    {
        m_sources.reset(new Sources);
        QDir().mkpath(path("tmp"));
        qputenv("TMPDIR", path("tmp").toUtf8());
    }

    void cleanup()
    {
        for (const char *variable :
             {"JEX_VERILATOR", "JEX_GHDL", "JEX_TOOL_TIMEOUT", "JEX_TOOL_MEMORY", "JEX_TOOL_DISK", "TMPDIR"})
            qunsetenv(variable);
        listModules(DesignInput()); // drops the remembered design
        QCOMPARE(leftInTemp(), QStringList());
    }

protected:
    // Reads the design of a row. Its sources stand one after the other, each below a line "== name"; those in
    // folders are not given. Options are entries of the host's map, Type and names of files (Used, Disabled)
    // for all files.
    void readDesign()
    {
        QFETCH(QString, options);
        QFETCH(QString, sources);
        QFETCH(QString, lists);
        QFETCH(QString, design);
        QVariantMap info;
        for (const QString &option : options.split('\n', Qt::SkipEmptyParts)) {
            QVariant &values = info[option.section('=', 0, 0)];
            values = values.toStringList() << option.section('=', 1);
        }
        QVariantList files;
        for (const QString &part : sources.split("== ", Qt::SkipEmptyParts)) {
            const QString name = part.section('\n', 0, 0);
            if (part.count('\n') > 1)
                m_sources->write(name, part.section('\n', 1).toUtf8());
            if (!name.contains('/') && info["Disabled"] != QStringList(name))
                files += QVariantMap{{"Path", path(name)},
                                     {"Type", info["Type"].toString()},
                                     {"Library", info["Library of " + name].toString()},
                                     {"OnlyWhenUsed", info["Used"] == QStringList(name)}};
        }
        info["Files"] = files;
        info["WorkingDir"] = path("");
        for (const QString &name : info["Disabled"].toStringList())
            info["DisabledFiles"] = QStringList(path(name));
        const DesignInput input = designInputFromInfo(info);
        const QString found = listed(input);
        QVERIFY2(fits(found, lists), qPrintable("\nfound:\n" + found + "\nexpected:\n" + lists));
        QCOMPARE(built(input), design);
    }

    // The sources' folder is @; the order of modules is the tool's own and not compared.
    QString listed(const DesignInput &input) const
    {
        ModuleList list = listModules(input);
        list.topModules.sort();
        list.modules.sort();
        const QStringList lines{"top " + list.topModules.join(' '), "modules " + list.modules.join(' ')};
        return (lines + list.messages).join('\n').replace(path(""), "@").trimmed();
    }

    QString built(const DesignInput &input) const
    {
        QStringList messages;
        return drawn(std::unique_ptr<RtlNetlist>(buildNetlist(input, messages)).get()).join('\n');
    }

    QString path(const QString &name) const { return m_sources->path(name); }
    QStringList leftInTemp() const { return entriesOf(path("tmp")); }
    // The sources' folder is @, with its slash.
    QString told(const QStringList &messages) const
    {
        return messages.join('\n').replace(path("") + "/", "@");
    }

    std::unique_ptr<Sources> m_sources;
};

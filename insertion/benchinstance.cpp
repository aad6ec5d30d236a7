#include "insertion/benchinstance.h"

#include <QCoreApplication>
#include <QFile>
#include <QXmlStreamReader>

#include <memory>

#include "elaboration/reading/netlistreader.h"
#include "elaboration/tools/elaborator.h"
#include "model/netlist/rtlnetlist.h"

namespace Insertion {
namespace {

struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(Insertion::BenchInstance)
};

void collect(const QUARRY::Hierachy &node, const QString &module, QStringList &paths)
{
    if (node.moduleName == module && node.parent)
        paths << QString(node.fullPathName()).replace('/', '.');
    for (const QUARRY::Hierachy *child : node.children)
        collect(*child, module, paths);
}

// "32'sh10" as the number that it is; longer ones and texts as they are.
QString plainValue(QString value)
{
    value.replace("'sh", "'h");
    const int tick = value.indexOf("'h");
    bool isNumber = false;
    const quint32 number = value.mid(tick + 2).toUInt(&isNumber, 16);
    const bool isShort = tick > 0 && value.left(tick).toInt() <= 32 && isNumber;
    return isShort ? QString::number(qint32(number)) : value;
}

// One module for each set of parameters; that of the instance when there is just one.
QStringList readParameters(const QString &xmlFile, const QString &module)
{
    QFile file(xmlFile);
    if (!QUARRY::isPlainFile(xmlFile) || !file.open(QIODevice::ReadOnly))
        return {};
    QXmlStreamReader xml(&file);
    QStringList parameters;
    QString name;
    int modules = 0;
    bool isInside = false;
    while (!xml.atEnd()) {
        xml.readNext();
        const auto attributes = xml.attributes();
        if (xml.isStartElement() && xml.name() == QLatin1String("module")) {
            isInside = attributes.value("origName") == module;
            modules += isInside;
        } else if (isInside && xml.isStartElement() && xml.name() == QLatin1String("var")) {
            name = attributes.value("param") == QLatin1String("true")
                       ? attributes.value("origName").toString()
                       : QString();
        } else if (isInside && !name.isEmpty() && xml.isStartElement() &&
                   xml.name() == QLatin1String("const")) {
            parameters << name + '=' + plainValue(attributes.value("name").toString());
            name.clear();
        }
    }
    return modules == 1 ? parameters : QStringList();
}

} // namespace

BenchInstance findInstance(const QUARRY::Elaboration &bench, const QString &topModule, const QString &wanted)
{
    BenchInstance instance;
    QUARRY::NetlistReader reader(bench.xmlFile, bench.readOptions);
    while (reader.readSlice())
        continue;
    const std::unique_ptr<QUARRY::RtlNetlist> netlist(reader.takeNetlist());
    QStringList paths;
    if (netlist && netlist->topHierarchy)
        collect(*netlist->topHierarchy, topModule, paths);
    if (!wanted.isEmpty() && paths.contains(wanted))
        paths = QStringList(wanted);
    if (!wanted.isEmpty() && !paths.contains(wanted))
        instance.fault = Texts::tr("The test bench has no instance \"%1\" of %2.").arg(wanted, topModule);
    else if (paths.isEmpty())
        instance.fault = Texts::tr("The test bench has no instance of %1.").arg(topModule);
    else if (paths.size() > 1)
        instance.fault =
            Texts::tr("The test bench has several instances of %1: %2. Name one of them with --instance.")
                .arg(topModule, paths.join(", "));
    else
        instance.path = paths.first();
    if (instance.fault.isEmpty())
        instance.parameters = readParameters(bench.xmlFile, topModule);
    return instance;
}

} // namespace Insertion

#pragma once

#include <QList>
#include <QString>
#include <QStringList>

namespace QUARRY {

// What the lists of modules need of one of Verilator's XML files, found without building anything.
struct XmlSummary
{
    QStringList modules; // as the source names them, each once; interfaces and packages are no modules
    QStringList roots;   // the modules that no other instantiates
    QStringList files;   // every source and included file that was read, as handed over
};

bool readXmlSummary(const QString &xmlFile, XmlSummary &summary);

} // namespace QUARRY

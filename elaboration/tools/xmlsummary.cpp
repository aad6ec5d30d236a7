#include "elaboration/tools/xmlsummary.h"

#include <QByteArrayMatcher>
#include <QFile>
#include <QSet>

#include "elaboration/reading/verilatornames.h"

namespace QUARRY {
namespace {

QString attribute(const QByteArray &element, const char *name)
{
    const QByteArray key = QByteArray(" ") + name + "=\"";
    const int start = element.indexOf(key);
    if (start < 0)
        return QString();
    const int end = element.indexOf('"', start + key.size());
    QString value = QString::fromUtf8(element.mid(start + key.size(), end - start - key.size()));
    value.replace(QLatin1String("&lt;"), QLatin1String("<"));
    value.replace(QLatin1String("&gt;"), QLatin1String(">"));
    value.replace(QLatin1String("&quot;"), QLatin1String("\""));
    value.replace(QLatin1String("&apos;"), QLatin1String("'"));
    value.replace(QLatin1String("&amp;"), QLatin1String("&"));
    return value;
}

void appendNew(QStringList &list, QSet<QString> &seen, const QString &value)
{
    if (seen.contains(value))
        return;
    seen.insert(value);
    list.append(value);
}

// Verilator writes one element per line and indents by depth, so a depth is found by its indentation.
void collect(const QByteArray &xml, const char *lineStart, const char *name, QStringList &values)
{
    QSet<QString> seen;
    const QByteArrayMatcher matcher((QByteArray("\n") + lineStart));
    for (int at = matcher.indexIn(xml); at >= 0; at = matcher.indexIn(xml, at + 1)) {
        const int end = xml.indexOf('\n', at + 1);
        const QByteArray element = xml.mid(at, (end < 0 ? xml.size() : end) - at);
        appendNew(values, seen, decodedVerilatorName(attribute(element, name).toUtf8().constData()));
    }
}

} // namespace

bool readXmlSummary(const QString &xmlFile, XmlSummary &summary)
{
    QFile file(xmlFile);
    if (!file.open(QIODevice::ReadOnly) || file.size() == 0)
        return false;
    uchar *bytes = file.map(0, file.size());
    if (!bytes)
        return false;
    const QByteArray xml = QByteArray::fromRawData(reinterpret_cast<const char *>(bytes), int(file.size()));
    const int headEnd = xml.indexOf("\n  <netlist>");
    if (headEnd < 0)
        return false;
    const QByteArray head = QByteArray::fromRawData(xml.constData(), headEnd);
    collect(head, "    <file ", "filename", summary.files);
    collect(head, "    <cell ", "name", summary.roots);
    collect(xml, "    <module ", "origName", summary.modules);
    return true;
}

} // namespace QUARRY

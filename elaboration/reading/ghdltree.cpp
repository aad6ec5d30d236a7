#include "elaboration/reading/ghdltree.h"

#include <QFile>

namespace QUARRY {

bool findGhdlName(const char *name, const QString &treeFile, QString &place)
{
    QFile file(treeFile);
    if (!file.open(QIODevice::ReadOnly))
        return false;
    const QByteArray reference = QByteArray("simple_name \"") + name + '"';
    bool isFound = false;
    while (!file.atEnd()) {
        const QByteArray line = file.readLine();
        if (!isFound) {
            isFound = line.contains(reference);
            continue;
        }
        const char location[] = "location: ";
        if (!line.trimmed().startsWith(location))
            continue;
        place = QString::fromUtf8(line.trimmed().mid(int(sizeof location) - 1));
        break;
    }
    return isFound;
}

int ghdlOffset(const QByteArray &text, int line, int column)
{
    int at = 0;
    for (int i = 1; i < line; ++i) {
        const int end = text.indexOf('\n', at);
        if (end < 0)
            return text.size();
        at = end + 1;
    }
    for (int seen = 0; at < text.size() && text.at(at) != '\n' && seen < column - 1; ++at)
        seen += text.at(at) == '\t' ? 8 - seen % 8 : 1;
    return at;
}

} // namespace QUARRY

#include "cli/table.h"

#include <QList>

namespace Cli {

QString Table::text(const QString &indent) const
{
    QList<int> widths;
    QList<bool> areNumbers; // below the heading
    for (const QStringList &row : m_rows) {
        for (int i = 0; i < row.size(); ++i) {
            if (i == widths.size()) {
                widths << 0;
                areNumbers << true;
            }
            bool isNumber = row.at(i).isEmpty() || &row == &m_rows.first();
            if (!isNumber)
                row.at(i).toInt(&isNumber);
            widths[i] = qMax(widths[i], row.at(i).size());
            areNumbers[i] = areNumbers[i] && isNumber;
        }
    }
    QStringList lines;
    for (const QStringList &row : m_rows) {
        QString line = indent;
        for (int i = 0; i < row.size(); ++i) {
            line +=
                areNumbers.at(i) ? row.at(i).rightJustified(widths[i]) : row.at(i).leftJustified(widths[i]);
            line += "  ";
        }
        while (line.endsWith(' '))
            line.chop(1);
        lines << line;
    }
    return lines.join('\n');
}

} // namespace Cli

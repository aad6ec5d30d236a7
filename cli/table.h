#pragma once

#include <QList>
#include <QStringList>

namespace Cli {

// Rows of text in columns, two blanks between them; the first row may be a heading.
class Table
{
public:
    void add(const QStringList &row) { m_rows.append(row); }
    // The lines, each behind `indent`, with columns of numbers to the right; nothing behind the last line's
    // end.
    QString text(const QString &indent) const;

private:
    QList<QStringList> m_rows;
};

} // namespace Cli

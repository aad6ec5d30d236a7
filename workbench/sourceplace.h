#pragma once

#include <QList>
#include <QMetaType>
#include <QString>

namespace Workbench {

// A line of a source file.
struct SourcePlace
{
    QString file; // absolute
    int line = 0; // from 1; 0: none in particular

    QString text() const; // "/path/a.v:12"
};

// The places that a message names, "/path/a.v:12", each once, as far as such files are there now. Names may
// hold blanks and colons.
QList<SourcePlace> sourcePlaces(const QString &text);

} // namespace Workbench

Q_DECLARE_METATYPE(Workbench::SourcePlace)

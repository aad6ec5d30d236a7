#pragma once

#include <QByteArray>
#include <QMap>
#include <QString>
#include <QStringList>

namespace Insertion {

// Why files cannot go into that folder, a finished sentence; empty when they can. A folder that is there is
// taken when it holds nothing but files of those names, and none of `sources` is in it.
QString outputFault(const QString &folder, const QStringList &names, const QStringList &sources);

// All of them, in a new folder that takes the place of the old one in one step; or none, with a sentence.
bool writeFolder(const QString &folder, const QMap<QString, QByteArray> &files, QString *error);

} // namespace Insertion

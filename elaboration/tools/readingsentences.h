#pragma once

#include <QMap>
#include <QString>
#include <QStringList>

namespace QUARRY {

// Sentences for the user about what a reading found out of the design as a whole. Lists of one or several, or
// of none when there is nothing to say.

QStringList topsSentences(const QString &wrongTop, const QStringList &tops);
QStringList encryptedSentences(const QStringList &files);
// The modules that nobody defines, and files that have them without being part of the design: `strays`, which
// the tool came upon in a folder, by name of the module, and those that the project has disabled.
QStringList blackBoxSentences(const QStringList &modules, const QMap<QString, QString> &strays,
                              const QStringList &disabledFiles);

} // namespace QUARRY

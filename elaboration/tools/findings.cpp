#include "elaboration/tools/findings.h"

#include "elaboration/tools/sourceorder.h"

namespace QUARRY {
namespace {

QStringList sentences(const QString &text, const QStringList &names)
{
    if (names.isEmpty())
        return QStringList();
    return QStringList(QLatin1String("WARNING: ") + text + names.join(QLatin1String(", ")));
}

} // namespace

QStringList topsSentences(const QString &wrongTop, const QStringList &tops)
{
    const QString text = QLatin1String("No module is named \"") + wrongTop +
                         QLatin1String("\". The top modules of the design are: ");
    return sentences(text, tops);
}

QStringList encryptedSentences(const QStringList &files)
{
    return sentences(
        QLatin1String("What is encrypted in these files is not shown, as if it were in a black box: "),
        files);
}

QStringList blackBoxSentences(const QStringList &modules, const QMap<QString, QString> &strays,
                              const QStringList &disabledFiles)
{
    QStringList all = sentences(
        QLatin1String("These modules have no definition and are shown as black boxes, with nothing inside: "),
        modules);
    for (const QString &module : modules) {
        const QString disabled = fileOfModule(module, disabledFiles);
        if (!disabled.isEmpty())
            all.append(QLatin1String("WARNING: Module ") + module + QLatin1String(" is in ") + disabled +
                       QLatin1String(", which the project has disabled."));
        else if (strays.contains(module))
            all.append(QLatin1String("WARNING: Module ") + module + QLatin1String(" is in ") +
                       strays.value(module) + QLatin1String(", which is no source of the project."));
    }
    return all;
}

} // namespace QUARRY

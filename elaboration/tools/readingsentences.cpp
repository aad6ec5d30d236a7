#include "elaboration/tools/readingsentences.h"

#include <QCoreApplication>

#include "elaboration/tools/sourceorder.h"

namespace QUARRY {
namespace {

struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(QUARRY::ReadingSentences)
};

QStringList sentences(const QString &text, const QStringList &names)
{
    if (names.isEmpty())
        return QStringList();
    return QStringList(text.arg(names.join(QLatin1String(", "))));
}

} // namespace

QStringList topsSentences(const QString &wrongTop, const QStringList &tops)
{
    // The name may hold what looks like a placeholder.
    return tops.isEmpty()
               ? tops
               : QStringList(
                     Texts::tr("WARNING: No module is named \"%1\". The top modules of the design are: %2")
                         .arg(wrongTop, tops.join(QLatin1String(", "))));
}

QStringList encryptedSentences(const QStringList &files)
{
    return sentences(
        Texts::tr("WARNING: What is encrypted in these files is not shown, as if it were in a black box: %1"),
        files);
}

QStringList blackBoxSentences(const QStringList &modules, const QMap<QString, QString> &strays,
                              const QStringList &disabledFiles)
{
    QStringList all = sentences(Texts::tr("WARNING: These modules have no definition and are shown as "
                                          "black boxes, with nothing inside: %1"),
                                modules);
    for (const QString &module : modules) {
        const QString disabled = fileOfModule(module, disabledFiles);
        if (!disabled.isEmpty())
            all.append(Texts::tr("WARNING: Module %1 is in %2, which the project has disabled.")
                           .arg(module, disabled));
        else if (strays.contains(module))
            all.append(Texts::tr("WARNING: Module %1 is in %2, which is no source of the project.")
                           .arg(module, strays.value(module)));
    }
    return all;
}

} // namespace QUARRY

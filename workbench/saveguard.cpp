#include "workbench/saveguard.h"

#include <QCoreApplication>
#include <QDir>

#include "host/atomicfile.h"
#include "workbench/question.h"

namespace Workbench {
namespace {

struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(Workbench::SaveGuard)
};

} // namespace

SaveGuard::Answer SaveGuard::ask(const Core::EditedFile &file, Occasion occasion)
{
    const Agreement agreed = m_agreed.value(file.path);
    const Agreement now = {QUtil::FileMark::of(file.path), QUtil::reasonsToWriteInPlace(file.path)};
    const bool isChanged = file.mark.isOutdated(file.path) && now.overwritten != agreed.overwritten;
    const bool isInPlace = !now.reasons.isEmpty() && now.reasons != agreed.reasons;
    if (!isChanged && !isInPlace)
        return NothingToAsk;
    const QString name = QDir::toNativeSeparators(file.path);
    QStringList facts, buttons;
    if (isChanged)
        facts
            << (occasion == Saving
                    ? Texts::tr(
                          "The file '%1' changed on disk since it was read or saved here.\nOverwrite it, or "
                          "reload it and lose what was edited here?")
                    : Texts::tr(
                          "The file '%1' changed on disk since it was read or saved here.\nOverwrite it, or "
                          "discard what was edited here?"))
                   .arg(name);
    if (isInPlace)
        facts << Texts::tr(
                     "The file '%1' can not be replaced in one step without a loss: %2. It is written in "
                     "place, and a backup is kept until that has ended.")
                     .arg(name, now.reasons.join(Texts::tr("; ", "between reasons")));
    buttons << (isChanged ? Texts::tr("&Overwrite") : Texts::tr("&Write in Place"));
    if (occasion == Closing)
        buttons << Texts::tr("&Discard");
    else if (isChanged)
        buttons << Texts::tr("&Reload");
    buttons << Texts::tr("Cancel");
    const int answer = askUser(m_window, Texts::tr("Save"), facts.join("\n\n"), buttons);
    if (answer == 0)
        m_agreed.insert(file.path, now);
    return answer == 0 ? Write : answer == buttons.size() - 1 ? Cancel : Otherwise;
}

} // namespace Workbench

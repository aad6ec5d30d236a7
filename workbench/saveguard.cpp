#include "workbench/saveguard.h"

#include <QDir>

#include "host/atomicfile.h"
#include "workbench/question.h"

namespace Workbench {

SaveGuard::Answer SaveGuard::ask(const Core::EditedFile &file, Occasion occasion)
{
    const Agreement agreed = m_agreed.value(file.path);
    const Agreement now = {QUtil::FileMark::of(file.path), QUtil::reasonsToWriteInPlace(file.path)};
    const bool isChanged = file.mark.isOutdated(file.path) && now.overwritten != agreed.overwritten;
    const bool isInPlace = !now.reasons.isEmpty() && now.reasons != agreed.reasons;
    if (!isChanged && !isInPlace)
        return NothingToAsk;
    const QString name = "The file '" + QDir::toNativeSeparators(file.path) + "' ";
    QStringList facts, buttons;
    if (isChanged)
        facts << name + "changed on disk since it was read or saved here.\nOverwrite it, or " +
                     (occasion == Saving ? "reload it and lose" : "discard") + " what was edited here?";
    if (isInPlace)
        facts << name + "can not be replaced in one step without a loss: " + now.reasons.join("; ") +
                     ". It is written in place, and a backup is kept until that has ended.";
    buttons << (isChanged ? "&Overwrite" : "&Write in Place");
    if (occasion == Closing)
        buttons << "&Discard";
    else if (isChanged)
        buttons << "&Reload";
    buttons << "Cancel";
    const int answer = askUser(m_window, "Save", facts.join("\n\n"), buttons);
    if (answer == 0)
        m_agreed.insert(file.path, now);
    return answer == 0 ? Write : answer == buttons.size() - 1 ? Cancel : Otherwise;
}

} // namespace Workbench

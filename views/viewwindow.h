#pragma once

#include <QString>

class QWidget;
namespace Core {
class IView;
}

namespace RTLJEX {

// Window and short title of an editor: the bare file name, with a star while there are unsaved edits.
void showTitles(Core::IView *editor, const QString &fileName, bool modified);

// Rejects every dialog below the editor, before what the dialogs show goes away; also one that is left and
// has not returned yet, since something above it still runs.
void rejectDialogsBelow(QWidget *editor);

// Closes the host's container of the editor, and the editor with it, without asking. The container dies
// when control is back in the event loop.
void closeContainer(QWidget *editor);

} // namespace RTLJEX

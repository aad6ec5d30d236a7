#pragma once

#include <QString>

class QWidget;

namespace RTLJEX {

// What editors ask and say around saving. Each lives through the death of the editor while its box is
// open; what is returned then is the answer that does nothing.

// Why nothing is saved with the project's synthesis tool; empty: it can be used.
QString synthesisToolFault();

// One box, with the errors as its details.
void showErrors(QWidget *editor, const QString &text, const QString &errors);

void showWriteFailure(QWidget *editor, const QString &fileName, const QString &reason);

enum SaveAnswer { SaveChanges, DiscardChanges, KeepOpen };
SaveAnswer askSaveChanges(QWidget *editor, const QString &fileName);

} // namespace RTLJEX

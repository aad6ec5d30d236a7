#pragma once

#include <QPointer>
#include <QProgressDialog>

namespace QUARRY {

class ReadingJob;

// Runs a job below a modal dialog with its stage and a Cancel button. The dialog comes up once it has taken
// `delayMs`. Events are handled meanwhile; before the dialog is up, none that come from the user. The death
// of the parent, and the dialog with it, counts as Cancel.
class ElaborationDialog
{
public:
    ElaborationDialog(const QString &title, int delayMs, QWidget *parent);
    ~ElaborationDialog();

    void run(ReadingJob &job);

private:
    QPointer<QProgressDialog> m_dialog;
    int m_delayMs;
};

} // namespace QUARRY

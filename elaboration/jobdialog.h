#pragma once

#include <QPointer>
#include <QProgressDialog>

namespace QUARRY {

class Job;

// Runs a job below a modal dialog with its stage and a Cancel button. The dialog comes up once it has taken
// `delayMs`. Events are handled meanwhile; before the dialog is up, none that come from the user. The death
// of the parent, and the dialog with it, counts as Cancel, and so does that its window is hidden.
class JobDialog
{
public:
    JobDialog(const QString &title, int delayMs, QWidget *parent);
    ~JobDialog();

    void run(Job &job);

private:
    QPointer<QProgressDialog> m_dialog;
    int m_delayMs;
};

} // namespace QUARRY

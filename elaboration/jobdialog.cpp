#include "elaboration/jobdialog.h"

#include <QCoreApplication>
#include <QLabel>
#include <QTimer>

#include "elaboration/job.h"

namespace QUARRY {

JobDialog::JobDialog(const QString &title, int delayMs, QWidget *parent)
    : m_dialog(new QProgressDialog(parent)), m_delayMs(delayMs)
{
    QLabel *label = new QLabel(m_dialog);
    label->setTextFormat(Qt::PlainText);
    label->setMinimumWidth(label->fontMetrics().averageCharWidth() * 48);
    m_dialog->setLabel(label);
    m_dialog->setWindowTitle(title);
    m_dialog->setWindowModality(Qt::ApplicationModal);
    m_dialog->setCancelButtonText(QCoreApplication::translate("QUARRY", "Cancel"));
    m_dialog->setRange(0, 0);
    m_dialog->setAutoClose(false);
    m_dialog->setAutoReset(false);
    m_dialog->setMinimumDuration(24 * 3600 * 1000); // shown from here only
}

JobDialog::~JobDialog()
{
    delete m_dialog.data();
}

void JobDialog::run(Job &job)
{
    QObject::connect(&job, SIGNAL(stageChanged(QString)), m_dialog, SLOT(setLabelText(QString)));
    QObject::connect(m_dialog, SIGNAL(canceled()), &job, SLOT(cancel()));
    QObject::connect(m_dialog, SIGNAL(destroyed()), &job, SLOT(cancel()));
    QTimer::singleShot(m_delayMs, m_dialog, SLOT(show()));
    const QPointer<QWidget> parent(m_dialog->parentWidget());
    const bool wasShown = parent && parent->window()->isVisible();
    job.start();
    while (!job.isFinished()) {
        const bool isUp = m_dialog && m_dialog->isVisible();
        QCoreApplication::processEvents((isUp ? QEventLoop::AllEvents : QEventLoop::ExcludeUserInputEvents) |
                                        QEventLoop::WaitForMoreEvents);
        // Whoever ends the program hides the window and waits for this loop.
        if (wasShown && !(parent && parent->window()->isVisible()))
            job.cancel();
    }
}

} // namespace QUARRY

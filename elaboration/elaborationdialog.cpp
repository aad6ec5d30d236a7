#include "elaboration/elaborationdialog.h"

#include <QCoreApplication>
#include <QLabel>

namespace QUARRY {
namespace {

const int eventPauseMs = 25; // often enough for a smooth dialog, seldom enough to cost nothing

} // namespace

ElaborationDialog::ElaborationDialog(const QString &title, int delayMs, QWidget *parent)
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
    m_sinceStart.start();
    m_sinceEvents.start();
}

ElaborationDialog::~ElaborationDialog()
{
    delete m_dialog.data();
}

void ElaborationDialog::stage(const QString &text)
{
    if (m_dialog)
        m_dialog->setLabelText(text);
    handleEvents();
}

bool ElaborationDialog::cancelled()
{
    if (!m_isCancelled && m_sinceEvents.elapsed() >= eventPauseMs)
        handleEvents();
    return m_isCancelled;
}

void ElaborationDialog::handleEvents()
{
    if (m_dialog && !m_dialog->isVisible() && !m_dialog->wasCanceled() && m_sinceStart.elapsed() >= m_delayMs)
        m_dialog->show();
    const bool isUp = m_dialog && m_dialog->isVisible();
    QCoreApplication::processEvents(isUp ? QEventLoop::AllEvents : QEventLoop::ExcludeUserInputEvents);
    if (!m_dialog || m_dialog->wasCanceled())
        m_isCancelled = true;
    m_sinceEvents.restart();
}

} // namespace QUARRY

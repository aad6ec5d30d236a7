#pragma once

#include <QElapsedTimer>
#include <QPointer>
#include <QProgressDialog>

#include "elaboration/elaboration.h"

namespace QUARRY {

// Shows an elaboration in a modal dialog with the stage and a Cancel button, once it has taken `delayMs`.
// Events are handled while the tools run; before the dialog is up, none that come from the user. The
// death of the parent, and the dialog with it, counts as Cancel.
class ElaborationDialog : public ElaborationProgress
{
public:
    ElaborationDialog(const QString &title, int delayMs, QWidget *parent);
    ~ElaborationDialog() override;

    void stage(const QString &text) override;
    bool cancelled() override;

private:
    void handleEvents();

    QPointer<QProgressDialog> m_dialog;
    QElapsedTimer m_sinceStart;
    QElapsedTimer m_sinceEvents;
    int m_delayMs;
    bool m_isCancelled = false;
};

} // namespace QUARRY

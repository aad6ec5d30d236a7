#pragma once

#include <QObject>
#include <QStringList>

class QDialog;

namespace Workbench {

// While it lives, dialogs that wait for an answer are written down and dismissed, as by Escape: nobody is
// there to answer. Progress dialogs are left alone.
class BoxRecorder : public QObject
{
    Q_OBJECT

public:
    BoxRecorder();

    QStringList texts() const; // "Title: text", in order of appearance

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void dismiss(QDialog *dialog);

    QStringList m_texts;
};

} // namespace Workbench

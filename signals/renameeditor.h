#pragma once

#include <QLineEdit>

namespace RTLJEX {

// A line editor inside a row. It keeps Return, Enter and Escape to itself, which would otherwise also reach
// the default button of a dialog around the tree; Escape puts the first text back before it finishes.
class RenameEditor : public QLineEdit
{
    Q_OBJECT

public:
    RenameEditor(const QString &text, QWidget *parent);

protected:
    bool event(QEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;

private:
    QString m_firstText;
};

} // namespace RTLJEX

#pragma once

#include <QObject>
#include <QPointer>
#include <QString>

class QAction;
class QLineEdit;

namespace Workbench {

// Follows what the user uses in this program, to tell of an edit where it came from: the menu entry, the
// button, the box by its label, the dialog. Knows no editor.
class EditSource : public QObject
{
    Q_OBJECT

public:
    explicit EditSource(QObject *parent);

    QString name() const;             // "Group", "Storage Size", "Trigger Port"; "Edit" for want of better
    const QWidget *typedInto() const; // the text or number box that was used last; null when it was none

Q_SIGNALS:
    void aboutToUse(); // a key or button is pressed; nobody has reacted yet

private:
    bool eventFilter(QObject *watched, QEvent *event) override;
    static void endRenaming(const QWidget *clicked);
    void noteUse(QWidget *widget, const QEvent *event);
    void noteAction(const QAction *action);
    void noteName(const QString &text);

    QString m_name;
    bool m_isVague = true; // of a list, or nothing: a dialog that is opened says more
    QPointer<QWidget> m_typedInto;
};

// A property of a list or an action that says what edits by it are called, where neither does by itself.
extern const char *const editName;

// The line into which a text or number box types; null for others.
QLineEdit *lineOf(QObject *box);

} // namespace Workbench

#pragma once

#include <QList>
#include <QString>
#include <QVariant>
#include <QWidget>

#include "host/filemark.h"

namespace Core {

// Something that a view finds at fault in what it shows, for the host to list.
struct Finding
{
    QString text;   // one line
    QVariant place; // the view knows what it means
};

// The file that a view edits, for the host to look at before anything is written to it.
struct EditedFile
{
    QString path; // empty: the view edits none
    bool isModified = false;
    QUtil::FileMark mark; // what the file held when the view read or saved it last
};

// What became of the state of a view that can hand it over (isnapshot.h).
enum StateChange {
    StateEdited,  // the user changed it, or what it shows was read anew
    StateStored,  // it was collected for a save, which may drop what a file does not hold
    StateReloaded // the file was read: another one, in which no earlier state has a place
};

// A view that the host shows in a tab. The window title is the tab's tool tip, the short title its text.
class IView : public QWidget
{
    Q_OBJECT

public:
    explicit IView(QWidget *parent = nullptr);

    virtual void onActivated();   // the view became the active one; does nothing here
    virtual void onDeactivated(); // another one did; does nothing here

    // What is at fault now; nothing here. A view says with tellFindings() when that may have changed.
    virtual QList<Finding> findings() const;
    virtual void showFinding(const Finding &finding); // brings its place into view; does nothing here
    void tellFindings();
    void tellStateChange(StateChange change);

    // None here. An edit that is under way is ended before, so that it counts.
    virtual EditedFile editedFile() const;
    virtual bool reloadFile(); // drops all edits; false, here always, when nothing was changed

    QString shortTitle() const;
    void setShortTitle(const QString &title);

Q_SIGNALS:
    void shortTitleChanged(const QString &title);
    void findingsChanged();
    void stateChanged(Core::StateChange change); // maybe; several times for one edit

private:
    QString m_shortTitle;
};

} // namespace Core

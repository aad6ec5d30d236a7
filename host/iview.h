#pragma once

#include <QList>
#include <QString>
#include <QStringList>
#include <QVariant>
#include <QWidget>

#include "host/filemark.h"

namespace Core {

// Something that a view finds at fault in what it shows, for the host to list.
struct Finding
{
    // Why it is at fault.
    enum Kind {
        Refusal, // for which the last save was refused
        Stale    // the design does not have it as it is stored, which can be saved all the same
    };
    Kind kind = Stale;
    QString text;             // one line
    QString net;              // full name of the net that it is about; empty: of none
    QStringList replacements; // nets that may take the place of it, the best first
    QVariant place;           // the view knows what it means
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
    StateEdited,   // the user changed it, or what it shows was read anew
    StateStored,   // it was collected for a save, which may drop what a file does not hold
    StateReloaded, // the file was read: another one, in which no earlier state has a place
    StateAtRisk,   // the design is about to be read, which may drop edits: the present state can be had now
    StateAbandoned // the view closes, since the design could not be read; of what was edited, that state is
                   // left
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
    // Puts one of its replacements in the place of the finding's net, as an edit of the user; with `alike`,
    // also where else nets of the design moved in the same way. `told` says what was changed, or why nothing
    // was. False, and nothing told, here.
    virtual bool replaceNet(const Finding &finding, const QString &name, bool alike, QStringList *told);

    // None here. An edit that is under way is ended before, so that it counts.
    virtual EditedFile editedFile() const;
    virtual bool reloadFile(); // drops all edits; false, here always, when nothing was changed
    void tellSaved();

    QString shortTitle() const;
    void setShortTitle(const QString &title);

Q_SIGNALS:
    void shortTitleChanged(const QString &title); // by setShortTitle()
    void findingsChanged();                       // maybe: ask for them
    void stateChanged(Core::StateChange change);  // maybe; several times for one edit
    void fileSaved();                             // what the view edits was written to its file

private:
    QString m_shortTitle;
};

} // namespace Core

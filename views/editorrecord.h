#pragma once

#include <QList>
#include <QObject>
#include <QString>
#include <functional>

#include "check/configuration.h"
#include "check/snapshot.h"
#include "host/filemark.h"
#include "views/designreading.h"

class QCloseEvent;
class QWidget;
namespace QUARRY {
class RtlNetlist;
}
namespace QUtil {
class FileWatcher;
class IEvent;
} // namespace QUtil

namespace RTLJEX {

class EditorView;
class SignalPage;

namespace private_impl {

// What all editors do with their file, their design and the banners above their pages. The private record of
// each is one and adds its cores; the slots that hosts, forms and banners know by name stay with the views
// and records, and call one function each. Dialogs are open in many of these: the editor, and the record with
// it, may be gone when they return.
class EditorRecord : public QObject
{
public:
    EditorRecord(EditorView *view, JEX::JexMode mode);
    ~EditorRecord() override;

    void setModified(bool value); // calls the callback on a change
    // The first edit marks the editor as modified, titles included. `page`: whose it is; others are none of a
    // page.
    void noteEdit(const QObject *page = nullptr);

    // Loads cores and design. The message stays empty when the user has been told.
    bool openFile(const QString &path, QString *errorMessage);
    bool reloadFile();     // drops all edits, keeps the netlist; nothing changes when it fails
    void finishRenaming(); // of a row; may be the first edit
    bool saveFile();       // collects from the pages, checks, writes; tells the user about every failure
    void refuseSave(const QList<CheckError> &errors); // what the host is told of it; none: nothing refuses
    bool saveFileAs(const QString &path); // which is the editor's file then; as before when it fails
    void closing(QCloseEvent *event);

    // Takes the netlist over, shows it in every page and deletes the old one; null: no design.
    virtual void setNlsData(QUARRY::RtlNetlist *fresh) = 0;
    DesignReading readNetlist(); // nothing changes while another reading is under way
    void handleEvent(const QUtil::IEvent *event);
    void askAboutDesign(const QString &question); // whether it is to be read again

    // What is wrong with the cores as they were read or saved last.
    bool check(QString *errors) const;
    int checkShown(); // of the pages as they are now; its findings are those that refuse a save
    const QList<CheckError> &refusals() const { return m_refusals; } // of the last save or check
    // Of those that the pages show. Without a design none is stale.
    QList<StaleSignal> staleSignals() const;
    // Renames the signal, or with `alike` all that moved in the same way, by the rules of a rename; see
    // IView.
    bool replaceSignal(const StaleSignal &signal, const QString &name, bool alike, QStringList *told);
    virtual QWidget *pageOf(int core) const = 0; // of that position; null when there is none
    virtual QWidget *showPage(int core) = 0;     // the same, brought into view
    virtual SignalPage *shownPage() const = 0;   // null when there is none

    // See host/isnapshot.h. Only pages that were edited since are collected anew.
    QByteArray snapshot();
    bool restoreSnapshot(const QByteArray &bytes);

    void noteFileChange();
    void askAboutFile();

    // The answers to the banner that is given.
    void acceptFileReload(QObject *banner);
    void cancelFileReload(QObject *banner);
    void keepFile(QObject *banner);
    void closeFile(QObject *banner);
    void acceptDesignReload(QObject *banner);
    void cancelDesignReload(QObject *banner);

    QString fileName;
    Configuration configuration;
    QUtil::FileMark fileMark;        // what the file held when it was read or saved last
    QUARRY::RtlNetlist *netlist;     // owned
    QUtil::FileWatcher *fileWatcher; // child
    bool modified;
    bool reloadCheckPending;  // from a change of the file until its banner is answered
    bool designChangePending; // while a design banner is shown, further events are of no interest
    std::function<void(bool)> modificationCallback;

protected:
    void installNetlist(QUARRY::RtlNetlist *fresh); // as setNlsData; the same one again changes nothing
    bool refusesCore(int count);                    // tells the user when there can not be more cores
    virtual void showCores() = 0;                   // makes their pages, and one core where there is none
    virtual void deletePages() = 0;
    virtual bool writeCores(QString *error); // to the file

    QWidget *bannerContainer; // of the form; set by who builds the form

private:
    virtual void savePages() = 0;
    virtual void noteChange(const QObject *page) = 0; // null: all of them
    virtual QList<CoreSnapshot> packPages() = 0;      // none when a page shows what no file can hold
    // Makes the pages show these cores. False, with nothing changed, when one is damaged.
    virtual bool showPacked(const QList<CoreSnapshot> &packed) = 0;
    virtual void handNetlistToPages() = 0;
    virtual QString errorsText() const = 0; // above the errors of the check

    bool readCores(QString *errorMessage); // and shows them
    void collectSignals(Configuration *copy) const;
    void showSignals(const Configuration &copy);
    void endFileBanner(QObject *banner);
    void abandonView();
    void closeView();
    void showModified(bool value);
    void rememberSaved(const QList<CoreSnapshot> &cores);

    EditorView *m_view;
    QList<CheckError> m_refusals;
    bool m_isReading = false; // the design: who dies meanwhile stops the tools
    bool m_isRestoring = false;
    // What the pages showed while nothing was modified: the cores of the file, as the designs of this time
    // made them.
    QList<QList<CoreSnapshot>> m_saved;
};

} // namespace private_impl
} // namespace RTLJEX

#include "views/editorrecord.h"

#include <QCloseEvent>
#include <QPointer>

#include "elaboration/catchrtl.h"
#include "elaboration/readingjob.h"
#include "host/modal.h"
#include "model/netlist/rtlnetlist.h"
#include "signals/signaltreewidget.h"
#include "views/bannerhost.h"
#include "views/designevents.h"
#include "views/editorview.h"
#include "views/filewatch.h"
#include "views/saving.h"
#include "views/viewwindow.h"

namespace RTLJEX {
namespace private_impl {

EditorRecord::EditorRecord(EditorView *view, JEX::JexMode mode)
    : QObject(view),
      configuration(mode),
      netlist(nullptr),
      fileWatcher(new FileWatcher(this)),
      modified(false),
      reloadCheckPending(false),
      designChangePending(false),
      bannerContainer(nullptr),
      m_view(view)
{
}

EditorRecord::~EditorRecord()
{
    if (m_isReading)
        QUARRY::ReadingJob::cancelAll();
    delete netlist;
}

void EditorRecord::setModified(bool value)
{
    if (modified == value)
        return;
    modified = value;
    if (modificationCallback)
        modificationCallback(value);
}

void EditorRecord::noteEdit(const QObject *page)
{
    if (page)
        noteChange(page);
    if (m_isRestoring)
        return;
    showModified(true);
    m_view->tellStateChange(Core::StateEdited);
}

// The titles first: who hears of the modification reads them.
void EditorRecord::showModified(bool value)
{
    if (modified != value)
        showTitles(m_view, fileName, value);
    setModified(value);
}

bool EditorRecord::openFile(const QString &path, QString *errorMessage)
{
    fileWatcher->stop(fileName);
    fileName = path;
    fileWatcher->renew(fileName);
    if (!configuration.accepts(fileName)) {
        if (errorMessage)
            *errorMessage = JexInserterView::tr("%1 open file failed.").arg(fileName);
        return false;
    }
    // A change between this and the reading is asked about once too often, never once too little.
    fileMark = QUtil::FileMark::of(fileName);
    if (!readCores(errorMessage))
        return false;
    showTitles(m_view, fileName, modified);
    return readNetlist() == DesignRead;
}

bool EditorRecord::reloadFile()
{
    const QUtil::FileMark mark = QUtil::FileMark::of(fileName);
    if (!configuration.accepts(fileName) || !readCores(nullptr))
        return false;
    fileMark = mark;
    // A page that is made does not judge its rows by the netlist; one that is given a netlist does.
    if (netlist)
        handNetlistToPages();
    m_view->tellFindings();
    m_saved.clear();
    m_view->tellStateChange(Core::StateReloaded);
    return true;
}

bool EditorRecord::readCores(QString *errorMessage)
{
    Configuration fresh(configuration.mode());
    if (!fresh.read(fileName, errorMessage))
        return false;
    // The pages point at the cores that go.
    deletePages();
    configuration.swap(fresh);
    showCores();
    return true;
}

bool EditorRecord::saveFile()
{
    qDebug("save jex");
    finishRenaming();
    savePages();
    noteChange(nullptr);
    m_view->tellStateChange(Core::StateStored);
    QString errors;
    if (!check(&errors)) {
        showErrors(m_view, errorsText(), errors);
        return false;
    }
    bool written = false;
    QString reason;
    {
        const WatchPause pause(fileWatcher, fileName);
        written = writeCores(&reason);
        // The last step of a save can fail when the file is written.
        QByteArray bytes;
        QString error;
        configuration.toBytes(&bytes, &error);
        const QUtil::FileMark mark(bytes);
        if (written || mark == QUtil::FileMark::of(fileName))
            fileMark = mark;
    }
    if (!written) {
        showWriteFailure(m_view, fileName, reason);
        return false;
    }
    showTitles(m_view, fileName, false);
    m_saved.clear();
    setModified(false);
    m_view->tellStateChange(Core::StateStored);
    return true;
}

bool EditorRecord::saveFileAs(const QString &path)
{
    const QString before = fileName;
    const QPointer<QObject> alive(this);
    fileName = path;
    const bool saved = saveFile();
    if (!alive)
        return false;
    if (saved)
        fileWatcher->stop(before);
    else
        fileName = before;
    return saved;
}

bool EditorRecord::writeCores(QString *error)
{
    return configuration.write(fileName, error);
}

bool EditorRecord::check(QString *errors) const
{
    return configuration.check(netlist, errors);
}

// Of a copy: the stored records are what a design that is read again is compared with.
QStringList EditorRecord::checkShown()
{
    Snapshot shown;
    Configuration copy(configuration.mode());
    finishRenaming();
    if (!Snapshot::fromBytes(snapshot(), &shown) || !readSnapshot(shown, &copy))
        return QStringList(JexInserterView::tr("What is shown can not be put into a file."));
    QString errors;
    return copy.check(netlist, &errors) ? QStringList() : errors.split(QLatin1Char('\n'));
}

QList<StaleSignal> EditorRecord::staleSignals() const
{
    return netlist ? configuration.staleSignals(*netlist) : QList<StaleSignal>();
}

void EditorRecord::closing(QCloseEvent *event)
{
    finishRenaming();
    const SaveAnswer answer = modified ? askSaveChanges(m_view, fileName) : DiscardChanges;
    event->setAccepted(answer == DiscardChanges || (answer == SaveChanges && saveFile()));
}

// A shortcut, or the cross of a tab, leaves the focus in the row that is being renamed.
void EditorRecord::finishRenaming()
{
    for (signalTreeWidget *tree : m_view->findChildren<signalTreeWidget *>())
        tree->finishEdit();
}

bool EditorRecord::refusesCore(int count)
{
    if (count < JEX::CoreLimit)
        return false;
    QUtil::messageBox(m_view, QMessageBox::Warning, JexInserterView::tr("Warning"),
                      JexInserterView::tr("Support 16 AOs at most."));
    return true;
}

// The design

DesignReading EditorRecord::readNetlist()
{
    if (QUARRY::isCatchingRtl())
        return DesignCancelled;
    setNlsData(nullptr);
    QUARRY::RtlNetlist *fresh = nullptr;
    const QPointer<QObject> alive(this);
    m_isReading = true;
    const DesignReading reading = readDesign(m_view, &fresh);
    if (!alive)
        return DesignCancelled;
    m_isReading = false;
    if (reading == DesignRead)
        setNlsData(fresh);
    if (reading == DesignRead)
        m_view->tellFindings();
    m_view->tellStateChange(Core::StateEdited); // also where it failed: edits that were not saved are gone
    return reading;
}

void EditorRecord::installNetlist(QUARRY::RtlNetlist *fresh)
{
    if (fresh == netlist)
        return;
    rejectDialogsBelow(m_view);
    const QUARRY::RtlNetlist *old = netlist;
    netlist = fresh;
    handNetlistToPages();
    noteChange(nullptr);
    delete old;
}

void EditorRecord::handleEvent(const QUtil::IEvent *event)
{
    if (designChangePending)
        return;
    const DesignReaction reaction = designReaction(event);
    if (reaction == DesignFilesChanged)
        askAboutDesignFiles();
    else if (reaction == TopModuleChanged)
        askAboutTopModule();
}

void EditorRecord::askAboutDesignFiles()
{
    askAboutDesign(JexInserterView::tr("Design files changed. Do you want to reload?"));
}

void EditorRecord::askAboutTopModule()
{
    askAboutDesign(JexInserterView::tr("Top module changed. Do you want to reload?"));
}

void EditorRecord::askAboutDesign(const QString &question)
{
    designChangePending = true;
    offerDesignReload(bannerContainer, m_view, question);
}

void EditorRecord::acceptDesignReload(QObject *banner)
{
    const QString question = bannerText(banner);
    dismissBanner(banner);
    const QPointer<QObject> alive(this);
    const DesignReading reading = readNetlist();
    if (!alive)
        return;
    if (reading == DesignRead)
        designChangePending = false;
    else if (reading == DesignRefused)
        closeView();
    else if (!question.isEmpty())
        askAboutDesign(question);
}

void EditorRecord::cancelDesignReload(QObject *banner)
{
    dismissBanner(banner);
    designChangePending = false;
}

// The state as bytes

QByteArray EditorRecord::snapshot()
{
    Snapshot whole;
    whole.mode = configuration.mode();
    whole.file = fileName;
    whole.cores = packPages();
    if (!modified && !whole.cores.isEmpty())
        rememberSaved(whole.cores);
    return whole.cores.isEmpty() ? QByteArray() : whole.toBytes();
}

// A design that is read while nothing is modified makes another state of the same file.
void EditorRecord::rememberSaved(const QList<CoreSnapshot> &cores)
{
    const int most = 4;
    m_saved.removeAll(cores);
    m_saved.append(cores);
    if (m_saved.size() > most)
        m_saved.removeFirst();
}

bool EditorRecord::restoreSnapshot(const QByteArray &bytes)
{
    Snapshot wanted;
    if (m_isReading || m_isRestoring || !Snapshot::fromBytes(bytes, &wanted) ||
        wanted.mode != configuration.mode())
        return false;
    m_isRestoring = true;
    const bool isShown = showPacked(wanted.cores);
    m_isRestoring = false;
    if (!isShown)
        return false;
    showModified(!m_saved.contains(packPages()));
    m_view->tellStateChange(Core::StateEdited);
    return true;
}

// The file on disk

void EditorRecord::noteFileChange()
{
    fileWatcher->renew(fileName);
    scheduleReloadCheck(&reloadCheckPending, m_view);
}

void EditorRecord::askAboutFile()
{
    fileWatcher->renew(fileName);
    offerFileReload(bannerContainer, m_view, fileName);
}

void EditorRecord::acceptFileReload(QObject *banner)
{
    if (reloadFile()) {
        endFileBanner(banner);
        return;
    }
    const QPointer<QObject> alive(this), offer(banner);
    QUtil::messageBox(m_view, QMessageBox::Warning, JexInserterView::tr("Reload Jex"),
                      JexInserterView::tr("Invalid JEX file."));
    if (alive)
        closeFile(offer);
}

void EditorRecord::cancelFileReload(QObject *banner)
{
    endFileBanner(banner);
    designChangePending = false;
}

// It may be back, under the banner or later: somebody's else, which the next save would overwrite.
void EditorRecord::keepFile(QObject *banner)
{
    endFileBanner(banner);
    if (!fileWatcher->files().isEmpty())
        noteFileChange();
}

void EditorRecord::closeFile(QObject *banner)
{
    endFileBanner(banner);
    closeView();
}

void EditorRecord::endFileBanner(QObject *banner)
{
    dismissBanner(banner);
    reloadCheckPending = false;
    fileWatcher->await(fileName);
}

// Without asking: unsaved edits are dropped.
void EditorRecord::closeView()
{
    finishRenaming();
    showTitles(m_view, fileName, false);
    setModified(false);
    closeContainer(m_view);
}

} // namespace private_impl
} // namespace RTLJEX

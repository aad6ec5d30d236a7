#include "views/editorrecord.h"

#include <QCloseEvent>
#include <QFileInfo>
#include <QPointer>
#include <QTimer>

#include "check/rebinding.h"
#include "elaboration/catchrtl.h"
#include "elaboration/readingjob.h"
#include "host/filewatcher.h"
#include "host/modal.h"
#include "model/netlist/rtlnetlist.h"
#include "signals/signaltreewidget.h"
#include "views/bannerhost.h"
#include "views/designevents.h"
#include "views/editorview.h"
#include "views/pagesignals.h"
#include "views/saving.h"
#include "views/viewwindow.h"

namespace RTLJEX {
namespace private_impl {

static const int coalescingTime = 500; // ms

EditorRecord::EditorRecord(EditorView *view, JEX::JexMode mode)
    : QObject(view),
      configuration(mode),
      netlist(nullptr),
      fileWatcher(new QUtil::FileWatcher(this)),
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
    fileWatcher->forget(fileName);
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
    refuseSave(QList<CheckError>());
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
    refuseSave(configuration.errors(netlist));
    if (!check(&errors)) {
        showErrors(m_view, errorsText(), errors);
        return false;
    }
    bool written = false;
    QString reason;
    {
        const QUtil::WatchPause pause(fileWatcher, fileName);
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
    m_view->tellSaved();
    return true;
}

void EditorRecord::refuseSave(const QList<CheckError> &errors)
{
    m_refusals = errors;
    m_view->tellFindings();
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
int EditorRecord::checkShown()
{
    Snapshot shown;
    Configuration copy(configuration.mode());
    finishRenaming();
    QList<CheckError> errors;
    if (Snapshot::fromBytes(snapshot(), &shown) && readSnapshot(shown, &copy)) {
        errors = copy.errors(netlist);
    } else {
        errors << CheckError();
        errors.last().line = JexInserterView::tr("What is shown can not be put into a file.");
    }
    refuseSave(errors);
    return errors.size();
}

QList<StaleSignal> EditorRecord::staleSignals() const
{
    if (!netlist)
        return QList<StaleSignal>();
    Configuration shown;
    collectSignals(&shown);
    return shown.staleSignals(*netlist);
}

void EditorRecord::collectSignals(Configuration *copy) const
{
    copy->takeSignalsOf(configuration);
    QList<AnyCore> cores = copy->cores();
    for (int i = 0; i < cores.size(); ++i) {
        if (const QWidget *page = pageOf(i))
            takePageSignals(page, cores[i]);
    }
}

void EditorRecord::showSignals(const Configuration &copy)
{
    QList<AnyCore> shown = copy.cores(), stored = configuration.cores();
    for (int i = 0; i < qMin(shown.size(), stored.size()); ++i) {
        if (QWidget *page = pageOf(i))
            putPageSignals(page, shown[i], stored[i], netlist);
    }
}

// Signals that moved in the same way are those that the design has under the other path.
static QList<StaleSignal> movedAlike(const QList<StaleSignal> &stale, const Renaming &move,
                                     const QUARRY::RtlNetlist &netlist)
{
    QList<StaleSignal> alike;
    for (const StaleSignal &signal : stale) {
        const QString now = move.renamed(signal.name);
        if (now != signal.name && (netlist.findNet(now) || netlist.findBus(now)))
            alike << signal;
    }
    return alike;
}

bool EditorRecord::replaceSignal(const StaleSignal &signal, const QString &name, bool alike,
                                 QStringList *told)
{
    finishRenaming();
    Renaming renaming;
    QString error;
    if (!netlist ||
        !(alike ? renaming.setMove(signal.name, name, &error) : renaming.set(signal.name, name, &error))) {
        told->append(error);
        return false;
    }
    Configuration copy;
    collectSignals(&copy);
    QList<StaleSignal> places;
    places << signal;
    if (alike)
        places = movedAlike(copy.staleSignals(*netlist), renaming, *netlist);
    const Rebinding made = rebindAt(places, renaming, *netlist, copy);
    if (made.changes.isEmpty())
        told->append(JexInserterView::tr("%1 does not stand there any more.").arg(signal.name));
    else if (!made.refusal.isEmpty())
        told->append(JexInserterView::tr("%1 Nothing was changed.").arg(made.refusal));
    if (!told->isEmpty())
        return false;
    showSignals(copy);
    for (const auto &change : made.changes)
        told->append(change.first + QLatin1String(" -> ") + change.second);
    m_view->tellFindings();
    return true;
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
    const QString question = designQuestion(event);
    if (!question.isEmpty())
        askAboutDesign(question);
}

void EditorRecord::askAboutDesign(const QString &question)
{
    designChangePending = true;
    ReloadBanner *banner = showBanner(bannerContainer, ReloadBanner::Changed, QString());
    connect(banner, SIGNAL(reload()), m_view, SLOT(onRtlReload()));
    connect(banner, SIGNAL(cancel()), m_view, SLOT(onReloadCancel()));
    banner->setText(question);
}

void EditorRecord::acceptDesignReload(QObject *banner)
{
    const QString question = bannerText(banner);
    dismissBanner(banner);
    const QPointer<QObject> alive(this);
    finishRenaming();
    m_view->tellStateChange(Core::StateAtRisk);
    const DesignReading reading = readNetlist();
    if (!alive)
        return;
    if (reading == DesignRead)
        designChangePending = false;
    else if (reading == DesignRefused)
        abandonView();
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

// A burst of reports ends in one question.
void EditorRecord::noteFileChange()
{
    fileWatcher->renew(fileName);
    if (reloadCheckPending)
        return;
    reloadCheckPending = true;
    QTimer::singleShot(coalescingTime, m_view, SLOT(checkForReload()));
}

void EditorRecord::askAboutFile()
{
    fileWatcher->renew(fileName);
    const bool exists = QFileInfo(fileName).exists();
    ReloadBanner *banner =
        showBanner(bannerContainer, exists ? ReloadBanner::Changed : ReloadBanner::Removed, fileName);
    connect(banner, SIGNAL(reload()), m_view, SLOT(onBannerReload()));
    connect(banner, SIGNAL(cancel()), m_view, SLOT(onBannerCancel()));
    connect(banner, SIGNAL(keepIt()), m_view, SLOT(onBannerKeep()));
    connect(banner, SIGNAL(closeIt()), m_view, SLOT(onBannerClose()));
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

void EditorRecord::abandonView()
{
    m_view->tellStateChange(Core::StateAbandoned);
    closeView();
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

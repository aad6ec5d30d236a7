#include "views/editorview.h"

#include <QTabWidget>

#include "check/netplace.h"
#include "host/modal.h"
#include "options/signalpage.h"
#include "signals/namedsignals.h"
#include "views/designevents.h"
#include "views/designreading.h"
#include "views/editorplace.h"
#include "views/editorrecord.h"
#include "views/findingplaces.h"
#include "views/pagesignals.h"
#include "views/saving.h"

namespace RTLJEX {

EditorView::EditorView(QWidget *parent) : JexInserterView(parent), m_record(nullptr)
{
}

void EditorView::setRecord(private_impl::EditorRecord *record)
{
    m_record = record;
    record->modificationCallback = [this](bool modified) { Q_EMIT modificationStatusChanged(modified); };
}

QString EditorView::file() const
{
    return m_record->fileName;
}

bool EditorView::open(const QString &fileName, const QString &, QString *errorMessage)
{
    return m_record->openFile(fileName, errorMessage);
}

bool EditorView::save()
{
    return maySave() && m_record->saveFile();
}

// Tells the user where not.
bool EditorView::maySave()
{
    const QString fault = synthesisToolFault();
    if (fault.isEmpty())
        return true;
    CheckError error;
    error.line = fault;
    error.core = -1;
    m_record->refuseSave(QList<CheckError>() << error);
    QUtil::messageBox(this, QMessageBox::Critical, JexInserterView::tr("Error"), fault);
    return false;
}

bool EditorView::isModified() const
{
    return m_record->modified;
}

void EditorView::closeEvent(QCloseEvent *event)
{
    m_record->closing(event);
}

// A view subscribes before it is complete.
void EditorView::handleIEvent(const QUtil::IEvent *event)
{
    if (m_record)
        m_record->handleEvent(event);
}

QList<Core::Finding> EditorView::findings() const
{
    return listFindings(m_record->refusals(), m_record->staleSignals());
}

void EditorView::showFinding(const Core::Finding &finding)
{
    if (QWidget *page = m_record->showPage(coreOf(finding)))
        RTLJEX::showPlace(page, finding);
}

bool EditorView::replaceNet(const Core::Finding &finding, const QString &name, bool alike, QStringList *told)
{
    return m_record->replaceSignal(staleSignalOf(finding), name, alike, told);
}

QString EditorView::focusedNet() const
{
    return focusedSignal(focusWidget());
}

Core::NetPlace EditorView::placeOf(const QString &net) const
{
    return netPlace(m_record->netlist, net);
}

Core::EditedFile EditorView::editedFile() const
{
    m_record->finishRenaming();
    Core::EditedFile file;
    file.path = m_record->fileName;
    file.isModified = m_record->modified;
    file.mark = m_record->fileMark;
    return file;
}

bool EditorView::reloadFile()
{
    return m_record->reloadFile();
}

QString EditorView::signalPlace(const QWidget *widget, const QPoint &position) const
{
    const SignalPage *page = m_record->shownPage();
    return page ? page->signalPlace(widget, position) : QString();
}

bool EditorView::addSignals(const QMimeData &data, const QWidget *widget, const QPoint &position,
                            QStringList *faults)
{
    m_record->finishRenaming();
    SignalPage *page = m_record->shownPage();
    const QList<JEX::SignalItem> chosen = signalsOfData(data, m_record->netlist, faults);
    return page && !chosen.isEmpty() && page->addSignals(chosen, widget, position, faults);
}

QMimeData *EditorView::chosenSignals() const
{
    const SignalPage *page = m_record->shownPage();
    const QList<JEX::SignalItem> chosen = page ? page->chosenSignals() : QList<JEX::SignalItem>();
    return chosen.isEmpty() ? nullptr : dataOfSignals(chosen);
}

bool EditorView::saveFileAs(const QString &path)
{
    return maySave() && m_record->saveFileAs(path);
}

int EditorView::checkShown() const
{
    return m_record->checkShown();
}

QString EditorView::shownPlace() const
{
    return shownPlaceOf(this);
}

void EditorView::showPlace(const QString &place)
{
    int core = 0, tab = 0;
    QTabWidget *page =
        readPlace(place, &core, &tab) ? qobject_cast<QTabWidget *>(m_record->showPage(core)) : nullptr;
    if (page && tab < page->count())
        page->setCurrentIndex(tab);
}

QByteArray EditorView::snapshot() const
{
    return m_record->snapshot();
}

bool EditorView::restoreSnapshot(const QByteArray &bytes)
{
    return m_record->restoreSnapshot(bytes);
}

bool EditorView::isSnapshotSaved() const
{
    return !m_record->modified;
}

QUARRY::RtlNetlist *EditorView::updateRtlNetlist()
{
    return catchDesignNetlist();
}

bool EditorView::getRtlModules(QMap<QString, QVariant> &info, QStringList &topModules, QStringList &modules,
                               QStringList &messages)
{
    return catchDesignModules(info, topModules, modules, messages);
}

QStringList EditorView::includePaths()
{
    return projectIncludePaths();
}

void EditorView::designFileChanged()
{
    m_record->askAboutDesign(designFilesQuestion());
}

void EditorView::topModuleChanged()
{
    m_record->askAboutDesign(topModuleQuestion());
}

bool EditorView::reloadJexFile()
{
    return m_record->reloadFile();
}

} // namespace RTLJEX

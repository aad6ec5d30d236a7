#include "workbench/runmenu.h"

#include <QDesktopServices>
#include <QFileDialog>
#include <QFileInfo>
#include <QMenu>
#include <QProcess>
#include <QUrl>

#include "check/configuration.h"
#include "elaboration/elaboration.h"
#include "elaboration/jobdialog.h"
#include "elaboration/readingjob.h"
#include "elaboration/tools/toolprocess.h"
#include "host/iview.h"
#include "host/project.h"
#include "host/viewmanager.h"
#include "insertion/insertionjob.h"
#include "insertion/outputfolder.h"
#include "insertion/simulationjob.h"
#include "insertion/viewerfiles.h"
#include "model/jex/devicetable.h"
#include "model/netlist/rtlnetlist.h"
#include "workbench/simulatedialog.h"

namespace Workbench {

RunMenu::RunMenu(QMenu *menu, QSettings *settings, QWidget *window)
    : QObject(menu),
      m_settings(settings),
      m_window(window),
      m_insertAction(menu->addAction(tr("&Insert into Design..."))),
      m_simulateAction(menu->addAction(tr("&Simulate Capture..."))),
      m_openAction(menu->addAction(tr("&Open Waveform")))
{
    connect(m_insertAction, &QAction::triggered, this, &RunMenu::onInsert);
    connect(m_simulateAction, &QAction::triggered, this, &RunMenu::onSimulate);
    connect(m_openAction, &QAction::triggered, this, &RunMenu::onOpenWaveform);
    m_openAction->setEnabled(false);
}

void RunMenu::setEnabled(bool isEnabled)
{
    m_insertAction->setEnabled(isEnabled);
    m_simulateAction->setEnabled(isEnabled);
}

bool RunMenu::fail(const QString &text)
{
    Q_EMIT message(text, true);
    return false;
}

void RunMenu::tell(const QStringList &messages)
{
    for (const QString &text : messages)
        Q_EMIT message(text, QUARRY::isError(text));
}

QString RunMenu::folder() const
{
    const Core::Project *project = Core::ProjectManager::currentProject();
    return project ? project->workingDir() : QString();
}

// The file of the view in front. What it holds on the disk counts, so it has to be saved.
QString RunMenu::chosenFile()
{
    const Core::IView *view = Core::ViewManager::instance()->currentView();
    const Core::EditedFile edited = view ? view->editedFile() : Core::EditedFile();
    if (edited.path.isEmpty())
        return QFileDialog::getOpenFileName(m_window, tr("Configuration"), folder(),
                                            tr("Configurations (*.zub)"));
    if (!edited.isModified)
        return edited.path;
    fail(tr("%1 has changes that are not saved. Save it first.").arg(QFileInfo(edited.path).fileName()));
    return QString();
}

void RunMenu::onInsert()
{
    const QPointer<RunMenu> alive(this);
    const QString file = chosenFile();
    if (!alive || file.isEmpty())
        return;
    const QString output =
        QFileDialog::getSaveFileName(m_window, tr("New Folder for the Analyzer"), folder() + "/jex",
                                     QString(), nullptr, QFileDialog::DontConfirmOverwrite);
    if (alive && !output.isEmpty())
        insert(file, output);
}

void RunMenu::onSimulate()
{
    const QPointer<RunMenu> alive(this);
    const QString file = chosenFile();
    if (!alive || file.isEmpty())
        return;
    const QString proposed = folder() + '/' + QFileInfo(file).completeBaseName() + ".vcd";
    const QPointer<SimulateDialog> dialog(new SimulateDialog(proposed, m_settings, m_window));
    dialog->addBench(m_bench);
    const bool isAccepted = dialog->exec() == QDialog::Accepted;
    if (!dialog)
        return;
    dialog->deleteLater();
    if (!alive || !isAccepted)
        return;
    m_bench = dialog->bench();
    simulate(file, m_bench, dialog->waveform(), dialog->simulator());
}

void RunMenu::onOpenWaveform()
{
    const QString viewer = QUARRY::findProgram("gtkwave");
    const QString saved = Insertion::viewerFile(m_waveform);
    QStringList files{m_waveform};
    if (QFileInfo(saved).isFile() && saved != m_waveform)
        files << saved;
    // The save file names the files of labels, which are beside it.
    const bool isOpened = viewer.isEmpty()
                              ? QDesktopServices::openUrl(QUrl::fromLocalFile(m_waveform))
                              : QProcess::startDetached(viewer, files, QFileInfo(m_waveform).absolutePath());
    if (!isOpened)
        fail(tr("No program was found that shows %1. Install Debian's package gtkwave.").arg(m_waveform));
}

bool RunMenu::runBelowDialog(const QString &title, QUARRY::Job &job)
{
    const QPointer<RunMenu> alive(this);
    QUARRY::JobDialog(title, 0, m_window).run(job);
    return alive;
}

bool RunMenu::open(const QString &file, RTLJEX::Configuration &configuration,
                   std::unique_ptr<QUARRY::RtlNetlist> &netlist)
{
    QString error;
    if (!configuration.read(file, &error))
        return fail(error);
    QUARRY::ReadingJob reading(QUARRY::projectInput(), QUARRY::ReadingJob::Netlist);
    if (!runBelowDialog(tr("Read Design"), reading))
        return false;
    if (reading.isCancelled())
        return fail(tr("Cancelled."));
    netlist.reset(reading.takeNetlist());
    if (!netlist || !netlist->topHierarchy) {
        tell(reading.modules().messages + reading.netlistMessages());
        return fail(tr("The design cannot be read."));
    }
    const RTLJEX::FileFindings findings = configuration.judge(*netlist);
    for (const QString &text : findings.errors)
        fail(text);
    for (const RTLJEX::StaleSignal &stale : findings.stale)
        fail(RTLJEX::staleSentence(stale));
    return findings.isEmpty();
}

bool RunMenu::insert(const QString &file, const QString &folder)
{
    RTLJEX::Configuration configuration;
    std::unique_ptr<QUARRY::RtlNetlist> netlist;
    QStringList sources{file};
    for (const QUARRY::DesignSource &source : QUARRY::projectInput().files)
        sources << source.path;
    const Insertion::OutputFolder output(folder, sources);
    QString error = output.fault();
    if (!error.isEmpty())
        return fail(error);
    if (!open(file, configuration, netlist))
        return false;
    Insertion::InsertionOptions options;
    if (const Core::Project *project = Core::ProjectManager::currentProject())
        options.device = JEX_TOOL::findDevice(project->data().device.series, project->data().device.device);
    Insertion::InsertionJob job(QUARRY::projectInput(), configuration, *netlist, options);
    if (!runBelowDialog(tr("Insert into Design"), job))
        return false;
    tell(job.messages());
    if (job.outcome() == Insertion::InsertionJob::Cancelled)
        return fail(tr("Cancelled: nothing was written."));
    if (job.files().isEmpty())
        return false;
    if (!output.write(job.files(), &error))
        return fail(error);
    Q_EMIT message(tr("The analyzer of %1 is in %2.").arg(QFileInfo(file).fileName(), folder) + '\n' +
                       QString::fromUtf8(job.files().value("report.txt")).trimmed(),
                   false);
    return job.outcome() == Insertion::InsertionJob::Done;
}

bool RunMenu::simulate(const QString &file, const QStringList &bench, const QString &waveform,
                       Insertion::Simulator simulator)
{
    RTLJEX::Configuration configuration;
    std::unique_ptr<QUARRY::RtlNetlist> netlist;
    if (!open(file, configuration, netlist))
        return false;
    Insertion::SimulationOptions options;
    options.bench = bench;
    options.simulator = simulator;
    Insertion::SimulationJob job(QUARRY::projectInput(), configuration, *netlist, options);
    if (!runBelowDialog(tr("Simulate Capture"), job))
        return false;
    const QString words = QString::fromUtf8(job.benchWords()).trimmed();
    if (!words.isEmpty())
        Q_EMIT message(words, false);
    tell(job.messages());
    if (job.outcome() == Insertion::SimulationJob::Cancelled)
        return fail(tr("Cancelled: nothing was written."));
    QString error;
    if (job.waveform().isEmpty())
        return false;
    if (!job.write(waveform, QString(), &error))
        return fail(error);
    m_waveform = QFileInfo(waveform).absoluteFilePath();
    m_openAction->setEnabled(true);
    Q_EMIT message(tr("What was captured is in %1. Run > Open Waveform shows it.").arg(waveform), false);
    return job.outcome() == Insertion::SimulationJob::Done;
}

} // namespace Workbench

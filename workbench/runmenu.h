#pragma once

#include <QObject>
#include <QPointer>
#include <QString>
#include <QStringList>

#include <memory>

#include "insertion/simulators.h"

class QAction;
class QMenu;
class QSettings;
class QWidget;

namespace QUARRY {
class Job;
class RtlNetlist;
} // namespace QUARRY
namespace RTLJEX {
class Configuration;
}

namespace Workbench {

// The menu Run: what a saved configuration does in the design of the open project. Each work runs below a
// dialog with its stage and a Cancel button; what came of it is told as messages.
class RunMenu : public QObject
{
    Q_OBJECT

public:
    RunMenu(QMenu *menu, QSettings *settings, QWidget *window); // none owned; settings may be null

    void setEnabled(bool isEnabled); // by whether there is a project

    // Without questions, for the actions; false when it did not go well, as the messages say.
    bool insert(const QString &file, const QString &folder);
    bool simulate(const QString &file, const QStringList &bench, const QString &waveform,
                  Insertion::Simulator simulator = Insertion::Simulator::Icarus);

Q_SIGNALS:
    void message(const QString &text, bool isError);

private:
    void onInsert();
    void onSimulate();
    void onOpenWaveform();
    QString chosenFile();
    QString folder() const;
    bool fail(const QString &text);
    bool open(const QString &file, RTLJEX::Configuration &configuration,
              std::unique_ptr<QUARRY::RtlNetlist> &netlist);
    void tell(const QStringList &messages);
    bool runBelowDialog(const QString &title, QUARRY::Job &job); // false when this died meanwhile

    QSettings *m_settings;
    QPointer<QWidget> m_window;
    QAction *m_insertAction;
    QAction *m_simulateAction;
    QAction *m_openAction;
    QStringList m_bench; // the last one that was simulated
    QString m_waveform;  // the last one that was written
};

} // namespace Workbench

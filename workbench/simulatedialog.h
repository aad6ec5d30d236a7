#pragma once

#include <QDialog>
#include <QStringList>

#include "insertion/simulators.h"

class QComboBox;
class QDialogButtonBox;
class QLabel;
class QLineEdit;
class QListWidget;
class QSettings;

namespace Workbench {

// Asks for what a simulation needs beside the configuration: the files of the test bench, the waveform to be
// written, and the simulator. That is remembered; what it lacks on this machine is said when it is chosen.
class SimulateDialog : public QDialog
{
    Q_OBJECT

public:
    // `waveform` is proposed. The settings, which may be null, are not owned.
    SimulateDialog(const QString &waveform, QSettings *settings, QWidget *parent);

    QStringList bench() const;
    QString waveform() const;
    Insertion::Simulator simulator() const;

    void addBench(const QStringList &files);
    void accept() override;

private:
    void browseBench();
    void browseWaveform();
    void removeBench();
    void updateState();

    QSettings *m_settings;
    QListWidget *m_bench;
    QLineEdit *m_waveform;
    QComboBox *m_simulator;
    QLabel *m_note;
    QDialogButtonBox *m_buttons;
};

} // namespace Workbench

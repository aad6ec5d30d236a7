#include "workbench/simulatedialog.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QSettings>

#include "workbench/windowmemory.h"

namespace Workbench {
namespace {

const char *const key = "simulator";
const char *const verilator = "verilator";

QLabel *labelFor(QWidget *field, const QString &text)
{
    auto *label = new QLabel(text);
    label->setBuddy(field);
    return label;
}

} // namespace

SimulateDialog::SimulateDialog(const QString &waveform, QSettings *settings, QWidget *parent)
    : QDialog(parent),
      m_settings(settings),
      m_bench(new QListWidget),
      m_waveform(new QLineEdit(QDir::toNativeSeparators(waveform))),
      m_simulator(new QComboBox),
      m_note(new QLabel),
      m_buttons(new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel))
{
    setProperty("helpTopic", "run");
    setWindowTitle(tr("Simulate Capture"));
    resize(600, 320);
    m_bench->setAccessibleName(tr("Test Bench")); // a list does not take that of its label
    m_bench->setSelectionMode(QAbstractItemView::ExtendedSelection);
    m_simulator->addItem("Icarus Verilog", "icarus");
    m_simulator->addItem("Verilator", verilator);
    if (settings)
        m_simulator->setCurrentIndex(settings->value(key).toString() == verilator);
    m_note->setWordWrap(true);
    m_note->setTextFormat(Qt::PlainText);
    auto *addButton = new QPushButton(tr("&Add...")), *removeButton = new QPushButton(tr("&Remove")),
         *browseButton = new QPushButton(tr("&Browse..."));
    for (QPushButton *button : {addButton, removeButton, browseButton})
        button->setAutoDefault(false);
    auto *layout = new QGridLayout(this);
    layout->addWidget(labelFor(m_bench, tr("&Test bench:")), 0, 0, Qt::AlignTop);
    layout->addWidget(m_bench, 0, 1, 3, 1);
    layout->addWidget(addButton, 0, 2);
    layout->addWidget(removeButton, 1, 2);
    layout->addWidget(labelFor(m_waveform, tr("&Waveform:")), 3, 0);
    layout->addWidget(m_waveform, 3, 1);
    layout->addWidget(browseButton, 3, 2);
    layout->addWidget(labelFor(m_simulator, tr("&Simulator:")), 4, 0);
    layout->addWidget(m_simulator, 4, 1, 1, 2);
    layout->addWidget(m_note, 5, 1, 1, 2);
    layout->addWidget(m_buttons, 6, 0, 1, 3);
    layout->setRowStretch(2, 1);
    connect(addButton, &QPushButton::clicked, this, &SimulateDialog::browseBench);
    connect(removeButton, &QPushButton::clicked, this, &SimulateDialog::removeBench);
    connect(browseButton, &QPushButton::clicked, this, &SimulateDialog::browseWaveform);
    connect(m_waveform, &QLineEdit::textChanged, this, &SimulateDialog::updateState);
    connect(m_simulator, QOverload<int>::of(&QComboBox::currentIndexChanged), this,
            &SimulateDialog::updateState);
    connect(m_buttons, &QDialogButtonBox::accepted, this, &SimulateDialog::accept);
    connect(m_buttons, &QDialogButtonBox::rejected, this, &SimulateDialog::reject);
    updateState();
    WindowMemory::keep(this, "simulate");
}

QStringList SimulateDialog::bench() const
{
    QStringList files;
    for (int row = 0; row < m_bench->count(); ++row)
        files << QDir::fromNativeSeparators(m_bench->item(row)->text());
    return files;
}

QString SimulateDialog::waveform() const
{
    return QDir::fromNativeSeparators(m_waveform->text());
}

Insertion::Simulator SimulateDialog::simulator() const
{
    return m_simulator->currentData() == verilator ? Insertion::Simulator::Verilator
                                                   : Insertion::Simulator::Icarus;
}

void SimulateDialog::addBench(const QStringList &files)
{
    for (const QString &file : files) {
        if (!bench().contains(file))
            m_bench->addItem(QDir::toNativeSeparators(file));
    }
    updateState();
}

void SimulateDialog::accept()
{
    if (m_settings)
        m_settings->setValue(key, m_simulator->currentData());
    QDialog::accept();
}

void SimulateDialog::browseBench()
{
    addBench(QFileDialog::getOpenFileNames(this, tr("Test Bench"), QFileInfo(waveform()).path(),
                                           tr("Verilog (*.v *.sv);;All files (*)")));
}

void SimulateDialog::browseWaveform()
{
    const QString chosen =
        QFileDialog::getSaveFileName(this, tr("Captured Windows"), waveform(), tr("Waveforms (*.vcd)"),
                                     nullptr, QFileDialog::DontConfirmOverwrite);
    if (!chosen.isEmpty())
        m_waveform->setText(QDir::toNativeSeparators(chosen));
}

void SimulateDialog::removeBench()
{
    qDeleteAll(m_bench->selectedItems());
    updateState();
}

void SimulateDialog::updateState()
{
    const QString missing = Insertion::missingFor(simulator());
    const bool isVerilator = simulator() == Insertion::Simulator::Verilator;
    QStringList notes;
    if (!missing.isEmpty())
        notes << missing;
    else if (isVerilator)
        notes << tr("Verilator knows 0 and 1 only: what is unknown starts as 0.");
    if (QFileInfo(waveform()).isFile())
        notes << tr("%1 is there already and will be replaced.").arg(QFileInfo(waveform()).fileName());
    m_note->setText(notes.join('\n'));
    m_buttons->button(QDialogButtonBox::Ok)
        ->setEnabled(missing.isEmpty() && m_bench->count() > 0 && !m_waveform->text().isEmpty());
}

} // namespace Workbench

#include "workbench/devicedialog.h"

#include <QCoreApplication>
#include <QDialogButtonBox>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTreeWidget>
#include <QVBoxLayout>

#include "commandline/devicename.h"
#include "model/jex/devicetable.h"
#include "model/jex/resourcetable.h"
#include "workbench/windowmemory.h"

namespace Workbench {
namespace {

enum Column {
    PartColumn,
    SeriesColumn,
    DeviceColumn,
    PackageColumn,
    FirstAmountColumn // one for each resource
};

QTreeWidgetItem *deviceRow(const DEV::DeviceArg &device)
{
    auto *row = new QTreeWidgetItem({device.partNumber, device.series, device.device, device.package});
    const JEX_TOOL::Device *known = JEX_TOOL::findDevice(device.series, device.device);
    int column = FirstAmountColumn;
    for (const JEX_TOOL::Resource &resource : JEX_TOOL::resources) {
        row->setData(column, Qt::DisplayRole, JEX_TOOL::amountOf(known, resource.code));
        row->setTextAlignment(column++, Qt::AlignRight | Qt::AlignVCenter);
    }
    return row;
}

QStringList columnTitles()
{
    QStringList titles = {DeviceDialog::tr("Part"), DeviceDialog::tr("Series"), DeviceDialog::tr("Device"),
                          DeviceDialog::tr("Package")};
    for (const JEX_TOOL::Resource &resource : JEX_TOOL::resources) {
        const QString name = QCoreApplication::translate("JEX_TOOL::Resource", resource.amountName);
        titles << name.left(1).toUpper() + name.mid(1);
    }
    return titles;
}

} // namespace

DeviceDialog::DeviceDialog(const DEV::DeviceArg &current, QWidget *parent)
    : QDialog(parent),
      m_current(current),
      m_filter(new QLineEdit),
      m_tree(new QTreeWidget),
      m_note(new QLabel),
      m_buttons(new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel))
{
    setProperty("helpTopic", "project");
    setWindowTitle(tr("Device"));
    resize(840, 460);
    m_filter->setPlaceholderText(tr("Filter, or a part number"));
    m_filter->setAccessibleName(tr("Filter"));
    m_tree->setAccessibleName(tr("Devices"));
    m_note->setTextFormat(Qt::PlainText);
    m_note->hide();
    m_filter->setClearButtonEnabled(true);
    m_tree->setHeaderLabels(columnTitles());
    m_tree->setRootIsDecorated(false);
    m_tree->setSortingEnabled(true);
    auto *layout = new QVBoxLayout(this);
    layout->addWidget(m_filter);
    layout->addWidget(m_note);
    layout->addWidget(m_tree);
    layout->addWidget(m_buttons);
    connect(m_filter, &QLineEdit::textChanged, this, &DeviceDialog::filter);
    connect(m_tree, &QTreeWidget::currentItemChanged, this, &DeviceDialog::updateButtons);
    connect(m_tree, &QTreeWidget::itemDoubleClicked, this, &DeviceDialog::accept);
    connect(m_buttons, &QDialogButtonBox::accepted, this, &DeviceDialog::accept);
    connect(m_buttons, &QDialogButtonBox::rejected, this, &DeviceDialog::reject);
    fill();
    resize(qMax(width(), m_tree->header()->length() + 60), height());
    WindowMemory::keep(this, "device");
}

void DeviceDialog::fill()
{
    m_tree->addTopLevelItem(new QTreeWidgetItem({tr("(none)")}));
    for (const DEV::DeviceArg &device : JEX_TOOL::knownDevices())
        m_tree->addTopLevelItem(deviceRow(device));
    m_tree->sortItems(SeriesColumn, Qt::AscendingOrder);
    for (int column = 0; column < m_tree->columnCount(); ++column)
        m_tree->resizeColumnToContents(column);
    const QString shown = m_current == DEV::DeviceArg() ? tr("(none)") : m_current.partNumber;
    const QList<QTreeWidgetItem *> found = m_tree->findItems(shown, Qt::MatchExactly, PartColumn);
    if (!found.isEmpty())
        m_tree->setCurrentItem(found.first());
    else if (CommandLine::findDevice(m_current.partNumber, m_typed))
        m_filter->setText(m_current.partNumber);
}

bool DeviceDialog::isShown(const QTreeWidgetItem *row, const QString &text) const
{
    const QString all = row->text(PartColumn) + ' ' + row->text(SeriesColumn) + ' ' + row->text(DeviceColumn);
    return all.contains(text, Qt::CaseInsensitive) ||
           (!m_typed.device.isEmpty() && row->text(DeviceColumn) == m_typed.device);
}

// Gives the first one that is left.
QTreeWidgetItem *DeviceDialog::showOnly(const std::function<bool(const QTreeWidgetItem *)> &isWanted)
{
    QTreeWidgetItem *first = nullptr;
    for (int i = 0; i < m_tree->topLevelItemCount(); ++i) {
        QTreeWidgetItem *row = m_tree->topLevelItem(i);
        row->setHidden(!isWanted(row));
        if (!first && !row->isHidden())
            first = row;
    }
    return first;
}

void DeviceDialog::filter(const QString &text)
{
    m_typed = DEV::DeviceArg();
    const bool isKnown = CommandLine::findDevice(text, m_typed);
    if (!isKnown || !m_typed.package.isEmpty())
        m_typed = DEV::DeviceArg();
    QTreeWidgetItem *first =
        showOnly([this, &text](const QTreeWidgetItem *row) { return isShown(row, text); });
    m_note->setText(m_typed.device.isEmpty()
                        ? QString()
                        : tr("The package is not known; the figures are those of %1.").arg(m_typed.device));
    const QStringList near = first ? QStringList() : CommandLine::nearestDevices(text);
    if (!first) {
        showOnly([&near](const QTreeWidgetItem *row) { return near.contains(row->text(DeviceColumn)); });
        m_note->setText(near.isEmpty() ? tr("No device has such a name.")
                                       : tr("No device has this name. These are near:"));
    }
    // OK takes a device that is seen: the one chosen before, or else the first that the filter leaves. What
    // is only near has to be picked.
    if (!m_tree->currentItem() || m_tree->currentItem()->isHidden() || !first)
        m_tree->setCurrentItem(first);
    m_note->setVisible(!m_note->text().isEmpty());
    updateButtons();
}

void DeviceDialog::updateButtons()
{
    const QTreeWidgetItem *row = m_tree->currentItem();
    m_buttons->button(QDialogButtonBox::Ok)
        ->setEnabled(m_filter->text().isEmpty() || (row && !row->isHidden()));
}

DEV::DeviceArg DeviceDialog::device() const
{
    const QTreeWidgetItem *row = m_tree->currentItem();
    if (!row)
        return m_current;
    DEV::DeviceArg device;
    if (row->columnCount() == 1)
        return device;
    if (row->text(DeviceColumn) == m_typed.device)
        return m_typed;
    device.partNumber = row->text(PartColumn);
    device.series = row->text(SeriesColumn);
    device.device = row->text(DeviceColumn);
    device.package = row->text(PackageColumn);
    return device;
}

} // namespace Workbench

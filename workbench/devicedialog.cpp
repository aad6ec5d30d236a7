#include "workbench/devicedialog.h"

#include <QDialogButtonBox>
#include <QHeaderView>
#include <QLineEdit>
#include <QPushButton>
#include <QTreeWidget>
#include <QVBoxLayout>

#include "model/jex/resourcetable.h"

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
    QStringList titles = {"Part", "Series", "Device", "Package"};
    for (const JEX_TOOL::Resource &resource : JEX_TOOL::resources) {
        const QString name = resource.amountName;
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
      m_buttons(new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel))
{
    setWindowTitle("Device");
    resize(840, 460);
    m_filter->setPlaceholderText("Filter");
    m_filter->setClearButtonEnabled(true);
    m_tree->setHeaderLabels(columnTitles());
    m_tree->setRootIsDecorated(false);
    m_tree->setSortingEnabled(true);
    auto *layout = new QVBoxLayout(this);
    layout->addWidget(m_filter);
    layout->addWidget(m_tree);
    layout->addWidget(m_buttons);
    connect(m_filter, &QLineEdit::textChanged, this, &DeviceDialog::filter);
    connect(m_tree, &QTreeWidget::itemDoubleClicked, this, &DeviceDialog::accept);
    connect(m_buttons, &QDialogButtonBox::accepted, this, &DeviceDialog::accept);
    connect(m_buttons, &QDialogButtonBox::rejected, this, &DeviceDialog::reject);
    fill();
}

void DeviceDialog::fill()
{
    m_tree->addTopLevelItem(new QTreeWidgetItem({"(none)"}));
    for (const DEV::DeviceArg &device : JEX_TOOL::knownDevices())
        m_tree->addTopLevelItem(deviceRow(device));
    m_tree->sortItems(SeriesColumn, Qt::AscendingOrder);
    for (int column = 0; column < m_tree->columnCount(); ++column)
        m_tree->resizeColumnToContents(column);
    const QString shown = m_current == DEV::DeviceArg() ? "(none)" : m_current.partNumber;
    const QList<QTreeWidgetItem *> found = m_tree->findItems(shown, Qt::MatchExactly, PartColumn);
    if (!found.isEmpty())
        m_tree->setCurrentItem(found.first());
}

void DeviceDialog::filter(const QString &text)
{
    QTreeWidgetItem *first = nullptr;
    for (int i = 0; i < m_tree->topLevelItemCount(); ++i) {
        QTreeWidgetItem *row = m_tree->topLevelItem(i);
        const QString all =
            row->text(PartColumn) + ' ' + row->text(SeriesColumn) + ' ' + row->text(DeviceColumn);
        row->setHidden(!all.contains(text, Qt::CaseInsensitive));
        if (!first && !row->isHidden())
            first = row;
    }
    // OK takes a device that is seen: the one chosen before, or else the first that the filter leaves.
    if (!m_tree->currentItem() || m_tree->currentItem()->isHidden())
        m_tree->setCurrentItem(first);
    m_buttons->button(QDialogButtonBox::Ok)->setEnabled(first);
}

DEV::DeviceArg DeviceDialog::device() const
{
    const QTreeWidgetItem *row = m_tree->currentItem();
    if (!row)
        return m_current;
    DEV::DeviceArg device;
    if (row->columnCount() == 1)
        return device;
    device.partNumber = row->text(PartColumn);
    device.series = row->text(SeriesColumn);
    device.device = row->text(DeviceColumn);
    device.package = row->text(PackageColumn);
    return device;
}

} // namespace Workbench

#include "options/capturecontrols.h"

#include <QAbstractItemView>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPointer>
#include <QStyledItemDelegate>

#include "host/designmanager.h"
#include "model/jex/jextool.h"
#include "netselect/jexsignalselectdialog.h"
#include "options/capturemath.h"

namespace RTLJEX {

namespace {

DEV::DeviceArg currentDevice()
{
    return TE::TaskEngine::instance()->designManager()->currentDevice();
}

class ReadableRows : public QStyledItemDelegate
{
public:
    explicit ReadableRows(QObject *parent) : QStyledItemDelegate(parent) {}

    QSize sizeHint(const QStyleOptionViewItem &option, const QModelIndex &index) const override
    {
        return QStyledItemDelegate::sizeHint(option, index).expandedTo(QSize(0, option.fontMetrics.height()));
    }
};

void selectIndex(QComboBox *box, int index)
{
    if (index >= 0)
        box->setCurrentIndex(index);
}

} // namespace

void fillNumbers(QComboBox *box, const QList<int> &numbers)
{
    for (int number : numbers)
        box->addItem(QString::number(number), number);
}

void selectNumber(QComboBox *box, int number)
{
    selectIndex(box, box->findData(number));
}

void selectText(QComboBox *box, const QString &text)
{
    selectIndex(box, box->findText(text));
}

void offerImplementations(QComboBox *box, qint64 captureBits)
{
    const DEV::DeviceArg device = currentDevice();
    const bool hasSsram = JEX_TOOL::currentDeviceSsramAmount(device.series, device.device) != 0;
    const QStringList offered = offeredImplementations(hasSsram, captureBits);
    const QString previous = box->currentText();
    if (keepsImplementations(offered, box->count(), previous))
        return;
    box->clear();
    box->addItems(offered);
    box->setCurrentIndex(restoredImplementation(offered, previous));
}

void showUsage(QLabel *name, QLabel *value, const QString &implementation, int signalCount, int depth,
               bool adjusted)
{
    const CaptureUsage usage = captureUsage(implementation, currentDevice(), signalCount, depth, adjusted);
    if (!usage.name.isEmpty())
        name->setText(usage.name);
    value->setText(usageText(usage.required, usage.available));
}

void setSignalRowHeight(QAbstractItemView *view)
{
    view->setStyleSheet(QLatin1String("QTreeWidget::item { height: 20px;}"));
    view->setItemDelegate(new ReadableRows(view));
}

void selectClock(QLineEdit *field, QUARRY::RtlNetlist *netlist, QWidget *page)
{
    const QPointer<QWidget> guard(page);
    const QString name = JexSignalSelectDialog::getOneNetName(netlist, page);
    if (guard && !name.isEmpty())
        field->setText(name);
}

} // namespace RTLJEX

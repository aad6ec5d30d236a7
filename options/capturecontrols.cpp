#include "options/capturecontrols.h"

#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPointer>
#include <QRadioButton>

#include "netselect/jexsignalselectdialog.h"
#include "options/capturemath.h"
#include "options/currentdevice.h"
#include "options/numbermodel.h"
#include "signals/signaltreewidget.h"

namespace RTLJEX {

void fillNumbers(QComboBox *box, const QList<int> &numbers)
{
    NumberModel *model = dynamic_cast<NumberModel *>(box->model());
    if (!model) {
        model = new NumberModel(box);
        box->setModel(model);
    }
    model->append(numbers);
}

void refillNumbers(QComboBox *box, const QList<int> &numbers)
{
    const int kept = numbers.indexOf(shownNumber(box));
    box->clear();
    fillNumbers(box, numbers);
    box->setCurrentIndex(kept >= 0 ? kept : numbers.size() - 1);
}

int shownNumber(const QComboBox *box)
{
    return box->currentText().toInt();
}

void selectText(QComboBox *box, const QString &text)
{
    const int index = box->findText(text);
    if (index >= 0)
        box->setCurrentIndex(index);
}

JEX::Implementation shownImplementation(const QComboBox *box)
{
    return JEX::implementationNamed(box->currentText());
}

void refillTexts(QComboBox *box, const QStringList &texts)
{
    const int kept = qMax(0, texts.indexOf(box->currentText()));
    box->clear();
    box->addItems(texts);
    box->setCurrentIndex(kept);
}

void offerImplementations(QComboBox *box, qint64 captureBits)
{
    const QList<JEX::Implementation> offered = offeredImplementations(currentDevice(), captureBits);
    if (!keepsImplementations(offered, box->count(), shownImplementation(box)))
        refillTexts(box, implementationNames(offered));
}

void chooseImplementation(QComboBox *box, qint64 captureBits, JEX::Implementation chosen)
{
    QList<JEX::Implementation> offered = offeredImplementations(currentDevice(), captureBits);
    const QList<JEX::Implementation> all = offeredImplementations(currentDevice(), 0);
    if (!offered.contains(chosen) && all.contains(chosen))
        offered = all;
    const QStringList names = implementationNames(offered);
    QStringList shown;
    for (int i = 0; i < box->count(); ++i)
        shown << box->itemText(i);
    if (shown != names)
        refillTexts(box, names);
    box->setCurrentIndex(qMax(0, offered.indexOf(chosen)));
}

void showUsage(QLabel *name, QLabel *value, JEX::Implementation implementation, int signalCount, int depth,
               bool adjusted)
{
    const CaptureUsage usage = captureUsage(implementation, currentDevice(), signalCount, depth, adjusted);
    if (!usage.name.isEmpty())
        name->setText(usage.name);
    value->setText(usageText(usage.required, usage.available));
    name->setToolTip(usageNote());
    value->setToolTip(usageNote());
}

void reportChanges(const QLineEdit *clock, const QRadioButton *rising, const signalTreeWidget *tree,
                   QWidget *page)
{
    page->connect(tree, SIGNAL(itemDragged()), SIGNAL(modified()));
    page->connect(tree->model(), SIGNAL(layoutChanged()), SIGNAL(modified()));
    page->connect(clock, SIGNAL(textChanged(QString)), SIGNAL(modified()));
    page->connect(rising, SIGNAL(toggled(bool)), SIGNAL(modified()));
}

void selectClock(QLineEdit *field, QUARRY::RtlNetlist *netlist, QWidget *page)
{
    const QPointer<QWidget> alive(page);
    const QString name = JexSignalSelectDialog::getOneNetName(netlist, page);
    if (alive && !name.isEmpty())
        field->setText(name);
}

} // namespace RTLJEX

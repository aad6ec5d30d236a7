#include "model/jex/matchunitdialog.h"

#include <QPushButton>
#include <QValidator>

#include "host/modal.h"
#include "host/plaintooltip.h"
#include "model/jex/formfields.h"
#include "model/jex/matchunitmodel.h"
#include "model/jex/matchvalue.h"
#include "ui_matchunitdialog.h"

namespace JEX {

namespace {

enum BitColumn { BitValue, BitUpper, BitSignal };

class UpperCase : public QValidator
{
public:
    explicit UpperCase(QObject *parent) : QValidator(parent) {}

    State validate(QString &input, int &) const override
    {
        input = input.toUpper();
        return Acceptable;
    }
};

// What a value begins with: it matches whatever the port holds, or as much as a number can.
QString neutralBits(int function, int width, bool upper)
{
    return QString(width, QLatin1Char(!comparesNumbers(function) ? 'X' : upper ? '1' : '0'));
}

bool isNeutral(const QString &bits)
{
    return bits.count(QLatin1Char('X')) == bits.size();
}

// The bits of the first hexadecimal digit that a port of this width does not have.
int missingBits(int width)
{
    return (4 - width % 4) % 4;
}

QString digitsHelp(int function, ValueForm form)
{
    const bool numbers = comparesNumbers(function);
    if (form == DecimalForm)
        return MatchUnitDialog::tr("A number of the digits 0 to 9.");
    if (form == HexForm) {
        return numbers ? MatchUnitDialog::tr("Each digit: 0 to 9 and A to F.")
                       : MatchUnitDialog::tr("Each digit: 0 to 9, A to F, or X for bits of any level.");
    }
    return numbers ? MatchUnitDialog::tr("Each bit: 0 or 1; the first one is the most significant.")
                   : MatchUnitDialog::tr("Each bit: 0, 1, X any level, R rising edge, F falling edge, "
                                         "B either edge, N no edge.");
}

// The text position of a digit, past the characters that only group digits.
int positionOfDigit(const QString &text, int digit)
{
    int position = 0;
    while (position < text.size() && cleanDigits(text.left(position + 1)).size() <= digit)
        ++position;
    return position;
}

} // namespace

MatchUnitDialog::MatchUnitDialog(MatchUnit *unit, bool readOnly, QWidget *parent)
    : QDialog(parent), m_ui(new Ui_MatchUnitDialog), m_unit(unit)
{
    m_ui->setupUi(this);
    setWindowFlags(windowFlags() & ~Qt::WindowContextHelpButtonHint);
    setWindowTitle(tr("Match Unit M%1").arg(unit->unitNumber));
    offerPorts();
    for (int i = MatchEqual; i < MatchFunctionCount; ++i)
        m_ui->comboFunction->addItem(matchFunctionName(i), i);
    showFields(this, *unit);
    m_ui->editValue->setText(unit->value);
    m_ui->editUpper->setText(unit->upperValue);
    for (QLineEdit *field : {m_ui->editValue, m_ui->editUpper}) {
        field->setFont(bitFont());
        field->setValidator(new UpperCase(this));
        connect(field, SIGNAL(textChanged(QString)), this, SLOT(onTextChange()));
        connect(field, SIGNAL(cursorPositionChanged(int, int)), this, SLOT(onCursorMove()));
    }
    connect(m_ui->comboPort, SIGNAL(currentIndexChanged(int)), this, SLOT(onPortChange()));
    connect(m_ui->comboFunction, SIGNAL(currentIndexChanged(int)), this, SLOT(onFunctionChange()));
    for (QRadioButton *form : {m_ui->radioBinary, m_ui->radioHex, m_ui->radioDecimal})
        connect(form, SIGNAL(toggled(bool)), this, SLOT(onFormatChange()));
    connect(m_ui->buttonReset, SIGNAL(clicked()), this, SLOT(onReset()));
    connect(m_ui->treeBits, SIGNAL(itemClicked(QTreeWidgetItem *, int)), this,
            SLOT(onBitClick(QTreeWidgetItem *, int)));
    connect(m_ui->buttonBox, SIGNAL(accepted()), this, SLOT(accept()));
    connect(m_ui->buttonBox, SIGNAL(rejected()), this, SLOT(reject()));
    onPortChange();
    if (readOnly)
        setReadOnly();
    (unit->triggerPort ? static_cast<QWidget *>(m_ui->editValue) : m_ui->comboPort)->setFocus();
    resize(QSize(42, 28) * fontMetrics().height()); // shows all bits of the widest port
}

MatchUnitDialog::~MatchUnitDialog() = default;

// The ports that hold signals, and the one of the unit whatever it holds.
void MatchUnitDialog::offerPorts()
{
    QList<TriggerPort *> ports;
    if (m_unit->core)
        ports = m_unit->core->triggerPorts;
    else if (m_unit->triggerPort)
        ports.append(m_unit->triggerPort);
    m_ports.append(nullptr);
    for (TriggerPort *port : ports) {
        if (port == m_unit->triggerPort || !port->signalItems.isEmpty())
            m_ports.append(port);
    }
    for (const TriggerPort *port : m_ports)
        m_ui->comboPort->addItem(portTitle(port));
    m_ui->comboPort->setCurrentIndex(qMax(0, m_ports.indexOf(m_unit->triggerPort)));
}

void MatchUnitDialog::setReadOnly()
{
    m_ui->comboPort->setEnabled(false);
    for (QWidget *widget : fieldWidgets(this))
        widget->setEnabled(false);
    m_ui->editValue->setReadOnly(true);
    m_ui->editUpper->setReadOnly(true);
    m_ui->buttonReset->hide();
    m_ui->buttonBox->setStandardButtons(QDialogButtonBox::Close);
}

const TriggerPort *MatchUnitDialog::port() const
{
    return m_ports.at(m_ui->comboPort->currentIndex());
}

ValueForm MatchUnitDialog::chosenForm() const
{
    return m_ui->radioHex->isChecked() ? HexForm : m_ui->radioDecimal->isChecked() ? DecimalForm : BinaryForm;
}

QString MatchUnitDialog::bits(const QLineEdit *field) const
{
    return bitsFromForm(cleanDigits(field->text()), m_form, m_width);
}

MatchUnit MatchUnitDialog::edited() const
{
    MatchUnit unit = *m_unit;
    collectFields(this, &unit);
    unit.triggerPort = m_ports.at(m_ui->comboPort->currentIndex());
    unit.function = unit.triggerPort ? unit.function : int(MatchEqual);
    unit.value = unit.triggerPort ? bits(m_ui->editValue) : QString();
    unit.upperValue = hasUpperValue(unit.function) ? bits(m_ui->editUpper) : QString();
    return unit;
}

QString MatchUnitDialog::fault() const
{
    const MatchUnit unit = edited();
    QString fault;
    if (m_width)
        fault = formFault(cleanDigits(m_ui->editValue->text()), m_form, m_width, valueName(unit.function));
    if (m_width && fault.isEmpty() && hasUpperValue(unit.function))
        fault = formFault(cleanDigits(m_ui->editUpper->text()), m_form, m_width, upperName());
    return fault.isEmpty() ? matchUnitFault(unit) : fault;
}

void MatchUnitDialog::accept()
{
    const QString fault = this->fault();
    if (fault.isEmpty()) {
        *m_unit = edited();
        QDialog::accept();
        return;
    }
    m_ui->editValue->setFocus();
    warn(fault);
}

void MatchUnitDialog::onPortChange()
{
    m_width = port() ? port()->width() : 0;
    for (int i = 0; i < m_ui->settingsLayout->count(); ++i) {
        QWidget *widget = m_ui->settingsLayout->itemAt(i)->widget();
        if (widget != m_ui->labelPort && widget != m_ui->comboPort)
            widget->setEnabled(port());
    }
    m_ui->labelDigits->setEnabled(port());
    showNames();
    onFunctionChange();
}

void MatchUnitDialog::onFunctionChange()
{
    const bool isRange = hasUpperValue(m_ui->comboFunction->currentIndex());
    m_ui->labelValue->setText(isRange ? tr("&Lower Bound:") : tr("&Value:"));
    m_ui->labelUpper->setVisible(isRange);
    m_ui->editUpper->setVisible(isRange);
    m_ui->treeBits->setColumnHidden(BitUpper, !isRange);
    m_ui->treeBits->headerItem()->setText(BitValue, isRange ? tr("Lower") : tr("Value"));
    const bool isNumber = comparesNumbers(m_ui->comboFunction->currentIndex());
    m_ui->radioDecimal->setEnabled(port() && isNumber);
    if (!isNumber && m_form == DecimalForm)
        m_ui->radioBinary->setChecked(true);
    fillFields(false);
    onTextChange();
}

// Where the user entered nothing yet, or everywhere. A bound that is not asked for is left alone.
void MatchUnitDialog::fillFields(bool all)
{
    const int function = m_ui->comboFunction->currentIndex();
    for (QLineEdit *field : {m_ui->editValue, m_ui->editUpper}) {
        const bool isUpper = field == m_ui->editUpper;
        if ((isUpper && !hasUpperValue(function)) || !(all || isNeutral(cleanDigits(field->text()))))
            continue;
        const QString neutral = neutralBits(function, m_width, isUpper);
        field->setText(bitsInForm(neutral, m_form));
    }
}

void MatchUnitDialog::onReset()
{
    fillFields(true);
    m_ui->editValue->setFocus();
}

// What the fields hold stays the same value in the other form. What is wrong in the old form is left as it
// is: it may have been meant in the new one.
void MatchUnitDialog::onFormatChange()
{
    if (chosenForm() == m_form)
        return;
    const QString fault = toForm(chosenForm());
    if (!fault.isEmpty()) {
        QRadioButton *const forms[] = {m_ui->radioBinary, m_ui->radioHex, m_ui->radioDecimal};
        forms[m_form]->setChecked(true);
    }
    onTextChange();
    if (!fault.isEmpty())
        warn(fault);
}

// Why it cannot be done, and then nothing is changed. A bound that is not asked for cannot prevent it.
QString MatchUnitDialog::toForm(ValueForm form)
{
    QStringList texts;
    for (const QLineEdit *field : {m_ui->editValue, m_ui->editUpper}) {
        const QString value = bits(field);
        const bool isRight = bitsFault(value, MatchEqual, m_width, QString()).isEmpty();
        texts.append(isRight ? bitsInForm(value, form) : field->text());
        if (isRight && texts.last().isEmpty() && !field->isHidden())
            return noFormFault(value, form);
    }
    m_form = form;
    m_ui->editValue->setText(texts.first());
    m_ui->editUpper->setText(texts.last());
    return QString();
}

// The last thing that a slot does: the dialog may be gone afterwards, with its parent.
void MatchUnitDialog::warn(const QString &fault)
{
    QUtil::messageBox(this, QMessageBox::Warning, tr("Warning"), fault);
}

void MatchUnitDialog::onTextChange()
{
    const MatchUnit unit = edited();
    for (int i = 0; i < m_ui->treeBits->topLevelItemCount(); ++i) {
        QTreeWidgetItem *row = m_ui->treeBits->topLevelItem(i);
        row->setText(BitValue, unit.value.mid(i, 1));
        row->setText(BitUpper, unit.upperValue.mid(i, 1));
    }
    m_ui->labelDigits->setText(digitsHelp(unit.function, m_form));
    m_ui->labelFault->setText(fault());
}

void MatchUnitDialog::showNames()
{
    m_ui->treeBits->clear();
    const QList<SignalItem> bits = port() ? port()->singleSignals() : QList<SignalItem>();
    QList<QTreeWidgetItem *> rows;
    for (const SignalItem &bit : bits) {
        QTreeWidgetItem *row = new QTreeWidgetItem;
        row->setText(BitSignal, bit.alias.isEmpty() ? bit.name : bit.alias);
        row->setToolTip(BitSignal, QUtil::plainToolTip(bit.name));
        row->setFont(BitValue, bitFont());
        row->setFont(BitUpper, bitFont());
        rows.append(row);
    }
    m_ui->treeBits->addTopLevelItems(rows);
}

// The first bit of a digit.
int MatchUnitDialog::bitOfDigit(int digit) const
{
    return m_form == HexForm ? qMax(0, 4 * digit - missingBits(m_width)) : digit;
}

// Digits that a number is filled up with.
int MatchUnitDialog::missingDigits(const QLineEdit *field) const
{
    const int all = m_form == HexForm ? (m_width + missingBits(m_width)) / 4 : m_width;
    return bits(field).size() == m_width ? qMax(0, all - cleanDigits(field->text()).size()) : 0;
}

// The row of the bit at the text cursor is the current one. A decimal digit is no bit's.
void MatchUnitDialog::onCursorMove()
{
    const QLineEdit *field = static_cast<QLineEdit *>(sender());
    const int digit = cleanDigits(field->text().left(field->cursorPosition())).size() + missingDigits(field);
    m_ui->treeBits->setCurrentItem(m_form == DecimalForm ? nullptr
                                                         : m_ui->treeBits->topLevelItem(bitOfDigit(digit)));
}

// Selects the digit of the clicked bit, ready to be typed over.
void MatchUnitDialog::onBitClick(QTreeWidgetItem *item, int column)
{
    QLineEdit *field = column == BitUpper ? m_ui->editUpper : m_ui->editValue;
    const int bit = m_ui->treeBits->indexOfTopLevelItem(item);
    const int digit = (m_form == HexForm ? (bit + missingBits(m_width)) / 4 : bit) - missingDigits(field);
    field->setFocus();
    if (m_form != DecimalForm && digit >= 0)
        field->setSelection(positionOfDigit(field->text(), digit), 1);
    m_ui->treeBits->setCurrentItem(item);
}

} // namespace JEX

#include "trigger/muexpressiondialog.h"

#include <QKeyEvent>
#include <QSignalMapper>

#include "host/modal.h"
#include "trigger/expressionrules.h"
#include "ui_muexpressiondialog.h"

namespace RTLJEX {

MuExpressionDialog::MuExpressionDialog(QWidget *parent) : QDialog(parent), m_ui(new Ui_MuExpressionDialog)
{
    m_ui->setupUi(this);
    setWindowFlags(windowFlags() & ~Qt::WindowContextHelpButtonHint);
    m_ui->editDisplay->setFont(QFont(QLatin1String("Courier"), 16, QFont::Bold));
    mapTokens();
    connect(m_ui->btnBackspace, SIGNAL(clicked()), SLOT(backspaceClicked()));
    connect(m_ui->btnClear, SIGNAL(clicked()), SLOT(clearAllClicked()));
    // Whoever types does not press the button that was clicked last by a blank.
    for (QPushButton *button : findChildren<QPushButton *>()) {
        if (!m_ui->buttonBox->isAncestorOf(button))
            button->setFocusPolicy(Qt::TabFocus);
    }
    setFocusPolicy(Qt::StrongFocus);
    setFocus();
}

MuExpressionDialog::~MuExpressionDialog() = default;

void MuExpressionDialog::mapTokens()
{
    QSignalMapper *mapper = new QSignalMapper(this);
    for (QPushButton *button : m_ui->tokens->findChildren<QPushButton *>()) {
        // A single ampersand would be a mnemonic in a caption.
        const QString token = button->text().replace(QLatin1String("&&"), QLatin1String(OP_AND));
        mapper->setMapping(button, token);
        mapper->connect(button, SIGNAL(clicked(bool)), SLOT(map()));
    }
    connect(mapper, SIGNAL(mapped(QString)), SLOT(expBtnClicked(QString)));
}

QString MuExpressionDialog::getExpression(QWidget *parent, bool staticMode)
{
    const QUtil::Modal<MuExpressionDialog> dialog(new MuExpressionDialog(parent));
    dialog->setType(staticMode);
    if (dialog->exec() != Accepted || !dialog.data())
        return QString();
    return dialog->currentExpression();
}

void MuExpressionDialog::setType(bool staticMode)
{
    for (QPushButton *button :
         {m_ui->btnM10, m_ui->btnM11, m_ui->btnM12, m_ui->btnM13, m_ui->btnM14, m_ui->btnM15})
        button->setDisabled(staticMode);
}

QString MuExpressionDialog::currentExpression() const
{
    return m_ui->editDisplay->text();
}

bool MuExpressionDialog::isOk() const
{
    return isExpression(m_tokens);
}

void MuExpressionDialog::expBtnClicked(const QString &token)
{
    pressTyped();
    m_tokens.append(token);
    showTokens();
}

void MuExpressionDialog::backspaceClicked()
{
    if (!m_typed.isEmpty())
        return forgetTyped();
    if (m_tokens.isEmpty())
        return;
    m_tokens.removeLast();
    showTokens();
}

void MuExpressionDialog::clearAllClicked()
{
    forgetTyped();
    m_tokens.clear();
    showTokens();
}

void MuExpressionDialog::keyPressEvent(QKeyEvent *event)
{
    const QString key = event->text();
    if (takeUnitKey(key)) {
        setFocus();
    } else if (event->key() == Qt::Key_Backspace) {
        backspaceClicked();
    } else if (priority(key) > 0 || key == QLatin1String(LEFT_BRACKET) ||
               key == QLatin1String(RIGHT_BRACKET)) {
        setFocus();
        expBtnClicked(key);
    } else {
        if (!key.isEmpty())
            pressTyped();
        QDialog::keyPressEvent(event);
    }
}

// Null when there is no such unit.
QPushButton *MuExpressionDialog::unitButton(const QString &name) const
{
    return m_ui->tokens->findChild<QPushButton *>(QLatin1String("btn") + name);
}

// A digit that leads to no unit is not taken up.
bool MuExpressionDialog::takeUnitKey(const QString &key)
{
    const bool begins = key.compare(QLatin1String("M"), Qt::CaseInsensitive) == 0;
    const bool isDigit = key.size() == 1 && key.at(0) >= QLatin1Char('0') && key.at(0) <= QLatin1Char('9');
    if (begins) {
        pressTyped();
        m_typed = QLatin1String("M");
    } else if (isDigit && !m_typed.isEmpty() && unitButton(m_typed + key)) {
        const QString typed = m_typed + key;
        forgetTyped();
        m_typed = typed;
        if (!unitButton(m_typed + QLatin1Char('0')))
            pressTyped();
    }
    if (QPushButton *unit = unitButton(m_typed))
        unit->setDown(true);
    return begins || isDigit;
}

// As the mouse would: a unit that the mode lacks refuses.
void MuExpressionDialog::pressTyped()
{
    QPushButton *unit = unitButton(m_typed);
    forgetTyped();
    if (unit)
        unit->click();
}

void MuExpressionDialog::forgetTyped()
{
    if (QPushButton *unit = unitButton(m_typed))
        unit->setDown(false);
    m_typed.clear();
}

void MuExpressionDialog::showTokens()
{
    m_ui->editDisplay->setText(m_tokens.join(QString()));
}

void MuExpressionDialog::accept()
{
    pressTyped();
    if (isOk())
        QDialog::accept();
    else
        QUtil::messageBox(this, QMessageBox::Warning, tr("Warning"), tr("Please input the right expression"));
}

} // namespace RTLJEX

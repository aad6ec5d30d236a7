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
    m_ui->btnM0->setFocus();
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
    m_tokens.append(token);
    showTokens();
}

void MuExpressionDialog::backspaceClicked()
{
    if (m_tokens.isEmpty())
        return;
    m_tokens.removeLast();
    showTokens();
}

void MuExpressionDialog::clearAllClicked()
{
    m_tokens.clear();
    showTokens();
}

void MuExpressionDialog::keyPressEvent(QKeyEvent *event)
{
    const QString token = event->text();
    if (event->key() == Qt::Key_Backspace)
        backspaceClicked();
    else if (priority(token) > 0 || token == QLatin1String(LEFT_BRACKET) ||
             token == QLatin1String(RIGHT_BRACKET))
        expBtnClicked(token);
    else
        QDialog::keyPressEvent(event);
}

void MuExpressionDialog::showTokens()
{
    m_ui->editDisplay->setText(m_tokens.join(QString()));
}

void MuExpressionDialog::accept()
{
    if (isOk())
        QDialog::accept();
    else
        QUtil::messageBox(this, QMessageBox::Warning, tr("Warning"), tr("Please input the right expression"));
}

} // namespace RTLJEX

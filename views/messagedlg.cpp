#include "views/messagedlg.h"

#include <QMouseEvent>
#include <QPushButton>
#include <QTextCursor>

#include "ui_messagedlg.h"

namespace RTLJEX {

MessageDlg::MessageDlg(QWidget *parent) : QDialog(parent), m_ui(new Ui_MessageDlg)
{
    m_ui->setupUi(this);
    connect(m_ui->buttonBox, SIGNAL(accepted()), this, SLOT(accept()));
    connect(m_ui->buttonBox, SIGNAL(rejected()), this, SLOT(reject()));
    connect(m_ui->buttonBox->button(QDialogButtonBox::Ok), SIGNAL(clicked()), this, SLOT(accept()));
    m_ui->textEdit->viewport()->installEventFilter(this);
}

MessageDlg::~MessageDlg()
{
}

void MessageDlg::setDetailMsg(const QStringList &lines)
{
    m_ui->textEdit->setPlainText(lines.join("\n"));
}

bool MessageDlg::eventFilter(QObject *watched, QEvent *event)
{
    if (watched != m_ui->textEdit->viewport() || event->type() != QEvent::MouseButtonDblClick)
        return QDialog::eventFilter(watched, event);
    const QMouseEvent *click = static_cast<QMouseEvent *>(event);
    if (click->button() != Qt::LeftButton)
        return false;
    QTextCursor cursor = m_ui->textEdit->cursorForPosition(click->pos());
    cursor.select(QTextCursor::LineUnderCursor);
    m_ui->textEdit->setTextCursor(cursor);
    return true;
}

} // namespace RTLJEX

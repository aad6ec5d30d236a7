#include "plugin/jexsummarypage.h"

#include <QTextCursor>

#include "model/jex/modes.h"
#include "ui_jexsummarypage.h"

namespace RTLJEX {

JexSummaryPage::JexSummaryPage(QMap<QString, QVariant> *fields, QWidget *parent)
    : QWizardPage(parent), m_fields(fields), m_ui(new Ui_JexSummaryPage)
{
    m_ui->setupUi(this);
    m_ui->textEdit->setWordWrapMode(QTextOption::NoWrap);
}

JexSummaryPage::~JexSummaryPage()
{
}

void JexSummaryPage::initializePage()
{
    const JEX::JexMode mode = JEX::JexMode(m_fields->value("jex_mode").toInt());
    QStringList lines;
    lines << "JEX" << tr("    Jex Mode: %1").arg(QLatin1String(JEX::modeName(mode)));
    lines << tr("    Name: %1").arg(m_fields->value("jex_config_file").toString()) << QString();
    // Not append(), which takes a folder named like a tag for rich text.
    m_ui->textEdit->setPlainText(lines.join("\n"));
    m_ui->textEdit->moveCursor(QTextCursor::Start);
}

} // namespace RTLJEX

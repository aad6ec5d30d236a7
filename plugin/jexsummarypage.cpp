#include "plugin/jexsummarypage.h"

#include <QTextCursor>

#include "model/jex/core.h"
#include "ui_jexsummarypage.h"

namespace RTLJEX {

JexSummaryPage::JexSummaryPage(QMap<QString, QVariant> *fields, QWidget *parent)
    : QWizardPage(parent), m_fields(fields), m_ui(new Ui::JexSummaryPage)
{
    m_ui->setupUi(this);
    m_ui->textEdit->setWordWrapMode(QTextOption::NoWrap);
}

JexSummaryPage::~JexSummaryPage()
{
}

void JexSummaryPage::initializePage()
{
    const bool standard = m_fields->value("jex_mode").toInt() == JEX::StandardMode;
    QStringList lines;
    lines << "JEX" << tr("    Jex Mode: %1").arg(QLatin1String(standard ? "Standard" : "Lite"));
    lines << tr("    Name: %1").arg(m_fields->value("jex_config_file").toString()) << QString();
    // Not append(), which takes a folder named like a tag for rich text.
    m_ui->textEdit->setPlainText(lines.join("\n"));
    m_ui->textEdit->moveCursor(QTextCursor::Start);
}

} // namespace RTLJEX

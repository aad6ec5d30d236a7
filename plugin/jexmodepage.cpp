#include "plugin/jexmodepage.h"

#include "model/jex/core.h"
#include "ui_jexmodepage.h"

namespace RTLJEX {

JexModePage::JexModePage(QMap<QString, QVariant> *fields, QWidget *parent)
    : QWizardPage(parent), m_fields(fields), m_ui(new Ui::JexModePage)
{
    m_ui->setupUi(this);
}

JexModePage::~JexModePage()
{
}

bool JexModePage::validatePage()
{
    const int mode = m_ui->stdRadioButton->isChecked() ? JEX::StandardMode : JEX::LiteMode;
    m_fields->insert("jex_mode", mode);
    return true;
}

} // namespace RTLJEX

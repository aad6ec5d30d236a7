#include "plugin/jexwizard.h"

#include "plugin/jexconfigfilepage.h"
#include "plugin/jexmodepage.h"
#include "plugin/jexsummarypage.h"

namespace RTLJEX {

JexWizard::JexWizard(const QString &path, QWidget *parent) : Utils::Wizard(parent), m_path(path)
{
    setWindowTitle(tr("New RTL JEX Wizard"));
    setProperty("helpTopic", "new");
    setWindowFlags(windowFlags() & ~Qt::WindowContextHelpButtonHint);
    setWizardStyle(QWizard::ClassicStyle);
    setOption(QWizard::NoBackButtonOnStartPage, true);
    m_fields.insert("jex_config_path", m_path);
    addPage(new JexModePage(&m_fields, this));
    addPage(new JexConfigFilePage(&m_fields, this));
    addPage(new JexSummaryPage(&m_fields, this));
}

QString JexWizard::jexConfigFile() const
{
    return m_fields.value("jex_config_file").toString();
}

int JexWizard::jexMode() const
{
    return m_fields.value("jex_mode").toInt();
}

QSize JexWizard::sizeHint() const
{
    return QSize(650, 400);
}

} // namespace RTLJEX

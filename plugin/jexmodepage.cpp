#include "plugin/jexmodepage.h"

#include <QButtonGroup>
#include <QLabel>
#include <QRadioButton>
#include <QVBoxLayout>

#include "model/jex/modes.h"

namespace RTLJEX {

static const int gap = 12;
static const int noteIndent = 24;

JexModePage::JexModePage(QMap<QString, QVariant> *fields, QWidget *parent)
    : QWizardPage(parent), m_fields(fields), m_modes(new QButtonGroup(this))
{
    setTitle(tr("JEX Mode"));
    QVBoxLayout *layout = new QVBoxLayout(this);
    layout->addWidget(new QLabel(tr("Choose the mode of JEX")));
    layout->addSpacing(gap);
    for (const JEX::ModeText &mode : JEX::modeTexts) {
        QRadioButton *button = new QRadioButton(tr(mode.title));
        button->setObjectName(QLatin1String(mode.prefix) + QLatin1String("RadioButton"));
        m_modes->addButton(button, mode.mode);
        layout->addWidget(button);
        QLabel *note = new QLabel(tr(mode.note));
        note->setIndent(noteIndent);
        layout->addWidget(note);
    }
    m_modes->buttons().first()->setChecked(true);
    layout->addStretch();
}

bool JexModePage::validatePage()
{
    m_fields->insert("jex_mode", m_modes->checkedId());
    return true;
}

} // namespace RTLJEX

#pragma once

#include <QMap>
#include <QString>
#include <QVariant>
#include <QWizardPage>

class QButtonGroup;

namespace RTLJEX {

// Asks for the mode of the new file; writes "jex_mode".
class JexModePage : public QWizardPage
{
    Q_OBJECT

public:
    JexModePage(QMap<QString, QVariant> *fields, QWidget *parent);

    bool validatePage() override;

private:
    QMap<QString, QVariant> *m_fields; // the wizard's
    QButtonGroup *m_modes;             // each by its number
};

} // namespace RTLJEX

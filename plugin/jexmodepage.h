#pragma once

#include <QMap>
#include <QScopedPointer>
#include <QString>
#include <QVariant>
#include <QWizardPage>

namespace RTLJEX {

namespace Ui {
class JexModePage;
}

// Asks for the mode of the new file; writes "jex_mode".
class JexModePage : public QWizardPage
{
    Q_OBJECT

public:
    JexModePage(QMap<QString, QVariant> *fields, QWidget *parent);
    ~JexModePage() override;

    bool validatePage() override;

private:
    QMap<QString, QVariant> *m_fields; // the wizard's
    QScopedPointer<Ui::JexModePage> m_ui;
};

} // namespace RTLJEX

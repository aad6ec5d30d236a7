#pragma once

#include <QMap>
#include <QScopedPointer>
#include <QString>
#include <QVariant>
#include <QWizardPage>

namespace RTLJEX {

namespace Ui {
class JexConfigFilePage;
}

// Asks for the name of the new file in the folder "jex_config_path"; writes the full path as
// "jex_config_file". An existing file is accepted only after a question.
class JexConfigFilePage : public QWizardPage
{
    Q_OBJECT

public:
    JexConfigFilePage(QMap<QString, QVariant> *fields, QWidget *parent);
    ~JexConfigFilePage() override;

    bool isComplete() const override;
    bool validatePage() override;

private:
    static QString findProperName();

    QMap<QString, QVariant> *m_fields; // the wizard's
    QScopedPointer<Ui::JexConfigFilePage> m_ui;
};

} // namespace RTLJEX

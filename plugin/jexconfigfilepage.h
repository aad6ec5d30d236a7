#pragma once

#include <QMap>
#include <QString>
#include <QVariant>
#include <QWizardPage>
#include <memory>

namespace RTLJEX {

class Ui_JexConfigFilePage;

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
    std::unique_ptr<Ui_JexConfigFilePage> m_ui;
};

} // namespace RTLJEX

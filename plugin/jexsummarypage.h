#pragma once

#include <QMap>
#include <QString>
#include <QVariant>
#include <QWizardPage>
#include <memory>

namespace RTLJEX {

class Ui_JexSummaryPage;

// Shows what the pages before it wrote.
class JexSummaryPage : public QWizardPage
{
    Q_OBJECT

public:
    JexSummaryPage(QMap<QString, QVariant> *fields, QWidget *parent);
    ~JexSummaryPage() override;

    void initializePage() override;

private:
    QMap<QString, QVariant> *m_fields; // the wizard's
    std::unique_ptr<Ui_JexSummaryPage> m_ui;
};

} // namespace RTLJEX

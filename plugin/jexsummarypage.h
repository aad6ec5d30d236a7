#pragma once

#include <QMap>
#include <QScopedPointer>
#include <QString>
#include <QVariant>
#include <QWizardPage>

namespace RTLJEX {

namespace Ui {
class JexSummaryPage;
}

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
    QScopedPointer<Ui::JexSummaryPage> m_ui;
};

} // namespace RTLJEX

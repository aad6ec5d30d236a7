#include "views/reloadbanner.h"

#include <QDir>

#include "ui_reloadbanner.h"

namespace RTLJEX {

ReloadBanner::ReloadBanner(CheckType type, const QString &fileName, QWidget *parent)
    : QWidget(parent), m_ui(new Ui::ReloadBanner)
{
    m_ui->setupUi(this);
    const bool removed = type == Removed;
    m_ui->btnA->setText(removed ? tr("Keep It") : tr("Reload"));
    m_ui->btnB->setText(removed ? tr("Close") : tr("Cancel"));
    connect(m_ui->btnA, SIGNAL(clicked()), this, removed ? SIGNAL(keepIt()) : SIGNAL(reload()));
    connect(m_ui->btnB, SIGNAL(clicked()), this, removed ? SIGNAL(closeIt()) : SIGNAL(cancel()));
    const QString text = removed
                             ? tr("The file '%1' has been removed on disk.\nDo you still want to keep it?")
                             : tr("The file '%1' changed on disk.\nDo you want to reload?");
    setText(text.arg(QDir::toNativeSeparators(fileName)));
    m_ui->labelFile->setPath(QDir::toNativeSeparators(fileName));
}

ReloadBanner::~ReloadBanner()
{
}

void ReloadBanner::setText(const QString &text)
{
    m_ui->labelFile->setText(text);
}

QString ReloadBanner::text() const
{
    return m_ui->labelFile->text();
}

} // namespace RTLJEX

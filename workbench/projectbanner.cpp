#include "workbench/projectbanner.h"

#include <QDir>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>

namespace Workbench {

ProjectBanner::ProjectBanner(QWidget *parent)
    : QWidget(parent),
      m_text(new QLabel),
      m_reload(new QPushButton(tr("Re&load"))),
      m_keep(new QPushButton(tr("&Keep It"))),
      m_close(new QPushButton(tr("&Close")))
{
    auto *icon = new QLabel;
    icon->setPixmap(QPixmap(":/utils/image/attention.png"));
    m_text->setTextFormat(Qt::PlainText);
    auto *layout = new QHBoxLayout(this);
    layout->addWidget(icon);
    layout->addWidget(m_text, 1);
    for (QPushButton *button : {m_reload, m_keep, m_close})
        layout->addWidget(button);
    connect(m_reload, &QPushButton::clicked, this, &ProjectBanner::reload);
    connect(m_keep, &QPushButton::clicked, this, &ProjectBanner::keepIt);
    connect(m_close, &QPushButton::clicked, this, &ProjectBanner::closeIt);
    hide();
}

void ProjectBanner::showState(ProjectFile state, const QString &path)
{
    const bool isChanged = state == ProjectFile::Changed;
    const QString text =
        isChanged ? tr("The project '%1' changed on disk.\nDo you want to reload it?")
                  : tr("The project '%1' has been removed on disk.\nDo you still want to keep it?");
    m_text->setText(text.arg(QDir::toNativeSeparators(path)));
    m_reload->setVisible(isChanged);
    m_close->setVisible(!isChanged);
    setVisible(state != ProjectFile::Same);
}

} // namespace Workbench

#include "workbench/reopenbanner.h"

#include <QFileInfo>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>

#include "workbench/designnetlist.h"
#include "workbench/recovery.h"

namespace Workbench {

ReopenBanner::ReopenBanner(Recovery *recovery, DesignNetlist *design, QWidget *parent)
    : QWidget(parent),
      m_recovery(recovery),
      m_design(design),
      m_text(new QLabel),
      m_open(new QPushButton(tr("&Open Again")))
{
    setProperty("helpTopic", "recovery");
    auto *icon = new QLabel;
    icon->setPixmap(QPixmap(":/utils/image/attention.png"));
    m_text->setTextFormat(Qt::PlainText);
    m_text->setWordWrap(true);
    auto *layout = new QHBoxLayout(this);
    layout->addWidget(icon);
    layout->addWidget(m_text, 1);
    layout->addWidget(m_open);
    connect(m_open, &QPushButton::clicked, recovery, &Recovery::recoverWaiting);
    connect(recovery, &Recovery::waitingChanged, this, &ReopenBanner::update);
    connect(design, &DesignNetlist::stateChanged, this, &ReopenBanner::update);
    update();
}

void ReopenBanner::update()
{
    QStringList names;
    for (const KeptState &state : m_recovery->waiting())
        names << tr("'%1'").arg(QFileInfo(state.file).fileName());
    m_design->setWanted(this, !names.isEmpty());
    const bool isReady = m_design->state() == DesignNetlist::Ready && !m_design->isStale();
    const QString closed =
        names.size() == 1
            ? tr("%1 was closed, since the design could not be read. What was edited is kept.")
            : tr("%1 were closed, since the design could not be read. What was edited is kept.");
    m_text->setText(closed.arg(names.join(", ")) + '\n' +
                    (isReady ? tr("The design can be read again.")
                             : tr("As soon as the design can be read, it can be opened again.")));
    m_open->setEnabled(isReady);
    setVisible(!names.isEmpty());
}

} // namespace Workbench

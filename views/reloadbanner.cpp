#include "views/reloadbanner.h"

#include <QDir>
#include <QPushButton>

#include "ui_reloadbanner.h"

namespace RTLJEX {

ReloadBanner::ReloadBanner(CheckType type, const QString &fileName, QWidget *parent)
    : QWidget(parent), m_ui(new Ui_ReloadBanner)
{
    m_ui->setupUi(this);
    const bool removed = type == Removed;
    if (removed) {
        addAnswer(tr("Keep It"), [this] { Q_EMIT keepIt(); });
        addAnswer(tr("Close"), [this] { Q_EMIT closeIt(); });
    } else {
        addAnswer(tr("Reload"), [this] { Q_EMIT reload(); });
        addAnswer(tr("Cancel"), [this] { Q_EMIT cancel(); });
    }
    const QString text = removed
                             ? tr("The file '%1' has been removed on disk.\nDo you still want to keep it?")
                             : tr("The file '%1' changed on disk.\nDo you want to reload?");
    setText(text.arg(QDir::toNativeSeparators(fileName)));
    m_ui->labelFile->setPath(QDir::toNativeSeparators(fileName));
}

ReloadBanner::~ReloadBanner()
{
}

// They are called btnA, btnB and so on.
void ReloadBanner::addAnswer(const QString &text, const std::function<void()> &answer)
{
    QPushButton *button = new QPushButton(text, m_ui->widget);
    button->setObjectName(QLatin1String("btn") + QChar('A' + m_answers.size()));
    m_ui->verticalLayout->addWidget(button);
    connect(button, SIGNAL(clicked()), SLOT(giveAnswer()));
    m_answers.insert(button, answer);
}

// A copy, since the answer may be the end of the banner.
void ReloadBanner::giveAnswer()
{
    const std::function<void()> answer = m_answers.value(sender());
    if (answer)
        answer();
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

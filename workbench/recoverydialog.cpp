#include "workbench/recoverydialog.h"

#include <QDialogButtonBox>
#include <QDir>
#include <QHeaderView>
#include <QLabel>
#include <QLocale>
#include <QPushButton>
#include <QTreeWidget>
#include <QVBoxLayout>

#include "check/configuration.h"
#include "check/snapshot.h"
#include "cli/configurationdiff.h"
#include "host/plaintooltip.h"

namespace Workbench {
namespace {

QString reasonText(KeptFor reason)
{
    switch (reason) {
    case KeptFor::Draft:
        return RecoveryDialog::tr("draft");
    case KeptFor::UnreadableDesign:
        return RecoveryDialog::tr("its design could not be read");
    case KeptFor::Crash:
        break;
    }
    return RecoveryDialog::tr("not saved");
}

} // namespace

QString differenceText(const KeptState &state, int lines)
{
    RTLJEX::Snapshot snapshot;
    RTLJEX::Configuration now, kept;
    QString error;
    if (!RTLJEX::Snapshot::fromBytes(state.snapshot, &snapshot) || !RTLJEX::readSnapshot(snapshot, &kept))
        return RecoveryDialog::tr("The copy is damaged.");
    if (!now.read(state.file, &error))
        return error;
    QStringList sentences;
    for (const Cli::Difference &difference : Cli::differences(now, kept))
        sentences << Cli::differenceSentence(difference);
    if (sentences.isEmpty())
        return RecoveryDialog::tr("What it holds is what the file holds.");
    if (sentences.size() > lines)
        sentences = sentences.mid(0, lines - 1)
                    << RecoveryDialog::tr("and %1 more").arg(sentences.size() - lines + 1);
    return sentences.join('\n');
}

RecoveryDialog::RecoveryDialog(const QList<KeptState> &states, QWidget *parent)
    : QDialog(parent), m_states(states), m_list(new QTreeWidget)
{
    setProperty("helpTopic", "recovery");
    setWindowTitle(tr("Recover Files"));
    auto *text = new QLabel(
        tr("A workbench ended before these files were saved. What was edited is kept. Recovering opens "
           "the file and shows it again; nothing is saved by that."));
    text->setWordWrap(true);
    m_list->setAccessibleName(tr("Files that were not saved"));
    m_list->setHeaderLabels({tr("File"), tr("Kept"), tr("Why"), tr("What differs from the file")});
    m_list->setRootIsDecorated(false);
    m_list->setWordWrap(true);
    for (const KeptState &state : states) {
        auto *item = new QTreeWidgetItem(m_list, {QFileInfo(state.file).fileName(),
                                                  QLocale().toString(state.time, QLocale::ShortFormat),
                                                  reasonText(state.reason), differenceText(state, 4)});
        item->setCheckState(0, Qt::Checked);
        item->setToolTip(0, QUtil::plainToolTip(QDir::toNativeSeparators(state.file)));
        item->setToolTip(3, QUtil::plainToolTip(differenceText(state, 40)));
        for (int column = 0; column < 3; ++column)
            item->setTextAlignment(column, Qt::AlignLeft | Qt::AlignTop);
    }
    for (int column = 0; column < 3; ++column)
        m_list->resizeColumnToContents(column);
    auto *layout = new QVBoxLayout(this);
    layout->addWidget(text);
    layout->addWidget(m_list, 1);
    layout->addWidget(createButtons());
    resize(820, 320);
}

QWidget *RecoveryDialog::createButtons()
{
    auto *box = new QDialogButtonBox;
    QPushButton *recover = box->addButton(tr("&Recover"), QDialogButtonBox::AcceptRole);
    QPushButton *discard = box->addButton(tr("&Discard"), QDialogButtonBox::DestructiveRole);
    QPushButton *later = box->addButton(tr("Decide &Later"), QDialogButtonBox::RejectRole);
    recover->setDefault(true);
    connect(recover, &QPushButton::clicked, this, [this] { end(Recover); });
    connect(discard, &QPushButton::clicked, this, [this] { end(Discard); });
    connect(later, &QPushButton::clicked, this, &QDialog::reject);
    const auto update = [=] {
        recover->setEnabled(!ticked().isEmpty());
        discard->setEnabled(!ticked().isEmpty());
    };
    connect(m_list, &QTreeWidget::itemChanged, this, update);
    return box;
}

void RecoveryDialog::end(Answer answer)
{
    m_answer = answer;
    accept();
}

QList<KeptState> RecoveryDialog::ticked() const
{
    QList<KeptState> states;
    for (int row = 0; row < m_list->topLevelItemCount(); ++row) {
        if (m_list->topLevelItem(row)->checkState(0) == Qt::Checked)
            states << m_states.at(row);
    }
    return states;
}

QList<KeptState> RecoveryDialog::chosen() const
{
    return m_answer == Later ? QList<KeptState>() : ticked();
}

} // namespace Workbench

#include "views/staleplaces.h"

#include <QLineEdit>
#include <QTabWidget>
#include <QTreeWidget>

#include "signals/signalrows.h"
#include "signals/signaltreewidget.h"

Q_DECLARE_METATYPE(RTLJEX::StaleSignal)

namespace RTLJEX {

namespace {

// The tabs between the widget and the page, and the page itself.
void raise(QWidget *widget, QWidget *page)
{
    for (QWidget *below = widget; below != page; below = below->parentWidget()) {
        QTabWidget *tabs = qobject_cast<QTabWidget *>(page);
        if (tabs && tabs->indexOf(below) >= 0)
            tabs->setCurrentWidget(below);
    }
    widget->setFocus();
}

// The row, or the row of its member, below `parent`. The records of members are their row's.
QTreeWidgetItem *findRow(const QTreeWidgetItem *parent, const StaleSignal &signal)
{
    for (int i = 0; i < parent->childCount(); ++i) {
        QTreeWidgetItem *row = parent->child(i);
        const JEX::SignalItem item = recordOf(row);
        if (item.name == signal.name && signal.group.isEmpty())
            return row;
        if (item.name != signal.group)
            continue;
        for (int member = 0; member < qMin(row->childCount(), item.members.size()); ++member) {
            if (item.members.at(member).name == signal.name)
                return row->child(member);
        }
        return row;
    }
    return nullptr;
}

} // namespace

QList<Core::Finding> listFindings(const QList<StaleSignal> &stale)
{
    QList<Core::Finding> findings;
    for (const StaleSignal &signal : stale) {
        Core::Finding finding;
        finding.text = staleSentence(signal);
        finding.place = QVariant::fromValue(signal);
        findings.append(finding);
    }
    return findings;
}

StaleSignal staleSignalOf(const Core::Finding &finding)
{
    return finding.place.value<StaleSignal>();
}

void showSignalRow(QWidget *page, const StaleSignal &signal)
{
    if (signal.place == StaleSignal::Clock) {
        if (QLineEdit *field = page->findChild<QLineEdit *>(QLatin1String("editSampleClock"))) {
            raise(field, page);
            field->selectAll();
        }
        return;
    }
    const bool isTrigger = signal.place == StaleSignal::Trigger;
    QTreeWidget *tree = isTrigger ? page->findChild<QTreeWidget *>(QLatin1String("treeTrigger"))
                                  : page->findChild<signalTreeWidget *>();
    const QTreeWidgetItem *parent = !tree       ? nullptr
                                    : isTrigger ? tree->topLevelItem(signal.port)
                                                : tree->invisibleRootItem();
    QTreeWidgetItem *row = parent ? findRow(parent, signal) : nullptr;
    if (!row)
        return;
    raise(tree, page);
    tree->setCurrentItem(row);
    tree->scrollToItem(row);
}

} // namespace RTLJEX

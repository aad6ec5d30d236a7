#include "views/findingplaces.h"

#include <QLineEdit>
#include <QListWidget>
#include <QTabWidget>
#include <QTableView>
#include <QTreeWidget>

#include "check/renaming.h"
#include "signals/signalrows.h"
#include "signals/signaltreewidget.h"

Q_DECLARE_METATYPE(RTLJEX::CheckError)
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

// What can be taken in place of the name by the rules of a rename.
QStringList replacementsOf(const StaleSignal &signal)
{
    QStringList names = signal.nearest;
    if (!signal.now.isEmpty() && !names.contains(signal.now))
        names.prepend(signal.now);
    QStringList fitting;
    for (const QString &name : names) {
        Renaming renaming;
        QString error;
        if (renaming.set(signal.name, name, &error))
            fitting << name;
    }
    return fitting;
}

void showClock(QWidget *page)
{
    if (QLineEdit *field = page->findChild<QLineEdit *>(QLatin1String("editSampleClock"))) {
        raise(field, page);
        field->selectAll();
    }
}

void showSignalRow(QWidget *page, const StaleSignal &signal)
{
    if (signal.place == StaleSignal::Clock)
        return showClock(page);
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

void showError(QWidget *page, const CheckError &error)
{
    QTableView *units = page->findChild<QTableView *>(QLatin1String("tableMu"));
    QListWidget *expressions = page->findChild<QListWidget *>(QLatin1String("listExpression"));
    QTreeWidget *ports = page->findChild<QTreeWidget *>(QLatin1String("treeTrigger"));
    if (error.place == CheckError::Clock) {
        showClock(page);
    } else if (error.place == CheckError::Units && units) {
        raise(units, page);
        units->selectRow(error.unit); // each shows in the row of its number
    } else if (error.place == CheckError::Expressions && expressions) {
        raise(expressions, page);
        const QList<QListWidgetItem *> rows = expressions->findItems(error.expression, Qt::MatchExactly);
        if (!rows.isEmpty())
            expressions->setCurrentItem(rows.first());
    } else if (error.place == CheckError::Ports && ports) {
        raise(ports, page);
    } else if (QTreeWidget *rows = page->findChild<signalTreeWidget *>()) {
        raise(rows, page);
    }
}

} // namespace

QList<Core::Finding> listFindings(const QList<CheckError> &refusals, const QList<StaleSignal> &stale)
{
    QList<Core::Finding> findings;
    for (const CheckError &error : refusals) {
        Core::Finding finding;
        finding.kind = Core::Finding::Refusal;
        finding.text = error.line;
        finding.place = QVariant::fromValue(error);
        findings.append(finding);
    }
    for (const StaleSignal &signal : stale) {
        Core::Finding finding;
        finding.text = staleSentence(signal);
        finding.net = signal.now.isEmpty() ? signal.name : signal.now;
        finding.replacements = replacementsOf(signal);
        finding.place = QVariant::fromValue(signal);
        findings.append(finding);
    }
    return findings;
}

StaleSignal staleSignalOf(const Core::Finding &finding)
{
    return finding.place.value<StaleSignal>();
}

int coreOf(const Core::Finding &finding)
{
    return finding.kind == Core::Finding::Stale ? staleSignalOf(finding).core
                                                : finding.place.value<CheckError>().core;
}

void showPlace(QWidget *page, const Core::Finding &finding)
{
    if (finding.kind == Core::Finding::Stale)
        showSignalRow(page, staleSignalOf(finding));
    else
        showError(page, finding.place.value<CheckError>());
}

} // namespace RTLJEX

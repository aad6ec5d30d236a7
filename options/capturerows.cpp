#include "options/capturerows.h"

#include <QPointer>
#include <QSet>

#include "netselect/jexsignalselectdialog.h"
#include "signals/checkrepeat.h"
#include "signals/signalrows.h"
#include "signals/signalrules.h"
#include "signals/signaltreewidget.h"

namespace RTLJEX {

bool addSearchedRows(QTreeWidget *tree, QUARRY::RtlNetlist *netlist, QWidget *page)
{
    const QPointer<QWidget> alive(page);
    const QList<JEX::SignalItem> chosen = JexSignalSelectDialog::getNetName(netlist, page);
    qDebug("get infor from search");
    if (!alive || chosen.isEmpty())
        return false;
    addCaptureRows(tree, chosen);
    return true;
}

void addCaptureRows(QTreeWidget *tree, const QList<JEX::SignalItem> &chosen)
{
    const QList<JEX::SignalItem> added = withoutRepeats(tree, chosen);
    // Rows may have gone or become enabled by now, so the place is looked up only here.
    insertCaptureRows(tree, added, firstDisabledRow(tree));
}

QList<JEX::SignalItem> uniqueByName(const QList<JEX::SignalItem> &items)
{
    QList<JEX::SignalItem> unique;
    QSet<QString> seen;
    for (const JEX::SignalItem &item : items) {
        QStringList members;
        for (const JEX::SignalItem &member : item.members)
            members << (item.isGroup() ? member.name : QString());
        members.sort();
        members.removeDuplicates();
        const QString key = item.name + QLatin1Char('\n') + members.join(QLatin1String("\n"));
        if (!seen.contains(key))
            unique.append(item);
        seen.insert(key);
    }
    return unique;
}

void rebuildCaptureRows(QTreeWidget *tree, const QUARRY::RtlNetlist *netlist, QList<JEX::SignalItem> &stored)
{
    classifySignals(netlist, stored);
    tree->clear();
    insertCaptureRows(tree, stored, 0);
}

void collectCaptureRows(signalTreeWidget *tree, QList<JEX::SignalItem> &enabled, QList<JEX::SignalItem> &all)
{
    tree->finishEdit();
    enabled.clear();
    all.clear();
    for (int i = 0; i < tree->topLevelItemCount(); ++i) {
        const QVariant data = tree->topLevelItem(i)->data(0, Qt::UserRole);
        if (!data.canConvert<JEX::SignalItem>())
            continue;
        const JEX::SignalItem item = data.value<JEX::SignalItem>();
        all.append(item);
        if (item.capEnable)
            enabled.append(item);
    }
}

} // namespace RTLJEX

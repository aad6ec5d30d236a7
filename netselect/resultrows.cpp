#include "netselect/resultrows.h"

#include <QBrush>
#include <QCoreApplication>
#include <QHash>
#include <QIcon>
#include <QTreeWidget>
#include <QTreeWidgetItem>
#include <vector>

#include "host/plaintooltip.h"
#include "model/netlist/rtlnetlist.h"
#include "netselect/netsearch.h"
#include "signals/addedrows.h"

namespace RTLJEX {

namespace {

enum NameForm { FullName, ShortName };

const Qt::ItemFlags usable = Qt::ItemIsSelectable | Qt::ItemIsEnabled;

class ResultRow : public QTreeWidgetItem
{
    Q_DECLARE_TR_FUNCTIONS(ResultRow)

public:
    QVariant data(int column, int role) const override;

    virtual JEX::SignalItem record() const = 0;
    virtual QString text() const = 0;
    virtual QString toolTip() const { return record().name; }
    static QString excluded() { return tr("Excluded: tied to a constant, or a bidirectional pin"); }

protected:
    // At the end of construction: it holds for the rows below, too.
    void useUnless(bool excluded)
    {
        if (excluded)
            setFlags(flags() & ~usable);
    }
};

struct Column
{
    const char *title;
    QString (ResultRow::*text)() const; // of a row
};
constexpr Column columns[] = {
    {QT_TRANSLATE_NOOP("ResultRow", "Name"), &ResultRow::text},
};
const int resultColumns = int(sizeof columns / sizeof *columns);

QVariant ResultRow::data(int column, int role) const
{
    if (column >= resultColumns)
        return QTreeWidgetItem::data(column, role);
    const auto textOf = columns[column].text;
    if (role == Qt::DisplayRole)
        return (this->*textOf)();
    if (role == Qt::UserRole && column == 0)
        return QVariant::fromValue(record());
    if (role == Qt::ForegroundRole)
        return flags() & Qt::ItemIsSelectable ? QVariant() : QVariant(QBrush(Qt::gray));
    if (role == Qt::ToolTipRole)
        return QUtil::plainToolTip(
            flags() & Qt::ItemIsSelectable ? toolTip() : toolTip() + QLatin1Char('\n') + excluded());
    if (role == Qt::AccessibleTextRole && !(flags() & Qt::ItemIsSelectable))
        return QString((this->*textOf)() + QLatin1String(", ") + excluded());
    return QTreeWidgetItem::data(column, role);
}

class NetRow : public ResultRow
{
public:
    NetRow(const QUARRY::RtlNet *net, JEX::SignalKind kind, NameForm form)
        : m_net(net), m_kind(kind), m_form(form)
    {
        useUnless(net->excluded);
    }

    JEX::SignalItem record() const override
    {
        JEX::SignalItem item = signalOfNet(m_net);
        item.type = m_kind;
        return item;
    }

    QString text() const override { return m_form == FullName ? m_net->fullPathName() : m_net->name(); }

private:
    const QUARRY::RtlNet *m_net;
    JEX::SignalKind m_kind : 8;
    NameForm m_form : 8;
};

class BusRow : public ResultRow
{
public:
    BusRow(const QUARRY::RtlNetBus *bus, NameForm form) : m_bus(bus), m_form(form)
    {
        QList<QTreeWidgetItem *> bits;
        bits.reserve(bus->members.size());
        for (const QUARRY::RtlNet *net : bus->members)
            bits.append(new NetRow(net, JEX::BusKind, form));
        addChildren(bits);
        useUnless(bus->excluded);
    }

    JEX::SignalItem record() const override { return signalOfBus(m_bus); }
    QString text() const override { return m_form == FullName ? m_bus->fullBusName() : m_bus->BusName(); }
    // Of a packed structure with the bits of its members.
    QString toolTip() const override
    {
        return (QStringList(record().name) + m_bus->declaration().members).join(QLatin1String("\n"));
    }

private:
    const QUARRY::RtlNetBus *m_bus;
    NameForm m_form;
};

QList<QTreeWidgetItem *> makeRows(const QList<QUARRY::RtlNet *> &nets,
                                  const QList<QUARRY::RtlNetBus *> &buses, NameForm form)
{
    QList<QTreeWidgetItem *> rows;
    rows.reserve(nets.size() + buses.size());
    for (const QUARRY::RtlNetBus *bus : buses)
        rows.append(new BusRow(bus, form));
    for (const QUARRY::RtlNet *net : nets)
        rows.append(new NetRow(net, JEX::NetKind, form));
    return rows;
}

QTreeWidgetItem *makeModuleRow(const ModuleForWidget &module, const QIcon &icon)
{
    QTreeWidgetItem *row = new QTreeWidgetItem;
    row->setText(0, module.name);
    row->setIcon(0, icon);
    row->setFlags(row->flags() & ~Qt::ItemIsSelectable);
    QList<QTreeWidgetItem *> rows = makeRows(module.nets, module.buses, ShortName);
    for (const ModuleForWidget &child : module.subModules)
        rows.append(makeModuleRow(child, icon));
    row->addChildren(rows);
    return row;
}

// Goes through the tree by the ranges of its selection. To ask for the selected rows themselves would hash
// each of them.
class SelectionWalk
{
public:
    explicit SelectionWalk(const QTreeWidget *tree) : m_model(tree->model())
    {
        int rows = 0;
        for (const QItemSelectionRange &range : tree->selectionModel()->selection()) {
            m_ranges[range.parent()].append(range);
            rows += range.height();
        }
        found.reserve(rows);
        visit(tree->invisibleRootItem(), QModelIndex());
    }

    QList<JEX::SignalItem> found;

private:
    void visit(const QTreeWidgetItem *parent, const QModelIndex &parentIndex)
    {
        const std::vector<bool> selected = selectedChildren(parent, parentIndex);
        const bool deeper = m_ranges.size() > (m_ranges.contains(QModelIndex()) ? 1 : 0);
        for (int i = 0; i < parent->childCount(); ++i) {
            const QTreeWidgetItem *row = parent->child(i);
            if (!selected.empty() && selected[size_t(i)] && (row->flags() & usable) == usable)
                add(row);
            if (deeper && row->childCount() > 0)
                visit(row, m_model->index(i, 0, parentIndex));
        }
    }

    std::vector<bool> selectedChildren(const QTreeWidgetItem *parent, const QModelIndex &parentIndex) const
    {
        std::vector<bool> selected;
        const QList<QItemSelectionRange> ranges = m_ranges.value(parentIndex);
        if (!ranges.isEmpty())
            selected.resize(size_t(parent->childCount()));
        for (const QItemSelectionRange &range : ranges) {
            for (int i = range.top(); i <= range.bottom(); ++i)
                selected[size_t(i)] = true;
        }
        return selected;
    }

    void add(const QTreeWidgetItem *row)
    {
        if (const ResultRow *result = dynamic_cast<const ResultRow *>(row))
            found.append(result->record());
        else if (row->data(0, Qt::UserRole).userType() == qMetaTypeId<JEX::SignalItem>())
            found.append(row->data(0, Qt::UserRole).value<JEX::SignalItem>());
    }

    const QAbstractItemModel *m_model;
    QHash<QModelIndex, QList<QItemSelectionRange>> m_ranges;
};

} // namespace

void setUpResultColumns(QTreeWidget *tree)
{
    QStringList titles;
    for (const auto &column : columns)
        titles << ResultRow::tr(column.title);
    tree->setHeaderLabels(titles);
    tree->setHeaderHidden(resultColumns == 1);
}

void showFlatResult(QTreeWidget *tree, const QList<QUARRY::RtlNet *> &nets,
                    const QList<QUARRY::RtlNetBus *> &buses)
{
    tree->addTopLevelItems(makeRows(nets, buses, FullName));
}

void showModuleResult(QTreeWidget *tree, const ModuleForWidget &root)
{
    QTreeWidgetItem *row = makeModuleRow(root, QIcon(QLatin1String(":/jexins/image/module.png")));
    tree->addTopLevelItem(row);
    row->setExpanded(true);
}

QList<JEX::SignalItem> selectedSignals(const QTreeWidget *tree)
{
    return SelectionWalk(tree).found;
}

} // namespace RTLJEX

#include "workbench/netmodel.h"

#include <QMimeData>
#include <QSet>

#include "host/plaintooltip.h"
#include "model/netlist/rtlnetlist.h"
#include "netselect/nodematcher.h"

namespace Workbench {
namespace {

const int pageSize = 500; // rows
const int sliceTime = 15; // ms

} // namespace

NetModel::NetModel(QObject *parent) : QAbstractTableModel(parent)
{
    m_timer.setInterval(0);
    connect(&m_timer, &QTimer::timeout, this, &NetModel::searchOn);
}

NetModel::~NetModel() = default;

void NetModel::clear()
{
    m_timer.stop();
    beginResetModel();
    m_matcher.reset();
    m_left.clear();
    m_rows.clear();
    m_shown = 0;
    endResetModel();
}

void NetModel::search(const QUARRY::Hierachy *module, const RTLJEX::SearchOptions &options)
{
    clear();
    if (!module)
        return Q_EMIT searched();
    m_base = module->fullPathName() + '/';
    if (options.pattern.isEmpty()) {
        add(module->nets, module->buses);
        return Q_EMIT searched();
    }
    m_matcher = std::make_unique<RTLJEX::NodeMatcher>(options);
    m_left = {module};
    m_timer.start();
    searchOn();
}

// Depth first, in the order of the design.
void NetModel::searchOn()
{
    QElapsedTimer time;
    time.start();
    QList<QUARRY::RtlNet *> nets;
    QList<QUARRY::RtlNetBus *> buses;
    while (!m_left.empty() && time.elapsed() < sliceTime) {
        const QUARRY::Hierachy *node = m_left.back();
        m_left.pop_back();
        m_left.insert(m_left.end(), node->children.rbegin(), node->children.rend());
        nets.clear();
        buses.clear();
        m_matcher->addMatches(node, nets, buses);
        add(nets, buses);
    }
    if (m_left.empty())
        m_timer.stop();
    Q_EMIT searched();
}

// Views ask for the first page themselves only when it is there already.
void NetModel::add(const QList<QUARRY::RtlNet *> &nets, const QList<QUARRY::RtlNetBus *> &buses)
{
    for (const QUARRY::RtlNetBus *bus : buses)
        m_rows.push_back({nullptr, bus});
    for (const QUARRY::RtlNet *net : nets)
        m_rows.push_back({net, nullptr});
    if (m_shown < pageSize && m_shown < found())
        fetchMore(QModelIndex());
}

QString NetModel::fullName(const QModelIndex &index) const
{
    if (!index.isValid())
        return {};
    const Row &row = m_rows[size_t(index.row())];
    return row.bus ? row.bus->fullBusName() : row.net->fullPathName();
}

QStringList NetModel::fullNames(const QModelIndexList &indexes) const
{
    QSet<int> rows;
    for (const QModelIndex &index : indexes) {
        if (flags(index) & Qt::ItemIsSelectable)
            rows.insert(index.row());
    }
    QList<int> sorted = rows.values();
    std::sort(sorted.begin(), sorted.end());
    QStringList names;
    for (int row : qAsConst(sorted))
        names << fullName(index(row, NameColumn));
    return names;
}

int NetModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : m_shown;
}

QVariant NetModel::data(const QModelIndex &index, int role) const
{
    if (!index.isValid())
        return {};
    const Row &row = m_rows[size_t(index.row())];
    if (role == Qt::DisplayRole && index.column() == NameColumn)
        return fullName(index).mid(m_base.size());
    if (role == Qt::DisplayRole)
        return row.bus ? row.bus->members.size() : 1;
    if (role == Qt::TextAlignmentRole && index.column() == WidthColumn)
        return int(Qt::AlignRight | Qt::AlignVCenter);
    return role == Qt::ToolTipRole ? QUtil::plainToolTip(toolTip(row)) : QVariant();
}

QString NetModel::toolTip(const Row &row) const
{
    const QUARRY::Declaration declaration = row.bus ? row.bus->declaration() : row.net->declaration();
    const int width = row.bus ? row.bus->members.size() : 1;
    QStringList lines(row.bus ? row.bus->fullBusName() : row.net->fullPathName());
    const QString bits = width == 1 ? tr("1 bit") : tr("%1 bits").arg(width);
    lines << (declaration.type.isEmpty() ? bits : declaration.type + ", " + bits);
    lines << declaration.members << declaration.enumLabels;
    if (!declaration.file.isEmpty())
        lines << QString("%1:%2").arg(declaration.file).arg(declaration.line);
    if (row.bus ? row.bus->excluded : row.net->excluded)
        lines << tr("Not offered: it is tied to a constant, or is a bidirectional pin.");
    return lines.join('\n');
}

QVariant NetModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole)
        return {};
    return section == NameColumn ? tr("Net") : tr("Bits");
}

Qt::ItemFlags NetModel::flags(const QModelIndex &index) const
{
    if (!index.isValid())
        return Qt::NoItemFlags;
    const Row &row = m_rows[size_t(index.row())];
    const bool excluded = row.bus ? row.bus->excluded : row.net->excluded;
    return excluded
               ? Qt::NoItemFlags
               : Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemIsDragEnabled | Qt::ItemNeverHasChildren;
}

bool NetModel::canFetchMore(const QModelIndex &parent) const
{
    return !parent.isValid() && m_shown < found();
}

void NetModel::fetchMore(const QModelIndex &parent)
{
    if (parent.isValid() || m_shown >= found())
        return;
    const int last = qMin(found(), m_shown + pageSize) - 1;
    beginInsertRows(QModelIndex(), m_shown, last);
    m_shown = last + 1;
    endInsertRows();
}

QMimeData *NetModel::mimeData(const QModelIndexList &indexes) const
{
    auto *data = new QMimeData;
    data->setText(fullNames(indexes).join('\n'));
    return data;
}

} // namespace Workbench

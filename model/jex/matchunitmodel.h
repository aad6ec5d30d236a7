#pragma once

#include <QAbstractTableModel>
#include <QFont>
#include <QList>

#include "model/jex/core.h"

namespace JEX {

// The table of the match units: a row for each, in the order of the list. The units are not owned and are
// read anew on every call. The user can tick a unit's enabled box, which sets the flag in the unit;
// everything else is edited by MatchUnitDialog.
class MatchUnitModel : public QAbstractTableModel
{
    Q_OBJECT

public:
    // NumberColumn holds the plain unit number, for hosts that sort by it; pages hide it.
    enum Column {
        EnabledColumn,
        NumberColumn,
        UnitColumn,
        PortColumn,
        FunctionColumn,
        ValueColumn,
        ColumnCount
    };

    explicit MatchUnitModel(const QList<MatchUnit *> &units, QObject *parent = nullptr);

    void setMatcherList(const QList<MatchUnit *> &units);   // a model reset
    MatchUnit *muFromIndex(const QModelIndex &index) const; // null for an index that is no unit's
    void updateRow(int row);                                // draws a row anew after its unit was edited

    int rowCount(const QModelIndex &parent = QModelIndex()) const override;
    int columnCount(const QModelIndex &parent = QModelIndex()) const override;
    QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role = Qt::DisplayRole) const override;
    Qt::ItemFlags flags(const QModelIndex &index) const override;
    bool setData(const QModelIndex &index, const QVariant &value, int role = Qt::EditRole) override;

Q_SIGNALS:
    // The user ticked or cleared the box of a unit. It is emitted once, and layoutChanged() is not.
    void matchChange();

private:
    QList<MatchUnit *> m_units;
};

// Fixed pitch, so that the bits of values stand below each other; size and weight are the widget's.
QFont bitFont();

} // namespace JEX

#pragma once

#include <QAbstractTableModel>
#include <QElapsedTimer>
#include <QTimer>
#include <memory>
#include <vector>

#include "netselect/netsearch.h"

namespace RTLJEX {
class NodeMatcher;
}

namespace Workbench {

// The nets and buses of an instance, or those of it and all below it that match a pattern. A search goes on
// in slices from the event loop, so that typing is never held up, and what it has found so far is shown. Rows
// are given to views a page at a time. Points into the netlist, which is not owned: clear() before that goes.
class NetModel : public QAbstractTableModel
{
    Q_OBJECT

public:
    explicit NetModel(QObject *parent = nullptr);
    ~NetModel() override;

    enum Column { NameColumn, WidthColumn, ColumnCount };

    void clear();
    // With an empty pattern those of the instance alone.
    void search(const QUARRY::Hierachy *module, const RTLJEX::SearchOptions &options);
    bool isSearching() const { return m_timer.isActive(); }
    int found() const { return int(m_rows.size()); } // also those that no view has asked for yet

    QString fullName(const QModelIndex &index) const;
    QStringList fullNames(const QModelIndexList &indexes) const; // of the rows that may be chosen, once each

    int rowCount(const QModelIndex &parent = QModelIndex()) const override;
    int columnCount(const QModelIndex &) const override { return ColumnCount; }
    QVariant data(const QModelIndex &index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    Qt::ItemFlags flags(const QModelIndex &index) const override;
    bool canFetchMore(const QModelIndex &parent) const override;
    void fetchMore(const QModelIndex &parent) override;
    QStringList mimeTypes() const override { return {"text/plain"}; }
    QMimeData *mimeData(const QModelIndexList &indexes) const override;

Q_SIGNALS:
    void searched(); // a slice of it; isSearching() tells whether there are more

private:
    struct Row
    {
        const QUARRY::RtlNet *net; // or
        const QUARRY::RtlNetBus *bus;
    };

    void searchOn();
    void add(const QList<QUARRY::RtlNet *> &nets, const QList<QUARRY::RtlNetBus *> &buses);
    QString toolTip(const Row &row) const;

    QTimer m_timer;
    std::unique_ptr<RTLJEX::NodeMatcher> m_matcher;
    std::vector<const QUARRY::Hierachy *> m_left; // instances to be looked through, the next one last
    std::vector<Row> m_rows;
    int m_shown = 0; // rows that the views know of
    QString m_base;  // in front of the names, which are shown without it
};

} // namespace Workbench

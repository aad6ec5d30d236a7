#pragma once

#include <QCoreApplication>
#include <QTreeWidgetItem>

namespace RTLJEX {

// A row that says in words, by tool tip and to screen readers, what its colour means.
class SignalRow : public QTreeWidgetItem
{
    Q_DECLARE_TR_FUNCTIONS(SignalRow)

public:
    explicit SignalRow(int type) : QTreeWidgetItem(type) {}

    QVariant data(int column, int role) const override;
};

} // namespace RTLJEX

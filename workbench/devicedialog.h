#pragma once

#include <QDialog>
#include <functional>

#include "host/devicearg.h"

class QDialogButtonBox;
class QLabel;
class QLineEdit;
class QTreeWidget;
class QTreeWidgetItem;

namespace Workbench {

// Picks one of the known devices, or none. A part number that is typed and whose package is not known means
// its die; where nothing has the typed name, what is spelt like it is offered.
class DeviceDialog : public QDialog
{
    Q_OBJECT

public:
    DeviceDialog(const DEV::DeviceArg &current, QWidget *parent);

    DEV::DeviceArg device() const; // as long as nothing is picked: the current one

private:
    void fill();
    void filter(const QString &text);
    bool isShown(const QTreeWidgetItem *row, const QString &text) const;
    QTreeWidgetItem *showOnly(const std::function<bool(const QTreeWidgetItem *)> &isWanted);
    void updateButtons();

    DEV::DeviceArg m_current;
    DEV::DeviceArg m_typed; // a part of a known die in another package; else empty
    QLineEdit *m_filter;
    QTreeWidget *m_tree;
    QLabel *m_note;
    QDialogButtonBox *m_buttons;
};

} // namespace Workbench

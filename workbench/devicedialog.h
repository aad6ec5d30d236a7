#pragma once

#include <QDialog>

#include "host/devicearg.h"

class QDialogButtonBox;
class QLineEdit;
class QTreeWidget;

namespace Workbench {

// Picks one of the known devices, or none.
class DeviceDialog : public QDialog
{
    Q_OBJECT

public:
    DeviceDialog(const DEV::DeviceArg &current, QWidget *parent);

    DEV::DeviceArg device() const; // as long as nothing is picked: the current one

private:
    void fill();
    void filter(const QString &text);

    DEV::DeviceArg m_current;
    QLineEdit *m_filter;
    QTreeWidget *m_tree;
    QDialogButtonBox *m_buttons;
};

} // namespace Workbench

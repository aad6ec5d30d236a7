#pragma once

#include <QDialog>
#include <QList>
#include <QPersistentModelIndex>
#include <QRegExp>
#include <memory>

#include "model/jex/signalitem.h"

namespace QUARRY {
class Hierachy;
class RtlNetlist;
} // namespace QUARRY

namespace RTLJEX {

struct SearchOptions;
class RtlNetlistTreeView;
class Ui_JexSignalSelectDialog;

// "Search Nets": finds nets and buses of a design and lets the user pick some. The netlist is not owned and
// may be null; while the dialog is open its rows point into it, so reject it before the netlist goes.
class JexSignalSelectDialog : public QDialog
{
    Q_OBJECT

public:
    explicit JexSignalSelectDialog(QUARRY::RtlNetlist *netlist, QWidget *parent = nullptr);
    ~JexSignalSelectDialog() override;

    // Run the dialog. Empty when it was cancelled or died with its parent.
    static QList<JEX::SignalItem> getNetName(QUARRY::RtlNetlist *netlist, QWidget *parent);
    static QString getOneNetName(QUARRY::RtlNetlist *netlist, QWidget *parent);

    // The records of the selected rows, in the order of the tree.
    QList<JEX::SignalItem> getSelectedNets() const;
    // The name of the first of them; of a bus its first bit that is valid, or nothing without one.
    QString getOneSelectedNetName() const;

public Q_SLOTS:
    void on_pushButtonSearch_clicked();
    void on_checkBoxAdvancedFilter_toggled(bool on);
    void done(int result) override;

protected:
    // Return searches. Other keys end here, so that none closes the dialog by accident.
    void keyPressEvent(QKeyEvent *event) override;
    bool eventFilter(QObject *object, QEvent *event) override;

private Q_SLOTS:
    void keepModule();    // the current one of the drop-down is the chosen one
    void restoreModule(); // the chosen one is the current one
    void updateNameTip();

private:
    void setUpModuleBox();
    QRegExp expression() const;
    void search();
    SearchOptions searchOptions() const;
    QUARRY::Hierachy *chosenModule() const;

    std::unique_ptr<Ui_JexSignalSelectDialog> m_ui;
    QUARRY::RtlNetlist *m_netlist;
    RtlNetlistTreeView *m_moduleView; // the drop-down of "Search In"
    QPersistentModelIndex m_module;   // what is chosen there, while the mouse goes over others
    bool m_isLeft = false;            // the drop-down was, and may have another current one
};

} // namespace RTLJEX

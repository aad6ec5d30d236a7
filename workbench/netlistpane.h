#pragma once

#include <QWidget>

#include "host/inetplaces.h"

class QComboBox;
class QLabel;
class QMimeData;
class QSettings;
class QSplitter;
class QToolButton;
class QTreeView;

namespace Workbench {

class DesignNetlist;
class InstanceModel;
class NetModel;

// The design as instances and nets, beside the editors: choose an instance, type a filter, put nets into the
// list that the editor shows, by a drag, Return or a double click. Reads the design only while it can be
// seen.
class NetlistPane : public QWidget, public Core::INetPlaces
{
    Q_OBJECT

public:
    // `settings`, not owned, keeps the last patterns; may be null.
    NetlistPane(DesignNetlist *design, QSettings *settings, QWidget *parent = nullptr);
    ~NetlistPane() override;

    QMimeData *chosenNets() const; // the caller's; null when none is chosen
    QString focusedNet() const override;
    Core::NetPlace placeOf(const QString &net) const override;

Q_SIGNALS:
    void addRequested(); // of the nets that are chosen

public Q_SLOTS:
    void setShown(bool isShown); // a dock behind another's tab is visible for the toolkit

protected:
    bool eventFilter(QObject *object, QEvent *event) override;

private:
    void createFilter();
    void createLists();
    void letGo();
    void showDesign();
    void search();
    void updateStatus();
    void rememberPattern();

    DesignNetlist *m_design;
    QSettings *m_settings;
    InstanceModel *m_instances;
    NetModel *m_nets;
    QComboBox *m_pattern;
    QComboBox *m_syntax;
    QToolButton *m_case;
    QTreeView *m_tree;
    QTreeView *m_list;
    QLabel *m_status;
    QString m_chosen; // path of the instance, kept while the design is read anew
};

} // namespace Workbench

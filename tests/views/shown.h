#pragma once

#include "tests/support/menudriver.h"
#include "tests/support/modaldriver.h"
#include "tests/support/workspace.h"
#include "views/jexliteinserterview.h"
#include "views/jexstandardinserterview.h"
#include "views/reloadbanner.h"

// An editor of either mode in a container of its own, as the host shows it.
struct Shown
{
    Shown(JEX::JexMode mode, const QString &file, bool isContained = true)
        : standard(mode == JEX::StandardMode), container(isContained ? new QWidget : nullptr), view(newView())
    {
        if (isContained)
            (new QVBoxLayout(container))->addWidget(view);
        QWidget *window = view->window();
        window->resize(900, 600);
        opened = view->open(file, QString(), &error);
        window->show();
    }
    ~Shown()
    {
        delete container;
        delete view;
    }

    RTLJEX::JexInserterView *newView() const
    {
        if (standard)
            return new RTLJEX::JexStandardInserterView(container);
        return new RTLJEX::JexLiteInserterView(container);
    }

    template <class Widget>
    Widget *find(const char *name) const
    {
        // The page in view comes first: every page has controls of that name.
        Widget *found = pages()->currentWidget()->findChild<Widget *>(name);
        return found ? found : view->findChild<Widget *>(name);
    }
    QStackedWidget *pages() const { return view->findChild<QStackedWidget *>("stackedWidget"); }
    QCheckBox *initialData() const
    {
        return find<QCheckBox>(standard ? "chkBoxCaptureInitial" : "capIniDataCheckBox");
    }
    QTreeWidget *captureRows() const
    {
        return find<QTreeWidget>(standard ? "treeWidgetCapSigs" : "treeWidgetSignal");
    }
    QTreeWidget *coreTree() const { return view->findChild<QTreeWidget *>("treeWidget"); }
    void edit() const { initialData()->click(); }
    QString state() const { return !view ? "gone" : view->isVisible() ? "visible" : "hidden"; }

    // The cores as they are listed, a star at the chosen one.
    QString cores() const
    {
        const QComboBox *box = view->findChild<QComboBox *>("comboBoxAo");
        const QAbstractItemModel *model = standard ? coreTree()->model() : box->model();
        QStringList names;
        for (int i = 0; i < model->rowCount(); ++i) {
            const bool isChosen =
                standard ? coreTree()->topLevelItem(i)->isSelected() : box->currentIndex() == i;
            names << model->index(i, 0).data().toString() + (isChosen ? "*" : "");
        }
        return names.join(", ");
    }

    // A slot that a host may call by its name, wherever below the view it is.
    bool call(const char *slot) const
    {
        for (QObject *child : view->children()) {
            if (child->metaObject()->indexOfSlot(slot + QByteArray("()")) >= 0)
                return QMetaObject::invokeMethod(child, slot);
        }
        return false;
    }

    // What the menu of the core list offers over a row; -1: below the rows.
    QString menu(int row, const QString &entry = QString()) const
    {
        QTreeWidget *tree = coreTree();
        const QTreeWidgetItem *item = tree->topLevelItem(row);
        const QPoint at = item ? tree->visualItemRect(item).center() : tree->viewport()->rect().bottomLeft();
        return useMenu([&] { Q_EMIT tree->customContextMenuRequested(at); }, entry).join(' ');
    }
    void addCore() const
    {
        if (standard)
            menu(-1, "Add");
        else
            QVERIFY(call("addOneAo"));
    }

    QStringList banners() const
    {
        QStringList texts;
        for (RTLJEX::ReloadBanner *banner : view->findChildren<RTLJEX::ReloadBanner *>())
            texts << banner->findChild<QLabel *>("labelFile")->text().replace(view->file(), "FILE");
        return texts;
    }
    void answer(const QString &button) const
    {
        QAbstractButton *found = shownButton(view->findChild<RTLJEX::ReloadBanner *>(), button);
        QVERIFY2(found, qPrintable("no button " + button));
        found->click();
    }

    const bool standard;
    QPointer<QWidget> container;
    QPointer<RTLJEX::JexInserterView> view;
    QString error;
    bool opened;
};

static const char faultyDesign[] = "module top(input clk);\n  assign = 1;\nendmodule\n";

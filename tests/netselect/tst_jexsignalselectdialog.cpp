#include "model/netlist/rtlnetlist.h"
#include "netselect/jexsignalselectdialog.h"
#include "netselect/netsearch.h"
#include "netselect/resultrows.h"
#include "netselect/rtlnetlisttreeview.h"
#include "signals/addedrows.h"
#include "signals/signalrows.h"
#include "tests/support/netlisttext.h"
#include "tests/support/netpicker.h"
#include "tests/support/signaltext.h"
#include "tests/support/tablerow.h"

using namespace RTLJEX;

namespace {

const char design[] = R"(
top
  clk
  tied x
  count[1:0]
  held[1:0] x
  part[1:0] x1
  dead[1:0] x1 x0
  u0:uart
    ready
    data[0:1]
  u1:gap
    u2:fifo
      Full
)";

const char advanced[] = "checkBoxAdvancedFilter";
const char below[] = "checkBoxIncludeSubentries";
const char modules[] = "checkBoxHierarchyView";
const char byModules[] = "checkBoxAdvancedFilter checkBoxIncludeSubentries checkBoxHierarchyView";

void click(QDialog *dialog, const QStringList &names)
{
    for (const QString &name : names) {
        QAbstractButton *button = dialog->findChild<QAbstractButton *>(name.toLatin1());
        QTest::mouseClick(button, Qt::LeftButton, Qt::NoModifier, QPoint(8, button->height() / 2));
    }
}

// Whether a button was off under the wait cursor once.
struct BusyWatch : QObject
{
    bool eventFilter(QObject *button, QEvent *event) override
    {
        const QCursor *cursor = QApplication::overrideCursor();
        if (event->type() == QEvent::EnabledChange && !static_cast<QWidget *>(button)->isEnabled())
            wasBusy = cursor && cursor->shape() == Qt::WaitCursor;
        return false;
    }
    bool wasBusy = false;
};

QTreeWidget *search(QDialog *dialog, const QString &text)
{
    BusyWatch watch;
    dialog->findChild<QPushButton *>("pushButtonSearch")->installEventFilter(&watch);
    dialog->findChild<QLineEdit *>("lineEditName")->clear();
    QTest::keyClicks(dialog->findChild<QLineEdit *>("lineEditName"), text);
    click(dialog, {"pushButtonSearch"});
    if (QApplication::overrideCursor() || !dialog->findChild<QPushButton *>("pushButtonSearch")->isEnabled())
        qFatal("The search left the dialog busy");
    if (!watch.wasBusy)
        qFatal("The dialog was not busy while it searched");
    return dialog->findChild<QTreeWidget *>("treeWidget");
}

// "row(child child) row"
QString texts(const QTreeWidgetItem *parent)
{
    QStringList rows;
    for (int i = 0; i < parent->childCount(); ++i) {
        const QString children = texts(parent->child(i));
        rows += parent->child(i)->text(0) + (children.isEmpty() ? "" : '(' + children + ')');
    }
    return rows.join(' ');
}

// "u0[uart] 1003 icon(...)": text, type and what is below
QString drawn(const QTreeWidgetItem *row)
{
    QStringList children;
    for (int i = 0; i < row->childCount(); ++i)
        children += drawn(row->child(i));
    QString text = row->text(0) + ' ' + QString::number(row->type());
    text += row->icon(0).isNull() ? "" : " icon";
    return text + (children.isEmpty() ? QString() : '(' + children.join(", ") + ')');
}

} // namespace

class JexSignalSelectDialogTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        m_netlist.reset(netlistFromText(design));
        m_netlist->topHierarchy->buses.last()->excluded = false; // though none of its bits can be used
    }

    void beginsWithItsDefaults()
    {
        run([](QDialog *dialog) {
            QCOMPARE(dialog->windowTitle(), QString("Search Nets"));
            QStringList shown;
            for (const QLabel *label : dialog->findChildren<QLabel *>())
                shown += label->text();
            for (const QAbstractButton *button : dialog->findChildren<QAbstractButton *>())
                shown += button->text().remove('&') + (button->isChecked() ? "*" : "");
            shown.removeAll("");
            shown.sort();
            QCOMPARE(shown, (QStringList{"Advanced Filter", "Cancel", "Case Sensitive", "Hierarchy View",
                                         "Include Subentries", "Name:", "Normal*", "OK", "Regular Expression",
                                         "Search", "Search In", "Wildcard"}));
            QCOMPARE(dialog->focusWidget(), dialog->findChild<QWidget *>("lineEditName"));
            QVERIFY(dialog->findChild<QPushButton *>("pushButtonSearch")->isDefault());
            QVERIFY(!dialog->findChild<QPushButton *>("pushButtonSearch")->icon().isNull());
            QTreeWidget *tree = dialog->findChild<QTreeWidget *>("treeWidget");
            QVERIFY(tree->isHeaderHidden());
            for (const bool isShown : {false, true, false, true}) {
                QCOMPARE(dialog->findChild<QComboBox *>("comboBoxSearchIn")->isVisible(), isShown);
                click(dialog, {advanced});
            }
            QTest::keyClick(dialog->focusWidget(), Qt::Key_Return);
            QCOMPARE(
                texts(tree->invisibleRootItem()),
                QString("top/count[1:0](top/count[1] top/count[0]) top/held[1:0](top/held[1] top/held[0]) "
                        "top/part[1:0](top/part[1] top/part[0]) top/dead[1:0](top/dead[1] top/dead[0]) "
                        "top/u0/data[0:1](top/u0/data[0] top/u0/data[1]) "
                        "top/clk top/tied top/u0/ready top/u1/u2/Full"));
            QCOMPARE(dialog->findChild<QLabel *>("labelFound")->text(), QString("Buses: 5, single nets: 4"));
        });
    }

    void searches_data()
    {
        textColumns("clicks", "pattern", "rows");
        row("any case", "", "FULL", "top/u1/u2/Full");
        row("case", "checkBoxCaseSensitive", "FULL", "");
        row("wildcard", "radioButtonWildcard", "*f?ll", "top/u1/u2/Full");
        row("expression", "radioButtonRegularExpression", ".*/(ready|clk)", "top/clk top/u0/ready");
        row("broken expression", "radioButtonRegularExpression", "(", "");
        row("advanced: top alone", advanced, "ar", "top/part[1:0](top/part[1] top/part[0])");
        row("advanced: below it, too", QString(advanced) + ' ' + below, "rea", "top/u0/ready");
        row("a hidden panel says nothing", QStringList{advanced, modules, advanced}.join(' '), "ready",
            "top/u0/ready");
        row("modules", byModules, "ll", "top(gap:u1(fifo:u2(Full)))");
        row("modules: buses first", byModules, "u0", "top(uart:u0(data[0:1](data[0] data[1]) ready))");
        row("modules: nothing found", byModules, "xyz", "top");
    }
    void searches()
    {
        auto [clicks, pattern] = textCells("clicks", "pattern");
        QString shown;
        run([&](QDialog *dialog) {
            click(dialog, clicks.split(' ', Qt::SkipEmptyParts));
            search(dialog, "nothing left of this");
            if (clicks.endsWith(modules))
                QTest::ignoreMessage(QtDebugMsg, "checked Hierarchy View");
            const QTreeWidget *tree = search(dialog, pattern);
            shown = texts(tree->invisibleRootItem());
            if (clicks.endsWith(modules))
                QVERIFY(!tree->topLevelItem(0)->icon(0).isNull());
        });
        QTEST(shown, "rows");
    }

    // They make their record and look when asked, and must not differ from those that hold them.
    void rowsAreThoseOfTheRecords()
    {
        const QUARRY::Hierachy *top = m_netlist->topHierarchy;
        for (QUARRY::RtlNet *net : top->buses.at(1)->members)
            net->excluded = false; // of a bus that is
        QTreeWidget shown;
        showFlatResult(&shown, top->nets, top->buses);
        QTreeWidget built;
        QStringList records;
        for (int i = 0; i < shown.topLevelItemCount(); ++i) {
            const QTreeWidgetItem *row = shown.topLevelItem(i);
            const JEX::SignalItem item = recordOf(row);
            signal2TreeItem(&built, item, 0);
            records += toText(item);
            for (int k = 0; k < row->childCount(); ++k)
                QCOMPARE(toText(recordOf(row->child(k))), toText(item.members.at(k)));
        }
        QCOMPARE(records,
                 (QStringList{"b:top/count[1:0]{top/count[1],top/count[0]}",
                              "~b:top/held[1:0]{top/held[1],top/held[0]}",
                              "b:top/part[1:0]{~top/part[1],top/part[0]}",
                              "b:top/dead[1:0]{~top/dead[1],~top/dead[0]}", "s:top/clk", "~s:top/tied"}));
        QCOMPARE(rowText(&shown), rowText(&built));

        QTreeWidget modules;
        ModuleForWidget root;
        root.name = "top";
        root.nets = top->nets;
        root.buses = top->buses;
        showModuleResult(&modules, root);
        QTreeWidgetItem parent;
        for (const QUARRY::RtlNetBus *bus : root.buses) {
            QStringList names(bus->BusName());
            for (const QUARRY::RtlNet *net : bus->members)
                names << net->name();
            signal2TreeItemForHierarchy(&parent, signalOfBus(bus), names, 0);
        }
        for (const QUARRY::RtlNet *net : root.nets)
            signal2TreeItemForHierarchy(&parent, signalOfNet(net), QStringList(net->name()), 0);
        QTreeWidget expected;
        expected.addTopLevelItems(parent.takeChildren());
        for (int i = 0; i < expected.topLevelItemCount(); ++i)
            settleRow(expected.topLevelItem(i)); // taken out and put in
        QTreeWidget found;
        found.addTopLevelItems(modules.topLevelItem(0)->takeChildren());
        for (int i = 0; i < found.topLevelItemCount(); ++i)
            settleRow(found.topLevelItem(i));
        QCOMPARE(rowText(&found), rowText(&expected));
    }

    void picksAreReturned_data()
    {
        textColumns("clicks", "chosen", "records", "oneName");
        const QString count = "b:top/count[1:0]{top/count[1],top/count[0]}";
        row("none", "", "", "", "");
        row("in the order of the tree", "", "top/clk top/count[1:0]", count + " s:top/clk", "top/count[1]");
        row("a net", "", "top/clk", "s:top/clk", "top/clk");
        row("a bus and its bit", "", "top/count[0] top/count[1:0]", count + " b:top/count[0]",
            "top/count[1]");
        row("bits of several", "", "top/u0/data[1] top/part[0] top/count[1]",
            "b:top/count[1] b:top/part[0] b:top/u0/data[1]", "top/count[1]");
        row("a bus's first valid bit", "", "top/part[1:0]", "b:top/part[1:0]{~top/part[1],top/part[0]}",
            "top/part[0]");
        row("no valid bit", "", "top/dead[1:0]", "b:top/dead[1:0]{~top/dead[1],~top/dead[0]}", "");
        row("what is not valid", "", "top/tied top/held[1:0] top/held[0] top/part[1]", "", "");
        row("modules cannot be picked", byModules, "uart:u0 data[0] ready", "b:top/u0/data[0] s:top/u0/ready",
            "top/u0/data[0]");
    }
    void picksAreReturned()
    {
        auto [clicks, chosen] = textCells("clicks", "chosen");
        for (const auto leave : {QDialogButtonBox::Ok, QDialogButtonBox::Cancel}) {
            const auto steps = [&](QDialog *dialog) {
                click(dialog, clicks.split(' ', Qt::SkipEmptyParts));
                pickNets("", chosen.split(' ', Qt::SkipEmptyParts), leave)(dialog);
            };
            QString one;
            const QString picked = toText(run(steps));
            run(steps, nullptr, &one);
            if (leave == QDialogButtonBox::Ok) {
                QTEST(picked, "records");
                QTEST(one, "oneName");
            } else {
                QCOMPARE(picked + one, QString());
            }
        }
    }

    void rowsOfTheModuleTree()
    {
        const QScopedPointer<QUARRY::RtlNetlist> netlist(
            netlistFromText("top\n  clk\n  u1:uart\n    a[0:1]\n    u3:fifo\n  u0:uart\n"));
        RtlNetlistTreeView view;
        QVERIFY(view.isHeaderHidden());
        view.setNetlistData(netlist.data());
        QCOMPARE(view.netlistData(), netlist.data());
        QCOMPARE(view.topLevelItemCount(), 1);
        const QTreeWidgetItem *top = view.topLevelItem(0);
        QCOMPARE(drawn(top),
                 QString("top 1003 icon(u1[uart] 1003 icon(u3[fifo] 1003 icon), u0[uart] 1003 icon)"));
        QVERIFY(top->isExpanded());
        QVERIFY(!top->child(0)->isExpanded());
        const RtlTreeItem *uart = dynamic_cast<const RtlTreeItem *>(top->child(1));
        QVERIFY(uart);
        QCOMPARE(uart->netlistObject, netlist->topHierarchy->children.last());

        QUARRY::RtlNet *net = netlist->topHierarchy->nets.first();
        QUARRY::RtlNetBus *bus = netlist->topHierarchy->children.first()->buses.first();
        const QScopedPointer<RtlTreeItem> netRow(view.buildNetItem(net));
        const QScopedPointer<RtlTreeItem> busRow(view.buildNetBusItem(bus));
        QCOMPARE(drawn(netRow.data()), QString("top/clk 1001"));
        QCOMPARE(drawn(busRow.data()), QString("top/u1/a[0:1] 1002(top/u1/a[0] 1001, top/u1/a[1] 1001)"));
        QCOMPARE(netRow->netlistObject, net);
        QCOMPARE(busRow->netlistObject, bus);

        QUARRY::RtlNetlist empty;
        for (QUARRY::RtlNetlist *none : {&empty, static_cast<QUARRY::RtlNetlist *>(nullptr)}) {
            view.setNetlistData(netlist.data());
            view.setNetlistData(none);
            QCOMPARE(view.topLevelItemCount(), 0);
        }
    }

    void modulesAreChosenFromTheTree()
    {
        run([](QDialog *dialog) {
            click(dialog, {advanced});
            QComboBox *box = dialog->findChild<QComboBox *>("comboBoxSearchIn");
            QCOMPARE(box->currentText(), QString("top"));
            QTest::mouseClick(box, Qt::LeftButton, Qt::NoModifier, QPoint(20, box->height() / 2));
            RtlNetlistTreeView *view = qobject_cast<RtlNetlistTreeView *>(box->view());
            QVERIFY(view);
            QVERIFY(view->isVisible());
            QVERIFY(!view->itemsExpandable());
            QTreeWidgetItem *fifo = rowNamed(view, "u2[fifo]");
            QVERIFY(fifo);
            QVERIFY(fifo->parent()->isExpanded());
            QTest::qWait(QApplication::doubleClickInterval() + 50); // an early release is not taken
            const QPoint place = view->visualItemRect(fifo).center();
            QTest::mouseMove(view->viewport(), place);
            QTest::mouseClick(view->viewport(), Qt::LeftButton, Qt::NoModifier, place);
            QTRY_VERIFY(!view->isVisible());
            QCOMPARE(rowNames(search(dialog, "")), QString("top/u1/u2/Full"));

            // Its keys would step through the top level alone.
            box->setFocus();
            QTest::keyClick(box, Qt::Key_Up);
            QVERIFY(view->isVisible());
            QCOMPARE(view->currentItem(), fifo);
            box->hidePopup();
            click(dialog, {advanced}); // a panel that is hidden says nothing
            QCOMPARE(rowNames(search(dialog, "clk")), QString("top/clk"));
        });
    }

    // The mouse over another module is no choice.
    void dismissedDropDownsChangeNothing()
    {
        run([](QDialog *dialog) {
            click(dialog, {advanced});
            QComboBox *box = dialog->findChild<QComboBox *>("comboBoxSearchIn");
            RtlNetlistTreeView *view = qobject_cast<RtlNetlistTreeView *>(box->view());
            const QString below = rowNames(search(dialog, ""));
            for (const bool byKey : {true, false}) {
                QTest::mouseClick(box, Qt::LeftButton, Qt::NoModifier, QPoint(20, box->height() / 2));
                for (const char *row : {"top", "u2[fifo]"})
                    QTest::mouseMove(view->viewport(), view->visualItemRect(rowNamed(view, row)).center());
                QTRY_COMPARE(view->currentItem()->text(0), QString("u2[fifo]"));
                if (byKey)
                    QTest::keyClick(view, Qt::Key_Escape);
                else
                    view->window()->close();
                QTRY_VERIFY(!view->isVisible());
                QCOMPARE(rowNames(search(dialog, "")), below);
                QCOMPARE(box->currentText(), QString("top"));
            }
        });
    }

    void tipsTellWhatAPatternIs()
    {
        run([](QDialog *dialog) {
            QLineEdit *name = dialog->findChild<QLineEdit *>("lineEditName");
            QAbstractButton *wildcard = dialog->findChild<QAbstractButton *>("radioButtonWildcard");
            QAbstractButton *expression =
                dialog->findChild<QAbstractButton *>("radioButtonRegularExpression");
            for (QAbstractButton *mode : {wildcard, expression}) {
                name->setText("clk");
                mode->click();
                QVERIFY(mode->toolTip().contains("whole full name"));
                QCOMPARE(name->toolTip(), mode->toolTip());
                name->setText(mode == wildcard ? "a[" : "a(");
                QVERIFY2(name->toolTip().startsWith("not a valid expression: "), qPrintable(name->toolTip()));
            }
            dialog->findChild<QAbstractButton *>("radioButtonNormal")->click();
            QVERIFY(name->toolTip().contains("contains the text"));
        });
    }

    void keysThatCloseDialogsDoNot()
    {
        const QList<JEX::SignalItem> picked = run([](QDialog *dialog) {
            QTreeWidget *tree = search(dialog, "clk");
            tree->selectAll();
            QPushButton *ok =
                dialog->findChild<QDialogButtonBox *>("buttonBox")->button(QDialogButtonBox::Ok);
            for (Qt::Key key : {Qt::Key_Escape, Qt::Key_Enter, Qt::Key_Return}) {
                ok->setFocus();
                QTest::keyClick(ok, key);
                QVERIFY(dialog->isVisible());
                QCOMPARE(tree->selectedItems().isEmpty(), key == Qt::Key_Return); // it searched
            }
            dialog->close();
            QVERIFY(!dialog->isVisible());
        });
        QVERIFY(picked.isEmpty());
    }

    void withoutADesign()
    {
        JexSignalSelectDialog rejected(m_netlist.data());
        rejected.on_pushButtonSearch_clicked();
        rejected.reject();
        m_netlist.reset();
        rejected.show(); // would paint rows of a design that is gone
        QVERIFY(QTest::qWaitForWindowExposed(&rejected));
        QCOMPARE(search(&rejected, "")->topLevelItemCount(), 0);
        rejected.close();
        const QList<JEX::SignalItem> picked = run([](QDialog *dialog) {
            for (const char *name : {"checkBoxCaseSensitive", advanced, modules}) {
                click(dialog, {name});
                QCOMPARE(search(dialog, "")->topLevelItemCount(), 0);
            }
            QCOMPARE(dialog->findChild<QComboBox *>("comboBoxSearchIn")->count(), 0);
            pickNets("", {})(dialog);
        });
        QVERIFY(picked.isEmpty());
    }

    void aParentMayDieMeanwhile()
    {
        QPointer<QWidget> parent = new QWidget;
        const auto steps = [&](QDialog *dialog) {
            search(dialog, "")->selectAll();
            delete parent.data();
        };
        QVERIFY(run(steps, parent).isEmpty());
        QVERIFY(!parent);
    }

private:
    // Gives the open dialog to `steps` and cancels it when they leave it open.
    QList<JEX::SignalItem> run(const ModalDriver::Step &steps, QWidget *parent = nullptr,
                               QString *oneName = nullptr)
    {
        ModalDriver driver;
        driver.then([&](QDialog *dialog) {
            const QPointer<QDialog> guard(dialog);
            steps(dialog);
            if (guard && guard->isVisible())
                dialog->reject();
        });
        if (!oneName)
            return JexSignalSelectDialog::getNetName(m_netlist.data(), parent);
        *oneName = JexSignalSelectDialog::getOneNetName(m_netlist.data(), parent);
        return QList<JEX::SignalItem>();
    }

    QScopedPointer<QUARRY::RtlNetlist> m_netlist;
};

QTEST_MAIN(JexSignalSelectDialogTest)
#include "tst_jexsignalselectdialog.moc"

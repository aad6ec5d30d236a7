#include "model/jex/matchunitmodel.h"
#include "options/aooptionwidget.h"
#include "options/liteaooptionwidget.h"
#include "tests/options/pages.h"

using namespace RTLJEX;

namespace {

class TriggerPage : public Page
{
public:
    TriggerPage &open()
    {
        openPage<TriggerOptionWidget>(aoCore);
        return *this;
    }

    QListWidget *list() const { return child<QListWidget>("listExpression"); }
    QTreeWidget *ports() const { return child<QTreeWidget>("treeTrigger"); }
    QTableView *units() const { return child<QTableView>("tableMu"); }
    QComboBox *mode() const { return child<QComboBox>("ModeComboBox"); }
    QComboBox *implementation() const { return child<QComboBox>("ImpleComboBox"); }

    // "Static 10: M1,-M11; BSRAM REG:REG; Register Usage : 1/0": units, expressions with a dash when grey,
    // and what Static mode shows beside them.
    QString shown() const
    {
        QStringList texts;
        for (int i = 0; i < list()->count(); ++i)
            texts << (list()->item(i)->foreground().color() == QColor(Qt::gray) ? "-" : "") +
                         list()->item(i)->text();
        QString text = QString("%1 %2: %3")
                           .arg(mode()->currentText())
                           .arg(units()->model()->rowCount())
                           .arg(texts.join(','));
        if (child<QWidget>("Implementation")->isVisible())
            text += "; " + offered(implementation());
        return child<QWidget>("Usage")->isVisible() ? text + "; " + child<QLabel>("UsageValue")->text()
                                                    : text;
    }

    void open(QAbstractItemView *view, const QModelIndex &row)
    {
        doubleClick(view, row);
        QCoreApplication::processEvents();
    }
    void openPort(int i) { open(ports(), ports()->model()->index(i, 0)); }
    void openUnit(int i) { open(units(), units()->model()->index(i, 0)); }
    void openExpression(int i) { open(list(), list()->model()->index(i, 0)); }
    void openMenu(int line)
    {
        QTimer::singleShot(0, [line] {
            QMenu *menu = qobject_cast<QMenu *>(QApplication::activePopupWidget());
            menu->setActiveAction(menu->actions().at(line));
            QTest::keyClick(menu, Qt::Key_Return);
        });
        QContextMenuEvent event(QContextMenuEvent::Keyboard, QPoint(5, 5));
        QCoreApplication::sendEvent(list()->viewport(), &event);
    }

    // What the user does in the next dialog: presses those buttons and leaves.
    void press(const QStringList &buttons, QDialogButtonBox::StandardButton last = QDialogButtonBox::Ok)
    {
        user.then([=](QDialog *dialog) {
            for (const QString &button : buttons)
                dialog->findChild<QAbstractButton *>(button)->click();
            leave(dialog, last);
        });
    }
};

const QDialogButtonBox::StandardButton cancel = QDialogButtonBox::Cancel;

} // namespace

class StandardPagesTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    // The sizes of a capture depend on each other: "segments | amounts | positions", each with the chosen
    // one.
    void sizes()
    {
        const QPair<const char *, const char *> rows[] = {
            {"comboStorageSize=4", "1..1:1 | 4:4 | 0..0:0"},
            {"comboWindowNum=5 comboStorageSize=32", "1..8:5 | 4:4 | 0..0:0"},
            {"comboWindowNum=100 comboStorageSize=64", "1..16:16 | 4:4 | 0..0:0"},
            {"comboCapAmount=8 comboWindowNum=33", "1..256:33 | 4 8 16:8 | 0..4:0"},
            {"spinBoxTrigPos=60 comboWindowNum=64", "1..256:64 | 4 8 16:16 | 0..12:12"},
            {"comboStorageSize=8 comboWindowNum+3", "1..3:3 | : | -4..-4:-4"}, // no storage leads there
            {"comboStorageSize=8 comboWindowNum+3 comboWindowNum=1", "1..3:1 | 4 8:8 | 0..4:0"},
        };
        for (const auto &row : rows) {
            CapturePage page(true);
            QSpinBox *position = page.open().child<QSpinBox>("spinBoxTrigPos");
            const QAbstractItemModelTester tester(page.child<QComboBox>("comboWindowNum")->model());
            for (const QString &step : QString(row.first).split(' ')) {
                const QStringList parts = step.split(QRegExp("[=+]"));
                QComboBox *box = page.child<QComboBox>(parts[0].toLatin1());
                if (step.contains('+'))
                    box->addItem(parts[1], parts[1].toInt());
                box ? Page::choose(box, parts[1]) : position->setValue(parts[1].toInt());
            }
            const QComboBox *segments = page.child<QComboBox>("comboWindowNum");
            QCOMPARE(segments->itemData(segments->count() - 1).toInt(), segments->count());
            QCOMPARE(QString("1..%1:%2 | %3 | %4..%5:%6")
                         .arg(segments->count())
                         .arg(segments->currentText(), Page::offered(page.child<QComboBox>("comboCapAmount")))
                         .arg(position->minimum())
                         .arg(position->maximum())
                         .arg(position->value()),
                     QString(row.second));
        }
    }

    void addsFromTrigger()
    {
        CapturePage page(true, "s:top/clk");
        page.aoCore.triggerPorts[2]->signalItems = signalsFromText(
            "s:top/rst s:top/clk b:top/count[1] g:group_0[0:0]{s:top/p} g:group_1[1:0]{s:top/p,s:top/q}");
        page.aoCore.triggerPorts[5]->signalItems = signalsFromText(
            "b:top/count[1] s:top/rst s:top/x g:group_0[0:0]{s:top/q} g:group_1[1:0]{s:top/q,s:top/p}");
        page.open();
        for (const auto button : {cancel, QDialogButtonBox::Ok}) {
            QCOMPARE(page.modified->size(), 0);
            page.user.then([=](QDialog *dialog) {
                for (QCheckBox *box : dialog->findChildren<QCheckBox *>())
                    box->click();
                leave(dialog, button);
            });
            page.child<QPushButton>("btnAddFromTp")->click();
        }
        QCOMPARE(
            page.rows(),
            QString("top/clk,top/count[1],top/rst,group_0[0:0](1),group_1[1:0](2),top/x,group_0[0:0](1)"));
        QVERIFY(!page.modified->isEmpty());
    }

    void modes()
    {
        TriggerPage page;
        JEX::AoCore &core = page.aoCore;
        const auto saved = [&] {
            page.save();
            return QString("%1 %2 ").arg(core.triggerMode).arg(core.triggerImplementation) +
                   core.expressions.join(',');
        };
        core.triggerMode = JEX::StaticTrigger;
        core.triggerImplementation = JEX::RegImplementation;
        core.expressions = QStringList{"M1&M2", "M11&M2", "M3"};
        for (int unit : {1, 2, 3, 4, 5, 12})
            core.matchUnits[unit]->enabled = true;
        page.open();
        QCOMPARE(page.shown(), QString("Static 10: M1&M2,-M11&M2,M3; BSRAM REG:REG; Register Usage : 6/0"));
        QAbstractItemModel *units = page.units()->model();
        units->setData(units->index(6, JEX::MatchUnitModel::EnabledColumn), Qt::Checked, Qt::CheckStateRole);
        QCOMPARE(page.child<QLabel>("UsageValue")->text(), QString("Register Usage : 10/0"));
        QCOMPARE(page.modified->size(), 1);

        page.implementation()->setCurrentIndex(0); // is not saved, since nobody sees it any more
        page.mode()->setCurrentIndex(0);
        QCOMPARE(page.shown(), QString("Dynamic 16: M1&M2,M11&M2,M3"));
        QCOMPARE(page.modified->size(), 3);
        QCOMPARE(saved(), QString("0 1 M1&M2,M11&M2,M3"));
        QVERIFY(core.matchUnits[12]->enabled);

        page.mode()->setCurrentIndex(1);
        QCOMPARE(saved(), QString("1 0 M1&M2,M3"));
        QVERIFY(!core.matchUnits[12]->enabled);
        QVERIFY(core.matchUnits[5]->enabled);
    }

    void triggerImplementations()
    {
        const char *const shown[] = {"BSRAM", "REG", "SSRAM", "BSRAM"};
        for (int stored = 0; stored < 4; ++stored) {
            Device device(true);
            TriggerPage page;
            page.aoCore.triggerMode = JEX::StaticTrigger;
            page.aoCore.triggerImplementation = stored;
            QCOMPARE(Page::offered(page.open().implementation()),
                     QString("BSRAM SSRAM REG:") + shown[stored]);
            page.save();
            QCOMPARE(page.aoCore.triggerImplementation, stored % 3);
            page.modified->clear();
            device.change(false);
            QVERIFY(!page.modified->isEmpty());
            // A Dynamic core does not show what is stored, and does not look for it.
            TriggerPage dynamic;
            dynamic.aoCore.triggerImplementation = stored;
            dynamic.open().mode()->setCurrentIndex(1);
            QCOMPARE(Page::offered(dynamic.implementation()), QString("BSRAM REG:REG"));
            const QString fallen = stored == 1 ? "BSRAM REG:REG" : "BSRAM REG:BSRAM";
            QCOMPARE(Page::offered(page.implementation()), fallen);
            QCOMPARE(Page::offered(page.open().implementation()), fallen);
        }
    }

    void ports()
    {
        TriggerPage page;
        page.aoCore.triggerPorts[1]->signalItems = signalsFromText("s:top/clk b:top/a[0:0]{top/a[0]}");
        page.aoCore.triggerPorts[2]->signalItems = signalsFromText("~g:group_0[0:0]{s:top/clk}");
        QTreeWidgetItem *row = page.open().ports()->topLevelItem(1);
        const QTreeWidgetItem *gone = page.ports()->topLevelItem(2)->child(0);
        QVERIFY2(!(gone->child(0)->flags() & Qt::ItemIsEnabled), "a member of what is invalid");
        QCOMPARE(page.ports()->topLevelItemCount(), 16);
        QCOMPARE(row->text(0), QString("Trigger Port 1"));
        QCOMPARE(QString("%1 %2").arg(row->type()).arg(row->child(1)->type()), QString("1001 1002"));
        QCOMPARE(toText(recordOf(row->child(1))), toText(page.aoCore.triggerPorts[1]->signalItems[1]));
        page.press({}, cancel);
        page.openPort(1);
        QVERIFY(!row->isExpanded());
        QCOMPARE(page.modified->size(), 0);

        // A signal stands for its port, and is gone after the dialog.
        row->setExpanded(true);
        QSignalSpy redrawn(page.units()->model(), SIGNAL(dataChanged(QModelIndex, QModelIndex)));
        page.user.then([](QDialog *dialog) {
            dialog->findChild<QTreeWidget *>("treeWidget")->topLevelItem(0)->setSelected(true);
            dialog->findChild<QPushButton *>("btnRemove")->click();
            dialog->accept();
        });
        page.open(page.ports(), page.ports()->model()->index(0, 0, page.ports()->currentIndex()));
        QVERIFY(row->isExpanded());
        QCOMPARE(page.ports()->currentItem(), row);
        QCOMPARE(row->childCount(), 1);
        QCOMPARE(page.modified->size(), 1);
        QVERIFY2(!redrawn.isEmpty(), "units show how wide their port is");
        delete page.aoCore.triggerPorts.takeLast();
        page.openPort(15); // there is no such port any more
        QCOMPARE(page.user.seen.size(), 2);
    }

    void units()
    {
        TriggerPage page;
        const QTableView *table = page.open().units();
        QVERIFY(table->isColumnHidden(1));
        QVERIFY(table->verticalHeader()->isHidden());
        QVERIFY(!table->horizontalHeader()->highlightSections());
        QCOMPARE(table->selectionBehavior(), QTableView::SelectRows);
        QCOMPARE(table->selectionMode(), QTableView::SingleSelection);
        QCOMPARE(table->horizontalScrollMode(), QTableView::ScrollPerPixel);
        page.press({}, cancel);
        page.openUnit(3);
        QCOMPARE(page.modified->size(), 0);
        page.press({});
        page.openUnit(3);
        QCOMPARE(page.modified->size(), 1);
        QVERIFY(!page.aoCore.matchUnits[3]->enabled); // since it is not bound
        QTest::keyClick(page.units(), Qt::Key_Space);
        QVERIFY(page.aoCore.matchUnits[3]->enabled);
        QCOMPARE(page.modified->size(), 2);
        Q_EMIT page.units()->model()->layoutChanged(); // of a host's table, which may sort
        QCOMPARE(page.modified->size(), 3);
    }

    void expressions()
    {
        TriggerPage page;
        page.aoCore.triggerMode = JEX::StaticTrigger;
        page.open();
        page.press({"btnM1", "btnAND", "btnM11", "btnM2"}); // M11 is disabled
        page.openExpression(-1);
        page.press({"btnM3"}, cancel);
        page.openExpression(-1);
        QCOMPARE(page.shown(), QString("Static 10: M1&M2; BSRAM REG:BSRAM; BSRAM Usage : 1"));
        page.list()->item(0)->setForeground(QColor(Qt::gray));
        page.press({"btnM3"});
        page.openMenu(0); // which looks at no other row
        QCOMPARE(page.shown(), QString("Static 10: -M1&M2,M3; BSRAM REG:BSRAM; BSRAM Usage : 1"));
        QCOMPARE(page.modified->size(), 2);

        // Editing starts from nothing, and the result is checked anew.
        page.press({"btnM4"}, cancel);
        page.openExpression(0);
        QVERIFY(page.shown().contains("-M1&M2,M3"));
        page.list()->setFocus();
        page.widget->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(page.widget.get()));
        page.press({"btnM5"});
        QTest::keyClick(page.list(), Qt::Key_Return); // as a double click would
        QTRY_COMPARE(page.shown(), QString("Static 10: M5,M3; BSRAM REG:BSRAM; BSRAM Usage : 2"));
        page.openMenu(1);
        QCOMPARE(page.shown(), QString("Static 10: M3; BSRAM REG:BSRAM; BSRAM Usage : 1"));
        page.list()->item(0)->setSelected(true);
        page.widget->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(page.widget.get()));
        QTest::keyClick(page.list(), Qt::Key_Delete);
        QCOMPARE(page.shown(), QString("Static 10: ; BSRAM REG:BSRAM; BSRAM Usage : 0"));
        QCOMPARE(page.modified->size(), 5);

        page.user.seen.clear();
        while (page.list()->count() < 16)
            page.list()->addItem("M0");
        for (const bool clicked : {true, false}) {
            page.user.ModalDriver::press(QMessageBox::Ok);
            clicked ? page.openExpression(-1) : page.openMenu(0);
        }
        QCOMPARE(page.user.seen.join('\n'),
                 QString("warning | Error | Support 16 expressions at most. | OK\n"
                         "warning | Warning | Support 16 expressions at most. | OK"));
        QCOMPARE(page.list()->count(), 16);
    }

    // Double clicks are answered from the event loop: rows may be others by then.
    void rowsGoBeforeTheirDialogOpens()
    {
        TriggerPage page;
        page.aoCore.triggerPorts[0]->signalItems = signalsFromText("s:top/clk");
        page.aoCore.expressions = QStringList{"M1", "M2", "M3"};
        page.open();
        // Two in one batch, the second on a row that the first dialog would make anew.
        QTreeWidgetItem *port = page.ports()->topLevelItem(0);
        page.press({});
        Q_EMIT page.ports()->itemDoubleClicked(port->child(0), 0);
        Q_EMIT page.ports()->itemDoubleClicked(port->child(0), 0);
        QTRY_VERIFY(page.user.done());
        QCoreApplication::processEvents();
        QCOMPARE(page.user.seen, QStringList("dialog | Trigger Port"));

        // The row goes, or another takes its number.
        Q_EMIT page.list()->itemDoubleClicked(page.list()->item(1));
        delete page.list()->takeItem(1);
        QCoreApplication::processEvents();
        QCOMPARE(page.user.seen.size(), 1);
        page.press({"btnM5"});
        Q_EMIT page.list()->itemDoubleClicked(page.list()->item(1));
        page.list()->insertItem(0, "M0");
        QTRY_VERIFY(page.user.done());
        page.user.then([&page](QDialog *dialog) {
            // Other edits wait until this one is over.
            Q_EMIT page.list()->itemDoubleClicked(page.list()->item(0));
            Q_EMIT page.ports()->itemDoubleClicked(page.ports()->topLevelItem(1), 0);
            QCoreApplication::processEvents();
            QMetaObject::invokeMethod(page.widget.get(), "editMatchUnit",
                                      Q_ARG(QModelIndex, page.units()->model()->index(0, 0)));
            delete page.list()->takeItem(2);
            dialog->findChild<QPushButton *>("btnM6")->click();
            leave(dialog);
        });
        page.openExpression(2);
        QCoreApplication::processEvents();
        QCOMPARE(page.user.seen.size(), 3);
        QCOMPARE(page.shown(), QString("Dynamic 16: M0,M1"));

        // A key means the view that it was pressed in.
        page.widget->activateWindow();
        page.units()->setCurrentIndex(page.units()->model()->index(2, 0));
        page.list()->setCurrentRow(0);
        page.units()->setFocus();
        QVERIFY(QTest::qWaitForWindowActive(page.widget.get()));
        page.press({}, cancel);
        QTest::keyClick(page.units(), Qt::Key_Return);
        page.list()->setFocus();
        QTRY_VERIFY(page.user.done());
        QVERIFY2(!page.user.seen.last().endsWith("Expression"), qPrintable(page.user.seen.last()));
    }

    void dialogOutlivesPage()
    {
        const std::function<void(TriggerPage &)> openers[] = {
            [](TriggerPage &page) { page.openPort(0); },        [](TriggerPage &page) { page.openUnit(0); },
            [](TriggerPage &page) { page.openExpression(-1); }, [](TriggerPage &page) { page.openMenu(0); },
            [](TriggerPage &page) { page.openExpression(0); },
        };
        for (const auto &open : openers) {
            TriggerPage page;
            page.aoCore.expressions << "M1";
            page.user.then([&](QDialog *) { page.widget.reset(); });
            open(page.open());
            QVERIFY(!page.widget);
        }
    }

    // The pages of a core, of both editors: rows are made anew from the stored list, and classified.
    void corePages()
    {
        const QString classified = "s:top/clk b:top/gone b:top/u0/count[3:0]{top/u0/count[3],"
                                   "top/u0/count[2],top/u0/count[1],top/u0/count[0]} "
                                   "g:group_0[1:0]{s:top/rst,top/data[1]} !s:top/rst";
        CapturePage design(true, QString(classified).replace(QRegExp("[sb]:"), "g:"));
        JEX::AoCore &core = design.aoCore;
        core.triggerPorts[2]->signalItems = signalsFromText("g:top/clk g:top/data[2]");
        design.liteCore.captureSignals = core.captureSignals;
        AoOptionWidget page(&core, nullptr);
        LiteAoOptionWidget lite(&design.liteCore, nullptr);
        const QTabWidget *const pages[] = {&page, &lite};
        QString tabs;
        for (const QTabWidget *tab : pages) {
            for (int i = 0; i < tab->count(); ++i)
                tabs += tab->tabText(i) + ";";
            delete tab->findChild<signalTreeWidget *>()->topLevelItem(0);
        }
        QCOMPARE(tabs, QString("Trigger Options;Capture Options;Capture Options;"));
        QSignalSpy modified(&page, SIGNAL(modifed()));
        QSignalSpy liteModified(&lite, SIGNAL(modified()));
        page.setNlsdata(design.netlist.get());
        lite.setNlsData(design.netlist.get());
        QCOMPARE(toText(core.captureSignals), classified);
        QCOMPARE(toText(design.liteCore.captureSignals), classified);
        for (const QTabWidget *tab : pages)
            QCOMPARE(toText(topLevelRecords(tab->findChild<signalTreeWidget *>())), classified);
        QCOMPARE(toText(core.triggerPorts[2]->signalItems), QString("s:top/clk b:top/data[2]"));
        core.captureSignals[1].type = JEX::NetKind;
        page.setNlsdata(nullptr); // nothing is known about the rows, and nothing is judged
        QCOMPARE(core.captureSignals[1].type, int(JEX::NetKind));
        QCOMPARE(modified.size() + liteModified.size(), 0);

        for (const QTabWidget *tab : pages)
            tab->findChild<QLineEdit *>("editSampleClock")->setText("top/rst");
        QCOMPARE(modified.size(), 1);
        QCOMPARE(liteModified.size(), 1);
        page.findChild<QComboBox *>("ModeComboBox")->setCurrentIndex(1);
        QCOMPARE(modified.size(), 2);
        page.save();
        lite.save();
        QCOMPARE(QString::number(core.triggerMode) + core.sampleClock + design.liteCore.sampleClock,
                 QString("1top/rsttop/rst"));
    }
};

QTEST_MAIN(StandardPagesTest)
#include "tst_standardpages.moc"

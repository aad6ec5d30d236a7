#include "options/aooptionwidget.h"
#include "tests/support/configtext.h"
#include "tests/support/tablerow.h"
#include "tests/views/shown.h"

namespace {

QString dockTitle(const Shown &shown)
{
    return shown.view->findChild<QWidget *>("dockWidget_2")->windowTitle();
}

void click(const Shown &shown, int row, bool twice = false)
{
    const QPoint at = shown.coreTree()->visualItemRect(shown.coreTree()->topLevelItem(row)).center();
    QTest::mouseClick(shown.coreTree()->viewport(), Qt::LeftButton, Qt::NoModifier, at);
    if (twice)
        QTest::mouseDClick(shown.coreTree()->viewport(), Qt::LeftButton, Qt::NoModifier, at);
}

} // namespace

// What the editors do with their cores, each in its own way.
class CoreViewsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        m_work.reset();
        m_work.reset(new Workspace);
        m_work->addDesign("design.v", counterDesign);
    }

    // A file may number its cores as it likes: they show by their numbers until one is removed.
    void standardList()
    {
        const QString file = m_work->writeConfig(JEX::StandardMode, "a.zub", 3);
        m_work->write("a.zub", m_work->read("a.zub").replace("core number=\"0\"", "core number=\"3\""));
        const Shown shown(JEX::StandardMode, file);
        QCOMPARE(shown.view->findChild<QWidget *>("dockWidget")->windowTitle(), QString("Ao Core"));
        QCOMPARE(shown.coreTree()->columnCount(), 1);
        QCOMPARE(shown.cores() + " | " + dockTitle(shown), QString("Core 3*, Core 1, Core 2 | Core 3"));
        for (int row : {2, 1}) {
            click(shown, row, row == 1);
            QCOMPARE(shown.pages()->currentIndex(), row);
            QCOMPARE(dockTitle(shown), QString("Core %1").arg(row));
        }
        for (int row : {2, 1}) {
            QTest::keyClick(shown.coreTree(), row == 2 ? Qt::Key_Down : Qt::Key_Up);
            QTRY_COMPARE(shown.pages()->currentIndex(), row);
        }
        // The menu of another core does not show it.
        const QRect first = shown.coreTree()->visualItemRect(shown.coreTree()->topLevelItem(0));
        QTest::mouseClick(shown.coreTree()->viewport(), Qt::RightButton, Qt::NoModifier, first.center());
        QCoreApplication::processEvents();
        QCOMPARE(shown.pages()->currentIndex(), 1);
        QCOMPARE(shown.menu(-1), QString("Add (Remove)"));
        QCOMPARE(shown.menu(0), QString("Add Remove"));
        QCOMPARE(shown.pages()->count(), 3);
        QVERIFY(!shown.view->isModified());

        // A page that was taken out reports nothing.
        auto *view = static_cast<RTLJEX::JexStandardInserterView *>(shown.view.data());
        auto *last = static_cast<RTLJEX::AoOptionWidget *>(shown.pages()->widget(2));
        view->removeAoOptionWidget(last);
        Q_EMIT last->modifed();
        QVERIFY(!shown.view->isModified());
        QCOMPARE(view->addAoOptionWidget(last), 3);
        view->showCoreTitles();

        shown.menu(0, "Add"); // there is a core of the number 3
        QCOMPARE(shown.cores() + " | " + dockTitle(shown),
                 QString("Core 3, Core 1, Core 2, Core 0* | Core 0"));
        QCOMPARE(shown.pages()->currentIndex(), 3);
        QVERIFY(shown.view->isModified());
        ModalDriver driver;
        driver.press(QMessageBox::Ok);
        shown.menu(3, "Remove");
        QVERIFY2(driver.seen.first().contains("remove AO 3 ?"), qPrintable(driver.seen.first()));
        QCOMPARE(shown.cores() + " | " + dockTitle(shown), QString("Core 0*, Core 1, Core 2 | Core 0"));
        QVERIFY(shown.view->save());
        QVERIFY(configText(file).first().startsWith("core 0 "));
    }

    void removingCores()
    {
        const QString file = m_work->writeConfig(JEX::StandardMode, "a.zub", 4);
        const Shown shown(JEX::StandardMode, file);
        QWidget *const first = shown.pages()->widget(0), *const third = shown.pages()->widget(2);
        click(shown, 2);
        shown.edit();
        QVERIFY(shown.view->save());
        ModalDriver driver;
        driver.press(QMessageBox::Cancel);
        shown.menu(1, "Remove");
        QCOMPARE(driver.seen.takeFirst(),
                 QString("question | Confirm | Do you want to remove AO 1 ? | Cancel OK*"));
        QCOMPARE(shown.cores(), QString("Core 0*, Core 1, Core 2, Core 3"));
        QVERIFY(!shown.view->isModified());

        driver.press(QMessageBox::Ok);
        shown.menu(1, "Remove");
        QCOMPARE(shown.cores() + " | " + dockTitle(shown), QString("Core 0*, Core 1, Core 2 | Core 0"));
        QCOMPARE(shown.pages()->currentWidget(), first);
        QCOMPARE(shown.pages()->widget(1), third);
        QVERIFY(shown.view->isModified());
        QVERIFY(shown.view->save());
        const QStringList heads = configText(file).filter("core ");
        QCOMPARE(heads.size(), 3);
        for (int i = 0; i < 3; ++i) {
            QVERIFY2(heads.at(i).startsWith(QString("core %1 ").arg(i)), qPrintable(heads.at(i)));
            QCOMPARE(heads.at(i).contains("initial data"), i == 1);
        }

        for (int i = 0; i < 2; ++i) {
            driver.press(QMessageBox::Ok);
            shown.menu(0, "Remove");
        }
        driver.press(QMessageBox::Ok);
        shown.menu(0, "Remove");
        QCOMPARE(driver.seen.last(), QString("warning | Warning | The only Ao can not be removed. | OK*"));
        QCOMPARE(shown.cores(), QString("Core 0*"));
    }

    void dyingEditor()
    {
        const Rows<int, const char *> boxes = {{16, "Add"}, {2, "Remove"}, {1, "Remove"}};
        for (const auto &[cores, entry] : boxes) {
            const Shown shown(JEX::StandardMode, m_work->writeConfig(JEX::StandardMode, "a.zub", cores));
            ModalDriver driver;
            driver.then([&shown](QDialog *) { delete shown.container; });
            shown.menu(0, entry);
            QVERIFY(!shown.view);
            QVERIFY(driver.done());
        }
    }

    // While it asks, the cores may become others, of which none was meant.
    void removalOfACoreThatIsGone()
    {
        const QString file = m_work->writeConfig(JEX::StandardMode, "a.zub", 3);
        const Shown shown(JEX::StandardMode, file);
        for (const bool isRead : {true, false}) {
            ModalDriver driver;
            driver.then([&](QDialog *question) {
                if (isRead) {
                    static_cast<RTLJEX::JexStandardInserterView *>(shown.view.data())->reloadJexFile();
                } else {
                    driver.press(QMessageBox::Ok);
                    shown.menu(0, "Remove");
                }
                if (question->isVisible())
                    question->findChild<QDialogButtonBox *>()->button(QDialogButtonBox::Ok)->click();
            });
            shown.menu(1, "Remove");
            QVERIFY(driver.done());
            QCOMPARE(shown.pages()->count(), isRead ? 3 : 2);
        }
    }

    void liteCoresAreFixed()
    {
        const QString file = m_work->writeLite("two.zub", 2);
        m_work->write("two.zub", m_work->read("two.zub").replace("core number=\"0\"", "core number=\"7\""));
        const Shown shown(JEX::LiteMode, file); // listed by position, whatever their numbers
        QSignalSpy modified(shown.view, SIGNAL(modificationStatusChanged(bool)));
        QWidget *page = shown.pages()->currentWidget();
        for (const char *name : {"btnAdd", "btnRemove"}) {
            QPushButton *button = shown.view->findChild<QPushButton *>(name, Qt::FindDirectChildrenOnly);
            QCOMPARE(button->text(), QString(name == QByteArray("btnAdd") ? "New" : "Remove"));
            button->click();
        }
        QVERIFY(shown.call("removeOneAo"));
        shown.find<QComboBox>("comboBoxAo")->setCurrentIndex(1);
        QCOMPARE(shown.cores(), QString("AO 0, AO 1*"));
        QCOMPARE(shown.pages()->count(), 2);
        QCOMPARE(shown.pages()->currentWidget(), page);
        QCOMPARE(modified.size(), 0);
    }

    // Two dialogs deep, with the port that they are for gone or its design exchanged below them.
    void pagesDialogsEnd()
    {
        for (const QByteArray event : {"death", "file", "design"}) {
            Shown shown(JEX::StandardMode, m_work->writeConfig(JEX::StandardMode, "a.zub", 1));
            auto *view = static_cast<RTLJEX::JexStandardInserterView *>(shown.view.data());
            ModalDriver driver;
            driver.then([](QDialog *port) { port->findChild<QPushButton *>("btnAdd")->click(); });
            driver.then([&](QDialog *) {
                if (event == "death")
                    delete shown.container;
                else
                    QVERIFY(event == "file" ? view->reloadJexFile() : view->readRtlNetlist());
            });
            QTreeWidget *ports = shown.find<QTreeWidget>("treeTrigger");
            Q_EMIT ports->itemDoubleClicked(ports->topLevelItem(0), 0);
            QTRY_VERIFY(driver.done());
            QTRY_VERIFY(!QApplication::activeModalWidget());
            QCOMPARE(driver.seen, QStringList({"dialog | Trigger Port", "dialog | Search Nets"}));
            QCOMPARE(shown.view.isNull(), event == "death");
        }
    }

    // A Lite editor makes it when it is first called for, a Standard one has it from the start.
    void changeBanner()
    {
        for (JEX::JexMode mode : {JEX::StandardMode, JEX::LiteMode}) {
            const Shown shown(mode, m_work->writeConfig(mode, "a.zub", 1));
            const auto banners = [&] { return shown.view->findChildren<QWidget *>("RTLJEX__ChangedBanner"); };
            QCOMPARE(banners().size(), shown.standard ? 1 : 0);
            for (int i = 0; i < 2; ++i) {
                QVERIFY(banners().isEmpty() || !banners().first()->isVisible());
                if (shown.standard)
                    banners().first()->show();
                else
                    QVERIFY(shown.call("showChangedBanner"));
                QCOMPARE(banners().size(), 1);
                const QWidget *banner = banners().first();
                QVERIFY(banner->isVisible());
                QCOMPARE(banner->findChild<QLabel *>("warningText")->text(),
                         QString("Netlist File has been changed."));
                QVERIFY2(!banner->findChild<QLabel *>("warningIcon")->pixmap()->isNull(), "no icon");
                QPushButton *ok = banner->findChild<QPushButton *>("okBtn");
                QCOMPARE(ok->text() + QString::number(ok->maximumWidth()), QString("OK32"));
                ok->click();
                QVERIFY(!banner->isVisible());
            }
        }
    }

private:
    QScopedPointer<Workspace> m_work;
};

QTEST_MAIN(CoreViewsTest)
#include "tst_coreviews.moc"

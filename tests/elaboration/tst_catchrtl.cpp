#include "elaboration/catchrtl.h"
#include "tests/elaboration/sources.h"
#include "tests/support/workspace.h"

#include <QtTest>
#include <QtWidgets>

using namespace QUARRY;

namespace {

// Acts on each modal widget that comes up, and notes which those were.
class Watcher : public QObject
{
public:
    explicit Watcher(std::function<void(QWidget *)> action) : m_action(std::move(action)) { startTimer(10); }

    QStringList seen;
    int looks = 0; // grows while events are handled

private:
    void timerEvent(QTimerEvent *) override
    {
        ++looks;
        QWidget *widget = QApplication::activeModalWidget();
        if (!widget || widget == m_last)
            return;
        m_last = widget;
        const QMessageBox *box = qobject_cast<QMessageBox *>(widget);
        seen += box ? box->windowTitle() + ": " + box->text() + " | " + box->detailedText()
                    : widget->windowTitle();
        m_action(widget);
    }

    std::function<void(QWidget *)> m_action;
    QPointer<QWidget> m_last; // a later one may have the same address
};

void cancel(QWidget *widget)
{
    QTest::mouseClick(widget->findChild<QPushButton *>(), Qt::LeftButton);
}

} // namespace

class CatchRtlTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        m_work.reset(new Workspace);
        m_work->addDesign("t.v", "module t(input x); endmodule");
        m_tops = m_modules = m_messages = QStringList();
    }

    void cleanup()
    {
        qunsetenv("JEX_VERILATOR");
        m_work.reset();
    }

    void readsTheProject()
    {
        QVERIFY(readModules());
        QCOMPARE(m_tops + m_modules + m_messages, (QStringList{"t", "t"}));
        QVERIFY(readNets());
        QVERIFY(m_netlist->findNet("t/x"));
        QVERIFY(!QApplication::activeModalWidget());
    }

    void showsFailures()
    {
        m_work->write("t.v", "module t;\nwire = ;\nendmodule");
        Watcher watcher([](QWidget *widget) {
            if (qobject_cast<QMessageBox *>(widget))
                QTest::keyClick(widget, Qt::Key_Escape);
        });
        QVERIFY(!readNets());
        QVERIFY(!m_netlist);
        const QString error = m_messages.join('\n');
        QVERIFY2(error.startsWith("ERROR: " + m_work->path("t.v") + ":2: "), qPrintable(error));
        QCOMPARE(watcher.seen.filter("Error: "),
                 QStringList("Error: The design could not be read.\n\n" + error + " | " + error));

        // The modules' caller shows the messages itself.
        QVERIFY(!readModules());
        QCOMPARE(watcher.seen.filter("Error: ").size(), 1);
    }

    void cancels()
    {
        slowTool();
        QString label;
        Watcher watcher([&](QWidget *widget) {
            label = qobject_cast<QProgressDialog *>(widget)->labelText();
            cancel(widget);
        });
        QVERIFY(!readModules());
        // Not at once: a short reading shows no dialog.
        QVERIFY2(watcher.looks > 3, qPrintable(QString::number(watcher.looks)));
        QCOMPARE(label, QString("Reading 1 source file"));
        QCOMPARE(m_messages, QStringList("ERROR: Reading the design was cancelled."));
        QCOMPARE(m_tops + m_modules, QStringList());

        QVERIFY(!readNets());
        QVERIFY(!m_netlist);
        QCOMPARE(watcher.seen, (QStringList{"Read Modules", "Read Design"})); // and no box
    }

    void survivesItsParent()
    {
        slowTool();
        QWidget *parent = new QWidget;
        parent->show();
        Watcher watcher([&](QWidget *) { delete parent; });
        QVERIFY(!readNets(parent));
        QVERIFY(!m_netlist);
        QCOMPARE(watcher.seen, QStringList("Read Design"));
    }

    void refusesToNest()
    {
        slowTool();
        QStringList inner;
        Watcher watcher([&](QWidget *widget) {
            m_messages.clear();
            QVERIFY(!readModules());
            inner = m_messages;
            cancel(widget);
        });
        QVERIFY(!readNets());
        QCOMPARE(inner, QStringList("ERROR: A design is being read already. Try again when that is done."));
    }

private:
    // It would go on for longer than a test may.
    void slowTool() { qputenv("JEX_VERILATOR", m_tools.script("slow", "sleep 600").toUtf8()); }

    bool readModules()
    {
        QMap<QString, QVariant> info = TE::TaskEngine::instance()->designManager()->getSourceFileInfo();
        return catchRtlModules(m_tops, m_modules, m_messages, info, nullptr);
    }

    bool readNets(QWidget *parent = nullptr)
    {
        RtlNetlist *netlist = reinterpret_cast<RtlNetlist *>(1);
        const bool ok = catchRtlNetsWithProgressDialog(&netlist, m_messages, parent);
        m_netlist.reset(netlist);
        return ok;
    }

    const Sources m_tools;
    std::unique_ptr<Workspace> m_work;
    QStringList m_tops, m_modules, m_messages;
    std::unique_ptr<RtlNetlist> m_netlist;
};

QTEST_MAIN(CatchRtlTest)
#include "tst_catchrtl.moc"

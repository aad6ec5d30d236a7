#include "host/designmanager.h"
#include "host/project.h"
#include "model/quarry/catchrtl.h"
#include "model/quarry/rtlnetlist.h"

#include <QApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QMessageBox>
#include <QPointer>
#include <QProgressDialog>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTimer>
#include <QtTest>

#include <functional>
#include <memory>

using namespace QUARRY;

namespace {

// Acts on the first modal widget that comes up, and notes which that was.
class Watcher : public QObject
{
public:
    explicit Watcher(std::function<void(QWidget *)> action) : m_action(std::move(action))
    {
        connect(&m_timer, &QTimer::timeout, this, &Watcher::look);
        m_timer.start(10);
        m_clock.start();
    }
    QStringList seen;
    qint64 firstSeenMs = -1;
    int looks = 0; // grows while events are handled

private:
    void look()
    {
        ++looks;
        QWidget *widget = QApplication::activeModalWidget();
        if (!widget || widget == m_last)
            return;
        m_last = widget;
        if (firstSeenMs < 0)
            firstSeenMs = m_clock.elapsed();
        const QMessageBox *box = qobject_cast<QMessageBox *>(widget);
        seen += box ? box->windowTitle() + ": " + box->text() + " | " + box->detailedText()
                    : widget->windowTitle();
        m_action(widget);
    }

    std::function<void(QWidget *)> m_action;
    QTimer m_timer;
    QElapsedTimer m_clock;
    QPointer<QWidget> m_last; // a later one may have the same address
};

void cancel(QWidget *widget)
{
    if (qobject_cast<QProgressDialog *>(widget))
        QTest::mouseClick(widget->findChild<QPushButton *>(), Qt::LeftButton);
    else
        QTest::keyClick(widget, Qt::Key_Escape);
}

} // namespace

class tst_CatchRtl : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
    void readsTheProject();
    void showsFailures();
    void cancels();
    void survivesItsParent();
    void refusesToNest();

private:
    void write(const QString &name, const QByteArray &text);
    void slowTool();
    QMap<QString, QVariant> info() const
    {
        return TE::TaskEngine::instance()->designManager()->getSourceFileInfo();
    }

    std::unique_ptr<QTemporaryDir> m_dir;
    std::unique_ptr<Core::Project> m_project;
    QStringList m_tops, m_modules, m_messages;
    RtlNetlist *m_netlist = nullptr;
};

void tst_CatchRtl::write(const QString &name, const QByteArray &text)
{
    QFile file(m_dir->filePath(name));
    QVERIFY(file.open(QIODevice::WriteOnly) && file.write(text) == text.size());
}

void tst_CatchRtl::init()
{
    m_dir.reset(new QTemporaryDir);
    write("t.v", "module t(input x); endmodule");
    m_project.reset(new Core::Project);
    m_project->addFile(m_dir->filePath("t.v"));
    Core::ProjectManager::setCurrentProject(m_project.get());
    m_tops = m_modules = m_messages = QStringList();
}

void tst_CatchRtl::cleanup()
{
    Core::ProjectManager::setCurrentProject(nullptr);
    qunsetenv("JEX_VERILATOR");
    delete m_netlist;
    m_netlist = nullptr;
}

void tst_CatchRtl::slowTool()
{
    write("slow", "#!/bin/sh\nsleep 60");
    QFile::setPermissions(m_dir->filePath("slow"), QFile::ReadOwner | QFile::ExeOwner);
    qputenv("JEX_VERILATOR", m_dir->filePath("slow").toUtf8());
}

void tst_CatchRtl::readsTheProject()
{
    QMap<QString, QVariant> sources = info();
    QVERIFY(catchRtlModules(m_tops, m_modules, m_messages, sources, nullptr));
    QCOMPARE(m_tops + m_modules + m_messages, (QStringList{"t", "t"}));
    QVERIFY(catchRtlNetsWithProgressDialog(&m_netlist, m_messages, nullptr));
    QVERIFY(m_netlist->findNet("t/x"));
    QVERIFY(!QApplication::activeModalWidget());
}

void tst_CatchRtl::showsFailures()
{
    write("t.v", "module t;\nwire = ;\nendmodule");
    Watcher watcher([](QWidget *widget) {
        if (qobject_cast<QMessageBox *>(widget))
            cancel(widget);
    });
    m_netlist = reinterpret_cast<RtlNetlist *>(1);
    QVERIFY(!catchRtlNetsWithProgressDialog(&m_netlist, m_messages, nullptr));
    QVERIFY(!m_netlist);
    QCOMPARE(m_messages.size(), 1);
    const QString error = "ERROR: " + m_dir->filePath("t.v") + ":2: ";
    QVERIFY2(m_messages.at(0).startsWith(error), qPrintable(m_messages.at(0)));
    const QString box =
        "Error: The design could not be read.\n\n" + m_messages.at(0) + " | " + m_messages.at(0);
    QCOMPARE(watcher.seen.filter("Error: "), QStringList(box));

    // The modules' caller shows the messages itself.
    QMap<QString, QVariant> sources = info();
    QVERIFY(!catchRtlModules(m_tops, m_modules, m_messages, sources, nullptr));
    QCOMPARE(watcher.seen.filter("Error: ").size(), 1);
}

void tst_CatchRtl::cancels()
{
    slowTool();
    QMap<QString, QVariant> sources = info();
    QElapsedTimer clock;
    QString label;
    const auto pressCancel = [&](QWidget *widget) {
        label = qobject_cast<QProgressDialog *>(widget)->labelText();
        clock.start();
        cancel(widget);
    };
    {
        Watcher watcher(pressCancel);
        QVERIFY(!catchRtlModules(m_tops, m_modules, m_messages, sources, nullptr));
        QVERIFY(clock.elapsed() < 1000);
        QCOMPARE(watcher.seen, QStringList("Read Modules"));
        QVERIFY2(watcher.firstSeenMs >= 490, qPrintable(QString::number(watcher.firstSeenMs)));
        QVERIFY(watcher.looks > 10);
        QCOMPARE(label, QString("Reading 1 source file"));
        QCOMPARE(m_messages, QStringList("ERROR: Reading the design was cancelled."));
        QVERIFY(m_tops.isEmpty() && m_modules.isEmpty());
    }
    Watcher watcher(pressCancel);
    QVERIFY(!catchRtlNetsWithProgressDialog(&m_netlist, m_messages, nullptr));
    QVERIFY(!m_netlist);
    QVERIFY(clock.elapsed() < 1000);
    QCOMPARE(watcher.seen, QStringList("Read Design")); // and no box
}

void tst_CatchRtl::survivesItsParent()
{
    slowTool();
    QWidget *parent = new QWidget;
    parent->show();
    Watcher watcher([&](QWidget *) { delete parent; });
    QVERIFY(!catchRtlNetsWithProgressDialog(&m_netlist, m_messages, parent));
    QVERIFY(!m_netlist);
    QCOMPARE(watcher.seen, QStringList("Read Design"));
}

void tst_CatchRtl::refusesToNest()
{
    slowTool();
    QMap<QString, QVariant> sources = info();
    QStringList inner;
    Watcher watcher([&](QWidget *widget) {
        QVERIFY(!catchRtlModules(m_tops, m_modules, inner, sources, nullptr));
        cancel(widget);
    });
    QVERIFY(!catchRtlNetsWithProgressDialog(&m_netlist, m_messages, nullptr));
    QCOMPARE(inner, QStringList("ERROR: A design is being read already. Try again when that is done."));
}

QTEST_MAIN(tst_CatchRtl)
#include "tst_catchrtl.moc"

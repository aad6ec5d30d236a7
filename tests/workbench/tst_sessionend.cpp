#include <QtTest>

#include "tests/support/sessionmanager.h"
#include "tests/support/workspace.h"

namespace {

// Keys and windows of the X server. Gives the exit code.
int xdotool(const QStringList &words)
{
    QProcess tool;
    tool.start("xdotool", words);
    return tool.waitForFinished() ? tool.exitCode() : -1;
}

const QString window = ".*JEX Workbench", question = "Save"; // titles

QStringList search(const QString &title)
{
    return {"search", "--onlyvisible", "--name", '^' + title + '$'};
}

// There is no window manager that gives a new window the keys, and one that is busy may not get all of them.
bool press(const QString &title, const QStringList &keys, const std::function<bool()> &isHeard)
{
    for (int i = 0; i < 10; ++i) {
        xdotool(search(title) + QStringList{"windowfocus", "sleep", "0.2", "key", "--delay", "100"} + keys);
        if (QTest::qWaitFor(isHeard, 5000))
            return true;
    }
    return false;
}

} // namespace

// The workbench in the session of a desktop, whose manager speaks the real protocol, and whose user has keys.
class SessionEndTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void asksOrKeeps()
    {
        const Workspace work;
        const QString path = work.writeConfig(JEX::StandardMode, "a.zub", 1);
        const QByteArray saved = contents(path);
        work.write("top.v", counterDesign);
        work.write("p.jexprj", R"({"version": 1, "files": [{"path": "top.v"}], "topModule": "top"})");
        start({work.path("p.jexprj"), path});
        QTRY_VERIFY_WITH_TIMEOUT(m_folder.read("log").contains("Opened " + path.toUtf8()), 60000);
        QCOMPARE(told(2), QString("registered saved"));
        // Duplicate Core
        QVERIFY(press(window, {"Escape", "alt+e", "d", "Return"}, [this] { return kept() == 1; }));

        m_manager.endSession(true);
        QTRY_VERIFY(isShown(question));
        QVERIFY(press(question, {"Escape"}, [] { return !isShown(question); }));
        QCOMPARE(told(3), QString("asks cancels saved"));
        m_manager.cancelEnd();

        m_manager.endSession(false);
        QCOMPARE(told(1), QString("saved"));
        m_manager.cancelEnd();
        // The session goes on, and so does the asking.
        QVERIFY(press(window, {"ctrl+q"}, [] { return isShown(question); }));

        m_manager.endSession(false); // whatever is open
        QCOMPARE(told(1), QString("saved"));
        m_manager.die();
        QCOMPARE(told(1), QString("left"));
        QVERIFY(hasEnded());
        QCOMPARE(contents(path), saved);
        QCOMPARE(kept(), 1);
    }

private:
    static bool isShown(const QString &title) { return xdotool(search(title)) == 0; }
    void start(const QStringList &files)
    {
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert("SESSION_MANAGER", m_manager.address());
        environment.insert("XDG_CONFIG_HOME", m_folder.path("config"));
        environment.insert("XDG_DATA_HOME", m_folder.path("data"));
        m_program.setProcessEnvironment(environment);
        m_program.setProcessChannelMode(QProcess::ForwardedErrorChannel);
        m_program.start(WORKBENCH, QStringList{"--log", m_folder.path("log")} + files);
        QVERIFY(m_program.waitForStarted());
    }
    bool hasEnded()
    {
        return QTest::qWaitFor([this] { return m_program.state() == QProcess::NotRunning; }, 20000) &&
               m_program.exitStatus() == QProcess::NormalExit && m_program.exitCode() == 0;
    }
    // So many events, as soon as there are.
    QString told(int count)
    {
        const bool isAll = QTest::qWaitFor([&] { return m_manager.events.size() >= count; }, 20000);
        const QString events = m_manager.events.join(' ');
        m_manager.events.clear();
        return isAll ? events : events + " and no more";
    }
    // What is kept for the next start.
    int kept() const
    {
        int count = 0;
        QDirIterator states(m_folder.path("data/jexworkbench/recovery"), {"*.state"}, QDir::Files,
                            QDirIterator::Subdirectories);
        for (; states.hasNext(); states.next())
            ++count;
        return count;
    }

    SessionManager m_manager;
    Folder m_folder;
    QProcess m_program; // ends before the folder does
};

QTEST_GUILESS_MAIN(SessionEndTest)
#include "tst_sessionend.moc"

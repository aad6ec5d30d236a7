#include <QtTest>

#include "check/configuration.h"
#include "check/snapshot.h"
#include "host/isnapshot.h"
#include "plugin/jexviewmanager.h"
#include "tests/support/drawneditor.h"
#include "tests/support/workspace.h"
#include "tests/workbench/randomuser.h"
#include "workbench/mainwindow.h"
#include "workbench/workspace.h"

// What a user without a plan did, undone step by step to the first state and made again to the last. The
// editor shows at each state what it showed when it came there first, whatever is part of the state and
// whatever should be. JEX_WALK_SEED and JEX_WALK_STEPS in the environment choose another user, and how long
// he goes on.
class UndoWalkTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { RTLJEX::JexViewManager::instance()->initialize(); }
    void cleanupTestCase() { RTLJEX::JexViewManager::instance()->deinit(); }

    void undoesEverything_data()
    {
        QTest::addColumn<int>("mode");
        QTest::newRow("standard") << int(JEX::StandardMode);
        QTest::newRow("lite") << int(JEX::LiteMode);
    }

    void undoesEverything()
    {
        QFETCH(int, mode);
        const int steps = qEnvironmentVariableIntValue("JEX_WALK_STEPS");
        const int wanted = steps > 0 ? steps : qgetenv("JEX_TORTURE") == "full" ? 10000 : 150;
        m_folder.reset(new Folder);
        m_folder->write("top.v", design);
        m_folder->write("p.jexprj", R"({"version": 1, "files": [{"path": "top.v"}], "topModule": "top"})");
        writeFile(JEX::JexMode(mode));
        Workbench::MainWindow window(nullptr);
        window.show();
        m_menu = window.findChild<Workbench::EditMenu *>();
        QVERIFY(window.workspace()->openFile(m_folder->path("a.zub")));
        m_places.clear();
        m_fault.clear();
        const QByteArray first = state();
        RandomUser user(view(), qMax(1u, qgetenv("JEX_WALK_SEED").toUInt()));
        int quiet = 0;
        user.idle = [&] {
            note();
            if (++quiet % 80 == 0) // drops the rows that are not saved
                QMetaObject::invokeMethod(view(), "readRtlNetlist");
        };
        for (int round = 0; history().stepCount() < wanted; ++round) {
            QVERIFY2(round < wanted && m_fault.isEmpty(), qPrintable(m_fault + '\n' + user.last.join('\n')));
            user.act(40);
        }
        view()->editedFile(); // ends what is being typed
        note();
        walk(first);
        QVERIFY2(m_fault.isEmpty(), qPrintable(m_fault + '\n' + user.last.join('\n')));
        qInfo("%d steps of %d bytes each", history().stepCount(),
              int(history().stepBytes() / history().stepCount()));
    }

private:
    // What was there after so many steps.
    struct Place
    {
        QByteArray state;
        QByteArray picture; // packed, since there are many
    };

    static Core::IView *view() { return Core::ViewManager::instance()->currentView(); }
    static QByteArray state() { return dynamic_cast<Core::ISnapshot *>(view())->snapshot(); }
    // But for what is no page's: in dynamic mode a core keeps the trigger implementation that was saved last.
    static QByteArray shown(const QByteArray &bytes)
    {
        RTLJEX::Snapshot snapshot;
        if (!RTLJEX::Snapshot::fromBytes(bytes, &snapshot))
            return "none";
        for (RTLJEX::CoreSnapshot &core : snapshot.cores) {
            const QRegularExpression hidden("(triggerMode=\"dynamic\" triggerImplementation=)\"\\w+\"");
            core.zub = QString::fromUtf8(core.zub).replace(hidden, "\\1").toUtf8();
            core.digest.clear();
        }
        return snapshot.toBytes();
    }
    const Workbench::History &history() const { return *m_menu->historyOf(view()); }

    void writeFile(JEX::JexMode mode)
    {
        const Workspace work;
        RTLJEX::Configuration configuration;
        QString error;
        if (!configuration.read(work.writeConfig(mode, "a.zub", 2), &error))
            qFatal("%s", qPrintable(error));
        for (const RTLJEX::AnyCore &core : configuration.cores()) {
            *core.signalRows = *core.enabledRows = signalsFromText(
                "b:top/d[3:0]{top/d[3],top/d[2],top/d[1],top/d[0]} b:top/q[1] s:top/done b:top/q[0]");
            if (core.standard)
                *core.topModule = "top"; // as a save would
        }
        if (!configuration.write(m_folder->path("a.zub"), &error))
            qFatal("%s", qPrintable(error));
    }

    // Once the last edit has been noticed.
    void note()
    {
        QCoreApplication::sendPostedEvents(m_menu);
        while (m_places.size() > history().stepCount() + 1)
            m_places.removeLast();
        while (m_places.size() <= history().doneCount())
            m_places.append(Place());
        Place &place = m_places[history().doneCount()];
        const QByteArray picture = qCompress(drawn(view(), true).join('\n').toUtf8());
        if (place.state == history().present())
            compare(place.picture, picture);
        place.state = history().present();
        place.picture = picture;
    }

    void compare(const QByteArray &packedBefore, const QByteArray &packedNow)
    {
        const QStringList before = QString::fromUtf8(qUncompress(packedBefore)).split('\n');
        const QStringList now = QString::fromUtf8(qUncompress(packedNow)).split('\n');
        for (int i = 0; i < qMax(before.size(), now.size()) && m_fault.isEmpty(); ++i) {
            if (before.value(i) != now.value(i))
                m_fault = "It showed '" + before.value(i) + "', and shows '" + now.value(i) +
                          "' in the same state.";
        }
    }

    void step(QAction *action)
    {
        action->trigger();
        if (shown(state()) != shown(history().present()) && m_fault.isEmpty())
            m_fault = "The view does not show the state that it was given.";
        note();
    }

    void walk(const QByteArray &first)
    {
        while (history().canRedo() && m_fault.isEmpty()) // what the user took back at the very end
            step(m_menu->redoAction());
        const QByteArray last = state();
        const int steps = history().stepCount();
        while (history().canUndo() && m_fault.isEmpty())
            step(m_menu->undoAction());
        if (m_fault.isEmpty() && shown(state()) != shown(first))
            m_fault = "Undone, it has another state than at first: " + state();
        while (history().canRedo() && m_fault.isEmpty())
            step(m_menu->redoAction());
        if (m_fault.isEmpty() && history().doneCount() != steps)
            m_fault = QString("%1 of %2 steps were redone").arg(history().doneCount()).arg(steps);
        if (m_fault.isEmpty() && shown(state()) != shown(last))
            m_fault = "Redone, it has another state than at last: " + state() + "instead of " + last;
    }

    std::unique_ptr<Folder> m_folder;
    Workbench::EditMenu *m_menu = nullptr;
    QList<Place> m_places;
    QString m_fault;
};

QTEST_MAIN(UndoWalkTest)
#include "tst_undowalk.moc"

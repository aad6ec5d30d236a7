#include "check/configuration.h"
#include "check/snapshot.h"
#include "host/isnapshot.h"
#include "tests/support/drawneditor.h"
#include "tests/support/tablerow.h"
#include "tests/workbench/editorwindow.h"
#include "tests/workbench/randomuser.h"

// The real editor in the real window under a user without a plan: whatever was done, what was saved can be
// read back, the mark of an editor tells whether there is something to save, and pages show what the file
// holds.
class RandomUserTest : public EditorWindowTest
{
    Q_OBJECT

private Q_SLOTS:
    void cleanupTestCase()
    {
        qInfo("%d saved states were compared", m_compared);
        QVERIFY(m_rounds == 0 || m_compared > 0);
        EditorWindowTest::cleanupTestCase();
    }

    void survives_data()
    {
        columns<int, int>("mode", "seed");
        const bool isFull = qgetenv("JEX_TORTURE") == "full";
        for (int seed = 1; seed <= (isFull ? 20 : 2); ++seed) {
            row(qPrintable(QString("standard %1").arg(seed)), int(JEX::StandardMode), seed);
            row(qPrintable(QString("lite %1").arg(seed)), int(JEX::LiteMode), seed);
        }
    }
    void survives()
    {
        auto [mode, seed] = cells<int, int>("mode", "seed");
        const int rounds = qgetenv("JEX_TORTURE") == "full" ? 80 : 12;
        makeProject(design);
        for (const char *name : {"a.zub", "b.zub"})
            writeConfig(JEX::JexMode(mode), name, 2);
        showWindow();
        for (int round = 0; round < rounds; ++round) {
            if (round % 2 == 0) // most edits of this user are none that can be saved
                startAnew();
            QVERIFY(m_workspace->openFile(m_dir->path("a.zub"))); // unless it is open
            RandomUser user(view(), unsigned(seed * 1000 + round));
            if (round % 8 == 7)
                m_dir->write("a.zub", m_dir->read("b.zub")); // somebody else does
            user.act(13);
            ++m_rounds;
            QString fault;
            if (view() && !isRight(fault)) {
                qWarning("seed %d, round %d: %s\n%s", seed, round, qPrintable(fault),
                         qPrintable(user.last.join('\n')));
                QFAIL("see above");
            }
        }
    }

    // What was done, undone step by step to the first state and made again to the last. The editor shows at
    // each state what it showed when it came there first, whatever is part of the state and whatever should
    // be. JEX_WALK_SEED and JEX_WALK_STEPS in the environment choose another user, and how long he goes on.
    void undoesEverything_data()
    {
        QTest::addColumn<int>("mode");
        row("standard", int(JEX::StandardMode));
        row("lite", int(JEX::LiteMode));
    }
    void undoesEverything()
    {
        QFETCH(int, mode);
        const int steps = qEnvironmentVariableIntValue("JEX_WALK_STEPS");
        const int wanted = steps > 0 ? steps : qgetenv("JEX_TORTURE") == "full" ? 10000 : 150;
        makeProject(design);
        writeFile(JEX::JexMode(mode));
        showWindow();
        m_menu = m_window->findChild<Workbench::EditMenu *>();
        QVERIFY(m_workspace->openFile(m_dir->path("a.zub")));
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
    void startAnew()
    {
        if (view())
            view()->parentWidget()->close(); // which asks nobody
        m_dir->write("a.zub", m_dir->read("b.zub"));
    }

    bool isRight(QString &fault)
    {
        const bool isModified = view()->editedFile().isModified; // ends what is being typed
        if (isModified != view()->shortTitle().endsWith('*'))
            fault = "The title is " + view()->shortTitle() + ", and the file is " +
                    (isModified ? "modified." : "not modified.");
        else if (!isModified && !view()->editedFile().mark.isOutdated(view()->editedFile().path))
            fault = differenceToFile();
        return fault.isEmpty();
    }

    // Between what the editor shows and what its file says; and between the file and the same read and
    // written.
    QString differenceToFile()
    {
        ++m_compared;
        Core::IView *edited = view();
        QStringList shown = drawn(edited);
        const QByteArray saved = contents(edited->editedFile().path);
        RTLJEX::Configuration configuration;
        QString error;
        QByteArray again;
        if (!configuration.read(edited->editedFile().path, &error) || !configuration.toBytes(&again, &error))
            return error;
        if (again != saved)
            return "The file is another once it was read and written: " + again;
        if (!m_workspace->openFile(m_dir->write("copy.zub", saved)))
            return "The file cannot be opened.";
        QStringList read = drawn(view());
        if (shown.contains("implementation: REG")) { // a Lite core of registers opens with another choice
            const QRegularExpression others("^(?!(implementation|label_[38]|enableInputRegCheckBox):)");
            shown = shown.filter(others);
            read = read.filter(others);
        }
        Core::ViewManager::instance()->closeView(view());
        Core::ViewManager::instance()->showView(edited);
        return firstDifference(shown, read, "It shows '%1', and from the file comes '%2'");
    }

    static QString firstDifference(const QStringList &left, const QStringList &right, const char *words)
    {
        for (int i = 0; i < qMax(left.size(), right.size()); ++i) {
            if (left.value(i) != right.value(i))
                return QString(words).arg(left.value(i), right.value(i));
        }
        return QString();
    }

    // What was there after so many steps.
    struct Place
    {
        QByteArray state;
        QByteArray picture; // packed, since there are many
    };

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
        RTLJEX::Configuration configuration;
        QString error;
        if (!configuration.read(writeConfig(mode, "a.zub", 2), &error))
            qFatal("%s", qPrintable(error));
        for (const RTLJEX::AnyCore &core : configuration.cores()) {
            *core.signalRows = *core.enabledRows = signalsFromText(
                "b:top/d[3:0]{top/d[3],top/d[2],top/d[1],top/d[0]} b:top/q[1] s:top/done b:top/q[0]");
            if (core.standard)
                *core.topModule = "top"; // as a save would
        }
        if (!configuration.write(m_dir->path("a.zub"), &error))
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
        if (m_fault.isEmpty())
            m_fault = firstDifference(before, now, "It showed '%1', and shows '%2' in the same state.");
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

    Workbench::EditMenu *m_menu = nullptr;
    QList<Place> m_places;
    QString m_fault;
    int m_rounds = 0;
    int m_compared = 0;
};

QTEST_MAIN(RandomUserTest)
#include "tst_randomuser.moc"

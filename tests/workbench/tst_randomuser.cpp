#include <QtTest>

#include "check/configuration.h"
#include "host/viewmanager.h"
#include "plugin/jexviewmanager.h"
#include "tests/support/drawneditor.h"
#include "tests/support/tablerow.h"
#include "tests/support/workspace.h"
#include "tests/workbench/randomuser.h"
#include "workbench/mainwindow.h"
#include "workbench/workspace.h"

// The real editor in the real window under a user without a plan: whatever was done, what was saved can be
// read back, the mark of an editor tells whether there is something to save, and pages show what the file
// holds.
class RandomUserTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { RTLJEX::JexViewManager::instance()->initialize(); }
    void cleanupTestCase()
    {
        qInfo("%d saved states were compared", m_compared);
        QVERIFY(m_compared > 0);
        RTLJEX::JexViewManager::instance()->deinit();
    }

    void survives_data()
    {
        QTest::addColumn<int>("mode");
        QTest::addColumn<int>("seed");
        const bool isFull = qgetenv("JEX_TORTURE") == "full";
        for (int seed = 1; seed <= (isFull ? 20 : 2); ++seed) {
            QTest::newRow(qPrintable(QString("standard %1").arg(seed))) << int(JEX::StandardMode) << seed;
            QTest::newRow(qPrintable(QString("lite %1").arg(seed))) << int(JEX::LiteMode) << seed;
        }
    }

    void survives()
    {
        QFETCH(int, mode);
        QFETCH(int, seed);
        const int rounds = qgetenv("JEX_TORTURE") == "full" ? 80 : 12;
        m_folder.reset(new Folder);
        m_folder->write("top.v", design);
        m_folder->write("p.jexprj", R"({"version": 1, "files": [{"path": "top.v"}], "topModule": "top"})");
        {
            const Workspace work;
            for (const char *name : {"a.zub", "b.zub"})
                m_folder->write(name, contents(work.writeConfig(JEX::JexMode(mode), "a.zub", 2)));
        }
        Workbench::MainWindow window(nullptr);
        window.show();
        m_workspace = window.workspace();
        for (int round = 0; round < rounds; ++round) {
            if (round % 2 == 0) // most edits of this user are none that can be saved
                startAnew();
            QVERIFY(m_workspace->openFile(m_folder->path("a.zub"))); // unless it is open
            RandomUser user(view(), unsigned(seed * 1000 + round));
            if (round % 8 == 7)
                m_folder->write("a.zub", m_folder->read("b.zub")); // somebody else does
            user.act(13);
            QString fault;
            if (view() && !isRight(fault)) {
                qWarning("seed %d, round %d: %s\n%s", seed, round, qPrintable(fault),
                         qPrintable(user.last.join('\n')));
                QFAIL("see above");
            }
        }
    }

private:
    static Core::IView *view() { return Core::ViewManager::instance()->currentView(); }

    void startAnew()
    {
        if (view())
            view()->parentWidget()->close(); // which asks nobody
        m_folder->write("a.zub", m_folder->read("b.zub"));
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
        if (!m_workspace->openFile(m_folder->write("copy.zub", saved)))
            return "The file cannot be opened.";
        QStringList read = drawn(view());
        if (shown.contains("implementation: REG")) { // a Lite core of registers opens with another choice
            const QRegularExpression others("^(?!(implementation|label_[38]|enableInputRegCheckBox):)");
            shown = shown.filter(others);
            read = read.filter(others);
        }
        Core::ViewManager::instance()->closeView(view());
        Core::ViewManager::instance()->showView(edited);
        for (int i = 0; i < qMax(shown.size(), read.size()); ++i) {
            if (shown.value(i) != read.value(i))
                return "It shows '" + shown.value(i) + "', and from the file comes '" + read.value(i) + "'";
        }
        return QString();
    }

    std::unique_ptr<Folder> m_folder;
    Workbench::Workspace *m_workspace = nullptr;
    int m_compared = 0;
};

QTEST_MAIN(RandomUserTest)
#include "tst_randomuser.moc"

#include <cstdio>

#include "check/configuration.h"
#include "check/snapshot.h"
#include "tests/workbench/editorwindow.h"
#include "workbench/recoverystore.h"

namespace {

const int editPause = 40; // ms

qint64 now()
{
    QElapsedTimer clock; // one for all processes
    clock.start();
    return clock.msecsSinceReference();
}

// The program that is killed: it names the clock anew all the time, and says which name it gave when.
int edit(const QString &folder)
{
    RTLJEX::JexViewManager::instance()->initialize();
    Workbench::MainWindow window(nullptr);
    window.attend(folder + "/kept");
    window.show();
    if (!window.workspace()->openProject(folder + "/p.jexprj") ||
        !window.workspace()->openFile(folder + "/a.zub"))
        return 1;
    auto *clock = Core::ViewManager::instance()->currentView()->findChild<QLineEdit *>("editSampleClock");
    int number = 0;
    QTimer timer;
    QObject::connect(&timer, &QTimer::timeout, [&] {
        clock->setText("edit" + QString::number(++number));
        printf("%d %lld\n", number, static_cast<long long>(now()));
        fflush(stdout);
    });
    timer.start(editPause);
    return QApplication::exec();
}

// The clock that the state has; empty for one that is damaged.
QString clockOf(const Workbench::KeptState &state)
{
    RTLJEX::Snapshot snapshot;
    RTLJEX::Configuration configuration;
    if (!RTLJEX::Snapshot::fromBytes(state.snapshot, &snapshot) ||
        !RTLJEX::readSnapshot(snapshot, &configuration))
        return {};
    return *configuration.cores().first().clock;
}

} // namespace

// A workbench that is killed at any moment: what is older than some seconds is there, and whole.
class RecoveryKillTest : public EditorWindowTest
{
    Q_OBJECT

private Q_SLOTS:
    void kills()
    {
        const bool isFull = qgetenv("JEX_TORTURE") == "full";
        QRandomGenerator random(1);
        int late = 0; // kills that came when something had to be there
        for (int round = 0; round < (isFull ? 50 : 3); ++round)
            kill(round == 0 ? 7000 : random.bounded(9000), &late);
        QVERIFY(late > 0);
    }

private:
    void kill(int after, int *late)
    {
        makeProject();
        writeConfig(JEX::LiteMode, "a.zub");
        QProcess program;
        program.setProcessChannelMode(QProcess::ForwardedErrorChannel);
        program.start(QCoreApplication::applicationFilePath(), {"--edit", m_dir->path()});
        QVERIFY(program.waitForReadyRead(60000));
        QTest::qWait(after);
        const qint64 end = now();
        program.kill();
        QVERIFY(program.waitForFinished());
        int old = 0; // the last edit that had five seconds
        for (const QByteArray &line : program.readAll().split('\n')) {
            if (!line.isEmpty() && line.split(' ').value(1).toLongLong() <= end - 5000)
                old = line.split(' ').first().toInt();
        }
        const QList<Workbench::KeptState> left = Workbench::RecoveryStore(m_dir->path("kept")).left();
        const QString clock = left.isEmpty() ? QString() : clockOf(left.first());
        const QString text =
            QString("killed after %1 ms: \"%2\", at least edit%3").arg(after).arg(clock).arg(old);
        QVERIFY2(left.isEmpty() || clock.startsWith("edit"), qPrintable(text));
        QVERIFY2(old == 0 || clock.mid(4).toInt() >= old, qPrintable(text));
        *late += old > 0 ? 1 : 0;
    }
};

int main(int argc, char *argv[])
{
    QApplication application(argc, argv);
    const QStringList words = QCoreApplication::arguments();
    if (words.value(1) == "--edit")
        return edit(words.value(2));
    RecoveryKillTest test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_recoverykill.moc"

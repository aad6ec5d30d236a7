#include <fcntl.h>
#include <random>
#include <sys/stat.h>
#include <sys/xattr.h>
#include <unistd.h>

#include "host/atomicfile.h"
#include "host/backupfile.h"
#include "tests/support/files.h"
#include "tests/support/tablerow.h"

namespace {

const QByteArray old(20000, 'o');
const int newSize = 60000;
const uid_t stranger = 65534;

struct stat statusOf(const QString &path)
{
    struct stat info = {};
    ::lstat(QFile::encodeName(path).constData(), &info);
    return info;
}

QString state(const QByteArray &bytes, int size = newSize)
{
    return bytes == old ? "old" : bytes == QByteArray(size, 'n') ? "new" : "damaged";
}

// What a save has left of its own.
QStringList remains(const QString &folder)
{
    return QDir(folder).entryList({".*jex-*"}, QDir::Files | QDir::Hidden);
}

} // namespace

// What a save must live through. JEX_TORTURE=full in the environment repeats what depends on chance as often
// as it takes to believe it.
class TortureTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        m_dir.reset(new Folder);
        QFile::setPermissions(m_dir->path(), QFile::Permissions(0x7755)); // for other users as well
    }

    // Wherever a process dies in a save, the file, or the backup that is offered for it, is one of the two
    // states.
    void killed_data() { textRows("way", {"replacing", "in place"}); }
    void killed()
    {
        const bool inPlace = QByteArray(QTest::currentDataTag()) == "in place";
        const int rounds = qgetenv("JEX_TORTURE") == "full" ? 200 : 15;
        const QString path = m_dir->path("a.zub");
        std::mt19937 random(4711);
        std::uniform_int_distribution<int> microseconds(0, 20000);
        QMap<QString, int> found; // which state how often
        int backups = 0;
        put(path, old);
        if (inPlace)
            QCOMPARE(::link(qPrintable(path), qPrintable(m_dir->path("other name"))), 0);
        for (int round = 0; round < rounds; ++round) {
            QProcess saver;
            saver.start(SAVER, {"loop", path});
            QVERIFY(saver.waitForReadyRead(20000));
            ::usleep(useconds_t(microseconds(random)));
            saver.kill();
            QVERIFY(saver.waitForFinished(20000));
            QString error;
            if (!QUtil::pendingBackup(path).isEmpty()) {
                ++backups;
                QVERIFY2(QUtil::restoreBackup(path, &error), qPrintable(error));
            }
            ++found[state(contents(path), 2000000)];
            QVERIFY2(remains(m_dir->path()).size() <= 1, qPrintable(remains(m_dir->path()).join(' ')));
        }
        QVERIFY(QUtil::writeFileAtomically(path, old, nullptr));
        QCOMPARE(remains(m_dir->path()), QStringList());
        QCOMPARE(int(statusOf(path).st_nlink), inPlace ? 2 : 1);
        QVERIFY(inPlace || backups == 0);
        QVERIFY(!found.contains("damaged"));
        qInfo("%d processes killed, %d left the old state, %d backups used", rounds, found["old"], backups);
    }

    // The same, not left to chance: at each call of each function that a save makes.
    void killedAtEachCall_data()
    {
        textColumns("file", "function");
        for (const char *file : {"plain", "linked"}) {
            for (const char *function :
                 {"write", "fsync", "close", "rename", "fchmod", "fallocate", "ftruncate"})
                row(qPrintable(QString("%1 %2").arg(file, function)), file, function);
        }
    }
    void killedAtEachCall()
    {
        auto [file, function] = textCells("file", "function");
        const QString path = m_dir->path("a.zub");
        QStringList found;
        for (int number = 1; found.isEmpty() || found.last() != "ended"; ++number) {
            QVERIFY(number < 20);
            QFile::remove(path);
            QFile::remove(path + ".other");
            put(path, old);
            prepare(path, file);
            save(path, faulty(QString("%1:%2:-1").arg(function).arg(number)));
            const bool isKilled = m_saver.exitStatus() == QProcess::CrashExit;
            if (!isKilled) {
                QCOMPARE(m_saver.exitCode(), 0);
                QCOMPARE(state(contents(path)), QString("new"));
            }
            const bool isRestored = !QUtil::pendingBackup(path).isEmpty();
            QVERIFY(!isRestored || QUtil::restoreBackup(path, nullptr));
            found << (isKilled ? state(contents(path)) : "ended");
            QVERIFY2(found.last() != "damaged", qPrintable(found.join(' ')));
        }
        QVERIFY(found.size() > 1 || file == "plain"); // a call that was never made is no test
        QVERIFY(QUtil::writeFileAtomically(path, old, nullptr));
        QCOMPARE(remains(m_dir->path()), QStringList());
    }

    void faults_data()
    {
        // The file: plain, linked (two names), foreign (of another user) or labelled (with an attribute); the
        // call that fails; what the file holds then. The row's name is what is said, without its beginning.
        textColumns("file", "fault", "expected");
        const auto failing = [](const char *said, const char *file, const char *call, int cause,
                                const char *expected) {
            row(qPrintable(QString("%1 %2:%3").arg(file, call).arg(cause)), file,
                QString("%1:%2").arg(call).arg(cause), expected, QString(said));
        };
        QTest::addColumn<QString>("said");
        const char *const noRoom = "writing failed (No space left on device).";
        const char *const noBackup = "keeping a backup failed (Input/output error).";
        failing(noRoom, "plain", "write:1", ENOSPC, "old");
        failing("writing failed (Input/output error).", "plain", "write:1", 0, "old");
        failing("flushing to the disk failed (Input/output error).", "plain", "fsync:1", EIO, "old");
        failing("closing failed (Input/output error).", "plain", "close:1", EIO, "old");
        failing("replacing the file failed (Input/output error).", "plain", "rename:1", EIO, "old");
        failing("setting the permissions failed (Input/output error).", "plain", "fchmod:1", EIO, "old");
        // The only step behind the one that replaces the file.
        failing("flushing the folder to the disk failed (Input/output error).", "plain", "fsync:2", EIO,
                "new");
        failing("", "labelled", "fsetxattr:1", EPERM, "new in place");
        if (isRoot()) {
            failing("setting the owner failed (Input/output error).", "foreign", "fchown:1", EIO, "old");
            failing("", "foreign", "fchown:1", EPERM, "new in place");
        }
        failing(noBackup, "linked", "write:1", EIO, "old");
        failing(noBackup, "linked", "fsync:1", EIO, "old");
        failing(noBackup, "linked", "close:2", EIO, "old");
        failing(noBackup, "linked", "rename:1", EIO, "old");
        failing(noBackup, "linked", "fsync:2", EIO, "old");
        failing(noRoom, "linked", "fallocate:1", ENOSPC, "old");
        failing(noRoom, "linked", "write:2", ENOSPC, "old");
        failing("writing failed (Input/output error).", "linked", "ftruncate:1", EIO, "old");
        failing("flushing to the disk failed (Input/output error).", "linked", "fsync:3", EIO, "old");
        failing("closing failed (Input/output error).", "linked", "close:4", EIO, "old");
        // And not even the old content can be put back.
        failing("writing failed (Input/output error; what it held is kept in %1/.a.zub.jex-backup).",
                "linked", "ftruncate:1+", EIO, "damaged, and a backup");
    }
    void faults()
    {
        auto [file, said, expected, fault] = textCells("file", "said", "expected", "fault");
        const QString path = m_dir->write("a.zub", old);
        prepare(path, file);
        const struct stat before = statusOf(path);
        const QString output = save(path, faulty(fault));
        QCOMPARE(output, said.isEmpty()
                             ? QString()
                             : "Can not save to " + path + ": " + said.replace("%1", m_dir->path()));
        const struct stat after = statusOf(path);
        QString found = state(contents(path));
        if (found == "new" && after.st_ino == before.st_ino)
            found += " in place";
        if (!QUtil::pendingBackup(path).isEmpty()) {
            found += ", and a backup";
            QVERIFY(QUtil::restoreBackup(path, nullptr));
            QCOMPARE(state(contents(path)), QString("old"));
        }
        QCOMPARE(found, expected);
        QCOMPARE(QString("%1 %2 %3").arg(after.st_uid).arg(after.st_mode, 0, 8).arg(after.st_nlink),
                 QString("%1 %2 %3").arg(before.st_uid).arg(before.st_mode, 0, 8).arg(before.st_nlink));
        QCOMPARE(remains(m_dir->path()), QStringList());
    }

    // A disk of 64 KiB, where one may be mounted; else a limit on the size of files stands for it.
    void fullDisk_data() { textRows("file", {"plain", "linked"}); }
    void fullDisk()
    {
        QFETCH(QString, file);
        QTemporaryDir mountPoint;
        const bool isMounted = isRoot() && QProcess::execute("mount", {"-t", "tmpfs", "-o", "size=64k",
                                                                       "none", mountPoint.path()}) == 0;
        const auto unmount = qScopeGuard([&] {
            if (isMounted)
                QProcess::execute("umount", {"-l", mountPoint.path()});
        });
        const QString path = put(mountPoint.filePath("a.zub"), old);
        prepare(path, file);
        const QString program = isMounted ? SAVER : "bash";
        const QStringList limited = {"-c", "ulimit -f 40; exec \"$0\" \"$@\"", SAVER};
        QProcess saver;
        saver.start(program, (isMounted ? QStringList() : limited) +
                                 QStringList({"save", path, QString::number(newSize)}));
        QVERIFY(saver.waitForFinished(20000));
        QCOMPARE(QString(saver.readAll()).trimmed(),
                 "Can not save to " + path + ": writing failed (" +
                     (isMounted ? "No space left on device" : "File too large") + ").");
        QCOMPARE(state(contents(path)), QString("old"));
        QCOMPARE(remains(mountPoint.path()), QStringList());
        QVERIFY(QUtil::writeFileAtomically(path, "small", nullptr)); // there is room for it
        qInfo("%s", isMounted ? "a small disk" : "a limit on the size of files");
    }

    void names_data()
    {
        // The commands that make the folder; the name to save to, and the file that is meant.
        textColumns("name", "target");
        row("true", "a.zub", "a.zub");
        row(": long", QByteArray(255, 'x'), QByteArray(255, 'x'));
        row(": letters", "a b 'é'", "a b 'é'");
        row("ln -s a.zub one; ln -s one two", "two", "a.zub");
        row("mkdir -p deep/er; ln -s deep/er short; ln -s ../b.zub deep/er/link", "short/link", "deep/b.zub");
        row("ln -s not/there one; mkdir not", "one", "not/there");
        row("ln -s one two; ln -s two one", "one", "");
        row("mkfifo one", "one", "");
    }
    void names()
    {
        auto [name, target] = textCells("name", "target");
        QCOMPARE(QProcess::execute("bash",
                                   {"-c", "cd \"$0\"; " + QString(QTest::currentDataTag()), m_dir->path()}),
                 0);
        QString error;
        for (int round = 0; round < 2; ++round) {
            const QByteArray text = QByteArray::number(round);
            QCOMPARE(QUtil::writeFileAtomically(m_dir->path(name), text, &error), !target.isEmpty());
            QCOMPARE(target.isEmpty() ? text : m_dir->read(target), text);
            // The second round is written in place.
            QVERIFY(round > 0 || target.isEmpty() ||
                    ::link(qPrintable(m_dir->path(target)), qPrintable(m_dir->path("other"))) == 0);
        }
        const QString link = "it is a link that leads to itself.",
                      pipe = "it is a named pipe, not a regular file.";
        QCOMPARE(error, !target.isEmpty()
                            ? QString()
                            : "Can not save to " + m_dir->path(name) + ": " +
                                  (statusOf(m_dir->path(name)).st_mode & S_IFIFO ? pipe : link));
        QCOMPARE(remains(m_dir->path()), QStringList());
    }

    void rights_data()
    {
        // Owners and modes of file and folder, and who saves; "in place" where a new file is of no use.
        columns<uid_t, mode_t, mode_t, uid_t, QString>("owner", "mode", "folder", "user", "expected");
        const uid_t me = ::geteuid();
        row("own", me, mode_t(0640), mode_t(0755), me, "new");
        row("odd mode", me, mode_t(0751), mode_t(0755), me, "new");
        if (!isRoot()) {
            row("folder not writable", me, mode_t(0644), mode_t(0555), me, "new in place");
            row("file not writable", me, mode_t(0444), mode_t(0755), me, "old");
            return;
        }
        row("root saves for another", stranger, mode_t(0600), mode_t(0700), me, "new");
        row("folder not writable", stranger, mode_t(0644), mode_t(0755), stranger, "new in place");
        row("file not writable", me, mode_t(0644), mode_t(0777), stranger, "old");
        row("owner cannot be given", me, mode_t(0666), mode_t(0777), stranger, "new in place");
        row("owner cannot be given, in a folder for all", me, mode_t(0666), mode_t(01777), stranger,
            "new in place");
    }
    void rights()
    {
        auto [owner, mode, folder, user, expected] =
            cells<uid_t, mode_t, mode_t, uid_t, QString>("owner", "mode", "folder", "user", "expected");
        const QString path = m_dir->write("folder/a.zub", old);
        QTemporaryDir data;
        const QByteArray name = QFile::encodeName(path);
        QVERIFY(::chown(name, owner, owner) == 0);
        QVERIFY(::chmod(name, mode) == 0);
        QVERIFY(::chown(qPrintable(data.path()), user, gid_t(-1)) == 0);
        QCOMPARE(::chmod(qPrintable(m_dir->path("folder")), folder), 0);
        const struct stat before = statusOf(path);
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert("XDG_DATA_HOME", data.path());
        const QString output = save(path, environment, user);
        const struct stat after = statusOf(path);
        const QString way = after.st_ino == before.st_ino && expected != "old" ? " in place" : "";
        QCOMPARE(state(contents(path)) + way + output,
                 expected + (expected == "old"
                                 ? "Can not save to " + path + ": opening failed (Permission denied)."
                                 : QString()));
        QCOMPARE(QString("%1 %2 %3").arg(after.st_uid).arg(after.st_gid).arg(after.st_mode, 0, 8),
                 QString("%1 %2 %3").arg(before.st_uid).arg(before.st_gid).arg(before.st_mode, 0, 8));
        QCOMPARE(remains(m_dir->path("folder")), QStringList());
        ::chmod(qPrintable(m_dir->path("folder")), 0755);
    }

    void attributesAreKept()
    {
        const QString path = m_dir->write("a.zub", old);
        prepare(path, "labelled");
        QVERIFY(QUtil::writeFileAtomically(path, "new", nullptr));
        char value[16] = "";
        QCOMPARE(int(::getxattr(qPrintable(path), "user.jex", value, sizeof value)), 5);
        QCOMPARE(QByteArray(value), QByteArray("label"));
        QCOMPARE(contents(path), QByteArray("new"));
    }

    void refusesFoldersAsFiles()
    {
        QString error;
        QVERIFY(!QUtil::writeFileAtomically(m_dir->path(), "x", &error));
        QCOMPARE(error, "Can not save to " + m_dir->path() + ": opening failed (Is a directory).");
        QVERIFY(!QUtil::writeFileAtomically(m_dir->path("none/x"), "x", &error));
        QCOMPARE(error, "Can not save to " + m_dir->path("none/x") +
                            ": creating a file in its folder failed (No such file or directory).");
    }

    // The last one cannot be written: those before it are as they were, whether they were there or not.
    void allOrNone()
    {
        const QString there = m_dir->write("all/there", "old"), added = m_dir->path("all/added");
        QString error;
        QVERIFY(!QUtil::writeFilesAtomically({{there, "new"}, {added, "new"}, {m_dir->path("none/x"), "new"}},
                                             &error));
        QVERIFY2(error.contains("none/x"), qPrintable(error));
        QCOMPARE(contents(there), QByteArray("old"));
        QCOMPARE(entriesOf(m_dir->path("all")), QStringList("there"));
        QVERIFY2(QUtil::writeFilesAtomically({{there, "new"}, {added, "newer"}}, &error), qPrintable(error));
        QCOMPARE(contents(there) + contents(added), QByteArray("newnewer"));
        QCOMPARE(entriesOf(m_dir->path("all")).size(), 2);
    }

private:
    static bool isRoot() { return ::geteuid() == 0; }

    void prepare(const QString &path, const QString &kind)
    {
        const QByteArray name = QFile::encodeName(path);
        if (kind == "linked")
            QCOMPARE(::link(name, QByteArray(name + ".other")), 0);
        if (kind == "foreign")
            QCOMPARE(::chown(name, stranger, stranger), 0);
        if (kind == "labelled" && ::setxattr(name, "user.jex", "label", 5, 0) != 0)
            QSKIP("This file system has no extended attributes.");
    }

    QProcessEnvironment faulty(const QString &fault) const
    {
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert("LD_PRELOAD", FAULTS);
        environment.insert("ASAN_OPTIONS",
                           environment.value("ASAN_OPTIONS") + ":verify_asan_link_order=0:detect_leaks=0");
        environment.insert("JEX_FAULT", fault);
        environment.insert("JEX_FAULT_DIR", m_dir->path());
        return environment;
    }

    // What it prints.
    QString save(const QString &path, const QProcessEnvironment &environment, uid_t user = ::geteuid())
    {
        m_saver.setProcessChannelMode(QProcess::MergedChannels);
        m_saver.setProcessEnvironment(environment);
        QStringList words = {"save", path, QString::number(newSize)};
        if (user != ::geteuid())
            words = QStringList({"as", QString::number(user)}) + words;
        m_saver.start(SAVER, words);
        m_saver.waitForFinished(20000);
        return QString(m_saver.readAll()).trimmed();
    }

    QProcess m_saver;
    std::unique_ptr<Folder> m_dir;
};

QTEST_GUILESS_MAIN(TortureTest)
#include "tst_torture.moc"

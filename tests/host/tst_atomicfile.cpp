#include <QTemporaryDir>
#include <QtTest>

#include <csignal>
#include <sys/resource.h>

#include "host/atomicfile.h"
#include "tests/support/files.h"

class AtomicFileTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void replaces()
    {
        QTemporaryDir dir;
        const QString path = dir.filePath(QString::fromUtf8("a b 'é'.zub"));
        QVERIFY(QUtil::writeFileAtomically(path, "one", nullptr));
        QFile::setPermissions(path, QFile::ReadOwner | QFile::WriteOwner);
        QVERIFY(QUtil::writeFileAtomically(path, "two", nullptr));
        QCOMPARE(contents(path), QByteArray("two"));
        QCOMPARE(QFile::permissions(path) & (QFile::ReadOther | QFile::ReadGroup), QFile::Permissions());
        QCOMPARE(QDir(dir.path()).entryList(QDir::Files).size(), 1);
    }

    void keepsLink()
    {
        QTemporaryDir dir;
        put(dir.filePath("real"), "old");
        QVERIFY(QFile::link("real", dir.filePath("link")));
        QVERIFY(QUtil::writeFileAtomically(dir.filePath("link"), "new", nullptr));
        QVERIFY(QFileInfo(dir.filePath("link")).isSymLink());
        QCOMPARE(contents(dir.filePath("real")), QByteArray("new"));
    }

    void failsBeforeTheOldFileIsTouched()
    {
        QTemporaryDir dir;
        const QString noFolder = dir.filePath("none/x");
        QString error;
        QVERIFY(!QUtil::writeFileAtomically(noFolder, "x", &error));
        QCOMPARE(error, "Can not save to " + noFolder +
                            ": creating a file in its folder failed (No such file or directory).");
        QVERIFY(!QUtil::writeFileAtomically(dir.path(), "x", &error));
        QCOMPARE(error, "Can not save to " + dir.path() + ": opening failed (Is a directory).");
    }

    // A limit on the size of files stands for a full disk.
    void fullDiskLeavesOldFile()
    {
        QTemporaryDir dir;
        const QString path = dir.filePath("x");
        put(path, "old");
        rlimit before;
        QCOMPARE(getrlimit(RLIMIT_FSIZE, &before), 0);
        std::signal(SIGXFSZ, SIG_IGN);
        rlimit small = before;
        small.rlim_cur = 1000;
        QCOMPARE(setrlimit(RLIMIT_FSIZE, &small), 0);
        QString error;
        const bool written = QUtil::writeFileAtomically(path, QByteArray(5000, 'x'), &error);
        QCOMPARE(setrlimit(RLIMIT_FSIZE, &before), 0);
        QVERIFY(!written);
        QCOMPARE(error, QString("Can not save to %1: writing failed (File too large).").arg(path));
        QCOMPARE(contents(path), QByteArray("old"));
        QCOMPARE(QDir(dir.path()).entryList(QDir::Files).size(), 1);
    }
};

QTEST_GUILESS_MAIN(AtomicFileTest)
#include "tst_atomicfile.moc"

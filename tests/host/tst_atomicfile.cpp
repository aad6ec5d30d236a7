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
    void replacesFileOrTargetOfLink()
    {
        const QString path = m_dir.filePath(QString::fromUtf8("a b 'é'.zub")), link = m_dir.filePath("link");
        QVERIFY(QUtil::writeFileAtomically(path, "one", nullptr));
        QFile::setPermissions(path, QFile::ReadOwner | QFile::WriteOwner);
        QVERIFY(QFile::link(QFileInfo(path).fileName(), link));
        for (const QString &name : {path, link}) {
            QVERIFY(QUtil::writeFileAtomically(name, name.toUtf8(), nullptr));
            QCOMPARE(contents(path), name.toUtf8());
        }
        QVERIFY(QFileInfo(link).isSymLink());
        QCOMPARE(QFile::permissions(path) & (QFile::ReadOther | QFile::ReadGroup), QFile::Permissions());
        QCOMPARE(QDir(m_dir.path()).entryList(QDir::Files).size(), 2);
    }

    void failsBeforeTheOldFileIsTouched()
    {
        const QString noFolder = m_dir.filePath("none/x");
        QString error;
        QVERIFY(!QUtil::writeFileAtomically(noFolder, "x", &error));
        QCOMPARE(error, "Can not save to " + noFolder +
                            ": creating a file in its folder failed (No such file or directory).");
        QVERIFY(!QUtil::writeFileAtomically(m_dir.path(), "x", &error));
        QCOMPARE(error, "Can not save to " + m_dir.path() + ": opening failed (Is a directory).");
    }

    // A limit on the size of files stands for a full disk.
    void fullDiskLeavesOldFile()
    {
        const QString path = m_dir.filePath("full/x");
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
        QCOMPARE(QFileInfo(path).dir().entryList(QDir::Files).size(), 1);
    }

    // The last one cannot be written: those before it are as they were, whether they were there or not.
    void allOrNone()
    {
        const QString there = m_dir.filePath("all/there"), added = m_dir.filePath("all/added");
        put(there, "old");
        QString error;
        QVERIFY(!QUtil::writeFilesAtomically(
            {{there, "new"}, {added, "new"}, {m_dir.filePath("none/x"), "new"}}, &error));
        QVERIFY2(error.contains("none/x"), qPrintable(error));
        const QDir folder = QFileInfo(there).dir();
        QCOMPARE(contents(there), QByteArray("old"));
        QCOMPARE(folder.entryList(QDir::Files | QDir::Hidden), QStringList("there"));
        QVERIFY2(QUtil::writeFilesAtomically({{there, "new"}, {added, "newer"}}, &error), qPrintable(error));
        QCOMPARE(contents(there) + contents(added), QByteArray("newnewer"));
        QCOMPARE(folder.entryList(QDir::Files | QDir::Hidden).size(), 2);
    }

private:
    QTemporaryDir m_dir;
};

QTEST_GUILESS_MAIN(AtomicFileTest)
#include "tst_atomicfile.moc"

#include <QtTest>

#include "host/atomicfile.h"
#include "tests/support/files.h"

class AtomicFileTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
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

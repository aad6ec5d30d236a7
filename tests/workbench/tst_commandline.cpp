#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QtTest>

#include "host/project.h"
#include "workbench/commandline.h"

using namespace Workbench;

class CommandLineTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        QDir::setCurrent(m_dir.path());
        const QMap<QString, QByteArray> files = {{"a.v", ""},
                                                 {"b.vhd", ""},
                                                 {"c.zub", ""},
                                                 {"p.jexprj", R"({"version": 1, "files": [{"path": "a.v"}],
                                                                  "topModule": "own"})"},
                                                 {"q.jexprj", "{}"},
                                                 {"sub/list.f", "x.v +define+L"},
                                                 {"sub/x.v", ""}};
        for (auto it = files.begin(); it != files.end(); ++it) {
            QDir().mkpath(QFileInfo(it.key()).path());
            QFile file(it.key());
            QVERIFY(file.open(QIODevice::WriteOnly));
            file.write(it.value());
        }
    }

    void projects_data()
    {
        QTest::addColumn<QString>("words");
        QTest::addColumn<QString>("expected"); // files, top, device, macros, folders, or what was wrong
        QTest::newRow("nothing") << ""
                                 << "|||";
        QTest::newRow("sources") << "a.v b.vhd ./a.v --top t"
                                 << "a.v b.vhd|t||";
        QTest::newRow("project") << "p.jexprj"
                                 << "a.v|own||";
        QTest::newRow("project and more") << "p.jexprj b.vhd c.zub --top t"
                                          << "a.v b.vhd c.zub|t||";
        QTest::newRow("options") << "a.v -DX=1 -D Y -Isub -y sub"
                                 << "a.v|||X=1 Y sub sub";
        QTest::newRow("list") << "-f sub/list.f"
                              << "sub/x.v|||L";
        QTest::newRow("list by its folder") << "-F sub/list.f a.v"
                                            << "a.v sub/x.v|||L";
        QTest::newRow("device") << "a.v --device lfe5u-25f"
                                << "a.v||LFE5U-25F|";
        QTest::newRow("unknown device")
            << "a.v --device none"
            << "The device \"none\" is not known. Project > Device shows those that are.";
        QTest::newRow("missing file") << "z.v"
                                      << "There is no file \"z.v\".";
        QTest::newRow("two projects") << "p.jexprj q.jexprj"
                                      << "Only one project can be open: \"p.jexprj\" or \"q.jexprj\".";
        QTest::newRow("unknown option") << "--nonsense"
                                        << "Unknown option 'nonsense'.";
        QTest::newRow("broken project") << "q.jexprj"
                                        << "Can not read the project %1/q.jexprj: \"version\" is missing.";
    }
    void projects()
    {
        QFETCH(QString, words);
        QFETCH(QString, expected);
        StartOptions options;
        QStringList faults{QString()};
        Core::Project project;
        const QStringList arguments = QStringList("jexworkbench") + words.split(' ', Qt::SkipEmptyParts);
        if (parseCommandLine(arguments, options, faults[0])) {
            faults.clear();
            fillProject(options, project, faults);
        }
        const QDir here(QDir::currentPath());
        const Core::ProjectData &data = project.data();
        QStringList files;
        for (const Core::SourceFile &file : data.files)
            files << here.relativeFilePath(file.path);
        QStringList rest = data.defines;
        for (const QString &path : data.includePaths + data.libraryPaths)
            rest << here.relativeFilePath(path);
        const QString found =
            files.join(' ') + '|' + data.topModule + '|' + data.device.device + '|' + rest.join(' ');
        QCOMPARE(faults.isEmpty() ? found : faults.join('\n'), expected.replace("%1", here.path()));
        QVERIFY(!project.isModified());
    }

    void unattendedOptions()
    {
        StartOptions options;
        QString error;
        QVERIFY(parseCommandLine({"jexworkbench", "--report", "--shot", "x.png", "--plugin", "p.so", "c.zub"},
                                 options, error));
        QVERIFY(options.report && !namesProject(options));
        QCOMPARE(options.shot + ' ' + options.plugin + ' ' + options.editorFiles.join(' '),
                 QString("x.png p.so c.zub"));
        QVERIFY(helpText().contains("--device"));
    }

private:
    QTemporaryDir m_dir;
};

QTEST_MAIN(CommandLineTest)
#include "tst_commandline.moc"

#include <QtTest>
#include <QtWidgets>

#include "model/jex/core.h"
#include "options/captureoptionwidget.h"
#include "options/litecaptureoptionwidget.h"
#include "workbench/guidewindow.h"
#include "workbench/helptopics.h"
#include "workbench/icons.h"
#include "workbench/mainwindow.h"

using namespace Workbench;

// Of all windows, which say theirs in forms and constructors.
static QStringList allTopics()
{
    QStringList topics = {"index"};
    const QRegularExpression said("\"helpTopic\"(?:, \"|.*<string notr=\"true\">)([a-z]+)");
    for (const char *folder : {"forms", "plugin", "trigger", "workbench"}) {
        for (const QFileInfo &source :
             QDir(QDir(SOURCES).filePath(folder)).entryInfoList({"*.ui", "*.cpp"})) {
            QFile file(source.filePath());
            if (file.open(QIODevice::ReadOnly))
                topics << said.match(file.readAll()).captured(1);
        }
    }
    topics.removeAll(QString());
    return topics;
}

static QString title(const GuideWindow &guide)
{
    return guide.findChild<QTextBrowser *>()->document()->firstBlock().text();
}

class HelpTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    // No page is there that nothing leads to, and no link leads nowhere.
    void pagesHangTogether()
    {
        const QRegularExpression link("\\]\\(([^)]+)\\)");
        QStringList open = allTopics(), seen;
        while (!open.isEmpty()) {
            const QString topic = open.takeFirst();
            if (seen.contains(topic))
                continue;
            seen << topic;
            const QString text = guidePage(topic);
            QVERIFY2(text.startsWith("# "), qPrintable(topic));
            QVERIFY2(!text.contains("!["), qPrintable(topic)); // a picture
            for (auto links = link.globalMatch(text); links.hasNext();) {
                const QString target = links.next().captured(1).section('#', 0, 0);
                if (target != "ci-example.yml") // a file of the sources, which nothing shows here
                    open << QFileInfo(target).completeBaseName();
            }
        }
        for (const QString &file : QDir(GUIDE).entryList({"*.md"}))
            QVERIFY2(seen.contains(file.chopped(3)), qPrintable(file));
        for (const char *name : {"", "../index", "nothing", "Index"})
            QVERIFY(guidePage(name).isEmpty());
    }

    // The menus that the pages send the user to are there.
    void pagesNameRealMenus()
    {
        MainWindow window(nullptr);
        QStringList entries;
        for (const QMenu *menu : window.menuBar()->findChildren<QMenu *>()) {
            for (QAction *action : menu->actions())
                entries << menu->title().remove('&') + " > " + action->text().remove('&').remove("...");
        }
        const QRegularExpression path("\\*\\*((?:File|Edit|Project|Run|View|Help) > [^*]+)\\*\\*");
        int found = 0;
        for (const QString &topic : allTopics()) {
            const QString text = guidePage(topic).replace('\n', ' ');
            for (auto paths = path.globalMatch(text); paths.hasNext(); ++found) {
                const QString entry = paths.next().captured(1);
                QVERIFY2(entries.contains(entry), qPrintable(topic + ": " + entry));
            }
        }
        QVERIFY(found > 5);
    }

    // Whatever the desktop has, the set has them all.
    void entriesHaveIcons()
    {
        chooseIcons();
        MainWindow window(nullptr);
        QVERIFY(!window.windowIcon().isNull());
        QStringList plain;
        for (const QMenu *menu : window.menuBar()->findChildren<QMenu *>()) {
            for (const QAction *action : menu->actions()) {
                if (!action->isSeparator() && !action->isCheckable() &&
                    action->icon().availableSizes().isEmpty())
                    plain << action->text().remove('&');
            }
        }
        QCOMPARE(plain, QStringList("Tool Memory..."));
    }

    void topicOfAWidget()
    {
        JEX::AoCore core(0);
        RTLJEX::CaptureOptionWidget page(&core, nullptr, nullptr);
        auto *clock = page.findChild<QLineEdit *>("editSampleClock");
        QCOMPARE(helpTopic(clock), QString("capture"));
        QCOMPARE(helpTopic(nullptr), QString("index"));
        clock->setProperty("helpTopic", "search");
        QCOMPARE(helpTopic(clock), QString("search"));
    }

    void linkToAPart()
    {
        GuideWindow guide(nullptr);
        guide.setAttribute(Qt::WA_DeleteOnClose, false);
        guide.show();
        auto *text = guide.findChild<QTextBrowser *>();
        const auto top = [text] { return text->cursorForPosition(QPoint(40, 12)).block().text(); };
        guide.showTopic("formats");
        Q_EMIT text->anchorClicked(QUrl("../jex.md#exit-codes"));
        QCOMPARE(title(guide) + ": " + top(), QString("jex, the editor without a window: Exit codes"));
        Q_EMIT text->anchorClicked(QUrl("jex.md#an-example"));
        QCOMPARE(title(guide) + ": " + top(), QString("jex, the editor without a window: An example"));
        Q_EMIT text->anchorClicked(QUrl("ci-example.yml"));
        QCOMPARE(title(guide), QString("jex, the editor without a window"));
    }

    // A dialog that waits blocks all windows that are not its own.
    void f1BesideADialog()
    {
        MainWindow window(nullptr);
        window.show();
        QDialog dialog(&window);
        dialog.setProperty("helpTopic", "project");
        auto *field = new QLineEdit(&dialog);
        QString topic;
        QTimer::singleShot(0, &dialog, [&] {
            QTest::keyClick(field, Qt::Key_F1);
            if (auto *guide = dialog.findChild<GuideWindow *>()) {
                topic = title(*guide);
                QTest::keyClick(guide, Qt::Key_F1);
                topic += ' ' + title(*guide);
            }
            dialog.reject();
        });
        dialog.exec();
        QCOMPARE(topic, QString("Projects Guide to the JEX workbench"));
    }

    // Every option of the pages on which a capture is set up.
    void fieldsAreExplained()
    {
        JEX::AoCore core(0);
        JEX::AOCore_Lite lite;
        RTLJEX::CaptureOptionWidget standardPage(&core, nullptr, nullptr);
        RTLJEX::LiteCaptureOptionWidget litePage(&lite, nullptr, nullptr);
        QStringList silent;
        for (const QWidget *page :
             {static_cast<QWidget *>(&standardPage), static_cast<QWidget *>(&litePage)}) {
            for (const char *kind :
                 {"QComboBox", "QAbstractSpinBox", "QCheckBox", "QRadioButton", "QTreeWidget"}) {
                for (const QWidget *field : page->findChildren<QWidget *>()) {
                    if (field->inherits(kind) && field->whatsThis().isEmpty())
                        silent << field->objectName();
                }
            }
        }
        QCOMPARE(silent, QStringList());
    }
};

QTEST_MAIN(HelpTest)
#include "tst_help.moc"

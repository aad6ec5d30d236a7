#include <QImage>
#include <QtTest>

#include "tests/support/files.h"
#include "workbench/helptopics.h"

namespace {

QStringList matches(const QString &pattern, const QString &text, int group = 1)
{
    QStringList found;
    for (auto all = QRegularExpression("(?m)" + pattern).globalMatch(text); all.hasNext();)
        found << all.next().captured(group);
    return found;
}

bool isOutside(const QString &link)
{
    return QRegularExpression("^[a-z]+:").match(link).hasMatch();
}

// The pages of the project, without the blocks that show a terminal or a file.
QMap<QString, QString> markdownPages()
{
    QMap<QString, QString> pages;
    for (const char *folder : {SOURCES, SOURCES "/docs", SOURCES "/docs/guide", SOURCES "/examples"}) {
        for (const QFileInfo &file : QDir(folder).entryInfoList({"*.md"})) {
            const QRegularExpression block("(?ms)^```.*?^```$");
            pages[file.absoluteFilePath()] = QString(contents(file.filePath())).remove(block);
        }
    }
    return pages;
}

QStringList markdownAnchors(const QString &text)
{
    QStringList anchors = matches("^#+ (.*)$", text);
    for (QString &anchor : anchors)
        anchor = Workbench::headingAnchor(anchor.remove('`'));
    return anchors;
}

QStringList filesBelow(const QString &folder, const QString &pattern)
{
    QStringList files;
    for (const QFileInfo &file : QDir(folder).entryInfoList({pattern}, QDir::Files))
        files << file.absoluteFilePath();
    return files;
}

// Where a link of a page leads that is not there; else empty. `anchorsOf` gives what a page can be entered
// at.
template <class AnchorsOf>
QString deadEnd(const QString &page, const QString &link, AnchorsOf anchorsOf)
{
    const QString target = link.section('#', 0, 0);
    const QFileInfo file(target.isEmpty() ? page : QFileInfo(page).dir().filePath(target));
    const QString anchor = link.section('#', 1);
    if (file.exists() && (anchor.isEmpty() || anchorsOf(file.absoluteFilePath()).contains(anchor)))
        return QString();
    return QFileInfo(page).fileName() + ": " + link;
}

} // namespace

class PagesTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void linksOfMarkdown()
    {
        const QMap<QString, QString> pages = markdownPages();
        QStringList dead, pictures;
        int count = 0;
        for (auto page = pages.begin(); page != pages.end(); ++page) {
            for (const QString &link : matches("\\]\\(([^)\\s]+)\\)", page.value())) {
                if (isOutside(link))
                    continue;
                ++count;
                dead << deadEnd(page.key(), link,
                                [&pages](const QString &file) { return markdownAnchors(pages[file]); });
                if (link.endsWith(".png"))
                    pictures << QDir::cleanPath(QFileInfo(page.key()).dir().filePath(link));
            }
        }
        dead.removeAll(QString());
        QCOMPARE(dead.join('\n'), QString());
        QVERIFY(count > 100);
        for (const char *folder : {SOURCES "/docs/images", SOURCES "/docs/guide/images"}) {
            for (const QString &file : filesBelow(folder, "*"))
                QVERIFY2(pictures.contains(file), qPrintable("nobody shows " + file));
        }
    }

    // Readable in a page, and no burden on the sources.
    void pictures()
    {
        qint64 bytes = 0;
        for (const QString &file : filesBelow(SOURCES "/docs/guide/images", "*.png")) {
            const QImage picture(file);
            QVERIFY2(picture.width() >= 250 && picture.width() <= 1024,
                     qPrintable(file + ' ' + QString::number(picture.width())));
            QVERIFY2(QFileInfo(file).size() < 100000, qPrintable(file));
            bytes += QFileInfo(file).size();
        }
        QVERIFY(bytes > 0);
        QVERIFY(bytes < 1000000);
    }

    // What the page for authors of hosts shows is the sample, which another test builds and runs.
    void sampleOfThePage()
    {
        const auto unindented = [](const char *file) {
            return QString(contents(file)).remove(QRegularExpression("(?m)^ +"));
        };
        const QString page = unindented(SOURCES "/docs/guide/host.md");
        const QString program = unindented(SOURCES "/examples/host/main.cpp");
        const QString sample = program + unindented(SOURCES "/examples/host/CMakeLists.txt");
        const QStringList blocks = matches("(?s)^```(?:cpp|cmake)\\n(.*?)^```$", page);
        for (const QString &text : blocks)
            QVERIFY2(sample.contains(text), qPrintable(text));
        QVERIFY(blocks.size() >= 6);
        QVERIFY(program.count('\n') <= 100);
    }

    // The newest release of the change log is the one that is built, and known to software centres.
    void changeLog()
    {
        const QStringList releases = matches("^## (.*)$", contents(SOURCES "/CHANGELOG.md"));
        QVERIFY(!releases.isEmpty());
        const QString version = releases.first().section(' ', 0, 0), date = releases.first().section(' ', 2);
        QCOMPARE(version, QString(VERSION));
        const QString known = contents(SOURCES "/packaging/jexworkbench.metainfo.xml");
        QCOMPARE(matches("<release ([^/]*)/>", known).value(0),
                 QString("version=\"%1\" date=\"%2\"").arg(version, date));
    }

    void linksOfHtml()
    {
        if (QStandardPaths::findExecutable("pandoc").isEmpty())
            QSKIP("pandoc is not installed.");
        const Folder folder;
        const QString guide = folder.path("guide");
        QCOMPARE(make("guide", guide), QString());
        const QStringList pages = filesBelow(guide, "*.html");
        QCOMPARE(pages.size(), filesBelow(SOURCES "/docs/guide", "*.md").size() + 6);
        QMap<QString, QStringList> anchors;
        for (const QString &page : pages)
            anchors[page] = matches(" id=\"([^\"]+)\"", contents(page));
        QStringList dead, reached;
        for (const QString &page : pages) {
            const QString text = contents(page);
            QCOMPARE(anchors[page].removeDuplicates(), 0);
            QCOMPARE(matches("<(h1)[ >]", text).size(), 1);
            for (const QString &link : matches("(?:href|src)=\"([^\"]+)\"", text)) {
                if (isOutside(link))
                    continue;
                dead << deadEnd(page, link, [&anchors](const QString &file) { return anchors[file]; });
                if (page.endsWith("/index.html"))
                    reached << guide + '/' + link.section('#', 0, 0);
            }
        }
        dead.removeAll(QString());
        QCOMPARE(dead.join('\n'), QString());
        for (const QString &page : pages)
            QVERIFY2(reached.contains(page), qPrintable(page + " is not on the start page"));
    }

    void headersSayWhatTheyAreFor()
    {
        if (QStandardPaths::findExecutable("doxygen").isEmpty())
            QSKIP("Doxygen is not installed.");
        const Folder folder;
        QCOMPARE(make("headers", folder.path("headers")), QString());
    }

private:
    // What it says, which is nothing when all is well.
    static QString make(const QString &kind, const QString &folder)
    {
        QProcess process;
        process.setProcessChannelMode(QProcess::MergedChannels);
        process.start(SOURCES "/docs/make", {kind, folder});
        if (!process.waitForFinished(200000))
            return "not finished";
        return process.readAll() + (process.exitCode() == 0 ? "" : "failed");
    }
};

QTEST_MAIN(PagesTest)
#include "tst_pages.moc"

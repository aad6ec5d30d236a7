#include "host/translation.h"
#include "tests/support/tablerow.h"

namespace {

struct Entry
{
    QString file, context, source, translation;
};

QList<Entry> entriesOf(const QString &path)
{
    QList<Entry> entries;
    QFile file(path);
    file.open(QIODevice::ReadOnly);
    QXmlStreamReader xml(&file);
    Entry entry;
    entry.file = QFileInfo(path).fileName();
    while (!xml.atEnd()) {
        if (xml.readNext() != QXmlStreamReader::StartElement)
            continue;
        if (xml.name() == QLatin1String("name"))
            entry.context = xml.readElementText();
        else if (xml.name() == QLatin1String("source"))
            entry.source = xml.readElementText();
        else if (xml.name() == QLatin1String("translation")) {
            entry.translation = xml.readElementText(QXmlStreamReader::IncludeChildElements);
            entries << entry;
        }
    }
    return entries;
}

QStringList all(const QString &text, const QString &pattern)
{
    QStringList found;
    QRegularExpressionMatchIterator at = QRegularExpression(pattern).globalMatch(text);
    while (at.hasNext())
        found << at.next().captured();
    found.sort();
    return found;
}

// What must be in a translation as it is in the source: words for programs and for the eye that guides
// itself.
const Rows<const char *, const char *> kept = {
    {"placeholders", "%(\\d+|n|[fl](?![a-zA-Z]))"},
    {"the number of mnemonics", "&(?=\\w)"},
    {"tags", "</?[a-z][^>]*>"},
    {"the kind of a message", "^(ERROR|WARNING): "},
    {"patterns of files", "\\*\\.\\w+(\\.\\w+)?"},
    {"line ends", "\\n"},
    {"blanks at the beginning", "^ +"},
    {"blanks at the end", " +$"},
    {"a colon at the end", ":$"},
    {"dots at the end", "\\.\\.\\.$"},
    {"a full stop at the end", "(?<!\\.)\\.$"},
    {"a question mark at the end", "\\?$"},
};

QString languageOf(const QProcessEnvironment &environment)
{
    QProcess child;
    child.setProcessEnvironment(environment);
    child.start(QCoreApplication::applicationFilePath(), {"--language"});
    child.waitForFinished();
    return QString::fromUtf8(child.readAllStandardOutput());
}

} // namespace

class EntriesTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void translationsKeepWhatProgramsNeed()
    {
        QStringList faults;
        int count = 0;
        for (const QFileInfo &file : QDir(TEXTS).entryInfoList({"*.ts"})) {
            for (const Entry &entry : entriesOf(file.filePath())) {
                ++count;
                for (const auto &[what, pattern] : kept) {
                    if (all(entry.source, pattern) != all(entry.translation, pattern))
                        faults << entry.file + ' ' + entry.context + ": " + what + ": \"" + entry.source +
                                      "\" \"" + entry.translation + '"';
                }
            }
        }
        QVERIFY2(faults.isEmpty(), qPrintable(faults.join('\n')));
        QVERIFY(count > 500);
    }

    // In one window or place a text has one name; a term that has two is two things to the reader.
    void sameTextsAreSaidTheSameWay()
    {
        QMap<QString, QSet<QString>> said;
        for (const QFileInfo &file : QDir(TEXTS).entryInfoList({"*.ts"})) {
            for (const Entry &entry : entriesOf(file.filePath()))
                said[file.completeBaseName() + entry.context + '\n' + QString(entry.source).remove('&')]
                    .insert(QString(entry.translation).remove('&'));
        }
        for (auto text = said.constBegin(); text != said.constEnd(); ++text)
            QVERIFY2(text->size() == 1, qPrintable(text.key() + ": " + text->values().join(" | ")));
    }

    void languageIsTheUsers_data()
    {
        columns<QStringList, QString>("variables", "shown");
        row("none", QStringList(), "Messages");
        row("C", QStringList{"LANG=C"}, "Messages");
        row("C in UTF-8", QStringList{"LANG=de_DE.UTF-8", "LC_ALL=C.UTF-8"}, "Messages");
        row("English", QStringList{"LANG=en_GB.UTF-8"}, "Messages");
        row("German", QStringList{"LANG=de_DE.UTF-8"}, "Meldungen");
        row("of Austria", QStringList{"LANG=de_AT.UTF-8"}, "Meldungen");
        row("messages alone", QStringList{"LANG=en_US.UTF-8", "LC_MESSAGES=de_CH.UTF-8"}, "Meldungen");
        row("not there", QStringList{"LANG=fr_FR.UTF-8"}, "Messages");
        row("the second", QStringList{"LANG=fr_FR.UTF-8", "LANGUAGE=fr:de:en"}, "Meldungen");
        row("English first", QStringList{"LANG=de_DE.UTF-8", "LANGUAGE=en_US:de"}, "Messages");
        row("no list for C", QStringList{"LANG=C", "LANGUAGE=de"}, "Messages");
    }
    void languageIsTheUsers()
    {
        QFETCH(QStringList, variables);
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        for (const char *name : {"LANG", "LANGUAGE", "LC_ALL", "LC_MESSAGES"})
            environment.remove(name);
        for (const QString &variable : variables)
            environment.insert(variable.section('=', 0, 0), variable.section('=', 1));
        QTEST(languageOf(environment), "shown");
    }

    // And end when whoever asked for them does.
    void hostChoosesTheLanguage()
    {
        const auto shown = [] { return QCoreApplication::translate("RTLJEX::MessageDlg", "Messages"); };
        QLocale::setDefault(QLocale("de_DE"));
        {
            const auto texts = QUtil::installTranslation("jexins", ":/jexins/texts");
            QVERIFY(texts != nullptr);
            QCOMPARE(shown(), QString("Meldungen"));
        }
        QCOMPARE(shown(), QString("Messages"));
        QLocale::setDefault(QLocale::c());
        QVERIFY(QUtil::installTranslation("jexins", ":/jexins/texts") == nullptr);
    }
};

int main(int argc, char *argv[])
{
    QCoreApplication application(argc, argv);
    if (QCoreApplication::arguments().value(1) == "--language") {
        const auto texts = QUtil::installTranslation("jexins", ":/jexins/texts");
        fputs(qPrintable(QCoreApplication::translate("RTLJEX::MessageDlg", "Messages")), stdout);
        return 0;
    }
    EntriesTest test;
    return QTest::qExec(&test, argc, argv);
}
#include "tst_entries.moc"

#include "host/filelist.h"

#include <QDir>
#include <QFileInfo>
#include <QRegExp>
#include <QSet>

#include "host/designmanager.h"
#include "host/regularfile.h"

namespace Core {
namespace {

const qint64 sizeLimit = 16 * QUtil::MiB;

struct Word
{
    QString text;
    int line;
};

QString at(const QString &list, int line)
{
    return QString::fromLatin1("%1:%2: ").arg(QDir::toNativeSeparators(list), QString::number(line));
}

// Splits the text of a list into words; comments, quotes and line ends are gone afterwards.
class Words
{
public:
    Words(const QString &text, const QString &list) : m_text(text), m_list(list), m_at(0), m_line(1) {}

    QString fault; // set when the text ends within quotes or a comment, or a variable is not set

    QList<Word> all()
    {
        QList<Word> words;
        while (fault.isEmpty() && skipBlanksAndComments()) {
            Word word = {QString(), m_line};
            while (fault.isEmpty() && m_at < m_text.size() && !next().isSpace() && !atContinuation())
                takeOne(word.text);
            words.append(word);
        }
        return words;
    }

private:
    QChar next(int offset = 0) const
    {
        return m_at + offset < m_text.size() ? m_text.at(m_at + offset) : QChar();
    }

    bool atContinuation() const { return next() == QLatin1Char('\\') && next(1) == QLatin1Char('\n'); }

    void advance(int count = 1)
    {
        for (; count > 0 && m_at < m_text.size(); --count)
            m_line += m_text.at(m_at++) == QLatin1Char('\n');
    }

    // False at the end of the text.
    bool skipBlanksAndComments()
    {
        while (m_at < m_text.size()) {
            const QChar c = next();
            if (c.isSpace() || atContinuation())
                advance();
            else if (c == QLatin1Char('#') || (c == QLatin1Char('/') && next(1) == QLatin1Char('/')))
                skipTo(QLatin1String("\n"), false);
            else if (c == QLatin1Char('/') && next(1) == QLatin1Char('*'))
                skipTo(QLatin1String("*/"), true);
            else
                return true;
        }
        return false;
    }

    void skipTo(const QString &end, bool required)
    {
        const int found = m_text.indexOf(end, m_at);
        if (found < 0 && required)
            fault = at(m_list, m_line) + QLatin1String("this comment does not end.");
        advance((found < 0 ? m_text.size() : found + end.size()) - m_at);
    }

    void takeOne(QString &word)
    {
        const QChar c = next();
        if (c == QLatin1Char('"')) {
            takeQuoted(word);
        } else if (c == QLatin1Char('$')) {
            takeVariable(word);
        } else {
            if (c == QLatin1Char('\\') && next(1) == QLatin1Char(' '))
                advance();
            word.append(next());
            advance();
        }
    }

    void takeQuoted(QString &word)
    {
        const int begin = m_line;
        for (advance(); m_at < m_text.size() && next() != QLatin1Char('"');) {
            if (next() == QLatin1Char('$')) {
                takeVariable(word);
                continue;
            }
            if (next() == QLatin1Char('\\') && (next(1) == QLatin1Char('"') || next(1) == QLatin1Char('\\')))
                advance();
            word.append(next());
            advance();
        }
        if (m_at >= m_text.size())
            fault = at(m_list, begin) + QLatin1String("these quotes do not end.");
        advance();
    }

    // $NAME, ${NAME} or $(NAME); a dollar sign that no name follows is itself.
    void takeVariable(QString &word)
    {
        QRegExp form(QLatin1String("\\$(?:(\\w+)|\\{(\\w+)\\}|\\((\\w+)\\))"));
        if (form.indexIn(m_text, m_at, QRegExp::CaretAtOffset) != m_at) {
            word.append(next());
            advance();
            return;
        }
        const QString name = form.cap(1) + form.cap(2) + form.cap(3);
        const QByteArray value = qgetenv(name.toLocal8Bit().constData());
        if (value.isNull())
            fault = at(m_list, m_line) +
                    QString::fromLatin1("the environment variable \"%1\" is not set.").arg(name);
        word.append(QString::fromLocal8Bit(value));
        advance(form.matchedLength());
    }

    QString m_text;
    QString m_list;
    int m_at;
    int m_line;
};

class ListReader
{
public:
    ListReader(ProjectData &data, QStringList &messages)
        : m_data(data), m_messages(messages), m_failed(false), m_systemVerilog(false)
    {
        for (const SourceFile &file : data.files)
            m_known.insert(file.path);
    }

    bool read(const QString &listPath, const QString &folder, const QString &namedAt)
    {
        // A list that another one names is a file: the streams are the user's.
        const bool isStream = m_open.isEmpty() && QUtil::isStreamName(listPath);
        const QString list = isStream ? listPath : absoluteIn(QDir::currentPath(), listPath);
        QByteArray bytes;
        QString reason;
        if (m_open.contains(list))
            fail(namedAt, QString::fromLatin1("the list \"%1\" reads itself.").arg(list));
        else if (isStream ? !QUtil::readFileOrStream(list, sizeLimit, &bytes, &reason)
                          : !QUtil::readRegularFile(list, sizeLimit, &bytes, &reason))
            fail(namedAt, QLatin1String(namedAt.isEmpty() ? "The" : "the") +
                              QString::fromLatin1(" list \"%1\" can not be read (%2). Check its name, and "
                                                  "that you may read it.")
                                  .arg(QDir::toNativeSeparators(listPath), reason));
        else
            readWords(QString::fromUtf8(bytes).remove(QLatin1Char('\r')), list, folder);
        return !m_failed;
    }

    void finish()
    {
        for (SourceFile &file : m_data.files) {
            if (m_systemVerilog && file.type == TE::VerilogFile)
                file.type = TE::SystemVerilogFile;
        }
    }

private:
    void fail(const QString &where, const QString &fault)
    {
        m_messages.append(where + fault);
        m_failed = true;
    }

    void readWords(const QString &text, const QString &list, const QString &folder)
    {
        Words splitter(text, list);
        const QList<Word> words = splitter.all();
        if (!splitter.fault.isEmpty())
            return fail(QString(), splitter.fault);
        m_open.append(list);
        for (int i = 0; i < words.size(); ++i) {
            const QString &option = words.at(i).text;
            if (!takesArgument(option)) {
                readWord(words.at(i), list, folder);
            } else if (++i < words.size()) {
                readPair(option, words.at(i), list, folder);
            } else {
                fail(at(list, words.at(i - 1).line),
                     QString::fromLatin1("\"%1\" names nothing.").arg(option));
            }
        }
        m_open.removeLast();
    }

    static bool takesArgument(const QString &word)
    {
        static const char *const options[] = {"-f", "-F", "-y", "-v", "-top", "--top", "--top-module"};
        for (const char *option : options) {
            if (word == QLatin1String(option))
                return true;
        }
        return false;
    }

    void readPair(const QString &option, const Word &argument, const QString &list, const QString &folder)
    {
        const QString where = at(list, argument.line);
        if (option.contains(QLatin1String("top"))) {
            m_data.topModule = argument.text;
            return;
        }
        const QString path = find(argument.text, list, folder);
        if (option == QLatin1String("-f"))
            read(path, folder, where);
        else if (option == QLatin1String("-F"))
            read(path, QFileInfo(path).absolutePath(), where);
        else if (option == QLatin1String("-y"))
            addFolder(path, m_data.libraryPaths, where);
        else
            addSource(path, where);
    }

    void readWord(const Word &word, const QString &list, const QString &folder)
    {
        const QString &text = word.text;
        const QString where = at(list, word.line);
        if (text.startsWith(QLatin1String("+incdir+"))) {
            for (const QString &path : text.mid(8).split(QLatin1Char('+'), QString::SkipEmptyParts))
                addFolder(find(path, list, folder), m_data.includePaths, where);
        } else if (text.startsWith(QLatin1String("-I")) && text.size() > 2) {
            addFolder(find(text.mid(2), list, folder), m_data.includePaths, where);
        } else if (text.startsWith(QLatin1String("+define+"))) {
            m_data.defines += text.mid(8).split(QLatin1Char('+'), QString::SkipEmptyParts);
        } else if (text.startsWith(QLatin1String("-D")) && text.size() > 2) {
            m_data.defines.append(text.mid(2));
        } else if (text == QLatin1String("-sv") || text == QLatin1String("-sverilog")) {
            m_systemVerilog = true;
        } else if (text.startsWith(QLatin1Char('-')) || text.startsWith(QLatin1Char('+'))) {
            if (!text.startsWith(QLatin1String("+libext+")))
                m_messages.append(where +
                                  QString::fromLatin1("the option \"%1\" was passed over.").arg(text));
        } else {
            addSource(find(text, list, folder), where);
        }
    }

    static QString find(const QString &path, const QString &list, const QString &folder)
    {
        const QString first = absoluteIn(folder, path);
        const QString second = absoluteIn(QFileInfo(list).absolutePath(), path);
        return !QFileInfo(first).exists() && QFileInfo(second).exists() ? second : first;
    }

    void addFolder(const QString &path, QStringList &folders, const QString &where)
    {
        if (!QFileInfo(path).isDir())
            fail(where, QString::fromLatin1("there is no folder \"%1\".").arg(path));
        else if (!folders.contains(path))
            folders.append(path);
    }

    void addSource(const QString &path, const QString &where)
    {
        const QString kind = QUtil::irregularKind(path);
        if (!kind.isEmpty()) {
            fail(where, QString::fromLatin1("\"%1\" is %2, not a source.").arg(path, kind));
        } else if (!QFileInfo(path).isFile()) {
            fail(where, QString::fromLatin1("there is no file \"%1\".").arg(path));
        } else if (!m_known.contains(path)) {
            SourceFile file;
            file.path = path;
            file.type = TE::fileTypeFromName(path);
            // Sources of a list are Verilog whatever their suffix: ".inc", ".vp", ".vo".
            if (!TE::isDesignFileType(file.type) && !path.endsWith(QLatin1String(".zub")))
                file.type = TE::VerilogFile;
            m_known.insert(path);
            m_data.files.append(file);
        }
    }

    ProjectData &m_data;
    QStringList &m_messages;
    QStringList m_open; // lists that are being read
    QSet<QString> m_known;
    bool m_failed;
    bool m_systemVerilog;
};

} // namespace

bool readFileList(const QString &listPath, const QString &folder, ProjectData &data, QStringList &messages)
{
    ProjectData extended = data;
    ListReader reader(extended, messages);
    if (!reader.read(listPath, folder, QString()))
        return false;
    reader.finish();
    data = extended;
    return true;
}

} // namespace Core

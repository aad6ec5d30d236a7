#include "host/filelist.h"

#include <QDir>
#include <QFileInfo>
#include <QSet>

#include "host/absolutepath.h"
#include "host/designmanager.h"
#include "host/listwords.h"
#include "host/regularfile.h"
#include "host/sourcefolder.h"
#include "host/sourceoption.h"

namespace Core {
namespace {

const qint64 sizeLimit = 16 * QUtil::MiB;

// "C:\rtl\a.v", of a list that another system wrote.
bool hasDriveLetter(const QString &path)
{
    return path.size() > 2 && path.at(0).isLetter() && path.at(1) == QLatin1Char(':') &&
           (path.at(2) == QLatin1Char('\\') || path.at(2) == QLatin1Char('/'));
}

class ListReader
{
public:
    ListReader(ProjectData &data, QStringList &messages)
        : m_data(data), m_messages(messages), m_looked(0), m_failed(false), m_systemVerilog(false)
    {
        for (const SourceFile &file : data.files)
            m_known.insert(file.path);
    }

    bool read(const QString &listPath, const QString &folder, const QString &namedAt)
    {
        // A list that another one names is a file: the streams are the user's.
        const bool isStream = m_open.isEmpty() && QUtil::isStreamName(listPath);
        const QString list = isStream ? listPath : QUtil::absoluteIn(QDir::currentPath(), listPath);
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
        QStringList faults;
        const QList<ListWord> words = splitFileList(text, list, faults);
        for (const QString &fault : faults)
            fail(QString(), fault);
        const QString outerList = m_list;
        const QString outerFolder = m_folder;
        const QString outerLibrary = m_library;
        m_open.append(list);
        m_list = list;
        m_folder = folder;
        for (int i = 0; i < words.size(); ++i)
            i += readWord(words.at(i), i + 1 < words.size() ? &words.at(i + 1) : nullptr);
        m_list = outerList;
        m_folder = outerFolder;
        m_library = outerLibrary;
        m_open.removeLast();
    }

    // Gives how many words behind it went with it.
    int readWord(const ListWord &word, const ListWord *next)
    {
        const QString where = placeInList(m_list, word.line);
        SourceOption option;
        if (readSourceOption(word.text, option)) {
            if (option.takesNext && !next)
                fail(where, QString::fromLatin1("\"%1\" names nothing.").arg(word.text));
            else if (option.meaning == SourceOption::PassedOver)
                passOver(where, word.text, next->text);
            else if (option.takesNext && next->isWhole)
                apply(option.meaning, next->text, placeInList(m_list, next->line));
            for (const QString &value : option.values) {
                if (word.isWhole)
                    apply(option.meaning, value, where);
            }
            m_systemVerilog = m_systemVerilog || option.meaning == SourceOption::SystemVerilog;
            return option.takesNext ? 1 : 0;
        }
        if (!word.text.startsWith(QLatin1Char('-')) && !word.text.startsWith(QLatin1Char('+'))) {
            if (word.isWhole)
                addSources(find(word.text), where);
            return 0;
        }
        const bool hasArgument = word.text.startsWith(QLatin1Char('-')) && next && isArgument(*next);
        passOver(where, word.text, hasArgument ? next->text : QString());
        return hasArgument ? 1 : 0;
    }

    // Of an option that nobody knows: what is no option itself and no source either.
    bool isArgument(const ListWord &word) const
    {
        const bool isOption =
            word.text.startsWith(QLatin1Char('-')) || word.text.startsWith(QLatin1Char('+'));
        return word.isWhole && !isOption && !TE::isDesignFileType(TE::fileTypeFromName(word.text)) &&
               !QFileInfo(find(word.text)).exists();
    }

    void passOver(const QString &where, const QString &option, const QString &argument)
    {
        const QString shown = argument.isEmpty() ? option : option + QLatin1Char(' ') + argument;
        m_messages.append(where + QString::fromLatin1("the option \"%1\" was passed over.").arg(shown));
    }

    void apply(SourceOption::Meaning meaning, const QString &value, const QString &where)
    {
        switch (meaning) {
        case SourceOption::FileList:
            read(find(value), m_folder, where);
            break;
        case SourceOption::OwnFileList:
            read(find(value), QFileInfo(find(value)).absolutePath(), where);
            break;
        case SourceOption::IncludePath:
            addFolder(find(value), m_data.includePaths, where);
            break;
        case SourceOption::LibraryPath:
            addFolder(find(value), m_data.libraryPaths, where);
            break;
        case SourceOption::LibraryFile:
            addSource(find(value), true, where);
            break;
        case SourceOption::LibrarySuffix:
            add(value, m_data.librarySuffixes);
            break;
        case SourceOption::Define:
            m_data.defines.append(value);
            break;
        case SourceOption::Undefine:
            add(value, m_data.undefines);
            break;
        case SourceOption::Parameter:
            m_data.parameters.append(value);
            break;
        case SourceOption::Library:
            m_library = value;
            break;
        case SourceOption::Top:
            m_data.topModule = value;
            break;
        case SourceOption::SystemVerilog:
        case SourceOption::PassedOver:
            break;
        }
    }

    static void add(const QString &value, QStringList &values)
    {
        if (!values.contains(value))
            values.append(value);
    }

    // As it stands where that is there, in the list's own folder, with the separators of another system.
    QString find(const QString &path) const
    {
        const QString first = QUtil::absoluteIn(m_folder, path);
        const QString own = QFileInfo(m_list).absolutePath();
        QString slashes = path;
        slashes.replace(QLatin1Char('\\'), QLatin1Char('/'));
        const QStringList others = QStringList()
                                   << QUtil::absoluteIn(own, path) << QUtil::absoluteIn(m_folder, slashes)
                                   << QUtil::absoluteIn(own, slashes);
        if (QFileInfo(first).exists())
            return first;
        for (const QString &other : others) {
            if (QFileInfo(other).exists())
                return other;
        }
        return hasDriveLetter(path) ? path : first;
    }

    void addFolder(const QString &path, QStringList &folders, const QString &where)
    {
        if (!QFileInfo(path).isDir())
            failToFind(QLatin1String("folder"), path, where);
        else
            add(path, folders);
    }

    void failToFind(const QString &kind, const QString &path, const QString &where)
    {
        const QString hint = hasDriveLetter(path)
                                 ? QLatin1String(": its path is one of another system. Write it "
                                                 "as seen from the list")
                                 : QString();
        fail(where, QString::fromLatin1("there is no %1 \"%2\"%3.").arg(kind, path, hint));
    }

    void addSources(const QString &path, const QString &where)
    {
        if (!QFileInfo(path).isDir())
            return addSource(path, false, where);
        FolderSources sources;
        QString fault;
        if (!findSources(path, m_looked, sources, fault))
            return fail(where, QLatin1Char('t') + fault.mid(1));
        for (const QString &folder : sources.includeFolders)
            add(folder, m_data.includePaths);
        for (const QString &file : sources.files)
            addSource(file, false, where);
    }

    void addSource(const QString &path, bool onlyWhenUsed, const QString &where)
    {
        const QString kind = QUtil::irregularKind(path);
        if (!kind.isEmpty()) {
            fail(where, QString::fromLatin1("\"%1\" is %2, not a source.").arg(path, kind));
        } else if (!QFileInfo(path).isFile()) {
            failToFind(QLatin1String("file"), path, where);
        } else if (!m_known.contains(path)) {
            SourceFile file;
            file.path = path;
            file.type = TE::fileTypeFromName(path);
            file.onlyWhenUsed = onlyWhenUsed;
            // Sources of a list are Verilog whatever their suffix: ".inc", ".vp", ".vo".
            if (!TE::isDesignFileType(file.type) && !path.endsWith(QLatin1String(".zub")))
                file.type = TE::VerilogFile;
            if (file.type == TE::VhdlFile)
                file.library = m_library;
            m_known.insert(path);
            m_data.files.append(file);
        }
    }

    ProjectData &m_data;
    QStringList &m_messages;
    QStringList m_open; // lists that are being read
    QSet<QString> m_known;
    QString m_list; // the innermost of them, what its paths are relative to, and what "-work" said last in it
    QString m_folder;
    QString m_library;
    int m_looked; // names in folders of sources
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

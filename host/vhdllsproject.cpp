#include <QFileInfo>
#include <QSet>

#include "host/designmanager.h"
#include "host/filepattern.h"
#include "host/foreignproject.h"
#include "host/variable.h"

#include <stdexcept>

// Some texts break what the parser takes for certain: in each kind of build that is a fault of the text,
// which is thrown as its others are.
static constexpr void tomlClaim(bool holds)
{
    if (!holds)
        throw std::logic_error("it is no TOML");
}
#undef NDEBUG
#define TOML_ASSERT(expression) tomlClaim(bool(expression))
#define TOML_EXCEPTIONS 1
#include <toml++/toml.h>

namespace Core {
namespace {

// Each dot of a key is a table in a table, which the library frees one within the other.
const int dotLimit = 100;

bool isTooDeep(const QByteArray &bytes)
{
    int dots = 0;
    for (const char c : bytes) {
        if (c == '.')
            ++dots;
        else if (c == '=' || c == ',' || c == '\n' || c == '{' || c == '[')
            dots = 0;
        if (dots > dotLimit)
            return true;
    }
    return false;
}

// The parser has holes where letters beyond ASCII stand in odd places, so it sees none: "%C3%A9". A text that
// has such signs outside strings and comments is none in any case.
QByteArray asciiOnly(const QByteArray &bytes)
{
    const QByteArray byteOrderMark("\xEF\xBB\xBF");
    QByteArray ascii;
    for (const char c : bytes.startsWith(byteOrderMark) ? bytes.mid(byteOrderMark.size()) : bytes) {
        if (c == '%' || static_cast<unsigned char>(c) >= 128)
            ascii += '%' + QByteArray(1, c).toHex();
        else
            ascii += c;
    }
    return ascii;
}

QString fromAscii(std::string_view text)
{
    const QByteArray utf8 = QByteArray::fromPercentEncoding(QByteArray(text.data(), int(text.size())));
    return QString::fromUtf8(utf8.constData(), utf8.size());
}

QString fromKey(const toml::key &key)
{
    return fromAscii(std::string_view(key.data(), key.length()));
}

// False with the fault of a text that is no TOML; the library's exceptions end here.
bool parse(const QByteArray &bytes, toml::table &document, QString &fault)
{
    try {
        const QByteArray ascii = asciiOnly(bytes);
        document = toml::parse(std::string_view(ascii.constData(), size_t(ascii.size())));
    } catch (const toml::parse_error &error) {
        const std::string_view reason = error.description();
        fault = QString::fromLatin1("line %1: %2.")
                    .arg(QString::number(error.source().begin.line), fromAscii(reason));
    } catch (const std::exception &error) {
        fault = QString::fromUtf8(error.what()) + QLatin1Char('.');
    }
    return fault.isEmpty();
}

class VhdlLsReader
{
public:
    ProjectData data;
    QStringList notes;
    QString fault;

    explicit VhdlLsReader(const QString &folder) : m_folder(folder) {}

    void read(const toml::table &document)
    {
        const toml::table *libraries = document["libraries"].as_table();
        if (!libraries)
            return fail(document, QLatin1String("it has no table \"libraries\""));
        for (const auto &[key, node] : *libraries) {
            if (const toml::table *library = node.as_table())
                readLibrary(fromKey(key), *library);
            else
                fail(node, QString::fromLatin1("the library \"%1\" must be a table").arg(fromKey(key)));
        }
        for (const auto &[key, node] : document) {
            if (fromKey(key) != QLatin1String("libraries"))
                m_unknown.append(fromKey(key));
        }
        if (m_pattern.gaveUp())
            fail(document, QLatin1String("its patterns lead to too many folders: name them more closely"));
        if (!m_unknown.isEmpty())
            notes.append(QString::fromLatin1("Not understood, and left out: \"%1\".")
                             .arg(m_unknown.join(QLatin1String("\", \""))));
    }

private:
    void fail(const toml::node &node, const QString &reason)
    {
        if (fault.isEmpty())
            fault =
                QString::fromLatin1("line %1: %2.").arg(QString::number(node.source().begin.line), reason);
    }

    void readLibrary(const QString &name, const toml::table &library)
    {
        const QSet<QString> excluded = QSet<QString>::fromList(filesOf(name, library["exclude"].node()));
        const QStringList files = filesOf(name, library["files"].node());
        for (const QString &path : files) {
            if (!excluded.contains(path))
                addFile(path, name);
        }
        for (const auto &[key, node] : library) {
            const QString word = fromKey(key);
            // Where a library comes from says nothing about its nets.
            if (word != QLatin1String("files") && word != QLatin1String("exclude") &&
                word != QLatin1String("is_third_party"))
                m_unknown.append(name + QLatin1Char('.') + word);
        }
    }

    QStringList filesOf(const QString &library, const toml::node *list)
    {
        QStringList files;
        if (list && !list->is_array())
            fail(*list, QString::fromLatin1("what files the library \"%1\" has must be a list").arg(library));
        const toml::array none;
        for (const toml::node &entry : list && list->is_array() ? *list->as_array() : none) {
            const toml::value<std::string> *text = entry.as_string();
            if (text)
                files += filesOf(*text);
            else
                fail(entry, QString::fromLatin1("the files of library \"%1\" must be texts").arg(library));
        }
        return files;
    }

    QStringList filesOf(const toml::value<std::string> &text)
    {
        QString pattern = fromAscii(text.get());
        QString unset;
        // The system takes the first NUL of a name for its end.
        if (pattern.contains(QChar(0)) || pattern.isEmpty())
            fail(text, QLatin1String("a file must have a name, without NUL characters"));
        else if (!putVariables(pattern, unset))
            notes.append(QString::fromLatin1("Left out \"%1\": %2").arg(pattern, unset));
        else
            return namedBy(pattern);
        return QStringList();
    }

    QStringList namedBy(const QString &pattern)
    {
        const QStringList files = m_pattern.files(m_folder, pattern);
        if (files.isEmpty())
            notes.append(QString::fromLatin1("There is no file \"%1\".").arg(pattern));
        return files;
    }

    void addFile(const QString &path, const QString &library)
    {
        SourceFile file;
        file.path = path;
        file.type = TE::VhdlFile;
        file.library = library;
        if (!m_known.contains(path))
            data.files.append(file);
        else
            notes.append(
                QString::fromLatin1("\"%1\" is of another library, too: here it is of one.").arg(path));
        m_known.insert(path);
    }

    QString m_folder;
    FilePattern m_pattern;
    QSet<QString> m_known;
    QStringList m_unknown;
};

} // namespace

bool projectFromVhdlLs(const QByteArray &bytes, const QString &folder, ProjectData &data, QStringList &notes,
                       QString &fault)
{
    if (isTooDeep(bytes)) {
        fault = QLatin1String("its keys are nested too deep.");
        return false;
    }
    toml::table document;
    if (!parse(bytes, document, fault))
        return false;
    VhdlLsReader reader(folder);
    reader.read(document);
    fault = reader.fault;
    if (!fault.isEmpty())
        return false;
    data = reader.data;
    data.name = QFileInfo(folder).fileName();
    notes += reader.notes;
    return true;
}

} // namespace Core

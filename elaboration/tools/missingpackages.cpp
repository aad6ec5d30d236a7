#include "elaboration/tools/missingpackages.h"

#include <QCoreApplication>
#include <QDir>
#include <QHash>
#include <QRegExp>

#include "elaboration/tools/sourcetext.h"

namespace QUARRY {
namespace {

struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(QUARRY::MissingPackages)
};

const int mostPackages = 100; // for each, files are searched

QString bareTextOf(const QString &file)
{
    return bareText(sourceOf(file), VerilogSource);
}

QRegExp declarationOf(const QString &name)
{
    return QRegExp(QLatin1String("\\bpackage\\s+(?:automatic\\s+|static\\s+)?") + QRegExp::escape(name) +
                   QLatin1String("\\s*;"));
}

// The name in front of the semicolon of each "typedef".
void collectTypes(const QString &text, QSet<QString> &names)
{
    const QRegExp keyword(QLatin1String("\\btypedef\\b"));
    QRegExp name(QLatin1String("\\b(\\w+)\\s*$"));
    for (int at = keyword.indexIn(text); at >= 0; at = keyword.indexIn(text, at)) {
        const int end = text.indexOf(QLatin1Char(';'), at);
        if (end < 0)
            return;
        if (name.indexIn(text.mid(at, end - at)) > 0)
            names.insert(name.cap(1));
        at = end;
    }
}

// What may stand in front of "::" without being a missing package.
QSet<QString> scopesOf(const QStringList &sources)
{
    QSet<QString> scopes;
    for (const char *word : {"std", "local", "super", "this", "$unit", "randomize"})
        scopes.insert(QLatin1String(word));
    const char *const declared =
        "\\b(package|class|interface|covergroup|type)\\s+(?:automatic\\s+|static\\s+)?(\\w+)";
    for (const QString &source : sources) {
        const QString text = bareTextOf(source);
        collectWords(text, declared, scopes);
        collectTypes(text, scopes);
    }
    return scopes;
}

// The lines of the files that errors name, each file read once.
class Lines
{
public:
    QString line(const QString &file, int number)
    {
        if (!m_files.contains(file))
            m_files.insert(file, bareTextOf(file).split(QLatin1Char('\n')));
        return m_files.value(file).value(number - 1);
    }

private:
    QHash<QString, QStringList> m_files;
};

QSet<QString> namedIn(const ToolMessage &error, Lines &lines)
{
    QSet<QString> names;
    collectWords(error.text, "(?:missing package|Package/class) '(\\w+)'", names);
    if (names.isEmpty() &&
        (error.text.startsWith(QLatin1String("syntax error")) || error.code == QLatin1String("PKGNODECL")))
        collectWords(lines.line(error.file, error.line), "(\\$?\\b[A-Za-z_]\\w*)\\s*::", names);
    return names;
}

} // namespace

QList<MissingPackage> missingPackages(const QList<ToolMessage> &errors, const QStringList &sources)
{
    QList<MissingPackage> packages;
    QSet<QString> known;
    Lines lines;
    for (const ToolMessage &error : errors) {
        const QSet<QString> names = namedIn(error, lines);
        if (!names.isEmpty() && known.isEmpty())
            known = scopesOf(sources);
        for (const QString &name : names) {
            if (!known.contains(name) && packages.size() < mostPackages)
                packages.append({name, error.file, error.line});
            known.insert(name);
        }
    }
    return packages;
}

QStringList packageFiles(const QStringList &folders)
{
    QStringList files;
    const QStringList patterns = QStringList() << QLatin1String("*.sv") << QLatin1String("*.svh")
                                               << QLatin1String("*.v") << QLatin1String("*.vh");
    for (const QString &folder : folders) {
        for (const QString &name : QDir(folder).entryList(patterns, QDir::Files))
            files.append(QDir(folder).absoluteFilePath(name));
    }
    return files;
}

QString fileOfPackage(const QString &package, const QStringList &files)
{
    const QRegExp declaration = declarationOf(package);
    for (const QString &file : files) {
        if (sourceOf(file).contains(package.toUtf8()) && bareTextOf(file).contains(declaration))
            return file;
    }
    return QString();
}

QList<ToolMessage> withMissingPackages(const QList<ToolMessage> &errors, const QStringList &sources,
                                       const QStringList &disabled)
{
    const QList<MissingPackage> packages = missingPackages(errors, sources);
    QList<ToolMessage> messages;
    QSet<QString> users; // files of which more errors may follow from a missing package
    for (const MissingPackage &package : packages) {
        ToolMessage message;
        message.file = package.file;
        message.line = package.line;
        const QString other = fileOfPackage(package.name, disabled);
        message.text = other.isEmpty()
                           ? Texts::tr("package %1 is in no file of the project").arg(package.name)
                           : Texts::tr("package %1 is in no file of the project that is enabled. It is in %2")
                                 .arg(package.name, other);
        messages.append(message);
        for (const ToolMessage &error : errors) {
            if (!users.contains(error.file) && sourceOf(error.file).contains(package.name.toUtf8()))
                users.insert(error.file);
        }
    }
    for (const ToolMessage &error : errors) {
        if (!users.contains(error.file))
            messages.append(error);
    }
    return messages;
}

} // namespace QUARRY

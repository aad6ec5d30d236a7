#include <QDir>
#include <QFileInfo>
#include <QMap>
#include <QSet>

#include "host/absolutepath.h"
#include "host/filetypes.h"
#include "host/foreignproject.h"
#include "host/yamltext.h"

namespace Core {
namespace {

// Says nothing about the nets of a design.
const char *const knownKeys[] = {"name",         "version", "description", "cores",
                                 "dependencies", "files",   "parameters",  "toplevel"};

QString quoted(const QStringList &names)
{
    const int shown = 8;
    const QString list = QStringList(names.mid(0, shown)).join(QLatin1String("\", \""));
    const QString rest =
        names.size() > shown ? QString::fromLatin1(" and %1 more").arg(names.size() - shown) : QString();
    return QLatin1Char('"') + list + QLatin1Char('"') + rest;
}

bool isTrue(const YamlNode &node)
{
    const QString text = node.text.toLower();
    return text == QLatin1String("true") || text == QLatin1String("yes") || text == QLatin1String("on");
}

int typeOf(const QString &fileType)
{
    for (const TE::SourceType &row : TE::sourceTypes) {
        if (fileType.startsWith(QLatin1String(row.edamName)))
            return row.type;
    }
    return TE::UnknownFile;
}

class EdamReader
{
public:
    ProjectData data;
    QStringList notes;
    QString fault;

    EdamReader(const YamlNode &root, const QString &folder) : m_root(root), m_folder(folder) {}

    void read()
    {
        if (m_root.kind != YamlNode::Map)
            return fail(m_root, QLatin1String("it must hold keys and values"));
        data.name = textOf(m_root, "name");
        readTop(m_root.value(QLatin1String("toplevel")));
        const YamlNode files = m_root.value(QLatin1String("files"));
        if (files.kind != YamlNode::List)
            return fail(files, QLatin1String("\"files\" must be a list"));
        for (const YamlNode &file : files.items)
            readFile(file);
        readParameters(m_root.value(QLatin1String("parameters")));
        noteRest();
    }

private:
    void fail(const YamlNode &node, const QString &reason)
    {
        if (fault.isEmpty())
            fault = QString::fromLatin1("line %1: %2.").arg(QString::number(qMax(node.line, 1)), reason);
    }

    QString textOf(const YamlNode &node, const char *key)
    {
        const YamlNode value = node.value(QLatin1String(key));
        if (value.kind != YamlNode::Nothing && value.kind != YamlNode::Scalar)
            fail(value, QString::fromLatin1("\"%1\" must be a text").arg(QLatin1String(key)));
        return value.text;
    }

    void readTop(const YamlNode &top)
    {
        QStringList names;
        if (top.kind == YamlNode::Scalar)
            names.append(top.text);
        for (const YamlNode &name : top.items)
            names.append(name.text);
        data.topModule = names.isEmpty() ? QString() : names.takeFirst();
        if (!names.isEmpty())
            notes.append(QString::fromLatin1("A project here has one top module, \"%1\"; left out: %2.")
                             .arg(data.topModule, quoted(names)));
    }

    void readFile(const YamlNode &entry)
    {
        const QString name = entry.kind == YamlNode::Scalar ? entry.text : textOf(entry, "name");
        const QString fileType = textOf(entry, "file_type");
        if (name.isEmpty())
            return fail(entry, QLatin1String("a file has no \"name\""));
        SourceFile file;
        file.path = QUtil::absoluteIn(m_folder, name);
        file.type = fileType.isEmpty() ? TE::fileTypeFromName(name) : typeOf(fileType);
        if (isTrue(entry.value(QLatin1String("is_include_file"))))
            return addIncludeFolder(textOf(entry, "include_path"), name);
        if (!TE::isDesignFileType(file.type)) {
            m_others[QLatin1String("the files of type ") + fileType].append(name);
            return;
        }
        if (file.type == TE::VhdlFile)
            file.library = textOf(entry, "logical_name");
        if (entry.keys.contains(QLatin1String("define")))
            notes.append(QString::fromLatin1("The macros of the file \"%1\" alone are left out.").arg(name));
        if (!m_known.contains(file.path))
            data.files.append(file);
        m_known.insert(file.path);
    }

    void addIncludeFolder(const QString &named, const QString &file)
    {
        const QString path = QDir::cleanPath(named.isEmpty() ? QFileInfo(file).path() : named);
        if (!data.includePaths.contains(path))
            data.includePaths.append(path);
    }

    void readParameters(const YamlNode &parameters)
    {
        if (parameters.kind != YamlNode::Nothing && parameters.kind != YamlNode::Map)
            return fail(parameters, QLatin1String("\"parameters\" must hold keys and values"));
        for (int i = 0; i < parameters.keys.size(); ++i)
            readParameter(parameters.keys.at(i), parameters.items.at(i));
    }

    // Without a default, the design keeps its own.
    void readParameter(const QString &name, const YamlNode &parameter)
    {
        const QString kind = textOf(parameter, "paramtype");
        const QString type = textOf(parameter, "datatype");
        const YamlNode given = parameter.value(QLatin1String("default"));
        QString value = textOf(parameter, "default");
        const bool isDefine = kind == QLatin1String("vlogdefine");
        const bool isGeneric = kind == QLatin1String("generic");
        if (!isDefine && !isGeneric && kind != QLatin1String("vlogparam")) {
            m_others[QLatin1String("the parameters of type ") + kind].append(name);
            return;
        }
        if (given.kind == YamlNode::Nothing)
            return;
        if (type == QLatin1String("bool"))
            value = isGeneric ? QLatin1String(isTrue(given) ? "true" : "false")
                              : QLatin1String(isTrue(given) ? "1" : "0");
        else if (type == QLatin1String("str") && !isDefine && !isGeneric)
            value = QLatin1Char('"') + value + QLatin1Char('"');
        (isDefine ? data.defines : data.parameters).append(name + QLatin1Char('=') + value);
    }

    void noteRest()
    {
        QStringList unknown = m_root.keys;
        for (const char *key : knownKeys)
            unknown.removeAll(QLatin1String(key));
        if (!unknown.isEmpty())
            notes.append(QString::fromLatin1("Not understood, and left out: %1.").arg(quoted(unknown)));
        for (const QString &kind : m_others.keys())
            notes.append(
                QString::fromLatin1("Left out of %1: %2.").arg(kind.trimmed(), quoted(m_others.value(kind))));
    }

    const YamlNode &m_root;
    QString m_folder;
    QSet<QString> m_known;
    QMap<QString, QStringList> m_others; // what says nothing about the nets, by its kind
};

} // namespace

bool projectFromEdam(const QByteArray &bytes, const QString &folder, ProjectData &data, QStringList &notes,
                     QString &fault)
{
    YamlNode root;
    if (!readYaml(bytes, root, fault))
        return false;
    EdamReader reader(root, folder);
    reader.read();
    fault = reader.fault;
    if (!fault.isEmpty())
        return false;
    data = reader.data;
    notes += reader.notes;
    return true;
}

} // namespace Core

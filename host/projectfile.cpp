#include "host/projectfile.h"

#include <QDir>
#include <QStringList>

#include <cmath>
#include <limits>
#include <nlohmann/json.hpp>

#include "host/absolutepath.h"
#include "host/filetypes.h"
#include "host/jsonfault.h"
#include "host/utf8.h"

namespace Core {
namespace {

typedef nlohmann::ordered_json Json;

const int formatVersion = 1;

const char otherType[] = "Other";

// Takes values out of one object of the document and remembers the first thing that is wrong with it.
class ObjectReader
{
public:
    ObjectReader(const Json &object, const QString &where) : m_object(object), m_where(where)
    {
        if (!object.is_object())
            setFault(QString::fromLatin1("%1 must be an object.").arg(where));
    }

    QString text(const char *key)
    {
        const Json *value = find(key);
        if (!value)
            return QString();
        if (!value->is_string())
            return setFault(QString::fromLatin1("%1 must be a text.").arg(name(key))), QString();
        return text(key, *value);
    }

    bool flag(const char *key, bool missing)
    {
        const Json *value = find(key);
        if (!value)
            return missing;
        if (!value->is_boolean())
            setFault(QString::fromLatin1("%1 must be true or false.").arg(name(key)));
        return value->is_boolean() && value->get<bool>();
    }

    // Numbers beyond the range of int become its limits.
    int number(const char *key, int missing)
    {
        const Json *value = find(key);
        if (!value)
            return missing;
        const double number = value->is_number() ? value->get<double>() : 0.5;
        if (number != std::floor(number))
            return setFault(QString::fromLatin1("%1 must be a whole number.").arg(name(key))), missing;
        return int(
            qBound(double(std::numeric_limits<int>::min()), number, double(std::numeric_limits<int>::max())));
    }

    const Json *list(const char *key)
    {
        const Json *value = find(key);
        if (!value || value->is_array())
            return value;
        setFault(QString::fromLatin1("%1 must be a list.").arg(name(key)));
        return nullptr;
    }

    QStringList texts(const char *key)
    {
        QStringList result;
        const Json *values = list(key);
        for (size_t i = 0; values && i < values->size(); ++i) {
            const Json &value = (*values)[i];
            if (!value.is_string()) {
                setFault(QString::fromLatin1("%1 must hold texts only.").arg(name(key)));
                break;
            }
            result.append(text(key, value));
        }
        return result;
    }

    const Json *find(const char *key)
    {
        m_known.append(QLatin1String(key));
        if (!m_object.is_object())
            return nullptr;
        const Json::const_iterator found = m_object.find(key);
        return found == m_object.end() ? nullptr : &*found;
    }

    QString name(const char *key) const
    {
        const QString quoted = QString::fromLatin1("\"%1\"").arg(QLatin1String(key));
        return m_where.isEmpty() ? quoted : m_where + QLatin1String(", ") + quoted;
    }

    void setFault(const QString &fault)
    {
        if (m_fault.isEmpty())
            m_fault = fault;
    }

    // The first fault, keys that were never asked for included; empty when all is well.
    QString finish()
    {
        for (Json::const_iterator it = m_object.begin(); m_object.is_object() && it != m_object.end(); ++it) {
            const QString key = QUtil::fromUtf8(it.key());
            if (!m_known.contains(key))
                setFault(QString::fromLatin1("%1 is not known here.").arg(name(key.toUtf8().constData())));
        }
        return m_fault;
    }

private:
    // The system takes the first NUL of a name for its end.
    QString text(const char *key, const Json &value)
    {
        const QString text = QUtil::fromUtf8(value.get_ref<const std::string &>());
        if (text.contains(QChar(0)))
            setFault(QString::fromLatin1("%1 holds a NUL character.").arg(name(key)));
        return text;
    }

    const Json &m_object;
    QString m_where;
    QString m_fault;
    QStringList m_known;
};

// The name of a type in the file; empty for one that is written nowhere.
QString typeName(int type)
{
    const TE::SourceType *row = TE::sourceType(type);
    return row ? QLatin1String(row->name) : QLatin1String(type == TE::ConfigFile ? otherType : "");
}

int typeFromText(const QString &text)
{
    for (const TE::SourceType &row : TE::sourceTypes) {
        if (text == QLatin1String(row.name))
            return row.type;
    }
    return text == QLatin1String(otherType) ? TE::ConfigFile : TE::UnknownFile;
}

QString allTypeNames()
{
    QStringList names;
    for (const TE::SourceType &row : TE::sourceTypes)
        names.append(QLatin1String(row.name));
    return names.join(QLatin1String(", ")) + QLatin1String(" or ") + QLatin1String(otherType);
}

QString readFile(const Json &entry, int index, const QString &folder, SourceFile &file)
{
    const QString where = QString::fromLatin1("\"files\", entry %1").arg(index + 1);
    ObjectReader reader(entry, where);
    const QString path = reader.text("path");
    const QString type = reader.text("type");
    file.enabled = reader.flag("enabled", true);
    file.library = reader.text("library");
    file.onlyWhenUsed = reader.flag("onlyWhenUsed", false);
    file.path = QUtil::absoluteIn(folder, path);
    file.type = type.isEmpty() ? TE::fileTypeFromName(path) : typeFromText(type);
    if (path.isEmpty())
        reader.setFault(QString::fromLatin1("%1 is missing.").arg(reader.name("path")));
    if (file.type == TE::UnknownFile)
        reader.setFault(QString::fromLatin1("%1 must be %2.").arg(reader.name("type"), allTypeNames()));
    return reader.finish();
}

QString readDevice(const Json *object, DEV::DeviceArg &device)
{
    if (!object)
        return QString();
    ObjectReader reader(*object, QLatin1String("\"device\""));
    device.series = reader.text("series");
    device.device = reader.text("device");
    device.package = reader.text("package");
    device.partNumber = reader.text("partNumber");
    return reader.finish();
}

QString readProject(const Json &document, const QString &folder, ProjectData &data)
{
    ObjectReader reader(document, QString());
    if (!document.is_object())
        return QLatin1String("it must hold one object.");
    const int version = reader.number("version", 0);
    if (version > formatVersion)
        return QString::fromLatin1("its version %1 is newer than this program.")
            .arg(QUtil::fromUtf8(document.at("version").dump()));
    if (version < 1)
        reader.setFault(QLatin1String(document.contains("version") ? "\"version\" must be 1."
                                                                   : "\"version\" is missing."));
    data.name = reader.text("name");
    const Json *files = reader.list("files");
    for (size_t i = 0; files && i < files->size(); ++i) {
        SourceFile file;
        const QString fault = readFile((*files)[i], int(i), folder, file);
        if (!fault.isEmpty())
            reader.setFault(fault);
        data.files.append(file);
    }
    for (const ProjectOption &option : projectOptions) {
        if (option.text)
            data.*option.text = reader.text(option.key);
        else
            data.*option.list = reader.texts(option.key);
    }
    const QString fault = readDevice(reader.find("device"), data.device);
    if (!fault.isEmpty())
        reader.setFault(fault);
    return reader.finish();
}

Json textList(const QStringList &texts)
{
    Json list = Json::array();
    for (const QString &text : texts)
        list.push_back(QUtil::toUtf8(text));
    return list;
}

// Everything but the path is left out where it is what a reader assumes anyway.
Json fileObject(const SourceFile &file, const QString &folder)
{
    Json object;
    object["path"] = QUtil::toUtf8(QDir(folder).relativeFilePath(file.path));
    const QString type = typeName(file.type);
    if (file.type != TE::fileTypeFromName(file.path) && !type.isEmpty())
        object["type"] = QUtil::toUtf8(type);
    if (!file.enabled)
        object["enabled"] = false;
    if (!file.library.isEmpty())
        object["library"] = QUtil::toUtf8(file.library);
    if (file.onlyWhenUsed)
        object["onlyWhenUsed"] = true;
    return object;
}

Json deviceObject(const DEV::DeviceArg &device)
{
    Json object;
    object["series"] = QUtil::toUtf8(device.series);
    object["device"] = QUtil::toUtf8(device.device);
    object["package"] = QUtil::toUtf8(device.package);
    object["partNumber"] = QUtil::toUtf8(device.partNumber);
    return object;
}

} // namespace

bool projectFromJson(const QByteArray &bytes, const QString &folder, ProjectData &data, QString &fault)
{
    fault = jsonFault(bytes);
    if (!fault.isEmpty())
        return false;
    const Json document = Json::parse(bytes.constData(), bytes.constData() + bytes.size(), nullptr, false);
    ProjectData read;
    fault = readProject(document, folder, read);
    if (!fault.isEmpty())
        return false;
    data = read;
    return true;
}

QByteArray projectToJson(const ProjectData &data, const QString &folder)
{
    Json document;
    document["version"] = formatVersion;
    document["name"] = QUtil::toUtf8(data.name);
    document["files"] = Json::array();
    for (const SourceFile &file : data.files)
        document["files"].push_back(fileObject(file, folder));
    for (const ProjectOption &option : projectOptions) {
        const bool isEmpty = option.text ? (data.*option.text).isEmpty() : (data.*option.list).isEmpty();
        if (!isEmpty || !option.is(OptionalTrait))
            document[option.key] =
                option.text ? Json(QUtil::toUtf8(data.*option.text)) : textList(data.*option.list);
    }
    document["device"] = deviceObject(data.device);
    const std::string text = document.dump(2, ' ', false, Json::error_handler_t::replace) + '\n';
    return QByteArray(text.data(), int(text.size()));
}

} // namespace Core

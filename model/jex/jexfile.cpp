#include "model/jex/jexfile.h"

#include <QCoreApplication>
#include <QDebug>

#include "host/atomicfile.h"
#include "host/eventmanager.h"
#include "model/jex/zubinput.h"
#include "model/jex/zubreader.h"
#include "model/jex/zubwriter.h"

namespace JEX {

namespace {

template <class Core>
QList<Core *> readCores(const QString &path, bool *ok, QString *errorMessage)
{
    QList<Core *> cores;
    QByteArray bytes;
    QString error;
    if (readZubFile(path, &bytes, &error)) {
        ZubReader reader(bytes, path);
        cores = reader.cores<Core>();
        error = reader.error();
    }
    if (ok)
        *ok = error.isEmpty();
    if (errorMessage && !error.isEmpty())
        *errorMessage = error;
    return cores;
}

// For the host to show, whoever else takes the sentence.
void tellNotWritten(const QString &path, const QString &error)
{
    QMap<QString, QVariant> data;
    data.insert(QLatin1String("file"), path);
    data.insert(QLatin1String("error"), error);
    QUtil::EventManager::instance()->post(QLatin1String(NotWrittenTopic), data);
}

} // namespace

bool writeCores(const CoreList &cores, const QString &path, QString *errorMessage)
{
    QByteArray bytes;
    QString error;
    const bool isMade = zubFromCores(cores, &bytes, &error);
    if (isMade && QUtil::writeFileAtomically(path, bytes, &error))
        return true;
    if (!isMade)
        error = QCoreApplication::translate("JEX::JexFile", "The file \"%1\" is not written: %2")
                    .arg(path, error);
    if (errorMessage)
        *errorMessage = error;
    else
        qWarning() << "configuration not written:" << path << error;
    tellNotWritten(path, error);
    return false;
}

bool isFileOfMode(const QString &path, JexMode mode)
{
    QByteArray bytes;
    QString error;
    return mode != InvalidMode && readZubFile(path, &bytes, &error) &&
           ZubReader(bytes, path).isWellFormed(mode);
}

JexMode jexModeFromJexConfigFile(const QString &path)
{
    QByteArray bytes;
    QString error;
    return readZubFile(path, &bytes, &error) ? zubMode(bytes) : InvalidMode;
}

bool checkJEXStandardFile(const QString &path)
{
    return isFileOfMode(path, StandardMode);
}

bool checkJEXLiteFile(const QString &path)
{
    return isFileOfMode(path, LiteMode);
}

QList<AoCore *> readJEXConfigFromXml(const QString &path, bool *ok, QString *errorMessage)
{
    return readCores<AoCore>(path, ok, errorMessage);
}

QList<AOCore_Lite *> readJEXConfigFromXml_Lite(const QString &path, bool *ok, QString *errorMessage)
{
    return readCores<AOCore_Lite>(path, ok, errorMessage);
}

bool writeJEXConfigToXml(const QList<AoCore *> &cores, const QString &path)
{
    return writeCores(cores, path, nullptr);
}

bool writeJEXConfigToXml_Lite(const QList<AOCore_Lite *> &cores, const QString &path)
{
    return writeCores(cores, path, nullptr);
}

bool writeJEXConfigToXml(const QList<AoCore *> &cores, const QString &path, QString *errorMessage)
{
    return writeCores(cores, path, errorMessage);
}

bool writeJEXConfigToXml_Lite(const QList<AOCore_Lite *> &cores, const QString &path, QString *errorMessage)
{
    return writeCores(cores, path, errorMessage);
}

void fillInfoForEmptyJexConfig(const QString &path, JexMode mode)
{
    if (modeName(mode))
        writeCores(emptyListOf(mode), path, nullptr);
    else
        qWarning() << "no configuration of mode" << int(mode) << "exists:" << path;
}

} // namespace JEX

#pragma once

#include <QList>
#include <QString>

#include "model/jex/modes.h"

namespace JEX {

// The ".zub" file. Paths are absolute. Reading gives all records of a file or none; writing replaces the
// file in one step, and a failed write leaves the old file as it was and says why: by a host event with
// "file" and "error", and in the errorMessage, or where there is none in the debug output. The format is
// described in docs/zub-format.md.
constexpr char NotWrittenTopic[] = "JEX.File.NotWritten";

// The mode of a file; InvalidMode when it cannot be read or says none.
JexMode jexModeFromJexConfigFile(const QString &path);

// True when the whole file is well-formed XML and of the mode. What its values are worth is judged by
// reading, which can say what is wrong with them.
bool checkJEXStandardFile(const QString &path);
bool checkJEXLiteFile(const QString &path);

// The cores in file order, owned by the caller. On failure the list is empty, *ok false and the message a
// sentence that names file, line and fault. ok and errorMessage may be null.
QList<AoCore *> readJEXConfigFromXml(const QString &path, bool *ok, QString *errorMessage);
QList<AOCore_Lite *> readJEXConfigFromXml_Lite(const QString &path, bool *ok, QString *errorMessage);

bool writeJEXConfigToXml(const QList<AoCore *> &cores, const QString &path);
bool writeJEXConfigToXml_Lite(const QList<AOCore_Lite *> &cores, const QString &path);
bool writeJEXConfigToXml(const QList<AoCore *> &cores, const QString &path, QString *errorMessage);
bool writeJEXConfigToXml_Lite(const QList<AOCore_Lite *> &cores, const QString &path, QString *errorMessage);

// The same for who handles all modes alike; false for InvalidMode.
bool isFileOfMode(const QString &path, JexMode mode);
bool writeCores(const CoreList &cores, const QString &path, QString *errorMessage);

// Writes a file of the mode without cores. Overwrites.
void fillInfoForEmptyJexConfig(const QString &path, JexMode mode);

} // namespace JEX

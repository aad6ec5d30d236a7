#pragma once

#include <QByteArray>
#include <QString>

#include "host/project.h"

namespace Core {

// The project file's text, described in docs/project-file.md. Paths of sources are relative to `folder`
// in the text and absolute in the record. Reading is strict, so that a mistyped key is reported and not
// lost by the next save; on failure `data` is untouched and `fault` tells line or key.
bool projectFromJson(const QByteArray &bytes, const QString &folder, ProjectData &data, QString &fault);
QByteArray projectToJson(const ProjectData &data, const QString &folder);

} // namespace Core

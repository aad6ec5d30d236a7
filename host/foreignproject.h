#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

#include "host/project.h"

namespace Core {

// Whether a name is that of a project of some kind: one of our own, or one that other tools made.
bool isProjectName(const QString &path);
// "vhdl_ls.toml" and other ".toml" files, "design.eda.yml" or ".yaml".
bool isForeignProject(const QString &path);

// Reads what other tools made, by the file's name. Paths are relative to `folder` in the text and absolute in
// the record. `notes` gets a sentence for everything that was not understood or has no place in our projects;
// on failure `data` is untouched and `fault` tells what is wrong where, in a sentence.
bool readForeignProject(const QString &path, const QByteArray &bytes, const QString &folder,
                        ProjectData &data, QStringList &notes, QString &fault);

// The kinds: the libraries of vhdl_ls.toml with their files, and EDAM, in which FuseSoC hands over designs.
bool projectFromVhdlLs(const QByteArray &bytes, const QString &folder, ProjectData &data, QStringList &notes,
                       QString &fault);
bool projectFromEdam(const QByteArray &bytes, const QString &folder, ProjectData &data, QStringList &notes,
                     QString &fault);

} // namespace Core

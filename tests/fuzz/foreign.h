#pragma once

#include "host/foreignproject.h"
#include "host/projectfile.h"
#include "tests/fuzz/fuzz.h"

namespace Fuzz {

// What was read of another tool's project is one that can be saved as our own.
template <typename Read>
void readForeignProject(const QByteArray &bytes, Read read)
{
    const QString folder = QStringLiteral(EXAMPLE_DIR);
    Core::ProjectData project;
    QStringList notes;
    QString fault;
    if (!read(bytes, folder, project, notes, fault)) {
        claim(fault.endsWith(QLatin1Char('.')), "what is refused comes with a sentence");
        claim(project.files.isEmpty() && notes.isEmpty(), "what is refused changes nothing");
        return;
    }
    for (const QString &note : notes)
        claim(note.endsWith(QLatin1Char('.')), "notes are sentences");
    const QByteArray saved = Core::projectToJson(project, folder);
    Core::ProjectData again;
    claim(Core::projectFromJson(saved, folder, again, fault), "what was saved can be read");
    claim(again.files.size() == project.files.size(), "no file is lost");
}

} // namespace Fuzz

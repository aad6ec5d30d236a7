#include "host/projectfile.h"
#include "tests/fuzz/fuzz.h"

// A project file.
void Fuzz::look(const QByteArray &bytes)
{
    const QString folder = QStringLiteral("/work");
    Core::ProjectData project;
    QString fault;
    if (!Core::projectFromJson(bytes, folder, project, fault)) {
        Fuzz::claim(fault.endsWith(QLatin1Char('.')), "what is refused comes with a sentence");
        Fuzz::claim(project.files.isEmpty() && project.name.isEmpty(), "what is refused changes nothing");
        return;
    }
    const QByteArray saved = Core::projectToJson(project, folder);
    Core::ProjectData again;
    Fuzz::claim(Core::projectFromJson(saved, folder, again, fault), "what was saved can be read");
    Fuzz::claim(Core::projectToJson(again, folder) == saved, "saving what was saved changes nothing");
}

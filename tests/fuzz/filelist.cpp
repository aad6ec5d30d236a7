#include "host/filelist.h"
#include "tests/fuzz/fuzz.h"

// A list of sources, whose names are looked for beside the example's.
void Fuzz::look(const QByteArray &bytes)
{
    Core::ProjectData project;
    QStringList messages;
    const QString folder = QStringLiteral(EXAMPLE_DIR);
    const bool isRead = Core::readFileList(Fuzz::file(bytes), folder, project, messages);
    Fuzz::claim(isRead || !messages.isEmpty(), "what is refused comes with a sentence");
    Fuzz::claim(isRead || project.files.isEmpty(), "what is refused changes nothing");
    for (const QString &message : messages)
        Fuzz::claim(message.endsWith(QLatin1Char('.')), "messages are sentences");
}

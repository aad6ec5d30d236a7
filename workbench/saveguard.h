#pragma once

#include <QMap>
#include <QStringList>

#include "host/iview.h"

class QWidget;

namespace Workbench {

// Asks before a file is written when that could take something along: what somebody else has changed in it
// meanwhile, or what a new file in its place would not have. What the user has agreed to is not asked again.
class SaveGuard
{
public:
    explicit SaveGuard(QWidget *window) : m_window(window) {}

    enum Occasion {
        Saving, // instead of overwriting, the user can have the file read again
        Closing // and here the changes dropped
    };
    enum Answer { NothingToAsk, Write, Otherwise, Cancel };
    Answer ask(const Core::EditedFile &file, Occasion occasion);

private:
    struct Agreement
    {
        QUtil::FileMark overwritten;
        QStringList reasons; // to write in place
    };

    QWidget *m_window;
    QMap<QString, Agreement> m_agreed; // by path
};

} // namespace Workbench

#pragma once

#include <QObject>

class QMenu;

namespace Workbench {

// The command that puts a copy of a core behind the last one, with the first free number: in Standard files,
// whose editor has a list of cores. It works on the state that the editor hands over, unsaved edits included.
class DuplicateCore : public QObject
{
    Q_OBJECT

public:
    DuplicateCore(QMenu *editMenu, QObject *parent);

private:
    void fill();
    void duplicate(int number);

    QMenu *m_menu; // an entry for each core
};

} // namespace Workbench

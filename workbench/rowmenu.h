#pragma once

#include <QObject>

class QMenu;

namespace Workbench {

class RowFinder;

// Entries of the Edit menu about the rows of the list that is shown: finding one, and moving those that are
// selected.
class RowMenu : public QObject
{
    Q_OBJECT

public:
    RowMenu(QMenu *menu, RowFinder *finder); // neither owned
};

} // namespace Workbench

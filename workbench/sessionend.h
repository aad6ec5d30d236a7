#pragma once

#include <QObject>

class QSessionManager;

namespace Workbench {

class MainWindow;

// The end of the desktop's session. Where its manager lets the user be asked, that is done as Quit does it;
// else what is edited is kept, and the window goes on until the manager says that the program has to end.
class SessionEnd : public QObject
{
    Q_OBJECT

public:
    explicit SessionEnd(MainWindow *window); // which attends, and owns it

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void prepare(QSessionManager &manager);

    MainWindow *m_window;
};

} // namespace Workbench

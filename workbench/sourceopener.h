#pragma once

#include <QObject>

class QSettings;
class QWidget;

namespace Workbench {

struct SourcePlace;

// Shows sources to the user: by the command of the user's own choice, else in the workbench's own tab. No
// project can set the command.
class SourceOpener : public QObject
{
    Q_OBJECT

public:
    SourceOpener(QSettings *settings, QWidget *window); // neither owned; the first may be null

    void open(const SourcePlace &place);
    void askCommand();

Q_SIGNALS:
    void message(const QString &text, bool isError);

private:
    QSettings *m_settings;
    QWidget *m_window;
};

} // namespace Workbench

#pragma once

#include <QWidget>

class QLabel;
class QPushButton;

namespace Workbench {

// How the project file on the disk and the open project go together.
enum class ProjectFile { Same, Changed, Removed };

// A strip that asks what is to be done when the project file was changed or removed outside. Hidden when
// there is nothing to ask.
class ProjectBanner : public QWidget
{
    Q_OBJECT

public:
    explicit ProjectBanner(QWidget *parent = nullptr);

    void showState(ProjectFile state, const QString &path);

Q_SIGNALS:
    void reload();
    void keepIt();
    void closeIt();

private:
    QLabel *m_text;
    QPushButton *m_reload;
    QPushButton *m_keep;
    QPushButton *m_close;
};

} // namespace Workbench

#pragma once

#include <QWidget>

class QLabel;
class QPushButton;

namespace Workbench {

class DesignNetlist;
class Recovery;

// A strip for files that were closed since their design cannot be read: when it can be, one click opens them
// again with all that was edited. Hidden when there is none.
class ReopenBanner : public QWidget
{
    Q_OBJECT

public:
    ReopenBanner(Recovery *recovery, DesignNetlist *design, QWidget *parent = nullptr);

private:
    void update();

    Recovery *m_recovery;
    DesignNetlist *m_design;
    QLabel *m_text;
    QPushButton *m_open;
};

} // namespace Workbench

#pragma once

#include <QObject>

class QSettings;
class QWidget;

namespace Workbench {

// Keeps the size of a window of the workbench and the widths of its columns until it is opened the next time.
class WindowMemory : public QObject
{
    Q_OBJECT

public:
    // Where all windows are kept; not owned. Null: nowhere.
    static void use(QSettings *settings);
    // Call it when the window is complete, before it is shown. The name stands for it in the settings.
    static void keep(QWidget *window, const QString &name);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    WindowMemory(QWidget *window, const QString &name);
    void restore();
    void save() const;

    QWidget *m_window; // the parent
    QString m_key;
};

} // namespace Workbench

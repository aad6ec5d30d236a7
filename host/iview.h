#pragma once

#include <QString>
#include <QWidget>

namespace Core {

// A view that the host shows in a tab. The window title is the tab's tool tip, the short title its text.
class IView : public QWidget
{
    Q_OBJECT

public:
    explicit IView(QWidget *parent = nullptr);

    virtual void onActivated();   // the view became the active one; does nothing here
    virtual void onDeactivated(); // another one did; does nothing here

    QString shortTitle() const;
    void setShortTitle(const QString &title);

Q_SIGNALS:
    void shortTitleChanged(const QString &title);

private:
    QString m_shortTitle;
};

} // namespace Core

#pragma once

#include <QList>
#include <QString>
#include <QVariant>
#include <QWidget>

namespace Core {

// Something that a view finds at fault in what it shows, for the host to list.
struct Finding
{
    QString text;   // one line
    QVariant place; // the view knows what it means
};

// A view that the host shows in a tab. The window title is the tab's tool tip, the short title its text.
class IView : public QWidget
{
    Q_OBJECT

public:
    explicit IView(QWidget *parent = nullptr);

    virtual void onActivated();   // the view became the active one; does nothing here
    virtual void onDeactivated(); // another one did; does nothing here

    // What is at fault now; nothing here. A view says with tellFindings() when that may have changed.
    virtual QList<Finding> findings() const;
    virtual void showFinding(const Finding &finding); // brings its place into view; does nothing here
    void tellFindings();

    QString shortTitle() const;
    void setShortTitle(const QString &title);

Q_SIGNALS:
    void shortTitleChanged(const QString &title);
    void findingsChanged();

private:
    QString m_shortTitle;
};

} // namespace Core

#pragma once

#include <QPointer>
#include <QWidget>

namespace Core {

class IView;

// The page of one view's tab. Owns the view; tells when it is closed, by whomever, and never refuses.
class ViewContainer : public QWidget
{
    Q_OBJECT

public:
    explicit ViewContainer(IView *view);

    IView *view() const; // null once the view has died

Q_SIGNALS:
    void closed(QWidget *container);

protected:
    void closeEvent(QCloseEvent *event) override;

private:
    QPointer<IView> m_view;
};

} // namespace Core

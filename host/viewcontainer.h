#pragma once

#include <QWidget>

namespace Core {

class IView;

// The page of one view's tab. Holds the view as its child; tells when it is closed, by whomever, and never
// refuses.
class ViewContainer : public QWidget
{
    Q_OBJECT

public:
    explicit ViewContainer(IView *view);
    ~ViewContainer() override;

Q_SIGNALS:
    void closed(QWidget *container); // the view goes with it
    void dying(QWidget *container);  // with its view, unasked: the tabs themselves may be going

protected:
    void closeEvent(QCloseEvent *event) override;
};

} // namespace Core

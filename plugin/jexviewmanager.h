#pragma once

#include <QList>
#include <QObject>
#include <QString>

#include "host/devicearg.h"

namespace Core {
class IView;
}

namespace RTLJEX {

class JexInserterView;
struct JexViewManagerPrivate;

// Opens configuration files in editors, knows which are open, and serves the host's Save command while one
// of them is active. The one instance exists from the loading of the library to deinit(); the host owns
// the views.
class JexViewManager : public QObject
{
    Q_OBJECT

public:
    static JexViewManager *instance();

    void initialize(); // once, when the host is up
    void deinit();     // ends the instance: nothing of it may be used afterwards

    // Shows the file's editor, opening one if there is none. False: the user has been told why not. A file
    // that is just being opened counts as open, and shows when it is ready.
    bool openInserterView(const QString &fileName, const DEV::DeviceArg &device);
    // Asks the host to close the file's editor; false when there is none.
    bool closeInserterView(const QString &fileName);
    QList<JexInserterView *> jexViews() const; // in order of opening

public Q_SLOTS:
    void onCurrentViewChanged(Core::IView *view);
    void onInserterViewClosed(Core::IView *view);
    void onInserterViewModified(bool modified);
    void onActSave();

private Q_SLOTS:
    void onViewDestroyed(QObject *view); // a view that died without a word from the host

private:
    JexViewManager();
    ~JexViewManager() override;

    JexInserterView *findView(const QString &fileName) const;
    JexInserterView *openNewView(const QString &fileName);
    void dropView(QObject *view);
    void refreshSaveAction();

    static JexViewManager *s_instance;
    JexViewManagerPrivate *d; // owned, deleted by deinit()
};

} // namespace RTLJEX

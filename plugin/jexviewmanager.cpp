#include "plugin/jexviewmanager.h"

#include <QAction>
#include <QDebug>
#include <QDir>
#include <QFileInfo>
#include <QScopedPointer>
#include <QStringList>

#include "host/actionmanager.h"
#include "host/modal.h"
#include "host/plaintooltip.h"
#include "host/viewmanager.h"
#include "model/jex/jexfile.h"
#include "plugin/jexinserterview.h"
#include "views/jexliteinserterview.h"
#include "views/jexstandardinserterview.h"

namespace RTLJEX {

static const char contextId[] = "RTLJEX.JexViewManager.Context";

struct JexViewManagerPrivate
{
    QAction *saveAction = nullptr;          // child of the manager
    JexInserterView *currentView = nullptr; // the last active one of ours, also while another kind is active
    QList<JexInserterView *> views;
    bool currentIsInserter = false;
    QStringList opening; // absolute paths of the files whose views are loading
};

JexViewManager *JexViewManager::s_instance = new JexViewManager;

JexViewManager::JexViewManager() : d(new JexViewManagerPrivate)
{
}

JexViewManager::~JexViewManager()
{
}

JexViewManager *JexViewManager::instance()
{
    return s_instance;
}

void JexViewManager::initialize()
{
    d->saveAction = new QAction(this);
    Core::ActionManager::registerAction(d->saveAction, "Core.Action.Save", contextId);
    d->saveAction->setEnabled(false);
    connect(d->saveAction, SIGNAL(triggered()), this, SLOT(onActSave()));
    Core::ViewManager *host = Core::ViewManager::instance();
    connect(host, SIGNAL(viewActiveted(Core::IView *)), this, SLOT(onCurrentViewChanged(Core::IView *)));
    connect(host, SIGNAL(viewClosed(Core::IView *)), this, SLOT(onInserterViewClosed(Core::IView *)));
}

void JexViewManager::deinit()
{
    delete d;
    delete s_instance;
}

bool JexViewManager::openInserterView(const QString &fileName, const DEV::DeviceArg &device)
{
    if (JexInserterView *open = findView(fileName)) {
        Core::ViewManager::instance()->showView(open);
        return true;
    }
    const QString path = QFileInfo(fileName).absoluteFilePath();
    if (d->opening.contains(path))
        return true;
    d->opening << path;
    JexInserterView *view = openNewView(fileName);
    d->opening.removeAll(path);
    if (!view)
        return false;
    qDebug() << "create jexins inserter: " << view;
    view->device = device.partNumber;
    d->views << view;
    connect(view, SIGNAL(modificationStatusChanged(bool)), this, SLOT(onInserterViewModified(bool)));
    connect(view, SIGNAL(destroyed(QObject *)), this, SLOT(onViewDestroyed(QObject *)));
    Core::ViewManager::instance()->registerContext(view, contextId, true);
    Core::ViewManager::instance()->showView(view);
    return true;
}

// Does not compile without a case for each mode.
static JexInserterView *viewOfMode(JEX::JexMode mode)
{
    switch (mode) {
    case JEX::StandardMode:
        return new JexStandardInserterView(nullptr);
    case JEX::LiteMode:
        return new JexLiteInserterView(nullptr);
    case JEX::InvalidMode:
        break;
    }
    return nullptr;
}

// Tells the user why when it fails.
JexInserterView *JexViewManager::openNewView(const QString &fileName)
{
    QWidget *parent = Core::ViewManager::instance()->dialogParent();
    QScopedPointer<JexInserterView> view(viewOfMode(JEX::jexModeFromJexConfigFile(fileName)));
    if (!view) {
        QUtil::messageBox(parent, QMessageBox::Critical, tr("Error"),
                          tr("Can not open %1:\nInvalid JEX file.").arg(QDir::toNativeSeparators(fileName)));
        return nullptr;
    }
    // Not shown yet, but its message boxes are centred on it.
    if (parent)
        view->setGeometry(parent->window()->geometry());
    QString error;
    if (view->open(fileName, QString(), &error))
        return view.take();
    if (!error.isEmpty())
        QUtil::messageBox(parent, QMessageBox::Critical, tr("Error"), error);
    return nullptr;
}

bool JexViewManager::closeInserterView(const QString &fileName)
{
    JexInserterView *view = findView(fileName);
    if (view)
        Core::ViewManager::instance()->closeView(view);
    return view;
}

QList<JexInserterView *> JexViewManager::jexViews() const
{
    return d->views;
}

JexInserterView *JexViewManager::findView(const QString &fileName) const
{
    const QString path = QFileInfo(fileName).absoluteFilePath();
    for (JexInserterView *view : d->views) {
        if (QFileInfo(view->file()).absoluteFilePath() == path)
            return view;
    }
    return nullptr;
}

void JexViewManager::onCurrentViewChanged(Core::IView *view)
{
    JexInserterView *inserter = qobject_cast<JexInserterView *>(view);
    d->currentIsInserter = inserter;
    if (inserter) {
        d->currentView = inserter;
        refreshSaveAction();
    } else {
        d->saveAction->setEnabled(false);
    }
}

void JexViewManager::onInserterViewModified(bool)
{
    JexInserterView *view = qobject_cast<JexInserterView *>(sender());
    if (!view || view != d->currentView)
        return;
    if (d->currentIsInserter)
        refreshSaveAction();
    else
        d->saveAction->setEnabled(false);
}

void JexViewManager::onInserterViewClosed(Core::IView *view)
{
    if (qobject_cast<JexInserterView *>(view))
        dropView(view);
}

void JexViewManager::onViewDestroyed(QObject *view)
{
    dropView(view);
}

// Only compares the view: it may be half destroyed.
void JexViewManager::dropView(QObject *view)
{
    for (int i = d->views.size() - 1; i >= 0; --i) {
        if (d->views.at(i) == view)
            d->views.removeAt(i);
    }
    if (d->currentView == view) {
        d->currentView = nullptr;
        d->currentIsInserter = false;
    }
    if (d->currentIsInserter)
        refreshSaveAction();
    else
        d->saveAction->setEnabled(false);
}

void JexViewManager::onActSave()
{
    if (d->currentView && d->currentView->isModified())
        d->currentView->save();
}

void JexViewManager::refreshSaveAction()
{
    const QString title = d->currentView->windowTitle();
    d->saveAction->setText(tr("&Save \"%1\"").arg(title));
    d->saveAction->setToolTip(QUtil::plainToolTip(tr("Save \"%1\"").arg(title)));
    d->saveAction->setEnabled(d->currentView->isModified());
}

} // namespace RTLJEX

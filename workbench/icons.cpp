#include "workbench/icons.h"

#include <QApplication>
#include <QIcon>
#include <QMenu>
#include <QMenuBar>
#include <QPalette>
#include <QStandardPaths>

#include <algorithm>
#include <iterator>

static void initializeImages()
{
    Q_INIT_RESOURCE(workbench);
}

namespace Workbench {
namespace {

// The source text of an entry, and the class that translates it.
const struct
{
    const char *context;
    const char *text;
    const char *icon;
} icons[] = {
    {"Workbench::MainWindow", "&About", "help-about"},
    {"Workbench::MainWindow", "Add &Files...", "list-add"},
    {"Workbench::FileMenu", "Chec&k", "document-properties"},
    {"Workbench::MainWindow", "&Close", "document-close"},
    {"Workbench::FileMenu", "Clos&e All", "window-close"},
    {"Workbench::Recovery", "Close as &Draft", "document-edit"},
    {"Workbench::MainWindow", "&Close Project", "project-development-close"},
    {"Workbench::SignalTransfer", "&Copy Signals", "edit-copy"},
    {"Workbench::MainWindow", "&Device...", "cpu"},
    {"Workbench::DuplicateCore", "&Duplicate Core", "tab-duplicate"},
    {"Workbench::RowMenu", "&Find...", "edit-find"},
    {"Workbench::RowMenu", "Find &Next", "go-down-search"},
    {"Workbench::RowMenu", "Find Pre&vious", "go-up-search"},
    {"Workbench::DeclarationCommand", "Go to &Declaration", "go-jump-declaration"},
    {"Workbench::MainWindow", "&Guide", "help-contents"},
    {"Workbench::RunMenu", "&Insert into Design...", "run-build"},
    {"Workbench::RowMenu", "Move Rows D&own", "go-down"},
    {"Workbench::RowMenu", "&Move Rows Up", "go-up"},
    {"Workbench::MessagePane", "C&lear", "edit-clear-all"},
    {"Workbench::MessagePane", "&Copy", "edit-copy"},
    {"Workbench::MessagePane", "Sa&ve...", "document-save"},
    {"Workbench::MessagePane", "&Show", "go-jump"},
    {"Workbench::MainWindow", "&New...", "document-new"},
    {"Workbench::MainWindow", "&New Project...", "project-development-new-template"},
    {"Workbench::MainWindow", "&Open...", "document-open"},
    {"Workbench::MainWindow", "&Open Project...", "project-open"},
    {"Workbench::RunMenu", "&Open Waveform", "view-statistics"},
    {"Workbench::MainWindow", "O&ptions...", "configure"},
    {"Workbench::SignalTransfer", "&Paste Signals", "edit-paste"},
    {"Workbench::ProjectTree", "&Open", "document-open"},
    {"Workbench::ProjectTree", "&Remove from Project", "list-remove"},
    {"Workbench::MainWindow", "&Quit", "application-exit"},
    {"Workbench::FileMenu", "Recent &Files", "document-open-recent"},
    {"Workbench::FileMenu", "&Recent Projects", "document-open-recent"},
    {"Workbench::EditMenu", "&Redo", "edit-redo"},
    {"Workbench::FileMenu", "Re&load", "view-refresh"},
    {"Workbench::MainWindow", "&Remove Files", "list-remove"},
    {"Workbench::MainWindow", "&Save", "document-save"},
    {"Workbench::FileMenu", "Sa&ve All", "document-save-all"},
    {"Workbench::FileMenu", "Save &As...", "document-save-as"},
    {"Workbench::MainWindow", "&Save Project", "document-save"},
    {"Workbench::MainWindow", "Save Project &As...", "document-save-as"},
    {"Workbench::RunMenu", "&Simulate Capture...", "media-playback-start"},
    {"Workbench::MainWindow", "Source Co&mmand...", "utilities-terminal"},
    {"Workbench::EditMenu", "&Undo", "edit-undo"},
    {"QWhatsThisAction", "What's This?", "help-contextual"},
};

void setIconOf(QAction *action)
{
    const auto *found = std::find_if(std::begin(icons), std::end(icons), [action](const auto &entry) {
        return action->text() == QCoreApplication::translate(entry.context, entry.text);
    });
    if (found != std::end(icons))
        action->setIcon(QIcon::fromTheme(found->icon));
}

} // namespace

void chooseIcons()
{
    // Not all displays come with a desktop that says where icons are.
    const QStringList folders = QStandardPaths::locateAll(QStandardPaths::GenericDataLocation, "icons",
                                                          QStandardPaths::LocateDirectory);
    QStringList known = QIcon::themeSearchPaths();
    for (const QString &folder : folders) {
        if (!known.contains(folder))
            known << folder;
    }
    QIcon::setThemeSearchPaths(known);
    const bool isWhole = std::all_of(std::begin(icons), std::end(icons),
                                     [](const auto &entry) { return QIcon::hasThemeIcon(entry.icon); });
    const bool isDark = QApplication::palette().color(QPalette::Window).lightness() < 128;
    if (!isWhole)
        QIcon::setThemeName(isDark ? "breeze-dark" : "breeze");
}

void setIcons(QWidget *window, QMenuBar *menus)
{
    initializeImages();
    window->setWindowIcon(QIcon::fromTheme("jexworkbench", QIcon(":/workbench/jexworkbench.svg")));
    for (const QMenu *menu : menus->findChildren<QMenu *>())
        setIcons(menu);
}

void setIcons(const QMenu *menu)
{
    for (QAction *action : menu->actions())
        setIconOf(action);
}

} // namespace Workbench

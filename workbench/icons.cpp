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

// Without mnemonics and dots.
const struct
{
    const char *text;
    const char *icon;
} icons[] = {
    {"About", "help-about"},
    {"Add Files", "list-add"},
    {"Check", "document-properties"},
    {"Close", "document-close"},
    {"Close All", "window-close"},
    {"Close as Draft", "document-edit"},
    {"Close Project", "project-development-close"},
    {"Clear", "edit-clear-all"},
    {"Copy", "edit-copy"},
    {"Copy Signals", "edit-copy"},
    {"Device", "cpu"},
    {"Duplicate Core", "tab-duplicate"},
    {"Find", "edit-find"},
    {"Find Next", "go-down-search"},
    {"Find Previous", "go-up-search"},
    {"Go to Declaration", "go-jump-declaration"},
    {"Guide", "help-contents"},
    {"Insert into Design", "run-build"},
    {"Move Rows Down", "go-down"},
    {"Move Rows Up", "go-up"},
    {"New", "document-new"},
    {"New Project", "project-development-new-template"},
    {"Open", "document-open"},
    {"Open Project", "project-open"},
    {"Open Waveform", "view-statistics"},
    {"Options", "configure"},
    {"Paste Signals", "edit-paste"},
    {"Quit", "application-exit"},
    {"Recent Files", "document-open-recent"},
    {"Recent Projects", "document-open-recent"},
    {"Redo", "edit-redo"},
    {"Reload", "view-refresh"},
    {"Remove Files", "list-remove"},
    {"Remove from Project", "list-remove"},
    {"Save", "document-save"},
    {"Save All", "document-save-all"},
    {"Save As", "document-save-as"},
    {"Save Project", "document-save"},
    {"Save Project As", "document-save-as"},
    {"Show", "go-jump"},
    {"Simulate Capture", "media-playback-start"},
    {"Source Command", "utilities-terminal"},
    {"Undo", "edit-undo"},
    {"What's This?", "help-contextual"},
};

QString plainText(const QAction *action)
{
    QString text = action->text();
    return text.remove('&').remove("...");
}

void setIconOf(QAction *action)
{
    const QString text = plainText(action);
    const auto *found = std::find_if(std::begin(icons), std::end(icons),
                                     [&text](const auto &entry) { return text == entry.text; });
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

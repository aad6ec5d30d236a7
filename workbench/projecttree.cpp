#include "workbench/projecttree.h"

#include <QContextMenuEvent>
#include <QDir>
#include <QFileInfo>
#include <QHeaderView>
#include <QKeyEvent>
#include <QMenu>
#include <QStyle>

#include <algorithm>

#include "host/designmanager.h"
#include "host/modal.h"
#include "host/project.h"

namespace Workbench {
namespace {

enum Kind { GroupItem, FileItem, TopItem, DeviceItem };
enum Role { PathRole = Qt::UserRole, KindRole, TypeRole, EnabledRole, LibraryRole };

QTreeWidgetItem *newItem(const QString &text, Kind kind)
{
    auto *item = new QTreeWidgetItem(QStringList(text));
    item->setData(0, KindRole, kind);
    return item;
}

QIcon fileIcon(const Core::SourceFile &file)
{
    const bool design = TE::isDesignFileType(file.type);
    return QIcon(design ? ":/netlist/image/module.png" : ":/netlist/image/magnifier.png");
}

QTreeWidgetItem *fileItem(const Core::SourceFile &file, const QDir &folder, const QPalette &palette)
{
    const bool missing = !QFileInfo::exists(file.path);
    QTreeWidgetItem *item = newItem(folder.relativeFilePath(file.path), FileItem);
    item->setIcon(0, missing ? QIcon(":/fpgaprj/image/warning.png") : fileIcon(file));
    item->setToolTip(0, QDir::toNativeSeparators(file.path).toHtmlEscaped());
    item->setData(0, PathRole, file.path);
    item->setData(0, TypeRole, file.type);
    item->setData(0, EnabledRole, file.enabled);
    item->setData(0, LibraryRole, file.library);
    if (!file.library.isEmpty())
        item->setText(0, item->text(0) + " [" + file.library + ']');
    if (missing)
        item->setText(0, item->text(0) + " (missing)");
    else if (!file.enabled)
        item->setText(0, item->text(0) + " (disabled)");
    if (missing || !file.enabled)
        item->setForeground(0, palette.color(QPalette::Disabled, QPalette::Text));
    return item;
}

QString deviceText(const DEV::DeviceArg &device)
{
    return device == DEV::DeviceArg() ? "Device: none chosen" : "Device: " + device.partNumber;
}

QString topText(const QString &top)
{
    return top.isEmpty() ? "Top module: found from the sources" : "Top module: " + top;
}

} // namespace

ProjectTree::ProjectTree(QWidget *parent) : QTreeWidget(parent)
{
    setHeaderHidden(true);
    setAccessibleName("Project");
    setSelectionMode(QAbstractItemView::ExtendedSelection);
    setUniformRowHeights(true);
    setTextElideMode(Qt::ElideMiddle);
    connect(this, &QTreeWidget::itemActivated, this, &ProjectTree::onActivated);
}

void ProjectTree::showProject(const Core::Project *project)
{
    const QStringList selected = selectedFiles();
    clear();
    if (!project)
        return;
    const Core::ProjectData &data = project->data();
    const QDir folder(project->workingDir());
    QTreeWidgetItem *root =
        newItem(project->name().isEmpty() ? "Unnamed project" : project->name(), GroupItem);
    root->setIcon(0, style()->standardIcon(QStyle::SP_DirOpenIcon));
    QTreeWidgetItem *design = newItem("Design files", GroupItem);
    QTreeWidgetItem *others = newItem("Configurations", GroupItem);
    QList<QTreeWidgetItem *> marked;
    for (const Core::SourceFile &file : data.files) {
        QTreeWidgetItem *item = fileItem(file, folder, palette());
        (TE::isDesignFileType(file.type) ? design : others)->addChild(item);
        if (selected.contains(file.path))
            marked << item;
    }
    for (QTreeWidgetItem *group : {design, others})
        group->setText(0, group->text(0) + QString(" (%1)").arg(group->childCount()));
    root->addChildren({newItem(topText(data.topModule), TopItem),
                       newItem(deviceText(data.device), DeviceItem), design, others});
    addTopLevelItem(root);
    expandAll();
    for (QTreeWidgetItem *item : marked)
        item->setSelected(true);
}

QStringList ProjectTree::selectedFiles() const
{
    QStringList paths;
    for (const QTreeWidgetItem *item : selectedItems()) {
        if (item->data(0, KindRole).toInt() == FileItem)
            paths << item->data(0, PathRole).toString();
    }
    return paths;
}

void ProjectTree::onActivated(const QTreeWidgetItem *item)
{
    switch (item->data(0, KindRole).toInt()) {
    case FileItem:
        Q_EMIT fileActivated(item->data(0, PathRole).toString());
        break;
    case TopItem:
        Q_EMIT optionsActivated();
        break;
    case DeviceItem:
        Q_EMIT deviceActivated();
        break;
    default:
        break;
    }
}

QMenu *ProjectTree::createFileMenu()
{
    const QStringList paths = selectedFiles();
    if (paths.isEmpty())
        return nullptr;
    const QTreeWidgetItem *first = selectedItems().first();
    auto *menu = new QMenu(this);
    menu->addAction("&Open", this, [this, paths] {
        for (const QString &path : paths)
            Q_EMIT fileActivated(path);
    });
    menu->addSeparator();
    QAction *enabled = menu->addAction("Part of the &Design");
    enabled->setCheckable(true);
    enabled->setChecked(first->data(0, EnabledRole).toBool());
    connect(enabled, &QAction::triggered, this,
            [this, paths](bool checked) { Q_EMIT enableRequested(paths, checked); });
    QMenu *types = menu->addMenu("File &Type");
    const char *const names[] = {"Other", "Verilog", "SystemVerilog", "VHDL"};
    static_assert(sizeof names / sizeof *names == TE::VhdlFile - TE::ConfigFile + 1, "each type has a name");
    for (int type = TE::ConfigFile; type <= TE::VhdlFile; ++type) {
        QAction *action = types->addAction(names[type - TE::ConfigFile]);
        action->setCheckable(true);
        action->setChecked(first->data(0, TypeRole).toInt() == type);
        connect(action, &QAction::triggered, this,
                [this, paths, type] { Q_EMIT typeRequested(paths, type); });
    }
    QAction *library = menu->addAction("&Library...");
    const QList<QTreeWidgetItem *> selected = selectedItems();
    library->setEnabled(std::any_of(selected.begin(), selected.end(), [](const QTreeWidgetItem *item) {
        return item->data(0, TypeRole).toInt() == TE::VhdlFile;
    }));
    connect(library, &QAction::triggered, this, [this, paths, name = first->data(0, LibraryRole).toString()] {
        Q_EMIT libraryRequested(paths, name);
    });
    menu->addSeparator();
    menu->addAction("&Remove from Project", this, [this, paths] { Q_EMIT removeRequested(paths); });
    return menu;
}

void ProjectTree::keyPressEvent(QKeyEvent *event)
{
    if (event->matches(QKeySequence::Delete) && !selectedFiles().isEmpty())
        Q_EMIT removeRequested(selectedFiles());
    else
        QTreeWidget::keyPressEvent(event);
}

void ProjectTree::contextMenuEvent(QContextMenuEvent *event)
{
    QUtil::Modal<QMenu> menu(createFileMenu());
    if (menu.data())
        menu->exec(event->globalPos());
}

} // namespace Workbench

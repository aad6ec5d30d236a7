#include "workbench/projecttree.h"

#include <QContextMenuEvent>
#include <QDir>
#include <QFileInfo>
#include <QHeaderView>
#include <QKeyEvent>
#include <QMenu>
#include <QPainter>
#include <QStyle>
#include <QTreeWidgetItemIterator>

#include <algorithm>

#include "host/designmanager.h"
#include "host/iview.h"
#include "host/modal.h"
#include "host/project.h"
#include "host/regularfile.h"
#include "workbench/icons.h"
#include "workbench/sourceview.h"
#include "workbench/topmodules.h"

namespace Workbench {
namespace {

enum Kind { GroupItem, FileItem, TopItem, DeviceItem };
enum Role { PathRole = Qt::UserRole, KindRole, TypeRole, EnabledRole, LibraryRole, MissingRole };

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

QString folderText(const QString &path, const QDir &folder)
{
    const QString relative = QFileInfo(folder.relativeFilePath(path)).path();
    return relative == "." ? QString() : QDir::toNativeSeparators(relative);
}

QTreeWidgetItem *fileItem(const Core::SourceFile &file, const QDir &folder, const QPalette &palette)
{
    const bool missing = !QFileInfo::exists(file.path);
    const QColor faint = palette.color(QPalette::Disabled, QPalette::Text);
    QTreeWidgetItem *item = newItem(QFileInfo(file.path).fileName(), FileItem);
    item->setText(1, folderText(file.path, folder));
    item->setForeground(1, faint);
    item->setToolTip(1, QDir::toNativeSeparators(file.path).toHtmlEscaped());
    item->setIcon(0, missing ? QIcon(":/fpgaprj/image/warning.png") : fileIcon(file));
    item->setData(0, MissingRole, missing);
    item->setToolTip(0, QDir::toNativeSeparators(file.path).toHtmlEscaped());
    item->setData(0, PathRole, file.path);
    item->setData(0, TypeRole, file.type);
    item->setData(0, EnabledRole, file.enabled);
    item->setData(0, LibraryRole, file.library);
    if (!file.library.isEmpty())
        item->setText(0, item->text(0) + " [" + file.library + ']');
    if (missing)
        item->setText(0, ProjectTree::tr("%1 (missing)").arg(item->text(0)));
    else if (!file.enabled)
        item->setText(0, ProjectTree::tr("%1 (disabled)").arg(item->text(0)));
    if (missing || !file.enabled)
        item->setForeground(0, faint);
    return item;
}

QString deviceRowText(const DEV::DeviceArg &device)
{
    return device == DEV::DeviceArg() ? ProjectTree::tr("Device: none chosen")
                                      : ProjectTree::tr("Device: %1").arg(device.partNumber);
}

QString topText(const QString &top)
{
    return top.isEmpty() ? ProjectTree::tr("Top module: from the sources")
                         : ProjectTree::tr("Top module: %1").arg(top);
}

} // namespace

ProjectTree::ProjectTree(QWidget *parent) : QTreeWidget(parent)
{
    setProperty("helpTopic", "project");
    setHeaderHidden(true);
    setColumnCount(2);
    header()->setStretchLastSection(false);
    header()->setMinimumSectionSize(0);
    setAccessibleName(tr("Project"));
    setSelectionMode(QAbstractItemView::ExtendedSelection);
    setUniformRowHeights(true);
    setTextElideMode(Qt::ElideMiddle);
    connect(this, &QTreeWidget::itemActivated, this, &ProjectTree::onActivated);
}

void ProjectTree::showProject(const Core::Project *project)
{
    const QStringList selected = selectedFiles();
    const QString current = currentItem() ? currentItem()->data(0, PathRole).toString() : QString();
    m_project = project;
    clear();
    if (!project)
        return;
    const Core::ProjectData &data = project->data();
    const QDir folder(project->workingDir());
    QTreeWidgetItem *root =
        newItem(project->name().isEmpty() ? tr("Unnamed project") : project->name(), GroupItem);
    root->setIcon(0, style()->standardIcon(QStyle::SP_DirOpenIcon));
    QTreeWidgetItem *design = newItem(tr("Design files"), GroupItem);
    QTreeWidgetItem *others = newItem(tr("Configurations"), GroupItem);
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
                       newItem(deviceRowText(data.device), DeviceItem), design, others});
    addTopLevelItem(root);
    expandAll();
    spanOtherRows();
    settleColumns();
    for (QTreeWidgetItem *item : fileRows()) {
        if (item->data(0, PathRole).toString() == current && !current.isEmpty())
            setCurrentItem(item, 0, QItemSelectionModel::NoUpdate);
    }
    for (QTreeWidgetItem *item : marked)
        item->setSelected(true);
}

// Only files have a folder; the texts of the other rows go over both columns.
void ProjectTree::spanOtherRows()
{
    for (QTreeWidgetItemIterator row(this); *row; ++row) {
        if ((*row)->data(0, KindRole).toInt() != FileItem)
            (*row)->setFirstColumnSpanned(true);
    }
}

// The names get what they need, and the folders a third where both have no room.
void ProjectTree::settleColumns()
{
    int names = 0, folders = 0;
    for (const QTreeWidgetItem *row : fileRows()) {
        // The row's own rectangle would begin too far left while the column is narrower than its indentation.
        const QModelIndex name = indexFromItem(row, 0);
        names = qMax(names, visualRect(name).left() + sizeHintForIndex(name).width());
        folders = qMax(folders, sizeHintForIndex(indexFromItem(row, 1)).width());
    }
    const int whole = viewport()->width();
    const int first = qMin(names + fontMetrics().averageCharWidth(), whole - qMin(folders, whole / 3));
    setColumnWidth(0, first);
    setColumnWidth(1, whole - first);
}

void ProjectTree::resizeEvent(QResizeEvent *event)
{
    QTreeWidget::resizeEvent(event);
    settleColumns();
}

QList<QTreeWidgetItem *> ProjectTree::fileRows() const
{
    QList<QTreeWidgetItem *> rows;
    for (QTreeWidgetItemIterator row(const_cast<ProjectTree *>(this)); *row; ++row) {
        if ((*row)->data(0, KindRole).toInt() == FileItem)
            rows << *row;
    }
    return rows;
}

void ProjectTree::showView(Core::IView *view)
{
    // Also while Ctrl is held, which would add it.
    const auto rowAlone = QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows;
    const auto *source = qobject_cast<SourceView *>(view);
    const QString path = source ? source->path() : view ? view->editedFile().path : QString();
    for (QTreeWidgetItem *row : path.isEmpty() ? QList<QTreeWidgetItem *>() : fileRows()) {
        if (QUtil::isSameFile(row->data(0, PathRole).toString(), path))
            setCurrentItem(row, 0, rowAlone);
    }
}

bool ProjectTree::event(QEvent *event)
{
    if (event->type() == QEvent::WindowActivate && m_project) {
        const QList<QTreeWidgetItem *> rows = fileRows();
        const bool isOld = std::any_of(rows.begin(), rows.end(), [](const QTreeWidgetItem *row) {
            return row->data(0, MissingRole).toBool() == QFileInfo::exists(row->data(0, PathRole).toString());
        });
        if (isOld)
            showProject(m_project);
    }
    return QTreeWidget::event(event);
}

void ProjectTree::paintEvent(QPaintEvent *event)
{
    QTreeWidget::paintEvent(event);
    if (m_project)
        return;
    QPainter painter(viewport());
    painter.setPen(palette().color(QPalette::PlaceholderText));
    painter.drawText(viewport()->rect().adjusted(8, 8, -8, -8), Qt::AlignCenter | Qt::TextWordWrap,
                     tr("No project is open."));
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
    QAction *open = menu->addAction(tr("&Open"), this, [this, paths] {
        for (const QString &path : paths)
            Q_EMIT fileActivated(path);
    });
    menu->addSeparator();
    QAction *enabled = menu->addAction(tr("Part of the &Design"));
    enabled->setCheckable(true);
    enabled->setChecked(first->data(0, EnabledRole).toBool());
    connect(enabled, &QAction::triggered, this,
            [this, paths](bool checked) { Q_EMIT enableRequested(paths, checked); });
    if (paths.size() == 1)
        addTopEntries(menu, first);
    QMenu *types = menu->addMenu(tr("File &Type"));
    const int current = first->data(0, TypeRole).toInt();
    const auto addType = [this, types, paths, current](const QString &name, int type) {
        QAction *action = types->addAction(name);
        action->setCheckable(true);
        action->setChecked(current == type);
        connect(action, &QAction::triggered, this,
                [this, paths, type] { Q_EMIT typeRequested(paths, type); });
    };
    addType(tr("Other"), TE::ConfigFile);
    for (const TE::SourceType &row : TE::sourceTypes)
        addType(row.name, row.type);
    QAction *library = menu->addAction(tr("&Library..."));
    const QList<QTreeWidgetItem *> selected = selectedItems();
    library->setEnabled(std::any_of(selected.begin(), selected.end(), [](const QTreeWidgetItem *item) {
        return item->data(0, TypeRole).toInt() == TE::VhdlFile;
    }));
    connect(library, &QAction::triggered, this, [this, paths, name = first->data(0, LibraryRole).toString()] {
        Q_EMIT libraryRequested(paths, name);
    });
    menu->addSeparator();
    QAction *remove =
        menu->addAction(tr("&Remove from Project"), this, [this, paths] { Q_EMIT removeRequested(paths); });
    // For the eye: the tree hears the keys itself.
    remove->setShortcut(QKeySequence::Delete);
    open->setShortcut(Qt::Key_Return);
    for (QAction *action : {open, remove})
        action->setShortcutContext(Qt::WidgetShortcut);
    setIcons(menu);
    return menu;
}

// One entry for one module, a menu of its own for several.
void ProjectTree::addTopEntries(QMenu *menu, const QTreeWidgetItem *file)
{
    const QStringList modules =
        modulesOfFile(file->data(0, PathRole).toString(), file->data(0, TypeRole).toInt());
    QMenu *several = modules.size() > 1 ? menu->addMenu(tr("Set as To&p")) : nullptr;
    for (const QString &module : modules) {
        QAction *action =
            several ? several->addAction(module) : menu->addAction(tr("Set as To&p: %1").arg(module));
        connect(action, &QAction::triggered, this, [this, module] { Q_EMIT topRequested(module); });
    }
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

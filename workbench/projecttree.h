#pragma once

#include <QTreeWidget>

namespace Core {
class Project;
}

namespace Workbench {

// The project as a tree: top module, device, design files and other files. Files that are not part of the
// design are grey, files that are missing on the disk are marked.
class ProjectTree : public QTreeWidget
{
    Q_OBJECT

public:
    explicit ProjectTree(QWidget *parent = nullptr);

    void showProject(const Core::Project *project); // null: an empty tree
    QStringList selectedFiles() const;              // absolute paths

    // The entries for the selected files; the caller owns the menu. Null when no file is selected.
    QMenu *createFileMenu();

Q_SIGNALS:
    void fileActivated(const QString &path);
    void optionsActivated();
    void deviceActivated();
    void enableRequested(const QStringList &paths, bool enabled);
    void typeRequested(const QStringList &paths, int type);
    void libraryRequested(const QStringList &paths, const QString &library); // which the first has
    void topRequested(const QString &module);
    void removeRequested(const QStringList &paths);

protected:
    void contextMenuEvent(QContextMenuEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override; // Delete removes the selected files

private:
    void addTopEntries(QMenu *menu, const QTreeWidgetItem *file);
    void onActivated(const QTreeWidgetItem *item);
};

} // namespace Workbench

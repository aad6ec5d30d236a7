#pragma once

#include <QStringList>
#include <QWidget>

class QListWidget;
class QVBoxLayout;

namespace Workbench {

// An ordered list of texts that is edited in place; with a folder given, "Add" asks for folders and keeps
// those below it in relative form.
class StringListEdit : public QWidget
{
    Q_OBJECT

public:
    explicit StringListEdit(QWidget *parent = nullptr);

    void chooseFoldersFrom(const QString &baseFolder);
    void setValues(const QStringList &values);
    QStringList values() const; // without empty ones

private:
    template <class Slot>
    void addButton(QVBoxLayout *layout, const QString &text, Slot slot);
    void onAdd();
    void onRemove();
    void append(const QString &text);
    void moveBy(int rows);

    QListWidget *m_list;
    QString m_baseFolder; // empty: the entries are no folders
};

} // namespace Workbench

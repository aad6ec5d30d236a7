#include "workbench/stringlistedit.h"

#include <QDir>
#include <QFileDialog>
#include <QHBoxLayout>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

namespace Workbench {

StringListEdit::StringListEdit(QWidget *parent) : QWidget(parent), m_list(new QListWidget(this))
{
    auto *layout = new QHBoxLayout(this);
    auto *buttons = new QVBoxLayout;
    layout->addWidget(m_list);
    layout->addLayout(buttons);
    addButton(buttons, tr("Add"), &StringListEdit::onAdd);
    addButton(buttons, tr("Remove"), &StringListEdit::onRemove);
    addButton(buttons, tr("Up"), [this] { moveBy(-1); });
    addButton(buttons, tr("Down"), [this] { moveBy(1); });
    buttons->addStretch();
}

template <class Slot>
void StringListEdit::addButton(QVBoxLayout *layout, const QString &text, Slot slot)
{
    auto *button = new QPushButton(text, this);
    button->setAutoDefault(false);
    connect(button, &QPushButton::clicked, this, slot);
    layout->addWidget(button);
}

void StringListEdit::chooseFoldersFrom(const QString &baseFolder)
{
    m_baseFolder = baseFolder;
}

void StringListEdit::setValues(const QStringList &values)
{
    m_list->clear();
    for (const QString &value : values)
        append(value);
}

QStringList StringListEdit::values() const
{
    QStringList values;
    for (int i = 0; i < m_list->count(); ++i) {
        if (!m_list->item(i)->text().trimmed().isEmpty())
            values << m_list->item(i)->text().trimmed();
    }
    return values;
}

void StringListEdit::append(const QString &text)
{
    auto *item = new QListWidgetItem(text, m_list);
    item->setFlags(item->flags() | Qt::ItemIsEditable);
}

void StringListEdit::onAdd()
{
    if (m_baseFolder.isEmpty()) {
        append(QString());
        m_list->setCurrentRow(m_list->count() - 1);
        m_list->editItem(m_list->currentItem());
        return;
    }
    const QString chosen = QFileDialog::getExistingDirectory(this, tr("Choose Folder"), m_baseFolder);
    if (chosen.isEmpty())
        return;
    const QString relative = QDir(m_baseFolder).relativeFilePath(chosen);
    append(relative.startsWith("..") ? chosen : relative);
}

void StringListEdit::onRemove()
{
    delete m_list->currentItem();
}

void StringListEdit::moveBy(int rows)
{
    const int row = m_list->currentRow();
    if (row < 0 || row + rows < 0 || row + rows >= m_list->count())
        return;
    m_list->insertItem(row + rows, m_list->takeItem(row));
    m_list->setCurrentRow(row + rows);
}

} // namespace Workbench

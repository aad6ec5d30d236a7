#pragma once

#include "tests/support/modaldriver.h"
#include "tests/support/rowtext.h"

// Clicks the rows with those texts, with Ctrl from the second on.
inline void clickRows(QTreeWidget *tree, const QStringList &texts)
{
    Qt::KeyboardModifiers keys = Qt::NoModifier;
    for (const QString &text : texts) {
        const QTreeWidgetItem *row = rowNamed(tree, text);
        QVERIFY2(row, qPrintable(text));
        tree->scrollToItem(row);
        QTest::mouseClick(tree->viewport(), Qt::LeftButton, keys, tree->visualItemRect(row).center());
        keys = Qt::ControlModifier;
    }
}

// What a user does in the search dialog: types, presses Return, clicks the rows with those texts and leaves
// with OK or Cancel.
inline ModalDriver::Step pickNets(const QString &search, const QStringList &names,
                                  QDialogButtonBox::StandardButton button = QDialogButtonBox::Ok)
{
    return [=](QDialog *dialog) {
        QLineEdit *name = dialog->findChild<QLineEdit *>("lineEditName");
        QTest::keyClicks(name, search);
        QTest::keyClick(name, Qt::Key_Return);
        QTreeWidget *result = dialog->findChild<QTreeWidget *>("treeWidget");
        result->expandAll();
        clickRows(result, names);
        leave(dialog, button);
    };
}

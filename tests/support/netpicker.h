#pragma once

#include <QDialogButtonBox>
#include <QLineEdit>
#include <QPushButton>
#include <QTreeWidget>
#include <QtTest>

#include "tests/support/modaldriver.h"

// What a user does in the search dialog: types, presses Return, clicks the rows with those texts and leaves
// with OK or Cancel.
inline ModalDriver::Step pickNets(const QString &search, const QStringList &names,
                                  QDialogButtonBox::StandardButton leave = QDialogButtonBox::Ok)
{
    return [=](QDialog *dialog) {
        QLineEdit *name = dialog->findChild<QLineEdit *>("lineEditName");
        QTest::keyClicks(name, search);
        QTest::keyClick(name, Qt::Key_Return);
        QTreeWidget *result = dialog->findChild<QTreeWidget *>("treeWidget");
        result->expandAll();
        Qt::KeyboardModifiers keys = Qt::NoModifier;
        for (const QString &text : names) {
            const auto hits = result->findItems(text, Qt::MatchExactly | Qt::MatchRecursive);
            QVERIFY2(hits.size() == 1, qPrintable(text));
            result->scrollToItem(hits.first());
            QTest::mouseClick(result->viewport(), Qt::LeftButton, keys,
                              result->visualItemRect(hits.first()).center());
            keys = Qt::ControlModifier;
        }
        QTest::mouseClick(dialog->findChild<QDialogButtonBox *>("buttonBox")->button(leave), Qt::LeftButton);
    };
}

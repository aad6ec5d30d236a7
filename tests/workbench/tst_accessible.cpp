#include <QAccessible>
#include <QRegularExpression>
#include <QWidget>
#include <QtTest>

#include <algorithm>

#include "tests/support/files.h"
#include "tools/windowtour.h"

namespace {

bool inheritsAny(const QWidget *widget, const QStringList &classes)
{
    return std::any_of(classes.begin(), classes.end(),
                       [widget](const QString &name) { return widget->inherits(name.toLatin1()); });
}

// What the toolkit makes for itself within a control or around a view, and nobody has to name.
bool isInner(const QWidget *widget)
{
    if (widget->objectName().startsWith("qt_") || widget->inherits("QHeaderView"))
        return true;
    if (inheritsAny(widget->parentWidget(), {"QDockWidget", "QTableView"}) &&
        widget->inherits("QAbstractButton"))
        return true;
    for (const QWidget *parent = widget->parentWidget(); parent; parent = parent->parentWidget()) {
        if (inheritsAny(parent, {"QComboBox", "QAbstractSpinBox", "QLineEdit", "QTabBar"}))
            return true;
    }
    return false;
}

bool isControl(const QWidget *widget)
{
    return inheritsAny(widget, {"QAbstractItemView", "QComboBox", "QAbstractSpinBox", "QLineEdit",
                                "QAbstractButton", "QTextEdit", "QPlainTextEdit"});
}

QString nameOf(QWidget *widget)
{
    const QAccessibleInterface *face = QAccessible::queryAccessibleInterface(widget);
    return face ? face->text(QAccessible::Name) : QString();
}

} // namespace

class AccessibleTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void everyControlHasAName()
    {
        const Folder folder;
        QStringList unnamed;
        int named = 0;
        QString error;
        const auto look = [&](QWidget *window, const QString &name) {
            for (QWidget *widget : window->findChildren<QWidget *>()) {
                if (!isControl(widget) || isInner(widget))
                    continue;
                // A name says more than dots.
                if (nameOf(widget).contains(QRegularExpression("\\w")))
                    ++named;
                else
                    unnamed << name + ": " + widget->metaObject()->className() + ' ' + widget->objectName();
            }
        };
        QVERIFY2(tourWindows(SOC "/soc.jexprj", folder.path(), look, &error), qPrintable(error));
        unnamed.removeDuplicates();
        QVERIFY2(unnamed.isEmpty(), qPrintable(unnamed.join("\n")));
        QVERIFY2(named > 300, qPrintable(QString::number(named)));
    }
};

QTEST_MAIN(AccessibleTest)
#include "tst_accessible.moc"

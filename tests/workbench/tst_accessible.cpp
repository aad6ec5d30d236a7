#include <QAbstractButton>
#include <QAccessible>
#include <QAction>
#include <QLabel>
#include <QMenu>
#include <QMenuBar>
#include <QRegularExpression>
#include <QShortcut>
#include <QWidget>
#include <QtTest>

#include <algorithm>

#include "tests/support/files.h"
#include "tools/windowtour.h"
#include "workbench/helptopics.h"

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

// What the key reaches in the window, in its order, beginning anywhere.
QList<QWidget *> tabOrder(QWidget *window)
{
    QList<QWidget *> order;
    for (QWidget *next = window->nextInFocusChain(); next != window; next = next->nextInFocusChain()) {
        if ((next->focusPolicy() & Qt::TabFocus) && next->isVisible() && next->isEnabled() &&
            window->isAncestorOf(next) && next->window() == window->window() && !next->focusProxy() &&
            !isInner(next))
            order << next;
    }
    return order;
}

// Back in its line, or up without coming to another column.
bool goesBack(const QRect &from, const QRect &to)
{
    const bool isLeft = to.right() <= from.left();
    const bool isAbove = to.bottom() <= from.top();
    const bool isRight = to.left() >= from.right();
    const bool isBelow = to.top() >= from.bottom();
    return (isLeft && !isBelow) || (isAbove && !isRight);
}

QString nameOf(QWidget *widget)
{
    const QAccessibleInterface *face = QAccessible::queryAccessibleInterface(widget);
    return face ? face->text(QAccessible::Name) : QString();
}

} // namespace

// Every window of the program, walked through once.
class AccessibleTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        const Folder folder;
        QString error;
        const auto look = [this](QWidget *window, const QString &name) {
            lookForNames(window, name);
            lookAtOrder(window->window(), name); // parts of the window that are there at times, too
            lookAtKeys(window, name);
            const bool isPart = name.startsWith("editor-") || name.startsWith("banner-") || name == "guide";
            if (!isPart && Workbench::helpTopic(window) == "index")
                m_withoutTopic << name;
        };
        QVERIFY2(tourWindows(SOC "/soc.jexprj", folder.path(), look, &error), qPrintable(error));
    }

    void everyControlHasAName()
    {
        QVERIFY2(m_unnamed.isEmpty(), qPrintable(m_unnamed.join('\n')));
        QVERIFY2(m_named > 300, qPrintable(QString::number(m_named)));
    }

    void tabGoesAsTheEye()
    {
        QVERIFY2(m_jumps.isEmpty(), qPrintable(m_jumps.join('\n')));
        QVERIFY(m_steps > 50);
    }

    // Neither of two with the same key would do anything.
    void everyKeyIsOfOne()
    {
        QVERIFY2(m_ambiguous.isEmpty(), qPrintable(m_ambiguous.join('\n')));
        QVERIFY2(m_keys > 30, qPrintable(QString::number(m_keys)));
    }

    void everyWindowHasAPageOfTheGuide() { QCOMPARE(m_withoutTopic, QStringList()); }

private:
    void lookForNames(QWidget *window, const QString &name)
    {
        for (QWidget *widget : window->findChildren<QWidget *>()) {
            if (!isControl(widget) || isInner(widget))
                continue;
            // A name says more than dots.
            if (nameOf(widget).contains(QRegularExpression("\\w")))
                ++m_named;
            else
                m_unnamed << name + ": " + widget->metaObject()->className() + ' ' + widget->objectName();
        }
    }

    void lookAtOrder(QWidget *window, const QString &name)
    {
        const QList<QWidget *> order = tabOrder(window);
        const auto place = [window](const QWidget *widget) {
            return QRect(widget->mapTo(window, QPoint()), widget->size());
        };
        QStringList back;
        for (int i = 0; i < order.size(); ++i, ++m_steps) {
            QWidget *next = order.at((i + 1) % order.size());
            if (goesBack(place(order.at(i)), place(next)))
                back << name + ": " + nameOf(order.at(i)) + " > " + nameOf(next);
        }
        if (back.size() > 1) // once round is from the end to the beginning
            m_jumps += back;
    }

    // A key of the window is nobody's else. Parts may have keys in common; those of actions that belong to
    // one widget are there for the eye alone.
    void lookAtKeys(QWidget *window, const QString &name)
    {
        QMultiMap<QString, QString> owners, parts;
        const auto add = [&](const QKeySequence &key, const QString &owner) {
            if (!key.isEmpty())
                owners.insert(key.toString(), owner);
        };
        for (const QAction *action : window->findChildren<QAction *>()) {
            if (action->shortcutContext() != Qt::WidgetShortcut) {
                for (const QKeySequence &key : action->shortcuts())
                    add(key, action->text());
            }
        }
        for (const QShortcut *shortcut : window->findChildren<QShortcut *>()) {
            if (shortcut->context() == Qt::WindowShortcut || shortcut->context() == Qt::ApplicationShortcut)
                add(shortcut->key(), "a shortcut");
            else
                parts.insert(shortcut->key().toString(), "a shortcut of a part");
        }
        for (const QLabel *label : window->findChildren<QLabel *>()) {
            if (label->buddy())
                add(QKeySequence::mnemonic(label->text()), label->text());
        }
        for (const QAbstractButton *button : window->findChildren<QAbstractButton *>())
            add(button->shortcut(), button->text());
        QList<QAction *> entries = qobject_cast<QMenu *>(window) ? window->actions() : QList<QAction *>();
        for (const QMenuBar *bar : window->findChildren<QMenuBar *>())
            entries += bar->actions();
        for (const QAction *entry : qAsConst(entries))
            add(QKeySequence::mnemonic(entry->text()), entry->text());
        for (const QString &key : owners.uniqueKeys()) {
            ++m_keys;
            const QStringList all = owners.values(key) + parts.values(key);
            if (all.size() > 1)
                m_ambiguous << name + ": " + key + ": " + all.join(", ");
        }
    }

    QStringList m_unnamed, m_jumps, m_withoutTopic, m_ambiguous;
    int m_named = 0;
    int m_keys = 0;
    int m_steps = 0;
};

QTEST_MAIN(AccessibleTest)
#include "tst_accessible.moc"

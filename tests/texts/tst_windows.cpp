#include <QtTest>
#include <QtWidgets>

#include "host/translation.h"
#include "model/jex/resourcetable.h"
#include "tests/support/files.h"
#include "tools/pseudotexts.h"
#include "tools/windowtour.h"
#include "workbench/helptopics.h"
#include "workbench/translations.h"

namespace {

QList<QWidget *> widgetsOf(QWidget *window)
{
    QList<QWidget *> widgets = window->findChildren<QWidget *>();
    widgets << window;
    return widgets;
}

int widthOf(const QWidget *widget, const QString &text)
{
    return widget->fontMetrics().size(Qt::TextShowMnemonic, text).width();
}

// What the style leaves of a button for its text.
int roomOf(const QAbstractButton *button)
{
    QStyleOptionButton option;
    option.initFrom(button);
    const QStyle::SubElement part = qobject_cast<const QCheckBox *>(button) ? QStyle::SE_CheckBoxContents
                                    : qobject_cast<const QRadioButton *>(button)
                                        ? QStyle::SE_RadioButtonContents
                                        : QStyle::SE_PushButtonContents;
    return button->style()->subElementRect(part, &option, button).width() -
           (button->icon().isNull() ? 0 : button->iconSize().width() + 4);
}

int roomOf(const QComboBox *box)
{
    QStyleOptionComboBox option;
    option.initFrom(box);
    option.editable = box->isEditable();
    return box->style()
        ->subControlRect(QStyle::CC_ComboBox, &option, QStyle::SC_ComboBoxEditField, box)
        .width();
}

bool isCutLabel(const QLabel *label)
{
    if (label->text().isEmpty())
        return false;
    if (label->wordWrap())
        return label->heightForWidth(label->width()) > label->height();
    const QSize needed = label->sizeHint();
    return needed.width() > label->width() || needed.height() > label->height();
}

// Those in brackets are the window's own, not names.
QStringList cutRows(const QAbstractItemView *view)
{
    QStringList cut;
    const QAbstractItemModel *model = view->model();
    for (int row = 0; model && row < model->rowCount(); ++row) {
        for (int column = 0; column < model->columnCount(); ++column) {
            const QModelIndex index = model->index(row, column);
            const QString text = index.data().toString();
            const int room = view->visualRect(index).width();
            if (text.startsWith('[') && room > 0 && widthOf(view, text) > room &&
                index.data(Qt::ToolTipRole).toString().isEmpty())
                cut << text;
        }
    }
    return cut;
}

// The texts of one widget that it has no room for.
QStringList cutTexts(QWidget *widget)
{
    QStringList cut;
    if (const auto *label = qobject_cast<QLabel *>(widget)) {
        // A label that elides its text says the whole by its tool tip.
        if (isCutLabel(label) && label->toolTip().isEmpty())
            cut << label->text();
    } else if (const auto *button = qobject_cast<QAbstractButton *>(widget)) {
        const bool isTool = button->inherits("QToolButton");
        if (isTool ? button->sizeHint().width() > button->width()
                   : widthOf(button, button->text()) > roomOf(button))
            cut << button->text();
    } else if (const auto *group = qobject_cast<QGroupBox *>(widget)) {
        if (widthOf(group, group->title()) > group->width())
            cut << group->title();
    } else if (const auto *box = qobject_cast<QComboBox *>(widget)) {
        if (widthOf(box, box->currentText()) > roomOf(box))
            cut << box->currentText();
    } else if (const auto *line = qobject_cast<QLineEdit *>(widget)) {
        const QString shown = line->text().isEmpty() ? line->placeholderText() : QString();
        if (widthOf(line, shown) > line->width() - 6 && line->parentWidget()->toolTip() != shown)
            cut << line->placeholderText();
    } else if (const auto *tabs = qobject_cast<QTabBar *>(widget)) {
        for (int i = 0; i < tabs->count(); ++i) {
            if (widthOf(tabs, tabs->tabText(i)) > tabs->tabRect(i).width() - 8)
                cut << tabs->tabText(i);
        }
    } else if (const auto *header = qobject_cast<QHeaderView *>(widget)) {
        for (int i = 0; header->orientation() == Qt::Horizontal && i < header->count(); ++i) {
            const QString text = header->model()->headerData(i, Qt::Horizontal).toString();
            if (!header->isSectionHidden(i) && widthOf(header, text) > header->sectionSize(i))
                cut << text;
        }
    } else if (const auto *view = qobject_cast<QAbstractItemView *>(widget)) {
        cut << cutRows(view);
    }
    return cut;
}

// What a window says of itself, and what no example's file, net or device says.
QStringList ownTexts(const QWidget *widget)
{
    QStringList texts;
    for (const char *name : {"toolTip", "whatsThis", "statusTip", "accessibleName", "text", "title",
                             "placeholderText", "currentText"}) {
        if (qstrcmp(name, "text") != 0 || !qobject_cast<const QLineEdit *>(widget)) // which the user writes
            texts << widget->property(name).toString();
    }
    if (const auto *tabs = qobject_cast<const QTabBar *>(widget)) {
        for (int i = 0; i < tabs->count(); ++i)
            texts << tabs->tabText(i) << tabs->tabToolTip(i);
    }
    if (const auto *header = qobject_cast<const QHeaderView *>(widget)) {
        for (int i = 0; i < header->count(); ++i)
            texts << header->model()->headerData(i, header->orientation()).toString();
    }
    for (const QAction *action : widget->actions())
        texts << action->text() << action->statusTip();
    return texts;
}

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

// Every window of the program, walked through in the user's language and in others.
class WindowsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void withKeysAndReaders()
    {
        const QStringList faults = walk([this](QWidget *window, const QString &name) {
            const bool isPart = name.startsWith("editor-") || name.startsWith("banner-") || name == "guide";
            const bool hasNoPage = !isPart && Workbench::helpTopic(window) == "index";
            return namelessIn(window, name) +
                   jumpsIn(window->window(), name) + // parts that are there at times, too
                   clashesIn(window, name) +
                   QStringList(hasNoPage ? name + ": no page of the guide" : QString());
        });
        QVERIFY2(faults.isEmpty(), qPrintable(faults.join('\n')));
        QVERIFY2(m_named > 300 && m_steps > 50 && m_keys > 30,
                 qPrintable(QString("%1 %2 %3").arg(m_named).arg(m_steps).arg(m_keys)));
    }

    void longTextsAreNotCut()
    {
        PseudoTexts texts;
        QCoreApplication::installTranslator(&texts);
        const QStringList cut = walk([this](QWidget *window, const QString &name) {
            return cutIn(window, name) + plainIn(window, name);
        });
        QCoreApplication::removeTranslator(&texts);
        QVERIFY2(cut.isEmpty(), qPrintable(cut.join('\n')));
        QVERIFY2(m_looked > 500, qPrintable(QString::number(m_looked)));
    }

    void germanIsNotCutAndHasItsKeys()
    {
        QLocale::setDefault(QLocale("de_DE"));
        const auto editor = QUtil::installTranslation("jexins", ":/jexins/texts");
        const Workbench::Translations workbench;
        const QStringList faults = walk([this](QWidget *window, const QString &name) {
            return cutIn(window, name) + clashesIn(window, name);
        });
        QLocale::setDefault(QLocale::c());
        QVERIFY2(faults.isEmpty(), qPrintable(faults.join('\n')));
    }

private:
    QStringList walk(const std::function<QStringList(QWidget *, const QString &)> &look)
    {
        const Folder folder;
        QStringList found;
        QString error;
        const auto visit = [&](QWidget *window, const QString &name) { found += look(window, name); };
        if (!tourWindows(SOC "/soc.jexprj", folder.path(), visit, &error))
            found << error;
        found.removeDuplicates();
        found.removeAll(QString());
        return found;
    }

    QStringList cutIn(QWidget *window, const QString &name)
    {
        QStringList found;
        for (QWidget *widget : widgetsOf(window)) {
            // What is behind another tab is shown elsewhere; the toolkit's own has pictures alone.
            if (widget->visibleRegion().isEmpty() || widget->objectName().startsWith("qt_dockwidget"))
                continue;
            ++m_looked;
            for (const QString &text : cutTexts(widget))
                found << name + ": " + widget->metaObject()->className() + ' ' + widget->objectName() + ": " +
                             text;
        }
        return found;
    }

    static bool isResource(const QString &text)
    {
        return std::any_of(std::begin(JEX_TOOL::resources), std::end(JEX_TOOL::resources),
                           [&](const JEX_TOOL::Resource &resource) { return text == resource.name; });
    }

    // What went past the translation.
    QStringList plainIn(QWidget *window, const QString &name)
    {
        static const QRegularExpression word("[A-Za-z]{3}"),
            data("[/"
                 "\\[]|\\.(zub|jexprj|v|vhd|sv)\\b|^(XOR|LFE5U.*|soc|group_\\d+)$|^1[38]"
                 "\\d\\d-"
                 "|^qt_|^QWidget|JEX Workbench|TarselSynthesis|Verilog|VHDL|count|ready");
        QStringList found;
        for (const QWidget *widget : widgetsOf(window)) {
            for (const QString &text : ownTexts(widget)) {
                if (text.contains(word) && !text.contains(data) && !isResource(text))
                    found << name + ": not translated: " + widget->metaObject()->className() + ' ' +
                                 widget->objectName() + ": " + text;
            }
        }
        return found;
    }

    // Every control has a name, which says more than dots.
    QStringList namelessIn(const QWidget *window, const QString &name)
    {
        QStringList found;
        for (QWidget *widget : window->findChildren<QWidget *>()) {
            if (!isControl(widget) || isInner(widget))
                continue;
            if (nameOf(widget).contains(QRegularExpression("\\w")))
                ++m_named;
            else
                found << name + ": no name: " + widget->metaObject()->className() + ' ' +
                             widget->objectName();
        }
        return found;
    }

    // Tab goes as the eye does.
    QStringList jumpsIn(QWidget *window, const QString &name)
    {
        const QList<QWidget *> order = tabOrder(window);
        const auto place = [window](const QWidget *widget) {
            return QRect(widget->mapTo(window, QPoint()), widget->size());
        };
        QStringList back;
        for (int i = 0; i < order.size(); ++i, ++m_steps) {
            QWidget *next = order.at((i + 1) % order.size());
            if (goesBack(place(order.at(i)), place(next)))
                back << name + ": Tab goes back: " + nameOf(order.at(i)) + " > " + nameOf(next);
        }
        return back.size() > 1 ? back : QStringList(); // once round is from the end to the beginning
    }

    // A key of the window, or a letter of a menu, is nobody's else: neither of two would do anything. Parts
    // may have keys in common; those of actions that belong to one widget are there for the eye alone.
    QStringList clashesIn(const QWidget *window, const QString &name)
    {
        QMultiMap<QString, QString> owners, parts;
        const auto add = [](QMultiMap<QString, QString> &keys, const QKeySequence &key,
                            const QString &owner) {
            if (!key.isEmpty())
                keys.insert(key.toString(), owner);
        };
        for (const QAction *action : window->findChildren<QAction *>()) {
            if (action->shortcutContext() != Qt::WidgetShortcut) {
                for (const QKeySequence &key : action->shortcuts())
                    add(owners, key, action->text());
            }
        }
        for (const QShortcut *shortcut : window->findChildren<QShortcut *>()) {
            const bool isOfAll =
                shortcut->context() == Qt::WindowShortcut || shortcut->context() == Qt::ApplicationShortcut;
            add(isOfAll ? owners : parts, shortcut->key(), "a shortcut");
        }
        for (const QLabel *label : window->findChildren<QLabel *>()) {
            if (label->buddy())
                add(owners, QKeySequence::mnemonic(label->text()), label->text());
        }
        for (const QAbstractButton *button : window->findChildren<QAbstractButton *>())
            add(owners, button->shortcut(), button->text());
        QList<QAction *> entries =
            qobject_cast<const QMenu *>(window) ? window->actions() : QList<QAction *>();
        for (const QMenuBar *bar : window->findChildren<QMenuBar *>())
            entries += bar->actions();
        for (const QAction *entry : qAsConst(entries))
            add(owners, QKeySequence::mnemonic(entry->text()), entry->text());
        QStringList found;
        for (const QString &key : owners.uniqueKeys()) {
            ++m_keys;
            const QStringList all = owners.values(key) + parts.values(key);
            if (all.size() > 1)
                found << name + ": " + key + ": " + all.join(", ");
        }
        return found;
    }

    int m_named = 0, m_steps = 0, m_keys = 0;
    int m_looked = 0;
};

QTEST_MAIN(WindowsTest)
#include "tst_windows.moc"

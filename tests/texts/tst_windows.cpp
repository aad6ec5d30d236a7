#include <QAbstractButton>
#include <QAbstractItemView>
#include <QAction>
#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QRadioButton>
#include <QRegularExpression>
#include <QStyle>
#include <QStyleOptionButton>
#include <QStyleOptionComboBox>
#include <QTabBar>
#include <QtTest>

#include "host/translation.h"
#include "tests/support/files.h"
#include "tools/pseudotexts.h"
#include "tools/windowtour.h"
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
    QStringList texts{widget->toolTip(), widget->whatsThis(), widget->statusTip(), widget->accessibleName()};
    if (const auto *label = qobject_cast<const QLabel *>(widget))
        texts << label->text();
    if (const auto *button = qobject_cast<const QAbstractButton *>(widget))
        texts << button->text();
    if (const auto *group = qobject_cast<const QGroupBox *>(widget))
        texts << group->title();
    if (const auto *line = qobject_cast<const QLineEdit *>(widget))
        texts << line->placeholderText();
    if (const auto *box = qobject_cast<const QComboBox *>(widget))
        texts << box->currentText();
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

} // namespace

// Every window of the program, in other languages.
class WindowsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
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

    // What went past the translation.
    QStringList plainIn(QWidget *window, const QString &name)
    {
        static const QRegularExpression word("[A-Za-z]{3}"),
            data("[/"
                 "\\[]|\\.(zub|jexprj|v|vhd|sv)\\b|^(BSRAM|SSRAM|REG|XOR|LFE5U.*|soc|group_\\d+)$|^1[38]"
                 "\\d\\d-"
                 "|^qt_|^QWidget|JEX Workbench|TarselSynthesis|Verilog|VHDL|count|ready");
        QStringList found;
        for (const QWidget *widget : widgetsOf(window)) {
            for (const QString &text : ownTexts(widget)) {
                if (text.contains(word) && !text.contains(data))
                    found << name + ": not translated: " + widget->metaObject()->className() + ' ' +
                                 widget->objectName() + ": " + text;
            }
        }
        return found;
    }

    // One letter leads to one entry of a menu, and to one place in a window.
    QStringList clashesIn(const QWidget *window, const QString &name)
    {
        QStringList found;
        const auto look = [&](const QStringList &texts) {
            QMultiMap<QString, QString> owners;
            for (const QString &text : texts)
                owners.insert(QKeySequence::mnemonic(text).toString(), text);
            owners.remove(QString());
            for (const QString &key : owners.uniqueKeys()) {
                if (owners.count(key) > 1)
                    found << name + ": " + key + ": " + owners.values(key).join(", ");
            }
        };
        QStringList entries, places;
        if (const auto *menu = qobject_cast<const QMenu *>(window)) {
            for (const QAction *action : menu->actions())
                entries << action->text();
        }
        look(entries);
        for (const QMenuBar *bar : window->findChildren<QMenuBar *>()) {
            for (const QAction *action : bar->actions())
                places << action->text();
        }
        for (const QLabel *label : window->findChildren<QLabel *>())
            places << (label->buddy() ? label->text() : QString());
        for (const QAbstractButton *button : window->findChildren<QAbstractButton *>())
            places << button->text();
        look(places);
        return found;
    }

    int m_looked = 0;
};

QTEST_MAIN(WindowsTest)
#include "tst_windows.moc"

#include "workbench/guidewindow.h"

#include <QAbstractTextDocumentLayout>
#include <QApplication>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QPushButton>
#include <QScrollBar>
#include <QShortcut>
#include <QTextBlock>
#include <QTextBrowser>
#include <QUrl>
#include <QVBoxLayout>

#include "workbench/helptopics.h"
#include "workbench/windowmemory.h"

namespace Workbench {

GuideWindow::GuideWindow(QWidget *parent) : QDialog(parent), m_text(new QTextBrowser)
{
    setWindowTitle(tr("Guide"));
    setAttribute(Qt::WA_DeleteOnClose);
    resize(fontMetrics().averageCharWidth() * 84, fontMetrics().height() * 34);
    m_text->setOpenLinks(false);
    m_text->setAccessibleName(tr("Guide"));
    auto *contents = new QPushButton(tr("&Contents"));
    auto *back = new QPushButton(tr("&Back"));
    auto *close = new QPushButton(tr("Close"));
    auto *buttons = new QHBoxLayout;
    for (QPushButton *button : {contents, back}) {
        button->setAutoDefault(false);
        buttons->addWidget(button);
    }
    buttons->addStretch();
    buttons->addWidget(close);
    auto *layout = new QVBoxLayout(this);
    layout->addLayout(buttons);
    layout->addWidget(m_text);
    connect(m_text, &QTextBrowser::anchorClicked, this, &GuideWindow::follow);
    connect(contents, &QPushButton::clicked, this, [this] { follow(QUrl("index.md")); });
    connect(back, &QPushButton::clicked, this, &GuideWindow::goBack);
    connect(close, &QPushButton::clicked, this, &QWidget::close);
    connect(new QShortcut(QKeySequence::Back, this), &QShortcut::activated, this, &GuideWindow::goBack);
    m_text->setFocus();
    WindowMemory::keep(this, "guide");
}

void GuideWindow::showTopic(const QString &topic)
{
    m_topic = guidePage(topic).isEmpty() ? QString("index") : topic;
    m_text->setMarkdown(guidePage(m_topic));
    m_text->moveCursor(QTextCursor::Start);
}

// Links lead from page to page, to a part of one, and nowhere else.
void GuideWindow::follow(const QUrl &link)
{
    const QString topic = QFileInfo(link.path()).completeBaseName();
    if (guidePage(topic).isEmpty())
        return;
    if (topic != m_topic) {
        m_before << m_topic;
        showTopic(topic);
    }
    showPart(link.fragment());
}

void GuideWindow::showPart(const QString &anchor)
{
    const QTextDocument *page = m_text->document();
    for (QTextBlock block = page->begin(); block.isValid(); block = block.next()) {
        if (block.blockFormat().headingLevel() == 0 || headingAnchor(block.text()) != anchor)
            continue;
        const QRectF place = page->documentLayout()->blockBoundingRect(block);
        m_text->verticalScrollBar()->setValue(int(place.top()));
        return;
    }
}

void GuideWindow::goBack()
{
    if (!m_before.isEmpty())
        showTopic(m_before.takeLast());
}

GuideKey::GuideKey(QObject *parent) : QObject(parent)
{
    qApp->installEventFilter(this);
}

// Below the dialog that is open, if any: other windows get no keys then.
void GuideKey::openFor(QWidget *widget)
{
    auto *guide = qobject_cast<GuideWindow *>(widget ? widget->window() : nullptr);
    if (guide)
        return guide->showTopic("index");
    QWidget *window = QApplication::activeModalWidget();
    if (!window && widget)
        window = widget->window();
    if (window)
        guide = window->findChild<GuideWindow *>(QString(), Qt::FindDirectChildrenOnly);
    if (!guide)
        guide = new GuideWindow(window);
    guide->showTopic(helpTopic(widget));
    guide->show();
    guide->raise();
    guide->activateWindow();
}

bool GuideKey::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() != QEvent::KeyPress || !watched->isWidgetType())
        return false;
    const auto *key = static_cast<QKeyEvent *>(event);
    if (key->key() != Qt::Key_F1 || key->modifiers() != Qt::NoModifier)
        return false;
    openFor(static_cast<QWidget *>(watched));
    return true;
}

} // namespace Workbench

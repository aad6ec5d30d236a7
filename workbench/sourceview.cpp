#include "workbench/sourceview.h"

#include <KSyntaxHighlighting/Definition>
#include <KSyntaxHighlighting/Repository>
#include <KSyntaxHighlighting/SyntaxHighlighter>
#include <KSyntaxHighlighting/Theme>
#include <QEvent>
#include <QFileInfo>
#include <QLabel>
#include <QScrollBar>
#include <QVBoxLayout>

#include "host/viewmanager.h"
#include "workbench/findbar.h"
#include "workbench/projectwatch.h"
#include "workbench/shownsource.h"
#include "workbench/sourceedit.h"
#include "workbench/sourceplace.h"

namespace Workbench {
namespace {

// Reading what languages there are takes a while.
KSyntaxHighlighting::Repository &languages()
{
    static KSyntaxHighlighting::Repository repository;
    return repository;
}

} // namespace

SourceView::SourceView(const QString &path)
    : Core::IView(nullptr),
      m_path(path),
      m_notice(new QLabel),
      m_edit(new SourceEdit),
      m_colours(new KSyntaxHighlighting::SyntaxHighlighter(m_edit->document())),
      m_watch(new ProjectWatch(this))
{
    setShortTitle(QFileInfo(path).fileName());
    setWindowTitle(path);
    m_edit->setAccessibleName(QFileInfo(path).fileName());
    m_notice->setTextFormat(Qt::PlainText);
    m_notice->setWordWrap(true);
    m_notice->setMargin(4);
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(m_notice);
    layout->addWidget(m_edit);
    layout->addWidget(new FindBar(m_edit, this));
    setFocusProxy(m_edit);
    chooseColours();
    load();
    m_watch->follow(path);
    connect(m_watch, &ProjectWatch::stirred, this, &SourceView::load);
}

void SourceView::open(const SourcePlace &place)
{
    SourceView *view = nullptr;
    for (Core::IView *open : Core::ViewManager::instance()->views()) {
        auto *source = qobject_cast<SourceView *>(open);
        if (source && source->path() == place.file)
            view = source;
    }
    if (!view)
        view = new SourceView(place.file);
    Core::ViewManager::instance()->showView(view);
    view->edit()->markLine(place.line);
    view->edit()->setFocus();
}

// What is in view stays there when the file changed.
void SourceView::load()
{
    const ShownSource source = readShownSource(m_path);
    m_notice->setText(source.notice);
    m_notice->setVisible(!source.notice.isEmpty());
    if (source.text == m_edit->toPlainText())
        return;
    const int down = m_edit->verticalScrollBar()->value(), right = m_edit->horizontalScrollBar()->value();
    const int position = m_edit->textCursor().position();
    m_colours->setDefinition(source.isLarge ? KSyntaxHighlighting::Definition()
                                            : languages().definitionForFileName(m_path));
    m_edit->setPlainText(source.text);
    QTextCursor cursor = m_edit->textCursor();
    cursor.setPosition(qMin(position, source.text.size()));
    m_edit->setTextCursor(cursor);
    m_edit->verticalScrollBar()->setValue(down);
    m_edit->horizontalScrollBar()->setValue(right);
}

void SourceView::chooseColours()
{
    const bool isDark = palette().color(QPalette::Base).lightness() < 128;
    m_colours->setTheme(languages().defaultTheme(isDark ? KSyntaxHighlighting::Repository::DarkTheme
                                                        : KSyntaxHighlighting::Repository::LightTheme));
    m_colours->rehighlight();
}

void SourceView::changeEvent(QEvent *event)
{
    Core::IView::changeEvent(event);
    if (event->type() == QEvent::PaletteChange)
        chooseColours();
}

} // namespace Workbench

#include "workbench/sourceedit.h"

#include <QEvent>
#include <QFontDatabase>
#include <QFontInfo>
#include <QPaintEvent>
#include <QPainter>
#include <QTextBlock>

namespace Workbench {

namespace {

// A desktop that names none gives a proportional one.
QFont fixedFont()
{
    QFont font = QFontDatabase::systemFont(QFontDatabase::FixedFont);
    if (!QFontInfo(font).fixedPitch()) {
        font.setFamily("Monospace");
        font.setStyleHint(QFont::TypeWriter);
    }
    return font;
}

} // namespace

class LineNumbers : public QWidget
{
public:
    explicit LineNumbers(SourceEdit *edit) : QWidget(edit), m_edit(edit) {}

protected:
    void paintEvent(QPaintEvent *event) override { m_edit->paintNumbers(event); }

private:
    SourceEdit *m_edit;
};

SourceEdit::SourceEdit(QWidget *parent) : QPlainTextEdit(parent), m_numbers(new LineNumbers(this))
{
    setReadOnly(true);
    setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    setLineWrapMode(NoWrap);
    setFont(fixedFont());
    setTabStopDistance(4 * fontMetrics().horizontalAdvance(' '));
    connect(this, &QPlainTextEdit::blockCountChanged, this, &SourceEdit::placeNumbers);
    connect(this, &QPlainTextEdit::textChanged, this,
            &SourceEdit::showMark); // a new text takes it to its end
    connect(this, &QPlainTextEdit::updateRequest, this, [this](const QRect &changed, int moved) {
        if (moved)
            m_numbers->scroll(0, moved);
        else
            m_numbers->update(0, changed.y(), m_numbers->width(), changed.height());
    });
    placeNumbers();
}

void SourceEdit::markLine(int line)
{
    m_marked = line;
    const QTextBlock block = document()->findBlockByNumber(line - 1);
    if (block.isValid()) {
        setTextCursor(QTextCursor(block));
        centerCursor();
    }
    showMark();
}

void SourceEdit::showMark()
{
    QList<QTextEdit::ExtraSelection> selections;
    const QTextBlock block = document()->findBlockByNumber(m_marked - 1);
    if (block.isValid()) {
        QTextEdit::ExtraSelection mark;
        QColor colour = palette().color(QPalette::Highlight);
        colour.setAlpha(70);
        mark.format.setBackground(colour);
        mark.format.setProperty(QTextFormat::FullWidthSelection, true);
        mark.cursor = QTextCursor(block);
        selections << mark;
    }
    setExtraSelections(selections);
}

void SourceEdit::placeNumbers()
{
    const int digits = qMax(3, QString::number(blockCount()).size());
    const int width = fontMetrics().horizontalAdvance('9') * digits + 12;
    setViewportMargins(width, 0, 0, 0);
    const QRect inside = contentsRect();
    m_numbers->setGeometry(inside.left(), inside.top(), width, inside.height());
    m_numbers->update();
}

void SourceEdit::paintNumbers(QPaintEvent *event)
{
    QPainter painter(m_numbers);
    painter.fillRect(event->rect(), palette().color(QPalette::Window));
    painter.setFont(font());
    QTextBlock block = firstVisibleBlock();
    int top = qRound(blockBoundingGeometry(block).translated(contentOffset()).top());
    for (; block.isValid() && top <= event->rect().bottom(); block = block.next()) {
        const int height = qRound(blockBoundingRect(block).height());
        const int line = block.blockNumber() + 1;
        const QPalette::ColorGroup group = line == m_marked ? QPalette::Active : QPalette::Disabled;
        painter.setPen(palette().color(group, QPalette::WindowText));
        painter.drawText(0, top, m_numbers->width() - 6, height, Qt::AlignRight | Qt::AlignVCenter,
                         QString::number(line));
        top += height;
    }
}

void SourceEdit::resizeEvent(QResizeEvent *event)
{
    QPlainTextEdit::resizeEvent(event);
    placeNumbers();
}

void SourceEdit::changeEvent(QEvent *event)
{
    QPlainTextEdit::changeEvent(event);
    if (event->type() == QEvent::PaletteChange)
        showMark();
    else if (event->type() == QEvent::FontChange)
        placeNumbers();
}

} // namespace Workbench

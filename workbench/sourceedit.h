#pragma once

#include <QPlainTextEdit>

namespace Workbench {

// A text to read, with the numbers of its lines beside it and one line marked.
class SourceEdit : public QPlainTextEdit
{
    Q_OBJECT

public:
    explicit SourceEdit(QWidget *parent = nullptr);

    void markLine(int line); // from 1; 0: none. Brings it into view.

protected:
    void resizeEvent(QResizeEvent *event) override;
    void changeEvent(QEvent *event) override;

private:
    friend class LineNumbers;
    void placeNumbers();
    void paintNumbers(QPaintEvent *event);
    void showMark();

    QWidget *m_numbers;
    int m_marked = 0;
};

} // namespace Workbench

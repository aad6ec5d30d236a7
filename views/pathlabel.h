#pragma once

#include <QLabel>

namespace RTLJEX {

// A text about a file. Where there is no room for a whole line the path in it is drawn without its beginning;
// the tool tip has it whole.
class PathLabel : public QLabel
{
    Q_OBJECT

public:
    explicit PathLabel(QWidget *parent = nullptr) : QLabel(parent) {}

    void setPath(const QString &path); // as it stands in the text
    QString shownText() const;         // in the width that the label has

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    QString m_path;
};

} // namespace RTLJEX

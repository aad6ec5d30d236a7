#pragma once

#include <QLabel>

namespace RTLJEX {

// Shows a usage, and paints what stands out in it in a red that can be read on the palette, light or dark.
class UsageLabel : public QLabel
{
    Q_OBJECT

public:
    explicit UsageLabel(QWidget *parent = nullptr) : QLabel(parent) {}

protected:
    void paintEvent(QPaintEvent *event) override;
};

} // namespace RTLJEX

#pragma once

#include "options/litecaptureoptionwidget.h"
#include "options/plainpage.h"

namespace RTLJEX {

// The editor of one Lite core.
class LiteAoOptionWidget : public PlainPage<JEX::AOCore_Lite, LiteCaptureOptionWidget>
{
    Q_OBJECT

public:
    LiteAoOptionWidget(JEX::AOCore_Lite *core, QUARRY::RtlNetlist *netlist, QWidget *parent = nullptr);

Q_SIGNALS:
    void modified();
};

} // namespace RTLJEX

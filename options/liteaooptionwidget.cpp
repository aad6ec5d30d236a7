#include "options/liteaooptionwidget.h"

namespace RTLJEX {

LiteAoOptionWidget::LiteAoOptionWidget(JEX::AOCore_Lite *core, QUARRY::RtlNetlist *netlist, QWidget *parent)
    : PlainPage(core, netlist, parent)
{
    connect(capture, SIGNAL(modified()), SIGNAL(modified()));
}

} // namespace RTLJEX

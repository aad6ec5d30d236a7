#pragma once

#include "options/litecaptureoptionwidget.h"
#include "options/plainpage.h"

namespace RTLJEX {

// The editor of one Lite core.
class LiteAoOptionWidget : public PlainPage<JEX::AOCore_Lite, LiteCaptureOptionWidget>
{
    Q_OBJECT

public:
    using PlainPage::PlainPage;
};

} // namespace RTLJEX

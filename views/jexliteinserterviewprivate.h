#pragma once

#include "options/liteaooptionwidget.h"
#include "views/plainrecord.h"

namespace RTLJEX {

class JexLiteInserterView;

namespace private_impl {

struct LiteFile
{
    typedef JexLiteInserterView View;
    typedef JEX::AOCore_Lite Core;
    typedef LiteAoOptionWidget Page;
    static void showDesign(Page *page, QUARRY::RtlNetlist *netlist) { page->setNlsData(netlist); }
};

// The state of one Lite editor and its form.
class JexLiteInserterViewPrivate : public PlainRecord<LiteFile>
{
    Q_OBJECT

public:
    explicit JexLiteInserterViewPrivate(JexLiteInserterView *view);

    QWidget *changedBanner; // null until it was shown once

public Q_SLOTS:
    void initAoOptionWidget();
    void onAoComboChanged(int index); // the combo box chooses nothing: a Lite file keeps its cores
    void addOneAo();
    void removeOneAo(); // does nothing, as above
    bool save();
    void onModified();
    void showChangedBanner(); // for the host to call by name
    void onOKBtn();
};

} // namespace private_impl
} // namespace RTLJEX

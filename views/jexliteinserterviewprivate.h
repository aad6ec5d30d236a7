#pragma once

#include "options/liteaooptionwidget.h"
#include "ui_jexliteinserterview.h"
#include "views/moderecord.h"

namespace RTLJEX {

class JexLiteInserterView;

namespace private_impl {

struct LiteFile
{
    typedef JexLiteInserterView View;
    typedef JEX::AOCore_Lite Core;
    typedef LiteAoOptionWidget Page;
    static constexpr JEX::JexMode mode = JEX::LiteMode;
    static constexpr auto showDesign = &LiteAoOptionWidget::setNlsData;
};

// The state of one Lite editor and its form.
class JexLiteInserterViewPrivate : public ModeRecord<LiteFile>
{
    Q_OBJECT

public:
    explicit JexLiteInserterViewPrivate(JexLiteInserterView *view);
    ~JexLiteInserterViewPrivate() override;

    // Null is refused: the pages keep what they have.
    void setNlsData(QUARRY::RtlNetlist *fresh) override;
    QWidget *showPage(int core) override; // what the box of cores does not do

    Ui::JexLiteInserterView ui;
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

private:
    void showCores() override;
    void insertPage(LiteAoOptionWidget *page, int number) override;
    void removePage(LiteAoOptionWidget *page) override;
    QString errorsText() const override;
    void addPage(JEX::AOCore_Lite *core, QWidget *parent, int number);
};

} // namespace private_impl
} // namespace RTLJEX

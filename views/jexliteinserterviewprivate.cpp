#include "views/jexliteinserterviewprivate.h"

#include "views/changedbanner.h"
#include "views/jexliteinserterview.h"

namespace RTLJEX {
namespace private_impl {

JexLiteInserterViewPrivate::JexLiteInserterViewPrivate(JexLiteInserterView *view)
    : PlainRecord<LiteFile>(view), changedBanner(nullptr)
{
}

void JexLiteInserterViewPrivate::initAoOptionWidget()
{
    makePages();
}

void JexLiteInserterViewPrivate::onAoComboChanged(int)
{
}

void JexLiteInserterViewPrivate::addOneAo()
{
    addCore();
}

void JexLiteInserterViewPrivate::removeOneAo()
{
}

bool JexLiteInserterViewPrivate::save()
{
    return saveFile();
}

void JexLiteInserterViewPrivate::onModified()
{
    noteEdit(sender());
}

void JexLiteInserterViewPrivate::showChangedBanner()
{
    if (!changedBanner) {
        changedBanner = createChangedBanner(this, q);
        ui.verticalLayout->insertWidget(ui.verticalLayout->indexOf(ui.bannerContainer), changedBanner);
    }
    changedBanner->show();
}

void JexLiteInserterViewPrivate::onOKBtn()
{
    if (changedBanner)
        changedBanner->hide();
}

} // namespace private_impl
} // namespace RTLJEX

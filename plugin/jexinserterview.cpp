#include "plugin/jexinserterview.h"

namespace RTLJEX {

JexInserterView::JexInserterView(QWidget *parent) : Core::IView(parent)
{
}

JexInserterView::~JexInserterView()
{
}

} // namespace RTLJEX

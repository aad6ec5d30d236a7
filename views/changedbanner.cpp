#include "views/changedbanner.h"

#include <QWidget>

#include "ui_changedbanner.h"

namespace RTLJEX {

QWidget *createChangedBanner(QObject *receiver, QWidget *parent)
{
    QWidget *banner = new QWidget(parent);
    Ui::ChangedBanner ui;
    ui.setupUi(banner);
    QObject::connect(ui.okBtn, SIGNAL(clicked()), receiver, SLOT(onOKBtn()));
    banner->hide();
    return banner;
}

} // namespace RTLJEX

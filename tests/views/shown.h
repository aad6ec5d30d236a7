#pragma once

#include <QCheckBox>
#include <QLabel>
#include <QPointer>
#include <QPushButton>
#include <QStackedWidget>
#include <QTest>
#include <QVBoxLayout>

#include "views/jexliteinserterview.h"
#include "views/reloadbanner.h"

// An editor in a container of its own, as the host shows it.
struct Shown
{
    explicit Shown(const QString &file)
        : container(new QWidget), view(new RTLJEX::JexLiteInserterView(container))
    {
        QVBoxLayout *layout = new QVBoxLayout(container);
        layout->addWidget(view);
        container->resize(900, 600);
        opened = view->open(file, QString(), &error);
        container->show();
    }
    ~Shown() { delete container; }

    template <class Widget>
    Widget *find(const char *name) const
    {
        // The page in view comes first: every page has controls of that name.
        Widget *found =
            view->findChild<QStackedWidget *>("stackedWidget")->currentWidget()->findChild<Widget *>(name);
        return found ? found : view->findChild<Widget *>(name);
    }
    void edit() { find<QCheckBox>("enableInputRegCheckBox")->click(); }

    // A slot that a host may call by its name, wherever below the view it is.
    bool call(const char *slot) const
    {
        for (QObject *child : view->children())
            if (child->metaObject()->indexOfSlot(slot + QByteArray("()")) >= 0)
                return QMetaObject::invokeMethod(child, slot);
        return false;
    }

    QStringList banners() const
    {
        QStringList texts;
        for (RTLJEX::ReloadBanner *banner : view->findChildren<RTLJEX::ReloadBanner *>())
            texts << banner->findChild<QLabel *>("labelFile")->text();
        return texts;
    }
    void answer(const QString &button) const
    {
        for (QPushButton *found : view->findChild<RTLJEX::ReloadBanner *>()->findChildren<QPushButton *>())
            if (found->text() == button)
                return found->click();
        QFAIL(qPrintable("no button " + button));
    }

    QPointer<QWidget> container;
    QPointer<RTLJEX::JexLiteInserterView> view;
    QString error;
    bool opened;
};

static const char faultyDesign[] = "module top(input clk);\n  assign = 1;\nendmodule\n";

#pragma once

#include "host/project.h"
#include "model/jex/core.h"
#include "model/netlist/rtlnetlist.h"
#include "options/captureoptionwidget.h"
#include "options/litecaptureoptionwidget.h"
#include "options/triggeroptionwidget.h"
#include "signals/signalrows.h"
#include "signals/signaltreewidget.h"
#include "tests/support/netlisttext.h"
#include "tests/support/netpicker.h"
#include "tests/support/signaltext.h"

// A project that is open as long as this lives, on a device with or without shadow memory.
class Device
{
public:
    explicit Device(bool withSsram)
    {
        Core::ProjectManager::setCurrentProject(&m_project);
        change(withSsram);
    }
    ~Device() { Core::ProjectManager::setCurrentProject(nullptr); }

    void change(bool withSsram)
    {
        DEV::DeviceArg device;
        device.series = withSsram ? "ECP5" : "iCE40";
        device.device = withSsram ? "LFE5U-25F" : "iCE40HX8K";
        m_project.setDevice(device);
    }

private:
    Core::Project m_project;
};

// A tab in a window of its own, with a user for its dialogs.
class Page
{
public:
    template <class Widget, class Core>
    void openPage(Core &core)
    {
        Widget *page = new Widget(&core, netlist.get());
        widget.reset(page);
        save = [page] { page->save(); };
        modified.reset(new QSignalSpy(page, SIGNAL(modified())));
        page->resize(900, 500);
        page->show();
        page->activateWindow();
    }
    template <typename T>
    T *child(const char *name) const
    {
        return widget->findChild<T *>(name);
    }

    static void choose(QComboBox *box, const QString &text)
    {
        QVERIFY2(box->findText(text) >= 0, qPrintable(text));
        box->setCurrentIndex(box->findText(text));
    }
    // "BSRAM REG:REG", all texts and the chosen one.
    static QString offered(const QComboBox *box)
    {
        QStringList texts;
        for (int i = 0; i < box->count(); ++i)
            texts << box->itemText(i);
        return texts.join(' ') + ":" + box->currentText();
    }

    std::unique_ptr<QUARRY::RtlNetlist> netlist{
        netlistFromText("top\n  clk\n  rst\n  data[7:0]\n  u0:uart\n    ready\n    count[3:0]\n")};
    JEX::AoCore aoCore{0};
    ModalDriver user;
    std::unique_ptr<QWidget> widget;
    std::unique_ptr<QSignalSpy> modified;
    std::function<void()> save;
};

// The capture page of either editor: fill in the core and open. What both have is reached alike, whatever
// core and form call it.
class CapturePage : public Page
{
public:
    explicit CapturePage(bool isStandard, const QString &signalText = QString(), int size = 1024)
        : standard(isStandard),
          stored(isStandard ? aoCore.captureSignals : liteCore.captureSignals),
          implementationField(isStandard ? aoCore.captureImplementation : liteCore.implementation)
    {
        stored = signalsFromText(signalText);
        aoCore.storageSize = liteCore.captureAmount = size;
    }

    CapturePage &open()
    {
        if (standard)
            openPage<RTLJEX::CaptureOptionWidget>(aoCore);
        else
            openPage<RTLJEX::LiteCaptureOptionWidget>(liteCore);
        return *this;
    }

    QComboBox *size() const { return child<QComboBox>(standard ? "comboStorageSize" : "comboCapAmount"); }
    QComboBox *implementation() const { return child<QComboBox>(standard ? "comboImpl" : "implementation"); }
    RTLJEX::signalTreeWidget *tree() const { return widget->findChild<RTLJEX::signalTreeWidget *>(); }
    QString usage() const
    {
        return child<QLabel>(standard ? "label_8" : "label_3")->text() + " " +
               child<QLabel>(standard ? "label_9" : "label_8")->text();
    }
    // "top/clk,top/data[7:0](8),-top/rst": members counted, disabled rows with a dash.
    QString rows() const
    {
        QStringList texts;
        for (const JEX::SignalItem &item : RTLJEX::topLevelRecords(tree()))
            texts << (item.capEnable ? "" : "-") + (item.alias.isEmpty() ? item.name : item.alias) +
                         (item.members.isEmpty() ? QString() : QString("(%1)").arg(item.members.size()));
        return texts.join(',');
    }

    // Clicks a button that opens the search dialog and picks rows by their text there.
    void pick(const char *opener, const QStringList &names,
              QDialogButtonBox::StandardButton leave = QDialogButtonBox::Ok)
    {
        user.then(pickNets(QString(), names, leave));
        child<QPushButton>(opener)->click();
        QVERIFY(user.done());
    }

    const bool standard;
    JEX::AOCore_Lite liteCore;
    QList<JEX::SignalItem> &stored;
    qint32 &implementationField;
};

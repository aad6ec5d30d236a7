#pragma once

#include <QComboBox>
#include <QLabel>
#include <QtTest>
#include <memory>

#include "model/jex/core.h"
#include "model/quarry/rtlnetlist.h"
#include "options/captureoptionwidget.h"
#include "options/litecaptureoptionwidget.h"
#include "signals/signalrows.h"
#include "signals/signaltreewidget.h"
#include "tests/signals/signaltext.h"
#include "tests/support/netlisttext.h"
#include "tests/support/netpicker.h"

// The capture page of either editor in a window of its own: fill in the core, open, and look at its controls.
// What both have is reached alike, whatever core and form call it.
class CapturePage
{
public:
    explicit CapturePage(bool isStandard, const QString &signalText = QString(), int size = 1024)
        : standard(isStandard),
          stored(isStandard ? aoCore.captureSignals : liteCore.captureSignals),
          enabled(isStandard ? aoCore.enabledCaptureSignals : liteCore.enabledCaptureSignals),
          implementationField(isStandard ? aoCore.captureImplementation : liteCore.implementation),
          netlist(netlistFromText("top\n  clk\n  rst\n  data[7:0]\n  u0:uart\n    ready\n    count[3:0]\n"))
    {
        stored = signalsFromText(signalText);
        aoCore.storageSize = liteCore.captureAmount = size;
    }

    void open()
    {
        if (standard)
            openPage<RTLJEX::CaptureOptionWidget>(aoCore);
        else
            openPage<RTLJEX::LiteCaptureOptionWidget>(liteCore);
    }

    // The numbers and flags of the core, in one order.
    QList<qint32 *> numbers()
    {
        if (!standard)
            return {&liteCore.sampleEdge, &liteCore.implementation, &liteCore.captureAmount};
        return {&aoCore.sampleEdge,   &aoCore.captureImplementation, &aoCore.storageSize,
                &aoCore.windowNumber, &aoCore.captureAmount,         &aoCore.triggerPosition};
    }
    QList<bool *> flags()
    {
        if (!standard)
            return {&liteCore.enableCaptureDataInputRegister, &liteCore.captureInitialData};
        return {&aoCore.forceTriggerByFallingEdge, &aoCore.captureInitialData};
    }

    template <typename T>
    T *child(const char *name) const
    {
        return widget->findChild<T *>(name);
    }
    QComboBox *size() const { return child<QComboBox>(standard ? "comboStorageSize" : "comboCapAmount"); }
    QComboBox *implementation() const { return child<QComboBox>(standard ? "comboImpl" : "implementation"); }
    RTLJEX::signalTreeWidget *tree() const { return widget->findChild<RTLJEX::signalTreeWidget *>(); }
    QString usage() const
    {
        return child<QLabel>(standard ? "label_8" : "label_3")->text() + " " +
               child<QLabel>(standard ? "label_9" : "label_8")->text();
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

    // "top/clk,top/data[7:0](8),-top/rst": members counted, disabled rows with a dash.
    QString rows() const
    {
        QStringList texts;
        for (int i = 0; i < tree()->topLevelItemCount(); ++i) {
            const QTreeWidgetItem *row = tree()->topLevelItem(i);
            texts << (RTLJEX::recordOf(row).capEnable ? "" : "-") + row->text(0) +
                         (row->childCount() ? QString("(%1)").arg(row->childCount()) : QString());
        }
        return texts.join(',');
    }

    // Clicks a button that opens the search dialog and picks rows by their text there.
    void pick(const char *opener, const QStringList &names,
              QDialogButtonBox::StandardButton leave = QDialogButtonBox::Ok)
    {
        user.then(pickNets(QString(), names, leave));
        QTest::mouseClick(child<QPushButton>(opener), Qt::LeftButton);
        QVERIFY(user.done());
    }

    const bool standard;
    JEX::AoCore aoCore{0};
    JEX::AOCore_Lite liteCore;
    QList<JEX::SignalItem> &stored, &enabled;
    qint32 &implementationField;
    std::unique_ptr<QUARRY::RtlNetlist> netlist;
    ModalDriver user;
    std::unique_ptr<QWidget> widget;
    std::unique_ptr<QSignalSpy> modified;
    std::function<void()> save;
    std::function<void(QUARRY::RtlNetlist *)> rebuild;

private:
    template <class Widget, class Core>
    void openPage(Core &core)
    {
        Widget *page = new Widget(&core, netlist.get());
        widget.reset(page);
        save = [page] { page->save(); };
        rebuild = [page](QUARRY::RtlNetlist *design) {
            page->setNlsdata(design);
            page->updateTree();
        };
        modified.reset(new QSignalSpy(page, SIGNAL(modified())));
        page->show();
    }
};

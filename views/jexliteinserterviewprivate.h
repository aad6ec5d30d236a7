#pragma once

#include <QList>
#include <QObject>
#include <QString>
#include <functional>

#include "model/jex/core.h"
#include "ui_jexliteinserterview.h"

class QFileSystemWatcher;
namespace QUARRY {
class RtlNetlist;
}

namespace RTLJEX {

class JexLiteInserterView;
class LiteAoOptionWidget;

namespace private_impl {

// The state of one Lite editor and its form. Owns the cores and the netlist; the pages, which belong to the
// form's stack, only point at both and go first.
class JexLiteInserterViewPrivate : public QObject
{
    Q_OBJECT

public:
    explicit JexLiteInserterViewPrivate(JexLiteInserterView *view);
    ~JexLiteInserterViewPrivate() override;

    void setModified(bool value);                            // calls the callback on a change
    JEX::AOCore_Lite *getCoreByIndex(int index) const;       // null when there is none
    LiteAoOptionWidget *getAoWidgetByIndex(int index) const; // null when there is none
    // Takes the netlist over, shows it in every page and deletes the old one. Null is refused: the pages
    // keep what they have.
    void setNlsData(QUARRY::RtlNetlist *fresh);
    bool check(QString *errors) const;

    void showCores(const QList<JEX::AOCore_Lite *> &fresh); // takes them over in place of the old ones
    void handNetlistToPages();

    JexLiteInserterView *q;
    Ui::JexLiteInserterView ui;
    QString fileName;
    QList<JEX::AOCore_Lite *> cores;       // owned
    QList<LiteAoOptionWidget *> aoWidgets; // one a core, in core order
    QUARRY::RtlNetlist *netlist;           // owned
    QWidget *changedBanner;                // null until it was shown once
    QFileSystemWatcher *fileWatcher;       // child
    bool modified;
    bool reloadCheckPending; // from a change of the file until its banner is answered
    std::function<void(bool)> modificationCallback;

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
    void addPage(JEX::AOCore_Lite *core, QWidget *parent, int number);
    void deleteCores();
};

} // namespace private_impl
} // namespace RTLJEX

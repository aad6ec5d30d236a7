#pragma once

#include <QMap>
#include <QStringList>
#include <QVariant>

#include "host/eventmanager.h"
#include "host/ifileeditor.h"
#include "host/inetplaces.h"
#include "host/isignaltarget.h"
#include "host/isnapshot.h"
#include "plugin/jexinserterview.h"

class QCloseEvent;
namespace QUARRY {
class RtlNetlist;
}

namespace RTLJEX {

namespace private_impl {
class EditorRecord;
}

// The operations that editors of all modes have. Watches file and design, and asks in banners before it
// reads either again. Opens only with a design that can be parsed. The slots are each editor's own, since
// hosts, forms and banners know them by name.
class EditorView : public JexInserterView,
                   public QUtil::IEventHandler,
                   public Core::IFileEditor,
                   public Core::INetPlaces,
                   public Core::ISignalTarget,
                   public Core::ISnapshot
{
public:
    QString file() const override;
    bool open(const QString &fileName, const QString &extra, QString *errorMessage) override;
    bool save() override;
    bool isModified() const override;
    void handleIEvent(const QUtil::IEvent *event) override;
    // What refused the last save, and the signals that the design does not have.
    QList<Core::Finding> findings() const override;
    void showFinding(const Core::Finding &finding) override;
    bool replaceNet(const Core::Finding &finding, const QString &name, bool alike,
                    QStringList *told) override;
    QString focusedNet() const override; // of the capture list, the trigger ports, or the clock
    Core::NetPlace placeOf(const QString &net) const override;
    Core::EditedFile editedFile() const override;
    bool reloadFile() override;
    bool saveFileAs(const QString &path) override;
    int checkShown() const override;
    QString shownPlace() const override; // core and tab
    void showPlace(const QString &place) override;
    // Of the core that is shown.
    QString signalPlace(const QWidget *widget, const QPoint &position) const override;
    bool addSignals(const QMimeData &data, const QWidget *widget, const QPoint &position,
                    QStringList *faults) override;
    QMimeData *chosenSignals() const override;
    QByteArray snapshot() const override;
    bool restoreSnapshot(const QByteArray &bytes) override;
    bool isSnapshotSaved() const override;

    QUARRY::RtlNetlist *updateRtlNetlist(); // a new netlist for the caller; null: there is none
    bool getRtlModules(QMap<QString, QVariant> &info, QStringList &topModules, QStringList &modules,
                       QStringList &messages); // the library's answer
    static QStringList includePaths();

    // Both ask whether to read the design again.
    void designFileChanged();
    void topModuleChanged();

    // Reads the file again and drops all edits, but keeps the netlist. Nothing changes when it fails.
    bool reloadJexFile();

protected:
    explicit EditorView(QWidget *parent);
    void closeEvent(QCloseEvent *event) override;

    void setRecord(private_impl::EditorRecord *record); // which the editor owns; calls back into it

private:
    bool maySave();

    private_impl::EditorRecord *m_record;
};

} // namespace RTLJEX

#pragma once

#include <QByteArray>
#include <QDateTime>
#include <QList>
#include <QString>
#include <map>
#include <memory>

class QLockFile;

namespace Workbench {

enum class KeptFor { Crash, Draft, UnreadableDesign };

// The state of an editor that is kept outside its file.
struct KeptState
{
    QString place;   // the file in the store
    QString file;    // that was edited
    QString project; // that was open; empty: none
    KeptFor reason = KeptFor::Crash;
    QDateTime time;
    QByteArray snapshot; // Core::ISnapshot
};

// Where states are kept: a folder of the user's, with one below it for each running workbench, which that
// locks, and one for drafts. What a workbench that has died left behind is told by its lock, and taken by one
// other alone.
class RecoveryStore
{
public:
    explicit RecoveryStore(const QString &folder);
    ~RecoveryStore();

    // In place of what was kept of that file, by this workbench or as a draft. False with a sentence.
    bool keep(const KeptState &state, QString *error);
    void drop(const QString &file); // of this workbench; drafts stay
    void discard(const KeptState &state);

    QList<KeptState> left(); // by workbenches that are no more, the newest first
    bool findDraft(const QString &file, KeptState *state) const;

private:
    QString placeOf(const KeptState &state) const;
    bool openSession(QString *error);

    QString m_folder;
    QString m_session; // empty until something is kept
    std::unique_ptr<QLockFile> m_lock;
    std::map<QString, std::unique_ptr<QLockFile>> m_taken; // by the folder of a session that has died
};

} // namespace Workbench

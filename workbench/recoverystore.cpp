#include "workbench/recoverystore.h"

#include <QCoreApplication>
#include <QCryptographicHash>
#include <QDir>
#include <QFileInfo>
#include <QJsonDocument>
#include <QJsonObject>
#include <QLockFile>
#include <algorithm>

#include "host/atomicfile.h"
#include "host/regularfile.h"

namespace Workbench {
namespace {

const char *const stateSuffix = ".state";
const char *const draftFolder = "drafts";
const int mostAttempts = 20;
const qint64 largestState = 256 * QUtil::MiB;

const struct
{
    KeptFor reason;
    const char *word;
} reasons[] = {{KeptFor::Crash, "crash"}, {KeptFor::Draft, "draft"}, {KeptFor::UnreadableDesign, "design"}};

QString lockOf(const QString &session)
{
    return session + "/lock";
}

// One line of JSON, then the state.
QByteArray bytesOf(const KeptState &state)
{
    QJsonObject head{{"version", 1}, {"file", state.file}, {"project", state.project}};
    for (const auto &entry : reasons) {
        if (entry.reason == state.reason)
            head["reason"] = entry.word;
    }
    return QJsonDocument(head).toJson(QJsonDocument::Compact) + '\n' + state.snapshot;
}

bool readState(const QString &place, KeptState *state)
{
    QByteArray bytes;
    QString reason;
    if (!QUtil::readRegularFile(place, largestState, &bytes, &reason))
        return false;
    const int end = bytes.indexOf('\n');
    const QJsonObject head = QJsonDocument::fromJson(bytes.left(end)).object();
    state->place = place;
    state->file = head["file"].toString();
    state->project = head["project"].toString();
    state->snapshot = bytes.mid(end + 1);
    state->time = QFileInfo(place).lastModified();
    for (const auto &entry : reasons) {
        if (head["reason"].toString() == entry.word)
            state->reason = entry.reason;
    }
    return end > 0 && head["version"].toInt() == 1 && QDir::isAbsolutePath(state->file);
}

QList<KeptState> statesIn(const QString &folder)
{
    QList<KeptState> states;
    for (const QFileInfo &info : QDir(folder).entryInfoList({QString('*') + stateSuffix}, QDir::Files)) {
        KeptState state;
        if (readState(info.filePath(), &state))
            states << state;
    }
    return states;
}

struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(Workbench::RecoveryStore)
};

bool makePrivate(const QString &folder, QString *error)
{
    if (QDir().mkpath(folder) &&
        QFile::setPermissions(folder, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner))
        return true;
    *error =
        Texts::tr("The folder \"%1\", which keeps what is edited for the case of a crash, cannot be made.")
            .arg(QDir::toNativeSeparators(folder));
    return false;
}

const char *const leavingPrefix = "leaving-";

// Nobody looks for anything under such a name.
void removeLeaving(const QString &folder)
{
    for (const QString &name : QDir(folder).entryList({"lock*"}, QDir::Files))
        QFile::remove(folder + '/' + name);
    QDir().rmdir(folder);
}

// Under another name first, since somebody may be about to lock it. Its lock is held, and goes with it.
void removeIfEmpty(const QString &session)
{
    const QString leaving = QFileInfo(session).path() + '/' + leavingPrefix + QFileInfo(session).fileName();
    if (!QDir(session).entryList({QString('*') + stateSuffix}, QDir::Files).isEmpty() ||
        !QDir().rename(session, leaving))
        return;
    removeLeaving(leaving);
}

} // namespace

RecoveryStore::RecoveryStore(const QString &folder) : m_folder(QDir::cleanPath(folder))
{
}

RecoveryStore::~RecoveryStore()
{
    m_lock.reset();
    m_taken.clear();
    for (const QString &name : QDir(m_folder).entryList({"session-*"}, QDir::Dirs | QDir::NoSymLinks)) {
        QLockFile lock(lockOf(m_folder + '/' + name));
        lock.setStaleLockTime(0);
        if (lock.tryLock(0))
            removeIfEmpty(m_folder + '/' + name);
    }
    for (const QString &name :
         QDir(m_folder).entryList({QString(leavingPrefix) + '*'}, QDir::Dirs | QDir::NoSymLinks))
        removeLeaving(m_folder + '/' + name);
}

bool RecoveryStore::openSession(QString *error)
{
    if (!m_session.isEmpty())
        return true;
    // Another workbench that ends takes a folder that nobody has locked yet for one that was left.
    for (int attempt = 0; attempt < mostAttempts; ++attempt) {
        const QString session = QString("%1/session-%2-%3")
                                    .arg(m_folder)
                                    .arg(QCoreApplication::applicationPid())
                                    .arg(QDateTime::currentMSecsSinceEpoch() + attempt);
        if (!makePrivate(m_folder, error) || !makePrivate(session, error))
            return false;
        m_lock = std::make_unique<QLockFile>(lockOf(session));
        m_lock->setStaleLockTime(0); // it lives as long as its process
        if (m_lock->tryLock(0) && QFile::exists(lockOf(session))) {
            m_session = session;
            return true;
        }
    }
    *error =
        Texts::tr("No folder in \"%1\", which keeps what is edited for the case of a crash, can be locked.")
            .arg(QDir::toNativeSeparators(m_folder));
    return false;
}

QString RecoveryStore::placeOf(const KeptState &state) const
{
    const QByteArray name = QCryptographicHash::hash(state.file.toUtf8(), QCryptographicHash::Sha1).toHex();
    const QString folder = state.reason == KeptFor::Draft ? m_folder + '/' + draftFolder : m_session;
    return folder + '/' + name + stateSuffix;
}

bool RecoveryStore::keep(const KeptState &state, QString *error)
{
    const bool isDraft = state.reason == KeptFor::Draft;
    if (isDraft ? !makePrivate(m_folder, error) || !makePrivate(m_folder + '/' + draftFolder, error)
                : !openSession(error))
        return false;
    return QUtil::writeFileAtomically(placeOf(state), bytesOf(state), error);
}

void RecoveryStore::drop(const QString &file)
{
    KeptState state;
    state.file = file;
    if (!m_session.isEmpty())
        QFile::remove(placeOf(state));
}

void RecoveryStore::discard(const KeptState &state)
{
    if (state.place.startsWith(m_folder + '/'))
        QFile::remove(state.place);
}

QList<KeptState> RecoveryStore::left()
{
    QList<KeptState> states;
    for (const QFileInfo &info : QDir(m_folder).entryInfoList({"session-*"}, QDir::Dirs)) {
        const QString session = info.filePath();
        if (session == m_session || info.isSymLink())
            continue;
        auto lock = std::make_unique<QLockFile>(lockOf(session));
        lock->setStaleLockTime(0);
        if (!m_taken.count(session)) {
            if (!lock->tryLock(0))
                continue;
            m_taken.emplace(session, std::move(lock));
        }
        states << statesIn(session);
    }
    std::sort(states.begin(), states.end(),
              [](const KeptState &a, const KeptState &b) { return a.time > b.time; });
    return states;
}

bool RecoveryStore::findDraft(const QString &file, KeptState *state) const
{
    state->file = file;
    state->reason = KeptFor::Draft;
    return readState(placeOf(*state), state) && state->file == file;
}

} // namespace Workbench

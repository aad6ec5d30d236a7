#pragma once

#include <QString>

class QFileSystemWatcher;
class QObject;

namespace RTLJEX {

// A watcher forgets a file that is removed or replaced by a rename, as most programs do when they save.
// Call this whenever the file may be back: watches it when it exists and is not watched yet.
void watchFile(QFileSystemWatcher *watcher, const QString &fileName);

// Stops reports about the file; nothing when it is not watched.
void unwatchFile(QFileSystemWatcher *watcher, const QString &fileName);

// Reports stop while this lives: put it around the editor's own writing.
class WatchPause
{
public:
    WatchPause(QFileSystemWatcher *watcher, const QString &fileName);
    ~WatchPause();

private:
    WatchPause(const WatchPause &);
    WatchPause &operator=(const WatchPause &);

    QFileSystemWatcher *m_watcher;
    QString m_fileName;
};

// One report of a change. The first makes the editor's slot checkForReload() run once, half a second later,
// so that a burst of reports ends in one question; while `pending` is set others are dropped.
void scheduleReloadCheck(bool *pending, QObject *editor);

} // namespace RTLJEX

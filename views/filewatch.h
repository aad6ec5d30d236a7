#pragma once

#include <QBasicTimer>
#include <QFileSystemWatcher>

namespace RTLJEX {

// Watches the file of an editor by its name. The toolkit's watcher follows what the name stood for when it
// was added: after a replacement by a rename, as most programs save, that is the old file, which may live on,
// or nothing. So the name is added anew on every report and whenever a question about the file was answered.
class FileWatcher : public QFileSystemWatcher
{
    Q_OBJECT

public:
    explicit FileWatcher(QObject *parent) : QFileSystemWatcher(parent) {}

    void stop(const QString &fileName);
    void renew(const QString &fileName); // nothing is watched while there is no file
    void await(const QString &fileName); // as renew(); a file that is not there is looked for

Q_SIGNALS:
    void fileReturned(const QString &fileName); // that was awaited; not when the editor itself wrote it

protected:
    void timerEvent(QTimerEvent *event) override;

private:
    QString m_missing;
    QBasicTimer m_look;
};

// Reports stop while this lives: put it around the editor's own writing.
class WatchPause
{
public:
    WatchPause(FileWatcher *watcher, const QString &fileName);
    ~WatchPause();

private:
    WatchPause(const WatchPause &);
    WatchPause &operator=(const WatchPause &);

    FileWatcher *m_watcher;
    QString m_fileName;
};

// One report of a change. The first makes the editor's slot checkForReload() run once, half a second later,
// so that a burst of reports ends in one question; while `pending` is set others are dropped.
void scheduleReloadCheck(bool *pending, QObject *editor);

} // namespace RTLJEX

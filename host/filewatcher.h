#pragma once

#include <QBasicTimer>
#include <QFileSystemWatcher>
#include <QStringList>

namespace QUtil {

// Watches files by their names. The toolkit's watcher follows what a name stood for when it was added: after
// a replacement by a rename, as most programs save, that is the old file, which may live on, or nothing. So
// the name is to be added anew on every report, and whenever a question about the file was answered.
class FileWatcher : public QFileSystemWatcher
{
    Q_OBJECT

public:
    explicit FileWatcher(QObject *parent) : QFileSystemWatcher(parent) {}

    void stop(const QString &fileName);
    void
    renew(const QString &fileName); // nothing is watched while there is no file, or none that can be read
    void await(const QString &fileName);  // as renew(); a file that is not watched then is looked for
    void forget(const QString &fileName); // as stop(); nor is it looked for
    QStringList followed() const { return files() + m_missing; }

Q_SIGNALS:
    void fileReturned(const QString &fileName); // that was awaited; not when the program itself renewed it

protected:
    void timerEvent(QTimerEvent *event) override;

private:
    QStringList m_missing;
    QBasicTimer m_look;
};

// Reports stop while this lives: put it around the program's own writing.
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

} // namespace QUtil

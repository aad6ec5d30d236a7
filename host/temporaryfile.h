#pragma once

#include <QByteArray>

#include <sys/types.h>

#include "host/descriptor.h"
#include "host/savetarget.h"

namespace QUtil {

// A new file in the user's folder that is on its way to become a file of the user's. Gone when this ends
// before it was given its name. Locked all the time, which tells it from what a process left that died.
class TemporaryFile
{
public:
    TemporaryFile() : m_isExchanged(false) {}
    ~TemporaryFile();

    bool create(const QByteArray &folder, mode_t mode); // false, with errno
    int descriptor() const { return m_file.number(); }

    SaveFault fill(const QByteArray &bytes); // writes, flushes and closes it; the lock stays

    // Gives it the name, in place of what has it now. `keepsOld`: that file stays until this ends, so that it
    // can be given its name back; not where the file system cannot exchange names.
    SaveFault take(const QByteArray &path, bool keepsOld);
    void giveBack(const QByteArray &path);

private:
    QByteArray m_path; // of what goes when this ends; empty: nothing
    Descriptor m_file;
    Descriptor m_lock;
    bool m_isExchanged;
};

// Takes the lock for as long as the descriptor is open; false when another process has it.
bool lockFile(int descriptor);

// Removes what dead processes left behind in a folder while they saved.
void sweepTemporaryFiles(const QByteArray &folder);

} // namespace QUtil

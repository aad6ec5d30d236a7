// Loaded before the C library: the calls of one function fail that have to do with one folder. In the
// environment JEX_FAULT is "FUNCTION:NUMBER:ERRNO", for the call of that number, with a "+" behind it for all
// from there on; errno 0 makes a write that takes nothing, -1 kills the process before the call, or in the
// middle of a write. JEX_FAULT_DIR is the folder.

#include <cerrno>
#include <climits>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <dlfcn.h>
#include <sys/types.h>
#include <unistd.h>

namespace {

bool isBelowFolder(const char *path)
{
    const char *folder = std::getenv("JEX_FAULT_DIR");
    return folder && std::strncmp(path, folder, std::strlen(folder)) == 0;
}

bool isBelowFolder(int descriptor)
{
    char link[64], path[PATH_MAX];
    std::snprintf(link, sizeof link, "/proc/self/fd/%d", descriptor);
    const ssize_t size = ::readlink(link, path, sizeof path - 1);
    path[size < 0 ? 0 : size] = 0;
    return isBelowFolder(path);
}

// Whether this call is to fail; errno then says why.
template <class File>
bool fails(const char *function, File file)
{
    static int calls = 0;
    const int before = errno;
    const char *const fault = std::getenv("JEX_FAULT");
    const size_t length = std::strlen(function);
    if (!fault || std::strncmp(fault, function, length) != 0 || fault[length] != ':' ||
        !isBelowFolder(file)) {
        errno = before;
        return false;
    }
    char *rest = nullptr;
    const long number = std::strtol(fault + length + 1, &rest, 10);
    const bool isLasting = *rest == '+';
    ++calls;
    const bool isNow = calls == number || (isLasting && calls > number);
    errno = isNow ? std::atoi(rest + (isLasting ? 2 : 1)) : before;
    if (isNow && errno < 0 && std::strcmp(function, "write") != 0)
        std::raise(SIGKILL);
    return isNow;
}

template <class Function>
Function next(Function, const char *name)
{
    return reinterpret_cast<Function>(::dlsym(RTLD_NEXT, name));
}

} // namespace

extern "C" {

ssize_t write(int file, const void *bytes, size_t size)
{
    if (fails("write", file)) {
        if (errno < 0) {
            const ssize_t half = next(&write, "write")(file, bytes, size / 2);
            std::raise(SIGKILL);
            return half;
        }
        if (errno != 0)
            return -1;
        errno = ENOTTY; // left over from another call
        return 0;
    }
    return next(&write, "write")(file, bytes, size);
}

int close(int file)
{
    const bool isFault = fails("close", file);
    const int cause = errno;
    const int result = next(&close, "close")(file);
    if (isFault)
        errno = cause;
    return isFault ? -1 : result;
}

// Fails when it is told to, by the file that it is about, and is itself else.
#define FAULTY(name, file, parameters, arguments)                                                            \
    int name parameters                                                                                      \
    {                                                                                                        \
        return fails(#name, file) ? -1 : next(&name, #name) arguments;                                       \
    }

FAULTY(fsync, file, (int file), (file))
FAULTY(rename, from, (const char *from, const char *to), (from, to))
FAULTY(fchown, file, (int file, uid_t user, gid_t group), (file, user, group))
FAULTY(fchmod, file, (int file, mode_t mode), (file, mode))
FAULTY(fsetxattr, file, (int file, const char *name, const void *value, size_t size, int flags),
       (file, name, value, size, flags))
FAULTY(fallocate, file, (int file, int mode, off_t from, off_t size), (file, mode, from, size))
FAULTY(ftruncate, file, (int file, off_t size), (file, size))
}

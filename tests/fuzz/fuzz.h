#pragma once

#include <QByteArray>
#include <QFile>
#include <QLoggingCategory>
#include <QString>

#include <cstddef>
#include <cstdint>
#include <sys/mman.h>
#include <unistd.h>

// What the fuzz targets have in common. Each is one program, and looks at texts of all kinds: any crash,
// finding of a sanitizer or broken claim() ends it with the text that did it in a file.

namespace Fuzz {

void look(const QByteArray &bytes);

// Ends the program when what the reader promises does not hold.
inline void claim(bool holds, const char *promise)
{
    if (!holds)
        qFatal("broken: %s", promise);
}

// A file for readers that take no bytes. It is in memory alone, and the next call replaces it.
inline QString file(const QByteArray &content)
{
    static const int number = memfd_create("fuzz", 0);
    const ssize_t size = content.size();
    claim(ftruncate(number, 0) == 0 && pwrite(number, content.constData(), size_t(size), 0) == size,
          "there is a file in memory");
    return QString::fromLatin1("/proc/self/fd/%1").arg(number);
}

// A program that tells of every text that it refuses is slow.
static const bool isQuiet = (QLoggingCategory::setFilterRules(QStringLiteral("*=false")), true);

} // namespace Fuzz

// What libFuzzer calls.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    Fuzz::look(QByteArray(reinterpret_cast<const char *>(data), int(size)));
    return 0;
}

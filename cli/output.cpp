#include "cli/output.h"

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <unistd.h>

namespace Cli {

Output::Output(int descriptor) : m_descriptor(descriptor), m_buffer(256 * 1024)
{
}

Output::~Output()
{
    flush();
}

void Output::writeLong(const char *bytes, size_t count)
{
    while (count > 0) {
        const size_t fits = std::min(count, m_buffer.size() - m_used);
        memcpy(m_buffer.data() + m_used, bytes, fits);
        m_used += fits;
        bytes += fits;
        count -= fits;
        if (m_used == m_buffer.size())
            flush();
    }
}

void Output::makeRoom(size_t count)
{
    flush();
    if (m_buffer.size() < count)
        m_buffer.resize(count);
}

void Output::text(const QString &text)
{
    const QByteArray bytes = text.toUtf8();
    write(bytes.constData(), size_t(bytes.size()));
}

void Output::line(const QString &text)
{
    this->text(text);
    write("\n", 1);
}

bool Output::flush()
{
    const char *next = m_buffer.data();
    while (m_used > 0 && m_error == 0) {
        const ssize_t done = ::write(m_descriptor, next, m_used);
        if (done > 0) {
            next += done;
            m_used -= size_t(done);
        } else if (done < 0 && errno != EINTR) {
            m_error = errno;
        }
    }
    m_used = 0;
    return m_error == 0;
}

void say(const QString &text)
{
    const QByteArray bytes = text.toUtf8() + '\n';
    fwrite(bytes.constData(), 1, size_t(bytes.size()), stderr);
}

} // namespace Cli

#pragma once

#include <QString>

#include <cstring>
#include <vector>

namespace Cli {

// Standard output through a large buffer, in UTF-8. What cannot be written is dropped, and flush() says so.
class Output
{
public:
    explicit Output(int descriptor);
    ~Output();

    void write(const char *bytes, size_t count)
    {
        if (count > m_buffer.size() - m_used)
            return writeLong(bytes, count);
        memcpy(m_buffer.data() + m_used, bytes, count);
        m_used += count;
    }
    // Room to write `count` bytes in place; use() then takes the first of them as written.
    char *room(size_t count)
    {
        if (count > m_buffer.size() - m_used)
            makeRoom(count);
        return m_buffer.data() + m_used;
    }
    void use(size_t count) { m_used += count; }
    void text(const QString &text);
    void line(const QString &text);

    bool flush(); // false, now and from then on, when something was not written; errno in error()
    int error() const { return m_error; }

private:
    Output(const Output &) = delete;
    Output &operator=(const Output &) = delete;

    void writeLong(const char *bytes, size_t count);
    void makeRoom(size_t count);

    int m_descriptor;
    int m_error = 0;
    size_t m_used = 0;
    std::vector<char> m_buffer;
};

// A line on standard error.
void say(const QString &text);

} // namespace Cli

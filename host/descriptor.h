#pragma once

#include <unistd.h>

namespace QUtil {

// Owns an open file descriptor; negative: none.
class Descriptor
{
public:
    explicit Descriptor(int number = -1) : m_number(number) {}
    ~Descriptor() { reset(-1); }

    int number() const { return m_number; }
    void reset(int number)
    {
        if (m_number >= 0)
            ::close(m_number);
        m_number = number;
    }
    bool close() // false, with errno, when what was written may be lost
    {
        const int number = m_number;
        m_number = -1;
        return number < 0 || ::close(number) == 0;
    }

private:
    Descriptor(const Descriptor &);
    Descriptor &operator=(const Descriptor &);

    int m_number;
};

} // namespace QUtil

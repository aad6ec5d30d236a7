#include "workbench/bytedelta.h"

#include <algorithm>
#include <cstring>

namespace Workbench {
namespace {

const int block = 4096;

int samePrefix(const QByteArray &a, const QByteArray &b)
{
    const int most = std::min(a.size(), b.size());
    int same = 0;
    while (same + block <= most && std::memcmp(a.constData() + same, b.constData() + same, block) == 0)
        same += block;
    while (same < most && a.at(same) == b.at(same))
        ++same;
    return same;
}

int sameSuffix(const QByteArray &a, const QByteArray &b, int most)
{
    const char *const endA = a.constData() + a.size();
    const char *const endB = b.constData() + b.size();
    int same = 0;
    while (same + block <= most && std::memcmp(endA - same - block, endB - same - block, block) == 0)
        same += block;
    while (same < most && endA[-same - 1] == endB[-same - 1])
        ++same;
    return same;
}

const int fast = 1;

QByteArray packed(const QByteArray &bytes)
{
    return qCompress(bytes, fast);
}

} // namespace

ByteDelta::ByteDelta(const QByteArray &before, const QByteArray &after)
    : m_prefix(samePrefix(before, after)),
      m_suffix(sameSuffix(before, after, std::min(before.size(), after.size()) - m_prefix)),
      m_before(packed(before.mid(m_prefix, before.size() - m_prefix - m_suffix))),
      m_after(packed(after.mid(m_prefix, after.size() - m_prefix - m_suffix)))
{
}

QByteArray ByteDelta::forward(const QByteArray &before) const
{
    return before.left(m_prefix) + qUncompress(m_after) + before.right(m_suffix);
}

QByteArray ByteDelta::backward(const QByteArray &after) const
{
    return after.left(m_prefix) + qUncompress(m_before) + after.right(m_suffix);
}

} // namespace Workbench

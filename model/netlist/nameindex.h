#pragma once

#include <QHash>
#include <QString>

#include <algorithm>
#include <vector>

namespace QUARRY {

// Finds the numbers under which names were added, with eight bytes a name and none of their text. Names of
// one hash only cost comparisons, however many a made-up design has.
class NameIndex
{
public:
    bool isEmpty() const { return m_names.empty(); }
    // In the order of their numbers, which begin with 0; sort() comes before the first look-up.
    void add(const QChar *name, int length)
    {
        const Name added = {hashOf(name, length), quint32(m_names.size())};
        m_names.push_back(added);
    }
    void sort() { std::sort(m_names.begin(), m_names.end()); }

    // Calls visit(number), lowest first, for each name that may be this one, until it says true.
    template <typename Visit>
    void visit(const QChar *name, int length, Visit visit) const
    {
        const Name first = {hashOf(name, length), 0};
        std::vector<Name>::const_iterator it = std::lower_bound(m_names.begin(), m_names.end(), first);
        while (it != m_names.end() && it->hash == first.hash && !visit(it->number))
            ++it;
    }

private:
    struct Name
    {
        uint hash;
        quint32 number;

        bool operator<(const Name &other) const
        {
            return hash != other.hash ? hash < other.hash : number < other.number;
        }
    };

    static uint hashOf(const QChar *name, int length) { return qHash(QString::fromRawData(name, length)); }

    std::vector<Name> m_names;
};

} // namespace QUARRY

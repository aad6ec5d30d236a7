#include "elaboration/reading/ghwfile.h"

#include "elaboration/reading/ghwtypes.h"

#include <QStringList>

namespace QUARRY {
namespace {

// Of the tree of scopes; what GHDL writes for each begins with one of these.
enum GhwItem {
    EndOfHierarchy = 0,
    Block = 3,
    IfGenerate = 4,
    ForGenerate = 5,
    InstanceScope = 6,
    Package = 7,
    Process = 13,
    GenericScope = 14,
    EndOfScope = 15,
    FirstSignal = 16, // not a port
    LastSignal = 21
};

class GhwReader
{
public:
    GhwReader(const QByteArray &bytes, VhdlScope &all) : m_in(bytes), m_open(1, &all) {}

    bool read()
    {
        if (!isGhwFile(m_in.text(9)) || m_in.byte() != 16 || !m_in.skip(6))
            return false;
        while (!m_in.isBad()) {
            const QByteArray section = m_in.text(4);
            if (section.startsWith("STR"))
                readStrings();
            else if (section.startsWith("TYP"))
                m_types.read(m_in, m_strings);
            else if (section.startsWith("WKT"))
                skipKnown();
            else if (section.startsWith("HIE"))
                return readScopes();
            else if (!section.startsWith("EO"))
                return false;
        }
        return false;
    }

private:
    // Each shares its beginning with the one before it; how much stands behind it.
    void readStrings()
    {
        m_in.skip(4);
        const int count = m_in.number();
        m_in.skip(4);
        m_strings = QStringList(QString());
        QByteArray text;
        int shared = 0;
        for (int i = 0; i < count && !m_in.isBad(); ++i) {
            text.truncate(shared);
            int letter = m_in.byte();
            for (; letter > 31 && (letter < 128 || letter > 159) && !m_in.isBad(); letter = m_in.byte())
                text += char(letter);
            shared = letter & 31;
            for (int shift = 5; letter >= 128 && shift < 30; shift += 5) {
                letter = m_in.byte();
                shared |= (letter & 31) << shift;
            }
            m_strings.append(plainVhdlName(QString::fromLatin1(text)));
            m_in.spend(m_strings.last());
        }
    }

    void skipKnown() // which type is std_ulogic: its name says so, too
    {
        m_in.skip(4);
        while (m_in.byte() != 0 && !m_in.isBad())
            m_in.unsignedNumber();
    }

    bool readScopes()
    {
        m_in.skip(16);
        while (!m_in.isBad()) {
            const int item = m_in.byte();
            if (item == EndOfHierarchy)
                return true;
            if (item == EndOfScope && m_open.size() > 1)
                m_open.pop_back();
            else if (item >= FirstSignal && item <= LastSignal)
                readSignal(item != FirstSignal);
            else if (item == Process)
                m_in.unsignedNumber();
            else if (item == Block || item == IfGenerate || item == ForGenerate || item == InstanceScope ||
                     item == Package || item == GenericScope)
                openScope(item);
            else if (item != EndOfScope && item > 2)
                return false;
        }
        return false;
    }

    QString string() { return m_strings.value(int(qMin<quint64>(m_in.unsignedNumber(), 1u << 30))); }

    void openScope(int item)
    {
        if (m_open.size() > mostVhdlLevels)
            return m_in.setBad();
        m_open.back()->children.emplace_back(new VhdlScope);
        m_open.push_back(m_open.back()->children.back().get());
        m_open.back()->name = string();
        if (item == ForGenerate) {
            const GhwType *index = m_types.find(m_in);
            m_open.back()->name += QLatin1Char('(') + m_types.readValue(m_in, index) + QLatin1Char(')');
            m_in.spend(m_open.back()->name);
            if (index)
                m_open.back()->order = index->range.isDownwards ? VhdlScope::Downwards : VhdlScope::Upwards;
        }
    }

    void readSignal(bool isPort)
    {
        VhdlSignal signal;
        signal.name = string();
        const GhwType *type = m_types.find(m_in);
        if (!type)
            return m_in.setBad();
        for (qint64 i = 0; i < type->scalars && !m_in.isBad(); ++i)
            m_in.unsignedNumber();
        if (m_in.isBad())
            return;
        m_types.shape(m_in, *type, isPort, signal);
        m_open.back()->signalList.push_back(signal);
    }

    GhwInput m_in;
    QStringList m_strings;
    GhwTypes m_types;
    std::vector<VhdlScope *> m_open;
};

} // namespace

bool isGhwFile(const QByteArray &start)
{
    return start.startsWith("GHDLwave\n");
}

bool readGhwScopes(const QByteArray &bytes, VhdlScope &all)
{
    return GhwReader(bytes, all).read();
}

} // namespace QUARRY

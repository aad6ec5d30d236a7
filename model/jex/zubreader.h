#pragma once

#include <QList>

#include "model/jex/modes.h"
#include "model/jex/zubtokens.h"

namespace JEX {

template <class Record>
struct Field;

// Turns the bytes of one ".zub" file into records. One use each. The format is strict: what a file of the
// version cannot hold is a fault, since saving would drop it; only comments, processing instructions and
// blanks are passed over. The first fault ends the reading.
class ZubReader : private ZubTokens
{
public:
    using ZubTokens::error;
    using ZubTokens::ZubTokens;

    // The cores, owned by the caller; none when error() is not empty.
    CoreList cores(JexMode mode);
    template <class Core>
    QList<Core *> cores()
    {
        return std::get<QList<Core *>>(cores(modeOf<Core>()));
    }

    // Reads all of the file, but judges only that it is XML and a file of that mode.
    bool isWellFormed(JexMode mode);

private:
    bool readHead(JexMode mode);
    template <class Core>
    bool readCores(QList<Core *> *cores);
    // The fields of the present element. A value that is not named keeps its default, but the key must be.
    template <class Record>
    bool readFields(Record *record);
    template <class Record>
    bool readField(const QXmlStreamAttribute &attribute, const Field<Record> &field, Record *record);
    bool readCoreChild(AoCore *core);
    template <class Core>
    bool readCoreChild(Core *)
    {
        return failUnknownElement();
    }
    template <class Core>
    bool readSignalLists(Core *core);
    bool readPort(AoCore *core);
    bool readUnit(AoCore *core);
    bool readExpression(AoCore *core);
    bool readSignals(QList<SignalItem> *items, int depth);

    int m_version = 0;         // of the file
    quint32 m_coreNumbers = 0; // bit n: a core n, and likewise below for the core that is being read
    quint32 m_portNumbers = 0;
    quint32 m_unitNumbers = 0;
    bool m_hasSignals = false;
    bool m_hasEnabled = false;
};

// The mode that the outermost element names, whatever follows it.
JexMode zubMode(QXmlStreamReader *xml);
JexMode zubMode(const QByteArray &bytes);

} // namespace JEX

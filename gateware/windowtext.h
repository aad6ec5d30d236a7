#pragma once

#include <QByteArray>
#include <QList>
#include <QString>

#include "gateware/coretext.h"

namespace RTLJEX {

// One finished window. A sample is a text of '0', '1', 'x' and 'z', data[0] last.
struct CapturedWindow
{
    int trigger = -1; // number of the trigger sample; -1: none, the window began with the first sample
    QList<QByteArray> samples;
};

// What a core said when it was read.
struct CapturedCore
{
    bool isDone = false;
    int level = 0;    // that is waited for
    quint32 seen = 0; // as the port of that name
    QList<CapturedWindow> windows;
};

// From the file that the module "jex_reader" writes. False, with a sentence, when it is not such a file of a
// core with this layout; a file of a simulation that ended while it was written is none either.
bool readCapture(const QByteArray &text, const CoreLayout &layout, CapturedCore *core, QString *error);

} // namespace RTLJEX

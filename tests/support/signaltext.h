#pragma once

#include <QList>
#include <QString>

#include "model/jex/signalitem.h"

// Signal records written as text, one word each:
//
//   s:clk              a single net                 b:a[3]         a bit of a bus
//   b:a[1:0]{a[1],a[0]}  a bus                      g:group_0[1:0]{s:x,b:y}   a group
//   s:clk=CLOCK        with an alias
//   !s:x  disabled     ~s:x  not valid     ^s:x  without the library's flag
//
// Members of a bus are bits unless they say otherwise.
QList<JEX::SignalItem> signalsFromText(const QString &text);
JEX::SignalItem signalFromText(const QString &word);
QString toText(const QList<JEX::SignalItem> &items);
QString toText(const JEX::SignalItem &item);

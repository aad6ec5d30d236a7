#include "elaboration/tools/ghdlmessages.h"
#include "tests/fuzz/fuzz.h"

static void lookAt(const QList<QUARRY::ToolMessage> &messages)
{
    for (const QUARRY::ToolMessage &message : messages) {
        Fuzz::claim(message.line >= 0 && message.column >= 0, "no place is negative");
        Fuzz::claim(!message.text.contains(QLatin1Char('\n')), "a message is one line");
    }
}

// What the tools say.
void Fuzz::look(const QByteArray &bytes)
{
    lookAt(QUARRY::parseVerilatorMessages(bytes));
    lookAt(QUARRY::parseGhdlMessages(bytes));
}

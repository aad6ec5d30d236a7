#include "elaboration/tools/ghdlmessages.h"
#include "tests/fuzz/fuzz.h"

namespace {

void look(const QList<QUARRY::ToolMessage> &messages)
{
    for (const QUARRY::ToolMessage &message : messages) {
        Fuzz::claim(message.line >= 0 && message.column >= 0, "no place is negative");
        Fuzz::claim(!message.text.contains(QLatin1Char('\n')), "a message is one line");
    }
}

} // namespace

// What the tools say.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    const QByteArray output = Fuzz::bytes(data, size);
    look(QUARRY::parseVerilatorMessages(output));
    look(QUARRY::parseGhdlMessages(output));
    return 0;
}

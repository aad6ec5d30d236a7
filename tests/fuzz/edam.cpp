#include "tests/fuzz/foreign.h"

// A design as FuseSoC hands it over.
void Fuzz::look(const QByteArray &bytes)
{
    Fuzz::readForeignProject(bytes, Core::projectFromEdam);
}

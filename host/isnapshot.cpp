#include "host/isnapshot.h"

namespace Core {

ISnapshot::~ISnapshot()
{
}

} // namespace Core

#include "host/isignaltarget.h"

namespace Core {

// Here, so that views of plug-ins and the host mean the same class.
ISignalTarget::~ISignalTarget() = default;

} // namespace Core

#include "host/inetplaces.h"

namespace Core {

INetPlaces::~INetPlaces()
{
}

} // namespace Core

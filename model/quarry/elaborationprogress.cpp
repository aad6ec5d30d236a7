#include "model/quarry/elaboration.h"

namespace QUARRY {

ElaborationProgress::~ElaborationProgress() = default;

} // namespace QUARRY

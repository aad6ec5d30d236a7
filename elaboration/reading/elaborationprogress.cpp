#include "elaboration/reading/elaborationprogress.h"

namespace QUARRY {

ElaborationProgress::~ElaborationProgress() = default;

} // namespace QUARRY

#pragma once

namespace Workbench {

// From here on, a fault that ends the program is told on standard error, with the name of the log, and in the
// log. The program ends as it would have without.
void tellOfCrashes();

} // namespace Workbench

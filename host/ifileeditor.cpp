#include "host/ifileeditor.h"

namespace Core {

IFileEditor::~IFileEditor() = default;

} // namespace Core

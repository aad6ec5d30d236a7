#pragma once

#include <memory>

class QTranslator;

namespace Workbench {

// The texts of the workbench and of the toolkit in the user's language, as long as this is there. Those of
// the editor come with its plug-in.
class Translations
{
public:
    Translations();
    ~Translations();

private:
    const std::unique_ptr<QTranslator> m_toolkit, m_own;
};

} // namespace Workbench

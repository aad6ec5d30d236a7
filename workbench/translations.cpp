#include "workbench/translations.h"

#include <QLibraryInfo>

#include "host/translation.h"

static void initializeTexts()
{
    Q_INIT_RESOURCE(workbench_texts);
}

namespace Workbench {
namespace {

std::unique_ptr<QTranslator> ownTexts()
{
    initializeTexts();
    return QUtil::installTranslation("workbench", ":/workbench/texts");
}

} // namespace

Translations::Translations()
    : m_toolkit(QUtil::installTranslation("qtbase", QLibraryInfo::location(QLibraryInfo::TranslationsPath))),
      m_own(ownTexts())
{
}

Translations::~Translations() = default;

} // namespace Workbench

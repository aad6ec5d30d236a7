#pragma once

#include <QTranslator>
#include <memory>

namespace QUtil {

// Texts in the language of QLocale(), which is the user's unless the host chose another one: those of the
// file NAME_LANGUAGE.qm in the folder. They are in use until the translator goes. Null for English, in which
// texts are written, and where the user reads no language that there is a file of before it.
std::unique_ptr<QTranslator> installTranslation(const QString &name, const QString &folder);

} // namespace QUtil

#include "host/translation.h"

#include <QCoreApplication>
#include <QLocale>
#include <QStringList>

namespace QUtil {

std::unique_ptr<QTranslator> installTranslation(const QString &name, const QString &folder)
{
    const QLocale locale;
    // LANGUAGE counts in no other program either where the locale is C.
    const QStringList languages = locale.language() == QLocale::C ? QStringList() : locale.uiLanguages();
    std::unique_ptr<QTranslator> translator(new QTranslator);
    for (QString language : languages) {
        language.replace(QLatin1Char('-'), QLatin1Char('_'));
        if (language == QLatin1String("en") || language.startsWith(QLatin1String("en_")))
            break;
        if (translator->load(name + QLatin1Char('_') + language, folder)) {
            QCoreApplication::installTranslator(translator.get());
            return translator;
        }
    }
    return nullptr;
}

} // namespace QUtil

// Writes pictures of all windows, with the editors of a project's configurations:
//     jexshot [--dark] [--small] [--long] PROJECT DIRECTORY
// Small windows are at most as large as the smallest screen that they have to fit on, 1024 x 700. What they
// look like in other scales is told by the toolkit's own QT_SCALE_FACTOR. Texts are in the user's language,
// or longer than in any.

#include <QApplication>
#include <QDir>
#include <QPalette>
#include <QStyleFactory>
#include <QTextStream>
#include <QWidget>

#include "host/translation.h"
#include "tools/pseudotexts.h"
#include "tools/windowtour.h"
#include "workbench/translations.h"

namespace {

void useDarkPalette()
{
    QPalette palette(QColor(49, 54, 59), QColor(49, 54, 59)); // buttons and windows; the rest follows
    palette.setColor(QPalette::Base, QColor(35, 38, 41));
    palette.setColor(QPalette::AlternateBase, QColor(42, 46, 50));
    palette.setColor(QPalette::ToolTipBase, QColor(49, 54, 59));
    palette.setColor(QPalette::ToolTipText, QColor(239, 240, 241));
    palette.setColor(QPalette::Highlight, QColor(61, 174, 233));
    palette.setColor(QPalette::Link, QColor(41, 128, 185));
    QApplication::setStyle(QStyleFactory::create("fusion"));
    QApplication::setPalette(palette);
}

} // namespace

int main(int argc, char *argv[])
{
    QApplication application(argc, argv);
    const auto editorTexts = QUtil::installTranslation("jexins", ":/jexins/texts");
    const Workbench::Translations translations;
    QStringList arguments = QCoreApplication::arguments();
    QTextStream err(stderr);
    if (arguments.removeAll("--dark") > 0)
        useDarkPalette();
    PseudoTexts longTexts;
    if (arguments.removeAll("--long") > 0)
        QCoreApplication::installTranslator(&longTexts);
    const bool isSmall = arguments.removeAll("--small") > 0;
    if (arguments.size() != 3) {
        err << "Usage: jexshot [--dark] [--small] [--long] PROJECT DIRECTORY\n";
        return 2;
    }
    const QDir directory(arguments.at(2));
    bool good = true;
    QString error;
    const auto take = [&](QWidget *window, const QString &name) {
        if (isSmall)
            window->resize(window->size().boundedTo(QSize(1024, 700)));
        QCoreApplication::processEvents();
        const QString file = directory.filePath(name + ".png");
        if (window->grab().save(file))
            return;
        err << "Can not write the picture " << file << ".\n";
        good = false;
    };
    if (!tourWindows(arguments.at(1), directory.path(), take, &error)) {
        err << error << '\n';
        return 1;
    }
    return good ? 0 : 1;
}

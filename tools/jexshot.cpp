// Writes pictures of all windows, with the editors of a project's configurations:
//     jexshot [--dark] [--small] [--long] [--guide NAMES] PROJECT DIRECTORY
// Small windows are at most as large as the smallest screen that they have to fit on, 1024 x 700. What they
// look like in other scales is told by the toolkit's own QT_SCALE_FACTOR. Texts are in the user's language,
// or longer than in any. With --guide only the pictures of these names, "search,expression", are written,
// small and the same on every run and machine: of a copy of the project in /tmp/jex-example. More scenes are
// visited then; a name that is not met is a fault.

#include <QApplication>
#include <QDir>
#include <QPalette>
#include <QStyleFactory>
#include <QTextStream>
#include <QWidget>

#include <sys/time.h>

#include "host/translation.h"
#include "tools/guidescenes.h"
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

// Letters without coloured edges take less than half of the room.
void dropColouredEdges()
{
    QFont font = QApplication::font();
    font.setStyleStrategy(QFont::NoSubpixelAntialias);
    QApplication::setFont(font);
}

// A colour without its last bits; black and white stay what they are.
QRgb rounded(QRgb colour, int bits)
{
    const auto part = [bits](int value) { return value >> bits << bits | value >> (8 - bits); };
    return qRgb(part(qRed(colour)), part(qGreen(colour)), part(qBlue(colour)));
}

// The picture with a byte a pixel, and no finer colours than these can tell apart.
QImage packed(const QImage &picture, int bits = 0)
{
    QImage result(picture.size(), QImage::Format_Indexed8);
    QVector<QRgb> colours;
    QHash<QRgb, uchar> numbers;
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) {
            const QRgb colour = rounded(picture.pixel(x, y), bits);
            if (!numbers.contains(colour)) {
                if (colours.size() == 256)
                    return packed(picture, bits + 1);
                numbers.insert(colour, uchar(colours.size()));
                colours << colour;
            }
            result.scanLine(y)[x] = numbers.value(colour);
        }
    }
    result.setColorTable(colours);
    return result;
}

// The pictures that were asked for by name.
struct Wanted
{
    QStringList names; // none: all
    QStringList taken;

    bool takes(const QString &name)
    {
        if (!names.isEmpty() && !names.contains(name))
            return false;
        taken << name;
        return true;
    }
};

Wanted wantedOf(QStringList &arguments)
{
    Wanted wanted;
    const int option = arguments.indexOf("--guide");
    if (option >= 0 && option + 1 < arguments.size()) {
        wanted.names = arguments.at(option + 1).split(',');
        arguments.erase(arguments.begin() + option, arguments.begin() + option + 2);
    }
    return wanted;
}

} // namespace

// The time of day of this program, so that pictures do not differ by it.
extern "C" int gettimeofday(timeval *time, void *) noexcept
{
    *time = {1767605400, 0}; // half past nine in the morning
    return 0;
}

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
    Wanted wanted = wantedOf(arguments);
    if (arguments.size() != 3) {
        err << "Usage: jexshot [--dark] [--small] [--long] [--guide NAMES] PROJECT DIRECTORY\n";
        return 2;
    }
    const QDir directory(arguments.at(2));
    bool good = true;
    QString error;
    const auto take = [&](QWidget *window, const QString &name) {
        if (isSmall)
            window->resize(window->size().boundedTo(QSize(1024, 700)));
        if (!wanted.takes(name))
            return;
        QCoreApplication::processEvents();
        const QString file = directory.filePath(name + ".png");
        if (packed(window->grab().toImage()).save(file, "PNG", 0))
            return;
        err << "Can not write the picture " << file << ".\n";
        good = false;
    };
    const bool isForGuide = !wanted.names.isEmpty();
    if (isForGuide)
        dropColouredEdges();
    const QString project =
        isForGuide ? copyProject(arguments.at(1), "/tmp/jex-example", &error) : arguments.at(1);
    const bool isDone = !project.isEmpty() && tourWindows(project, directory.path(), take, &error) &&
                        (!isForGuide || showGuideScenes(project, take, &error));
    if (isForGuide && !project.isEmpty())
        QDir("/tmp/jex-example").removeRecursively();
    if (!isDone) {
        err << error << '\n';
        return 1;
    }
    for (const QString &name : wanted.names) {
        if (wanted.taken.contains(name))
            continue;
        err << "No window is called " << name << ".\n";
        good = false;
    }
    return good ? 0 : 1;
}

#include "gateware/windowtext.h"

#include <QCoreApplication>

namespace RTLJEX {

namespace {

struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(RTLJEX::CapturedWindow)
};

enum { WordBits = 32, StatusWords = 3, LevelBit = 8, CountBit = 16 };

bool fail(QString *error, const QString &text)
{
    *error = text;
    return false;
}

bool readWords(const QByteArray &line, QList<quint32> *words)
{
    const QList<QByteArray> parts = line.split(' ');
    bool isNumber = parts.size() == StatusWords + 1 && parts.first() == "status";
    for (int i = 1; isNumber && i <= StatusWords; ++i)
        words->append(parts.at(i).toUInt(&isNumber, 2));
    return isNumber;
}

// The samples of a window as they follow each other: the marked one tells where the ring begins.
bool unroll(const QList<QByteArray> &stored, const CoreLayout &layout, CapturedWindow *window)
{
    int first = 0;
    for (int i = 0; layout.hasMark && i < layout.amount; ++i) {
        if (stored.at(i).at(0) != '1')
            continue;
        if (window->trigger >= 0)
            return false;
        window->trigger = layout.position;
        first = i - layout.position + layout.amount;
    }
    for (int i = 0; i < layout.amount; ++i)
        window->samples.append(stored.at((first + i) % layout.amount).right(layout.dataWidth));
    return true;
}

} // namespace

bool readCapture(const QByteArray &text, const CoreLayout &layout, CapturedCore *core, QString *error)
{
    const QList<QByteArray> lines = text.split('\n');
    QList<quint32> words;
    if (!readWords(lines.first(), &words))
        return fail(error, Texts::tr("The captured samples have no status: the core was not read."));
    if (lines.size() != layout.storedSamples() + 2)
        return fail(error, Texts::tr("The captured samples are not complete."));
    if (int(words.at(2) & 0xffff) != layout.sampleWidth())
        return fail(error, Texts::tr("The captured samples are of another core."));
    core->isDone = words.at(0) & 2;
    core->level = words.at(0) >> LevelBit & 0xf;
    core->seen = words.at(1);
    const int finished = int(words.at(0) >> CountBit);
    for (int i = 0; i < finished && i < layout.windows; ++i) {
        CapturedWindow window;
        const QList<QByteArray> stored = lines.mid(1 + i * layout.windowDepth, layout.amount);
        for (const QByteArray &sample : stored) {
            if (sample.size() != layout.sampleWidth())
                return fail(error, "A captured sample has not the number of bits that the core stores.");
        }
        if (!unroll(stored, layout, &window) || (window.trigger < 0 && i >= layout.unmarkedFirst))
            return fail(error, "A captured window has not one trigger sample.");
        core->windows.append(window);
    }
    return true;
}

} // namespace RTLJEX

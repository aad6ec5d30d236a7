#include "elaboration/lastdesign.h"

#include "elaboration/tools/elaborator.h"
#include "elaboration/tools/filestate.h"

namespace QUARRY {
namespace {

struct LastDesign
{
    std::unique_ptr<Elaboration> design;
    QStringList key;
    QByteArray state;
};

LastDesign &lastDesign()
{
    static LastDesign last;
    return last;
}

// Everything but the sources' content that decides what the tools see.
QStringList keyOf(const DesignInput &input)
{
    const QString gap = QString(QChar(0));
    QStringList key;
    for (const DesignSource &file : input.files)
        key << file.path << QString::number(file.type) << file.library << QString::number(file.onlyWhenUsed);
    for (const DesignText &known : designTexts)
        key << gap << input.*known.text;
    for (const DesignList &known : designLists)
        key << gap << input.*known.list;
    return key;
}

QByteArray stateOf(const Elaboration &design)
{
    return fileState(design.filesRead, design.foldersLookedIn);
}

} // namespace

void rememberDesign(const DesignInput &input, std::unique_ptr<Elaboration> design, const QDateTime &start)
{
    if (!design->usable || anyWrittenSince(design->filesRead, start))
        return;
    LastDesign &last = lastDesign();
    last.key = keyOf(input);
    last.state = stateOf(*design);
    last.design = std::move(design);
}

std::unique_ptr<Elaboration> takeLastDesign(const DesignInput &input)
{
    LastDesign last = std::move(lastDesign());
    lastDesign() = LastDesign();
    if (!last.design || last.key != keyOf(input) || last.state != stateOf(*last.design))
        return nullptr;
    return std::move(last.design);
}

} // namespace QUARRY

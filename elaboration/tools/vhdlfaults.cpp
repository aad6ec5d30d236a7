#include "elaboration/tools/vhdlfaults.h"

#include <QRegExp>

#include <set>
#include <string_view>

#include "elaboration/reading/ghdltree.h"
#include "elaboration/reading/vhdlwords.h"
#include "elaboration/tools/vhdlscan.h"

namespace QUARRY {
namespace {

bool isLaterWord(const VhdlWord &word)
{
    static const std::set<std::string_view> words{"assume",
                                                  "assume_guarantee",
                                                  "context",
                                                  "cover",
                                                  "default",
                                                  "force",
                                                  "parameter",
                                                  "property",
                                                  "release",
                                                  "restrict",
                                                  "restrict_guarantee",
                                                  "sequence",
                                                  "vmode",
                                                  "vprop",
                                                  "vunit"};
    return words.count(word.text) > 0;
}

int placeOf(const QByteArray &text, const ToolMessage &error)
{
    return ghdlOffset(text, error.line, error.column);
}

// "use lib.package.name;" before a unit.
void addClause(const QByteArray &text, int at, VhdlEdits &edits)
{
    const int end = text.indexOf(';', at);
    const int begin =
        qMax(text.lastIndexOf(';', at - text.size() - 1), text.lastIndexOf('\n', at - text.size() - 1)) + 1;
    if (end >= 0 && begin < end)
        edits.insert(begin, qMakePair(end + 1, QByteArray()));
}

// What stays of a unit.
QByteArray restOf(const VhdlUnit &unit, bool isItsFault, VhdlFaults &faults)
{
    const QString entity = unit.kind == VhdlUnit::Entity ? unit.name.toLower() : unit.entity;
    if (unit.kind == VhdlUnit::Entity)
        faults.missing.insert(entity);
    faults.lost.insert(entity);
    if (unit.kind != VhdlUnit::Architecture || !isItsFault || faults.hollow.contains(entity))
        return QByteArray();
    faults.hollow.insert(entity);
    return "architecture " + unit.name.toLatin1() + " of " + entity.toLatin1() + " is begin end;";
}

} // namespace

QString vhdlFollowUp(const ToolMessage &error)
{
    QRegExp words(QLatin1String("entity '(\\w+)' was not analysed"));
    return words.indexIn(error.text) < 0 ? QString() : words.cap(1).toLower();
}

bool replaceVhdlInstances(QByteArray &text, VhdlFaults &faults)
{
    // From the end, since a repair moves what follows in its line.
    for (int i = faults.errors.size() - 1; i >= 0; --i) {
        VhdlInstance instance;
        if (!findVhdlInstance(text, placeOf(text, faults.errors.at(i)), instance) ||
            instance.name.startsWith(QLatin1Char('\\')))
            continue;
        const QByteArray name = instance.name.toLatin1();
        replaceKeepingLines(text, instance.begin, instance.end,
                            ": component work.jex_box_" + name + '.' + name + ' ');
        faults.boxes.insert(instance.name);
        faults.undriven += instance.words;
        faults.mended.prepend(faults.errors.at(i));
    }
    return !faults.mended.isEmpty();
}

bool quoteVhdlNames(QByteArray &text, VhdlFaults &faults)
{
    const QByteArray source = text;
    const VhdlWords words(source);
    QSet<int> faulty;
    for (const ToolMessage &error : faults.errors)
        faulty.insert(placeOf(source, error));
    bool isOlder = false;
    for (int i = 0; i < words.count(); ++i)
        isOlder = isOlder || (faulty.contains(words.at(i).at) && isLaterWord(words.at(i)));
    // The first one is the declaration.
    for (int i = 0; i < words.count() && isOlder; ++i) {
        if (isLaterWord(words.at(i)) && !faults.spelled.contains(words.name(i)))
            faults.spelled.insert(words.name(i), words.spelled(i));
    }
    for (int i = words.count() - 1; i >= 0 && isOlder; --i) {
        const QByteArray name = faults.spelled.value(words.name(i)).toLatin1();
        if (isLaterWord(words.at(i)))
            text.replace(words.at(i).at, name.size(), '\\' + name + '\\');
    }
    if (isOlder)
        faults.mended += faults.errors;
    return isOlder;
}

// Errors that only follow from others are gone with them.
bool leaveOutVhdlUnits(QByteArray &text, VhdlFaults &faults)
{
    const QList<VhdlUnit> units = scanVhdl(text).units;
    VhdlEdits edits;
    for (const ToolMessage &error : faults.errors) {
        const QString cause = vhdlFollowUp(error);
        if (!cause.isEmpty() && !faults.missing.contains(cause))
            continue;
        const int at = placeOf(text, error);
        int index = 0;
        while (index + 1 < units.size() && units.at(index).end <= at)
            ++index;
        if (units.isEmpty() || at < units.at(index).begin) {
            addClause(text, at, edits);
        } else if (!edits.contains(units.at(index).begin)) {
            const VhdlUnit &unit = units.at(index);
            edits.insert(unit.begin, qMakePair(unit.end, restOf(unit, cause.isEmpty(), faults)));
        }
        faults.mended.append(error);
    }
    if (edits.isEmpty())
        faults.mended.clear();
    else
        editVhdl(text, edits);
    return !edits.isEmpty();
}

} // namespace QUARRY

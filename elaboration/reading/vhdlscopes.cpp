#include "elaboration/reading/vhdlscopes.h"

#include "elaboration/reading/ghwfile.h"

#include <QBuffer>
#include <QRegExp>

#include "host/regularfile.h"

namespace QUARRY {

namespace {

// "$var reg 8 # d[7:0] $end"
bool readVariable(const QString &line, VhdlSignal &signal)
{
    QRegExp variable(QLatin1String("\\$var (\\w+) \\d+ \\S+ (.*) \\$end"));
    if (!variable.exactMatch(line) || variable.cap(1) == QLatin1String("real"))
        return false;
    QRegExp range(QLatin1String("(.*)\\[(-?\\d+):(-?\\d+)\\]"));
    signal.hasShape = variable.cap(1) == QLatin1String("reg");
    signal.isBus = range.exactMatch(variable.cap(2));
    signal.name = plainVhdlName(signal.isBus ? range.cap(1) : variable.cap(2));
    signal.left = range.cap(2).toInt();
    signal.right = range.cap(3).toInt();
    return true;
}

// "$comment state is not handled $end"
bool readUnhandled(const QString &line, VhdlSignal &signal)
{
    QRegExp comment(QLatin1String("\\$comment (.*) is not handled \\$end"));
    if (!comment.exactMatch(line))
        return false;
    signal = VhdlSignal();
    signal.name = plainVhdlName(comment.cap(1));
    return true;
}

} // namespace

QString plainVhdlName(const QString &name)
{
    const QLatin1Char slash('\\');
    return name.size() > 2 && name.startsWith(slash) && name.endsWith(slash) ? name.mid(1, name.size() - 2)
                                                                             : name;
}

bool isGhdlOwnName(const QString &name)
{
    return QRegExp(QLatin1String("n\\d+(_[a-z]+)?")).exactMatch(name);
}

QString VhdlScope::label() const
{
    return name.left(name.endsWith(QLatin1Char(')')) ? name.lastIndexOf(QLatin1Char('(')) : -1);
}

QString VhdlScope::shownName() const
{
    const QString base = label();
    if (base == name)
        return name;
    return base + QLatin1Char('[') + name.mid(base.size() + 1, name.size() - base.size() - 2) +
           QLatin1Char(']');
}

std::unique_ptr<VhdlScope> readVhdlScopes(const QString &waveform, const QString &entity)
{
    QByteArray bytes;
    QString reason;
    if (!QUtil::readRegularFile(waveform, 512 * QUtil::MiB, &bytes, &reason))
        return nullptr;
    VhdlScope all;
    if (isGhwFile(bytes))
        return readGhwScopes(bytes, all) ? all.takeEntity(entity) : nullptr;
    QBuffer file(&bytes);
    file.open(QIODevice::ReadOnly);
    std::vector<VhdlScope *> open(1, &all);
    QRegExp scope(QLatin1String("\\$scope \\w+ (.*) \\$end"));
    while (!file.atEnd()) {
        const QString line = QString::fromUtf8(file.readLine()).trimmed();
        VhdlSignal signal;
        if (line.startsWith(QLatin1String("$enddefinitions")))
            break;
        if (open.size() > mostVhdlLevels)
            return nullptr;
        if (scope.exactMatch(line)) {
            open.back()->children.emplace_back(new VhdlScope);
            open.push_back(open.back()->children.back().get());
            open.back()->name = plainVhdlName(scope.cap(1));
        } else if (line.startsWith(QLatin1String("$upscope")) && open.size() > 1) {
            open.pop_back();
        } else if (readVariable(line, signal) || readUnhandled(line, signal)) {
            open.back()->signalList.push_back(signal);
        }
    }
    return all.takeEntity(entity);
}

// The packages stand before the entity.
std::unique_ptr<VhdlScope> VhdlScope::takeEntity(const QString &entity)
{
    for (auto it = children.rbegin(); it != children.rend(); ++it) {
        if ((*it)->name.compare(entity, Qt::CaseInsensitive) == 0)
            return std::move(*it);
    }
    return nullptr;
}

} // namespace QUARRY

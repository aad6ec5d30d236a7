#include "elaboration/reading/vhdlscopes.h"

#include "elaboration/reading/ghwfile.h"

#include <QRegExp>

#include "host/regularfile.h"

namespace QUARRY {

namespace {

const char lastWord[] = " $end";

// What stands between that many words and the last one; empty when nothing does.
QByteArray textBehind(int words, const QByteArray &line)
{
    int begin = 0;
    for (; words > 0 && (begin > 0 || line.startsWith('$')); --words)
        begin = line.indexOf(' ', begin) + 1;
    const int size = line.size() - int(sizeof lastWord) + 1 - begin;
    return words == 0 && begin > 0 && size > 0 && line.endsWith(lastWord) ? line.mid(begin, size)
                                                                          : QByteArray();
}

// "$var reg 8 # d[7:0] $end"
bool readVariable(const QByteArray &line, VhdlSignal &signal)
{
    QByteArray name = line.startsWith("$var ") ? textBehind(4, line) : QByteArray();
    if (name.isEmpty() || line.startsWith("$var real "))
        return false;
    signal.hasShape = line.startsWith("$var reg ");
    const int bracket = name.endsWith(']') ? name.lastIndexOf('[') : -1;
    const int colon = bracket < 0 ? -1 : name.indexOf(':', bracket);
    if (colon > 0) {
        signal.left = name.mid(bracket + 1, colon - bracket - 1).toInt(&signal.isBus);
        signal.right = name.mid(colon + 1, name.size() - colon - 2).toInt();
    }
    signal.name = plainVhdlName(QString::fromUtf8(signal.isBus ? name.left(bracket) : name));
    return true;
}

// "$comment state is not handled $end"
bool readUnhandled(const QByteArray &line, VhdlSignal &signal)
{
    const QByteArray ending = " is not handled";
    const QByteArray text = line.startsWith("$comment ") ? textBehind(1, line) : QByteArray();
    if (!text.endsWith(ending))
        return false;
    signal.name = plainVhdlName(QString::fromUtf8(text.left(text.size() - ending.size())));
    return true;
}

} // namespace

QString plainVhdlName(const QString &name)
{
    const QLatin1Char slash('\\');
    return name.size() > 2 && name.startsWith(slash) && name.endsWith(slash) ? name.mid(1, name.size() - 2)
                                                                             : name;
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
    std::vector<VhdlScope *> open(1, &all);
    for (int begin = 0, end = 0; begin < bytes.size(); begin = end + 1) {
        end = bytes.indexOf('\n', begin);
        end = end < 0 ? bytes.size() : end;
        const QByteArray line = bytes.mid(begin, end - begin).trimmed();
        VhdlSignal signal;
        if (line.startsWith("$enddefinitions"))
            break;
        if (open.size() > mostVhdlLevels)
            return nullptr;
        const QByteArray scope = line.startsWith("$scope ") ? textBehind(2, line) : QByteArray();
        if (!scope.isEmpty()) {
            open.back()->children.emplace_back(new VhdlScope);
            open.push_back(open.back()->children.back().get());
            open.back()->name = plainVhdlName(QString::fromUtf8(scope));
        } else if (line.startsWith("$upscope") && open.size() > 1) {
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

#include "elaboration/reading/ghdltree.h"

#include <QFile>

#include <algorithm>
#include <charconv>

#include "host/utf8.h"

namespace QUARRY {

GhdlTreeLine::GhdlTreeLine(std::string_view line)
{
    depth = std::min(line.find_first_not_of(' '), line.size());
    line.remove_prefix(depth);
    const size_t end = line.find_first_of(": \"");
    if (end < line.size() && line[end] == ':') {
        role = line.substr(0, end);
        line.remove_prefix(std::min(end + 2, line.size()));
    }
    value = line;
    kind = line.substr(0, line.find(' '));
    line.remove_prefix(kind.size());
    const bool isQuoted = line.substr(0, 2) == " \"";
    const size_t bracket = line.find(isQuoted ? "\" [" : " [");
    if (bracket >= line.size())
        return;
    const size_t nameStart = isQuoted ? 2 : std::min<size_t>(1, bracket);
    name = line.substr(nameStart, bracket - nameStart);
    line.remove_prefix(line.find('[', bracket) + 1);
    id = ghdlNumber(line);
    rest = line.substr(std::min(line.find(']'), line.size()));
    rest.remove_prefix(std::min<size_t>(2, rest.size()));
}

bool GhdlTreeLine::isOf(std::string_view kinds) const
{
    return kind.size() >= kinds.size() && kind.substr(kind.size() - kinds.size()) == kinds;
}

bool findGhdlName(const char *name, const QString &treeFile, QString &place)
{
    QFile file(treeFile);
    if (!file.open(QIODevice::ReadOnly))
        return false;
    const QByteArray reference = QByteArray("simple_name \"") + name + '"';
    bool isFound = false;
    while (!file.atEnd()) {
        const QByteArray line = file.readLine();
        if (!isFound) {
            isFound = line.contains(reference);
            continue;
        }
        const GhdlTreeLine member(std::string_view(line.constData(), size_t(line.size())));
        if (member.role != "location")
            continue;
        place = QUtil::fromUtf8(member.value).trimmed();
        break;
    }
    return isFound;
}

int ghdlOffset(const QByteArray &text, int line, int column)
{
    int at = 0;
    for (int i = 1; i < line; ++i) {
        const int end = text.indexOf('\n', at);
        if (end < 0)
            return text.size();
        at = end + 1;
    }
    for (int seen = 0; at < text.size() && text.at(at) != '\n' && seen < column - 1; ++at)
        seen += text.at(at) == '\t' ? 8 - seen % 8 : 1;
    return at;
}

int ghdlNumber(std::string_view digits)
{
    int number = 0;
    std::from_chars(digits.data(), digits.data() + digits.size(), number);
    return number;
}

} // namespace QUARRY

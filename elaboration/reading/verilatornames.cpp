#include "elaboration/reading/verilatornames.h"

#include <QByteArray>

#include <cctype>
#include <cstring>

namespace QUARRY {

namespace {

struct Separator
{
    const char *code;
    const char *text;
};

const Separator separators[] = {{"__DOT__", "."}, {"__BRA__", "["}, {"__KET__", "]"}, {"__PVT__", ""}};

// The length of the code at `pos`, its text appended; 0 when none stands there.
int decodeOne(const char *pos, QByteArray &out)
{
    if (std::strncmp(pos, "__0", 3) == 0 && std::isxdigit(uchar(pos[3])) && std::isxdigit(uchar(pos[4]))) {
        out += char(QByteArray(pos + 3, 2).toInt(nullptr, 16));
        return 5;
    }
    for (const Separator &separator : separators) {
        const size_t length = std::strlen(separator.code);
        if (std::strncmp(pos, separator.code, length) == 0) {
            out += separator.text;
            return int(length);
        }
    }
    return 0;
}

} // namespace

QString decodedVerilatorName(const char *name)
{
    if (!std::strstr(name, "__"))
        return QString::fromUtf8(name);
    QByteArray out;
    for (const char *pos = name; *pos;) {
        const int length = decodeOne(pos, out);
        if (length == 0)
            out += *pos;
        pos += length ? length : 1;
    }
    return QString::fromUtf8(out.constData(), out.size());
}

void joinLetters(QByteArray &xml)
{
    const char *end = xml.constData() + xml.size();
    const auto nextEscape = [end](const char *from) {
        return static_cast<const char *>(std::memchr(from, '&', size_t(end - from)));
    };
    const char *first = nextEscape(xml.constData());
    while (first && first[1] != '#')
        first = nextEscape(first + 1);
    if (!first)
        return;
    char *out = xml.data() + (first - xml.constData());
    for (const char *in = out; in < end;) {
        const bool isEscape = end - in > 5 && in[0] == '&' && in[1] == '#' && in[5] == ';';
        const int byte = isEscape ? QByteArray(in + 2, 3).toInt() : 0;
        *out++ = byte > 127 ? char(byte) : *in;
        in += byte > 127 ? 6 : 1;
    }
    xml.truncate(int(out - xml.constData()));
}

// A user's own double underscore is encoded, so that "__V" never comes from the source.
bool isVerilatorOwnName(const char *origName)
{
    return std::strstr(origName, "__V") && !isHashedVerilatorName(origName);
}

bool isHashedVerilatorName(const char *name)
{
    return std::strstr(name, "__Vhsh");
}

QString scopeBaseName(const QString &scope)
{
    const int bracket = scope.indexOf(QLatin1Char('['));
    return bracket > 0 ? scope.left(bracket) : scope;
}

std::string verilatorPathPart(QByteArray name)
{
    return name.replace("[", "__BRA__").replace("]", "__KET__").constData();
}

} // namespace QUARRY

#include "elaboration/reading/verilatortypes.h"

#include <cstdlib>
#include <cstring>

#include "host/utf8.h"

namespace QUARRY {

namespace {

const int mostLevels = 64; // of types in types

QString rangeText(int left, int right)
{
    return QLatin1Char('[') + QString::number(left) + QLatin1Char(':') + QString::number(right) +
           QLatin1Char(']');
}

QString rangeText(int index)
{
    return QLatin1Char('[') + QString::number(index) + QLatin1Char(']');
}

// Of a bus that has so many bits, down to 0.
int leftOf(qint64 width)
{
    return int(qMin<qint64>(width, std::numeric_limits<int>::max())) - 1;
}

bool isOneOf(const char *name, std::initializer_list<const char *> names)
{
    for (const char *candidate : names) {
        if (std::strcmp(name, candidate) == 0)
            return true;
    }
    return false;
}

// "rec_t" of "pk::rec_t"; what the tool names itself has no name for the user.
QString typeName(const char *name, const char *unnamed)
{
    if (std::strstr(name, "__typeimp"))
        return QString::fromLatin1(unnamed);
    return QString::fromUtf8(name);
}

} // namespace

VerilatorConstant::VerilatorConstant(const char *text) : digits(text)
{
    const char *quote = std::strchr(text, '\'');
    if (!quote)
        return;
    width = std::atoi(text);
    ++quote;
    isSigned = *quote == 's';
    quote += isSigned ? 1 : 0;
    base = *quote;
    digits = *quote ? quote + 1 : quote;
}

qint64 VerilatorConstant::number() const
{
    const quint64 value = std::strtoull(digits, nullptr, base == 'b' ? 2 : 16);
    const bool negative = isSigned && width > 0 && width < 64 && ((value >> (width - 1)) & 1);
    return qint64(negative ? value - (quint64(1) << width) : value);
}

bool verilatorRange(const pugi::xml_node &node, int &left, int &right)
{
    const pugi::xml_node first = node.child("range").child("const");
    const pugi::xml_node second = first.next_sibling("const");
    if (!second)
        return false;
    left = int(VerilatorConstant(first.attribute("name").value()).number());
    right = int(VerilatorConstant(second.attribute("name").value()).number());
    return true;
}

VerilatorTypes::VerilatorTypes(const pugi::xml_node &table)
{
    for (const pugi::xml_node &node : table.children())
        m_nodes.emplace(node.attribute("id").value(), node);
    for (const pugi::xml_node &node : table.children("enumdtype"))
        addEnumeration(node);
}

const VerilatorType &VerilatorTypes::type(const char *id) const
{
    const auto known = m_types.find(id);
    if (known != m_types.end())
        return known->second;
    m_types[id] = VerilatorType(); // ends the search in a type that holds itself
    const auto node = m_nodes.find(id);
    if (node != m_nodes.end()) {
        const VerilatorType found = resolved(node->second);
        m_types[id] = found;
    }
    return m_types[id];
}

VerilatorType VerilatorTypes::resolved(const pugi::xml_node &node) const
{
    const char *kind = node.name();
    if (std::strcmp(kind, "basicdtype") == 0)
        return basic(node);
    if (isOneOf(kind, {"structdtype", "uniondtype"}))
        return structure(node);
    if (std::strcmp(kind, "packarraydtype") == 0)
        return packedArray(node);
    if (isOneOf(kind, {"refdtype", "enumdtype", "constdtype"}))
        return type(node.attribute("sub_dtype_id").value());
    return VerilatorType();
}

VerilatorType VerilatorTypes::basic(const pugi::xml_node &node) const
{
    const char *name = node.attribute("name").value();
    VerilatorType type;
    type.isBasic = true;
    type.text = QString::fromLatin1(name);
    const bool ranged = isOneOf(name, {"logic", "bit"});
    type.isNet = ranged || isOneOf(name, {"byte", "shortint", "int", "longint", "integer", "time"});
    type.isVector = type.isNet && node.attribute("left");
    type.left = node.attribute("left").as_int();
    type.right = node.attribute("right").as_int();
    if (ranged && node.attribute("signed"))
        type.text += QLatin1String(" signed");
    if (ranged && type.isVector)
        type.text += QLatin1Char(' ') + rangeText(type.left, type.right);
    return type;
}

VerilatorType VerilatorTypes::structure(const pugi::xml_node &node) const
{
    const bool isUnion = std::strcmp(node.name(), "uniondtype") == 0;
    VerilatorType whole;
    qint64 width = 0;
    for (const pugi::xml_node &member : node.children("memberdtype")) {
        const VerilatorType &part = type(member.attribute("sub_dtype_id").value());
        if (!part.isNet)
            return VerilatorType();
        width = isUnion ? qMax<qint64>(width, part.width()) : width + part.width();
    }
    whole.isNet = width > 0;
    whole.isVector = true;
    whole.left = leftOf(width);
    whole.text = typeName(node.attribute("name").value(), isUnion ? "union packed" : "struct packed");
    return whole;
}

// Several dimensions are one bus of the whole width; the one dimension of an array of single bits keeps
// its declared range.
VerilatorType VerilatorTypes::packedArray(const pugi::xml_node &node) const
{
    VerilatorType array = type(node.attribute("sub_dtype_id").value());
    int left = 0;
    int right = 0;
    if (!array.isNet || !verilatorRange(node, left, right))
        return VerilatorType();
    const int firstDimension = array.text.indexOf(QLatin1Char('['));
    if (firstDimension > 0)
        array.text.insert(firstDimension, rangeText(left, right));
    else
        array.text += QLatin1Char(' ') + rangeText(left, right);
    array.left = array.isVector ? leftOf(qint64(rangeWidth(left, right)) * array.width()) : left;
    array.right = array.isVector ? 0 : right;
    array.isVector = true;
    array.isBasic = false;
    return array;
}

// A damaged text may hold a type that leads back to itself.
VerilatorArray VerilatorTypes::array(const char *id) const
{
    VerilatorArray array;
    auto node = m_nodes.find(id);
    for (int level = 0; level < mostLevels && node != m_nodes.end(); ++level) {
        const char *below = node->second.attribute("sub_dtype_id").value();
        int left = 0, right = 0;
        if (std::strcmp(node->second.name(), "unpackarraydtype") == 0 &&
            verilatorRange(node->second, left, right)) {
            array.dimensions.push_back({left, right});
        } else if (!isOneOf(node->second.name(), {"refdtype", "constdtype"})) {
            array.element = type(node->second.attribute("id").value());
            return array;
        }
        node = m_nodes.find(below);
    }
    return VerilatorArray();
}

qint64 VerilatorArray::count() const
{
    qint64 count = 1;
    for (const Dimension &dimension : dimensions)
        count = qMin(count * rangeWidth(dimension.left, dimension.right), NetlistBuilder::maxNets + 1);
    return count;
}

QString VerilatorArray::index(qint64 element) const
{
    QString text;
    for (auto dimension = dimensions.rbegin(); dimension != dimensions.rend(); ++dimension) {
        const int width = rangeWidth(dimension->left, dimension->right);
        const int offset = int(element % width);
        element /= width;
        const int number =
            dimension->left < dimension->right ? dimension->left + offset : dimension->left - offset;
        text.prepend(QLatin1Char('[') + QString::number(number) + QLatin1Char(']'));
    }
    return text;
}

QStringList VerilatorTypes::members(const char *id) const
{
    const auto known = m_members.find(id);
    if (known != m_members.end())
        return known->second;
    QStringList members;
    if (type(id).isNet)
        addMembers(id, QString(), 0, 0, members);
    return m_members.emplace(id, members).first->second;
}

// The first member has the most significant bits, and so has the leftmost element of an array.
// A damaged text may hold a type that leads back to itself.
void VerilatorTypes::addMembers(const char *id, const QString &path, int low, int level,
                                QStringList &members) const
{
    const int mostMembers = 512;
    const auto found = m_nodes.find(id);
    if (found == m_nodes.end() || members.size() >= mostMembers || level > mostLevels)
        return;
    const pugi::xml_node &node = found->second;
    const char *inner = node.attribute("sub_dtype_id").value();
    int left = 0, right = 0;
    if (isOneOf(node.name(), {"structdtype", "uniondtype"})) {
        const bool isUnion = std::strcmp(node.name(), "uniondtype") == 0;
        int above = low + type(id).width();
        for (const pugi::xml_node &member : node.children("memberdtype")) {
            const char *part = member.attribute("sub_dtype_id").value();
            above -= isUnion ? 0 : type(part).width();
            const QString name = QString::fromUtf8(member.attribute("name").value());
            addMembers(part, path.isEmpty() ? name : path + QLatin1Char('.') + name, isUnion ? low : above,
                       level + 1, members);
        }
    } else if (isOneOf(node.name(), {"refdtype", "constdtype"})) {
        addMembers(inner, path, low, level + 1, members);
    } else if (std::strcmp(node.name(), "packarraydtype") == 0 && isStructure(inner, level) &&
               verilatorRange(node, left, right)) {
        const int width = type(inner).width();
        const int count = rangeWidth(left, right);
        for (int i = 0; i < count && members.size() < mostMembers; ++i)
            addMembers(inner, path + rangeText(left < right ? left + i : left - i),
                       low + width * (count - 1 - i), level + 1, members);
    } else if (!path.isEmpty()) {
        const int width = type(id).width();
        members.append(path + (width > 1 ? rangeText(low + width - 1, low) : rangeText(low)));
    }
}

bool VerilatorTypes::isStructure(const char *id, int level) const
{
    const auto node = m_nodes.find(id);
    if (node == m_nodes.end() || level > mostLevels)
        return false;
    if (isOneOf(node->second.name(), {"refdtype", "constdtype", "packarraydtype"}))
        return isStructure(node->second.attribute("sub_dtype_id").value(), level + 1);
    return isOneOf(node->second.name(), {"structdtype", "uniondtype"});
}

QString VerilatorTypes::declaredText(const pugi::xml_node &var, const VerilatorType &known) const
{
    const char *word = var.attribute("vartype").value();
    if (std::strncmp(word, "__typeimpenum", 13) == 0)
        return QLatin1String("enum ") + known.text;
    if (!*word || std::strstr(word, "__typeimp") || isOneOf(word, {"wire", "port", "unknown"}))
        return known.text;
    if (known.isBasic && known.text.startsWith(QLatin1String(word)))
        return known.text;
    return QString::fromUtf8(word);
}

void VerilatorTypes::addEnumeration(const pugi::xml_node &node)
{
    // "pk::state_t", "top.state_t", "top.g[0].state_t"
    const std::string full = node.attribute("name").value();
    const size_t end = full.find_last_of(":.");
    const std::string name = end == std::string::npos ? full : full.substr(end + 1);
    size_t scopeEnd = end == std::string::npos ? 0 : end;
    if (scopeEnd > 0 && full[scopeEnd] == ':')
        --scopeEnd;
    Enumeration enumeration;
    enumeration.scope = QUtil::fromUtf8(full.substr(0, scopeEnd));
    enumeration.base = node.attribute("sub_dtype_id").value();
    for (const pugi::xml_node &item : node.children("enumitem"))
        enumeration.labels += enumLabel(item);
    m_enumerations.emplace(name, enumeration);
}

QString VerilatorTypes::enumLabel(const pugi::xml_node &item) const
{
    VerilatorConstant value(item.child("const").attribute("name").value());
    const auto base = m_nodes.find(item.attribute("dtype_id").value());
    if (base != m_nodes.end() && base->second.attribute("signed"))
        value.isSigned = true;
    return QString::fromUtf8(item.attribute("name").value()) + QLatin1Char('=') +
           QString::number(value.number());
}

QStringList VerilatorTypes::enumLabels(const pugi::xml_node &var, const QString &module) const
{
    const char *word = var.attribute("vartype").value();
    const auto range = m_enumerations.equal_range(word);
    const std::string_view base = var.attribute("dtype_id").value();
    QStringList labels;
    bool found = false;
    for (auto it = range.first; it != range.second; ++it) {
        if (it->second.base != base)
            continue;
        if (it->second.scope == module)
            return it->second.labels;
        // Which of two packages was imported is not in the XML: no labels are better than wrong ones.
        if (found && labels != it->second.labels)
            return QStringList();
        found = true;
        labels = it->second.labels;
    }
    return labels;
}

} // namespace QUARRY

#pragma once

#include "model/netlist/netlistbuilder.h"

#include <pugixml.hpp>

#include <QString>
#include <QStringList>

#include <string_view>
#include <unordered_map>
#include <vector>

namespace QUARRY {

// The shape of one data type.
struct VerilatorType
{
    bool isNet = false;    // packed, so that bits of it can be probed; false for memories, reals, strings
    bool isVector = false; // also a vector of one bit
    int left = 0;
    int right = 0;
    bool isBasic = false;
    QString text; // "logic [7:0]"

    int width() const { return isVector ? rangeWidth(left, right) : 1; }
};

// An unpacked array, of one or more dimensions.
struct VerilatorArray
{
    struct Dimension
    {
        int left;
        int right;
    };
    std::vector<Dimension> dimensions; // from the outermost; none: no array
    VerilatorType element;

    qint64 count() const;                // of its elements, at most maxNets of the builder and one
    QString index(qint64 element) const; // "[2][0]" of the one at that position in declared order
};

// The type table at the end of the XML. Refers to the document, which must outlive it.
class VerilatorTypes
{
public:
    explicit VerilatorTypes(const pugi::xml_node &table);

    const VerilatorType &type(const char *id) const; // of no net when unknown
    VerilatorArray array(const char *id) const;

    // The type of a declaration in its own words, and the labels when it is an enumeration.
    // `shown`: its type, or that of an element when it is an array.
    QString declaredText(const pugi::xml_node &var, const VerilatorType &shown) const;
    QStringList enumLabels(const pugi::xml_node &var, const QString &module) const;
    // Of a packed structure or union, the members with their bits in it: "hdr.len[12:9]"; at most some
    // hundreds.
    QStringList members(const char *id) const;

private:
    struct Enumeration
    {
        QString scope; // "pk" of "pk::state_t", "top" of "top.state_t"
        std::string_view base;
        QStringList labels;
    };

    VerilatorType resolved(const pugi::xml_node &node) const;
    VerilatorType basic(const pugi::xml_node &node) const;
    VerilatorType structure(const pugi::xml_node &node) const;
    VerilatorType packedArray(const pugi::xml_node &node) const;
    bool isStructure(const char *id, int level) const;
    void addMembers(const char *id, const QString &path, int low, int level, QStringList &members) const;
    void addEnumeration(const pugi::xml_node &node);
    QString enumLabel(const pugi::xml_node &item) const;

    std::unordered_map<std::string_view, pugi::xml_node> m_nodes;
    mutable std::unordered_map<std::string_view, VerilatorType> m_types;
    mutable std::unordered_map<std::string_view, QStringList> m_members; // one copy for all declarations
    std::unordered_multimap<std::string, Enumeration> m_enumerations;    // by name without its scope
};

// The digits of a Verilator constant, "32'sh1f". Values beyond 64 bits are cut.
struct VerilatorConstant
{
    explicit VerilatorConstant(const char *text);

    int width = 0;
    char base = 'h';
    const char *digits = ""; // of `text`

    qint64 number() const; // two's complement of `width` bits when the constant is signed
    bool isSigned = false;
};

// The two numbers of a <range> below `node`; false when there is none.
bool verilatorRange(const pugi::xml_node &node, int &left, int &right);

} // namespace QUARRY

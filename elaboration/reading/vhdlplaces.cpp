#include "elaboration/reading/vhdlplaces.h"

#include "elaboration/reading/ghdltree.h"
#include "elaboration/reading/vhdlscopes.h"
#include "host/regularfile.h"
#include "host/utf8.h"

#include <QDir>
#include <QFile>

#include <string>
#include <vector>

namespace QUARRY {

using QUtil::fromUtf8;

namespace {

QString key(std::string_view name)
{
    return plainVhdlName(fromUtf8(name)).toLower();
}

} // namespace

class VhdlTreeReader
{
public:
    VhdlTreeReader(VhdlPlaceTable &table, const QString &treeFile, const QMap<QString, QString> &fileNames)
        : m_table(table), m_tree(treeFile), m_fileNames(fileNames)
    {
        m_tree.open(QIODevice::ReadOnly);
    }

    bool readSome()
    {
        const int linesAtOnce = 4096;
        for (int i = 0; i < linesAtOnce; ++i) {
            if (m_tree.atEnd()) {
                take(GhdlTreeLine(std::string_view()));
                return false;
            }
            const QByteArray line = m_tree.readLine();
            const int end = line.endsWith('\n') ? line.size() - 1 : line.size();
            take(GhdlTreeLine(std::string_view(line.constData(), size_t(end))));
        }
        return true;
    }

private:
    void take(const GhdlTreeLine &line)
    {
        while (!m_open.empty() && m_open.back().depth >= line.depth)
            close();
        if (!m_open.empty())
            takeMember(m_open.back(), line);
        const Kind kind = kindOf(line);
        if (kind == Other)
            return;
        m_open.emplace_back();
        Node &node = m_open.back();
        node.kind = kind;
        node.depth = line.depth;
        node.id = line.id;
        node.name = key(line.name);
        node.isArray = line.kind == "array_subtype_definition";
        if (kind == Entity) {
            if (m_table.m_entities.count(node.name) && !m_entities.contains(node.name))
                m_table.m_ambiguous.insert(node.name);
            m_entities.insert(node.name);
            VhdlPlaces &places = m_table.m_entities[node.name];
            clear(places);
            m_scopes.insert(line.id, &places);
        }
    }

    enum Kind {
        Other,
        Entity,
        Architecture,
        Statement,
        Body,
        Instance,
        Configuration, // "for u1 : sub use entity work.sub(rtl);"
        Signal,
        Subtype,
        Range,
        Enumeration,
        Member
    };

    struct Node
    {
        Kind kind = Other;
        size_t depth = 0;
        int id = 0;
        QString name;
        QString spelling;
        VhdlPlaces *parent = nullptr;
        Declaration info;
        QString architecture; // of an instance or configuration
        QString entity;       // of an instance
        int type = 0;
        bool isArray = false;
        int ranges = 0;
        QString direction, left, right; // of a range; of a subtype, all in the first
    };

    Kind kindOf(const GhdlTreeLine &line) const
    {
        if (line.kind == "generate_statement_body")
            return Body;
        if (line.role == "library_unit")
            return line.kind == "entity_declaration"  ? Entity
                   : line.kind == "architecture_body" ? Architecture
                                                      : Other;
        if (line.role == "type_definition")
            return line.kind == "enumeration_type_definition" ? Enumeration : Other;
        if (line.role == "subtype_indication")
            return line.isOf("_subtype_definition") ? Subtype : Other;
        if (line.role == "range_constraint")
            return Range;
        if (!line.role.empty())
            return Other;
        if (line.kind == "signal_declaration" || line.kind == "interface_signal_declaration")
            return Signal;
        if (line.kind == "element_declaration")
            return Member;
        if (line.kind == "block_statement" || line.isOf("_generate_statement"))
            return Statement;
        return line.kind == "component_instantiation_statement" ? Instance
               : line.kind == "configuration_specification"     ? Configuration
                                                                : Other;
    }

    void takeMember(Node &node, const GhdlTreeLine &line)
    {
        if (node.kind == Enumeration && line.kind == "enumeration_literal" && line.role.empty())
            node.info.enumLabels += plainVhdlName(fromUtf8(line.name)) + QLatin1Char('=') +
                                    QString::number(node.info.enumLabels.size());
        else if (line.role == "architecture" && (node.kind == Instance || node.kind == Configuration))
            node.architecture = key(line.name);
        else if (node.kind == Instance && (line.role == "entity_name" || line.role == "instantiated_unit") &&
                 line.isOf("_name"))
            node.entity = key(line.name);
        if (line.depth != node.depth + 2)
            return;
        if (line.role == "location" &&
            (node.kind == Entity || node.kind == Signal || node.kind == Statement || node.kind == Instance ||
             node.kind == Member))
            setPlace(node, line.value);
        if (line.role == "parent")
            setParent(node, m_scopes.value(line.id));
        else if (line.role == "block_header")
            m_scopes.insert(line.id, m_scopes.value(node.id));
        else if (line.role == "configuration_specification" && m_configured.contains(line.id))
            node.architecture = m_configured.value(line.id);
        else if (line.role == "entity_name" && node.kind == Architecture)
            addArchitecture(node, key(line.name));
        else if (node.kind == Signal || node.kind == Subtype)
            takeType(node, line);
        else if (node.kind == Range)
            takeLimit(node, line);
    }

    // Components and subprograms have parameters that look like ports: they are no scopes.
    void setParent(Node &node, VhdlPlaces *parent)
    {
        node.parent = parent;
        if (!parent || (node.kind != Statement && node.kind != Body))
            return;
        VhdlPlaces *scope = parent;
        if (node.kind == Statement) {
            std::unique_ptr<VhdlPlaces> &inner = parent->inner[node.name];
            if (!inner)
                inner.reset(new VhdlPlaces);
            scope = inner.get();
        }
        m_scopes.insert(node.id, scope);
    }

    // A unit may come again. What was in the first stays until all is read: nodes refer to it.
    void clear(VhdlPlaces &places)
    {
        m_replaced.push_back(std::move(places));
        places = VhdlPlaces();
    }

    void addArchitecture(Node &node, const QString &entity)
    {
        VhdlPlaces &places = m_table.m_architectures[entity][node.name];
        clear(places);
        places.declarations = m_table.m_entities[entity].declarations;
        places.name = m_table.m_entities[entity].name;
        places.spellings = m_table.m_entities[entity].spellings;
        m_table.m_last.insert(entity, node.name);
        m_scopes.insert(node.id, &places);
    }

    void takeType(Node &node, const GhdlTreeLine &line)
    {
        if (line.role == "subtype_type_mark" || (line.role == "subtype_indication" && line.isOf("_name")))
            node.info.type = plainVhdlName(fromUtf8(line.name));
        else if (line.role == "type" || line.role == "parent_type")
            node.type = line.id;
    }

    void setPlace(Node &node, std::string_view place)
    {
        const size_t column = place.rfind(':');
        const size_t line = place.rfind(':', column - 1);
        if (column == place.npos || line == place.npos)
            return;
        if (place.substr(0, line) != m_fileSeen) {
            m_fileSeen = place.substr(0, line);
            const QString name = fromUtf8(m_fileSeen);
            m_file = m_fileNames.value(name, QDir::cleanPath(name));
            QString reason;
            m_source.clear();
            m_lineStarts.assign(1, 0);
            QUtil::readRegularFile(name, 64 * QUtil::MiB, &m_source, &reason);
            for (int end = m_source.indexOf('\n'); end >= 0; end = m_source.indexOf('\n', end + 1))
                m_lineStarts.push_back(end + 1);
        }
        node.info.file = m_file;
        node.info.line = ghdlNumber(place.substr(line + 1, column - line - 1));
        node.spelling = wordAt(node.info.line, ghdlNumber(place.substr(column + 1)), node.name);
    }

    // GHDL itself writes all in small letters.
    QString wordAt(int line, int column, const QString &name) const
    {
        if (line < 1 || size_t(line) > m_lineStarts.size())
            return name;
        const int start = m_lineStarts[size_t(line) - 1];
        const QByteArray words =
            QByteArray::fromRawData(m_source.constData() + start, m_source.size() - start);
        int at = ghdlOffset(words, 1, column);
        at += words.mid(at, 1) == "\\" ? 1 : 0;
        const QString word = QString::fromLatin1(words.mid(at, name.size()));
        return word.toLower() == name ? word : name;
    }

    static void takeLimit(Node &node, const GhdlTreeLine &line)
    {
        if (line.role == "direction")
            node.direction = fromUtf8(line.value);
        else if (line.role == "left_limit_expr" && line.kind == "integer_literal")
            node.left = fromUtf8(line.rest);
        else if (line.role == "right_limit_expr" && line.kind == "integer_literal")
            node.right = fromUtf8(line.rest);
    }

    void close()
    {
        Node node = m_open.back();
        m_open.pop_back();
        Node *owner = m_open.empty() ? nullptr : &m_open.back();
        if (node.kind == Entity)
            m_table.m_entities[node.name].name = node.spelling;
        if (node.kind == Member)
            m_table.m_members.addSpelling(node.name, node.spelling);
        if (node.parent && (node.kind == Signal || node.kind == Instance || node.kind == Statement))
            node.parent->addSpelling(node.name, node.spelling);
        if (node.kind == Signal)
            addSignal(node);
        else if (node.kind == Instance && node.parent)
            addInstance(node);
        else if (node.kind == Configuration)
            m_configured.insert(node.id, node.architecture);
        else if (node.kind == Enumeration)
            m_labels.insert(node.id, node.info.enumLabels);
        else if (node.kind == Subtype)
            addSubtype(node, owner);
        else if (node.kind == Range && owner && owner->kind == Subtype && owner->ranges++ == 0 &&
                 !node.left.isEmpty() && !node.right.isEmpty())
            owner->direction = node.left + QLatin1Char(' ') + node.direction + QLatin1Char(' ') + node.right;
    }

    static void addInstance(const Node &node)
    {
        node.parent->architectures.insert(node.name, node.architecture);
        node.parent->entities.insert(node.name, node.entity);
    }

    void addSubtype(const Node &node, Node *owner)
    {
        QString words = node.info.type;
        if (node.ranges == 1 && !node.direction.isEmpty())
            words += node.isArray ? QLatin1Char('(') + node.direction + QLatin1Char(')')
                                  : QLatin1String(" range ") + node.direction;
        if (!words.isEmpty())
            m_subtypes.insert(node.id, words);
        if (m_labels.contains(node.type))
            m_labels.insert(node.id, m_labels.value(node.type));
        if (owner && owner->kind == Signal)
            owner->info.type = m_subtypes.value(node.id);
    }

    // The alternatives of a generate statement may declare the same name, and nothing says which was
    // chosen.
    void addSignal(Node &node)
    {
        if (!node.parent || node.info.line == 0)
            return;
        node.info.enumLabels = m_labels.value(node.type);
        const bool isNew = !node.parent->declarations.contains(node.name);
        node.parent->declarations.insert(node.name, isNew ? node.info : Declaration());
    }

    VhdlPlaceTable &m_table;
    QFile m_tree;
    std::vector<VhdlPlaces> m_replaced;
    const QMap<QString, QString> &m_fileNames;
    std::vector<Node> m_open;          // from the outside in
    QSet<QString> m_entities;          // of this tree
    QHash<int, VhdlPlaces *> m_scopes; // by number of the node, as the next ones
    QHash<int, QString> m_configured;  // architectures
    QHash<int, QStringList> m_labels;
    QHash<int, QString> m_subtypes;
    std::string m_fileSeen;
    QByteArray m_source; // that file
    std::vector<int> m_lineStarts;
    QString m_file;
};

// The alternatives of a generate statement may spell it differently.
void VhdlPlaces::addSpelling(const QString &name, const QString &spelling)
{
    if (!spelling.isEmpty())
        spellings.insert(name, spellings.value(name, spelling) == spelling ? spelling : name);
}

const VhdlPlaces *VhdlPlaces::below(const QString &label) const
{
    const auto found = inner.find(label.toLower());
    return found == inner.end() ? nullptr : found->second.get();
}

VhdlPlaceTable::VhdlPlaceTable() = default;
VhdlPlaceTable::~VhdlPlaceTable() = default;

void VhdlPlaceTable::open(const QStringList &treeFiles, const QMap<QString, QString> &fileNames)
{
    m_trees = treeFiles;
    m_fileNames = &fileNames;
    openNext();
}

// Each with a reader of its own: the numbers in a tree mean nothing in another one.
void VhdlPlaceTable::openNext()
{
    m_reader.reset(m_trees.isEmpty() ? nullptr
                                     : new VhdlTreeReader(*this, m_trees.takeFirst(), *m_fileNames));
}

bool VhdlPlaceTable::readSome()
{
    if (m_reader && !m_reader->readSome())
        openNext();
    return m_reader != nullptr;
}

QString VhdlPlaceTable::spelledPath(const QString &path) const
{
    QStringList parts = path.split(QLatin1Char('.'));
    for (QString &part : parts) {
        const QString name = part.section(QLatin1Char('['), 0, 0);
        part.replace(0, name.size(), m_members.spelled(name));
    }
    return parts.join(QLatin1String("."));
}

const VhdlPlaces *VhdlPlaceTable::of(const QString &entity, const QString &architecture) const
{
    const auto known = m_architectures.find(entity.toLower());
    if (known == m_architectures.end() || m_ambiguous.contains(known->first))
        return nullptr;
    const auto found = known->second.find(architecture.isEmpty() ? m_last.value(known->first) : architecture);
    return found == known->second.end() ? nullptr : &found->second;
}

} // namespace QUARRY

#include "elaboration/reading/vhdldeclarations.h"

#include "elaboration/reading/vhdlscopes.h"

namespace QUARRY {

VhdlDeclarations::VhdlDeclarations(VhdlPlaceTable &table, const QString &library, const QString &file,
                                   const QByteArray &text)
    : m_table(table), m_library(library), m_file(file), m_words(text), m_packages(new QSet<QString>)
{
}

void VhdlDeclarations::read()
{
    for (int i = 0; i < m_words.count(); ++i) { // "use lib.package.all;", "use package.all;"
        if (m_words.at(i).is("."))
            m_packages->insert(key(i - 1));
    }
    while (!isOver()) {
        if (is("entity") && is("is", 2))
            readEntity();
        else if (is("architecture") && is("of", 2) && is("is", 4))
            readArchitecture();
        else if (is("package") && is("is", 2))
            readPackage();
        else
            ++m_at;
    }
}

// Nobody writes blocks in so many blocks, and each is read by a call in a call.
bool VhdlDeclarations::isTooDeep() const
{
    return m_depth > int(mostVhdlLevels);
}

QString VhdlDeclarations::key(int at) const
{
    return plainVhdlName(m_words.name(at)).toLower();
}

void VhdlDeclarations::skipParentheses()
{
    int depth = 0;
    for (; !isOver(); ++m_at) {
        depth += is("(") ? 1 : is(")") ? -1 : 0;
        if (depth == 0)
            break;
    }
    ++m_at;
}

void VhdlDeclarations::skipStatement()
{
    int depth = 0;
    while (!isOver()) {
        depth += is("(") || is("{") ? 1 : is(")") || is("}") ? -1 : 0;
        ++m_at;
        if (m_words.at(m_at - 1).is(";") && depth <= 0)
            return;
    }
}

void VhdlDeclarations::skipTo(const char *word)
{
    while (!isOver() && !is(word))
        ++m_at;
}

void VhdlDeclarations::skipPast(const char *kind)
{
    while (!isOver() && !(is("end") && (is(kind, 1) || is(kind, 2))))
        ++m_at;
    skipStatement();
}

// Of a subprogram, from behind its "begin".
void VhdlDeclarations::skipBody()
{
    for (int depth = 0; !isOver();) {
        const bool isEnd = is("end");
        if (isEnd && depth == 0)
            return skipStatement();
        depth += isEnd ? -1 : is("if") || is("case") || is("loop") ? 1 : 0;
        if (isEnd)
            skipStatement();
        else
            ++m_at;
    }
}

void VhdlDeclarations::readEntity()
{
    Region region;
    region.places = m_table.add(m_library);
    region.places->name = plainVhdlName(m_words.spelled(m_at + 1));
    m_table.m_units[key(m_at + 1)][m_library].entity = region.places;
    m_at += 3;
    readHeader(*region.places);
    readDeclarations(region);
    m_at += is("begin") ? 1 : 0;
    readStatements(region);
}

void VhdlDeclarations::readArchitecture()
{
    VhdlPlaceTable::Unit &unit = m_table.m_units[key(m_at + 3)][m_library];
    Region region;
    region.places = m_table.add(m_library);
    unit.last = key(m_at + 1);
    unit.architectures[unit.last] = region.places;
    m_at += 5;
    readDeclarations(region);
    m_at += is("begin") ? 1 : 0;
    readStatements(region);
}

void VhdlDeclarations::readPackage()
{
    Region region;
    region.places = m_table.add(m_library);
    region.places->name = key(m_at + 1);
    m_at += 3;
    if (is("new"))
        return skipStatement();
    readHeader(*region.places);
    readDeclarations(region);
    skipStatement();
    for (const QString &type : region.places->types.keys())
        m_table.m_typeOwners[type].append(region.places);
}

// "generic (...); generic map (...); port (...); port map (...);"
void VhdlDeclarations::readHeader(VhdlPlaces &places)
{
    while (is("generic") || is("port")) {
        if (is("port") && is("(", 1))
            readPorts(places);
        skipStatement();
    }
}

void VhdlDeclarations::readPorts(VhdlPlaces &places)
{
    for (m_at += 2; !isOver() && !is(")") && !is(";");) {
        m_at += is("signal") ? 1 : 0;
        const QList<int> names = readNames();
        while (is("in") || is("out") || is("inout") || is("buffer") || is("linkage"))
            ++m_at;
        declare(places, names, readIndication());
        for (; !isOver() && !is(";") && !is(")");) { // the default value
            if (is("("))
                skipParentheses();
            else
                ++m_at;
        }
        m_at += is(";") ? 1 : 0;
    }
    ++m_at;
}

// "a, b :"
QList<int> VhdlDeclarations::readNames()
{
    QList<int> names;
    for (; !isOver() && !is(":") && !is(";"); ++m_at) {
        if (m_words.at(m_at).isName())
            names.append(m_at);
    }
    m_at += is(":") ? 1 : 0;
    return names;
}

// As far as "begin" or "end".
void VhdlDeclarations::readDeclarations(Region &region)
{
    ++m_depth;
    while (!isTooDeep() && !isOver() && !is("begin") && !is("end")) {
        if (is("signal"))
            readSignals(region);
        else if (is("type"))
            readType(region);
        else if (is("subtype"))
            readSubtype(region);
        else if (is("component"))
            skipPast("component");
        else if (is("function") || is("procedure") || is("pure") || is("impure"))
            readSubprogram();
        else if (is("for"))
            readBinding(region);
        else if (is("package") && is("is", 2))
            readPackage();
        else
            skipStatement();
    }
    --m_depth;
}

void VhdlDeclarations::readSignals(Region &region)
{
    ++m_at;
    const QList<int> names = readNames();
    if (region.places)
        declare(*region.places, names, readIndication());
    skipStatement();
}

void VhdlDeclarations::readType(Region &region)
{
    const QString name = key(m_at + 1);
    m_at += 2;
    if (is("is") && is("record", 1))
        return readRecord();
    if (is("is") && is("protected", 1))
        return skipPast("protected");
    if (is("is") && is("(", 1)) {
        VhdlType type;
        for (m_at += 2; !isOver() && !is(")") && !is(";"); ++m_at) {
            if (!is(","))
                type.labels += plainVhdlName(m_words.name(m_at)) + QLatin1Char('=') +
                               QString::number(type.labels.size());
        }
        if (region.places)
            region.places->types.insert(name, type);
    }
    while (!isOver() && !is(";") && !is("units"))
        ++m_at;
    if (is("units"))
        skipPast("units");
    else
        skipStatement();
}

void VhdlDeclarations::readRecord()
{
    for (m_at += 2; !isOver() && !is("end"); skipStatement()) {
        for (const int name : readNames())
            m_table.m_members.addSpelling(key(name), plainVhdlName(m_words.spelled(name)));
    }
    skipStatement();
}

void VhdlDeclarations::readSubtype(Region &region)
{
    const QString name = key(m_at + 1);
    m_at += 3;
    VhdlType type;
    type.base = readIndication().mark;
    if (region.places)
        region.places->types.insert(name, type);
    skipStatement();
}

void VhdlDeclarations::readSubprogram()
{
    for (; !isOver() && !is("is") && !is(";");) {
        if (is("("))
            skipParentheses();
        else
            ++m_at;
    }
    if (!is("is") || is("new", 1))
        return skipStatement();
    ++m_at;
    Region own;
    readDeclarations(own);
    if (!is("begin"))
        return skipStatement();
    ++m_at;
    skipBody();
}

// "for u1, u2 : sub use entity work.sub(rtl);", also "for all :" and "for others :"
void VhdlDeclarations::readBinding(Region &region)
{
    const QList<int> labels = readNames();
    const QString component = readSelected().value(0);
    if (is("use") && (is("entity", 1) || is("configuration", 1)) && region.places) {
        ++m_at;
        const VhdlTarget target = readTarget();
        for (const int label : labels) {
            const QString name = key(label);
            const bool isGroup = name == QLatin1String("all") || name == QLatin1String("others");
            region.bindings.insert(isGroup ? QLatin1String("all of ") + component : name, target);
        }
    }
    skipStatement();
    if (is("end") && is("for", 1))
        skipStatement();
}

// "lib.sub" backwards
QStringList VhdlDeclarations::readSelected()
{
    QStringList names;
    for (; m_words.at(m_at).isName(); m_at += 2) {
        names.prepend(key(m_at));
        if (!is(".", 1))
            break;
    }
    m_at += names.isEmpty() ? 0 : 1;
    return names;
}

// "entity lib.sub(rtl)", "component sub", "sub"
VhdlTarget VhdlDeclarations::readTarget()
{
    VhdlTarget target;
    const bool isEntity = is("entity");
    const bool isConfiguration = is("configuration");
    m_at += isEntity || isConfiguration || is("component") ? 1 : 0;
    const QStringList names = readSelected();
    if (isConfiguration)
        return target;
    target.entity = names.value(0);
    if (!isEntity)
        return target;
    if (names.value(1) != QLatin1String("work"))
        target.library = names.value(1);
    if (is("("))
        target.architecture = key(m_at + 1);
    return target;
}

// As far as "end", or the next alternative of a generate statement.
void VhdlDeclarations::readStatements(Region &region)
{
    ++m_depth;
    while (!isTooDeep() && !isOver() && !is("end") && !is("elsif") && !is("else") && !is("when"))
        readStatement(region);
    --m_depth;
}

void VhdlDeclarations::readStatement(Region &region)
{
    const bool isLabelled = m_words.at(m_at).isName() && is(":", 1) && !is("=", 2);
    const int label = m_at;
    m_at += isLabelled ? 2 : 0;
    m_at += is("postponed") ? 1 : 0;
    if (is("process"))
        skipPast("process");
    else if (isLabelled && is("block"))
        readBlock(region, label);
    else if (isLabelled && (is("for") || is("if") || is("case")))
        readGenerate(region, label);
    else if (isLabelled && isInstance())
        readInstance(region, label);
    else
        skipStatement();
}

bool VhdlDeclarations::isInstance() const
{
    int behind = 1;
    while (is(".", behind))
        behind += 2;
    return is("entity") || is("component") || is("configuration") || is(";", behind) ||
           ((is("port", behind) || is("generic", behind)) && is("map", behind + 1));
}

void VhdlDeclarations::readInstance(Region &region, int label)
{
    const bool isComponent = !is("entity") && !is("configuration");
    VhdlTarget target = readTarget();
    const QString group = QLatin1String("all of ") + target.entity;
    if (isComponent)
        target = region.bindings.value(key(label), region.bindings.value(group, target));
    spell(region, label);
    region.places->instances.insert(key(label), target);
    skipStatement();
}

void VhdlDeclarations::readBlock(Region &region, int label)
{
    Region own;
    own.places = &inner(region, label);
    ++m_at;
    if (is("("))
        skipParentheses();
    m_at += is("is") ? 1 : 0;
    readHeader(*own.places);
    readDeclarations(own);
    m_at += is("begin") ? 1 : 0;
    readStatements(own);
    skipStatement();
}

void VhdlDeclarations::readGenerate(Region &region, int label)
{
    VhdlPlaces &places = inner(region, label);
    const bool isCase = is("case");
    skipTo("generate");
    ++m_at;
    while (!isOver()) {
        if (isCase)
            skipTo(">"); // of "when 1 | 2 =>"
        m_at += isCase ? 1 : 0;
        readAlternative(places);
        if (is("end") && !is("generate", 1))
            skipStatement(); // of the alternative
        if (is("end"))
            return skipStatement();
        if (!isCase)
            skipTo("generate");
        m_at += isCase ? 0 : 1;
    }
}

bool VhdlDeclarations::isDeclaration() const
{
    static const char *const words[] = {"signal",    "type",  "subtype", "component", "function",
                                        "procedure", "pure",  "impure",  "attribute", "constant",
                                        "shared",    "file",  "alias",   "use",       "for",
                                        "package",   "group", "begin",   "variable",  "disconnect"};
    for (const char *const word : words) {
        if (is(word) && !is(":", 1))
            return true;
    }
    return false;
}

void VhdlDeclarations::readAlternative(VhdlPlaces &places)
{
    Region own;
    own.places = &places;
    if (isDeclaration())
        readDeclarations(own);
    m_at += is("begin") ? 1 : 0;
    readStatements(own);
}

VhdlPlaces &VhdlDeclarations::inner(Region &region, int label)
{
    spell(region, label);
    std::unique_ptr<VhdlPlaces> &places = region.places->inner[key(label)];
    if (!places)
        places.reset(new VhdlPlaces);
    places->library = m_library;
    places->outer = region.places;
    return *places;
}

void VhdlDeclarations::spell(Region &region, int name)
{
    region.places->addSpelling(key(name), plainVhdlName(m_words.spelled(name)));
}

// The alternatives of a generate statement may declare the same name, and nothing says which was chosen.
void VhdlDeclarations::declare(VhdlPlaces &places, const QList<int> &names, const Subtype &subtype)
{
    for (const int name : names) {
        const QString known = key(name);
        Declaration place;
        place.file = m_file;
        place.line = m_words.at(name).line;
        place.type = subtype.text;
        places.declarations.insert(known, places.declarations.contains(known) ? Declaration() : place);
        places.addSpelling(known, plainVhdlName(m_words.spelled(name)));
        m_table.m_typed.push_back({&places, known, subtype.mark, m_packages});
    }
}

} // namespace QUARRY

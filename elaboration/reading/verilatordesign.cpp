#include "elaboration/reading/verilatordesign.h"

#include "elaboration/reading/vhdldeclarations.h"
#include "host/absolutepath.h"

#include "elaboration/reading/verilatornames.h"
#include "elaboration/reading/verilatorties.h"
#include "host/regularfile.h"
#include "host/utf8.h"

#include <QBuffer>
#include <QCoreApplication>
#include <QFile>
#include <QRegExp>

#include <algorithm>
#include <cstring>
#include <limits>

namespace QUARRY {

namespace {

// Of "c,12,8,12,15": file, first line, first column, last line, column behind the last.
struct Location
{
    explicit Location(const pugi::xml_node &node)
    {
        const char *text = node.attribute("loc").value();
        const char *comma = std::strchr(text, ',');
        if (!comma)
            return;
        file = std::string_view(text, size_t(comma - text));
        const char *last = std::strrchr(text, ',');
        line = number(comma + 1, &text);
        column = *text ? number(text + 1, &text) : 0;
        end = number(last + 1, &text);
    }

    // Never negative, whatever stands there.
    static int number(const char *digits, const char **behind)
    {
        const long value = std::strtol(digits, const_cast<char **>(behind), 10);
        return int(qBound(0L, value, long(std::numeric_limits<int>::max())));
    }

    std::string_view file;
    int line = 0;
    int column = 0;
    int end = 0;
};

} // namespace

VerilatorDesign::VerilatorDesign(const ReadOptions &options, NetlistBuilder &builder)
    : m_options(options), m_builder(builder)
{
}
VerilatorDesign::~VerilatorDesign() = default;

bool VerilatorDesign::load(const QString &xmlFile, QString &error)
{
    QFile file(xmlFile);
    if (!file.open(QIODevice::ReadOnly)) {
        error = tr("ERROR: The elaborated design %1 cannot be read: %2.").arg(xmlFile, file.errorString());
        return false;
    }
    m_text = file.readAll();
    joinLetters(m_text);
    const pugi::xml_parse_result result =
        m_document.load_buffer_inplace(m_text.data(), size_t(m_text.size()), pugi::parse_escapes);
    const pugi::xml_node netlist = m_document.child("verilator_xml").child("netlist");
    if (!result || !netlist) {
        error = tr("ERROR: %1 is not a complete design that Verilator wrote. Read the design again.");
        error = error.arg(xmlFile);
        return false;
    }
    addFiles(m_document.child("verilator_xml").child("files"));
    m_types.reset(new VerilatorTypes(netlist.child("typetable")));
    m_vhdlPlaces.open(m_options.vhdlSources, m_options.fileNames);
    for (const pugi::xml_node &node : netlist.children()) {
        if (is(node, "module") || is(node, "iface") || is(node, "primitive"))
            addModule(node);
    }
    return true;
}

// An included file whose name has a blank stands there twice: as it is, and cut off at the blank.
void VerilatorDesign::addFiles(const pugi::xml_node &files)
{
    QHash<QString, QString> whole;
    for (const pugi::xml_node &node : files.children("file")) {
        const QString name = QString::fromUtf8(node.attribute("filename").value());
        if (name.contains(QLatin1Char(' ')))
            whole.insert(name.section(QLatin1Char(' '), 0, 0), name);
    }
    for (const pugi::xml_node &node : files.children("file")) {
        QString seen = QString::fromUtf8(node.attribute("filename").value());
        seen = whole.value(seen, seen);
        File file;
        file.source = QUtil::absoluteIn(m_options.workingDir, seen);
        file.maker = m_options.generated.value(seen, m_options.generated.value(file.source));
        if (m_options.fileNames.contains(seen))
            file.name = m_options.fileNames.value(seen);
        else if (!file.maker)
            file.name = file.source;
        m_files.emplace(node.attribute("id").value(), file);
    }
}

void VerilatorDesign::addModule(const pugi::xml_node &node)
{
    std::unique_ptr<VerilatorModule> module(new VerilatorModule);
    module->node = node;
    module->name = decodedVerilatorName(node.attribute("origName").value());
    // A user primitive has no nets but its ports, which are those it is connected to.
    module->isBlackBox = is(node, "primitive") || m_options.blackBoxes.contains(module->name);
    module->toolName = module->name;
    module->name = m_options.moduleNames.value(module->name, module->name);
    m_byName.emplace(node.attribute("name").value(), module.get());
    m_modules.push_back(std::move(module));
}

// The named module, and of several with that name (as a recursive one has) the one that Verilator marks.
VerilatorModule *VerilatorDesign::top()
{
    VerilatorModule *chosen = nullptr;
    int best = 0;
    for (const std::unique_ptr<VerilatorModule> &module : m_modules) {
        const int named = !m_options.top.isEmpty() && module->name == m_options.top ? 2 : 0;
        const int fits = named + (module->node.attribute("topModule") ? 1 : 0);
        if (fits > best)
            chosen = module.get();
        best = qMax(best, fits);
    }
    return chosen;
}

VerilatorModule *VerilatorDesign::module(const char *defName)
{
    const QString name = decodedVerilatorName(defName);
    VerilatorModule *&module = m_byName[QUtil::toUtf8(name)];
    if (!module) {
        m_modules.emplace_back(new VerilatorModule);
        module = m_modules.back().get();
        module->name = m_options.moduleNames.value(name, name);
        module->isBlackBox = true;
    }
    if (!m_options.choices.contains(module->toolName))
        return module;
    const pugi::xml_node chosen =
        module->node.find_node([](const pugi::xml_node &node) { return is(node, "instance"); });
    if (chosen)
        return this->module(chosen.attribute("defName").value());
    module->isBlackBox = true; // nothing could be made for these values
    return module;
}

const VhdlScope *VerilatorDesign::vhdlScope(const VerilatorModule &module)
{
    const QString file =
        m_options.vhdlScopes.value(module.toolName, m_options.vhdlScopes.value(module.name.toLower()));
    if (file.isEmpty() || !isGenerated(module))
        return nullptr;
    const auto known = m_vhdlScopes.find(&module);
    if (known != m_vhdlScopes.end())
        return known->second.get();
    return m_vhdlScopes.emplace(&module, readVhdlScopes(file, module.name)).first->second.get();
}

const VhdlPlaces *VerilatorDesign::vhdlPlaces(const VerilatorModule &module) const
{
    const QString library = m_options.vhdlLibraries.value(module.toolName);
    return isGenerated(module) ? m_vhdlPlaces.of(library, module.name, QString()) : nullptr;
}

bool VerilatorDesign::readPlaces()
{
    if (m_vhdlPlaces.readSome())
        return true;
    openModule(*top());
    return false;
}

bool VerilatorDesign::readModules()
{
    if (m_open.empty())
        return false;
    OpenModule &open = m_open.back();
    VerilatorModule &owner = *open.module;
    for (; open.scope <= owner.generates.size(); ++open.scope, open.child = 0) {
        VerilatorScope &scope = open.scope == 0 ? *owner.body : *owner.generates[open.scope - 1];
        while (open.child < scope.children.size()) {
            VerilatorChild &child = scope.children[open.child++];
            if (child.generate)
                continue;
            child.module = module(child.node.attribute("defName").value());
            if (child.module->body)
                continue;
            openModule(*child.module);
            return true;
        }
    }
    closeModule(owner);
    m_open.pop_back();
    return true;
}

void VerilatorDesign::openModule(VerilatorModule &module)
{
    m_open.push_back({&module, 0, 0});
    module.body.reset(new VerilatorScope);
    module.body->decl.name = module.name;
    m_outputWires.clear();
    m_loopVariablesKnown = false;
    const VerilogMaker *maker = fileOf(module.node).maker;
    if (maker && maker->addsOutputWires)
        findOutputWires(module.node);
    if (!module.isBlackBox)
        readBody(module.node, module, *module.body);
    module.numberInterfacePorts();
}

void VerilatorDesign::closeModule(VerilatorModule &module)
{
    module.body->builderModule = m_builder.addModule(module.body->decl);
    module.body->decl = ModuleDecl();
    for (const std::unique_ptr<VerilatorScope> &scope : module.generates) {
        scope->builderModule = m_builder.addModule(scope->decl);
        scope->decl = ModuleDecl();
    }
    if (!m_builder.overflow().isEmpty())
        return;
    VerilatorTies(*m_types, module).findOwn();
}

void VerilatorDesign::readBody(const pugi::xml_node &body, VerilatorModule &module, VerilatorScope &scope)
{
    for (const pugi::xml_node &node : body.children()) {
        if (is(node, "var"))
            readVariable(node, module, scope);
        else if (is(node, "begin"))
            readGenerate(node, module, scope);
        else if (is(node, "instance"))
            readInstance(node, module, scope);
        else if (is(node, "contassign"))
            scope.assigns.push_back(node);
    }
}

// What a tool made up is not shown, but a tie may come through it.
void VerilatorDesign::readVariable(const pugi::xml_node &var, VerilatorModule &module, VerilatorScope &scope)
{
    const VerilatorType &type = m_types->type(var.attribute("dtype_id").value());
    if (var.attribute("pinIndex"))
        module.pins[var.attribute("pinIndex").as_int()] = var.attribute("name").value();
    if (std::strcmp(var.attribute("vartype").value(), "ifaceref") == 0)
        return readInterfacePort(var, module);
    if (!isNet(var, module))
        return;
    if (!type.isNet)
        return readArray(var, module, scope);
    VerilatorNet net(var, type);
    // A vartype is missing on "const logic" alone; an initial value is no child of the variable.
    net.isTied = var.child("const") || (type.isBasic && !*var.attribute("vartype").value());
    if (!isMadeUp(var))
        show(net, declaration(var, type, module), scope);
    else if (type.width() > NetlistBuilder::maxNets)
        return; // of what is shown, the builder says so
    scope.names.emplace(net.name, int(module.nets.size()));
    net.scope = &scope;
    module.nets.push_back(net);
}

// An instance of an interface has such a variable, too.
void VerilatorDesign::readInterfacePort(const pugi::xml_node &var, VerilatorModule &module) const
{
    const std::string_view name = var.attribute("name").value();
    const std::string_view ofInstance = interfaceReference;
    if (name.size() > ofInstance.size() && name.substr(name.size() - ofInstance.size()) == ofInstance)
        return;
    module.interfacePorts.push_back(name);
    const VerilatorArray array = m_types->array(var.attribute("dtype_id").value());
    if (array.dimensions.size() == 1)
        module.interfaceArrays.emplace(name, array.dimensions.front());
}

// An unpacked array is a memory unless it is small or a port; then each element is a net of its own.
void VerilatorDesign::readArray(const pugi::xml_node &var, VerilatorModule &module, VerilatorScope &scope)
{
    const qint64 mostElements = 32;
    const VerilatorArray array = m_types->array(var.attribute("dtype_id").value());
    const qint64 count = array.count();
    const VerilogMaker *maker = fileOf(var).maker;
    if (array.dimensions.empty() || !array.element.isNet || (maker && maker->addsArrays) ||
        (!var.attribute("dir") && count > mostElements))
        return;
    VerilatorNet net(var, array.element);
    NetDecl decl = declaration(var, array.element, module);
    if (count * array.element.width() > NetlistBuilder::maxNets) { // the builder says so
        decl.isBus = true;
        decl.left = std::numeric_limits<int>::max();
        return show(net, decl, scope);
    }
    scope.arrays[net.name] = {int(module.nets.size()), int(count), array.dimensions};
    net.scope = &scope;
    const QString name = decl.name;
    for (qint64 i = 0; i < count; ++i) {
        decl.name = name + array.index(i);
        show(net, decl, scope);
        module.nets.push_back(net);
    }
}

void VerilatorDesign::show(VerilatorNet &net, const NetDecl &decl, VerilatorScope &scope)
{
    net.position = scope.decl.nets.size();
    net.left = decl.left;
    net.right = decl.right;
    scope.decl.nets.append(decl);
}

// GHDL counts all ranges down to 0. Where no waveform has the declared one, the type in the source may.
void VerilatorDesign::takeWrittenRange(NetDecl &decl)
{
    const QRegExp written(QLatin1String(".*\\((\\d+) (?:downto|to) (\\d+)\\)"));
    if (!written.exactMatch(decl.info.type))
        return;
    const int left = written.cap(1).toInt(), right = written.cap(2).toInt();
    if (qAbs(left - right) != qAbs(decl.left - decl.right))
        return;
    decl.left = left;
    decl.right = right;
}

NetDecl VerilatorDesign::declaration(const pugi::xml_node &var, const VerilatorType &type,
                                     const VerilatorModule &module)
{
    NetDecl decl;
    decl.name = nameOf(var);
    decl.isBus = type.isVector;
    decl.left = type.left;
    decl.right = type.right;
    const File &file = fileOf(var);
    if (file.maker) {
        if (const VhdlPlaces *places = vhdlPlaces(module)) {
            decl.info = places->place(decl.name);
            decl.info.type = knownType(decl.info.type);
            decl.name = places->spelled(decl.name);
        }
        if (decl.isBus && !m_options.vhdlScopes.contains(module.name.toLower()))
            takeWrittenRange(decl);
        return decl;
    }
    decl.info.file = file.name;
    decl.info.line = Location(var).line;
    const QString words = m_types->declaredText(var, type);
    decl.info.type = *m_typeTexts.insert(words, m_typeTexts.value(words, words));
    decl.info.enumLabels = m_types->enumLabels(var, module.name);
    decl.info.members = m_types->members(var.attribute("dtype_id").value());
    return decl;
}

// Verilator has names of its own, "unnamedblk1" or "genblk0", for a block without a label that stands in
// no loop or condition. The language calls an unlabelled scope "genblk" and counts from 1.
QString VerilatorDesign::scopeName(const pugi::xml_node &begin) const
{
    const QRegExp own(QLatin1String("unnamedblk\\d+|genblk0"));
    if (!own.exactMatch(nameOf(begin)))
        return nameOf(begin);
    QSet<QString> taken;
    int skipped = 0; // numbers that go to the blocks before this one
    bool isBefore = true;
    for (const pugi::xml_node &sibling : begin.parent().children("begin")) {
        isBefore = isBefore && sibling != begin;
        if (!own.exactMatch(nameOf(sibling)))
            taken.insert(scopeBaseName(nameOf(sibling)));
        else if (isBefore)
            ++skipped;
    }
    for (int number = 1;; ++number) {
        const QString name = QLatin1String("genblk") + QString::number(number);
        if (!taken.contains(name) && skipped-- == 0)
            return name;
    }
}

// A loop leaves an empty <begin name="g"> beside its iterations, and an "else if" one without a name
// around the scope that counts.
void VerilatorDesign::readGenerate(const pugi::xml_node &begin, VerilatorModule &module,
                                   VerilatorScope &scope)
{
    if (!begin.attribute("name")) {
        readBody(begin, module, scope);
        return;
    }
    VerilatorChild child;
    child.name = scopeName(begin);
    const size_t position = module.generates.size();
    module.generates.emplace_back(new VerilatorScope);
    VerilatorScope *inner = module.generates.back().get();
    inner->outer = &scope;
    inner->path = scope.path + verilatorPathPart(begin.attribute("name").value()) + '.';
    inner->decl.name = scopeBaseName(child.name);
    inner->decl.isScope = true;
    readBody(begin, module, *inner);
    if (inner->decl.nets.isEmpty() && inner->children.empty() && module.generates.size() == position + 1) {
        module.generates.pop_back();
        return;
    }
    child.generate = inner;
    scope.children.push_back(child);
}

void VerilatorDesign::readInstance(const pugi::xml_node &instance, VerilatorModule &module,
                                   VerilatorScope &scope)
{
    VerilatorChild child;
    child.name = nameOf(instance);
    if (const VhdlPlaces *places = vhdlPlaces(module))
        child.name = places->spelled(child.name);
    child.node = instance;
    child.isArray = verilatorRange(instance, child.left, child.right);
    scope.children.push_back(child);
}

const VerilatorDesign::File &VerilatorDesign::fileOf(const pugi::xml_node &node) const
{
    static const File unknown;
    const auto file = m_files.find(Location(node).file);
    return file == m_files.end() ? unknown : file->second;
}

QString VerilatorDesign::nameOf(const pugi::xml_node &node) const
{
    const char *name = node.attribute("name").value();
    return isHashedVerilatorName(name) ? writtenName(node) : QString::fromUtf8(name);
}

// The name as it stands in the source, which is the only place that still has a very long one.
QString VerilatorDesign::writtenName(const pugi::xml_node &node) const
{
    const Location location(node);
    QByteArray text, line;
    QString unread;
    QUtil::readRegularFile(fileOf(node).source, 512 * QUtil::MiB, &text, &unread);
    QBuffer source(&text);
    if (source.open(QIODevice::ReadOnly)) {
        for (int i = 0; i < location.line && !source.atEnd(); ++i)
            line = source.readLine();
    }
    QByteArray name = line.left(location.end - 1).mid(location.column - 1);
    if (name.startsWith('\\'))
        name.remove(0, 1);
    return QString::fromUtf8(name.isEmpty() ? QByteArray(node.attribute("name").value()) : name);
}

} // namespace QUARRY

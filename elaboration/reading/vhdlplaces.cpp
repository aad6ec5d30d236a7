#include "elaboration/reading/vhdlplaces.h"

#include "elaboration/reading/vhdldeclarations.h"
#include "elaboration/reading/vhdlscopes.h"
#include "host/regularfile.h"

namespace QUARRY {

// Looks at scopes and packages for the type of one signal. Each may lead to several others.
static const int mostSteps = 300;

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

void VhdlPlaceTable::open(const QList<VhdlSourceFile> &sources, const QMap<QString, QString> &fileNames)
{
    m_sources = sources;
    m_fileNames = &fileNames;
}

bool VhdlPlaceTable::readSome()
{
    if (!m_sources.isEmpty()) {
        const VhdlSourceFile source = m_sources.takeFirst();
        QByteArray text;
        QString reason;
        QUtil::readRegularFile(source.path, 64 * QUtil::MiB, &text, &reason);
        VhdlDeclarations(*this, source.library, m_fileNames->value(source.path, source.path), text).read();
        if (m_sources.isEmpty())
            seeEntities();
        return true;
    }
    const size_t end = qMin(m_typed.size(), m_resolved + 4096);
    for (; m_resolved < end; ++m_resolved) {
        const Typed &typed = m_typed[m_resolved];
        const auto place = typed.places->declarations.find(typed.name);
        int steps = mostSteps;
        if (place != typed.places->declarations.end() && place->line > 0)
            place->enumLabels = labelsOf(typed.type, typed.places, *typed.packages, steps);
    }
    if (m_resolved < m_typed.size())
        return true;
    takePorts();
    return false;
}

VhdlPlaces *VhdlPlaceTable::add(const QString &library)
{
    m_all.emplace_back(new VhdlPlaces);
    m_all.back()->library = library;
    return m_all.back().get();
}

template <typename Function>
void VhdlPlaceTable::forEachArchitecture(const Function &function)
{
    for (auto &libraries : m_units) {
        for (auto &unit : libraries.second) {
            for (auto &architecture : unit.second.architectures) {
                if (unit.second.entity)
                    function(*architecture.second, *unit.second.entity);
            }
        }
    }
}

// The files may have come in any order.
void VhdlPlaceTable::seeEntities()
{
    forEachArchitecture([](VhdlPlaces &places, const VhdlPlaces &entity) { places.outer = &entity; });
}

void VhdlPlaceTable::takePorts()
{
    forEachArchitecture([](VhdlPlaces &places, const VhdlPlaces &entity) {
        places.name = entity.name;
        for (auto port = entity.declarations.begin(); port != entity.declarations.end(); ++port) {
            places.declarations.insert(port.key(), port.value());
            places.addSpelling(port.key(), entity.spellings.value(port.key()));
        }
    });
}

// As the scopes see it from the inside out, and then the packages: the named one, or those that are used.
QStringList VhdlPlaceTable::labelsOf(const QString &type, const VhdlPlaces *seen,
                                     const QSet<QString> &packages, int &steps) const
{
    const QString name = type.section(QLatin1Char('.'), -1);
    const QString package = type.section(QLatin1Char('.'), -2, -2);
    for (; seen && package.isEmpty(); seen = seen->outer) {
        if (--steps < 0)
            return QStringList();
        const auto found = seen->types.find(name);
        if (found == seen->types.end())
            continue;
        // "subtype t is package.t"
        const VhdlPlaces *from = found->base == name ? seen->outer : seen;
        return found->base.isEmpty() ? found->labels : labelsOf(found->base, from, packages, steps);
    }
    QList<QStringList> found;
    for (const VhdlPlaces *owner : m_typeOwners.value(name)) {
        if (--steps < 0)
            return QStringList();
        if (package.isEmpty() ? !packages.contains(owner->name) : owner->name != package)
            continue;
        const VhdlType known = owner->types.value(name);
        const QStringList labels =
            known.base.isEmpty() ? known.labels : labelsOf(known.base, owner, packages, steps);
        if (!found.contains(labels))
            found.append(labels);
    }
    return found.size() == 1 ? found.first() : QStringList();
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

const VhdlPlaces *VhdlPlaceTable::of(const QString &library, const QString &entity,
                                     const QString &architecture) const
{
    const auto libraries = m_units.find(entity.toLower());
    if (libraries == m_units.end())
        return nullptr;
    auto unit = libraries->second.find(library);
    if (unit == libraries->second.end() && libraries->second.size() == 1)
        unit = libraries->second.begin();
    if (unit == libraries->second.end())
        return nullptr;
    const auto &architectures = unit->second.architectures;
    const auto found = architectures.find(architecture.isEmpty() ? unit->second.last : architecture);
    return found == architectures.end() ? nullptr : found->second;
}

const VhdlPlaces *VhdlPlaceTable::ofInstance(const VhdlPlaces &owner, const QString &label) const
{
    const VhdlTarget target = owner.instances.value(label);
    return of(target.library.isEmpty() ? owner.library : target.library, target.entity, target.architecture);
}

} // namespace QUARRY

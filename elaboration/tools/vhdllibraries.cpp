#include "elaboration/tools/vhdllibraries.h"

namespace QUARRY {
namespace {

const char defaultLibrary[] = "work";
const int mostLibraries = 100; // of a file: the tool reads it for each

bool isProjects(const QString &library)
{
    static const QSet<QString> others{QLatin1String("work"), QLatin1String("std"), QLatin1String("ieee")};
    return !others.contains(library);
}

class Libraries
{
public:
    explicit Libraries(const QList<VhdlFile> &files) : m_files(files)
    {
        for (int i = 0; i < files.size(); ++i) {
            const VhdlFile &file = files.at(i);
            m_known += file.scan.libraries;
            if (!file.library.isEmpty())
                m_of[i].append(file.library.toLower());
            for (const VhdlUnit &unit : file.scan.units) {
                if (unit.kind == VhdlUnit::Entity || unit.kind == VhdlUnit::Package ||
                    unit.kind == VhdlUnit::Other)
                    addOwner(m_owners[unit.name.toLower()], i);
            }
            m_known += file.library.toLower();
        }
    }

    QHash<QString, QStringList> find()
    {
        for (int user = 0; user < m_files.size(); ++user) {
            for (const QPair<QString, QString> &use : m_files.at(user).scan.uses) {
                if (m_known.contains(use.first) && isProjects(use.first))
                    add(use.second, use.first);
            }
        }
        const QString fallback = onlyLibrary();
        while (followWork(fallback))
            ;
        QHash<QString, QStringList> result;
        for (int i = 0; i < m_files.size(); ++i)
            result.insert(m_files.at(i).path, of(i, fallback));
        return result;
    }

private:
    QStringList of(int file, const QString &fallback) const
    {
        return m_of.value(file, QStringList(fallback));
    }

    static void addOwner(QList<int> &owners, int file)
    {
        if (owners.isEmpty() || owners.last() != file)
            owners.append(file);
    }

    bool add(const QString &unit, const QString &library)
    {
        bool isNew = false;
        for (const int owner : m_owners.value(unit))
            isNew = addFile(owner, library) || isNew;
        return isNew;
    }

    bool addFile(int file, const QString &library)
    {
        const QStringList known = m_of.value(file);
        if (!m_files.at(file).library.isEmpty() || known.size() == mostLibraries || known.contains(library))
            return false;
        m_of[file].append(library);
        return true;
    }

    // The one that any file is in, when there is one.
    QString onlyLibrary() const
    {
        QSet<QString> all;
        for (const QStringList &libraries : m_of)
            all += libraries.toSet();
        return all.size() == 1 ? *all.begin() : QLatin1String(defaultLibrary);
    }

    // What a file calls "work" is its own library; architectures and bodies are where their entity is.
    bool followWork(const QString &fallback)
    {
        bool changed = false;
        for (int user = 0; user < m_files.size(); ++user) {
            const VhdlScan &scan = m_files.at(user).scan;
            for (const QString &library : of(user, fallback)) {
                if (library == fallback)
                    continue;
                for (const QPair<QString, QString> &use : scan.uses) {
                    if (use.first == QLatin1String("work"))
                        changed = add(use.second, library) || changed;
                }
                for (const QString &name : scan.instantiated) {
                    for (const int owner : m_owners.value(name))
                        changed = (!m_of.contains(owner) && addFile(owner, library)) || changed;
                }
            }
            for (const VhdlUnit &unit : scan.units) {
                for (const int owner : m_owners.value(unit.entity)) {
                    for (const QString &library : m_of.value(owner))
                        changed = addFile(user, library) || changed;
                }
            }
        }
        return changed;
    }

    const QList<VhdlFile> &m_files;
    QSet<QString> m_known;               // libraries
    QHash<QString, QList<int>> m_owners; // of units
    QHash<int, QStringList> m_of;        // libraries of files
};

} // namespace

QHash<QString, QStringList> vhdlLibraries(const QList<VhdlFile> &files)
{
    return Libraries(files).find();
}

QList<VhdlBatch> vhdlBatches(const QStringList &files, const QHash<QString, QStringList> &libraries)
{
    QList<VhdlBatch> batches;
    for (const QString &file : files) {
        for (const QString &library : libraries.value(file)) {
            if (batches.isEmpty() || batches.last().library != library)
                batches.append({library, QStringList()});
            batches.last().files.append(file);
        }
    }
    return batches;
}

} // namespace QUARRY

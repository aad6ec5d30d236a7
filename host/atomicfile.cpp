#include "host/atomicfile.h"

#include <algorithm>
#include <cerrno>
#include <memory>
#include <vector>

#include <unistd.h>

#include "host/backupfile.h"
#include "host/fileattributes.h"
#include "host/savetarget.h"
#include "host/temporaryfile.h"

namespace QUtil {
namespace {

// The new file for a target, with all that the old one has but its content; or what speaks against it.
class Replacement
{
public:
    explicit Replacement(const SaveTarget &target) : m_target(target)
    {
        const mode_t mode = target.exists ? 0600 : 0666;
        if (target.exists && target.info.st_nlink > 1)
            losses << SaveFault::tr("it has %1 names (hard links)").arg(target.info.st_nlink);
        else if (m_file.create(target.folder, mode))
            fault = target.exists ? copyAttributes(target, m_file.descriptor(), losses) : SaveFault();
        else if (target.exists && (errno == EACCES || errno == EPERM || errno == EROFS))
            losses << SaveFault::tr("its folder cannot be written to");
        else
            fault = faultOf(QT_TRANSLATE_NOOP("QUtil::Saving", "creating a file in its folder"));
    }

    SaveFault fill(const QByteArray &bytes) { return m_file.fill(bytes); }
    SaveFault take(bool canGoBack) { return m_file.take(m_target.path, canGoBack && m_target.exists); }
    void giveBack()
    {
        if (m_target.exists)
            m_file.giveBack(m_target.path);
        else
            ::unlink(m_target.path.constData());
    }

    QStringList losses;
    SaveFault fault;

private:
    const SaveTarget &m_target;
    TemporaryFile m_file;
};

// A file that is to be written, step by step; each says how it went.
class Save
{
public:
    explicit Save(const NewFile &file) : m_file(file), m_target(file.path) {}

    bool prepare()
    {
        m_fault = m_target.fault;
        if (m_fault)
            return false;
        sweepTemporaryFiles(m_target.folder);
        m_replacement.reset(new Replacement(m_target));
        m_fault = m_replacement->fault;
        const bool isInPlace = !m_fault && !m_replacement->losses.isEmpty();
        if (isInPlace)
            m_replacement.reset();
        else if (!m_fault)
            m_fault = m_replacement->fill(m_file.bytes);
        return !m_fault;
    }

    bool overwrite()
    {
        if (!m_replacement)
            m_fault = writeInPlace(m_target, m_file.bytes);
        return !m_fault;
    }

    bool replace(bool canGoBack)
    {
        if (m_replacement)
            m_fault = m_replacement->take(canGoBack);
        return !m_fault;
    }

    void giveBack()
    {
        if (m_replacement)
            m_replacement->giveBack();
    }

    bool flush()
    {
        if (m_replacement)
            m_fault = flushFolder(m_target.folder);
        if (!m_fault)
            discardBackup(m_file.path); // of an earlier save that did not end
        return !m_fault;
    }

    QString sentence() const { return m_fault ? m_fault.sentence(m_file.path) : QString(); }

private:
    const NewFile m_file;
    const SaveTarget m_target;
    std::unique_ptr<Replacement> m_replacement; // null: it is written in place
    SaveFault m_fault;
};

typedef std::vector<std::unique_ptr<Save>> Saves;

bool replaceAll(const Saves &saves)
{
    for (auto save = saves.begin(); save != saves.end(); ++save) {
        if ((*save)->replace(*save != saves.back()))
            continue;
        while (save != saves.begin())
            (*--save)->giveBack();
        return false;
    }
    return true;
}

bool each(const Saves &saves, bool (Save::*step)())
{
    return std::all_of(saves.begin(), saves.end(),
                       [step](const auto &save) { return (save.get()->*step)(); });
}

} // namespace

bool writeFilesAtomically(const QList<NewFile> &files, QString *errorMessage)
{
    Saves saves;
    for (const NewFile &file : files)
        saves.emplace_back(new Save(file));
    const bool isGood = each(saves, &Save::prepare) && each(saves, &Save::overwrite) && replaceAll(saves) &&
                        each(saves, &Save::flush);
    for (const auto &save : saves) {
        if (errorMessage && !save->sentence().isEmpty())
            *errorMessage = save->sentence();
    }
    return isGood;
}

bool writeFileAtomically(const QString &path, const QByteArray &bytes, QString *errorMessage)
{
    NewFile file;
    file.path = path;
    file.bytes = bytes;
    return writeFilesAtomically(QList<NewFile>() << file, errorMessage);
}

QStringList reasonsToWriteInPlace(const QString &path)
{
    const SaveTarget target(path);
    if (target.fault)
        return QStringList();
    return Replacement(target).losses;
}

} // namespace QUtil

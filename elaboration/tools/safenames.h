#pragma once

#include <QHash>
#include <QString>
#include <QStringList>

namespace QUARRY {

class ScratchDir;

// The tools expand $VAR in file names and trip over blanks, quotes and the like. Files and folders with
// such names are handed over through links in the scratch folder; what a tool says about a link is
// turned back into the name that the user knows. So is the name of a copy that a file is handed over as.
class SafeNames
{
public:
    explicit SafeNames(const ScratchDir &scratch);

    // A name for that file that any tool takes, and whose suffix is `suffix` (".sv"), by which the tools
    // tell the language.
    QString file(const QString &path, const QString &suffix);
    QString folder(const QString &path);
    // From now on the tools get that copy of the file.
    void setCopy(const QString &path, const QString &copy);
    QString real(const QString &handedOver) const;
    // Folders of files that were linked out of them: what they include from there is found only here.
    QStringList includeFolders() const { return m_includeFolders; }

private:
    QString link(const QString &path, const QString &suffix);

    const ScratchDir &m_scratch;
    QHash<QString, QString> m_real;  // link to path
    QHash<QString, QString> m_links; // path and suffix to link
    QHash<QString, QString> m_copies;
    QStringList m_includeFolders;
};

} // namespace QUARRY

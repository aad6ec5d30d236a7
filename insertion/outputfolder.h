#pragma once

#include <QByteArray>
#include <QMap>
#include <QString>
#include <QStringList>

namespace Insertion {

// A member of map.json and its text, by which a folder is known as one that was written here.
constexpr char makerMember[] = "madeBy", makerText[] = "jex insert";

// Where the files of an insertion go. A folder that is there is taken when it is empty, or when we made it
// and it holds nothing but those files; none of `sources` may be in it.
class OutputFolder
{
public:
    OutputFolder(const QString &folder, const QStringList &sources);

    QString fault() const; // why files cannot go into it, a finished sentence; empty when they can

    // All of them, in a new folder that takes the place of the old one in one step; or none, with a sentence.
    // What fault() looks for may have come meanwhile, so it is asked again.
    bool write(const QMap<QString, QByteArray> &files, QString *error) const;

private:
    QString m_name; // as the user gave it
    QString m_path;
    QStringList m_sources;
};

} // namespace Insertion

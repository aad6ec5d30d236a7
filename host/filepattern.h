#pragma once

#include <QString>
#include <QStringList>

namespace Core {

// Files by patterns, as "src/**/*_pkg.vhd": * ? and [sets] stand for parts of a name, ** for folders below
// each other. Hidden files match only what begins with a dot, and links to folders are no way for **.
class FilePattern
{
public:
    // The files, sorted, in `folder` unless the pattern begins with '/'. A pattern without signs is a file,
    // there or not. Once much was looked at by this object, the rest is left out: see gaveUp().
    QStringList files(const QString &folder, const QString &pattern);
    bool gaveUp() const { return m_looked > lookLimit; }

    static bool isPattern(const QString &text);

private:
#ifdef JEX_FUZZ // which has no seconds for one text
    static const int lookLimit = 200;
#else
    static const int lookLimit = 200000;
#endif

    void descend(const QString &folder, const QStringList &parts, int at, QStringList &found);

    int m_looked = 0; // names in folders
};

} // namespace Core

#include "host/sourceoption.h"

namespace Core {
namespace {

enum Form {
    Alone,
    Next,         // "-y lib"
    Joined,       // "-work=lib"
    JoinedOrNext, // "-DX=1", "-D X=1"
    Plus          // "+define+X=1+Y"
};

struct Spelling
{
    const char *word;
    Form form;
    SourceOption::Meaning meaning;
};

const Spelling spellings[] = {
    {"-f", Next, SourceOption::FileList},
    {"-F", Next, SourceOption::OwnFileList},
    {"+incdir+", Plus, SourceOption::IncludePath},
    {"-incdir", Next, SourceOption::IncludePath},
    {"-I", JoinedOrNext, SourceOption::IncludePath},
    {"-y", Next, SourceOption::LibraryPath},
    {"-v", Next, SourceOption::LibraryFile},
    {"+libext+", Plus, SourceOption::LibrarySuffix},
    {"+define+", Plus, SourceOption::Define},
    {"-define", Next, SourceOption::Define},
    {"-D", JoinedOrNext, SourceOption::Define},
    {"-U", JoinedOrNext, SourceOption::Undefine},
    {"-pvalue+", Joined, SourceOption::Parameter},
    {"-G", JoinedOrNext, SourceOption::Parameter},
    {"-work", Next, SourceOption::Library},
    {"--work", Next, SourceOption::Library},
    {"-work=", Joined, SourceOption::Library},
    {"--work=", Joined, SourceOption::Library},
    {"-top", Next, SourceOption::Top},
    {"--top", Next, SourceOption::Top},
    {"-top-module", Next, SourceOption::Top},
    {"--top-module", Next, SourceOption::Top},
    {"-sv", Alone, SourceOption::SystemVerilog},
    {"--sv", Alone, SourceOption::SystemVerilog},
    {"-sverilog", Alone, SourceOption::SystemVerilog},
    {"-timescale", Next, SourceOption::PassedOver},
    {"-l", Next, SourceOption::PassedOver},
    {"-log", Next, SourceOption::PassedOver},
    {"-logfile", Next, SourceOption::PassedOver},
    {"-o", Next, SourceOption::PassedOver},
    {"-L", Next, SourceOption::PassedOver},
    {"-Lf", Next, SourceOption::PassedOver},
    {"-P", Next, SourceOption::PassedOver},
    {"-Mdir", Next, SourceOption::PassedOver},
    {"--Mdir", Next, SourceOption::PassedOver},
    {"-CFLAGS", Next, SourceOption::PassedOver},
    {"-LDFLAGS", Next, SourceOption::PassedOver},
    {"-snapshot", Next, SourceOption::PassedOver},
    {"-suppress", Next, SourceOption::PassedOver},
    {"-modelsimini", Next, SourceOption::PassedOver},
};

} // namespace

bool readSourceOption(const QString &word, SourceOption &option)
{
    for (const Spelling &spelling : spellings) {
        const QString known = QLatin1String(spelling.word);
        const bool isWhole = word == known;
        const bool mayBeJoined =
            spelling.form == Joined || spelling.form == JoinedOrNext || spelling.form == Plus;
        if (!isWhole && (!mayBeJoined || !word.startsWith(known)))
            continue;
        const QString rest = word.mid(known.size());
        option.meaning = spelling.meaning;
        option.takesNext = isWhole && (spelling.form == Next || spelling.form == JoinedOrNext);
        option.values = spelling.form == Plus ? rest.split(QLatin1Char('+'), QString::SkipEmptyParts)
                        : isWhole             ? QStringList()
                                              : QStringList(rest);
        return true;
    }
    return false;
}

} // namespace Core

#include "bench/bench.h"
#include "bench/context.h"
#include "bench/program.h"
#include "bench/widedesign.h"
#include "cli/netlisting.h"
#include "netselect/netsearch.h"

#include <fcntl.h>
#include <unistd.h>

using namespace QUARRY;
using namespace RTLJEX;

namespace {

class SearchRows
{
public:
    // `design` is said in each row.
    SearchRows(Context &context, RtlNetlist *netlist, const QString &design)
        : m_netlist(netlist), m_design(design)
    {
        m_options.searchInModule = true;
        m_options.module = m_netlist->topHierarchy;
        m_options.includeSubentries = true;
        for (const RtlNet *net : m_netlist->topHierarchy->singleNetsIncludeSub())
            m_names += net->fullPathName();
        for (const RtlNetBus *bus : m_netlist->topHierarchy->netbusesIncludeSub())
            m_names += bus->fullBusName();
        m_output = context.dir.filePath(QStringLiteral("output.txt"));
        m_file.setFileName(context.dir.filePath(QStringLiteral("names.txt")));
        if (!m_file.open(QIODevice::WriteOnly) || m_file.write(m_names.join('\n').toLatin1() + '\n') < 0)
            qFatal("Cannot write %s: %s", qPrintable(m_file.fileName()), qPrintable(m_file.errorString()));
        m_file.close();
    }

    void substring(const QString &pattern, Qt::CaseSensitivity sensitivity, double goal)
    {
        m_options.usePatternSyntax = false;
        const bool folds = sensitivity == Qt::CaseInsensitive;
        m_options.pattern = pattern;
        m_options.caseSensitivity = sensitivity;
        const char *const option = folds ? "-ciF" : "-cF";
        const Times times = inTurn(
            9, [this] { search(); }, [&] { grep(option, pattern); });
        report(QLatin1String("Substring") + QLatin1String(folds ? ", any case" : ""), "grep -F", times, goal,
               countedByGrep(option, pattern));
    }

    // What `jex nets` does once the netlist is there: finds the nets and prints them, into a file.
    void listing(const QString &pattern)
    {
        m_options.usePatternSyntax = false;
        m_options.pattern = pattern;
        m_options.caseSensitivity = Qt::CaseSensitive;
        search();
        const Times times = inTurn(
            9, [this] { print(); }, [&] { grep("-F", pattern); });
        report(QStringLiteral("Printing"), "grep -F into a file", times, 1.0, countedByGrep("-cF", pattern));
    }

    void syntax(const QString &pattern, QRegExp::PatternSyntax syntax, double goal)
    {
        m_options.usePatternSyntax = true;
        m_options.patternSyntax = syntax;
        m_options.pattern = pattern;
        m_options.caseSensitivity = Qt::CaseSensitive;
        int counted = 0;
        QRegExp expression(pattern, Qt::CaseSensitive, syntax);
        const auto askAll = [&] {
            counted = 0;
            for (const QString &name : m_names)
                counted += expression.exactMatch(name) ? 1 : 0;
        };
        const Times times = inTurn(
            4, [this] { search(); }, askAll);
        const bool isWildcard = syntax == QRegExp::WildcardUnix;
        report(QLatin1String(isWildcard ? "Wildcard" : "Regular expression"), "QRegExp over stored names",
               times, goal, counted);
    }

private:
    void search()
    {
        m_nets.clear();
        m_buses.clear();
        searchNets(m_netlist, m_options, m_nets, m_buses);
        m_found = m_nets.size() + m_buses.size();
    }

    void print()
    {
        const int descriptor = ::open(qPrintable(m_output), O_WRONLY | O_CREAT | O_TRUNC, 0666);
        {
            Cli::Output out(descriptor);
            Cli::NetListing(Cli::NetListing::Lines, QStringLiteral("/design"), out)
                .printMatches(m_netlist, m_options);
            if (!out.flush())
                qFatal("Cannot write %s", qPrintable(m_output));
        }
        ::close(descriptor);
    }

    void grep(const char *option, const QString &pattern) const
    {
        runProgram(
            {QStringLiteral("grep"), QLatin1String(option), QStringLiteral("--"), pattern, m_file.fileName()},
            m_output);
    }

    int countedByGrep(const char *option, const QString &pattern) const
    {
        grep(option, pattern);
        QFile output(m_output);
        return output.open(QIODevice::ReadOnly) ? output.readAll().trimmed().toInt() : -1;
    }

    void report(const QString &kind, const char *against, const Times &times, double goal, int counted) const
    {
        if (counted != m_found)
            qFatal("%s finds %d names for %s and the search %d", against, counted,
                   qPrintable(m_options.pattern), m_found);
        const QString hits = QString::number(m_found) + QLatin1String(" hits");
        ::print({m_design + kind + " \"" + m_options.pattern + "\", " + hits + " | " + against, times.figure,
                 times.limit, goal, "ms"});
    }

    RtlNetlist *m_netlist;
    QString m_design;
    SearchOptions m_options;
    QStringList m_names;
    QFile m_file;
    QString m_output;
    QList<RtlNet *> m_nets;
    QList<RtlNetBus *> m_buses;
    int m_found = 0;
};

} // namespace

void measureSearch(Context &context)
{
    SearchRows rows(context, context.netlist.get(), QString());
    for (const char *pattern : {"fifo_ready", "u_core_0123/valid", "cluster_07", "not_there"}) {
        rows.substring(pattern, Qt::CaseSensitive, 0.7);
        rows.substring(QString(pattern).toUpper(), Qt::CaseInsensitive, 0.7);
    }
    for (const char *pattern : {"top/", "fifo_ready"})
        rows.listing(pattern);
    for (const char *pattern : {"*ready*", "top/u_cluster_0?/*grant*", "*addr*\\[7:0\\]", "*_0[12]/*flag_*"})
        rows.syntax(pattern, QRegExp::WildcardUnix, 0.02);
    for (const char *pattern : {".*ready_0*[1-5]\\d*", ".*(irq|se.)_\\d+", ".*(irq|sel)_\\d+", ".*[13579]"})
        rows.syntax(pattern, QRegExp::RegExp, 0.3);
    const std::unique_ptr<RtlNetlist> wide = WideDesign().netlist();
    SearchRows wideRows(context, wide.get(), QStringLiteral("Wide: "));
    wideRows.substring(QStringLiteral("cell_01234"), Qt::CaseSensitive, 1.0);
    wideRows.syntax(QStringLiteral("*cell_0?234*irq*"), QRegExp::WildcardUnix, 0.1);
    for (const char *pattern : {".*(irq|sel)_\\d+", ".*(irq|se.)_\\d+", ".*[a-z]+_7", ".*[13579]"})
        wideRows.syntax(pattern, QRegExp::RegExp, 0.3);
}

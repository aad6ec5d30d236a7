#include "bench/bench.h"
#include "bench/context.h"

#include <QCoreApplication>

#include "model/netlist/rtlnetlist.h"
#include "workbench/netmodel.h"

// The filter of the workbench's netlist: from the key to the first page of results, or to the end of the
// search where there is less. And how long it keeps the next key waiting at most.
void measureFilter(Context &context)
{
    const struct
    {
        const char *name;
        const char *pattern;
        bool isSyntax;
        QRegExp::PatternSyntax syntax;
    } filters[] = {{"Substring", "r", false, QRegExp::FixedString},
                   {"Substring", "fifo_ready", false, QRegExp::FixedString},
                   {"Substring", "not_there", false, QRegExp::FixedString},
                   {"Wildcard", "top/u_cluster_0?/*grant*", true, QRegExp::WildcardUnix},
                   {"Wildcard", "*not_there*", true, QRegExp::WildcardUnix},
                   {"Regular expression", ".*(irq|sel)_\\d+", true, QRegExp::RegExp},
                   {"Regular expression", ".*(not|no.)_there\\d*", true, QRegExp::RegExp}};
    for (const auto &filter : filters) {
        Workbench::NetModel model;
        RTLJEX::SearchOptions options;
        options.pattern = QLatin1String(filter.pattern);
        options.caseSensitivity = Qt::CaseInsensitive;
        options.usePatternSyntax = filter.isSyntax;
        options.patternSyntax = filter.syntax;
        double page = 0, slice = 0;
        for (int run = 0; run < 5; ++run) {
            const double start = now();
            model.search(context.netlist->topHierarchy, options);
            double last = now();
            double longest = last - start;
            while (model.isSearching() && model.rowCount() < 500) {
                QCoreApplication::processEvents();
                longest = qMax(longest, now() - last);
                last = now();
            }
            page = run == 0 ? last - start : qMin(page, last - start);
            slice = run == 0 ? longest : qMin(slice, longest);
        }
        const QString work = QString::fromLatin1("Filter of the netlist: %1 \"%2\", %3 shown")
                                 .arg(QLatin1String(filter.name), options.pattern)
                                 .arg(model.rowCount());
        print({work, page, 0, 50, QStringLiteral("ms")});
        print({QStringLiteral("  the next key waits at most"), slice, 0, 50, QStringLiteral("ms")});
    }
}

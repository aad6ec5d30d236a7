#include "insertion/benchreading.h"

#include <QRegularExpression>

#include "elaboration/tools/elaborator.h"
#include "elaboration/tools/sourcetext.h"
#include "host/designmanager.h"
#include "host/regularfile.h"

using namespace QUARRY;

namespace Insertion {

BenchReading::BenchReading(const DesignInput &design, const QStringList &bench, const QString &designTop,
                           const QString &wantedInstance)
    : m_design(design), m_bench(bench), m_designTop(designTop), m_wantedInstance(wantedInstance)
{
}

void BenchReading::start()
{
    read(QString());
}

void BenchReading::end(const QStringList &errors)
{
    m_errors = errors;
    finish();
}

void BenchReading::read(const QString &top)
{
    DesignInput input = m_design;
    input.top = top;
    input.parameters.clear();
    for (const QString &file : m_bench) {
        DesignSource source;
        source.path = file;
        source.type = TE::fileTypeFromName(file);
        input.files << source;
    }
    m_top = top;
    elaborate(input);
}

// Of the files of the bench.
QStringList BenchReading::modules()
{
    static const QRegularExpression module("\\bmodule\\s+([A-Za-z_]\\w*)");
    QStringList names;
    for (const QString &file : m_bench) {
        QByteArray bytes;
        QString reason;
        if (!QUtil::readRegularFile(file, 64 * QUtil::MiB, &bytes, &reason))
            m_errors << tr("%1 cannot be read: %2.").arg(file, reason);
        const QString text = QString::fromUtf8(withoutComments(bytes, VerilogSource));
        for (auto found = module.globalMatch(text); found.hasNext();)
            names << found.next().captured(1);
    }
    names.removeDuplicates();
    return names;
}

void BenchReading::takeElaboration(std::unique_ptr<Elaboration> bench)
{
    const ModuleList &lists = bench->lists;
    if (lists.anyError())
        return end(lists.errors());
    QStringList tops;
    for (const QString &module : modules()) {
        if (lists.topModules.contains(module))
            tops << module;
    }
    if (!m_errors.isEmpty())
        return end(m_errors);
    if (tops.size() != 1)
        return end({tops.isEmpty() ? tr("The test bench has no top module, which nobody instantiates.")
                                   : tr("The test bench has several top modules: %1.").arg(tops.join(", "))});
    if (!bench->usable && m_top == tops.first())
        return end({tr("The test bench cannot be read with %1 as its top module.").arg(m_top)});
    if (!bench->usable)
        return read(tops.first()); // of the design's files some have unused modules
    m_top = tops.first();
    m_instance = findInstance(*bench, m_designTop, m_wantedInstance);
    end(m_instance.fault.isEmpty() ? QStringList() : QStringList(m_instance.fault));
}

} // namespace Insertion

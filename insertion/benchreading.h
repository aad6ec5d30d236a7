#pragma once

#include <QStringList>

#include "elaboration/job.h"
#include "elaboration/tools/designinput.h"
#include "insertion/benchinstance.h"

namespace Insertion {

// Elaborates a test bench with its design, to find the one in the other.
class BenchReading : public QUARRY::Job
{
    Q_OBJECT

public:
    // The top module of the design, and the place that the user named, which may be empty.
    BenchReading(const QUARRY::DesignInput &design, const QStringList &bench, const QString &designTop,
                 const QString &wantedInstance);

    void start() override;

    const QStringList &errors() const { return m_errors; } // sentences; any: all below is empty
    const QString &top() const { return m_top; }           // module of the test bench
    const BenchInstance &instance() const { return m_instance; }

private:
    void takeElaboration(std::unique_ptr<QUARRY::Elaboration> bench) override;
    void read(const QString &top);
    QStringList modules();
    void end(const QStringList &errors);

    const QUARRY::DesignInput m_design;
    const QStringList m_bench;
    const QString m_designTop;
    const QString m_wantedInstance;
    QString m_top;
    BenchInstance m_instance;
    QStringList m_errors;
};

} // namespace Insertion

#pragma once

#include <QObject>
#include <QStringList>

#include <memory>

#include "elaboration/tools/designinput.h"
#include "insertion/benchinstance.h"

namespace QUARRY {
class Elaborator;
}

namespace Insertion {

// Elaborates a test bench with its design, to find the one in the other. Works from the event loop; deleting
// it kills the tools.
class BenchReading : public QObject
{
    Q_OBJECT

public:
    // The top module of the design, and the place that the user named, which may be empty.
    BenchReading(const QUARRY::DesignInput &design, const QStringList &bench, const QString &designTop,
                 const QString &wantedInstance);
    ~BenchReading() override;

    void start();

    bool isFinished() const { return m_isOver; }
    bool isCancelled() const { return m_isCancelled; }
    const QStringList &errors() const { return m_errors; } // sentences; any: all below is empty
    const QString &top() const { return m_top; }           // module of the test bench
    const BenchInstance &instance() const { return m_instance; }

public Q_SLOTS:
    void cancel();

Q_SIGNALS:
    void stageChanged(const QString &text);
    void finished(); // once

private Q_SLOTS:
    void take();

private:
    void read(const QString &top);
    QStringList modules();
    void end(const QStringList &errors);

    const QUARRY::DesignInput m_design;
    const QStringList m_bench;
    const QString m_designTop;
    const QString m_wantedInstance;
    std::unique_ptr<QUARRY::Elaborator> m_elaborator;
    QString m_top;
    BenchInstance m_instance;
    QStringList m_errors;
    bool m_isCancelled = false;
    bool m_isOver = false;
};

} // namespace Insertion

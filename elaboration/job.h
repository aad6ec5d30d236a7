#pragma once

#include <QObject>

#include <memory>

namespace QUARRY {

class Elaborator;
struct DesignInput;
struct Elaboration;

// Work with tools that goes on from the event loop and never blocks it for long: the tools are child
// processes. Any number may run at once. Deleting a job kills its tools; not in a slot of finished(), where
// deleteLater() is right.
class Job : public QObject
{
    Q_OBJECT

public:
    Job();
    ~Job() override;

    virtual void start() = 0;

    bool isFinished() const { return m_isFinished; }
    bool isCancelled() const { return m_isCancelled; } // then it has no result

public Q_SLOTS:
    // Kills the tools. A job that was not finished is then, as cancelled, before this returns.
    void cancel();

Q_SIGNALS:
    void stageChanged(const QString &text); // "Reading 12 source files", for the user
    void finished();                        // once, as the last thing that the job does

protected:
    void elaborate(const DesignInput &input);
    virtual void takeElaboration(std::unique_ptr<Elaboration> design); // what that gave
    virtual void drop(); // all that runs or was made, since the job is cancelled
    void finish();

private Q_SLOTS:
    void endElaborator();

private:
    std::unique_ptr<Elaborator> m_elaborator; // null unless it runs
    bool m_isCancelled = false;
    bool m_isFinished = false;
};

} // namespace QUARRY

#include "cli/design.h"

#include <QSet>

#include "check/designjudgement.h"
#include "cli/waiting.h"
#include "elaboration/elaboration.h"
#include "elaboration/readingjob.h"

namespace Cli {
namespace {

void sayNew(const QStringList &messages, QSet<QString> &said)
{
    for (const QString &message : messages) {
        if (!said.contains(message))
            say(message);
        said << message;
    }
}

bool accept(const RTLJEX::DesignFault &fault)
{
    if (fault.isNull())
        return true;
    say("jex: " + fault.title + (fault.text.isEmpty() ? QString() : ": " + fault.text));
    return false;
}

} // namespace

Design::~Design()
{
    if (Core::ProjectManager::currentProject() == &m_project)
        Core::ProjectManager::setCurrentProject(nullptr);
}

bool Design::open(const CommandLine::DesignOptions &options)
{
    QStringList messages;
    const bool good = CommandLine::fillProject(options, m_project, messages);
    for (const QString &message : m_project.notes() + messages)
        say("jex: " + message);
    Core::ProjectManager::setCurrentProject(&m_project);
    return good;
}

bool Design::elaborate()
{
    const QUARRY::DesignInput input = QUARRY::projectInput();
    QStringList files;
    for (const QUARRY::DesignSource &file : input.files)
        files << file.path;
    if (!accept(RTLJEX::judgeFiles(files)))
        return false;
    QUARRY::ReadingJob job(input, QUARRY::ReadingJob::Netlist);
    runUntilInterrupted(job);
    const QUARRY::ModuleList &modules = job.modules();
    QSet<QString> said;
    sayNew(modules.messages, said);
    const bool isUsable = !job.isCancelled() && accept(RTLJEX::judgeModules(input.top, modules));
    if (!isUsable && input.top.isEmpty() && modules.topModules.size() > 1)
        say("jex: Name one of " + modules.topModules.join(", ") + " with --top.");
    if (isUsable)
        sayNew(job.netlistMessages(), said);
    m_netlist.reset(isUsable ? job.takeNetlist() : nullptr);
    if (job.isCancelled())
        say("jex: Interrupted.");
    return m_netlist && m_netlist->topHierarchy && accept(RTLJEX::judgeNetlist(input.top, m_netlist.get()));
}

} // namespace Cli

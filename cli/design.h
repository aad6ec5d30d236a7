#pragma once

#include <memory>

#include "cli/command.h"
#include "commandline/designoptions.h"
#include "host/project.h"
#include "model/netlist/rtlnetlist.h"

namespace Cli {

// The design that a command works on, as the open project as long as this lives. What goes wrong is said on
// standard error.
class Design
{
public:
    ~Design();

    bool open(const CommandLine::DesignOptions &options);
    // Runs the tools; an interrupt ends them and cleans up. False too when an editor would refuse the design.
    bool elaborate();

    const Core::Project &project() const { return m_project; }
    QUARRY::RtlNetlist *netlist() const { return m_netlist.get(); } // not null once elaborated

private:
    Core::Project m_project;
    std::unique_ptr<QUARRY::RtlNetlist> m_netlist;
};

} // namespace Cli

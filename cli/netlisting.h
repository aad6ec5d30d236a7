#pragma once

#include <QHash>

#include <string>
#include <vector>

#include "cli/output.h"
#include "netselect/netsearch.h"

namespace QUARRY {
class Hierachy;
class RtlModule;
} // namespace QUARRY

namespace Cli {

// Prints nets as lines of name, width, place in the source and, where it holds, "excluded", with tabs
// between, or as JSON. Short names and all that follows them are made once for each module, the path once
// for each instance. The netlist must outlive it.
class NetListing
{
public:
    enum Form { Lines, JsonLines };

    // Sources below `folder` are named relative to it.
    NetListing(Form form, const QString &folder, Output &out);

    // Buses, then single nets, as the editor shows them.
    void print(const QList<QUARRY::RtlNet *> &nets, const QList<QUARRY::RtlNetBus *> &buses);
    void printTree(const RTLJEX::ModuleForWidget &module);

private:
    // What follows the separator behind the path, for each entry of a module.
    struct Tails
    {
        std::string text;
        std::vector<size_t> ends;
    };

    void setIndent(int depth);
    void printEntry(const QUARRY::Hierachy *node, quint32 number, bool excluded);
    void setNode(const QUARRY::Hierachy *node);
    const Tails &tailsOf(const QUARRY::RtlModule &module);
    std::string tail(const QUARRY::RtlModule &module, quint32 number) const;
    std::string quoted(const QString &text) const;
    QString shownFile(const QString &file) const;
    void write(const std::string &text) { m_out.write(text.data(), text.size()); }

    Form m_form;
    QString m_folder; // with a separator at its end
    Output &m_out;
    QHash<const QUARRY::RtlModule *, Tails> m_tails;
    const QUARRY::Hierachy *m_node = nullptr;
    const QUARRY::RtlModule *m_module = nullptr;
    const Tails *m_nodeTails = nullptr;
    std::string m_indent;
    std::string m_head; // all before the short name
    const char *m_separator = "";
};

} // namespace Cli

#pragma once

#include <string>

#include "cli/output.h"
#include "netselect/netsearch.h"

namespace QUARRY {
class Hierachy;
class RtlModule;
} // namespace QUARRY

namespace Cli {

// Prints nets as lines of name, width, place in the source and, where it holds, "excluded", with tabs
// between, or as JSON. The path is made once for each instance, the rest goes straight into the buffer.
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
    void printEntry(const QUARRY::Hierachy &node, quint32 number, bool excluded);
    void setNode(const QUARRY::Hierachy &node);
    void printLine(const QUARRY::RtlModule &module, quint32 number, bool excluded);
    void printJson(const QUARRY::RtlModule &module, quint32 number, bool excluded);
    const std::string &shownFile(const QString &file);
    void write(const std::string &text) { m_out.write(text.data(), text.size()); }

    Form m_form;
    QString m_folder; // with a separator at its end
    Output &m_out;
    const QUARRY::Hierachy *m_node = nullptr;
    QString m_file; // the one that was shown last, and how
    std::string m_shownFile;
    std::string m_indent;
    std::string m_head; // all before the short name
    const char *m_separator = "";
};

} // namespace Cli

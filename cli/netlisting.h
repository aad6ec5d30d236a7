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
// between, or as JSON. The path is made once for each instance and the rest once for each declaration; a net
// then costs two copies into the buffer. The netlist must outlive the listing.
class NetListing
{
public:
    enum Form { Lines, JsonLines };

    // Sources below `folder` are named relative to it.
    NetListing(Form form, const QString &folder, Output &out);

    // What the search finds: all buses, then all single nets, as the editor shows them. False: nothing. Each
    // instance's texts are made as soon as it was searched, while memory is near; its nets wait for the
    // buses.
    bool printMatches(QUARRY::RtlNetlist *netlist, const RTLJEX::SearchOptions &search);
    void printTree(const RTLJEX::ModuleForWidget &module);

private:
    // Where in m_texts the text of an entry stands that all instances of its module share, from the short
    // name to the end of the line.
    struct Place
    {
        size_t begin = 0;
        size_t length = 0; // 0: not made yet
    };
    typedef std::vector<Place> Places; // by the number of the entry

    typedef QList<QUARRY::RtlNet *> Nets;
    typedef QList<QUARRY::RtlNetBus *> Buses;

    struct WaitingNets
    {
        const QUARRY::Hierachy *node;
        int count;
    };

    void add(const Nets &nets, const Buses &buses);
    void close();
    const Place &textOf(quint32 number); // an entry of m_node, as in the next one
    void printEntry(quint32 number, bool excluded);
    void setNode(const QUARRY::Hierachy &node);
    void makeHead();
    void appendLine(const QUARRY::RtlModule &module, quint32 number);
    void appendJson(const QUARRY::RtlModule &module, quint32 number);
    const std::string &shownFile(const QString &file);
    void write(const std::string &text) { m_out.write(text.data(), text.size()); }

    Form m_form;
    QString m_folder; // with a separator at its end
    Output &m_out;
    const QUARRY::Hierachy *m_node = nullptr;
    QHash<const QUARRY::RtlModule *, Places> m_modules;
    Places *m_places = nullptr; // of the module of m_node
    std::string m_texts;
    std::string m_ends[2]; // of a net, and of an excluded one
    QString m_file;        // the one that was shown last, and how
    std::string m_shownFile;
    std::string m_indent;
    std::string m_head;    // all before the short name; empty: not made yet for m_node
    bool m_isOpen = false; // the list of JSON, in m_out
};

} // namespace Cli

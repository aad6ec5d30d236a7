#include "elaboration/reading/netlistreader.h"

#include <QElapsedTimer>

#include "elaboration/reading/netlisttree.h"
#include "elaboration/reading/verilatordesign.h"
#include "model/netlist/rtlnetlist.h"

namespace QUARRY {

struct NetlistReader::Work
{
    explicit Work(const ReadOptions &options) : design(options, builder), tree(design, builder) {}

    NetlistBuilder builder;
    VerilatorDesign design;
    NetlistTree tree;
    enum { File, Places, Modules, Tree } next = File;
};

NetlistReader::NetlistReader(const QString &xmlFile, const ReadOptions &options)
    : m_xmlFile(xmlFile), m_options(options), m_work(new Work(m_options))
{
}

NetlistReader::~NetlistReader() = default;

bool NetlistReader::readSlice()
{
    const qint64 sliceMs = 10;
    QElapsedTimer clock;
    clock.start();
    do {
        if (!readPiece())
            return false;
        if (m_error.isEmpty())
            m_error = m_work->builder.overflow();
        if (!m_error.isEmpty())
            return false;
    } while (clock.elapsed() < sliceMs);
    return true;
}

bool NetlistReader::readPiece()
{
    switch (m_work->next) {
    case Work::File:
        m_work->next = Work::Places;
        return load();
    case Work::Places:
        if (!m_work->design.readPlaces())
            m_work->next = Work::Modules;
        return true;
    case Work::Modules:
        if (!m_work->design.readModules()) {
            VerilatorModule &top = *m_work->design.top();
            m_work->tree.start(top, m_options.top.isEmpty() ? top.name : m_options.top);
            m_work->next = Work::Tree;
        }
        return true;
    case Work::Tree:
        break;
    }
    m_error = m_work->tree.error();
    return m_work->tree.addNode();
}

bool NetlistReader::load()
{
    if (!m_work->design.load(m_xmlFile, m_error))
        return false;
    if (!m_work->design.top())
        m_error = tr("ERROR: The design has no top module. Add the file that "
                     "holds it to the project.");
    return m_error.isEmpty();
}

RtlNetlist *NetlistReader::takeNetlist()
{
    return m_error.isEmpty() ? m_work->builder.take() : nullptr;
}

} // namespace QUARRY

#include "elaboration/reading/netlistreader.h"

#include "elaboration/reading/elaborationprogress.h"
#include "elaboration/reading/netlisttree.h"
#include "elaboration/reading/verilatordesign.h"

#include <QCoreApplication>

namespace QUARRY {

RtlNetlist *netlistFromVerilatorXml(const QString &xmlFile, const ReadOptions &options, QStringList &messages,
                                    ElaborationProgress *progress)
{
    if (progress)
        progress->stage(QCoreApplication::translate("QUARRY", "Building the netlist"));
    NetlistBuilder builder;
    VerilatorDesign design(options, builder);
    QString error;
    if (!design.load(xmlFile, error)) {
        messages += error;
        return nullptr;
    }
    if (progress && progress->cancelled())
        return nullptr;
    VerilatorModule *top = design.top();
    if (!top) {
        messages +=
            QCoreApplication::translate("QUARRY", "ERROR: The design has no top module. Add the file that "
                                                  "holds it to the project.");
        return nullptr;
    }
    NetlistTree tree(design, builder, progress);
    if (!tree.build(*top, options.top.isEmpty() ? top->name : options.top)) {
        if (!tree.error().isEmpty())
            messages += tree.error();
        return nullptr;
    }
    return builder.take();
}

} // namespace QUARRY

#include "workbench/topmodules.h"

#include <QLineEdit>

#include "elaboration/elaboration.h"
#include "elaboration/readingjob.h"
#include "elaboration/tools/sourceorder.h"
#include "host/designmanager.h"

namespace Workbench {

QStringList modulesOfFile(const QString &path, int type)
{
    if (type == TE::VhdlFile)
        return QUARRY::vhdlEntities(path);
    // All of them, since no other file can use one here.
    return TE::isDesignFileType(type) && TE::verilogSuffix(type) ? QUARRY::SourceNeeds({path}).roots()
                                                                 : QStringList();
}

// Listed without the top that is set, under which there would be no other candidate.
TopModuleBox::TopModuleBox(const QString &top, QWidget *parent) : QComboBox(parent)
{
    setEditable(true);
    setInsertPolicy(NoInsert);
    setMaxVisibleItems(20);
    setSizeAdjustPolicy(AdjustToMinimumContentsLengthWithIcon);
    setCurrentText(top);
    lineEdit()->setPlaceholderText(tr("Found from the sources"));
    QUARRY::DesignInput design = QUARRY::projectInput();
    design.top.clear();
    m_job.reset(new QUARRY::ReadingJob(design, QUARRY::ReadingJob::Modules));
    connect(m_job.get(), &QUARRY::ReadingJob::finished, this, &TopModuleBox::fill);
    m_job->start();
}

TopModuleBox::~TopModuleBox()
{
}

void TopModuleBox::fill()
{
    const QString typed = currentText();
    QStringList names = m_job->modules().topModules + m_job->modules().modules;
    names.removeDuplicates();
    addItems(names);
    setCurrentIndex(-1);
    setCurrentText(typed);
}

} // namespace Workbench

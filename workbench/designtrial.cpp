#include "workbench/designtrial.h"

#include <QAction>
#include <QRegularExpression>
#include <QSettings>

#include "elaboration/tools/designinput.h"
#include "host/designnews.h"
#include "host/isnapshot.h"
#include "host/iview.h"
#include "host/viewmanager.h"
#include "workbench/designnetlist.h"

namespace Workbench {
namespace {

const char *const key = "tryDesigns";
const char *const messageSource = "trial";

bool isAnyEditorOpen()
{
    for (Core::IView *view : Core::ViewManager::instance()->views()) {
        if (dynamic_cast<Core::ISnapshot *>(view))
            return true;
    }
    return false;
}

} // namespace

DesignTrial::DesignTrial(DesignNetlist *design, QSettings *settings, QObject *parent)
    : QObject(parent), m_design(design), m_action(new QAction(tr("Tr&y Changed Designs"), this))
{
    m_action->setCheckable(true);
    m_action->setChecked(!settings || settings->value(key, true).toBool());
    m_action->setStatusTip(
        tr("Read a design that has changed in the background, and say whether it can be read"));
    connect(m_action, &QAction::toggled, this, [this, settings](bool on) {
        if (settings)
            settings->setValue(key, on);
        want(on && m_isWanted);
    });
    connect(design, &DesignNetlist::stateChanged, this, &DesignTrial::tell);
    TE::subscribeDesignEvents(this);
}

DesignTrial::~DesignTrial()
{
    TE::unsubscribeDesignEvents(this);
}

void DesignTrial::handleIEvent(const QUtil::IEvent *)
{
    if (m_action->isChecked() && isAnyEditorOpen())
        want(true);
}

void DesignTrial::want(bool wanted)
{
    m_isWanted = wanted;
    m_design->setWanted(this, wanted);
    if (!wanted)
        Q_EMIT status(QString());
}

// What keeps the design from being read, or else what is read without: of two languages one does when the
// other does not.
QString DesignTrial::fault() const
{
    const QStringList messages = m_design->messages();
    if (m_design->state() == DesignNetlist::Unreadable) {
        const auto error = std::find_if(messages.begin(), messages.end(), QUARRY::isError);
        return tr("The design is not readable yet: %1")
            .arg(error != messages.end() ? *error : messages.value(0, tr("it has no sources.")));
    }
    const int warning = messages.indexOf(QRegularExpression("^WARNING: [^\\n]*:\\d+: .*"));
    return warning < 0 ? QString()
                       : tr("WARNING: The design can be read, but: %1").arg(messages.at(warning).mid(9));
}

void DesignTrial::tell()
{
    if (!m_isWanted || m_design->isStale() || m_design->state() == DesignNetlist::Reading)
        return;
    const bool isUnreadable = m_design->state() == DesignNetlist::Unreadable;
    const QString fault = this->fault();
    if (fault != m_told && !fault.isEmpty())
        Q_EMIT message(fault, isUnreadable, messageSource);
    else if (fault != m_told)
        Q_EMIT message(tr("The design can be read again."), false, messageSource);
    m_told = fault;
    Q_EMIT status(isUnreadable ? fault.section('\n', 0, 0) : QString());
    // Until it can be read, each change is another try.
    if (!isUnreadable)
        m_design->setWanted(this, m_isWanted = false);
}

} // namespace Workbench

#pragma once

namespace QUtil {
class IEvent;
class IEventHandler;
} // namespace QUtil

namespace RTLJEX {

// The host events that make a parsed design out of date.
void subscribeDesignEvents(QUtil::IEventHandler *handler);
void unsubscribeDesignEvents(QUtil::IEventHandler *handler);

enum DesignReaction { NoReaction, DesignFilesChanged, TopModuleChanged };

// What an event means for an editor: only enabled design sources, include paths, the language standard and
// the top module matter.
DesignReaction designReaction(const QUtil::IEvent *event);

} // namespace RTLJEX

#pragma once

#include <QString>

namespace QUtil {
class IEvent;
}

namespace RTLJEX {

// What an editor asks its user.
QString designFilesQuestion();
QString topModuleQuestion();

// The question that an event makes it ask; empty when it does not matter.
QString designQuestion(const QUtil::IEvent *event);

} // namespace RTLJEX

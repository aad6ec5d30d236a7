#pragma once

#include <QByteArray>
#include <QString>

namespace Core {

// Why a text is no JSON that has one meaning: what is wrong on which line, or which key stands twice. A
// sentence; empty when it is well.
QString jsonFault(const QByteArray &bytes);

} // namespace Core

#pragma once

class QObject;
class QWidget;

namespace RTLJEX {

// Builds the strip that says that the netlist file has changed, hidden. Its button calls the slot
// onOKBtn() of the receiver, which hides the strip again.
QWidget *createChangedBanner(QObject *receiver, QWidget *parent);

} // namespace RTLJEX

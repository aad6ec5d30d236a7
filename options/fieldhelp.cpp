#include "options/fieldhelp.h"

#include <QCoreApplication>
#include <QWidget>

namespace RTLJEX {

namespace {

const char context[] = "RTLJEX::FieldHelp";

const struct
{
    const char *field;
    const char *text;
} helps[] = {
    {"editSampleClock",
     QT_TRANSLATE_NOOP("RTLJEX::FieldHelp",
                       "The net whose edges take the samples. What is captured has to be stable "
                       "there as for any register with this clock.")},
    {"btnSampleClock", QT_TRANSLATE_NOOP("RTLJEX::FieldHelp", "Searches the design for the clock.")},
    {"radioButtonRising",
     QT_TRANSLATE_NOOP("RTLJEX::FieldHelp", "One sample is taken at each rising edge of the clock.")},
    {"radioButtonFalling",
     QT_TRANSLATE_NOOP("RTLJEX::FieldHelp", "One sample is taken at each falling edge of the clock.")},
    {"comboStorageSize",
     QT_TRANSLATE_NOOP("RTLJEX::FieldHelp", "How many samples the core holds, all windows together.")},
    {"comboWindowNum",
     QT_TRANSLATE_NOOP("RTLJEX::FieldHelp",
                       "How many windows are captured one after the other, each with a trigger of "
                       "its own. The storage is cut into as many parts, or into the next power of "
                       "two.")},
    {"comboImpl",
     QT_TRANSLATE_NOOP(
         "RTLJEX::FieldHelp",
         "What the storage is built from. What the device does not have, or not for a capture of "
         "this size, is not offered.")},
    {"implementation",
     QT_TRANSLATE_NOOP(
         "RTLJEX::FieldHelp",
         "What the storage is built from. What the device does not have, or not for a capture of "
         "this size, is not offered.")},
    {"comboCapAmount", QT_TRANSLATE_NOOP("RTLJEX::FieldHelp", "How many samples a window has.")},
    {"spinBoxTrigPos",
     QT_TRANSLATE_NOOP("RTLJEX::FieldHelp",
                       "How many samples of the window come before the sample that triggers. A "
                       "trigger is passed over until there are that many.")},
    {"chkBoxCaptureInitial",
     QT_TRANSLATE_NOOP("RTLJEX::FieldHelp",
                       "The first window after configuration begins with the first sample, "
                       "without a trigger.")},
    {"chkBoxForceTrigFalling",
     QT_TRANSLATE_NOOP("RTLJEX::FieldHelp",
                       "The line that forces a trigger does so at its falling edge, not at "
                       "its rising one.")},
    {"capIniDataCheckBox",
     QT_TRANSLATE_NOOP("RTLJEX::FieldHelp",
                       "The window begins with the first sample after configuration, too, not "
                       "only when the core is armed.")},
    {"enableInputRegCheckBox",
     QT_TRANSLATE_NOOP("RTLJEX::FieldHelp",
                       "The captured signals go through one register more before they are "
                       "stored, which makes the clock easier to reach.")},
    {"groupBox_3",
     QT_TRANSLATE_NOOP("RTLJEX::FieldHelp",
                       "What the capture needs of what the device has; in red when it does not fit.")},
    {"treeWidgetCapSigs",
     QT_TRANSLATE_NOOP("RTLJEX::FieldHelp",
                       "What each sample holds, the most significant bit at the top. Rows that "
                       "are not captured stay at the end of the list.")},
    {"treeWidgetSignal",
     QT_TRANSLATE_NOOP("RTLJEX::FieldHelp",
                       "What each sample holds, the most significant bit at the top. Rows that "
                       "are not captured stay at the end of the list.")},
};

} // namespace

void explainFields(QWidget *page)
{
    for (const auto &help : helps) {
        if (QWidget *field = page->findChild<QWidget *>(QLatin1String(help.field)))
            field->setWhatsThis(QCoreApplication::translate(context, help.text));
    }
}

} // namespace RTLJEX

#include "host/wizard.h"

namespace Utils {

Wizard::Wizard(QWidget *parent) : QWizard(parent)
{
}

} // namespace Utils

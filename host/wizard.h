#pragma once

#include <QWizard>

namespace Utils {

// Base of the host's wizards.
class Wizard : public QWizard
{
    Q_OBJECT

public:
    explicit Wizard(QWidget *parent = nullptr);
};

} // namespace Utils

#pragma once

#include "host/filewizard.h"

namespace RTLJEX {

// The host's entry for new configuration files: runs the wizard, writes an empty file, replacing one the
// user agreed to, and adds it to the open project, if any.
class JexFileWizardFactory : public Core::IFileWizardFactory
{
public:
    QString id() const override;
    QString displayName() const override;
    QString description() const override;
    void runWizard(QWidget *parent, const QString &path) override;
};

} // namespace RTLJEX

#pragma once

#include <QMap>
#include <QVariant>

#include "host/wizard.h"

namespace RTLJEX {

// Asks for what a new configuration file needs: its mode and its name. Creates nothing. The pages write into
// one map of fields: "jex_config_path" (folder), "jex_mode", "jex_config_file" (full path).
class JexWizard : public Utils::Wizard
{
    Q_OBJECT

public:
    JexWizard(const QString &path, QWidget *parent);

    QString jexConfigFile() const; // empty before the file page was passed
    int jexMode() const;           // JEX::JexMode; 0 before the mode page was passed

    QSize sizeHint() const override;

private:
    QMap<QString, QVariant> m_fields;
    QString m_path;
};

} // namespace RTLJEX

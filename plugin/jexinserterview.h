#pragma once

#include <QString>

#include "host/iview.h"

namespace RTLJEX {

// An editor of one configuration file, whichever its mode. The view manager opens, saves and tracks views
// through this class alone; the host owns them once they are shown.
class JexInserterView : public Core::IView
{
    Q_OBJECT

public:
    explicit JexInserterView(QWidget *parent);
    ~JexInserterView() override;

    virtual QString file() const = 0; // path of the file, as it was given to open()
    // Loads the file and the design. Called once; a view that returns false is good for nothing but
    // deletion. The error text may stay empty when the user has been told already. `extra` has no meaning.
    virtual bool open(const QString &fileName, const QString &extra, QString *errorMessage) = 0;
    virtual bool save() = 0; // checks, then writes; tells the user about every failure
    virtual bool isModified() const = 0;

    QString device; // the device's text as the host gave it with the file

Q_SIGNALS:
    void modificationStatusChanged(bool modified);
};

} // namespace RTLJEX

#pragma once

#include <QComboBox>
#include <QStringList>

#include <memory>

namespace QUARRY {
class ReadingJob;
}

namespace Workbench {

// The modules or entities that a design file declares, by its words, in their order. A type of TE::FileType.
QStringList modulesOfFile(const QString &path, int type);

// The name of a project's top module, to be typed or chosen. The modules of the open project's design come
// into the list while the box is there, the candidates first.
class TopModuleBox : public QComboBox
{
    Q_OBJECT

public:
    explicit TopModuleBox(const QString &top, QWidget *parent = nullptr);
    ~TopModuleBox() override;

private:
    void fill();

    std::unique_ptr<QUARRY::ReadingJob> m_job;
};

} // namespace Workbench

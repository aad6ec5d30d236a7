#pragma once

#include "options/aooptionwidget.h"
#include "views/moderecord.h"

class QAction;

namespace RTLJEX {

class JexStandardInserterView;

namespace private_impl {

struct StandardFile
{
    typedef JexStandardInserterView View;
    typedef JEX::AoCore Core;
    typedef AoOptionWidget Page;
    static void showDesign(Page *page, QUARRY::RtlNetlist *netlist) { page->setNlsdata(netlist); }
};

// The state of one Standard editor. Cores are told by their position in the list; the number that a core
// carries is what the user sees, and differs in a file that numbers them in its own way, until one is
// removed.
class JexStandardInserterViewPrivate : public ModeRecord<StandardFile>
{
    Q_OBJECT

public:
    JexStandardInserterViewPrivate(JexStandardInserterView *view, QWidget *banners);
    ~JexStandardInserterViewPrivate() override;

    void initAoOptionWidget();
    void addOneAo(int index);    // with that number, or a free one when a core of the file has it
    void removeOneAo(int index); // asks first
    void setNlsData(QUARRY::RtlNetlist *fresh) override;
    QWidget *showPage(int core) override;
    bool save();

    QAction *addAction;    // child
    QAction *removeAction; // child

private:
    void showCores() override;
    void insertPage(AoOptionWidget *page, int position) override;
    void removePage(AoOptionWidget *page) override;
    void renumberCores() override;
    bool writeCores(QString *error) override;
    QString errorsText() const override;
    void addPage(JEX::AoCore *core, QWidget *parent);
    bool confirmsRemoval(int index);
    bool hasNumber(int number) const;
    int freeNumber() const;
};

} // namespace private_impl
} // namespace RTLJEX

#pragma once

#include <QDialog>
#include <QStringList>
#include <memory>

namespace RTLJEX {

class Ui_MessageDlg;

// Lists the messages of the design parser. A double click selects the whole line that it hits, so that
// one message can be copied; Ctrl and the wheel zoom, as in every read-only text.
class MessageDlg : public QDialog
{
    Q_OBJECT

public:
    explicit MessageDlg(QWidget *parent);
    ~MessageDlg() override;

    void setDetailMsg(const QStringList &lines);

    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    std::unique_ptr<Ui_MessageDlg> m_ui;
};

} // namespace RTLJEX

#pragma once

#include <QScopedPointer>
#include <QString>
#include <QWidget>

namespace RTLJEX {

namespace Ui {
class ReloadBanner;
}

// A strip above an editor that asks what to do about a file, or a design, that others changed. It only
// asks: whoever connected the answer hides and deletes it.
class ReloadBanner : public QWidget
{
    Q_OBJECT

public:
    enum CheckType {
        Changed = 0, // answered by reload() or cancel()
        Removed = 1  // answered by keepIt() or closeIt()
    };

    ReloadBanner(CheckType type, const QString &fileName, QWidget *parent);
    ~ReloadBanner() override;

    void setText(const QString &text);
    QString text() const;

Q_SIGNALS:
    void reload();
    void cancel();
    void keepIt();
    void closeIt();

private:
    QScopedPointer<Ui::ReloadBanner> m_ui;
};

} // namespace RTLJEX

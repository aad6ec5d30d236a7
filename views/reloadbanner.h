#pragma once

#include <QHash>
#include <QString>
#include <QWidget>

#include <functional>
#include <memory>

namespace RTLJEX {

class Ui_ReloadBanner;

// A strip above an editor that asks what to do about a file, or a design, that others changed. It only
// asks: whoever gets the answer hides it and deletes it later.
class ReloadBanner : public QWidget
{
    Q_OBJECT

public:
    enum CheckType {
        Changed = 0, // has the answers reload() and cancel()
        Removed = 1  // has keepIt() and closeIt()
    };

    ReloadBanner(CheckType type, const QString &fileName, QWidget *parent);
    ~ReloadBanner() override;

    void setText(const QString &text);
    QString text() const;
    // A button below the others, and what a click on it does.
    void addAnswer(const QString &text, const std::function<void()> &answer);

Q_SIGNALS:
    void reload();
    void cancel();
    void keepIt();
    void closeIt();

private Q_SLOTS:
    void giveAnswer();

private:
    std::unique_ptr<Ui_ReloadBanner> m_ui;
    QHash<const QObject *, std::function<void()>> m_answers; // by button
};

} // namespace RTLJEX

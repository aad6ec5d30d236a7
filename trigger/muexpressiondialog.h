#pragma once

#include <QDialog>
#include <QStringList>
#include <memory>

class QPushButton;

namespace RTLJEX {

class Ui_MuExpressionDialog;

// "Expression": composes a trigger expression from buttons, a token each, and lets it go only when it is well
// formed.
class MuExpressionDialog : public QDialog
{
    Q_OBJECT

public:
    explicit MuExpressionDialog(QWidget *parent = nullptr);
    ~MuExpressionDialog() override;

    // Runs the dialog. Empty when it was cancelled or died with its parent. In Static mode there are no units
    // M10 to M15.
    static QString getExpression(QWidget *parent, bool staticMode);

    void setType(bool staticMode);
    QString currentExpression() const;
    bool isOk() const;

public Q_SLOTS:
    void expBtnClicked(const QString &token);
    void backspaceClicked();
    void clearAllClicked();
    void accept() override;

protected:
    // Keys press the buttons: operators, brackets, Backspace, and an M with the digits of a unit.
    void keyPressEvent(QKeyEvent *event) override;

private:
    void mapTokens();
    void showTokens();
    QPushButton *unitButton(const QString &name) const;
    bool takeUnitKey(const QString &key);
    void pressTyped();
    void forgetTyped();

    std::unique_ptr<Ui_MuExpressionDialog> m_ui;
    QStringList m_tokens; // in the order of the clicks
    QString m_typed;      // "M" or "M1", which may go on; empty when nothing is awaited
};

} // namespace RTLJEX

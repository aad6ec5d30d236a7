#pragma once

#include <QDialog>
#include <QList>
#include <memory>

#include "model/jex/core.h"
#include "model/jex/matchvalue.h"

class QLineEdit;
class QTreeWidgetItem;

namespace JEX {

class Ui_MatchUnitDialog;

// Edits which trigger port of its core a match unit compares, for what, and with which value. The unit is not
// owned; it is written only when the user confirms and everything fits together. A unit that is confirmed
// without a port is as in a new core, but for its enabled flag, which this dialog leaves alone always.
class MatchUnitDialog : public QDialog
{
    Q_OBJECT

public:
    // readOnly: shows the unit, and nothing can be changed or confirmed.
    MatchUnitDialog(MatchUnit *unit, bool readOnly, QWidget *parent = nullptr);
    ~MatchUnitDialog() override;

public Q_SLOTS:
    // Refuses what does not fit with a sentence that says why, and stays open.
    void accept() override;

private Q_SLOTS:
    void onPortChange();
    void onFunctionChange();
    void onFormatChange();
    void onTextChange();
    void onCursorMove();
    void onBitClick(QTreeWidgetItem *item, int column);
    void onReset();

private:
    void offerPorts();
    void setReadOnly();
    const TriggerPort *port() const; // as chosen; null: not bound
    MatchUnit edited() const;        // the unit as it would be
    QString fault() const;           // what is wrong with it
    ValueForm chosenForm() const;
    QString bits(const QLineEdit *field) const; // empty when its digits are at fault
    void fillFields(bool all);
    QString toForm(ValueForm form);
    void warn(const QString &fault);
    void showNames();
    int missingDigits(const QLineEdit *field) const;
    int bitOfDigit(int digit) const;

    const std::unique_ptr<Ui_MatchUnitDialog> m_ui;
    MatchUnit *const m_unit;
    int m_width = 0;               // of the chosen port
    QList<TriggerPort *> m_ports;  // in the order of the box
    ValueForm m_form = BinaryForm; // of what the fields hold
};

} // namespace JEX

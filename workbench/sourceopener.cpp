#include "workbench/sourceopener.h"

#include <QInputDialog>
#include <QLineEdit>
#include <QProcess>
#include <QSettings>

#include "host/modal.h"
#include "workbench/sourcecommand.h"
#include "workbench/sourceplace.h"
#include "workbench/sourceview.h"

namespace Workbench {
namespace {

const char *const commandKey = "sourceCommand";

} // namespace

SourceOpener::SourceOpener(QSettings *settings, QWidget *window)
    : QObject(window), m_settings(settings), m_window(window)
{
}

void SourceOpener::open(const SourcePlace &place)
{
    const QString words = m_settings ? m_settings->value(commandKey).toString() : QString();
    if (words.isEmpty())
        return SourceView::open(place);
    const SourceCommand command = sourceCommand(words, place);
    if (!command.fault.isEmpty())
        Q_EMIT message(command.fault + ' ' + tr("Project > Source Command sets it."), true);
    else if (!QProcess::startDetached(command.program, command.arguments))
        Q_EMIT message(tr("Can not start %1 to show %2.").arg(command.program, place.text()), true);
}

void SourceOpener::askCommand()
{
    QUtil::Modal<QInputDialog> dialog(new QInputDialog(m_window));
    dialog->setWindowTitle(tr("Source Command"));
    dialog->setLabelText(
        tr("Command that shows a line of a source, as in \"code -g %f:%l\": %f is the file, %l the "
           "line.\nWhen it is empty, sources are shown in a tab of the workbench:"));
    dialog->setTextValue(m_settings ? m_settings->value(commandKey).toString() : QString());
    if (dialog->exec() != QDialog::Accepted || !m_settings)
        return;
    const QString words = dialog->textValue().trimmed();
    const QString fault = words.isEmpty() ? QString() : sourceCommand(words, {"/file", 1}).fault;
    if (fault.isEmpty())
        m_settings->setValue(commandKey, words);
    else
        QUtil::messageBox(m_window, QMessageBox::Warning, tr("Source Command"),
                          fault + ' ' + tr("Nothing was changed."));
}

} // namespace Workbench

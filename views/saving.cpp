#include "views/saving.h"

#include <QCoreApplication>
#include <QDir>

#include "host/designmanager.h"
#include "host/modal.h"

namespace RTLJEX {
namespace {

struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(RTLJEX::Saving)
};

} // namespace

QString synthesisToolFault()
{
    const QVariant tool = TE::TaskEngine::instance()->designManager()->getOptionValue("Synthesize_tool");
    if (tool.toString() != QLatin1String("Synplify"))
        return QString();
    return Texts::tr(
        "For RTL Design, JEX is only available for TarselSynthesis. Please change Synthesis Tool to "
        "TarselSynthesis in Configurations.");
}

void showErrors(QWidget *editor, const QString &text, const QString &errors)
{
    QUtil::Modal<QMessageBox> box(
        new QMessageBox(QMessageBox::Critical, Texts::tr("Error"), text, QMessageBox::Ok, editor));
    box->setTextFormat(Qt::PlainText);
    box->setDetailedText(errors);
    box->setDefaultButton(QMessageBox::Ok);
    box->setEscapeButton(QMessageBox::Ok);
    box->exec();
}

void showWriteFailure(QWidget *editor, const QString &fileName, const QString &reason)
{
    showErrors(editor, Texts::tr("Can not save to %1").arg(QDir::toNativeSeparators(fileName)), reason);
}

SaveAnswer askSaveChanges(QWidget *editor, const QString &fileName)
{
    const QString text = Texts::tr("Save changes to \"%1\" ?").arg(QDir::toNativeSeparators(fileName));
    const int answer =
        QUtil::messageBox(editor, QMessageBox::Question, Texts::tr("Save"), text,
                          QMessageBox::Ok | QMessageBox::Discard | QMessageBox::Cancel, QMessageBox::Ok);
    if (answer == QMessageBox::Ok)
        return SaveChanges;
    return answer == QMessageBox::Discard ? DiscardChanges : KeepOpen;
}

} // namespace RTLJEX

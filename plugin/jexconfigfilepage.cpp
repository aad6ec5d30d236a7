#include "plugin/jexconfigfilepage.h"

#include <QDir>
#include <QFileInfo>
#include <QRegExpValidator>

#include "host/modal.h"
#include "host/project.h"
#include "ui_jexconfigfilepage.h"

namespace RTLJEX {

namespace {

// Takes out what is not allowed, wherever it comes from. A text that does not match would be taken as it is
// when the one before it did not match either.
class NameValidator : public QRegExpValidator
{
public:
    NameValidator(const QRegExp &allowed, QObject *parent) : QRegExpValidator(allowed, parent) {}

    State validate(QString &input, int &position) const override
    {
        for (int i = input.size() - 1; i >= 0; --i) {
            if (regExp().exactMatch(input.mid(i, 1)))
                continue;
            input.remove(i, 1);
            position -= i < position ? 1 : 0;
        }
        return QRegExpValidator::validate(input, position);
    }
};

} // namespace

JexConfigFilePage::JexConfigFilePage(QMap<QString, QVariant> *fields, QWidget *parent)
    : QWizardPage(parent), m_fields(fields), m_ui(new Ui_JexConfigFilePage)
{
    m_ui->setupUi(this);
    // What no file system takes in a name, and the dot: the extension is fixed.
    const QRegExp allowed("[^~\\.<>/\\\\|\\:\"\\*\\?]*", Qt::CaseSensitive);
    connect(m_ui->fileLineEdit, SIGNAL(textChanged(QString)), this, SIGNAL(completeChanged()));
    m_ui->fileLineEdit->setText(findProperName()); // as it is
    m_ui->fileLineEdit->setValidator(new NameValidator(allowed, this));
    m_ui->fileLineEdit->selectAll();
}

JexConfigFilePage::~JexConfigFilePage()
{
}

QString JexConfigFilePage::findProperName()
{
    const Core::Project *project = Core::ProjectManager::currentProject();
    return project ? project->name() : QString::fromLatin1("fpga_project");
}

bool JexConfigFilePage::isComplete() const
{
    return !m_ui->fileLineEdit->text().isEmpty();
}

bool JexConfigFilePage::validatePage()
{
    const QString path =
        m_fields->value("jex_config_path").toString() + "/" + m_ui->fileLineEdit->text() + ".zub";
    m_fields->insert("jex_config_file", path);
    if (!QFileInfo(path).exists())
        return true;
    const QString text =
        tr("File %1 already exists.\nDo you want to replace it?").arg(QDir::toNativeSeparators(path));
    return QUtil::messageBox(this, QMessageBox::Question, tr("Create File"), text,
                             QMessageBox::Ok | QMessageBox::Cancel, QMessageBox::Cancel) == QMessageBox::Ok;
}

} // namespace RTLJEX

#include "netselect/jexsignalselectdialog.h"

#include <QApplication>
#include <QKeyEvent>
#include <QtDebug>

#include "host/modal.h"
#include "host/rowdelegate.h"
#include "model/netlist/rtlnetlist.h"
#include "netselect/netsearch.h"
#include "netselect/resultrows.h"
#include "netselect/rtlnetlisttreeview.h"
#include "ui_jexsignalselectdialog.h"

namespace RTLJEX {

namespace {

// The wait cursor, and a button that cannot be pressed meanwhile; the focus comes back to it.
class Busy
{
public:
    explicit Busy(QPushButton *button) : m_button(button), m_hadFocus(button->hasFocus())
    {
        QApplication::setOverrideCursor(Qt::WaitCursor);
        m_button->setEnabled(false);
    }

    ~Busy()
    {
        m_button->setEnabled(true);
        if (m_hadFocus)
            m_button->setFocus();
        QApplication::restoreOverrideCursor();
    }

private:
    Busy(const Busy &);
    Busy &operator=(const Busy &);

    QPushButton *m_button;
    bool m_hadFocus;
};

void countMatches(const ModuleForWidget &module, int &nets, int &buses)
{
    nets += module.nets.size();
    buses += module.buses.size();
    for (const ModuleForWidget &child : module.subModules)
        countMatches(child, nets, buses);
}

Ui_JexSignalSelectDialog *makeForm(QDialog *dialog)
{
    Ui_JexSignalSelectDialog *form = new Ui_JexSignalSelectDialog;
    form->setupUi(dialog);
    return form;
}

} // namespace

JexSignalSelectDialog::JexSignalSelectDialog(QUARRY::RtlNetlist *netlist, QWidget *parent)
    : QDialog(parent), m_ui(makeForm(this)), m_netlist(netlist), m_moduleView(new RtlNetlistTreeView(this))
{
    setWindowFlags(windowFlags() & ~Qt::WindowContextHelpButtonHint);
    m_ui->radioButtonNormal->setChecked(true);
    m_ui->checkBoxAdvancedFilter->setChecked(false);
    m_ui->frameAdvanced->hide();
    setUpResultColumns(m_ui->treeWidget);
    QUtil::useRowDelegate(m_ui->treeWidget);
    setUpModuleBox();
    m_ui->treeWidget->setSelectionMode(QAbstractItemView::ExtendedSelection);
    for (QRadioButton *mode : findChildren<QRadioButton *>())
        connect(mode, SIGNAL(toggled(bool)), SLOT(updateNameTip()));
    connect(m_ui->lineEditName, SIGNAL(textChanged(QString)), SLOT(updateNameTip()));
    updateNameTip();
    // Return searches also while one of these has the focus.
    for (QAbstractButton *button : m_ui->buttonBox->buttons())
        static_cast<QPushButton *>(button)->setAutoDefault(false);
    m_ui->lineEditName->setFocus();
    resize(QSize(40, 32) * fontMetrics().height());
}

JexSignalSelectDialog::~JexSignalSelectDialog() = default;

void JexSignalSelectDialog::setUpModuleBox()
{
    m_moduleView->setNetlistData(m_netlist);
    m_moduleView->setItemsExpandable(false);
    m_moduleView->expandAll();
    m_ui->comboBoxSearchIn->setModel(m_moduleView->model()); // before the view, which it would replace
    m_ui->comboBoxSearchIn->setView(m_moduleView);
    m_ui->comboBoxSearchIn->installEventFilter(this);
    m_moduleView->installEventFilter(this);
    connect(m_ui->comboBoxSearchIn, SIGNAL(activated(int)), SLOT(keepModule()));
}

void JexSignalSelectDialog::keepModule()
{
    m_module = m_moduleView->currentIndex();
}

void JexSignalSelectDialog::restoreModule()
{
    if (!m_isLeft)
        return;
    m_isLeft = false;
    m_moduleView->setCurrentIndex(m_module);
}

// By wheel and arrow keys the closed box would step through the top level alone and then show another module
// than the tree has current. It opens its tree instead.
bool JexSignalSelectDialog::eventFilter(QObject *object, QEvent *event)
{
    // What was chosen is told after the drop-down has gone.
    if (object == m_moduleView && event->type() == QEvent::Show)
        keepModule();
    else if (object == m_moduleView && event->type() == QEvent::Hide)
        m_isLeft = QMetaObject::invokeMethod(this, "restoreModule", Qt::QueuedConnection);
    if (object == m_ui->comboBoxSearchIn) {
        if (event->type() == QEvent::Wheel)
            return true;
        if (event->type() == QEvent::KeyPress) {
            const int key = static_cast<QKeyEvent *>(event)->key();
            if (key == Qt::Key_Up || key == Qt::Key_Down || key == Qt::Key_Space || key == Qt::Key_F4)
                m_ui->comboBoxSearchIn->showPopup();
            else if (key == Qt::Key_Return)
                search();
            return key != Qt::Key_Tab && key != Qt::Key_Backtab;
        }
    }
    return QDialog::eventFilter(object, event);
}

QList<JEX::SignalItem> JexSignalSelectDialog::getNetName(QUARRY::RtlNetlist *netlist, QWidget *parent)
{
    const QUtil::Modal<JexSignalSelectDialog> dialog(new JexSignalSelectDialog(netlist, parent));
    if (dialog->exec() != Accepted || !dialog.data())
        return QList<JEX::SignalItem>();
    return dialog->getSelectedNets();
}

QString JexSignalSelectDialog::getOneNetName(QUARRY::RtlNetlist *netlist, QWidget *parent)
{
    const QUtil::Modal<JexSignalSelectDialog> dialog(new JexSignalSelectDialog(netlist, parent));
    if (dialog->exec() != Accepted || !dialog.data())
        return QString();
    return dialog->getOneSelectedNetName();
}

QList<JEX::SignalItem> JexSignalSelectDialog::getSelectedNets() const
{
    return selectedSignals(m_ui->treeWidget);
}

QString JexSignalSelectDialog::getOneSelectedNetName() const
{
    const JEX::SignalItem first = getSelectedNets().value(0);
    if (first.isSingle())
        return first.name;
    for (const JEX::SignalItem &bit : first.members) {
        if (bit.valid)
            return bit.name;
    }
    return QString();
}

// Whoever rejects the dialog may be about to free the netlist.
void JexSignalSelectDialog::done(int result)
{
    if (result != Accepted) {
        m_netlist = nullptr;
        m_ui->treeWidget->clear();
        m_moduleView->setNetlistData(nullptr);
    }
    QDialog::done(result);
}

void JexSignalSelectDialog::keyPressEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_Return && m_ui->pushButtonSearch->isEnabled())
        search();
    event->accept();
}

void JexSignalSelectDialog::on_checkBoxAdvancedFilter_toggled(bool on)
{
    m_ui->frameAdvanced->setVisible(on);
}

void JexSignalSelectDialog::on_pushButtonSearch_clicked()
{
    search();
}

void JexSignalSelectDialog::search()
{
    const Busy busy(m_ui->pushButtonSearch);
    restoreModule();
    m_ui->treeWidget->clear();
    m_ui->labelFound->clear();
    const SearchOptions options = searchOptions();
    if (!options.module)
        return;
    int netCount = 0;
    int busCount = 0;
    if (m_ui->checkBoxAdvancedFilter->isChecked() && m_ui->checkBoxHierarchyView->isChecked()) {
        qDebug() << "checked Hierarchy View";
        const ModuleForWidget result = searchNetsHierarchy(options);
        countMatches(result, netCount, busCount);
        showModuleResult(m_ui->treeWidget, result);
    } else {
        QList<QUARRY::RtlNet *> nets;
        QList<QUARRY::RtlNetBus *> buses;
        searchNets(m_netlist, options, nets, buses);
        netCount = nets.size();
        busCount = buses.size();
        showFlatResult(m_ui->treeWidget, nets, buses);
    }
    m_ui->labelFound->setText(tr("Buses: %1, single nets: %2").arg(busCount).arg(netCount));
}

// The search says nothing about a pattern with which it cannot find anything.
void JexSignalSelectDialog::updateNameTip()
{
    QString tip;
    for (const QRadioButton *mode : findChildren<QRadioButton *>()) {
        if (mode->isChecked())
            tip = mode->toolTip();
    }
    const QRegExp pattern = expression();
    if (!m_ui->radioButtonNormal->isChecked() && !pattern.isValid())
        tip = tr("not a valid expression: %1").arg(pattern.errorString());
    m_ui->lineEditName->setToolTip(tip);
}

QRegExp JexSignalSelectDialog::expression() const
{
    const SearchOptions options = searchOptions();
    return QRegExp(options.pattern, options.caseSensitivity, options.patternSyntax);
}

// Without the advanced filter the whole design is searched, whatever its hidden panel says.
SearchOptions JexSignalSelectDialog::searchOptions() const
{
    const bool advanced = m_ui->checkBoxAdvancedFilter->isChecked();
    SearchOptions options;
    options.pattern = m_ui->lineEditName->text();
    options.caseSensitivity =
        m_ui->checkBoxCaseSensitive->isChecked() ? Qt::CaseSensitive : Qt::CaseInsensitive;
    options.usePatternSyntax = !m_ui->radioButtonNormal->isChecked();
    options.patternSyntax = m_ui->radioButtonWildcard->isChecked() ? QRegExp::WildcardUnix : QRegExp::RegExp;
    options.searchInModule = true;
    options.module = chosenModule();
    options.includeSubentries = !advanced || m_ui->checkBoxIncludeSubentries->isChecked();
    return options;
}

QUARRY::Hierachy *JexSignalSelectDialog::chosenModule() const
{
    if (!m_netlist)
        return nullptr;
    const RtlTreeItem *item = dynamic_cast<const RtlTreeItem *>(m_moduleView->currentItem());
    if (!item || !m_ui->checkBoxAdvancedFilter->isChecked())
        return m_netlist->topHierarchy;
    return static_cast<QUARRY::Hierachy *>(item->netlistObject);
}

} // namespace RTLJEX

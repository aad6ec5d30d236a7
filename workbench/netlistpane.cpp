#include "workbench/netlistpane.h"

#include <QComboBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QLocale>
#include <QMimeData>
#include <QSettings>
#include <QSplitter>
#include <QToolButton>
#include <QTreeView>

#include "check/netplace.h"
#include "model/netlist/rtlnetlist.h"
#include "workbench/designnetlist.h"
#include "workbench/editsource.h"
#include "workbench/instancemodel.h"
#include "workbench/netmodel.h"

namespace Workbench {
namespace {

const char *const patternsKey = "netPatterns";
const int patternCount = 15;

enum Syntax { Substring, Wildcard, RegularExpression };

void setUpView(QTreeView *view, const QString &name)
{
    view->setAccessibleName(name);
    view->setUniformRowHeights(true);
    view->setTextElideMode(Qt::ElideMiddle);
}

} // namespace

NetlistPane::NetlistPane(DesignNetlist *design, QSettings *settings, QWidget *parent)
    : QWidget(parent),
      m_design(design),
      m_settings(settings),
      m_instances(new InstanceModel(this)),
      m_nets(new NetModel(this)),
      m_pattern(new QComboBox),
      m_syntax(new QComboBox),
      m_case(new QToolButton),
      m_tree(new QTreeView),
      m_list(new QTreeView),
      m_status(new QLabel)
{
    setProperty("helpTopic", "netlist");
    createFilter();
    createLists();
    auto *filter = new QHBoxLayout;
    filter->addWidget(m_syntax, 1);
    filter->addWidget(m_case);
    auto *splitter = new QSplitter(Qt::Vertical);
    splitter->addWidget(m_tree);
    splitter->addWidget(m_list);
    splitter->setStretchFactor(1, 2);
    splitter->setChildrenCollapsible(false);
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(2, 2, 2, 2);
    layout->addWidget(m_pattern);
    layout->addLayout(filter);
    layout->addWidget(splitter, 1);
    layout->addWidget(m_status);
    m_status->setTextFormat(Qt::PlainText);
    m_status->setWordWrap(true);
    connect(m_design, &DesignNetlist::netlistAboutToGo, this, &NetlistPane::letGo);
    connect(m_design, &DesignNetlist::stateChanged, this, &NetlistPane::showDesign);
    connect(m_nets, &NetModel::searched, this, &NetlistPane::updateStatus);
    updateStatus();
}

NetlistPane::~NetlistPane() = default;

void NetlistPane::createFilter()
{
    m_pattern->setEditable(true);
    m_pattern->setInsertPolicy(QComboBox::NoInsert);
    m_pattern->setAccessibleName(tr("Filter of nets"));
    m_pattern->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    m_pattern->lineEdit()->setPlaceholderText(tr("Filter: part of a full name"));
    m_pattern->setToolTip(m_pattern->lineEdit()->placeholderText()); // which the pane may have no room for
    m_pattern->lineEdit()->setClearButtonEnabled(true);
    m_pattern->setCompleter(nullptr); // it would change what is searched for while the user types
    if (m_settings)
        m_pattern->addItems(m_settings->value(patternsKey).toStringList().mid(0, patternCount));
    m_pattern->setCurrentIndex(-1);
    m_pattern->installEventFilter(this); // which has the focus in place of its line edit
    m_syntax->addItems({tr("Substring"), tr("Wildcard"), tr("Regular Expression")});
    m_syntax->setAccessibleName(tr("What the filter is"));
    m_syntax->setToolTip(
        tr("A wildcard and a regular expression have to match the whole full name: \"*/state[[]*\", "
           "\".*/(irq|ack)\"."));
    m_case->setText("Aa");
    m_case->setCheckable(true);
    m_case->setToolTip(tr("Case Sensitive"));
    m_case->setAccessibleName(tr("Case Sensitive"));
    connect(m_pattern, &QComboBox::editTextChanged, this, &NetlistPane::search);
    connect(m_syntax, qOverload<int>(&QComboBox::currentIndexChanged), this, &NetlistPane::search);
    connect(m_case, &QToolButton::toggled, this, &NetlistPane::search);
}

void NetlistPane::createLists()
{
    setUpView(m_tree, tr("Instances"));
    m_tree->setHeaderHidden(true);
    m_tree->setModel(m_instances);
    setUpView(m_list, tr("Nets"));
    m_list->setRootIsDecorated(false);
    m_list->setAllColumnsShowFocus(true);
    m_list->setSelectionMode(QAbstractItemView::ExtendedSelection);
    m_list->setDragEnabled(true);
    m_list->setModel(m_nets);
    m_list->setProperty(editName, tr("Add Signals"));
    m_list->header()->setStretchLastSection(false);
    m_list->header()->setSectionResizeMode(NetModel::NameColumn, QHeaderView::Stretch);
    m_list->header()->setSectionResizeMode(NetModel::WidthColumn, QHeaderView::ResizeToContents);
    m_list->installEventFilter(this);
    connect(m_tree->selectionModel(), &QItemSelectionModel::currentChanged, this, &NetlistPane::search);
    connect(m_list, &QTreeView::doubleClicked, this, &NetlistPane::addRequested);
}

void NetlistPane::setShown(bool isShown)
{
    m_design->setWanted(this, isShown);
}

// Return puts the nets in; Down leads from the filter into the list.
bool NetlistPane::eventFilter(QObject *object, QEvent *event)
{
    if (event->type() != QEvent::KeyPress)
        return QWidget::eventFilter(object, event);
    const int key = static_cast<QKeyEvent *>(event)->key();
    const bool isReturn = key == Qt::Key_Return || key == Qt::Key_Enter;
    if (object == m_list && isReturn) {
        Q_EMIT addRequested();
        return true;
    }
    if (object == m_pattern && (isReturn || key == Qt::Key_Down)) {
        rememberPattern();
        m_list->setFocus();
        // With the focus alone a row is current, not chosen.
        if (!m_list->selectionModel()->hasSelection())
            m_list->setCurrentIndex(m_nets->index(0, 0));
        return true;
    }
    return QWidget::eventFilter(object, event);
}

void NetlistPane::letGo()
{
    if (const QUARRY::Hierachy *node = m_instances->nodeAt(m_tree->currentIndex()))
        m_chosen = node->fullPathName();
    m_nets->clear();
    m_instances->show(nullptr);
}

void NetlistPane::showDesign()
{
    const QUARRY::RtlNetlist *netlist = m_design->netlist();
    if (m_design->state() == DesignNetlist::Ready && netlist && !m_instances->rowCount()) {
        m_instances->show(netlist);
        const QModelIndex top = m_instances->index(0, 0);
        const QModelIndex chosen = m_instances->indexOfPath(m_chosen);
        m_tree->expand(top);
        m_tree->setCurrentIndex(chosen.isValid() ? chosen : top);
    }
    updateStatus();
}

void NetlistPane::search()
{
    const QUARRY::Hierachy *node = m_instances->nodeAt(m_tree->currentIndex());
    RTLJEX::SearchOptions options;
    options.pattern = m_pattern->currentText();
    options.caseSensitivity = m_case->isChecked() ? Qt::CaseSensitive : Qt::CaseInsensitive;
    options.usePatternSyntax = m_syntax->currentIndex() != Substring;
    options.patternSyntax = m_syntax->currentIndex() == Wildcard ? QRegExp::WildcardUnix : QRegExp::RegExp;
    m_nets->search(node, options);
}

void NetlistPane::updateStatus()
{
    const QLocale locale;
    QString text;
    switch (m_design->state()) {
    case DesignNetlist::Nothing:
        text = tr("Open a project to see its nets.");
        break;
    case DesignNetlist::Reading:
        text = tr("Reading the design ...");
        break;
    case DesignNetlist::Unreadable:
        text =
            tr("The design cannot be read: %1").arg(m_design->messages().value(0, tr("it has no sources.")));
        break;
    case DesignNetlist::Ready:
        text = m_nets->isSearching() ? tr("%1 so far ...") : tr("%1 found");
        text = text.arg(locale.toString(m_nets->found()));
        break;
    }
    m_status->setText(text);
}

void NetlistPane::rememberPattern()
{
    const QString pattern = m_pattern->currentText();
    const QSignalBlocker quiet(m_pattern);
    const int known = m_pattern->findText(pattern, Qt::MatchExactly | Qt::MatchCaseSensitive);
    if (pattern.isEmpty() || known == 0)
        return;
    if (known > 0)
        m_pattern->removeItem(known);
    m_pattern->insertItem(0, pattern);
    m_pattern->setCurrentIndex(0);
    while (m_pattern->count() > patternCount)
        m_pattern->removeItem(patternCount);
    QStringList patterns;
    for (int i = 0; i < m_pattern->count(); ++i)
        patterns << m_pattern->itemText(i);
    if (m_settings)
        m_settings->setValue(patternsKey, patterns);
}

QMimeData *NetlistPane::chosenNets() const
{
    const QModelIndexList chosen = m_list->selectionModel()->selectedIndexes();
    return chosen.isEmpty() ? nullptr : m_nets->mimeData(chosen);
}

QString NetlistPane::focusedNet() const
{
    return m_nets->fullName(m_list->currentIndex());
}

Core::NetPlace NetlistPane::placeOf(const QString &net) const
{
    return RTLJEX::netPlace(m_design->netlist(), net);
}

} // namespace Workbench

#include "workbench/helptopics.h"

#include <QFile>
#include <QRegularExpression>
#include <QWidget>

static void initializeResources()
{
    Q_INIT_RESOURCE(guide);
}

namespace Workbench {
namespace {

const char *const noTopic = "index";

// Windows of the workbench. Those of the editor say theirs by the property.
const struct
{
    const char *className;
    const char *topic;
} topics[] = {
    {"Workbench::DeviceDialog", "project"},  {"Workbench::MainWindow", "window"},
    {"Workbench::MessagePane", "messages"},  {"Workbench::NewFileDialog", "new"},
    {"Workbench::NetlistPane", "netlist"},   {"Workbench::OptionsDialog", "project"},
    {"Workbench::ProjectTree", "project"},   {"Workbench::RecoveryDialog", "recovery"},
    {"Workbench::ReopenBanner", "recovery"}, {"Workbench::SimulateDialog", "run"},
};

QString ownTopic(const QWidget *widget)
{
    const QString said = widget->property("helpTopic").toString();
    if (!said.isEmpty())
        return said;
    for (const auto &entry : topics) {
        if (widget->inherits(entry.className))
            return entry.topic;
    }
    return QString();
}

} // namespace

QString helpTopic(const QWidget *widget)
{
    for (; widget; widget = widget->parentWidget()) {
        const QString topic = ownTopic(widget);
        if (!topic.isEmpty())
            return topic;
    }
    return noTopic;
}

QStringList helpTopics()
{
    QStringList all = {noTopic};
    for (const auto &entry : topics)
        all << entry.topic;
    all.removeDuplicates();
    return all;
}

QString guidePage(const QString &topic)
{
    initializeResources();
    if (!QRegularExpression("^[a-z-]+$").match(topic).hasMatch())
        return QString();
    QFile file(":/workbench/guide/" + topic + ".md");
    if (!file.open(QIODevice::ReadOnly))
        return QString();
    static const QRegularExpression picture("^ *!\\[[^]]*\\]\\([^)]*\\)\\n",
                                            QRegularExpression::MultilineOption);
    return QString::fromUtf8(file.readAll()).remove(picture);
}

QString headingAnchor(const QString &heading)
{
    static const QRegularExpression dropped("[^\\w\\- ]", QRegularExpression::UseUnicodePropertiesOption);
    return heading.toLower().remove(dropped).replace(' ', '-');
}

} // namespace Workbench

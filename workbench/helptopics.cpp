#include "workbench/helptopics.h"

#include <QFile>
#include <QRegularExpression>
#include <QWidget>

static void initializeResources()
{
    Q_INIT_RESOURCE(guide);
}

namespace Workbench {

QString helpTopic(const QWidget *widget)
{
    for (; widget; widget = widget->parentWidget()) {
        const QString topic = widget->property("helpTopic").toString();
        if (!topic.isEmpty())
            return topic;
    }
    return "index";
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

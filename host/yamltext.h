#pragma once

#include <QByteArray>
#include <QList>
#include <QPair>
#include <QString>
#include <QStringList>

namespace Core {

// What a YAML text holds. Scalars are texts, whatever they look like.
struct YamlNode
{
    // Which of the members below count.
    enum Kind { Nothing, Scalar, List, Map };
    Kind kind = Nothing;
    QString text;
    QList<YamlNode> items; // of a list; of a map the values
    QStringList keys;      // of a map, in the order of the items
    int line = 0;          // where it begins

    // The value under a key; a node of no kind without one.
    YamlNode value(const QString &key) const
    {
        const int index = keys.indexOf(key);
        return index < 0 ? YamlNode() : items.at(index);
    }
};

// One document, without aliases, bounded in depth. False, with a sentence that has the line, for everything
// else.
bool readYaml(const QByteArray &bytes, YamlNode &root, QString &fault);

} // namespace Core

#include "host/yamltext.h"

#include <QSet>

#include <yaml.h>

namespace Core {
namespace {

const int depthLimit = 16;

class YamlReader
{
public:
    QString fault;

    explicit YamlReader(const QByteArray &bytes)
    {
        m_isGood = yaml_parser_initialize(&m_parser) != 0;
        if (!m_isGood)
            fault = QLatin1String("there is no memory to read it.");
        else
            yaml_parser_set_input_string(
                &m_parser, reinterpret_cast<const unsigned char *>(bytes.constData()), size_t(bytes.size()));
    }

    ~YamlReader()
    {
        if (m_isGood)
            yaml_parser_delete(&m_parser);
    }

    bool read(YamlNode &root)
    {
        for (;;) {
            Event event;
            if (!next(event))
                return false;
            if (event.type() == YAML_STREAM_END_EVENT)
                return true;
            const bool isFrame = event.type() == YAML_STREAM_START_EVENT ||
                                 event.type() == YAML_DOCUMENT_START_EVENT ||
                                 event.type() == YAML_DOCUMENT_END_EVENT;
            if (!isFrame && root.kind != YamlNode::Nothing)
                return fail(event.line(), QLatin1String("there is more than one document"));
            if (!isFrame && !readNode(event, 0, root))
                return false;
        }
    }

private:
    Q_DISABLE_COPY(YamlReader)

    // Freed when it goes.
    class Event
    {
    public:
        Event() { m_event.type = YAML_NO_EVENT; }
        ~Event() { yaml_event_delete(&m_event); }
        yaml_event_type_t type() const { return m_event.type; }
        int line() const { return int(m_event.start_mark.line) + 1; }
        yaml_event_t *get() { return &m_event; }
        QString text() const
        {
            const char *value = reinterpret_cast<const char *>(m_event.data.scalar.value);
            return QString::fromUtf8(value, int(m_event.data.scalar.length));
        }

    private:
        Q_DISABLE_COPY(Event)
        yaml_event_t m_event;
    };

    bool fail(int line, const QString &reason)
    {
        fault = QString::fromLatin1("line %1: %2.").arg(QString::number(line), reason);
        return false;
    }

    bool next(Event &event)
    {
        if (!m_isGood)
            return false;
        if (yaml_parser_parse(&m_parser, event.get()))
            return true;
        const char *problem = m_parser.problem ? m_parser.problem : "it can not be read";
        return fail(int(m_parser.problem_mark.line) + 1, QString::fromUtf8(problem));
    }

    bool readNode(Event &event, int depth, YamlNode &node)
    {
        node.line = event.line();
        if (depth == depthLimit)
            return fail(node.line, QString::fromLatin1("it is nested more than %1 deep").arg(depthLimit));
        switch (event.type()) {
        case YAML_SCALAR_EVENT:
            node.kind = YamlNode::Scalar;
            node.text = event.text();
            // The system takes the first NUL of a name for its end.
            return !node.text.contains(QChar(0)) ||
                   fail(node.line, QLatin1String("it holds a NUL character"));
        case YAML_SEQUENCE_START_EVENT:
            node.kind = YamlNode::List;
            return readItems(YAML_SEQUENCE_END_EVENT, depth, node);
        case YAML_MAPPING_START_EVENT:
            node.kind = YamlNode::Map;
            return readItems(YAML_MAPPING_END_EVENT, depth, node);
        default:
            // A few bytes of aliases would stand for any amount of text.
            return fail(node.line, QLatin1String("aliases are not read here"));
        }
    }

    bool readItems(yaml_event_type_t end, int depth, YamlNode &node)
    {
        QSet<QString> keys;
        for (;;) {
            Event event;
            if (!next(event))
                return false;
            if (event.type() == end)
                return true;
            if (node.kind == YamlNode::Map) {
                YamlNode key;
                if (!readNode(event, depth + 1, key))
                    return false;
                if (key.kind != YamlNode::Scalar)
                    return fail(key.line, QLatin1String("a key must be a text"));
                if (keys.contains(key.text))
                    return fail(key.line, QString::fromLatin1("\"%1\" stands twice").arg(key.text));
                keys.insert(key.text);
                node.keys.append(key.text);
            }
            Event value;
            if (node.kind == YamlNode::Map && !next(value))
                return false;
            node.items.append(YamlNode());
            if (!readNode(node.kind == YamlNode::Map ? value : event, depth + 1, node.items.last()))
                return false;
        }
    }

    yaml_parser_t m_parser;
    bool m_isGood;
};

} // namespace

bool readYaml(const QByteArray &bytes, YamlNode &root, QString &fault)
{
    YamlReader reader(bytes);
    YamlNode read;
    if (!reader.read(read)) {
        fault = reader.fault;
        return false;
    }
    root = read;
    return true;
}

} // namespace Core

#include "model/jex/zubtokens.h"

namespace JEX {

ZubTokens::ZubTokens(const QByteArray &bytes, const QString &path) : m_xml(bytes), m_path(path)
{
    m_xml.setNamespaceProcessing(false);
}

QString ZubTokens::quoted(const QString &text)
{
    return latin("\"") + text + latin("\"");
}

bool ZubTokens::nextChild()
{
    while (!m_xml.atEnd()) {
        switch (m_xml.readNext()) {
        case QXmlStreamReader::StartElement:
            return true;
        case QXmlStreamReader::EndElement:
            return false;
        case QXmlStreamReader::DTD:
            return fail(latin("a configuration holds no document type declaration."));
        case QXmlStreamReader::Characters:
            if (!m_xml.isWhitespace()) {
                const QString text = m_xml.text().toString().simplified();
                return fail(latin("there is text between the elements: ") +
                            quoted(text.isEmpty() ? latin("<![CDATA[ ]]>") : text) + latin("."));
            }
            break;
        default:
            break;
        }
    }
    if (m_xml.hasError() && m_error.isEmpty()) {
        const QString reason = m_xml.errorString();
        fail(latin("this is no well-formed XML: ") + reason +
             latin(reason.endsWith(QLatin1Char('.')) ? "" : "."));
    }
    return false;
}

bool ZubTokens::readNoChildren()
{
    return nextChild() ? failUnknownElement() : m_error.isEmpty();
}

bool ZubTokens::readToEnd()
{
    return !nextChild() && m_error.isEmpty();
}

bool ZubTokens::hasOnly(const char *name)
{
    const QXmlStreamAttributes attributes = m_xml.attributes();
    for (const QXmlStreamAttribute &attribute : attributes) {
        if (!name || !isWord(attribute.qualifiedName(), name))
            return failUnknownAttribute(attribute);
    }
    return true;
}

bool ZubTokens::readNumber(const QXmlStreamAttribute &attribute, const Rule &rule, int *value)
{
    return rule.fromText(attribute.value(), value) || failAttribute(attribute, rule.description());
}

bool ZubTokens::readFlag(const QXmlStreamAttribute &attribute, bool *value)
{
    *value = isWord(attribute.value(), "true");
    return *value || isWord(attribute.value(), "false") || failAttribute(attribute, latin("true or false"));
}

bool ZubTokens::readNumberOnce(const Rule &rule, quint32 *seen, int *value)
{
    const QXmlStreamAttributes attributes = m_xml.attributes();
    for (const QXmlStreamAttribute &attribute : attributes) {
        if (!isWord(attribute.qualifiedName(), "number"))
            continue;
        if (!readNumber(attribute, rule, value))
            return false;
        if (*seen & (1u << *value)) {
            return fail(latin("there is a second ") + element() + latin(" with the number ") +
                        QString::number(*value) + latin("."));
        }
        *seen |= 1u << *value;
        return true;
    }
    return failMissing("number");
}

bool ZubTokens::failAttribute(const QXmlStreamAttribute &attribute, const QString &expected)
{
    return fail(quoted(attribute.qualifiedName().toString()) + latin(" of ") + element() + latin(" is ") +
                quoted(attribute.value().toString()) + latin("; it must be ") + expected + latin("."));
}

bool ZubTokens::failUnknownAttribute(const QXmlStreamAttribute &attribute)
{
    return fail(element() + latin(" has an attribute ") + quoted(attribute.qualifiedName().toString()) +
                latin(" that is not known."));
}

bool ZubTokens::failUnknownElement()
{
    return fail(element() + latin(" is not expected here."));
}

bool ZubTokens::failMissing(const char *attribute)
{
    return fail(element() + latin(" has no ") + quoted(latin(attribute)) + latin("."));
}

bool ZubTokens::fail(const QString &text)
{
    m_error = latin("Line ") + QString::number(m_xml.lineNumber()) + latin(" of the file ") + quoted(m_path) +
              latin(": ") + text;
    return false;
}

bool ZubTokens::failFile(const QString &text)
{
    m_error = latin("The file ") + quoted(m_path) + text;
    return false;
}

QString ZubTokens::element() const
{
    return latin("<") + m_xml.qualifiedName().toString() + latin(">");
}

} // namespace JEX

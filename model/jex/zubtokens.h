#pragma once

#include <QByteArray>
#include <QString>
#include <QXmlStreamReader>

#include "model/jex/zubrule.h"

namespace JEX {

// The elements of a strict XML file, one after another, and the sentence about the first fault in it. What
// fails gives false, so that a reader ends with `return fail(...)`.
class ZubTokens
{
public:
    ZubTokens(const QByteArray &bytes, const QString &path); // path: for messages

    QString error() const { return m_error; } // a finished sentence

protected:
    bool nextChild();      // false at the end of the element, and on a fault
    bool readNoChildren(); // of the present element
    bool readToEnd();      // after the outermost element
    bool isElement(const char *name) const { return isWord(m_xml.qualifiedName(), name); }

    bool hasOnly(const char *attribute); // or no attribute, when null
    bool readNumber(const QXmlStreamAttribute &attribute, const Rule &rule, int *value);
    bool readFlag(const QXmlStreamAttribute &attribute, bool *value);
    // The "number" of the present element; bit n of `seen` says that a sister before it has n.
    bool readNumberOnce(const Rule &rule, quint32 *seen, int *value);

    bool failAttribute(const QXmlStreamAttribute &attribute, const QString &expected);
    bool failUnknownAttribute(const QXmlStreamAttribute &attribute);
    bool failUnknownElement();
    bool failMissing(const char *attribute);
    bool fail(const QString &text);     // "Line 7 of the file ...: text"
    bool failFile(const QString &text); // "The file ... text"
    QString element() const;            // "<core>"

    static QString quoted(const QString &text);

    QXmlStreamReader m_xml;
    QString m_error;

private:
    QString m_path;
};

} // namespace JEX

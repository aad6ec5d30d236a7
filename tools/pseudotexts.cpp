#include "tools/pseudotexts.h"

#include <QRegularExpression>

namespace {

// Not the letter of a mnemonic, nor one of a placeholder or a tag.
QString otherLetters(const QString &text)
{
    static const QString plain = "AaEeIiOoUuCcNnSs", other = QString::fromUtf8("ÅåÉéÎîÖöÛûÇçÑñŠš");
    QString changed = text;
    for (int i = 0; i < text.size(); ++i) {
        const int letter = plain.indexOf(text.at(i));
        if (letter >= 0 && (i == 0 || (text.at(i - 1) != '&' && text.at(i - 1) != '%')))
            changed[i] = other.at(letter);
    }
    return changed;
}

} // namespace

QString pseudoText(const QString &text)
{
    static const QRegularExpression letters("[A-Za-z]{2}"), inTags("^<.*>$");
    if (!text.contains(letters) || text.contains(inTags) || text.contains(";;") || text.contains("(*"))
        return text;
    const QString inner = text.trimmed();
    QString longer = otherLetters(inner);
    for (int more = 2; more < inner.size() * 0.4; ++more) // beside the brackets
        longer += more % 8 == 2 ? ' ' : '~';
    const int begin = text.indexOf(inner);
    return text.left(begin) + '[' + longer + ']' + text.mid(begin + inner.size());
}

QString PseudoTexts::translate(const char *context, const char *text, const char *, int) const
{
    const QByteArray whose(context);
    // The toolkit's own names of keys and shortcuts of the platform.
    return whose.startsWith("QShortcut") ? QString() : pseudoText(QString::fromUtf8(text));
}

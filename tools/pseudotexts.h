#pragma once

#include <QTranslator>

// English made 40 % longer and put in brackets, with other letters: "[Ŝáṽē ~~]". What names a net, a file or
// a figure comes in later and stays as it is, so what is not in brackets went past the translation.
class PseudoTexts : public QTranslator
{
public:
    bool isEmpty() const override { return false; }
    QString translate(const char *context, const char *text, const char *disambiguation,
                      int number) const override;
};

QString pseudoText(const QString &text);

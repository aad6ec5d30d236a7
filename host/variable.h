#pragma once

#include <QString>

namespace Core {

// An environment variable in a text: $NAME, ${NAME} or $(NAME).
struct Variable
{
    QString name;
    QString value;
    bool isSet = false;
    int length = 0; // of its form in the text

    QString fault() const; // a sentence, for one that is not set
};

// False where none begins at this position: a dollar sign that no name follows is itself.
bool readVariable(const QString &text, int at, Variable &variable);

// The text with the values in place. False, with a sentence, when one is not set.
bool putVariables(QString &text, QString &fault);

} // namespace Core

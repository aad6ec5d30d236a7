#include "workbench/sourcecommand.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QProcess>
#include <QRegularExpression>
#include <QSet>

#include <algorithm>

#include "workbench/sourceplace.h"

namespace Workbench {
namespace {

struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(Workbench::SourceCommand)
};

// They would take parts of a file name for commands.
bool isShell(const QString &word)
{
    static const QSet<QString> shells = {"sh",  "bash", "dash", "zsh",     "ksh",  "mksh",
                                         "csh", "tcsh", "fish", "busybox", "eval", "xargs"};
    return shells.contains(QFileInfo(word).fileName());
}

// A script for a program that runs such: "vim -c 'edit %f'".
bool isScript(const QString &word)
{
    return word.contains("%f") && word.contains(QRegularExpression("[\\s\"'`()|;&]"));
}

// In one go: what stands in a file name is no sign of the command.
QString filled(const QString &word, const SourcePlace &place)
{
    QString text;
    for (int i = 0; i < word.size(); ++i) {
        const QChar sign = word.at(i) == '%' && i + 1 < word.size() ? word.at(i + 1) : QChar();
        if (sign == 'f')
            text += QFileInfo(place.file).absoluteFilePath();
        else if (sign == 'l')
            text += QString::number(qMax(1, place.line));
        else
            text += word.at(i);
        if (sign == 'f' || sign == 'l' || sign == '%')
            ++i;
    }
    return text;
}

} // namespace

SourceCommand sourceCommand(const QString &words, const SourcePlace &place)
{
    SourceCommand command;
    const QStringList parts = QProcess::splitCommand(words);
    command.program = parts.value(0);
    bool hasFile = false;
    for (const QString &word : parts.mid(1)) {
        hasFile = hasFile || word.contains("%f");
        command.arguments << filled(word, place);
    }
    if (command.program.isEmpty() || command.program.contains('%'))
        command.fault = Texts::tr("The command begins with the name of a program.");
    else if (std::any_of(parts.begin(), parts.end(), isShell))
        command.fault =
            Texts::tr("The command must not use a shell, which could take a file name for a command.");
    else if (std::any_of(parts.begin(), parts.end(), isScript))
        command.fault =
            Texts::tr("%f must not stand inside of other commands, which could take a file name for one.");
    else if (!hasFile)
        command.fault = Texts::tr("The command does not say where the file name goes: %f is missing.");
    return command;
}

} // namespace Workbench

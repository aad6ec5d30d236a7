#pragma once

#include <QCommandLineParser>

#include "cli/command.h"
#include "commandline/designoptions.h"

namespace RTLJEX {
class Configuration;
}

namespace Cli {

// " Did you mean X?" for the known word that is nearly the same; empty when none is.
QString nearWord(const QString &word, const QStringList &known);

// "ice40, ecp5 or generic": the completions take words of an option from its help text, in this form behind
// the last colon of the first sentence.
QString oneOf(const QStringList &words);
// "HDL files of the design (.v .vhd)." of a command's help text, in which the completions look for it.
QString hdlFiles();

// The words behind the name of a command. Options are added to `parser` before read().
class Arguments
{
public:
    // `form` is what follows the name in the help text, "FILE... [DESIGN]".
    Arguments(const char *command, const char *form, const char *description);

    QCommandLineParser parser;

    void addJson();
    void addDesign(); // --project and what else names a design

    // False when the command is over: help was asked for, or the words are wrong and that was said.
    bool read(const QStringList &words, Output &out);
    ExitCode result() const { return m_result; }

    // Says what is wrong with the words, and what went wrong else.
    ExitCode refuse(const QString &sentence) const;
    ExitCode fail(const QString &sentence, ExitCode code = CouldNotRun) const;

    QStringList files() const { return parser.positionalArguments(); }
    bool json() const { return parser.isSet("json"); }
    // Whether the device is known and at most one project is named; false after a refusal.
    bool accept(const CommandLine::DesignOptions &options);
    // What the options and these files name; false after a refusal.
    bool readDesign(const QStringList &files, CommandLine::DesignOptions &options);
    // The configurations among that, which are then no part of it any more; empty after a refusal, also when
    // no design is named.
    QStringList takeConfigurations(CommandLine::DesignOptions &options, int most = 1);
    // Reads one, or says what is wrong with it.
    bool open(const QString &file, RTLJEX::Configuration &configuration) const;

private:
    QString nearOption() const; // to the first that is not known

    QString m_command;
    QString m_form;
    bool m_hasDesign = false;
    ExitCode m_result = Fine;
};

} // namespace Cli

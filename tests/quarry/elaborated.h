#pragma once

#include "model/quarry/netlistreader.h"
#include "model/quarry/rtlnetlist.h"
#include "model/quarry/verilatorflags.h"

#include <QFile>
#include <QProcess>
#include <QTemporaryDir>

#include <memory>

// Elaborates with the tool itself, without the driver around it.
class Elaborated
{
public:
    QString write(const QString &name, const QByteArray &text) const
    {
        QFile file(m_dir.filePath(name));
        if (!file.open(QIODevice::WriteOnly) || file.write(text) != text.size())
            qFatal("cannot write %s", qPrintable(file.fileName()));
        return file.fileName();
    }

    // What the tool wrote to its output, and in `error` why it failed, if it did.
    QByteArray run(const QString &program, const QStringList &arguments, QString &error) const
    {
        QProcess process;
        process.setWorkingDirectory(m_dir.path());
        process.start(program, arguments);
        error.clear();
        if (!process.waitForStarted() || !process.waitForFinished(120000))
            error = program + ": " + process.errorString();
        else if (process.exitCode() != 0)
            error = program + ": " + process.readAllStandardError();
        return process.readAllStandardOutput();
    }

    QString xml(const QString &top, const QStringList &sources, const QStringList &includePaths = {}) const
    {
        QStringList arguments = QUARRY::verilatorReadFlags();
        arguments << "--top-module" << top << "-Mdir" << m_dir.path() << "--xml-output" << path("design.xml");
        for (const QString &folder : includePaths)
            arguments << "-I" + folder;
        QString error;
        run("verilator_bin", arguments + sources, error);
        if (!error.isEmpty())
            qFatal("%s", qPrintable(error));
        return path("design.xml");
    }

    std::unique_ptr<QUARRY::RtlNetlist> netlist(const QByteArray &source, QUARRY::ReadOptions options,
                                                QStringList *messages = nullptr) const
    {
        QStringList found;
        options.workingDir = m_dir.path();
        const QString file = xml(options.top, {write("design.sv", source)});
        std::unique_ptr<QUARRY::RtlNetlist> read(
            QUARRY::netlistFromVerilatorXml(file, options, messages ? *messages : found, nullptr));
        if (!read && !messages)
            qFatal("%s", qPrintable(found.join('\n')));
        return read;
    }

    QString path(const QString &name) const { return m_dir.filePath(name); }

private:
    QTemporaryDir m_dir;
};

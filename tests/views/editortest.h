#pragma once

#include "tests/views/shown.h"

// FILE is the file of the editor.
const char changedText[] = "The file 'FILE' changed on disk.\nDo you want to reload?";
const char removedText[] = "The file 'FILE' has been removed on disk.\nDo you still want to keep it?";
const char designText[] = "Design files changed. Do you want to reload?";
const char topText[] = "Top module changed. Do you want to reload?";

// The base of tests that run for the editors of both modes, on a project with a small design.
class EditorTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase_data()
    {
        QTest::addColumn<int>("mode");
        QTest::newRow("Standard") << int(JEX::StandardMode);
        QTest::newRow("Lite") << int(JEX::LiteMode);
    }

    void init()
    {
        QFETCH_GLOBAL(int, mode);
        m_mode = JEX::JexMode(mode);
        beginAnew();
    }

protected:
    void beginAnew()
    {
        m_work.reset();
        m_work.reset(new Workspace);
        m_work->addDesign("design.sv", counterDesign);
    }

    // A tool in place of Verilator, and a design that it has to be asked about.
    void slowDesign(const QByteArray &command)
    {
        QFile::remove(m_work->path("slow"));
        const QString tool = m_work->write("slow", "#!/bin/sh\n" + command);
        QVERIFY(QFile::setPermissions(tool, QFile::ReadOwner | QFile::ExeOwner));
        qputenv("JEX_VERILATOR", tool.toUtf8());
        m_work->write("design.sv", counterDesign + QByteArray(++m_designs, '\n'));
    }

    // Once, when the dialog is up.
    void whileReading(const std::function<void(QProgressDialog *)> &act)
    {
        auto *poll = new QTimer(qApp);
        connect(poll, &QTimer::timeout, [=] {
            if (auto *dialog = qobject_cast<QProgressDialog *>(QApplication::activeModalWidget())) {
                poll->deleteLater();
                poll->stop();
                act(dialog);
            }
        });
        poll->start(5);
    }

    QString config(const QString &name, int cores = 1) const
    {
        return m_work->writeConfig(m_mode, name, cores);
    }
    QString checkFailed(const QString &details) const
    {
        return "critical | Error | Your settings contain some errors." +
               QString(m_mode == JEX::StandardMode ? 13 : 0, ' ') + " | OK* Show Details... | " + details;
    }

    JEX::JexMode m_mode = JEX::InvalidMode;
    int m_designs = 0;
    QScopedPointer<Workspace> m_work;
};

#include "bench/bench.h"
#include "bench/context.h"

#include <QFile>
#include <QXmlStreamReader>
#include <QXmlStreamWriter>

#include "model/jex/jexfile.h"

namespace {

// Net names of the design, a fifth of the signals in buses of eight, some renamed.
JEX::AOCore_Lite *makeCore(const Context &context, int number)
{
    JEX::AOCore_Lite *core = new JEX::AOCore_Lite;
    core->coreNumber = number;
    core->sampleClock = QStringLiteral("top/clk");
    const QList<QUARRY::Hierachy *> instances = context.netlist->topHierarchy->children;
    const auto item = [](const QString &name, int type) {
        JEX::SignalItem item;
        item.name = name;
        item.type = type;
        return item;
    };
    for (int i = number; core->captureSignals.size() < 5000; ++i) {
        const QUARRY::Hierachy *instance = instances.at(i % instances.size());
        for (const QUARRY::RtlNet *net : instance->nets) {
            core->captureSignals.append(item(net->fullPathName(), 0));
            core->captureSignals.last().capEnable = core->captureSignals.size() % 7 != 0;
        }
        for (const QUARRY::RtlNetBus *bus : instance->buses) {
            JEX::SignalItem record = item(bus->fullBusName(), 1);
            record.alias = bus->BusName();
            for (const QUARRY::RtlNet *bit : bus->members)
                record.members.append(item(bit->fullPathName(), 1));
            core->captureSignals.append(record);
        }
    }
    core->captureSignals = core->captureSignals.mid(0, 5000);
    for (const JEX::SignalItem &record : core->captureSignals) {
        if (record.capEnable)
            core->enabledCaptureSignals.append(record);
    }
    return core;
}

struct Token
{
    bool isStart;
    QString name;
    QXmlStreamAttributes attributes;
};

QList<Token> tokensOf(const QByteArray &bytes)
{
    QList<Token> tokens;
    QXmlStreamReader xml(bytes);
    while (!xml.atEnd()) {
        xml.readNext();
        if (xml.isStartElement() || xml.isEndElement())
            tokens.append({xml.isStartElement(), xml.name().toString(), xml.attributes()});
    }
    return tokens;
}

// The same bytes, by the toolkit's writer and nothing else.
QByteArray written(const QList<Token> &tokens)
{
    QByteArray bytes;
    QXmlStreamWriter xml(&bytes);
    xml.setAutoFormatting(true);
    xml.writeStartDocument();
    for (int i = 0; i < tokens.size(); ++i) {
        const Token &token = tokens.at(i);
        if (!token.isStart) {
            xml.writeEndElement();
            continue;
        }
        const bool isEmpty = !tokens.at(i + 1).isStart && token.name == QLatin1String("signal");
        isEmpty ? xml.writeEmptyElement(token.name) : xml.writeStartElement(token.name);
        xml.writeAttributes(token.attributes);
        i += isEmpty ? 1 : 0;
    }
    xml.writeEndDocument();
    return bytes;
}

} // namespace

void measureConfiguration(Context &context)
{
    QList<JEX::AOCore_Lite *> cores;
    for (int i = 0; i < JEX::CoreLimit; ++i)
        cores.append(makeCore(context, i));
    const QString path = context.dir.filePath(QStringLiteral("large.zub"));
    JEX::writeJEXConfigToXml_Lite(cores, path);
    QFile file(path);
    file.open(QIODevice::ReadOnly);
    const QByteArray bytes = file.readAll();
    const QList<Token> tokens = tokensOf(bytes);
    if (written(tokens) != bytes)
        qFatal("the writer alone gives other bytes");
    const auto read = [&] {
        const QList<JEX::AOCore_Lite *> read = JEX::readJEXConfigFromXml_Lite(path, nullptr, nullptr);
        keep(read);
        qDeleteAll(read);
    };
    const auto readPlainly = [&] {
        QXmlStreamReader xml(bytes);
        while (!xml.atEnd())
            keep(xml.readNext());
    };
    const auto write = [&] { keep(JEX::writeJEXConfigToXml_Lite(cores, path)); };
    const Times reading = inTurn(5, read, readPlainly);
    const Times writing = inTurn(5, write, [&] { keep(written(tokens)); });
    qDeleteAll(cores);
    print({QStringLiteral("read a .zub of 16 cores, 5,000 signals each | QXmlStreamReader alone"),
           reading.figure, reading.limit, 1.5, QStringLiteral("ms")});
    print({QStringLiteral("write it, onto the disk | QXmlStreamWriter alone, into memory"), writing.figure,
           writing.limit, 1.5, QStringLiteral("ms")});
}

#include "check/configuration.h"
#include "model/netlist/netlistbuilder.h"
#include "tests/fuzz/fuzz.h"

#include <memory>

using namespace RTLJEX;

namespace {

// A design that has some of the example's signals, and others that are like those that it has not.
const QUARRY::RtlNetlist &design()
{
    static const std::unique_ptr<QUARRY::RtlNetlist> netlist([] {
        QUARRY::NetlistBuilder builder;
        QUARRY::ModuleDecl module;
        module.name = QStringLiteral("soc");
        for (const char *name : {"clk", "bus_write", "bus_adress", "uart_rx"}) {
            QUARRY::NetDecl net;
            net.name = QLatin1String(name);
            net.isBus = net.name == QLatin1String("bus_adress");
            net.left = 15;
            module.nets << net;
        }
        const int number = builder.addModule(module);
        builder.addInstance(builder.addTop(module.name, number), QStringLiteral("u_uart"), number);
        return builder.take();
    }());
    return *netlist;
}

QByteArray written(const Configuration &configuration)
{
    QByteArray bytes;
    QString error;
    Fuzz::claim(configuration.toBytes(&bytes, &error), "what was read can be saved");
    return bytes;
}

void check(const QByteArray &bytes, JEX::JexMode mode)
{
    Configuration configuration(mode);
    QString error;
    const QString file = Fuzz::file(bytes);
    if (!configuration.read(file, &error)) {
        Fuzz::claim(configuration.cores().isEmpty(), "what is refused leaves no core");
        Fuzz::claim(error.endsWith(QLatin1Char('.')), "what is refused comes with a sentence");
        return;
    }
    Fuzz::claim(error.isEmpty() && configuration.accepts(file), "what is read is a file of its mode");
    const QByteArray saved = written(configuration);
    Configuration again(mode);
    Fuzz::claim(again.read(Fuzz::file(saved), &error), "what was saved can be read");
    Fuzz::claim(written(again) == saved, "saving what was saved changes nothing");
    configuration.judge(design());
}

} // namespace

// A ".zub" file of either mode, also beside a design.
void Fuzz::look(const QByteArray &bytes)
{
    check(bytes, JEX::StandardMode);
    check(bytes, JEX::LiteMode);
}

#include "host/eventmanager.h"
#include "tests/support/tablerow.h"

using QUtil::EventManager;

namespace {

QStringList heard;

// Writes its name down and then does what its script says: "+x" subscribes handler x, "-x" takes it away.
class Scripted : public QUtil::IEventHandler
{
public:
    QString name;
    QStringList script;
    static QMap<QString, Scripted *> all;

    void handleIEvent(const QUtil::IEvent *event) override
    {
        heard << name + ":" + event->data().value("n").toString();
        for (const QString &step : script) {
            Scripted *other = all.value(step.mid(1));
            if (step.startsWith('+'))
                EventManager::instance()->subscribe(other, "T");
            else
                EventManager::instance()->unsubscribe(other, "T");
        }
    }
};
QMap<QString, Scripted *> Scripted::all;

} // namespace

class EventsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void delivery_data()
    {
        // What a, b and c do when they hear the first of two events; a and b are subscribed.
        textColumns("expected");
        row("||", "a:1 b:1 a:2 b:2");
        row("+a||", "a:1 b:1 a:2 b:2"); // twice counts once
        row("-b||", "a:1 a:2");
        row("-a||", "a:1 b:1 b:2");
        row("+c||", "a:1 b:1 a:2 b:2 c:2"); // a new one hears the next
        row("-b +b||", "a:1 a:2");          // and so does one that was away
    }
    void delivery()
    {
        const QString scripts = QTest::currentDataTag();
        Scripted handlers[3];
        const char *const names[] = {"a", "b", "c"};
        for (int i = 0; i < 3; ++i) {
            handlers[i].name = names[i];
            handlers[i].script = scripts.section('|', i, i).split(' ', Qt::SkipEmptyParts);
            Scripted::all.insert(handlers[i].name, &handlers[i]);
        }
        heard.clear();
        EventManager *manager = EventManager::instance();
        manager->subscribe(&handlers[0], "T");
        manager->subscribe(&handlers[1], "T");
        manager->post("other", {{"n", 0}});
        manager->post("T", {{"n", 1}});
        manager->post("T", {{"n", 2}});
        for (Scripted &handler : handlers)
            manager->unsubscribe(&handler, "T");
        manager->post("T", {{"n", 3}});
        QTEST(heard.join(' '), "expected");
    }
};

QTEST_GUILESS_MAIN(EventsTest)
#include "tst_events.moc"

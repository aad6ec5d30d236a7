#pragma once

#include <QObject>

class QSocketNotifier;

namespace CommandLine {

// While this lives, a hang-up, an interrupt and the requests to quit and to end do not kill the program: they
// are told from the event loop, once to each object. The same one again ends it at once, unless the user has
// refused to end and it listen()s anew. An object within the life of another one also hears of what came
// before it, so no moment between two of them loses a signal.
class EndSignals : public QObject
{
    Q_OBJECT

public:
    EndSignals();
    ~EndSignals() override;

    void listen(); // of an only one

Q_SIGNALS:
    void endAsked();

private Q_SLOTS:
    void tell();

private:
    QSocketNotifier *m_notifier = nullptr; // child
};

} // namespace CommandLine

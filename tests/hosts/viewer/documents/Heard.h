#pragma once

#include <QObject>

// Counts how often a signal comes.
class Heard {
public:
    template <typename Sender, typename Signal>
    Heard(Sender* sender, Signal signal)
    {
        QObject::connect(sender, signal, &Receiver, [this] { ++Times; });
    }
    int count() const { return Times; }

private:
    QObject Receiver;
    int     Times = 0;
};

#pragma once

#include <array>

#include <QObject>

namespace rulemesh {

/// Tells in the event loop that somebody wants the program to end: by SIGTERM, by SIGHUP or, from a terminal, by
/// SIGINT. A signal that the program was started to ignore stays ignored. One object of this kind at a time.
class EndSignals : public QObject {
    Q_OBJECT

public:
    EndSignals();
    ~EndSignals() override;

    /// Ends the program as the signal would have ended it at once.
    static void End(int signal);

signals:
    void Came(int signal);

private:
    void Read();

    std::array<int, 2> pipe_{-1, -1};
};

} // namespace rulemesh

// In a handler of a signal next to nothing is safe. So it only writes the signal's number into a pipe, whose other end
// the event loop watches.

#include "host/end_signals.h"

#include <cerrno>
#include <csignal>

#include <QSocketNotifier>

#include <fcntl.h>
#include <unistd.h>

namespace rulemesh {

namespace {

constexpr std::array Watched{SIGTERM, SIGHUP, SIGINT};

volatile std::sig_atomic_t handlersEnd = -1; // of the pipe

void PassOn(int signal)
{
    const int error = errno;
    const auto number = static_cast<unsigned char>(signal);
    (void)!::write(handlersEnd, &number, 1);
    errno = error;
}

void Handle(int signal, void (*handler)(int))
{
    struct sigaction action = {};
    ::sigaction(signal, nullptr, &action);
    if (action.sa_handler == SIG_IGN)
        return;
    action = {};
    action.sa_handler = handler;
    action.sa_flags = SA_RESTART;
    ::sigaction(signal, &action, nullptr);
}

} // namespace

EndSignals::EndSignals()
{
    if (::pipe2(pipe_.data(), O_CLOEXEC | O_NONBLOCK) != 0)
        return; // the signals end the program at once, as ever
    handlersEnd = pipe_[1];
    auto* notifier = new QSocketNotifier(pipe_[0], QSocketNotifier::Read, this);
    connect(notifier, &QSocketNotifier::activated, this, &EndSignals::Read);
    for (const int signal : Watched)
        Handle(signal, PassOn);
}

EndSignals::~EndSignals()
{
    if (pipe_[0] == -1)
        return;
    for (const int signal : Watched)
        Handle(signal, SIG_DFL);
    ::close(pipe_[0]);
    ::close(pipe_[1]);
}

void EndSignals::End(int signal)
{
    Handle(signal, SIG_DFL);
    ::raise(signal);
}

void EndSignals::Read()
{
    unsigned char number = 0;
    if (::read(pipe_[0], &number, 1) == 1)
        emit Came(number);
}

} // namespace rulemesh

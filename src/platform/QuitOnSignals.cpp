// SPDX-License-Identifier: Apache-2.0
#include "platform/QuitOnSignals.h"

#include <QCoreApplication>
#include <QSocketNotifier>

#include <cerrno>
#include <csignal>
#include <sys/socket.h>
#include <unistd.h>

namespace tw {

namespace {

constexpr int kSignals[] = {SIGTERM, SIGINT, SIGHUP};
int fds[2] = {-1, -1};
struct sigaction previous[sizeof kSignals / sizeof kSignals[0]];

// A handler may do almost nothing: it hands the signal to the event loop.
void handler(int sig) {
    const int saved = errno;
    const char byte = static_cast<char>(sig);
    [[maybe_unused]] const ssize_t n = ::send(fds[1], &byte, 1, MSG_DONTWAIT | MSG_NOSIGNAL);
    errno = saved;
}

} // namespace

QuitOnSignals::QuitOnSignals(QObject* parent) : QObject(parent) {
    if (::socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, fds) != 0) return;
    notifier_ = new QSocketNotifier(fds[0], QSocketNotifier::Read, this);
    connect(notifier_, &QSocketNotifier::activated, this, [this] {
        char byte = 0;
        if (::read(fds[0], &byte, 1) == 1 && !received_) received_ = byte;
        QCoreApplication::exit(0);
    });
    struct sigaction sa {};
    sa.sa_handler = handler;
    sigemptyset(&sa.sa_mask);
    sa.sa_flags = SA_RESTART;
    for (size_t i = 0; i < sizeof kSignals / sizeof kSignals[0]; ++i)
        ::sigaction(kSignals[i], &sa, &previous[i]);
}

QuitOnSignals::~QuitOnSignals() {
    if (!notifier_) return;
    for (size_t i = 0; i < sizeof kSignals / sizeof kSignals[0]; ++i)
        ::sigaction(kSignals[i], &previous[i], nullptr);
    delete notifier_;
    ::close(fds[0]);
    ::close(fds[1]);
    fds[0] = fds[1] = -1;
}

} // namespace tw

#include "tools/signals/SignalEnd.h"

#include <atomic>
#include <cstring>
#include <initializer_list>

#include <unistd.h>

namespace kestgps
{

namespace
{

std::atomic<const char*> unfinished{nullptr}; // set by the command, read by the handler
static_assert(std::atomic<const char*>::is_always_lock_free);

const char* LineOf(int signal) noexcept
{
    switch (signal) {
    case SIGINT:
        return "kestgps: interrupted by SIGINT before the work was done\n";
    case SIGHUP:
        return "kestgps: interrupted by SIGHUP before the work was done\n";
    default:
        return "kestgps: interrupted by SIGTERM before the work was done\n";
    }
}

/// Calls what a signal handler may call, and nothing else.
void EndProcess(int signal)
{
    constexpr int STATUS_BASE = 128; // as a shell tells it
    if (const char* const path = unfinished.load()) {
        unlink(path);
    }
    const char* const line = LineOf(signal);
    static_cast<void>(write(STDERR_FILENO, line, std::strlen(line)) ==
                      0); // there is nowhere left to complain
    _exit(STATUS_BASE + signal);
}

} // namespace

sigset_t StopRequests() noexcept
{
    sigset_t requests;
    sigemptyset(&requests);
    sigaddset(&requests, SIGINT);
    sigaddset(&requests, SIGTERM);
    struct sigaction hangUp = {};
    sigaction(SIGHUP, nullptr, &hangUp);
    if (hangUp.sa_handler != SIG_IGN) {
        sigaddset(&requests, SIGHUP);
    }
    return requests;
}

void EndOnStopRequests() noexcept
{
    struct sigaction end = {};
    end.sa_handler = EndProcess;
    end.sa_mask = StopRequests(); // the first one ends it
    for (const int signal : {SIGINT, SIGTERM, SIGHUP}) {
        if (sigismember(&end.sa_mask, signal) == 1) {
            sigaction(signal, &end, nullptr);
        }
    }
}

sigset_t HoldBackStopRequests() noexcept
{
    const sigset_t requests = StopRequests();
    pthread_sigmask(SIG_BLOCK, &requests, nullptr);
    return requests;
}

StopRequestsLetIn::StopRequestsLetIn() noexcept
{
    const sigset_t requests = StopRequests();
    pthread_sigmask(SIG_UNBLOCK, &requests, nullptr);
}

StopRequestsLetIn::~StopRequestsLetIn()
{
    HoldBackStopRequests();
}

void RemoveWhenStopped(const char* path) noexcept
{
    unfinished = path;
}

} // namespace kestgps

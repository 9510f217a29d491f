// PlayingThread.h: an emulator that plays beside everything else.
#pragma once

#include <exception>
#include <functional>
#include <thread>

#include "tools/receiver/Emulator.h"

namespace kestgps
{

/// Plays on a thread of its own from its making on; stops the emulator and waits for it when it goes.
class PlayingThread
{
public:
    /// emulator: borrowed; not played before. onEnd: called on the thread when Play has ended, for whatever
    /// reason; must not throw. Throws std::system_error when the system has no thread to give.
    PlayingThread(Emulator& emulator, std::function<void()> onEnd);
    ~PlayingThread();
    PlayingThread(const PlayingThread&) = delete;
    PlayingThread& operator=(const PlayingThread&) = delete;

    /// Stops the emulator and waits for it. Throws what ended Play, such as a broken line. Called once.
    void Finish();

private:
    void Join();

    Emulator& emulator;         // borrowed
    std::exception_ptr failure; // the thread's until it has been joined
    std::thread thread;
};

} // namespace kestgps

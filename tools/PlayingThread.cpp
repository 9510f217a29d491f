#include "tools/PlayingThread.h"

#include <exception>
#include <utility>

namespace kestgps
{

PlayingThread::PlayingThread(Emulator& emulator, std::function<void()> onEnd)
    : emulator(emulator), thread([&emulator, onEnd = std::move(onEnd)] {
          try {
              emulator.Play();
          } catch (const std::exception&) { // NOLINT(bugprone-empty-catch): a broken line is an end like any
          }
          onEnd();
      })
{
}

PlayingThread::~PlayingThread()
{
    emulator.Stop();
    thread.join();
}

} // namespace kestgps

#include "tools/receiver/PlayingThread.h"

#include <utility>

namespace kestgps
{

PlayingThread::PlayingThread(Emulator& emulator, std::function<void()> onEnd)
    : emulator(emulator), thread([this, onEnd = std::move(onEnd)] {
          try {
              this->emulator.Play();
          } catch (...) {
              failure = std::current_exception();
          }
          onEnd();
      })
{
}

PlayingThread::~PlayingThread()
{
    Join();
}

void PlayingThread::Finish()
{
    Join();
    if (failure) {
        std::rethrow_exception(failure);
    }
}

void PlayingThread::Join()
{
    if (thread.joinable()) {
        emulator.Stop();
        thread.join();
    }
}

} // namespace kestgps

// FunctionBody.h: the body of a thread, made of a function.
#pragma once

#include <functional>
#include <utility>

#include "GpsLib/contracts/KestThread.h"

namespace support
{

class FunctionBody final : public KestThread::Runnable
{
public:
    explicit FunctionBody(std::function<void()> work) : work(std::move(work)) {}
    void run() override { work(); }

private:
    std::function<void()> work;
};

} // namespace support

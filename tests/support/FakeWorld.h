// FakeWorld.h: the base of every suite on the fakes; each test finds them as new.
#pragma once

#include <gtest/gtest.h>

#include "tests/fakes/FakeEventHouse.h"
#include "tests/fakes/FakeMath.h"
#include "tests/fakes/FakeSerialCalls.h"
#include "tests/fakes/FakeThread.h"
#include "tests/fakes/FakeTickCount.h"

namespace support
{

class FakeWorld : public testing::Test
{
protected:
    FakeWorld()
    {
        FakeThread::Reset();
        FakeSerialCalls::Reset();
        FakeTickCount::Reset();
        FakeEventHouse::Reset();
        FakeMath::Reset();
    }
};

} // namespace support

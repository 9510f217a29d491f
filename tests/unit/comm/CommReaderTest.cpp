// The loop on the reader thread and the handshake that ends it.
#include "GpsLib/comm/CommReader.h"

#include <stdexcept>

#include "GpsLib/comm/CommPort.h"
#include "tests/support/FakeWorld.h"
#include "tests/unit/comm/ChunkKeeper.h"

namespace
{

using Fake = FakeSerialCalls;
using Chunks = std::vector<std::string>;
using Sleeps = std::vector<unsigned long>;

/// A port whose closing the test can replace.
class WatchedPort final : public CommPort
{
public:
    bool Close() override { return close(); }

    std::function<bool()> close = [this] { return CommPort::Close(); };
};

class ReaderLoop : public support::FakeWorld
{
protected:
    void Start()
    {
        reader.subscribe(&keeper);
        ASSERT_TRUE(reader.OpenPort(1, 4800, 0, 8, 0));
        const KestThread::Thread thread(&reader);
    }

    /// Stops the reader. Result: whether its thread has ended.
    bool Ends() { return reader.Stop() && FakeThread::Running() == 0; }

    WatchedPort port;
    CommReader reader{&port};
    ChunkKeeper keeper;
};

TEST_F(ReaderLoop, RestsBehindEveryReadThatSucceeded)
{
    Start();
    Fake::PlayFailure();
    Fake::PlayFailure();
    FakeThread::Run();
    EXPECT_EQ(FakeThread::sleeps, Sleeps{}) << "a failed one is tried again at once";
    keeper.inside = [] { EXPECT_EQ(FakeThread::sleeps, Sleeps{}) << "listeners hear of it first"; };
    Fake::Play("any");
    FakeThread::Run();
    keeper.inside = nullptr;
    Fake::PlayTimeOut();
    Fake::Play(std::string(513, 'x'));
    FakeThread::Run();
    EXPECT_EQ(keeper.chunks, (Chunks{"any", std::string(512, 'x'), "x"}));
    EXPECT_EQ(FakeThread::sleeps, (Sleeps{50, 50, 50, 50}));
    EXPECT_EQ(Fake::journal.back(), "ReadFile 0x200 zeroed");
}

TEST_F(ReaderLoop, ListenerThatThrowsLosesThatChunkAlone)
{
    Start();
    keeper.inside = [] { throw std::runtime_error("listener"); };
    Fake::Play("a");
    Fake::Play("b");
    FakeThread::Run();
    EXPECT_EQ(keeper.chunks, (Chunks{"a", "b"}));
    EXPECT_EQ(FakeThread::sleeps, (Sleeps{50, 50}));
}

using StopHandshake = ReaderLoop;

TEST_F(StopHandshake, EndsAReadThatWaitsAndAThreadThatHasNotYetRun)
{
    for (const bool hasRun : {true, false}) {
        FakeThread::sleeps.clear();
        Start();
        if (hasRun) {
            FakeThread::Run();
        }
        Fake::Play("too late");
        EXPECT_TRUE(Ends());
        EXPECT_EQ(keeper.chunks, Chunks{});
        EXPECT_EQ(FakeThread::sleeps, Sleeps{20});
        EXPECT_TRUE(reader.Stop()) << "a second time";
    }
}

TEST_F(StopHandshake, SignalIsNotLostWhenTheLoopEndsBeforeTheWait)
{
    Start();
    FakeThread::Run();
    port.close = [this] {
        const bool closed = port.CommPort::Close();
        FakeThread::Run(); // the loop sees the closed port, and Stop is still in Close
        return closed;
    };
    EXPECT_TRUE(Ends());
}

} // namespace

// The set of listeners.
#include "GpsLib/comm/Observable.h"

#include <memory>

#include "tests/support/FakeWorld.h"
#include "tests/unit/comm/ChunkKeeper.h"

namespace
{

using Listeners = KestThread::Observable<CommListener, KestThread::Mutex>;
using Chunks = std::vector<std::string>;

void Notify(Listeners& listeners, const std::string& chunk)
{
    listeners.notify(chunk.data(), static_cast<std::uint32_t>(chunk.size()));
}

class ListenerSet : public support::FakeWorld
{
protected:
    Listeners listeners;
    ChunkKeeper keepers[20]; // more than a copy has room for without the heap
};

TEST_F(ListenerSet, EveryListenerHearsOnceInOrderOfAddress)
{
    std::vector<const ChunkKeeper*> order;
    std::vector<const ChunkKeeper*> expected;
    for (ChunkKeeper& keeper : keepers) {
        keeper.inside = [&order, &keeper] { order.push_back(&keeper); };
        expected.push_back(&keeper);
    }
    for (auto keeper = std::rbegin(keepers); keeper != std::rend(keepers); ++keeper) {
        listeners.subscribe(&*keeper);
        listeners.subscribe(&*keeper);
    }
    Notify(listeners, "a");
    EXPECT_EQ(order, expected);
    EXPECT_EQ(keepers[7].chunks, Chunks{"a"});
}

TEST_F(ListenerSet, ChangesFromInsideCountFromTheNextChunkOn)
{
    keepers[0].inside = [this] {
        listeners.unsubscribe(&keepers[0]);
        listeners.unsubscribe(&keepers[1]);
        listeners.unsubscribe(&keepers[2]); // not there
        listeners.subscribe(&keepers[3]);
    };
    listeners.subscribe(&keepers[0]);
    listeners.subscribe(&keepers[1]);
    listeners.subscribe(&keepers[4]);
    Notify(listeners, "on its way");
    Notify(listeners, "next");
    EXPECT_EQ(keepers[0].chunks, Chunks{"on its way"});
    EXPECT_EQ(keepers[1].chunks, Chunks{"on its way"});
    EXPECT_EQ(keepers[3].chunks, Chunks{"next"});
    EXPECT_EQ(keepers[4].chunks, (Chunks{"on its way", "next"}));
}

TEST_F(ListenerSet, CopyHasTheListenersAndALockOfItsOwn)
{
    auto source = std::make_unique<Listeners>();
    source->subscribe(&keepers[0]);
    Listeners copy(*source);
    copy.subscribe(&keepers[1]);
    EXPECT_FALSE(source->isSubscribed(&keepers[1]));
    source.reset(); // a lock in common would be gone
    Notify(copy, "a");
    EXPECT_EQ(keepers[0].chunks, Chunks{"a"});
    EXPECT_EQ(keepers[1].chunks, Chunks{"a"});
}

} // namespace

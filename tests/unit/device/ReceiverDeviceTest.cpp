// The receiver as an application meets it, on a faked port and faked threads.
#include "GpsLib/device/CGPSCOMDevice.h"

#include <memory>
#include <string>
#include <vector>

#include "tests/support/FakeWorld.h"
#include "tests/support/Sentence.h"
#include "tests/support/TemporaryFolder.h"

namespace
{

using Fake = FakeSerialCalls;
using support::Gga;
using Ids = std::vector<std::uint16_t>;

class Receiver : public support::FakeWorld
{
protected:
    Receiver() { device->SetGPSCOMParam(3, 4800, 2, 7, 1); }

    ~Receiver() override
    {
        FakeEventHouse::onSend = nullptr;
        if (device != nullptr) {
            device->CloseGPS();
        }
        EXPECT_EQ(FakeThread::Running(), 0U);
        EXPECT_FALSE(Fake::open);
    }

    void Feed(const std::string& chunk)
    {
        Fake::Play(chunk);
        FakeThread::Run();
    }

    _GPS_Data Current()
    {
        _GPS_Data data = support::NoFix();
        device->GetGPSData(data);
        return data;
    }

    /// Result: whether it opens and takes a fix.
    bool OpensAndWorks()
    {
        const bool opens = device->OpenGPS();
        Feed(Gga(121, 31));
        return opens && Current().lonLat.lon == 121.0;
    }

    std::unique_ptr<GPS::CGPSCOMDevice> device = std::make_unique<GPS::CGPSCOMDevice>();
};

TEST_F(Receiver, OpenAndClosedDevicesStayAsTheyAre)
{
    device->CloseGPS();
    EXPECT_TRUE(Fake::journal.empty());
    ASSERT_TRUE(OpensAndWorks());
    EXPECT_EQ(Fake::settings.Parity, 2);
    EXPECT_EQ(Fake::settings.ByteSize, 7);
    EXPECT_EQ(Fake::settings.StopBits, 1);
    Fake::journal.clear();
    device->SetGPSCOMParam(4, 9600, 0, 8, 0);
    EXPECT_TRUE(device->OpenGPS());
    EXPECT_TRUE(Fake::journal.empty());
    EXPECT_EQ(FakeThread::Running(), 1U);
    device->CloseGPS();
    Fake::journal.clear();
    device->CloseGPS();
    EXPECT_TRUE(Fake::journal.empty());
    EXPECT_TRUE(device->OpenGPS());
    EXPECT_EQ(Fake::journal.front(), "CreateFileW COM4: 0xc0000000 0 0x3 0");
    EXPECT_EQ(Fake::settings.BaudRate, 9600U);
    EXPECT_EQ(Current().lonLat.lon, 121.0) << "records survive";
    FakeEventHouse::ids.clear();
    Feed(Gga(121, 31));
    EXPECT_EQ(FakeEventHouse::ids, Ids{1001}) << "no move against those before the close";
    device->CloseGPS();
    Fake::journal.clear();
    device = std::make_unique<GPS::CGPSCOMDevice>();
    EXPECT_TRUE(device->OpenGPS()) << "without settings";
    EXPECT_EQ(Fake::journal.front(), "CreateFileW COM1: 0xc0000000 0 0x3 0");
    EXPECT_EQ(Fake::settings.BaudRate, 0U);
    EXPECT_TRUE(Fake::settings.Parity == 0 && Fake::settings.ByteSize == 0 && Fake::settings.StopBits == 0);
}

TEST_F(Receiver, OpeningThatFailsLeavesItClosedForAnotherTry)
{
    char path[] = "/dev/null";
    for (const std::string call : {"CreateFileW", "SetCommState", "SetCommTimeouts", "no thread"}) {
        SCOPED_TRACE(call);
        Fake::failing = {call};
        FakeThread::refuses = call == "no thread";
        EXPECT_FALSE(device->OpenGPS());
        EXPECT_FALSE(Fake::open);
        EXPECT_FALSE(device->StartWriteLog(path, LOGTYPE_NMEA)) << "there is no listener";
        EXPECT_FALSE(device->StopWriteLog());
    }
    Fake::failing.clear();
    FakeThread::refuses = false;
    EXPECT_TRUE(OpensAndWorks());
}

TEST_F(Receiver, LossAndSmoothingGoOnOverAClose)
{
    device->OpenFilter();
    FakeTickCount::Set(10000);
    ASSERT_TRUE(OpensAndWorks());
    Feed(Gga(121, 31, 0) + Gga(121, 31, 0));
    device->CloseGPS();
    ASSERT_TRUE(device->OpenGPS());
    FakeEventHouse::ids.clear();
    FakeTickCount::Set(70999);
    Feed(Gga(121, 31, 0));
    FakeTickCount::Set(71000);
    Feed(Gga(121, 31, 0));
    EXPECT_EQ(FakeEventHouse::ids, (Ids{1004, 1001, 1004, 1003, 1001})) << "of the loss that began before it";
    Feed(Gga(122, 31));
    device->CloseGPS();
    ASSERT_TRUE(device->OpenGPS());
    Feed(Gga(123, 31));
    EXPECT_NE(Current().lonLat.lon, 123.0) << "smoothed with the one before";
    device->CloseFilter();
    Feed(Gga(124, 31));
    EXPECT_EQ(Current().lonLat.lon, 124.0) << "from the next epoch on";
}

TEST_F(Receiver, LogStaysOpenUntilItIsStoppedAndItsTypeIsTheLatest)
{
    const support::TemporaryFolder folder;
    std::string one = folder.Path("one");
    std::string two = folder.Path("two");
    EXPECT_FALSE(device->StartWriteLog(two.data(), LOGTYPE_NMEA)) << "before OpenGPS";
    ASSERT_TRUE(device->OpenGPS());
    EXPECT_FALSE(device->StopWriteLog());
    EXPECT_TRUE(device->StartWriteLog(one.data(), LOGTYPE_NMEA));
    Feed(Gga(121, 31));
    device->CloseGPS();
    ASSERT_TRUE(device->OpenGPS());
    Feed(Gga(122, 31)); // in no log
    EXPECT_TRUE(device->StartWriteLog(two.data(), LOGTYPE_NMEA)) << "goes on in the first file";
    Feed(Gga(123, 31));
    EXPECT_TRUE(device->StartWriteLog(two.data(), static_cast<LOGTYPE>(1)));
    Feed(Gga(124, 31));
    EXPECT_TRUE(device->StopWriteLog());
    Feed(Gga(125, 31));
    EXPECT_TRUE(device->StartWriteLog(one.data(), LOGTYPE_NMEA));
    FakeEventHouse::onSend = [this](const event::CustomEvent&) { device->StopWriteLog(); };
    Feed(Gga(126, 31)); // logged before its events are told
    FakeEventHouse::onSend = nullptr;
    EXPECT_TRUE(device->StartWriteLog(one.data(), LOGTYPE_NMEA));
    Feed(Gga(127, 31));
    device->CloseGPS();
    EXPECT_TRUE(device->StopWriteLog()) << "behind the close as before it";
    EXPECT_EQ(folder.Content("one"), Gga(121, 31) + Gga(123, 31) + Gga(126, 31) + Gga(127, 31));
    EXPECT_FALSE(device->StopWriteLog());
    EXPECT_FALSE(std::filesystem::exists(two));
}

TEST_F(Receiver, EachOpeningBeginsWithAnEmptySentenceAndEpoch)
{
    ASSERT_TRUE(device->OpenGPS());
    Feed(support::Vtg("50.0") + Gga(121, 31).substr(0, 8));
    device->CloseGPS();
    EXPECT_TRUE(OpensAndWorks());
    EXPECT_EQ(Current().speed, 0.0);
}

TEST_F(Receiver, CloseFromInsideAnyEventChangesNothing)
{
    ASSERT_TRUE(device->OpenGPS());
    FakeEventHouse::onSend = [this](const event::CustomEvent&) { device->CloseGPS(); };
    FakeTickCount::Set(61000);
    Feed(Gga(120, 31, 0) + Gga(121, 31));
    EXPECT_EQ(FakeEventHouse::ids, (Ids{1004, 1003, 1001, 1002, 1001}));
    EXPECT_TRUE(Fake::open);
    Feed(Gga(122, 31));
    EXPECT_EQ(Current().lonLat.lon, 122.0);
}

/// What the five getters answer. lastLon: of the last valid epoch.
void ExpectAnswers(GPS::CGPSCOMDevice& device, bool valid, double lastLon)
{
    _GPS_Data data;
    _GPS_Data_Without_Sate narrow{};
    _GPS_Satellite satellite{};
    const auto before = support::BytesOf(data);
    EXPECT_EQ(device.IsGPSValid(), valid);
    EXPECT_EQ(device.GetGPSData(data), valid);
    EXPECT_EQ(device.GetGPSDataWithoutSate(narrow), valid);
    EXPECT_EQ(device.GetWholeSate(satellite), valid);
    EXPECT_EQ(support::BytesOf(data) == before, !valid);
    EXPECT_EQ(narrow.lonLat.lon, valid ? lastLon : 0.0);
    EXPECT_EQ(satellite.prn[6], valid ? 7 : 0);
    EXPECT_TRUE(device.GetLastValidData(data));
    EXPECT_EQ(data.lonLat.lon, lastLon);
    EXPECT_EQ(data.satellite.prn[6], lastLon == NO_POSITION_LON ? GPS_SATELLITE_EMPTY : 7);
}

const std::string GSV = support::Sentence("GPGSV,1,1,01,07,40,083,46");

TEST_F(Receiver, GettersSpeakOfTheLastClosedEpoch)
{
    ASSERT_TRUE(device->OpenGPS());
    ExpectAnswers(*device, false, NO_POSITION_LON);
    Feed(GSV + Gga(121, 31));
    ExpectAnswers(*device, true, 121.0);
    Feed(support::Vtg("50.0")); // closes none
    ExpectAnswers(*device, true, 121.0);
    Feed(Gga(122, 31, 0));
    ExpectAnswers(*device, false, 121.0);
    device->CloseGPS();
    ExpectAnswers(*device, false, 121.0);
}

TEST_F(Receiver, CopiesShareOneDeviceInWhateverOrderTheyDie)
{
    auto copy = std::make_unique<GPS::CGPSCOMDevice>(*device);
    GPS::CGPSCOMDevice assigned;
    assigned = *device;
    assigned = *copy;
    assigned = *&assigned;
    ASSERT_TRUE(device->OpenGPS());
    device.reset();
    Feed(GSV + Gga(121, 31));
    ExpectAnswers(*copy, true, 121.0);
    copy.reset();
    ExpectAnswers(assigned, true, 121.0);
    assigned.CloseGPS();
}

TEST_F(Receiver, VelocityModelBeginsAnewWithEachOpening)
{
    const auto feed = [this](const std::string& seconds) { // north at 36 km/h, 12 m a second
        Feed(support::Sentence("GPVTG,360.0,T,,M,,N,36.0,K") +
             support::Sentence("GPGGA,1015" + seconds + ",3100." + seconds +
                               "0,N,12100.000,E,1,08,0.9,12.5,M,,M,,"));
        return Current().lonLat.lat - 31.0 - std::stoi(seconds) * 1e-2 / 60.0;
    };
    device->SetFilterModel(FILTERMODEL_VELOCITY);
    device->OpenFilter();
    for (const char* const first : {"10", "12"}) {
        ASSERT_TRUE(device->OpenGPS());
        EXPECT_NEAR(feed(first), 0.0, 1e-12) << first;
        EXPECT_LT(feed(first[1] == '0' ? "11" : "13"), -1e-6) << first;
        EXPECT_EQ(Current().speed, 36.0);
        device->CloseGPS();
    }
}

} // namespace

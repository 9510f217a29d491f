// The built program from outside: its lines, its exit status, its complaints.
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <string>
#include <thread>
#include <utility>
#include <vector>

#include <CLI/CLI.hpp>
#include <gtest/gtest.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <termios.h>

#include "tests/support/Sentence.h"
#include "tests/support/TemporaryFolder.h"
#include "tests/tools/commands/Program.h"
#include "tests/tools/nmea/NmeaReading.h"
#include "tests/tools/receiver/LineReader.h"
#include "tools/commands/EmulateCommand.h"
#include "tools/drive/DemoDrive.h"
#include "tools/errors/ToolError.h"
#include "tools/receiver/Emulator.h"

namespace
{

namespace fs = std::filesystem;

struct Complaint {
    const char* arguments;
    int status;
    const char* told;
};

const Complaint COMPLAINTS[] = {
    {"", 2, "live, emulate, replay or simulate"},
    {"steer", 2, "steer"},
    {"live", 2, "one of --port N, --device PATH and --demo"},
    {"live --port 1 --factor 2", 2, "--demo"},
    {"live --demo --baud 0", 2, "from 50 to 4000000"},
    {"live --demo --baud 9600.5", 2, "9600.5"},
    {"live --demo --seconds -1", 2, "--seconds"},
    {"live --demo --parity loud", 2, "none,odd,even,mark,space"},
    {"live --device /dev/none --bits +08", 1, "no such device: /dev/none"}, // eight, and no octal number
    {"live --device /dev/null", 1, "not a serial device"},
    {"live --device ''", 2, "--device: the name is empty"},
    {"live --demo --log ''", 2, "--log: the name is empty"},
    {"live --demo --smooth ''", 2, "--smooth: the name is empty"},
    {"live --demo --bits 8", 2, "--demo excludes --bits"},
    {"live --demo --log /none/log", 1, "can't write the log /none/log"},
    {"live --demo --raw /none/raw", 1, "can't write the recording /none/raw: No such file"},
    {"live --demo --as-is --factor 1000 --raw /dev/full", 1, "ends here: No space left"},
    {"emulate '/none\n\t\x7F'", 1, "/none???: No such file"},
    {"emulate /none", 1, "can't read /none: No such file"},
    {"emulate /dev/null", 1, "nothing to play"},
    {"emulate ''", 2, "FILE: the name is empty"},
    {"emulate --link ''", 2, "--link: the name is empty"},
    {"emulate --period -1", 2, "--period"},
    {"emulate --link /", 1, "/ exists already"},
    {"replay", 2, "FILE"},
    {"replay ''", 2, "FILE: the name is empty"},
    {"replay /", 1, "name a log file"},
    {"replay /dev/null", 1, "gave no epoch"},
    {"replay /etc/passwd", 1, "is no NMEA log"},
    {"replay /etc/passwd --rate 0", 2, "--rate"},
    {"replay /etc/passwd --smooth ''", 2, "--smooth: the name is empty"},
    {"replay --smooth velocty /etc/passwd", 2, "velocty is no model"},
    {"simulate", 2, "ROUTE"},
    {"simulate ''", 2, "ROUTE: the name is empty"},
    {"simulate /etc/passwd --nmea ''", 2, "--nmea: the name is empty"},
    {"simulate /", 1, "can't read /"},
    {"simulate /etc/passwd", 1, "/etc/passwd, line "},
    {"simulate /etc/passwd --speed 301", 2, "--speed"},
    {"simulate /etc/passwd --speed 0", 2, "from 0.001 to 300"},
    {"simulate /etc/passwd --step nan", 2, "--step"},
    {"simulate /etc/passwd --step 1.0000000001", 2, "at most 9 digits"},
};

TEST(CommandLine, AFailureIsOneLineThatTellsWhatIsWrong)
{
    for (const Complaint& complaint : COMPLAINTS) {
        Program program(std::string(complaint.arguments) + " 2>&1 >/dev/null");
        const auto lines = program.Lines();
        ASSERT_EQ(lines.size(), 1U) << complaint.arguments;
        EXPECT_EQ(lines[0].find("kestgps: "), 0U) << lines[0];
        EXPECT_NE(lines[0].find(complaint.told), std::string::npos) << lines[0];
        EXPECT_EQ(program.Status(), complaint.status) << complaint.arguments;
    }
}

TEST(CommandLine, ADeviceInUseASilentOneAndOneOfOtherSettingsAreToldApart)
{
    const kestgps::Emulator silent("", {});
    const std::string live =
        "live --device " + silent.DevicePath() + " --stop 2 --seconds 0.2 2>&1 >/dev/null";
    const kestgps::FileDescriptor user(open(silent.DevicePath().c_str(), O_RDWR | O_NOCTTY | O_CLOEXEC));
    Program waits(live);
    EXPECT_NE(waits.Line().find("no epoch came"), std::string::npos);
    EXPECT_EQ(waits.Status(), 1);
    termios line{};
    ASSERT_EQ(tcgetattr(user.Get(), &line), 0);
    EXPECT_NE(line.c_cflag & CSTOPB, 0U);
    Program odd("live --parity odd --stop 2 2>&1 --device " + silent.DevicePath());
    EXPECT_NE(odd.Line().find("refuses the settings --baud 9600 --parity odd --bits 8 --stop 2"),
              std::string::npos);
    EXPECT_EQ(odd.Status(), 1);

    ASSERT_EQ(flock(user.Get(), LOCK_EX), 0);
    Program refused(live);
    EXPECT_NE(refused.Line().find("busy"), std::string::npos);
    EXPECT_EQ(refused.Status(), 1);
}

TEST(CommandLine, LivePrintsTheEpochsAskedForAndTheSummary)
{
    Program program("live --demo --factor 1000 --epochs 3 --events --state");
    const std::string parked = "08:30:00  fix   50.0000000   10.0000000    0.0 km/h   20.0 deg  satellites  "
                               "8/11  pdop 1.7 hdop 0.9 vdop 1.4"
                               "  move slow, heading turning\n";
    EXPECT_EQ(program.Line(), "event 1002 moved\n"); // away from 0, 0
    EXPECT_EQ(program.Line(), "event 1001 epoch\n");
    EXPECT_EQ(program.Line(), parked);
    EXPECT_EQ(program.LastLine(), "events: 1001 epoch 3, 1002 moved 1\n");
    EXPECT_EQ(program.Status(), 0);
}

TEST(CommandLine, LiveEndsWellWhenItsReaderGoesAndBadlyWhenItsDiskIsFull)
{
    Program left("live --demo --factor 1000 2>&1");
    EXPECT_EQ(left.Line().substr(0, 13), "08:30:00  fix");
    EXPECT_EQ(left.Status(), 0); // it ends by itself and by no signal

    Program full("live --demo --factor 1000 2>&1 >/dev/full");
    EXPECT_NE(full.Line().find("can't write the output"), std::string::npos);
    EXPECT_EQ(full.Status(), 1);
}

TEST(CommandLine, SignalsEndLiveWithItsSummary)
{
    Program program("live --demo --factor 1000");
    program.Line();
    kill(program.Id(), SIGINT); // both at once, as whoever ends a whole group does
    kill(program.Id(), SIGTERM);
    EXPECT_EQ(program.LastLine().substr(0, 19), "events: 1001 epoch ");
    EXPECT_EQ(program.Status(), 0);
}

TEST(CommandLine, SignalsCutOtherCommandsShortWithAWordAndTheirStatus)
{
    const support::TemporaryFolder folder;
    const std::string pipe = folder.Path("pipe");
    ASSERT_EQ(mkfifo(pipe.c_str(), S_IRUSR | S_IWUSR), 0);
    const std::string route = folder.File("route", "10,50\n10,51\n");
    const std::string log = folder.File("log", kestgps::DemoDrive());
    struct {
        std::string arguments;
        int signal;
        const char* name;
        bool reading; // of the pipe; else it prints
    } const cases[] = {
        {"emulate " + pipe, SIGINT, "SIGINT", true},
        {"simulate " + pipe, SIGTERM, "SIGTERM", true},
        {"replay " + pipe, SIGHUP, "SIGHUP", true},
        {"replay --rate 0.001 " + log, SIGINT, "SIGINT", false},
        {"simulate --rate 0.001 " + route, SIGTERM, "SIGTERM", false},
        {"simulate --rate 0.001 --nmea /dev/stdout " + route, SIGHUP, "SIGHUP", false},
    };
    for (const auto& row : cases) {
        Program program(row.arguments + " 2>&1");
        const kestgps::FileDescriptor writer(row.reading ? open(pipe.c_str(), O_WRONLY | O_CLOEXEC)
                                                         : -1); // waits for its reader
        if (!row.reading) {
            program.Line();
        }
        kill(program.Id(), row.signal);
        EXPECT_NE(program.LastLine().find(std::string("interrupted by ") + row.name), std::string::npos);
        EXPECT_EQ(program.Status(), 128 + row.signal) << row.arguments;
    }
}

TEST(CommandLine, ASignalEndsLiveWhileNobodyReadsItsLog)
{
    const support::TemporaryFolder folder;
    const std::string pipe = folder.Path("pipe");
    ASSERT_EQ(mkfifo(pipe.c_str(), S_IRUSR | S_IWUSR), 0);
    const kestgps::Emulator silent("", {});
    const kestgps::FileDescriptor user(open(silent.DevicePath().c_str(), O_RDWR | O_NOCTTY | O_CLOEXEC));
    Program live("live --stop 2 2>&1 --log " + pipe + " --device " + silent.DevicePath());
    for (termios line{}; (line.c_cflag & CSTOPB) == 0; std::this_thread::yield()) {
        ASSERT_EQ(tcgetattr(user.Get(), &line), 0);
    }
    kill(live.Id(), SIGTERM);
    const kestgps::FileDescriptor reader(
        open(pipe.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC)); // frees one that didn't end
    EXPECT_EQ(live.Status(), 128 + SIGTERM);
}

TEST(CommandLine, ADriveThatIsCutShortOrGoesToItsRouteChangesNoFile)
{
    const support::TemporaryFolder folder;
    const std::string points = "10,50\n10,51\n";
    const std::string route = folder.File("route", points);
    const std::string old = folder.File("old", "before");
    const auto names = [&folder] { return std::distance(fs::directory_iterator(folder.Path("")), {}); };
    Program cut("simulate --rate 0.001 --nmea " + old + " " + route + " 2>/dev/null");
    while (names() < 3) { // its file beside the old one
        std::this_thread::yield();
    }
    kill(cut.Id(), SIGINT);
    EXPECT_EQ(cut.Status(), 128 + SIGINT);
    for (const char* const output : {" --nmea ", " >>"}) {
        EXPECT_EQ(
            Program(std::string("2>/dev/null simulate ").append(route).append(output).append(route)).Status(),
            1);
    }
    EXPECT_EQ(names(), 2);
    EXPECT_EQ(folder.Content("old"), "before");
    EXPECT_EQ(folder.Content("route"), points);
}

TEST(CommandLine, OutputNeverGoesToTheFileThatIsRead)
{
    const support::TemporaryFolder folder;
    const std::string log = folder.File("log", kestgps::DemoDrive());
    for (const char* const command : {"replay ", "emulate --factor 1000000 ", "live --demo --log "}) {
        EXPECT_EQ(Program(std::string(command).append(log).append(" 2>/dev/null >>").append(log)).Status(), 1)
            << command;
    }
    EXPECT_TRUE(folder.Content("log") == kestgps::DemoDrive());
}

TEST(CommandLine, EmulateFailsWhenItsLineBreaks)
{
    const support::TemporaryFolder folder;
    const std::string link = folder.Path("device");
    CLI::App app;
    kestgps::EmulateCommand emulate(app);
    app.parse("emulate --loop --period 0.001 --link " + link);
    std::thread breaker([&link] {
        while (!fs::is_symlink(link)) {
            std::this_thread::yield();
        }
        const kestgps::FileDescriptor full(open("/dev/full", O_WRONLY | O_CLOEXEC));
        for (const auto& open : fs::directory_iterator("/proc/self/fd")) {
            if (fs::is_character_file(open) && fs::read_symlink(open).filename() == "ptmx") {
                // In the place of the device's end; called past the thread sanitizer, which sees a race in
                // it.
                syscall(SYS_dup3, full.Get(), std::stoi(open.path().filename()), O_CLOEXEC);
            }
        }
    });
    EXPECT_THROW(emulate.Run(), kestgps::ToolError);
    breaker.join();
}

TEST(CommandLine, EmulatePlaysTheDriveUnderBothItsNames)
{
    const std::string link = testing::TempDir() + "kestgps-test-" + std::to_string(getpid());
    Program program("emulate --factor 1000000 --link " + link);
    const std::string path = program.Line();
    char target[64] = "";
    EXPECT_GT(readlink(link.c_str(), target, sizeof target - 1), 0);
    EXPECT_EQ(path, target + std::string("\n"));
    EXPECT_TRUE(LineReader(link).ReadToEnd() == kestgps::DemoDrive());
    EXPECT_EQ(program.Status(), 0);
    EXPECT_NE(access(link.c_str(), F_OK), 0);
}

// The acceleration model rewrites the speed, the velocity model leaves it; both move the second fix.
TEST(CommandLine, SmoothTakesAModelsNameOrNoneInFrontOfTheFileToo)
{
    const support::TemporaryFolder folder;
    std::string drive;
    for (const char* const second : {"1", "2"}) {
        const std::string place =
            std::string(",10150") + second + ",3114.00" + second + ",N,12129.00" + second;
        drive += support::Sentence("GPRMC" + place.substr(0, 7) + ",A" + place.substr(7) +
                                   ",E,10.0,045.0,221126,,") +
                 support::Sentence("GPGGA" + place + ",E,1,08,0.9,12.5,M,,M,,");
    }
    const std::string log = folder.File("log", drive);
    const auto last = [](const std::string& arguments) { return Program("replay " + arguments).LastLine(); };
    const std::string velocity = last("--smooth velocity " + log);
    EXPECT_EQ(velocity.substr(39), last(log).substr(39));
    EXPECT_NE(velocity, last(log));
    EXPECT_NE(last(log + " --smooth acceleration").substr(39), velocity.substr(39));
    EXPECT_EQ(last("--smooth " + log + " --rate 1000"), velocity);
    EXPECT_EQ(last(log + " --smooth"), velocity);
}

} // namespace

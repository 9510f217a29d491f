#include "bench/study/Cases.h"

#include "bench/study/Ledger.h"

namespace study
{

namespace
{

constexpr int MANY_RUNS = 20;

/// A receiver that differs from the usual one.
using Change = void (*)(Traits&);

struct Kind {
    const char* name;
    Change change;
};

template <std::size_t COUNT>
std::vector<Case> CasesOf(const Kind (&kinds)[COUNT], int runs = Case().runs)
{
    std::vector<Case> cases;
    for (const Kind& kind : kinds) {
        cases.push_back({kind.name, {}, runs});
        kind.change(cases.back().traits);
    }
    return cases;
}

void Drifting(Traits& traits, double white, double drift, double time)
{
    traits.white = white;
    traits.drift = drift;
    traits.driftTime = time;
}

void Knots(Traits& traits)
{
    traits.speedStep = 0.1852; // a tenth
    traits.headingStep = 0.1;
}

} // namespace

Case UsualCase()
{
    return {"5 m", {}, MANY_RUNS};
}

std::vector<Case> NoiseCases()
{
    static constexpr Kind KINDS[] = {
        {"1 m", [](Traits& t) { t.white = 1.0; }},
        {"3 m", [](Traits& t) { t.white = 3.0; }},
        {"8 m", [](Traits& t) { t.white = 8.0; }},
        {"10 m", [](Traits& t) { t.white = 10.0; }},
    };
    return CasesOf(KINDS);
}

std::vector<Case> RateCases()
{
    static constexpr Kind KINDS[] = {
        {"0.2 Hz", [](Traits& t) { t.rate = 0.2; }}, {"0.5 Hz", [](Traits& t) { t.rate = 0.5; }},
        {"2 Hz", [](Traits& t) { t.rate = 2.0; }},   {"5 Hz", [](Traits& t) { t.rate = 5.0; }},
        {"10 Hz", [](Traits& t) { t.rate = 10.0; }}, {"20 Hz", [](Traits& t) { t.rate = 20.0; }},
    };
    return CasesOf(KINDS);
}

std::vector<Case> BurstCases()
{
    static constexpr Kind KINDS[] = {
        {"bursts of 20 to 100 m, 5 m", [](Traits& t) { t.burstEvery = 60.0; }},
        {"bursts of 20 to 100 m, 2 m drifting over 60 s",
         [](Traits& t) {
             t.burstEvery = 60.0;
             Drifting(t, 0.3, 2.0, 60.0);
         }},
    };
    return CasesOf(KINDS, MANY_RUNS);
}

std::vector<Case> WeakCases()
{
    static constexpr Kind KINDS[] = {
        {"5 m, velocity 0.05 m/s", [](Traits& t) { t.velocity = 0.05; }},
        {"5 m, velocity 1 m/s", [](Traits& t) { t.velocity = 1.0; }},
        {"1 m, velocity 1 m/s",
         [](Traits& t) {
             t.white = 1.0;
             t.velocity = 1.0;
         }},
        {"5 m drifting over 30 s", [](Traits& t) { Drifting(t, 0.0, 5.0, 30.0); }},
        {"5 m drifting over 120 s", [](Traits& t) { Drifting(t, 0.0, 5.0, 120.0); }},
        {"1 m drifting over 30 s, velocity 1 m/s",
         [](Traits& t) {
             Drifting(t, 0.0, 1.0, 30.0);
             t.velocity = 1.0;
         }},
        {"2 m, and 4 m drifting over 60 s", [](Traits& t) { Drifting(t, 2.0, 4.0, 60.0); }},
        {"3 m drifting over 30 s, 10 Hz",
         [](Traits& t) {
             Drifting(t, 0.1, 3.0, 30.0);
             t.rate = 10.0;
         }},
        {"5 m smoothed over 5 s by the receiver", [](Traits& t) { t.smoothing = 5.0; }},
        {"3 m, digits of 0.001 minutes, 1 km/h",
         [](Traits& t) {
             t.white = 3.0;
             t.minuteStep = 1e-3;
             t.speedStep = 1.0;
             t.headingStep = 1.0;
         }},
        {"0.5 m, digits of 0.001 minutes, 0.1 knots",
         [](Traits& t) {
             t.white = 0.5;
             t.minuteStep = 1e-3;
             Knots(t);
         }},
        {"1 m, digits of 0.0001 minutes, 0.1 knots",
         [](Traits& t) {
             t.white = 1.0;
             t.minuteStep = 1e-4;
             Knots(t);
         }},
        {"5 m, velocity 0.5 s old", [](Traits& t) { t.latency = 0.5; }},
        {"5 m, velocity 1 s old", [](Traits& t) { t.latency = 1.0; }},
        {"1 m, velocity 1 s old",
         [](Traits& t) {
             t.white = 1.0;
             t.latency = 1.0;
         }},
        {"3 m drifting over 60 s, velocity 1 s old",
         [](Traits& t) {
             Drifting(t, 0.0, 3.0, 60.0);
             t.latency = 1.0;
         }},
        {"5 m, velocity 2 s old", [](Traits& t) { t.latency = 2.0; }},
        {"1 m, velocity 2 s old",
         [](Traits& t) {
             t.white = 1.0;
             t.latency = 2.0;
         }},
        {"0.2 m, and 3 m drifting over 60 s, velocity 2 s old",
         [](Traits& t) {
             Drifting(t, 0.2, 3.0, 60.0);
             t.latency = 2.0;
         }},
        {"5 m, speed 5 % too high", [](Traits& t) { t.speedScale = 1.05; }},
        {"1 m, speed 5 % too high",
         [](Traits& t) {
             t.white = 1.0;
             t.speedScale = 1.05;
         }},
        {"5 m, heading 5 degrees off", [](Traits& t) { t.headingOff = 5.0; }},
        {"1 m, heading 5 degrees off",
         [](Traits& t) {
             t.white = 1.0;
             t.headingOff = 5.0;
         }},
        {"0.2 m, and 3 m drifting over 60 s, speed 5 % too high",
         [](Traits& t) {
             Drifting(t, 0.2, 3.0, 60.0);
             t.speedScale = 1.05;
         }},
        {"0.2 m, and 3 m drifting over 60 s, heading 5 degrees off",
         [](Traits& t) {
             Drifting(t, 0.2, 3.0, 60.0);
             t.headingOff = 5.0;
         }},
        {"5 m, heading at random below 4 km/h", [](Traits& t) { t.headingLeast = 4.0; }},
        {"2 m, frozen below 1 m/s",
         [](Traits& t) {
             t.white = 2.0;
             t.freezeBelow = 1.0;
         }},
        {"5 m, one epoch in ten missing", [](Traits& t) { t.missing = 0.1; }},
        {"5 m, 5 Hz, one epoch in ten missing",
         [](Traits& t) {
             t.missing = 0.1;
             t.rate = 5.0;
         }},
        {"5 m, one fix in ten not valid", [](Traits& t) { t.invalid = 0.1; }},
        {"5 m, tunnels", [](Traits& t) { t.tunnelEvery = 200.0; }},
        {"2 m drifting over 60 s, tunnels",
         [](Traits& t) {
             Drifting(t, 0.3, 2.0, 60.0);
             t.tunnelEvery = 200.0;
         }},
        {"5 m, one speed in ten lost", [](Traits& t) { t.torn = 0.1; }},
        {"2 m drifting over 60 s, one speed in ten lost",
         [](Traits& t) {
             Drifting(t, 0.3, 2.0, 60.0);
             t.torn = 0.1;
         }},
        {"5 m, no speed", [](Traits& t) { t.speedless = true; }},
        {"2 m, no heading",
         [](Traits& t) {
             t.white = 2.0;
             t.headingless = true;
         }},
        {"5 m, no time", [](Traits& t) { t.timeless = true; }},
        {"5 m, no time, 5 Hz",
         [](Traits& t) {
             t.timeless = true;
             t.rate = 5.0;
         }},
        {"5 m, velocity stuck after 100 s", [](Traits& t) { t.stuckAfter = 100.0; }},
        {"1 m, velocity stuck after 100 s",
         [](Traits& t) {
             t.white = 1.0;
             t.stuckAfter = 100.0;
         }},
        {"0.2 m, and 3 m drifting over 60 s, velocity stuck after 100 s",
         [](Traits& t) {
             Drifting(t, 0.2, 3.0, 60.0);
             t.stuckAfter = 100.0;
         }},
    };
    return CasesOf(KINDS);
}

OfModels<Score> Rides(const Drive& drive, const Case& of, Ledger& ledger)
{
    OfModels<Score> all;
    for (int run = 0; run < of.runs; ++run) {
        Dice dice(of.name + "/" + drive.name + "/" + std::to_string(run));
        const OfModels<Score> one = Ride(TrackOf(drive), of.traits, dice);
        for (std::size_t model = 0; model < MODELS; ++model) {
            all[model].Add(one[model]);
        }
    }
    ledger.Add(of.name, drive.name, Results(all));
    return all;
}

} // namespace study

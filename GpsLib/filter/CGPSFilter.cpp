#include "GpsLib/filter/CGPSFilter.h"

#include <cmath>
#include <cstddef>
#include <new>

#include "GpsLib/math/SinCos.h"
#include "GpsLib/records/GPSUnits.h"

namespace GPS
{

namespace
{

constexpr int STATE_SIZE = 6;    // lon, lat, east and north velocity, east and north acceleration
constexpr int OBSERVED_SIZE = 4; // the first four of these

constexpr double DEGREES_TO_RADIANS = 0.017453292519943295;
constexpr double MS_TO_KMH = 3.6;

constexpr double SEED_ACCELERATION = 1.0; // [m/s per step], not 0

// Diagonals, in state or observation order: degrees, m/s and m/s per step, squared.
constexpr double SEED_COVARIANCE[STATE_SIZE] = {1e-8, 1e-8, 9.0, 9.0, 25.0, 25.0};
constexpr double PROCESS_NOISE[STATE_SIZE] = {1e-11, 1e-11, 0.001, 0.001, 0.1, 0.1};
constexpr double MEASUREMENT_NOISE[OBSERVED_SIZE] = {4e-8, 4e-8, 25.0, 25.0};
constexpr double MEASURED[OBSERVED_SIZE] = {1.0, 1.0, 1.0, 1.0};

template <std::size_t SIZE>
void WriteDiagonal(CMatrix& matrix, const double (&values)[SIZE]) noexcept
{
    int i = 0;
    for (const double value : values) {
        matrix[i][i] = value;
        ++i;
    }
}

enum SPEED_CLASS { SPEED_CLASS_SLOW = 100, SPEED_CLASS_MEDIUM = 200, SPEED_CLASS_FAST = 300 };

/// Only the slow class has an effect: its headings are averaged, since a receiver's course is noise at
/// walking pace.
SPEED_CLASS SpeedClass(const _GPS_Filter_Data& data) noexcept
{
    constexpr double MEDIUM_FROM = 5.0; // [km/h]
    constexpr double FAST_FROM = 60.0;  // [km/h]
    if (data.speed < MEDIUM_FROM) {
        return SPEED_CLASS_SLOW;
    }
    return data.speed < FAST_FROM ? SPEED_CLASS_MEDIUM : SPEED_CLASS_FAST;
}

/// Turns a compass heading into an angle counter-clockwise from east, both in degrees.
void HeadingToAngle(double& heading) noexcept
{
    heading = heading >= 0.0 && heading <= 90.0 ? 90.0 - heading : 450.0 - heading;
}

/// Sine and cosine of the angle counter-clockwise from east: the north and the east part of the motion.
SinCos DirectionOf(const _GPS_Filter_Data& data) noexcept
{
    double angle = data.heading;
    HeadingToAngle(angle);
    return SinCosOf(angle * DEGREES_TO_RADIANS);
}

/// How the acceleration is carried into the next step, by the change of heading [deg]. While the heading
/// holds, the factor is above 1: the acceleration grows, and the observed velocity pulls it back.
double AccelerationFactor(double headingChange) noexcept
{
    if (headingChange > 20.0) {
        return 0.01839397206167837;
    }
    return headingChange > 5.0 ? 0.03678794412335674 : 18.39397206167837;
}

} // namespace

CGPSFilter* CGPSFilter::Make() noexcept
{
    try {
        return new CGPSFilter;
    } catch (const std::bad_alloc&) {
        return nullptr;
    }
}

CGPSFilter::CGPSFilter()
    : kalman(std::make_unique<CKalmanFilter>()),
      initialState(std::make_unique<CMatrix>(nullptr, STATE_SIZE)),
      transition(std::make_unique<CMatrix>(STATE_SIZE)),
      initialCovariance(std::make_unique<CMatrix>(STATE_SIZE)),
      processNoise(std::make_unique<CMatrix>(STATE_SIZE)),
      measurementMatrix(std::make_unique<CMatrix>(nullptr, STATE_SIZE, OBSERVED_SIZE)),
      measurementNoise(std::make_unique<CMatrix>(OBSERVED_SIZE)),
      lastHeading(0.0),
      firstFix(true)
{
}

void CGPSFilter::Filter(_GPS_Filter_Data& data) noexcept
{
    if (!data.valid) {
        firstFix = true;
        return;
    }
    const _GPS_Filter_Data asParsed = data;
    try {
        if (firstFix) {
            Seed(data, DirectionOf(data));
        } else {
            Step(data, DirectionOf(data));
        }
    } catch (const std::bad_alloc&) {
        kalman->SetObservation(nullptr); // the step's own, which is gone
        data = asParsed;
        firstFix = true;
    }
}

void CGPSFilter::Seed(const _GPS_Filter_Data& data, const SinCos& direction)
{
    CMatrix& seed = *initialState;
    seed[0][0] = data.lonLat.lon;
    seed[1][0] = data.lonLat.lat;
    seed[2][0] = data.speed * direction.cosine * KMH_TO_MS;
    seed[3][0] = data.speed * direction.sine * KMH_TO_MS;
    seed[4][0] = SEED_ACCELERATION;
    seed[5][0] = SEED_ACCELERATION;
    WriteDiagonal(*initialCovariance, SEED_COVARIANCE);
    WriteDiagonal(*processNoise, PROCESS_NOISE);
    WriteDiagonal(*measurementNoise, MEASUREMENT_NOISE);
    WriteDiagonal(*measurementMatrix, MEASURED);
    kalman->SetProcessNoise(processNoise.get());
    kalman->SetMeasurementNoise(measurementNoise.get());
    kalman->SetMeasurementMatrix(measurementMatrix.get());
    kalman->SetState(*initialState);
    kalman->SetCovariance(*initialCovariance);
    lastHeading = data.heading;
    firstFix = false;
}

void CGPSFilter::Step(_GPS_Filter_Data& data, const SinCos& direction)
{
    // The velocity comes from the raw heading, also where the heading is averaged below.
    const double observed[OBSERVED_SIZE] = {data.lonLat.lon, data.lonLat.lat,
                                            direction.cosine * data.speed * KMH_TO_MS,
                                            direction.sine * data.speed * KMH_TO_MS};
    if (SpeedClass(data) == SPEED_CLASS_SLOW) {
        data.heading = (data.heading + lastHeading) * 0.5;
    }
    // No wrap at 360, neither here nor in the average.
    WriteTransition(data, AccelerationFactor(std::fabs(lastHeading - data.heading)));
    kalman->SetTransition(transition.get());
    lastHeading = data.heading;
    CMatrix observation(observed, OBSERVED_SIZE);
    Correct(observation, data);
}

void CGPSFilter::WriteTransition(const _GPS_Filter_Data& data, double accelerationFactor) noexcept
{
    CMatrix& F = *transition;
    F[0][2] = data.unitDegreeLon;
    F[0][4] = data.unitDegreeLon * 0.5;
    F[1][3] = data.unitDegreeLat;
    F[1][5] = data.unitDegreeLat * 0.5;
    F[2][4] = 1.0;
    F[3][5] = 1.0;
    F[4][4] = accelerationFactor;
    F[5][5] = accelerationFactor;
}

void CGPSFilter::Correct(CMatrix& observed, _GPS_Filter_Data& data)
{
    double corrected[STATE_SIZE] = {};
    kalman->SetObservation(&observed);
    kalman->Predict();
    kalman->Update();
    kalman->GetState(corrected);
    data.lonLat = {corrected[0], corrected[1]};
    data.speed = std::sqrt(corrected[3] * corrected[3] + corrected[2] * corrected[2]) * MS_TO_KMH;
}

} // namespace GPS

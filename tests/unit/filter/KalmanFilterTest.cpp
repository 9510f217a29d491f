// The general filter on models small enough to work by hand; all the numbers are exact in binary.
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "GpsLib/filter/CKalmanFilter.h"
#include "tests/unit/filter/MatrixContent.h"

namespace
{

using GPS::CKalmanFilter;
using GPS::CMatrix;

/// Place and speed, of which the place is observed.
class KalmanFilter : public testing::Test
{
protected:
    KalmanFilter()
    {
        filter.SetTransition(&F);
        filter.SetMeasurementMatrix(&H);
        filter.SetProcessNoise(&Q);
        filter.SetMeasurementNoise(&R);
        filter.SetState(x);
        filter.SetCovariance(P);
    }

    std::vector<double> Step(double observed)
    {
        CMatrix z = Matrix({{observed}});
        filter.SetObservation(&z);
        filter.Predict();
        filter.Update();
        return State();
    }

    std::vector<double> State() const
    {
        std::vector<double> state{-1, -1};
        filter.GetState(state.data());
        return state;
    }

    CMatrix F = Matrix({{1, 1}, {0, 1}});
    CMatrix H = Matrix({{1, 0}});
    CMatrix Q = Matrix({{1, 0}, {0, 1}});
    CMatrix R = Matrix({{3}});
    CMatrix x = Matrix({{0}, {2}});
    CMatrix P = Matrix({{3, 0}, {0, 1}});
    CKalmanFilter filter;
};

// Predicted (2, 2), covariance (5, 1; 1, 2); S = 8, gain (0.625, 0.125), innovation 8.
// Then covariance (1.875, 0.375; 0.375, 1.875), predicted (10, 3); with the new Q (5, 2.25; 2.25, ...), S =
// 8, gain (0.625, 0.28125), innovation 8.
TEST_F(KalmanFilter, TwoStepsByHandAndNothingWithoutAnObservation)
{
    filter.Predict();
    filter.Update();
    EXPECT_EQ(State(), (std::vector<double>{-1, -1})); // no corrected state yet
    EXPECT_EQ(Step(10), (std::vector<double>{7, 3}));
    filter.Predict();
    filter.Update();
    EXPECT_EQ(State(), (std::vector<double>{7, 3}));
    Q[0][0] = 0.5; // read through the pointer at the next step
    EXPECT_EQ(Step(18), (std::vector<double>{15, 5.25}));
}

TEST_F(KalmanFilter, IsReadyWithModelAndObservationUntilUpdate)
{
    CMatrix z = Matrix({{10}});
    EXPECT_FALSE(filter.IsReady());
    filter.SetObservation(&z);
    const std::pair<void (CKalmanFilter::*)(CMatrix*), CMatrix*> borrowed[] = {
        {&CKalmanFilter::SetTransition, &F},
        {&CKalmanFilter::SetMeasurementMatrix, &H},
        {&CKalmanFilter::SetProcessNoise, &Q},
        {&CKalmanFilter::SetMeasurementNoise, &R}};
    for (const auto& [set, matrix] : borrowed) {
        (filter.*set)(nullptr);
        EXPECT_FALSE(filter.IsReady());
        filter.Predict(); // would follow the null
        (filter.*set)(matrix);
        EXPECT_TRUE(filter.IsReady());
    }
    filter.Predict();
    EXPECT_TRUE(filter.IsReady());
    filter.Update();
    EXPECT_FALSE(filter.IsReady());
}

TEST_F(KalmanFilter, SeedIsCopiedAndMayComeAgain)
{
    x[0][0] = 100;
    P[0][0] = 100;
    EXPECT_EQ(Step(10), (std::vector<double>{7, 3}));
    filter.SetState(Matrix({{0}, {2}}));
    filter.SetCovariance(Matrix({{3, 0}, {0, 1}}));
    EXPECT_EQ(Step(10), (std::vector<double>{7, 3}));
}

TEST_F(KalmanFilter, SingularInnovationMakesTheGainTheCovarianceTimesH)
{
    R[0][0] = -5; // S = 5 - 5
    EXPECT_EQ(Step(10), (std::vector<double>{2 + 5 * 8, 2 + 1 * 8}));
    EXPECT_FALSE(filter.IsReady());
}

} // namespace

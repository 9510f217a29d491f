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

    CMatrix F = Matrix({{1, 1}, {0, 1}});
    CMatrix H = Matrix({{1, 0}});
    CMatrix Q = Matrix({{1, 0}, {0, 1}});
    CMatrix R = Matrix({{3}});
    CMatrix x = Matrix({{0}, {2}});
    CMatrix P = Matrix({{3, 0}, {0, 1}});
    CKalmanFilter filter;
};

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

// Predicted (2, 2), covariance (5, 1; 1, 2), innovation 10 - 2.
TEST_F(KalmanFilter, SingularInnovationMakesTheGainTheCovarianceTimesH)
{
    CMatrix z = Matrix({{10}});
    std::vector<double> state{-1, -1};
    filter.GetState(state.data());
    EXPECT_EQ(state, (std::vector<double>{-1, -1})) << "no corrected state yet";
    R[0][0] = -5; // S = 5 - 5; read through the pointer
    filter.SetObservation(&z);
    filter.Predict();
    filter.Update();
    filter.GetState(state.data());
    EXPECT_EQ(state, (std::vector<double>{2 + 5 * 8, 2 + 1 * 8}));
}

} // namespace

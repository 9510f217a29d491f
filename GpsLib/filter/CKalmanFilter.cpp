// The equations of the discrete Kalman filter, in the short form of the covariance update. Each product is
// formed pairwise in the order of the parentheses: the results' bits rest on it.
#include "GpsLib/filter/CKalmanFilter.h"

namespace GPS
{

CKalmanFilter::CKalmanFilter() noexcept
    : transition(nullptr),
      control(nullptr),
      measurementMatrix(nullptr),
      processNoise(nullptr),
      measurementNoise(nullptr),
      controlInput(nullptr),
      observation(nullptr),
      useControl(false)
{
}

bool CKalmanFilter::IsReady() const noexcept
{
    const bool hasModel = transition != nullptr && measurementMatrix != nullptr && processNoise != nullptr &&
                          measurementNoise != nullptr;
    const bool hasControl = controlInput != nullptr && control != nullptr;
    return observation != nullptr && hasModel && (!useControl || hasControl);
}

void CKalmanFilter::Predict()
{
    if (!IsReady()) {
        return;
    }
    const CMatrix& F = *transition;
    const CMatrix& Q = *processNoise;
    if (useControl) {
        predictedState = (F * state) + (*control * *controlInput);
    } else {
        predictedState = F * state;
    }
    predictedCovariance = ((F * covariance) * F.Transpose()) + Q;
}

void CKalmanFilter::Update()
{
    if (observation == nullptr) {
        return;
    }
    const CMatrix& H = *measurementMatrix;
    const CMatrix& R = *measurementNoise;
    const CMatrix& z = *observation;
    const CMatrix A = predictedCovariance * H.Transpose();
    const CMatrix S = (H * A) + R;
    CMatrix V;
    S.Inverse(V); // stays empty when S is singular; the product below is then A itself
    gain = A * V;
    const CMatrix y = z - (H * predictedState);
    correctedState = predictedState + (gain * y);
    correctedCovariance = (CMatrix(gain.Rows()) - (gain * H)) * predictedCovariance; // I - K H
    covariance = correctedCovariance;
    state = correctedState;
    observation = nullptr;
}

} // namespace GPS

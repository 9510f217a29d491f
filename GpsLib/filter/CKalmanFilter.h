// CKalmanFilter.h: a general linear Kalman filter.
#pragma once

#include "GpsLib/filter/CMatrix.h"

namespace GPS
{

/// Predict and update on whatever shapes it is given. It owns state and covariance; the model matrices and
/// the observation stay the caller's, are read through pointers at each step and may be rewritten between
/// steps.
///
/// Throws: std::bad_alloc from SetState, SetCovariance, Predict and Update; the filter then wants a new seed.
/// Thread: one at a time.
class CKalmanFilter
{
public:
    CKalmanFilter() noexcept;

    // Borrowed until replaced; never written or deleted here.
    void SetTransition(CMatrix* matrix) noexcept { transition = matrix; }
    void SetMeasurementMatrix(CMatrix* matrix) noexcept { measurementMatrix = matrix; }
    void SetProcessNoise(CMatrix* matrix) noexcept { processNoise = matrix; }
    void SetMeasurementNoise(CMatrix* matrix) noexcept { measurementNoise = matrix; }
    /// Borrowed for one step: Update lets go of it.
    void SetObservation(CMatrix* vector) noexcept { observation = vector; }

    // Copied; together a seed, which may come at any time between steps.
    void SetState(const CMatrix& vector) { state = vector; }
    void SetCovariance(const CMatrix& matrix) { covariance = matrix; }

    /// Result: true when a step has all it needs, the observation included.
    bool IsReady() const noexcept;

    /// Time update. Does nothing unless the filter is ready.
    void Predict();

    /// Measurement update; ends the step. Does nothing without an observation. With a singular innovation
    /// covariance the gain is the predicted covariance times the transposed measurement matrix.
    void Update();

    /// Writes the corrected state. out: one double for each of its elements; nothing before the first Update.
    void GetState(double* out) const noexcept { correctedState.CopyOut(out); }

private:
    CMatrix* transition;         // borrowed, F
    CMatrix* control;            // borrowed, B
    CMatrix predictedCovariance; // after Predict
    CMatrix correctedCovariance; // after Update
    CMatrix covariance;          // carried from step to step, P
    CMatrix* measurementMatrix;  // borrowed, H
    CMatrix gain;                // of the last Update, K
    CMatrix* processNoise;       // borrowed, Q
    CMatrix* measurementNoise;   // borrowed, R
    CMatrix state;               // carried from step to step, x
    CMatrix predictedState;      // after Predict
    CMatrix correctedState;      // after Update
    CMatrix* controlInput;       // borrowed, u
    CMatrix* observation;        // borrowed for one step, z; null between steps
    bool useControl;             // the control term is applied; nothing sets it yet
};

} // namespace GPS

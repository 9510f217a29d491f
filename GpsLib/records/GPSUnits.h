// GPSUnits.h: factors between units that more than one formula needs.
#pragma once

constexpr double KMH_TO_MS = 0.2777777777777778; // nearest double to 1/3.6; multiplied, never divided

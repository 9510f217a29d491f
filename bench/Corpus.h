// Corpus.h: epochs of a receiver on the move, as it would send them.
#pragma once

#include <string>
#include <vector>

/// The sentences of an epoch, in order.
enum SENTENCE { GGA, GLL, GSA, GSV_1, GSV_2, GSV_3, RMC, VTG, ZDA, SENTENCES_A_EPOCH };

/// body: what stands between "$" and "*". Result: the whole sentence with its line end.
std::string Sentence(const std::string& body);

/// One epoch, line ends included. second: [s] since the drive began; times, positions and motion change with
/// it.
std::vector<std::string> Epoch(int second);

/// Whole epochs one after the other.
std::vector<std::string> Epochs(int count);

/// Sentences of an epoch of a receiver of today.
constexpr int SENTENCES_OF_TODAY = 23;

/// The same drive as a receiver of today tells it: one fix of four systems, seven decimals of a minute, GSA
/// with system numbers, GSV with signal numbers.
std::vector<std::string> EpochOfToday(int second);

/// The sentences joined to chunks of at most 512 bytes, as a port would hand them out; no sentence is cut.
std::vector<std::string> Chunks(const std::vector<std::string>& sentences);

// Sections.h: the parts of the page, each with its tables, its plots' data and its promises.
#pragma once

#include <string>

namespace study
{

class Ledger;
class Report;

/// Every drive with the usual receiver, with more and less noise, and at other rates.
void StudyDrives(Report& report, Ledger& ledger);
/// Every drive with receivers that have weaknesses and faults.
void StudyReceivers(Report& report, Ledger& ledger);
/// Fixes a kilometre off.
void StudyOutliers(Report& report);
/// How long a manoeuvre is felt.
void StudyManoeuvres(Report& report);
/// How long a velocity is felt that was wrong for a while.
void StudyWrongVelocities(Report& report);
/// Five hundred drives and receivers thought out by dice.
void StudyRandomDrives(Report& report);
/// A picture: once through a city.
void DrawCity(Report& report);

/// Tells on standard output, as a table, what the models make of the NMEA files of a folder.
/// copies: a folder for what the replay takes of them, which is made.
/// Throws: std::runtime_error.
void TellRecordings(const std::string& folder, const std::string& copies);

} // namespace study

// Particular coefficients: three rates worked out from project quantities
// the user types (the food and fuel transport subsidy, the site transfer and
// the region-dependent rate), their inputs kept in the project's PatCoe
// table, and the fee coefficient applied to every row's rate.
#pragma once

#include <array>
#include <cstdint>
#include <string>

#include "rates/rate_catalogue.h"

namespace kwfy {
class ControlCore;
}

namespace kwfy::rates {

inline const char kSubsidyRateKey[] = "FL_ZFSBT_GL";
inline const char kTransferRateKey[] = "FL_GDZY_GL";
inline const char kRegionRateKey[] = "FL_GLF_GL";

// Project PatCoe rows (one per project and key); a missing row reads "".
std::string GetPatCoeValue(db::Database& project, int16_t workId, const std::string& key);
std::string GetPatCoeCoe(db::Database& project, int16_t workId, const std::string& key);
// Add the row when missing, else change the first one.
void SavePatCoe(db::Database& project, int16_t workId, const std::string& key,
                const std::string& coe);
void SavePatCoeValue(db::Database& project, int16_t workId, const std::string& key,
                     const std::string& value);

// The weighted transport distance: the sum over the four supply items of
// weight x distance, each product rounded to 2 decimals; general number text.
std::string ComputeZFSBT(const std::array<std::string, 4>& weights,
                         const std::array<std::string, 4>& distances);

// Writes the region rate of `row` (0: the row that has the focus) for `cls`
// into cell (row, col): the value of the region's ruler, less the "More"
// value when withMore is 1, times coe, rounded to 3 decimals (ties to even)
// with "%"; "" when no ruler names the region or the rate is not above 0.00001.
// An empty region changes nothing.
void GetGLFRate(ControlCore& core, RateFiles& files, const std::string& region,
                const std::string& cls, int16_t withMore, int col, int row, double coe);

// Public operation: the region rate of the row that has the focus in every
// rate cell, composite rates brought up to date, the row stored, AfterEdit
// raised once committed.
void AnalyzeGFLCoe(ControlCore& core, const std::string& p_Text, const std::string& p_Class,
                   int16_t p_ChkTag);

// Re-resolves the rates of all rows with a new fee coefficient. Mode 2 (class
// columns, category-wide table): particular-coefficient rows are computed
// again from their stored quantities (the transfer in the table of its stored
// kind), other rows from their marks, and every class cell written is stored.
// Mode 1: the "费率" cell of each row from its marks (not stored, so that it
// keeps following the marks). Rows without a key and composite rows are left
// alone; so is a cell whose rate resolves to nothing. Runs inside the caller's
// transaction on files.Project().
void ApplyFYCoe(ControlCore& core, RateFiles& files, int mode, double coefficient);

// Writes the fee coefficient into every FY_FLFileName row of the project.
void SetFLFileCoe(db::Database& project, int16_t workId, const std::string& coe);

// Enter in the fee coefficient box: stores the box's number for the project,
// sets FYCoe (1 when the number is not above 0.000001) and re-resolves the
// rates under RateMode, all in one transaction. Nothing happens when the
// project database does not exist.
void ApplyFeeCoefficient(ControlCore& core, const std::string& boxText);

}  // namespace kwfy::rates

#pragma once

#include <string>

#include "crawl/report.h"

/// The report as text.
namespace crawl {

/// The header line of the report as comma-separated values (RFC 4180).
std::string CsvHeader();

/// The row as such a line. The address is copied byte for byte. Unknown values are empty.
std::string CsvLine(const ReportRow& row);

/// The number of addresses for each outcome, in one line: "20 saved, 1 not written (No space left
/// on device), 336 already there".
std::string SummaryOf(const AddressReport& report);

}  // namespace crawl

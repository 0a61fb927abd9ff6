#pragma once

#include <string>

#include "crawl/report.h"

/// The report as text.
namespace crawl {

/// The first line of the report as a file of comma-separated values (RFC 4180).
std::string CsvHeader();

/// The row as a line of such a file. The address stands there byte for byte; what the row does not
/// tell is left empty.
std::string CsvLine(const ReportRow& row);

/// How many addresses came to what, in one line: "20 saved, 1 not written (No space left on
/// device), 336 already there".
std::string SummaryOf(const AddressReport& report);

}  // namespace crawl

#pragma once

#include <string>
#include <vector>

/// Site setup. This file: the addresses with which downloads were started.
namespace bas_General {

/// The recent addresses without "http://", the last one first.
std::vector<std::string> RecentAddresses();

/// Adds an address as typed and makes it the first. Keeps at most 50.
void NoteAddress(const std::string& typed);

}  // namespace bas_General

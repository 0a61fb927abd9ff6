#pragma once

#include <string>
#include <vector>

/// Site setup. This file: the addresses that downloads were started with.
namespace bas_General {

/// They are without "http://", the one used last in front.
std::vector<std::string> RecentAddresses();

/// Puts an address, as it was typed, in front. The oldest of more than 50 goes.
void NoteAddress(const std::string& typed);

}  // namespace bas_General

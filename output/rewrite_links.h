#pragma once

#include <cstddef>
#include <string>
#include <string_view>

/// The local mirror. This file: the literal rules that make a saved page's links lead to the saved
/// files. They run on every file, whatever it is; each works on the whole text, in place.
namespace bas_Output {

/// Every LF becomes CR LF, then every CR becomes CR LF.
void DoubleLineEnds(std::string& page);

/// The number of bytes by which `DoubleLineEnds` makes a text longer.
std::size_t LineEndGrowth(std::string_view page);

/// Links to ".php" and ".asp" pages get the names that these are saved under.
void RewriteDynamicLinks(std::string& page);

/// Takes one "../" off the links of a page that lies directly in the site's folder.
void FlattenClimbingLinks(std::string& page);

/// Takes "http://host/" and "http://www.host/" off the links to `host`, the host that the page came
/// from. An empty host takes every "http://" away.
void MakeOwnLinksRelative(std::string& page, const std::string& host);

/// Keeps applets and scripts from running.
void DisableScripts(std::string& page);

}  // namespace bas_Output

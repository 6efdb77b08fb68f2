// The configuration file: four options in one line of text in the program folder.
#pragma once

#include <string>
#include <string_view>

#include "model/principal.h"

namespace falanges {

// Full path of the configuration file.
std::string configurationPath(const std::string& programFolder);

// Sets the four options to their defaults and reads the file over them. Of a file that is missing,
// unreadable or blank both permissions become "0" and the numbers keep their defaults.
// No range is checked; a number that does not fit its item leaves the default.
void readConfiguration(Principal& principal, const std::string& path);

// Writes the file with both permissions as they are and these two texts as the numbers, unchecked.
// False when it cannot be written.
[[nodiscard]] bool writeConfiguration(const Principal& principal, const std::string& path,
                                      std::string_view seconds, std::string_view moves);

} // namespace falanges

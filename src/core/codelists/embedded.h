#pragma once

#include <string_view>

// The data files of the code lists and the desktop files of the association,
// compiled into the program.
namespace parlex::embedded {

// The content of a data file by its name ("triggers.txt"), or empty if there is none.
std::string_view file(std::string_view name);

} // namespace parlex::embedded

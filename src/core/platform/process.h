#pragma once

#include <optional>
#include <string>
#include <vector>

namespace parlex::platform {

// Runs `program` (looked up on PATH when it has no slash) with `arguments`, its
// output thrown away, and waits for it. The exit status, or nothing when the
// program could not be started or did not end normally.
std::optional<int> runProgram(const std::string& program,
                              const std::vector<std::string>& arguments);

// Makes the console show what the program writes as UTF-8 (Windows); nothing where
// terminals speak UTF-8 already.
void useUtf8Console();

} // namespace parlex::platform

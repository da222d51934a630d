#pragma once

#include <optional>

namespace oldregister {

/// The first word of a command line that makes the program the reading process of an old register.
inline constexpr const char* readerWord = "--citaj-povodny-register";

/// Every program that takes registers over calls this first in its main(), as it is itself started
/// anew to read the file: a damaged one may end the reading, and then it does not end the program.
/// @return what main() returns at once; nothing in the program's usual run
std::optional<int> runAsReader(int argc, char** argv);

} // namespace oldregister

#pragma once

#include <string>
#include <vector>

namespace rulemesh {

/// The words by which this program starts the window's: OPEN FILE, or DRIVE STRICT FILE; "" for what is left out.
namespace WindowProgram {
inline constexpr char Open[] = "open";
inline constexpr char Drive[] = "drive";
inline constexpr char Strict[] = "strict";
} // namespace WindowProgram

/// Starts the program that has the window's toolkit, in the place of this one: this process becomes it. Comes back only
/// when that can't be done, which is told on standard error, with the exit status. `program` is the name by which this
/// program was called.
int BecomeWindowProgram(const char* program, const std::vector<std::string>& words);

} // namespace rulemesh

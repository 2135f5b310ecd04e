#pragma once

#include <cstddef>
#include <string>

namespace rulemesh {

/// The target table of every generated object, which is its root element's name too.
inline constexpr char16_t GeneratedTargetTable[] = u"GENOBJ01";

/// A mapping object of about so many bytes, the same at every call: a catalogue of source tables and target tables
/// with their fields, precondition, main queries with their dumps, functions, variables, and a rule for most fields of
/// each dump. The larger the object, the more tables, queries and dumps it has.
[[nodiscard]] std::string GeneratedObject(std::size_t bytes);

inline constexpr std::size_t SmallObject = 200'000;
inline constexpr std::size_t MediumObject = 5'000'000;
inline constexpr std::size_t LargeObject = 100'000'000;

} // namespace rulemesh

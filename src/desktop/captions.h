#pragma once

#include <QString>

#include "base/text.h"

namespace rulemesh {

/// Where the "&" of a caption's access key stands: the first one that has a letter or digit behind it;
/// `npos` in a caption without one. What follows may be a user's text, in which "&" means nothing.
[[nodiscard]] std::size_t AccessKeyMark(TextView caption) noexcept;

/// The letter or digit of a caption's access key, in upper case; 0 for none.
[[nodiscard]] int AccessKeyOf(TextView caption) noexcept;

/// The caption as a widget takes it that underlines what stands behind a "&".
[[nodiscard]] QString WithAccessKey(TextView caption);

/// The caption as it reads.
[[nodiscard]] QString WithoutAccessKey(TextView caption);

} // namespace rulemesh

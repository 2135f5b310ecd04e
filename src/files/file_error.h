#pragma once

#include <stdexcept>

namespace rulemesh {

/// Why a file can't be read or written, in UTF-8 and in words that say what to do about it.
class FileError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

} // namespace rulemesh

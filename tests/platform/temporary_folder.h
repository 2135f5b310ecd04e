#pragma once

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <stdexcept>
#include <string>
#include <string_view>

#include <unistd.h>

#include "base/utf8.h"

namespace rulemesh {

/// A folder of the test's own, gone with all that it holds when the test ends.
class TemporaryFolder {
public:
    TemporaryFolder()
    {
        std::string name = (std::filesystem::temp_directory_path() / "rulemesh-test-XXXXXX").native();
        if (::mkdtemp(name.data()) == nullptr)
            throw std::runtime_error("no temporary folder");
        path_ = name;
    }
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;
    ~TemporaryFolder()
    {
        std::error_code ignored;
        std::filesystem::remove_all(path_, ignored);
    }

    [[nodiscard]] std::filesystem::path operator/(std::string_view name) const { return path_ / name; }
    [[nodiscard]] const std::filesystem::path& Path() const noexcept { return path_; }

private:
    std::filesystem::path path_;
};

inline Text TextOf(const std::filesystem::path& path) { return FromUtf8(path.native()); }

inline void Put(const std::filesystem::path& path, std::string_view bytes)
{
    std::ofstream(path, std::ios::binary) << bytes;
}

inline std::string Contents(const std::filesystem::path& path)
{
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

/// Puts a variable of the environment back when the test ends.
class Environment {
public:
    Environment(const char* name, const std::string& value) : Environment(name) { ::setenv(name, value.c_str(), 1); }
    explicit Environment(const char* name) : name_(name)
    {
        if (const char* value = std::getenv(name))
            previous_ = value;
        else
            wasSet_ = false;
        ::unsetenv(name);
    }
    Environment(const Environment&) = delete;
    Environment& operator=(const Environment&) = delete;
    ~Environment()
    {
        if (wasSet_)
            ::setenv(name_, previous_.c_str(), 1);
        else
            ::unsetenv(name_);
    }

private:
    const char* name_;
    std::string previous_;
    bool wasSet_ = true;
};

} // namespace rulemesh

#include "support/samples.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>

#include <gtest/gtest.h>

namespace rulemesh {

std::string Sample(const std::string& name)
{
    std::ifstream file(std::string(RULEMESH_SAMPLES) + "/" + name, std::ios::binary);
    EXPECT_TRUE(file) << name;
    return {std::istreambuf_iterator<char>(file), {}};
}

std::vector<std::string> SampleNames()
{
    std::vector<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(RULEMESH_SAMPLES)) {
        if (entry.path().extension() == ".xml")
            names.push_back(entry.path().filename().native());
    }
    std::sort(names.begin(), names.end());
    return names;
}

} // namespace rulemesh

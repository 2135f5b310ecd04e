#include "support/samples.h"

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

} // namespace rulemesh

#pragma once

#include <filesystem>

#include <unistd.h>

#include <gtest/gtest.h>

namespace rulemesh {

/// The superuser may do what others are refused, so such a test runs as an ordinary user even where it is he who runs
/// the tests. The folder becomes that user's.
class OrdinaryUser {
public:
    explicit OrdinaryUser(const std::filesystem::path& folder)
    {
        constexpr uid_t Somebody = 65534;
        if (!isSuperuser_)
            return;
        changed_ = ::chown(folder.c_str(), Somebody, Somebody) == 0 && ::seteuid(Somebody) == 0;
        EXPECT_TRUE(changed_);
    }
    OrdinaryUser(const OrdinaryUser&) = delete;
    OrdinaryUser& operator=(const OrdinaryUser&) = delete;
    ~OrdinaryUser()
    {
        if (changed_) {
            EXPECT_EQ(::seteuid(0), 0);
        }
    }

private:
    bool isSuperuser_ = ::geteuid() == 0;
    bool changed_ = false;
};

} // namespace rulemesh

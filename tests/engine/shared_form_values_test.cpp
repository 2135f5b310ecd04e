#include "engine/shared_form_values.h"

#include <gtest/gtest.h>

namespace rulemesh {
namespace {

TEST(SharedFormValues, AreOneSetForTheProcess)
{
    Shared().StrDocText = u"left by the one";
    EXPECT_EQ(Shared().StrDocText, u"left by the one");
    EXPECT_EQ(&Shared(), &Shared());
}

} // namespace
} // namespace rulemesh

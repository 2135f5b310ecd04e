#include "base/failure.h"

#include <string>

#include <gtest/gtest.h>

namespace rulemesh {
namespace {

TEST(Failure, BearsTheNumberThatTheHostSees)
{
    struct Case {
        FailureCode given;
        int expected;
    };
    const Case cases[] = {
        {FailureCode::InvalidProcedureCall, 5},   {FailureCode::Overflow, 6},
        {FailureCode::SubscriptOutOfRange, 9},    {FailureCode::TypeMismatch, 13},
        {FailureCode::FileNotFound, 53},          {FailureCode::PathFileAccess, 75},
        {FailureCode::PathNotFound, 76},          {FailureCode::ObjectVariableNotSet, 91},
        {FailureCode::InvalidPropertyValue, 380}, {FailureCode::InvalidPropertyArrayIndex, 381},
        {FailureCode::IndexOutOfBounds, 35600},
    };
    for (const auto& [given, expected] : cases) {
        EXPECT_EQ(Failure(given).Number(), expected);
        EXPECT_EQ(Failure(given).Code(), given);
        EXPECT_FALSE(Failure(given).Description().empty()) << expected;
    }
}

TEST(Failure, HasADescriptionOfItsOwnForEachKind)
{
    EXPECT_EQ(Failure(FailureCode::Overflow).Description(), u"Overflow");
    EXPECT_EQ(Failure(FailureCode::FileNotFound).Description(), u"File not found");
}

TEST(Failure, KeepsTheDescriptionItIsGiven)
{
    EXPECT_EQ(Failure(FailureCode::Overflow, u"too much").Description(), u"too much");
}

TEST(Failure, TellsTheDescriptionAsUtf8)
{
    const Failure failure(FailureCode::FileNotFound, u"gr\u00FC\u00DFe");
    const std::exception& caught = failure;
    EXPECT_STREQ(caught.what(), "gr\xC3\xBC\xC3\x9F"
                                "e");
}

TEST(Failure, SurvivesCopying)
{
    const auto raise = [] { throw Failure(FailureCode::PathNotFound, Text(100, u'x')); };
    try {
        raise();
        FAIL() << "nothing was raised";
    } catch (const Failure& failure) {
        const Failure copy = failure; // NOLINT: the copy is what is tested
        EXPECT_EQ(copy.Description(), Text(100, u'x'));
        EXPECT_EQ(copy.what(), std::string(100, 'x'));
    }
}

} // namespace
} // namespace rulemesh

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "engine/guess.h"

namespace rulemesh {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using Reason = ExplainedGuess::Reason;

GuessField StringField(TextView StrName, TextView StrLength = u"10")
{
    return {.Name = StrName, .Type = u"String", .Length = StrLength, .Domain = {}, .Enums = {}};
}

GuessField FieldOfType(TextView StrName, TextView StrType, TextView StrDomain = {})
{
    return {.Name = StrName, .Type = StrType, .Length = u"10", .Domain = StrDomain, .Enums = {}};
}

ExplainedGuess Explained(const GuessField& target, std::vector<GuessField> sources)
{
    return Guess(std::move(sources)).Explain(target);
}

TEST(ExplainedGuess, NamesTheSourceThatWonByItsName)
{
    const ExplainedGuess guess =
        Explained(StringField(u"tgtab001.a"), {StringField(u"srtab001.b"), StringField(u"srtab001.a")});
    EXPECT_EQ(guess.StrRule, u"srtab001.a");
    EXPECT_EQ(guess.Why, Reason::Name);
    EXPECT_EQ(guess.Source, 1U);
    EXPECT_THAT(guess.Others, IsEmpty());
}

TEST(ExplainedGuess, TellsWhatElseMatchedByName)
{
    const ExplainedGuess guess =
        Explained(StringField(u"tgtab001.a(3)"), {FieldOfType(u"srtab001.a", u"Multi-Byte String"),
                                                  StringField(u"srtab002.a(3)"), StringField(u"srtab003.a")});
    EXPECT_EQ(guess.StrRule, u"srtab002.a(1,3)");
    EXPECT_EQ(guess.Source, 1U);
    EXPECT_THAT(guess.Others, ElementsAre(0U, 2U));
}

TEST(ExplainedGuess, GoesOnBehindAFieldOfTheSameShapeAndEndsBehindOneOfAnother)
{
    const GuessField target = StringField(u"tgtab001.a", u"5");
    const ExplainedGuess same = Explained(target, {StringField(u"tgtab001.a", u"5"), StringField(u"srtab001.a")});
    EXPECT_THAT(same.Others, ElementsAre(1U));
    const ExplainedGuess other = Explained(target, {StringField(u"tgtab001.a", u"9"), StringField(u"srtab001.a")});
    EXPECT_EQ(other.Source, 0U);
    EXPECT_THAT(other.Others, IsEmpty());
}

TEST(ExplainedGuess, IsADefaultWithoutSourceWhenNoConversionServes)
{
    const ExplainedGuess guess =
        Explained(StringField(u"tgtab001.a"), {FieldOfType(u"srtab001.a", u"Multi-Byte String")});
    EXPECT_EQ(guess.StrRule, u"default()");
    EXPECT_EQ(guess.Why, Reason::Default);
    EXPECT_EQ(guess.Source, std::nullopt);
    EXPECT_THAT(guess.Others, ElementsAre(0U));
}

TEST(ExplainedGuess, IsADefaultForOtherEnumerationsOfAnotherDomain)
{
    GuessField target = FieldOfType(u"tgtab001.a", u"Enumerated", u"d");
    target.Enums = u"a";
    GuessField source = FieldOfType(u"tgtab001.a", u"Enumerated", u"e");
    source.Enums = u"b";
    const ExplainedGuess guess = Explained(target, {source, StringField(u"srtab001.a")});
    EXPECT_EQ(guess.StrRule, u"default()");
    EXPECT_EQ(guess.Why, Reason::Default);
    EXPECT_EQ(guess.Source, std::nullopt);
    EXPECT_THAT(guess.Others, ElementsAre(0U, 1U));
}

TEST(ExplainedGuess, FindsDatesByTheirDomain)
{
    const ExplainedGuess guess =
        Explained(FieldOfType(u"tgtab001.a", u"Date", u"d"),
                  {FieldOfType(u"srtab001.a", u"Date", u"d"), FieldOfType(u"tgtab001.a", u"UTC", u"d"),
                   FieldOfType(u"tgtab001.a", u"Date", u"d"), FieldOfType(u"tgtab001.a", u"Date", u"e")});
    EXPECT_EQ(guess.StrRule, u"utc(tgtab001.a,0,2)");
    EXPECT_EQ(guess.Why, Reason::Domain);
    EXPECT_EQ(guess.Source, 1U);
    EXPECT_THAT(guess.Others, ElementsAre(2U));
}

TEST(ExplainedGuess, TellsNothingElseOfAReferenceCounter)
{
    const ExplainedGuess guess =
        Explained(FieldOfType(u"tgtab001.refcntu", u"UTC", u"d"), {FieldOfType(u"tgtab001.refcntu", u"UTC", u"e")});
    EXPECT_EQ(guess.StrRule, u"default()");
    EXPECT_EQ(guess.Why, Reason::Default);
    EXPECT_THAT(guess.Others, IsEmpty());
}

} // namespace
} // namespace rulemesh

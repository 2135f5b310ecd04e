#include "engine/near_names.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace rulemesh {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;
using Why = NearName::Why;

// The names that are near, best first.
std::vector<TextView> Near(TextView StrField, const std::vector<TextView>& candidates)
{
    std::vector<TextView> names;
    for (const NearName& near : NearNames(candidates).Of(StrField))
        names.push_back(candidates[near.Place]);
    return names;
}

// How one name is near another one; a score of 0 when it isn't.
NearName Only(TextView StrField, TextView candidate)
{
    const std::vector<NearName> near = NearNames({candidate}).Of(StrField);
    return near.empty() ? NearName() : near.front();
}

TEST(NearNames, LookThroughCaseUnderscoresIndexAndDigitsAtTheEnd)
{
    for (const TextView name :
         {u"CompanyName", u"company_name", u"companyname2", u"company_name_01", u"companyname(3)"})
        EXPECT_EQ(Only(u"companyname", name), (NearName{.Place = 0, .Score = 1, .Reason = Why::Spelling}));
}

TEST(NearNames, LookThroughTheOrderOfWords)
{
    EXPECT_EQ(Only(u"name_of_company", u"company_of_name").Reason, Why::Order);
}

TEST(NearNames, LookThroughCommonAbbreviations)
{
    EXPECT_EQ(Only(u"cust_no", u"customer_number").Reason, Why::Abbreviation);
    EXPECT_EQ(Only(u"qty", u"quantity").Reason, Why::Abbreviation);
    EXPECT_EQ(Only(u"nr_cust", u"customer_number").Reason, Why::Abbreviation);
}

TEST(NearNames, LookThroughLettersThatAreLeftOut)
{
    EXPECT_EQ(Only(u"custname", u"customer_name").Reason, Why::Abbreviation);
    EXPECT_EQ(Only(u"customer_name", u"custname").Reason, Why::Abbreviation);
}

TEST(NearNames, RankWhatIsMoreAlikeHigher)
{
    EXPECT_THAT(Near(u"ship_address", {u"shipperid", u"addr_ship", u"shipaddress", u"ship_adress", u"freight"}),
                ElementsAre(u"shipaddress", u"addr_ship", u"ship_adress"));
}

TEST(NearNames, KeepTheOrderOfEqualOnes)
{
    EXPECT_THAT(Near(u"name", {u"name_2", u"NAME", u"name(1)"}), ElementsAre(u"name_2", u"NAME", u"name(1)"));
}

TEST(NearNames, AreSevenAtMost)
{
    EXPECT_THAT(Near(u"name", std::vector<TextView>(20, u"name")), SizeIs(NearNames::Most));
}

TEST(NearNames, LeaveOutWhatIsNotAlike)
{
    EXPECT_THAT(Near(u"quantity", {u"freight", u"city", u"", u"_", u"1"}), IsEmpty());
    EXPECT_THAT(Near(u"", {u"", u"name"}), IsEmpty());
    EXPECT_THAT(Near(u"x", {u"y"}), IsEmpty());
}

TEST(NearNames, TellNamesOfDigitsApart) { EXPECT_THAT(Near(u"12", {u"34", u"12"}), ElementsAre(u"12")); }

TEST(NearNames, ScoreFromZeroToOne)
{
    for (const NearName& near :
         NearNames({u"shipname", u"ship_name", u"shipnation", u"name_ship", u"shpnm"}).Of(u"shipname")) {
        EXPECT_GT(near.Score, 0);
        EXPECT_LE(near.Score, 1);
    }
}

} // namespace
} // namespace rulemesh

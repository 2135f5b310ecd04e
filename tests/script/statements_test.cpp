#include "script/statements.h"

#include <algorithm>
#include <iterator>
#include <random>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "base/utf8.h"

namespace rulemesh {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using Fault = StatementFault;
using Kind = Statement::Kind;

constexpr ScannedFor Dumps = {.Dump = true};
constexpr ScannedFor Migrates = {.Migrate = true};
constexpr ScannedFor Both = {.Migrate = true, .Dump = true};

std::vector<Statement> StatementsOf(TextView StrScript, ScannedFor scanned)
{
    std::vector<Statement> statements;
    StatementCursor cursor(StrScript, scanned);
    while (const std::optional<Statement> statement = cursor.Next())
        statements.push_back(*statement);
    return statements;
}

// The faults of a script's statements, in order.
std::vector<Fault> FaultsOf(TextView StrScript, ScannedFor scanned)
{
    std::vector<Fault> faults;
    for (const Statement& statement : StatementsOf(StrScript, scanned))
        faults.push_back(statement.Fault);
    return faults;
}

TEST(StatementCursor, TellsPlaceKindWordAndNumber)
{
    const Text StrScript = u"migrate srtab001 | x\r\n  DUMP\t 7 | y";
    EXPECT_THAT(StatementsOf(StrScript, Both),
                ElementsAre(Statement{.Position = 0, .Word = u"srtab001", .What = Kind::Migrate, .StartsText = true},
                            Statement{.Position = 24, .Word = u"7", .Number = 7, .What = Kind::Dump}));
}

TEST(StatementCursor, GivesWordsThatLieInTheScript)
{
    const Text StrScript = u"dump 7 migrate srtab001";
    for (const Statement& statement : StatementsOf(StrScript, Both)) {
        EXPECT_GE(statement.Word.data(), StrScript.data());
        EXPECT_LE(statement.Word.data() + statement.Word.size(), StrScript.data() + StrScript.size());
    }
}

TEST(StatementCursor, ReadsOnlyWhatItIsAskedFor)
{
    const Text StrScript = u"dump 1 migrate srtab001 dump 2";
    EXPECT_EQ(StatementsOf(StrScript, Dumps).size(), 2U);
    EXPECT_EQ(StatementsOf(StrScript, Migrates).size(), 1U);
    EXPECT_EQ(StatementsOf(StrScript, Both).size(), 3U);
    EXPECT_THAT(StatementsOf(StrScript, {}), IsEmpty());
}

TEST(StatementCursor, FindsNoLettersThatOnlyFoldToAscii)
{
    EXPECT_THAT(StatementsOf(u"m\u0131grate srtab001 M\u0130GRATE srtab001 \u0164ump 5 d\u0155mp 5", Both), IsEmpty());
}

TEST(StatementCursor, FindsNoSignsThatShareBitsWithLetters)
{
    EXPECT_THAT(StatementsOf(u"$ump 5 \u0004ump 5 d5mp 5 dum0 5 -igrate srtab001 migr!te srtab001", Both), IsEmpty());
}

TEST(StatementCursor, PassesOverPartsOfLongerWords)
{
    EXPECT_THAT(StatementsOf(u"xdump 1 dumps 2 dum 3 immigrate srtab001 migrates srtab001 |dump 4 ", Both), IsEmpty());
}

TEST(StatementCursor, TellsWhatIsWrongWithADump)
{
    EXPECT_THAT(FaultsOf(u"dump x dump 999 dump 1000 dump 32767 dump 40000 dump -40000 dump 2", Dumps),
                ElementsAre(Fault::NoNumber, Fault::None, Fault::NumberTooGreat, Fault::NumberTooGreat,
                            Fault::NumberPast16Bits, Fault::NumberPast16Bits, Fault::None));
    EXPECT_THAT(FaultsOf(u"dump 999.5 dump -32768.5 dump 32767.5", Dumps),
                ElementsAre(Fault::NumberTooGreat, Fault::None, Fault::NumberPast16Bits));
    EXPECT_THAT(FaultsOf(u"dump  ", Dumps), ElementsAre(Fault::NoWord));
    EXPECT_THAT(FaultsOf(u"dump " + Text(32768, u'1'), Dumps), ElementsAre(Fault::WordTooLong));
}

TEST(StatementCursor, TellsWhatIsWrongWithAMigrate)
{
    EXPECT_THAT(
        FaultsOf(u"migrate srtab1 migrate srta1001 migrate srtab00x migrate srtab001|x migrate srtab001", Migrates),
        ElementsAre(Fault::TableLength, Fault::TableForm, Fault::TableForm, Fault::TableLength, Fault::None));
    EXPECT_THAT(FaultsOf(u"migrate \n", Migrates), ElementsAre(Fault::NoWord));
}

TEST(StatementCursor, TakesOneCharacterBehindTheKeywordForNothing)
{
    for (const TextView script : {u"dump", u"dump ", u"dumps", u" dump", u"\tdump\n", u"migrate", u"immigrates"})
        EXPECT_THAT(FaultsOf(script, Both), ElementsAre(Fault::NothingBehind)) << testing::PrintToString(script);
    EXPECT_THAT(FaultsOf(u"xdump", Both), IsEmpty());
}

TEST(StatementCursor, KnowsAStatementThatStartsTheText)
{
    const std::vector<Statement> statements = StatementsOf(u"dumpdump 5 dump 6", Dumps);
    ASSERT_EQ(statements.size(), 2U);
    EXPECT_EQ(statements[0].Number, 5);
    EXPECT_TRUE(statements[0].StartsText);
    EXPECT_EQ(statements[1].Number, 6);
    EXPECT_FALSE(statements[1].StartsText);
}

TEST(StatementCursor, HasABarTakeOneDumpOutOfForceAndNoMigrate)
{
    const std::vector<Statement> statements =
        StatementsOf(u"| dump 1 migrate srtab001 dump 2\ndump 3 | dump 4 migrate srtab002", Both);
    std::vector<bool> inForce;
    std::transform(statements.begin(), statements.end(), std::back_inserter(inForce),
                   [](const Statement& statement) { return statement.IsInForce(); });
    EXPECT_THAT(inForce, ElementsAre(false, true, true, true, false, true));
    EXPECT_TRUE(statements.front().IsCommented);
    EXPECT_EQ(statements.front().Number, 1);
    EXPECT_EQ(statements.front().Fault, Fault::None);
}

TEST(StatementCursor, LooksBackToTheLastKeywordOfTheSameKindAlone)
{
    const std::vector<Statement> statements = StatementsOf(u"| migrate srtab001 dump 1", Both);
    ASSERT_EQ(statements.size(), 2U);
    EXPECT_TRUE(statements[1].IsCommented);
}

// Reading both keywords in one pass gives what reading each by itself gives, in order of place.
TEST(StatementProperty, BothKeywordsTogetherAreEachByItself)
{
    constexpr TextView pieces[] = {u"dump", u"migrate", u"DUMP ", u" Migrate\t", u" ", u"\n",        u"\r\n", u"|",
                                   u" | ",  u"x",       u"5 ",    u"1000 ",      u"7", u"srtab001 ", u"sr ",  u"40000"};
    std::mt19937 random{8};
    for (int round = 0; round < 20000; ++round) {
        Text script;
        for (auto count = random() % 14; count > 0; --count)
            script += pieces[random() % std::size(pieces)];
        std::vector<Statement> apart = StatementsOf(script, Dumps);
        const std::vector<Statement> migrates = StatementsOf(script, Migrates);
        apart.insert(apart.end(), migrates.begin(), migrates.end());
        std::sort(apart.begin(), apart.end(),
                  [](const Statement& a, const Statement& b) { return a.Position < b.Position; });
        ASSERT_EQ(StatementsOf(script, Both), apart) << ToUtf8(script);
    }
}

} // namespace
} // namespace rulemesh

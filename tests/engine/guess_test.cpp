#include "engine/guess.h"

#include <map>
#include <random>
#include <string>

#include <gmock/gmock.h>

#include "base/failure.h"
#include "base/failure_of.h"
#include "engine/engine_bench.h"
#include "engine/field_rows.h"
#include "engine/guess_oracle.h"
#include "views/field_columns.h"

namespace rulemesh {
namespace {

using testing::ElementsAre;

class GuessTest : public EngineBench {
protected:
    /// The rules that the fields of TGTAB001 get from the fields of the source tables, in the order of the document.
    [[nodiscard]] std::vector<Text> Guessed(const std::string& targets, const std::string& sources)
    {
        Load("<TARTAB><TGTAB001>" + targets + "</TGTAB001></TARTAB><SRCTAB>" + sources + "</SRCTAB>");
        const XmlNode table = access_.GetNode(u"/tgtab001/TARTAB/TGTAB001");
        views_.lstTargetFields.Clear();
        views_.lstSourceFields.Clear();
        views_.lstTargetFields.Sorted(false);
        views_.lstSourceFields.Sorted(false);
        views_.RulesGrid.ClearRows();
        FillTargetFields(views_.lstTargetFields, TableRecord(table));
        for (const XmlNode& source : access_.GetNode(u"/tgtab001/SRCTAB").childNodes())
            FillSourceFields(views_.lstSourceFields, TableRecord(source));
        for (int row = 1; row <= views_.lstTargetFields.Count(); ++row)
            views_.RulesGrid.AddItem({views_.lstTargetFields.TextAt(row, TargetField::Name), u" "});
        mapping_.CmdGuess_Click();
        return Rules();
    }

    /// The rule of the one target field.
    [[nodiscard]] Text GuessedFor(const std::string& target, const std::string& sources)
    {
        return Guessed(target, sources).at(0);
    }
};

TEST_F(GuessTest, OwnFieldOfTheSameShapeGivesItsName)
{
    EXPECT_EQ(GuessedFor(R"(<A No="1" TYPE="S" LENG="20"/>)", R"(<TGTAB001><A TYPE="S" LENG="20"/></TGTAB001>)"),
              u"tgtab001.a");
    EXPECT_EQ(GuessedFor(R"(<A No="1" TYPE="E" LENG="1" DOMENUMS="a,b,c"/>)",
                         R"(<TGTAB001><A TYPE="E" LENG="1" DOMENUMS="b,c"/></TGTAB001>)"),
              u"tgtab001.a");
}

// With an index the plain name shows that no conversion took place.
TEST_F(GuessTest, LengthsCompareAsTexts)
{
    const std::string nine = R"(<TGTAB001><A__1 TYPE="S" LENG="9"/></TGTAB001>)";
    const std::string ten = R"(<TGTAB001><A__1 TYPE="S" LENG="10"/></TGTAB001>)";
    EXPECT_EQ(GuessedFor(R"(<A__1 No="1" TYPE="S" LENG="9"/>)", ten), u"tgtab001.a(1)");
    EXPECT_EQ(GuessedFor(R"(<A__1 No="1" TYPE="S" LENG="10"/>)", nine), u"tgtab001.a(1,1)");
    EXPECT_EQ(GuessedFor(R"(<A__1 No="1" TYPE="S" LENG="9"/>)", nine), u"tgtab001.a(1)");
}

TEST_F(GuessTest, OtherEnumerationsOfAnotherDomainGiveTheDefault)
{
    EXPECT_EQ(GuessedFor(R"(<A No="1" TYPE="E" LENG="1" DOMENUMS="a" DOMAIN="d"/>)",
                         R"(<TGTAB001><A TYPE="E" LENG="1" DOMENUMS="A" DOMAIN="e"/></TGTAB001>)"),
              u"default()");
}

TEST_F(GuessTest, OtherEnumerationsOfTheSameDomainAreConverted)
{
    EXPECT_EQ(GuessedFor(R"(<A__1 No="1" TYPE="S" LENG="1" DOMENUMS="a" DOMAIN="d"/>)",
                         R"(<TGTAB001><A__1 TYPE="S" LENG="1" DOMENUMS="b" DOMAIN="d"/></TGTAB001>)"),
              u"tgtab001.a(1,1)");
}

TEST_F(GuessTest, NoEnumerationsAreContainedInAny)
{
    EXPECT_EQ(GuessedFor(R"(<A__1 No="1" TYPE="S" DOMENUMS="a"/>)", R"(<TGTAB001><A__1 TYPE="S"/></TGTAB001>)"),
              u"tgtab001.a(1)");
    EXPECT_EQ(GuessedFor(R"(<A__1 No="1" TYPE="S"/>)", R"(<TGTAB001><A__1 TYPE="S" DOMENUMS="a"/></TGTAB001>)"),
              u"tgtab001.a(1,1)");
}

TEST_F(GuessTest, OwnFieldOfAnotherTypeIsConverted)
{
    EXPECT_EQ(GuessedFor(R"(<A No="1" TYPE="L" DIGB="5"/>)", R"(<TGTAB001><A TYPE="S" LENG="5"/></TGTAB001>)"),
              u"tgtab001.a");
}

TEST_F(GuessTest, TheFirstTableWithTheFieldWins)
{
    const std::string own = R"(<TGTAB001><A TYPE="S"/></TGTAB001>)";
    const std::string other = R"(<SRTAB001><A TYPE="S"/></SRTAB001>)";
    EXPECT_EQ(GuessedFor(R"(<A No="1" TYPE="S"/>)", other + own), u"srtab001.a");
    EXPECT_EQ(GuessedFor(R"(<A No="1" TYPE="S"/>)", own + other), u"tgtab001.a");
}

TEST_F(GuessTest, APlainFieldIsOfferedToEachIndex)
{
    EXPECT_THAT(Guessed(R"(<A__1 No="1" TYPE="S"/><A__2 No="2" TYPE="S"/><A No="3" TYPE="S"/>)",
                        R"(<SRTAB001><A TYPE="S"/></SRTAB001>)"),
                ElementsAre(u"srtab001.a", u"srtab001.a", u"srtab001.a"));
    EXPECT_THAT(Guessed(R"(<A__1 No="1" TYPE="S"/><A No="2" TYPE="S"/>)", R"(<SRTAB001><A__1 TYPE="S"/></SRTAB001>)"),
                ElementsAre(u"srtab001.a(1,1)", u"default()"));
}

TEST_F(GuessTest, TheDefaultOfAnotherDomainIsNotReplacedByTheSameFieldListedTwice)
{
    EXPECT_EQ(GuessedFor(R"(<A No="1" TYPE="E" LENG="1" DOMENUMS="a" DOMAIN="d2"/>)",
                         R"(<TGTAB001><A TYPE="E" LENG="1" DOMENUMS="x" DOMAIN="d1"/></TGTAB001>)"
                         R"(<TGTAB001><A TYPE="E" LENG="1" DOMENUMS="x" DOMAIN="d2"/></TGTAB001>)"),
              u"default()");
}

// A match by name, even one that gives no text, ends the search by domain.
TEST_F(GuessTest, AnEmptyConversionLeavesNoRoomForTheOwnDate)
{
    EXPECT_EQ(GuessedFor(R"(<A No="1" TYPE="S" LENG="20"/>)",
                         R"(<SRTAB010><A TYPE="M" LENG="20"/></SRTAB010><TGTAB001><A TYPE="T"/></TGTAB001>)"),
              u"default()");
    EXPECT_EQ(GuessedFor(R"(<A No="1" TYPE="S" LENG="20"/>)", R"(<TGTAB001><A TYPE="T"/></TGTAB001>)"), u"tgtab001.a");
}

TEST_F(GuessTest, AnIndexInFrontOfTheFieldPartIsNone)
{
    const Guess guess({{u"srtab001.f", u"String", u"", u"", u""}});
    EXPECT_EQ(guess.RuleFor({u"t.f(1)", u"String", u"", u"", u""}), u"default()");
    EXPECT_EQ(guess.RuleFor({u"tgtab001(1)", u"String", u"", u"", u""}), u"default()");
    EXPECT_EQ(guess.RuleFor({u"tgtab001.(1)", u"String", u"", u"", u""}), u"default()");
    EXPECT_EQ(guess.RuleFor({u"tgtab001.f(1)", u"String", u"", u"", u""}), u"srtab001.f");
}

TEST_F(GuessTest, NoStringBecomesAMultiByteString)
{
    EXPECT_EQ(GuessedFor(R"(<A No="1" TYPE="M"/>)", R"(<TGTAB001><A TYPE="S"/></TGTAB001>)"), u"default()");
    EXPECT_EQ(GuessedFor(R"(<A No="1" TYPE="M"/>)",
                         R"(<SRTAB001><A TYPE="S"/></SRTAB001><SRTAB002><A TYPE="M"/></SRTAB002>)"),
              u"srtab002.a");
    EXPECT_EQ(GuessedFor(R"(<A No="1" TYPE="M"/>)",
                         R"(<TGTAB001><A TYPE="S"/></TGTAB001><SRTAB002><A TYPE="M"/></SRTAB002>)"),
              u"default()"); // the walk ends at the exact name
}

TEST_F(GuessTest, DatesOfTheOwnFieldAndDomainAreConverted)
{
    struct Case {
        std::string target;
        std::string source;
        Text rule;
    };
    const std::vector<Case> cases = {
        {"T", "T", u"utc(tgtab001.a,0,2)"}, {"T", "K", u"utc(tgtab001.a,0,2)"}, {"T", "S", u"tgtab001.a"},
        {"K", "T", u"utc(tgtab001.a,0,2)"}, {"K", "K", u"utc$(tgtab001.a)"},    {"K", "S", u"tgtab001.a"},
        {"S", "T", u"tgtab001.a"},          {"S", "K", u"tgtab001.a"},
    };
    for (const auto& [target, source, rule] : cases) {
        const auto field = [](const std::string& type, const std::string& domain) {
            return "<A No=\"1\" TYPE=\"" + type + "\" DOMAIN=\"" + domain + "\"/>";
        };
        EXPECT_EQ(GuessedFor(field(target, "d"), "<TGTAB001>" + field(source, "d") + "</TGTAB001>"), rule);
        EXPECT_EQ(GuessedFor(field(target, "d"), "<TGTAB001>" + field(source, "e") + "</TGTAB001>"), u"default()");
        EXPECT_EQ(GuessedFor(field(target, "d"), "<SRTAB001>" + field(source, "d") + "</SRTAB001>"), u"default()");
    }
}

TEST_F(GuessTest, ReferenceCountersOfAnotherDomainGiveTheDefault)
{
    for (const std::string name : {"REFCNTU", "REFCNTD"}) {
        const std::string target = "<" + name + " No=\"1\" TYPE=\"T\" DOMAIN=\"d\"/>";
        const std::string source = "<TGTAB001><" + name + " TYPE=\"T\" DOMAIN=\"e\"/></TGTAB001>";
        EXPECT_EQ(GuessedFor(target, source), u"default()");
        // The same name listed again comes too late.
        EXPECT_EQ(GuessedFor(target, source + "<TGTAB001><" + name + " TYPE=\"T\" DOMAIN=\"d\"/></TGTAB001>"),
                  u"default()");
    }
    EXPECT_EQ(GuessedFor(R"(<REFCNTX No="1" TYPE="T" DOMAIN="d"/>)",
                         R"(<TGTAB001><REFCNTX TYPE="T" DOMAIN="e"/></TGTAB001>)"
                         R"(<TGTAB001><REFCNTX TYPE="T" DOMAIN="d"/></TGTAB001>)"),
              u"utc(tgtab001.refcntx,0,2)");
}

TEST_F(GuessTest, AnythingElseGivesTheDefault)
{
    EXPECT_THAT(Guessed(R"(<A No="1" TYPE="S"/><B No="2" TYPE="X"/>)", R"(<SRTAB001><C TYPE="S"/></SRTAB001>)"),
                ElementsAre(u"default()", u"default()"));
}

TEST_F(GuessTest, ASourceTableOfAnotherLengthMissesItsMatches)
{
    EXPECT_EQ(GuessedFor(R"(<A No="1" TYPE="S"/>)", R"(<SRTAB01><A TYPE="S"/></SRTAB01>)"), u"default()");
}

TEST_F(GuessTest, OccupiedCellsKeepTheirRules)
{
    static_cast<void>(Guessed(R"(<A No="1" TYPE="S"/><B No="2" TYPE="S"/><C No="3" TYPE="S"/>)",
                              R"(<TGTAB001><A TYPE="S"/><B TYPE="S"/><C TYPE="S"/></TGTAB001>)"));
    views_.RulesGrid.TextMatrix(0, 1, u"typed");
    views_.RulesGrid.TextMatrix(1, 1, u" \t ");
    views_.RulesGrid.TextMatrix(2, 1, u"\t \t");
    mapping_.CmdGuess_Click();
    EXPECT_THAT(Rules(), ElementsAre(u"typed", u"tgtab001.b", u"\t \t"));
}

TEST_F(GuessTest, TheDumpInTheTagIsSaved)
{
    state_.DumpInGrid = GridDump(DumpNumber(7));
    static_cast<void>(GuessedFor(R"(<A No="1" TYPE="S"/>)", R"(<SRTAB001><B/></SRTAB001>)"));
    EXPECT_NE(Below().find(R"(<DUMP No="7"><A TEXT="" TYPE="0">default()</A></DUMP>)"), std::string::npos);
}

TEST_F(GuessTest, AnEmptyListEndsItWithoutASave)
{
    state_.DumpInGrid = GridDump(DumpNumber(7));
    EXPECT_EQ(GuessedFor(R"(<A No="1" TYPE="S"/>)", ""), u" ");
    EXPECT_TRUE(Guessed("", R"(<SRTAB001><B/></SRTAB001>)").empty());
    EXPECT_EQ(Below().find("DUMP"), std::string::npos);
}

TEST_F(GuessTest, ATargetTableOfAnotherLengthIsAFailure)
{
    Load(R"(<TARTAB><TGTAB001><LONGNAME No="1"/></TGTAB001></TARTAB>)");
    views_.lstTargetFields.Add({u"", u"", u"001", u"tgt1.longname", u"String", u""});
    views_.lstSourceFields.Add({u"", u"001", u"srtab001.a", u"String", u""});
    views_.RulesGrid.AddItem({u"tgt1.longname", u" "});
    EXPECT_EQ(FailureOf([&] { mapping_.CmdGuess_Click(); }), FailureCode::ObjectVariableNotSet);
}

// Random catalogues, lists and cells: the column must be what the plain walk over every pair leaves.
class GuessPropertyTest : public EngineBench {
protected:
    using Choices = std::vector<std::string>;

    [[nodiscard]] int Number(int first, int last) { return std::uniform_int_distribution<int>(first, last)(random_); }

    template <typename Item> [[nodiscard]] const Item& OneOf(const std::vector<Item>& items)
    {
        return items[static_cast<std::size_t>(Number(0, static_cast<int>(items.size()) - 1))];
    }

    [[nodiscard]] std::string RandomField(const std::string& numbers)
    {
        static const Choices names = {"A",   "B",   "A__1",    "A__2",    "B__1__2",
                                      "A__", "__1", "REFCNTU", "REFCNTD", "REFCNTU__1"};
        static const Choices types = {"S", "S", "S", "M", "M", "T", "T", "T", "T", "K",
                                      "K", "K", "K", "L", "F", "E", "U", "X", ""};
        static const Choices lengths = {"", "1", "9", "10", "20", "100"};
        static const Choices domains = {"", "", "d"};
        static const Choices enums = {"", "", "a", "a,b", "b", "A"};
        return "<" + OneOf(names) + " " + numbers + " TYPE=\"" + OneOf(types) + "\" LENG=\"" + OneOf(lengths) +
               "\" DIGB=\"" + OneOf(lengths) + "\" DIGA=\"2\" MAN=\"" + OneOf(Choices{"Y", "N"}) + "\" DOMAIN=\"" +
               OneOf(domains) + "\" DOMENUMS=\"" + OneOf(enums) + "\"/>";
    }

    [[nodiscard]] std::string RandomNumbers(int rows)
    {
        static const Choices none = {"", "x", "0", "-3"};
        const std::string no = Number(0, 9) == 0 ? OneOf(none) : std::to_string(Number(1, rows));
        return "No=\"" + no + "\" FNo=\"" + std::to_string(Number(0, 12)) + "\"";
    }

    void Arrange()
    {
        static const Choices tables = {"TGTAB001", "TGTAB001", "TGTAB001",  "TGTAB001", "SRTAB001",
                                       "SRTAB002", "SRTAB01",  "SRTAB0001", "ABC"};
        static const std::vector<Text> cells = {u" ", u" ", u"", u"\t", u" \t ", u"\t \t", u"rule", u"\r\n"};
        const int rows = Number(0, 6);
        std::string targets;
        for (int field = 0; field < rows; ++field)
            targets += RandomField(RandomNumbers(rows));
        std::string sources;
        for (int table = Number(0, 4); table > 0; --table) {
            const std::string& name = OneOf(tables);
            sources += "<" + name + ">";
            for (int field = Number(0, 4); field > 0; --field)
                sources += RandomField(RandomNumbers(9));
            sources += "</" + name + ">";
        }
        Load("<TARTAB><TGTAB001>" + targets + "</TGTAB001></TARTAB><SRCTAB>" + sources + "</SRCTAB>");
        views_.lstTargetFields.Clear();
        views_.lstSourceFields.Clear();
        views_.RulesGrid.ClearRows();
        FillTargetFields(views_.lstTargetFields, TableRecord(access_.GetNode(u"/tgtab001/TARTAB/TGTAB001")));
        for (const XmlNode& source : access_.GetNode(u"/tgtab001/SRCTAB").childNodes())
            FillSourceFields(views_.lstSourceFields, TableRecord(source));
        for (int row = 0; row < rows; ++row)
            views_.RulesGrid.AddItem({u"key", OneOf(cells)});
        for (ListView* list : {&views_.lstTargetFields, &views_.lstSourceFields}) {
            list->Sorted(Number(0, 2) != 0);
            list->SortKey(Number(0, 11));
            list->SortOrder(Number(0, 1) == 0 ? ListView::Order::Ascending : ListView::Order::Descending);
        }
    }

    /// The column that the plain walk makes of the grid as it stands.
    [[nodiscard]] std::vector<Text> Expected() const
    {
        std::vector<oracle::Field> sources;
        for (int row = 1; row <= views_.lstSourceFields.Count(); ++row) {
            const auto text = [&](int position) { return views_.lstSourceFields.TextAt(row, position); };
            sources.push_back({text(2), text(3), text(4), text(8), text(10)});
        }
        std::vector<oracle::Field> targets;
        for (int row = 1; row <= views_.lstTargetFields.Count(); ++row) {
            const auto text = [&](int position) { return views_.lstTargetFields.TextAt(row, position); };
            targets.push_back({text(3), text(4), text(5), text(9), text(11)});
        }
        std::vector<Text> column = Rules();
        // By field part, from the catalogue: the first field of a name counts.
        std::map<Text, Text*> cells;
        for (const XmlNode& field : access_.GetNode(u"/tgtab001/TARTAB/TGTAB001").childNodes()) {
            const Text number = GetAttribute(field, u"No");
            const bool placed = number.size() == 1 && number[0] >= u'1' && number[0] <= u'9';
            cells.try_emplace(QualifiedNameOf(field).substr(9),
                              placed ? &column[static_cast<std::size_t>(number[0] - u'1')] : nullptr);
        }
        oracle::Guess(sources, targets, [&](const Text& fieldPart) { return cells.at(fieldPart); });
        return column;
    }

    /// The explanation of a guess is one of the rule that is guessed.
    void ExpectEachRuleExplained() const
    {
        std::vector<GuessField> fields;
        for (int row = 1; row <= views_.lstSourceFields.Count(); ++row) {
            const ListView::Row& source = views_.lstSourceFields.At(row);
            fields.push_back(
                {source.TextAt(2), source.TextAt(3), source.TextAt(4), source.TextAt(8), source.TextAt(10)});
        }
        const Guess guess(std::move(fields));
        for (int row = 1; row <= views_.lstTargetFields.Count(); ++row) {
            const ListView::Row& item = views_.lstTargetFields.At(row);
            const GuessField target = {item.TextAt(3), item.TextAt(4), item.TextAt(5), item.TextAt(9), item.TextAt(11)};
            EXPECT_EQ(guess.Explain(target).StrRule, guess.RuleFor(target));
        }
    }

    std::mt19937 random_{20261120};

private:
    [[nodiscard]] Text QualifiedNameOf(XmlNode field) const
    {
        for (int row = 1; row <= views_.lstTargetFields.Count(); ++row) {
            const Text name = views_.lstTargetFields.TextAt(row, 3);
            if (NodeNameOf(name.substr(9)) == field.baseName())
                return name;
        }
        return {};
    }

    [[nodiscard]] static Text NodeNameOf(const Text& display)
    {
        Text name;
        for (const char16_t character : display) {
            if (character == u'(')
                name += u"__";
            else if (character != u')')
                name +=
                    character >= u'a' && character <= u'z' ? static_cast<char16_t>(character - u'a' + u'A') : character;
        }
        return name;
    }
};

TEST_F(GuessPropertyTest, AgreesWithTheWalkOverEveryPair)
{
    std::map<Text, int> kinds;
    for (int round = 0; round < 5000; ++round) {
        Arrange();
        const std::vector<Text> expected = Expected();
        ExpectEachRuleExplained();
        mapping_.CmdGuess_Click();
        ASSERT_EQ(Rules(), expected) << "round " << round << ": " << Below();
        for (const Text& rule : expected) {
            const std::size_t bracket = rule.find(u'(');
            ++kinds[rule.substr(0, rule.substr(0, 3) == u"utc" ? bracket : 9)];
        }
    }
    // Every kind of rule came about, and cells that were occupied or never reached as well.
    for (const Text kind : {u"tgtab001.", u"srtab001.", u"srtab002.", u"utc", u"utc$", u"default()", u"rule", u"\t \t"})
        EXPECT_GT(kinds[kind], 10) << testing::PrintToString(kind);
}

} // namespace
} // namespace rulemesh

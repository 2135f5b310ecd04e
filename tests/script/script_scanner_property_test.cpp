#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <random>
#include <string>

#include <gtest/gtest.h>

#include "base/failure_of.h"
#include "support/script_bench.h"

// Random scripts made of fragments, scanned by the product and by a plain twin that does each step with copies of the
// text, as the scanners are told in words: searching from the front, cutting behind every hit, character by character.

namespace rulemesh {
namespace {

using Numbers = std::vector<std::int16_t>;
using Texts = std::vector<Text>;

Text CutBlanks(Text text)
{
    while (!text.empty() && text.front() == u' ')
        text.erase(0, 1);
    while (!text.empty() && text.back() == u' ')
        text.pop_back();
    return text;
}

std::int32_t Length(const Text& text) { return static_cast<std::int32_t>(text.size()); }

Text From(const Text& text, std::int32_t position)
{
    return position > Length(text) ? Text() : text.substr(static_cast<std::size_t>(position) - 1);
}

char16_t At(const Text& text, std::int32_t position)
{
    return position >= 1 && position <= Length(text) ? text[static_cast<std::size_t>(position) - 1] : u' ';
}

bool White(char16_t c) { return c == 10 || c == 13 || c == 9 || c == 32; }

std::int32_t Find(const Text& text, const std::string& keyword)
{
    for (std::int32_t position = 1; position + static_cast<std::int32_t>(keyword.size()) - 1 <= Length(text);
         ++position) {
        std::size_t matched = 0;
        while (matched < keyword.size()) {
            const char16_t c = At(text, position + static_cast<std::int32_t>(matched));
            if (c > 127 || std::tolower(c) != keyword[matched])
                break;
            ++matched;
        }
        if (matched == keyword.size())
            return position;
    }
    return 0;
}

// Short words alone: the value as a double is near enough.
bool Numeric(const Text& word)
{
    std::size_t at = 0;
    const auto sign = [&] { at += at < word.size() && (word[at] == u'+' || word[at] == u'-') ? 1U : 0U; };
    const auto digits = [&] {
        const std::size_t start = at;
        while (at < word.size() && word[at] >= u'0' && word[at] <= u'9')
            ++at;
        return at - start;
    };
    sign();
    std::size_t count = digits();
    if (at < word.size() && word[at] == u'.') {
        ++at;
        count += digits();
    }
    if (count == 0)
        return false;
    if (at < word.size() && (word[at] == u'e' || word[at] == u'E')) {
        ++at;
        sign();
        if (digits() == 0)
            return false;
    }
    return at == word.size();
}

std::int16_t Converted(const Text& word)
{
    const double nearest = std::nearbyint(std::strtod(std::string(word.begin(), word.end()).c_str(), nullptr));
    if (nearest < -32768 || nearest > 32767)
        throw Failure(FailureCode::Overflow);
    return static_cast<std::int16_t>(nearest);
}

class Twin {
public:
    Numbers IntNumbers{0};
    Texts StrTexts{u""};
    Texts StrMigrateTables{u""};
    Texts Rows;
    Texts Boxes;
    std::vector<std::pair<std::int16_t, Text>> Dumps; // in the document
    bool Focused = false;

    void ScanDumpKeywords(const Text& StrText)
    {
        Text Rest = StrText;
        std::int32_t P = Find(Rest, "dump");
        while (P >= 1) {
            while (IsInComment(Rest, P)) {
                Rest = From(Rest, P + 4);
                P = Find(Rest, "dump");
                if (P == 0)
                    return;
            }
            const std::int32_t L = Length(Rest);
            const bool Ok = IsKeywordAt(Rest, P, 4, u"Dump Keyword Must be Followed by a Dump Number");
            if (L <= P + 4)
                return;
            Rest = From(Rest, P + 4);
            P = Find(Rest, "dump");
            if (!Ok)
                continue;
            const Text W = NextWord(Rest);
            const Text C = GetDumpComment(Rest);
            if (Numeric(W)) {
                const std::int16_t N = Converted(W);
                if (N < 1000)
                    RegisterDump(N, C);
            }
        }
    }

    void ParseMigrateKeywords(const Text& StrText)
    {
        if (StrText.empty())
            return;
        StrMigrateTables = {u""};
        Text Rest = StrText;
        std::int32_t L = Length(Rest);
        std::int32_t P = Find(Rest, "migrate");
        while (P != 0) {
            if (L <= P + 7) {
                Boxes.emplace_back(u"critical: Migrate Keyword Has to be followed by a TableName");
                break;
            }
            Text Word;
            const bool Ok = IsKeywordAt(Rest, P, 7, u"Migrate Keyword has to followed by a TableName");
            if (Ok)
                Word = NextWord(CutBlanks(From(Rest, P + 7)));
            if (!Word.empty() && Ok)
                AddMigrateTable(Word);
            if (Length(Rest) > P + 7) {
                Rest = From(Rest, P + 7);
                P = Find(Rest, "migrate");
                L = Length(Rest);
            } else {
                P = 0;
            }
        }
        Rows.clear();
        if (StrMigrateTables.size() == 1 && StrMigrateTables[0].empty())
            return;
        for (const Text& table : StrMigrateTables) {
            Rows.push_back(u"migrate " + table);
            Rows.emplace_back();
        }
    }

private:
    static Text NextWord(Text StrText)
    {
        StrText = CutBlanks(StrText);
        char16_t C = At(StrText, 1);
        while (C == 10 || C == 13 || C == 9) {
            StrText = CutBlanks(From(StrText, 2));
            C = At(StrText, 1);
        }
        std::int32_t length = 0;
        while (!White(C)) {
            ++length;
            C = At(StrText, length + 1);
        }
        return StrText.substr(0, static_cast<std::size_t>(length));
    }

    bool IsKeywordAt(const Text& StrText, std::int32_t LngPosition, std::int32_t LngLength, const Text& StrMessage)
    {
        const std::int32_t A = LngPosition + LngLength;
        if (Length(StrText) > A) {
            if (!White(At(StrText, A)))
                return false;
            return LngPosition == 1 || White(At(StrText, LngPosition - 1));
        }
        if (LngPosition == 1)
            Boxes.push_back(u"critical: " + StrMessage);
        else if (White(At(StrText, LngPosition - 1)))
            Boxes.push_back(u"notice: " + StrMessage);
        return false;
    }

    static bool IsInComment(const Text& StrText, std::int32_t LngPosition)
    {
        const Text front = StrText.substr(0, static_cast<std::size_t>(LngPosition) - 1);
        for (std::int32_t position = Length(front); position >= 1; --position) {
            if (At(front, position) == u'|')
                return true;
            if (At(front, position) == 10)
                return false;
        }
        return false;
    }

    static Text GetDumpComment(const Text& StrText)
    {
        Text result;
        std::int32_t I = 1;
        char16_t C = At(StrText, I);
        if (C == u'|')
            return result;
        while (C != u'|') {
            if (C == 10 || C == 13 || I >= Length(StrText) || I == 250)
                return result;
            ++I;
            C = At(StrText, I);
        }
        while (C != 10 && C != 13 && I <= Length(StrText) && I != 250) {
            if (C >= 32 && C <= 126)
                result.push_back(C);
            ++I;
            C = At(StrText, I);
        }
        return result;
    }

    void RegisterDump(std::int16_t IntDump, const Text& StrText)
    {
        for (std::size_t index = 0; index < IntNumbers.size(); ++index) {
            if (IntNumbers[index] == IntDump) {
                StrTexts[index] = StrText;
                return;
            }
        }
        if (IntNumbers.size() == 1 && IntNumbers[0] == 0) {
            IntNumbers[0] = IntDump;
            StrTexts[0] = StrText;
        } else {
            IntNumbers.push_back(IntDump);
            StrTexts.resize(IntNumbers.size());
            StrTexts.back() = StrText;
        }
        const bool known =
            std::any_of(Dumps.begin(), Dumps.end(), [&](const auto& dump) { return dump.first == IntDump; });
        if (!known)
            Dumps.emplace_back(IntDump, StrText);
    }

    void AddMigrateTable(const Text& StrName)
    {
        for (const Text& table : StrMigrateTables) {
            if (table == StrName)
                return;
        }
        if (StrName.size() != 8) {
            Boxes.emplace_back(u"critical: Table Name not Valid");
            Focused = true;
            return;
        }
        bool valid = Numeric(StrName.substr(5));
        for (std::size_t index = 0; index < 5; ++index)
            valid = valid && !Numeric(StrName.substr(index, 1));
        if (!valid) {
            Boxes.push_back(u"critical: Invalid table name '" + StrName + u"'");
            Focused = true;
            return;
        }
        if (StrMigrateTables.size() == 1 && StrMigrateTables[0].empty())
            StrMigrateTables[0] = StrName;
        else
            StrMigrateTables.push_back(StrName);
    }
};

class Fragments {
public:
    Fragments(std::uint32_t seed, Texts pieces) : random_(seed), pieces_(std::move(pieces)) {}

    [[nodiscard]] std::size_t Below(std::size_t limit) { return random_() % limit; }

    [[nodiscard]] Text Script(std::size_t most)
    {
        Text script;
        for (std::size_t count = Below(most + 1); count > 0; --count)
            script += pieces_[Below(pieces_.size())];
        return script;
    }

private:
    std::mt19937 random_;
    Texts pieces_;
};

class ScannerProperty : public ScriptBench {};

TEST_F(ScannerProperty, FindsTheDumpsThatThePlainTwinFinds)
{
    Fragments random(
        1, {u"dump ",       u"dump",         u" dump ", u"\ndump ", u"DuMp\t", u"xdump",  u"|",      u" | ", u" ",
            u"  ",          u"\t",           u"\r",     u"\n",      u"\r\n",   u"5",      u"0",      u"12",  u"2.5",
            u"3.5",         u"999",          u"999.5",  u"1000",    u"-2",     u"1e2",    u"+7",     u"0 ",  u"5 ",
            u"17 ",         u"8 | z",        u"x",      u"e",       u".",      u"\u00E4", u"\u2028", u"~",   u"\u007F",
            Text(60, u'y'), Text(121, u' '), u"6|",     u"dum"});
    for (int run = 0; run < 12000; ++run) {
        Load("");
        Twin twin;
        Numbers numbers{0};
        Texts texts{u""};
        for (std::size_t scan = 0; scan <= random.Below(3); ++scan) {
            Text script = random.Script(24);
            if (random.Below(60) == 0)
                script += u" dump 40000 dump 4";
            if (random.Below(4) == 0) { // a collection starts anew and leaves the texts
                numbers = {0};
                twin.IntNumbers = {0};
            }
            const auto expected = FailureOf([&] { twin.ScanDumpKeywords(script); });
            ASSERT_EQ(FailureOf([&] { scanner_.ScanDumpKeywords(script, numbers, texts); }), expected)
                << testing::PrintToString(script);
            ASSERT_EQ(numbers, twin.IntNumbers) << testing::PrintToString(script);
            ASSERT_EQ(texts, twin.StrTexts) << testing::PrintToString(script);
            ASSERT_EQ(Boxes(), std::exchange(twin.Boxes, {})) << testing::PrintToString(script);
        }
        std::vector<std::pair<std::int16_t, Text>> dumps;
        for (const XmlNode& dump : document_.documentElement().childNodes())
            dumps.emplace_back(ToInt16(GetAttribute(dump, u"No")), GetAttribute(dump, u"TXT"));
        ASSERT_EQ(dumps, twin.Dumps);
    }
}

TEST_F(ScannerProperty, FindsTheTablesThatThePlainTwinFinds)
{
    Fragments random(2,
                     {u"migrate ",  u"migrate",   u" migrate ", u"\nMIGRATE ", u"MiGrAtE\t", u"im",       u"|",
                      u" | ",       u" ",         u"  ",        u"\t",         u"\r",        u"\n",       u"\r\n",
                      u"abcde123",  u"abcde123 ", u"ABCDE123 ", u"fghij456\r", u"abcd1234 ", u"abcde12x", u"abcde1.5 ",
                      u"+-._e-12 ", u"abc ",      u"klmno789",  u"x",          u"\u00E4",    u"migrat",   u"\u0131"});
    Twin twin;
    for (int run = 0; run < 12000; ++run) {
        const Text script = random.Script(16);
        twin.Focused = false;
        views_.lstSourceTables.SetFocus();
        twin.ParseMigrateKeywords(script);
        scanner_.ParseMigrateKeywords(script);
        ASSERT_EQ(state_.StrMigrateTables, twin.StrMigrateTables) << testing::PrintToString(script);
        ASSERT_EQ(RowsOf(views_.lstMigrateSource), twin.Rows) << testing::PrintToString(script);
        ASSERT_EQ(Boxes(), std::exchange(twin.Boxes, {})) << testing::PrintToString(script);
        ASSERT_EQ(views_.txtPreCondition.HasFocus(), twin.Focused) << testing::PrintToString(script);
    }
    EXPECT_EQ(state_.IntErrorCode, 0);
}

} // namespace
} // namespace rulemesh

#include <optional>
#include <random>
#include <vector>

#include <gtest/gtest.h>

#include "base/numbers.h"
#include "script/reg_e_replace.h"

// RegE_Replace against a matcher that tries and backs up, over the pattern " {0,}dump {1,}N\s" taken literally.

namespace rulemesh {
namespace {

struct Piece {
    TextView Characters; // any one of them
    bool Repeats = false;
    std::size_t Least = 1;
};

// The end of the longest-first match of the pieces from here on.
std::optional<std::size_t> Match(const std::vector<Piece>& pieces, std::size_t piece, TextView text, std::size_t at)
{
    if (piece == pieces.size())
        return at;
    const Piece& wanted = pieces[piece];
    std::size_t count = 0;
    while (at + count < text.size() && wanted.Characters.find(text[at + count]) != TextView::npos &&
           (wanted.Repeats || count == 0))
        ++count;
    for (std::size_t taken = count + 1; taken-- > wanted.Least;) {
        if (const auto end = Match(pieces, piece + 1, text, at + taken))
            return end;
    }
    return std::nullopt;
}

Text ReplaceAllMatches(TextView text, std::int16_t number, TextView replacement)
{
    const Text digits = PlainNumber(number);
    std::vector<Piece> pieces{{u" ", true, 0}, {u"d"}, {u"u"}, {u"m"}, {u"p"}, {u" ", true, 1}};
    for (const char16_t& digit : digits)
        pieces.push_back({TextView(&digit, 1)});
    pieces.push_back({u" \t\n\r\f\v"});

    Text result;
    for (std::size_t at = 0; at < text.size();) {
        if (const auto end = Match(pieces, 0, text, at)) {
            result += replacement;
            at = *end;
        } else {
            result += text[at++];
        }
    }
    return result;
}

TEST(RegE_ReplaceProperty, ReplacesWhatABacktrackingMatcherReplaces)
{
    const std::vector<TextView> fragments{u" ", u"  ", u"dump",    u"dump ", u" dump 5 ", u"dump 5", u"5",  u"55",
                                          u"7", u"0",  u"-5",      u"\t",    u"\n",       u"\r\n",   u"\f", u"\v",
                                          u"x", u"|",  u"Dump 5 ", u"du",    u"\u00A0",   u"\u0085", u"5 ", u" 5\n"};
    const std::vector<std::int16_t> numbers{5, 55, 0, -5, 7};
    std::mt19937 random(3);
    for (int run = 0; run < 40000; ++run) {
        Text script;
        for (std::size_t count = random() % 14; count > 0; --count)
            script += fragments[random() % fragments.size()];
        const std::int16_t number = numbers[random() % numbers.size()];
        const Text pattern = u" {0,}dump {1,}" + PlainNumber(number) + u"\\s";
        ASSERT_EQ(RegE_Replace(script, pattern, u"dump 9", true), ReplaceAllMatches(script, number, u"dump 9"))
            << testing::PrintToString(script) << " " << number;
    }
}

} // namespace
} // namespace rulemesh

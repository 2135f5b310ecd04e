#include "script/reg_e_replace.h"

#include <algorithm>
#include <optional>
#include <vector>

#include "base/failure.h"

namespace rulemesh {

namespace {

constexpr TextView White = u" \t\n\r\f\v";
constexpr TextView Special = u"\\^$.|?*+()[]{}";

// One character of the pattern, and how often it may stand.
struct Piece {
    TextView Characters; // any one of them
    std::size_t Least = 1;
    bool Repeats = false;

    [[nodiscard]] bool Fits(char16_t character) const noexcept { return Characters.find(character) != TextView::npos; }
    [[nodiscard]] bool Meets(const Piece& other) const noexcept
    {
        return Characters.find_first_of(other.Characters) != TextView::npos;
    }
};

[[noreturn]] void Refuse(TextView StrPattern)
{
    throw Failure(FailureCode::InvalidProcedureCall,
                  u"The pattern \"" + Text(StrPattern) +
                      u"\" can't be searched for: it may hold plain characters, \\s and the counts {0,} and {1,}");
}

std::vector<Piece> PiecesOf(TextView StrPattern)
{
    std::vector<Piece> pieces;
    for (TextView rest = StrPattern; !rest.empty();) {
        if (rest.starts_with(u"\\s")) {
            pieces.push_back({White});
            rest.remove_prefix(2);
        } else if (Special.find(rest.front()) == TextView::npos) {
            pieces.push_back({rest.substr(0, 1)});
            rest.remove_prefix(1);
        } else {
            Refuse(StrPattern);
        }
        constexpr std::size_t CountLength = 4;
        const bool any = rest.starts_with(u"{0,}");
        if (any || rest.starts_with(u"{1,}")) {
            pieces.back().Least = any ? 0 : 1;
            pieces.back().Repeats = true;
            rest.remove_prefix(CountLength);
        }
    }
    if (std::all_of(pieces.begin(), pieces.end(), [](const Piece& piece) { return piece.Least == 0; }))
        Refuse(StrPattern); // it would match between any two characters
    return pieces;
}

// How many characters from `at` on fit a piece, as many as it takes.
std::size_t Run(const Piece& piece, TextView text, std::size_t at) noexcept
{
    std::size_t count = 0;
    while (at + count < text.size() && piece.Fits(text[at + count]) && (piece.Repeats || count == 0))
        ++count;
    return count;
}

// Whether a run could give characters back to a piece behind it. Where it can't it is taken whole, so that a long run
// of blanks is gone through once.
bool CanGiveBack(const std::vector<Piece>& pieces, std::size_t run) noexcept
{
    for (std::size_t behind = run + 1; behind < pieces.size(); ++behind) {
        if (pieces[run].Meets(pieces[behind]))
            return true;
        if (pieces[behind].Least > 0)
            return false;
    }
    return false;
}

// The end of the longest-first match of the pieces from here on. As deep as the pattern is long.
std::optional<std::size_t> MatchEnd(const std::vector<Piece>& pieces, std::size_t index, TextView text, std::size_t at)
{
    if (index == pieces.size())
        return at;
    const Piece& piece = pieces[index];
    const std::size_t most = Run(piece, text, at);
    const std::size_t least = most < piece.Least || CanGiveBack(pieces, index) ? piece.Least : most;
    for (std::size_t taken = most + 1; taken-- > least;) {
        if (const std::optional<std::size_t> end = MatchEnd(pieces, index + 1, text, at + taken))
            return end;
    }
    return std::nullopt;
}

} // namespace

Text RegE_Replace(TextView StrText, TextView StrPattern, TextView StrReplacement, bool BoolGlobal)
{
    const std::vector<Piece> pieces = PiecesOf(StrPattern);
    const Piece& first = pieces.front();
    const bool opensWithARun = first.Repeats && !CanGiveBack(pieces, 0);
    Text StrResult;
    std::size_t copied = 0;
    for (std::size_t at = 0; at < StrText.size();) {
        const std::optional<std::size_t> end = MatchEnd(pieces, 0, StrText, at);
        if (!end) {
            // What does not match from the beginning of a run does not match from its middle either.
            at += opensWithARun ? std::max<std::size_t>(Run(first, StrText, at), 1) : 1;
            continue;
        }
        StrResult.append(StrText, copied, at - copied).append(StrReplacement);
        copied = at = *end;
        if (!BoolGlobal)
            break;
    }
    return StrResult.append(StrText, copied);
}

} // namespace rulemesh

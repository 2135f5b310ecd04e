#include "engine/near_names.h"

#include <algorithm>
#include <array>
#include <utility>

#include "base/case_map.h"

namespace rulemesh {

namespace {

constexpr double SameSpelling = 1.0;
constexpr double SameWords = 0.95;
constexpr double SameFullWords = 0.9;
constexpr double SameButShortened = 0.6; // and up to 0.8, by how little is left out
constexpr double MostLikeness = 0.75;
constexpr double LeastLikeness = 0.35;
constexpr std::size_t ShortestShortened = 3;

struct Abbreviation {
    TextView Short;
    TextView Full;
};

// In order of the short form.
constexpr std::array<Abbreviation, 62> Abbreviations = {{
    {u"acc", u"account"},      {u"acct", u"account"},      {u"addr", u"address"},   {u"adr", u"address"},
    {u"amt", u"amount"},       {u"art", u"article"},       {u"attr", u"attribute"}, {u"avg", u"average"},
    {u"bal", u"balance"},      {u"bld", u"building"},      {u"cat", u"category"},   {u"cd", u"code"},
    {u"cntry", u"country"},    {u"comp", u"company"},      {u"cont", u"contact"},   {u"ctry", u"country"},
    {u"cur", u"currency"},     {u"curr", u"currency"},     {u"cust", u"customer"},  {u"dept", u"department"},
    {u"desc", u"description"}, {u"descr", u"description"}, {u"dim", u"dimension"},  {u"disc", u"discount"},
    {u"doc", u"document"},     {u"dsca", u"description"},  {u"dt", u"date"},        {u"emp", u"employee"},
    {u"fld", u"field"},        {u"grp", u"group"},         {u"id", u"identifier"},  {u"ident", u"identifier"},
    {u"inv", u"invoice"},      {u"lang", u"language"},     {u"lst", u"last"},       {u"max", u"maximum"},
    {u"min", u"minimum"},      {u"msg", u"message"},       {u"nam", u"name"},       {u"nm", u"name"},
    {u"no", u"number"},        {u"nr", u"number"},         {u"num", u"number"},     {u"ord", u"order"},
    {u"pct", u"percent"},      {u"phn", u"phone"},         {u"pos", u"position"},   {u"prc", u"price"},
    {u"prod", u"product"},     {u"qty", u"quantity"},      {u"ref", u"reference"},  {u"reg", u"region"},
    {u"rem", u"remark"},       {u"ship", u"shipping"},     {u"st", u"street"},      {u"stat", u"status"},
    {u"sup", u"supplier"},     {u"supp", u"supplier"},     {u"tel", u"telephone"},  {u"txt", u"text"},
    {u"wgt", u"weight"},       {u"zip", u"zipcode"},
}};

static_assert(std::is_sorted(Abbreviations.begin(), Abbreviations.end(),
                             [](const Abbreviation& a, const Abbreviation& b) { return a.Short < b.Short; }));

bool IsDigit(char16_t character) noexcept { return character >= u'0' && character <= u'9'; }

TextView WithoutIndexAndDigits(TextView StrField) noexcept
{
    StrField = StrField.substr(0, StrField.find(u'('));
    const auto last = std::find_if(StrField.rbegin(), StrField.rend(),
                                   [](char16_t character) { return !IsDigit(character) && character != u'_'; });
    // A name of digits alone keeps them.
    return last == StrField.rend() ? StrField : StrField.substr(0, static_cast<std::size_t>(StrField.rend() - last));
}

TextView FullWord(TextView StrWord) noexcept
{
    const auto found = std::lower_bound(Abbreviations.begin(), Abbreviations.end(), StrWord,
                                        [](const Abbreviation& known, TextView word) { return known.Short < word; });
    return found != Abbreviations.end() && found->Short == StrWord ? found->Full : StrWord;
}

Text Joined(const std::vector<Text>& words)
{
    Text joined;
    for (const Text& word : words)
        joined += word;
    return joined;
}

std::vector<std::uint32_t> PairsOf(TextView letters)
{
    std::vector<std::uint32_t> pairs;
    for (std::size_t place = 1; place < letters.size(); ++place)
        pairs.push_back(std::uint32_t{letters[place - 1]} << 16U | letters[place]);
    std::sort(pairs.begin(), pairs.end());
    return pairs;
}

// The share of pairs that both have, from 0 to 1.
double Likeness(const std::vector<std::uint32_t>& a, const std::vector<std::uint32_t>& b)
{
    if (a.empty() || b.empty())
        return 0;
    std::size_t common = 0;
    for (auto left = a.begin(), right = b.begin(); left != a.end() && right != b.end();) {
        if (*left < *right) {
            ++left;
        } else if (*right < *left) {
            ++right;
        } else {
            ++common;
            ++left;
            ++right;
        }
    }
    return 2.0 * static_cast<double>(common) / static_cast<double>(a.size() + b.size());
}

// "custname" of "customername": the first letter is kept, and others may be left out.
bool IsShortened(TextView shorter, TextView longer) noexcept
{
    if (shorter.size() < ShortestShortened || shorter.front() != longer.front())
        return false;
    auto letter = shorter.begin();
    for (const char16_t candidate : longer) {
        if (letter != shorter.end() && *letter == candidate)
            ++letter;
    }
    return letter == shorter.end();
}

} // namespace

NearNames::Shape::Shape(TextView StrField)
{
    const Text name = ToLower(WithoutIndexAndDigits(StrField));
    for (Text& word : Split(name, u'_')) {
        if (!word.empty())
            Words.push_back(std::move(word));
    }
    Letters = Joined(Words);
    for (const Text& word : Words)
        FullWords.emplace_back(FullWord(word));
    FullLetters = Joined(FullWords);
    Pairs = PairsOf(FullLetters);
    std::sort(Words.begin(), Words.end());
    std::sort(FullWords.begin(), FullWords.end());
}

NearNames::NearNames(const std::vector<TextView>& candidates)
{
    candidates_.reserve(candidates.size());
    for (const TextView candidate : candidates)
        candidates_.emplace_back(candidate);
}

NearName NearNames::Compare(const Shape& a, const Shape& b)
{
    using Why = NearName::Why;
    if (a.Letters == b.Letters)
        return {.Score = SameSpelling, .Reason = Why::Spelling};
    if (a.Words == b.Words)
        return {.Score = SameWords, .Reason = Why::Order};
    if (a.FullWords == b.FullWords || a.FullLetters == b.FullLetters)
        return {.Score = SameFullWords, .Reason = Why::Abbreviation};
    const bool aIsShorter = a.Letters.size() < b.Letters.size();
    const Text& shorter = aIsShorter ? a.Letters : b.Letters;
    const Text& longer = aIsShorter ? b.FullLetters : a.FullLetters;
    if (!shorter.empty() && IsShortened(shorter, longer)) {
        const double kept = static_cast<double>(shorter.size()) / static_cast<double>(longer.size());
        return {.Score = SameButShortened + 0.2 * kept, .Reason = Why::Abbreviation};
    }
    return {.Score = MostLikeness * Likeness(a.Pairs, b.Pairs), .Reason = Why::Likeness};
}

std::vector<NearName> NearNames::Of(TextView StrField) const
{
    const Shape wanted(StrField);
    if (wanted.Letters.empty())
        return {};
    std::vector<NearName> near;
    for (std::size_t place = 0; place < candidates_.size(); ++place) {
        NearName name = Compare(wanted, candidates_[place]);
        name.Place = place;
        if (name.Score >= LeastLikeness)
            near.push_back(name);
    }
    std::stable_sort(near.begin(), near.end(), [](const NearName& a, const NearName& b) { return a.Score > b.Score; });
    if (near.size() > Most)
        near.resize(Most);
    return near;
}

} // namespace rulemesh

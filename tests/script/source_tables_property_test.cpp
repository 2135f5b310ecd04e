#include <algorithm>
#include <random>

#include <gtest/gtest.h>

#include "support/script_bench.h"

// Random sets, refreshes, deletions and clearings of the source tables, done on the product and on a plain list of rows
// beside a plain text.

namespace rulemesh {
namespace {

class PlainSourceTables {
public:
    std::vector<Text> Rows;

    // The text as the document gives it: white space at its ends is not read.
    [[nodiscard]] Text Stored() const
    {
        Text text = stored_;
        const auto white = [](char16_t c) { return c == u' ' || c == u'\t' || c == u'\r' || c == u'\n'; };
        while (!text.empty() && white(text.front()))
            text.erase(0, 1);
        while (!text.empty() && white(text.back()))
            text.pop_back();
        return text;
    }

    void Set(const Text& text)
    {
        stored_ = text;
        Refresh();
    }

    void Refresh()
    {
        const bool empty = Rows.empty();
        for (Text part : Parts(Stored())) {
            std::erase_if(part, [](char16_t c) { return c == u'\n' || c == u'\r'; });
            const bool known = std::find(Rows.begin(), Rows.end(), part) != Rows.end();
            const bool blank = part.find_first_not_of(u' ') == Text::npos;
            if (empty || (!known && !blank))
                Rows.push_back(part);
        }
        if (Rows.empty())
            return;
        stored_ = u"";
        for (const Text& row : Rows)
            stored_ = stored_.empty() ? row : stored_ + u"," + row;
    }

    void Delete(std::size_t index)
    {
        Rows.erase(Rows.begin() + static_cast<std::ptrdiff_t>(index));
        Text joined;
        for (const Text& row : Rows)
            joined = row + u"," + joined; // the last row comes to stand first
        if (joined.find(u',') != Text::npos)
            joined.pop_back();
        Set(joined);
        Refresh();
    }

private:
    static std::vector<Text> Parts(const Text& text)
    {
        std::vector<Text> parts;
        if (text.empty())
            return parts;
        parts.emplace_back();
        for (const char16_t c : text) {
            if (c == u',')
                parts.emplace_back();
            else
                parts.back().push_back(c);
        }
        return parts;
    }

    Text stored_;
};

class SourceTablesProperty : public ScriptBench {
protected:
    void Run(std::uint32_t seed, const std::vector<TextView>& fragments)
    {
        std::mt19937 random(seed);
        ListView& list = views_.lstSourceTables;
        for (int run = 0; run < 800; ++run) {
            Load("");
            list.Clear();
            PlainSourceTables plain;
            for (int step = 0; step < 6; ++step) {
                const auto choice = random() % 8;
                if (choice == 0) {
                    list.Clear();
                    plain.Rows.clear();
                } else if (choice == 1) {
                    sourceTables_.RefreshSourceTables();
                    plain.Refresh();
                } else if (choice <= 4 && !plain.Rows.empty()) {
                    const std::size_t index = random() % plain.Rows.size();
                    list.Select(static_cast<int>(index) + 1, true);
                    sourceTables_.lstSourceTables_KeyDown(46);
                    plain.Delete(index);
                } else {
                    Text text;
                    for (std::size_t count = random() % 8; count > 0; --count)
                        text += fragments[random() % fragments.size()];
                    sourceTables_.SourceTables(text);
                    plain.Set(text);
                }
                ASSERT_EQ(RowsOf(list), plain.Rows);
                ASSERT_EQ(sourceTables_.SourceTables(), plain.Stored());
            }
        }
    }
};

TEST_F(SourceTablesProperty, GoByRowsAsThePlainListDoes)
{
    Run(5, {u"A", u"a", u"B", u"C,", u",", u",", u"abcde123", u"\u00E4"});
}

TEST_F(SourceTablesProperty, GoByRowsWithLineEndsInTheText)
{
    Run(6, {u"A", u"a", u"B", u"C,", u",", u",\r\n", u"\n", u"\r", u"abcde123"});
}

TEST_F(SourceTablesProperty, GoByRowsWithBlanksInTheText)
{
    Run(7, {u"A", u"a", u"B", u"C,", u",", u", ", u" ", u" ,", u"\t", u"abcde123"});
}

} // namespace
} // namespace rulemesh

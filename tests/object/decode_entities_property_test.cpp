#include <array>
#include <random>

#include <gtest/gtest.h>

#include "object/document_access.h"

namespace rulemesh {
namespace {

// One replacement over the whole text, from front to back, with a look at every place.
Text Replaced(const Text& text, const Text& find, const Text& replacement)
{
    Text result;
    for (std::size_t at = 0; at < text.size();) {
        bool matches = at + find.size() <= text.size();
        for (std::size_t index = 0; matches && index < find.size(); ++index) {
            const char16_t c = text[at + index];
            matches = (c >= u'A' && c <= u'Z' ? c + 32 : c) == find[index];
        }
        result += matches ? replacement : Text(1, text[at]);
        at += matches ? find.size() : 1;
    }
    return result;
}

Text FiveReplacements(Text text)
{
    text = Replaced(text, u"&lt;", u"<");
    text = Replaced(text, u"&gt;", u">");
    text = Replaced(text, u"&amp;", u"&");
    text = Replaced(text, u"&quot;", u"\"");
    return Replaced(text, u"\n", u"\r\n");
}

TEST(DecodeEntitiesProperty, IsFiveReplacementsInTheirOrder)
{
    constexpr std::array fragments{TextView(u"&"),      TextView(u"lt;"),   TextView(u"LT;"),    TextView(u"gt;"),
                                   TextView(u"amp;"),   TextView(u"aMp;"),  TextView(u"quot;"),  TextView(u"&lt;"),
                                   TextView(u"&Gt;"),   TextView(u"&amp;"), TextView(u"&quot;"), TextView(u"&apos;"),
                                   TextView(u"&#10;"),  TextView(u"\n"),    TextView(u"\r"),     TextView(u"\r\n"),
                                   TextView(u"x"),      TextView(u";"),     TextView(u"l"),      TextView(u"<"),
                                   TextView(u"\u017F"), TextView(u"")};
    std::mt19937 random(4);
    for (int run = 0; run < 40000; ++run) {
        Text text;
        for (std::size_t count = random() % 12; count > 0; --count)
            text += fragments[random() % fragments.size()];
        ASSERT_EQ(DecodeEntities(text), FiveReplacements(text)) << testing::PrintToString(text);
    }
}

} // namespace
} // namespace rulemesh

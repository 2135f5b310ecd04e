#include <random>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "base/failure_of.h"
#include "document/xml_document.h"

// Edits taken back and done again. The whole text is compared each time, and what a fresh load of it answers.

namespace rulemesh {
namespace {

constexpr const char* Loaded =
    "<?xml version=\"1.0\"?><r a='1'>\n <!-- kept --><x n=\"1\">one</x>  <y/><x n='2'><z>deep</z><z/></x>tail</r>";

class XmlJournal : public testing::Test {
protected:
    XmlJournal()
    {
        document_.KeepEdits();
        EXPECT_TRUE(document_.loadXML(std::string(Loaded)));
    }

    [[nodiscard]] XmlNode X() const { return document_.documentElement().firstChild(); }

    XmlDocument document_;
};

TEST_F(XmlJournal, TakesAnEditBackToTheByte)
{
    X().text(u"two");
    X().setNamedItem(u"n", u"9");
    const std::string edited = document_.xmlUtf8();
    DocumentEdits edits = document_.TakeEdits();
    document_.TakeBack(edits);
    EXPECT_EQ(document_.xmlUtf8(), Loaded);
    document_.DoAgain(edits);
    EXPECT_EQ(document_.xmlUtf8(), edited);
}

TEST_F(XmlJournal, KeepsNothingOfAnEditThatChangesNothing)
{
    X().text(u"two");
    static_cast<void>(document_.TakeEdits());
    X().text(u"two");
    X().setNamedItem(u"n", u"1");
    static_cast<void>(document_.TakeEdits());
    X().setNamedItem(u"n", u"1");
    EXPECT_TRUE(document_.TakeEdits().IsEmpty());
}

TEST_F(XmlJournal, TellsAnEditThatReadsTheSameFromAChange)
{
    X().text(u"one");
    DocumentEdits same = document_.TakeEdits();
    EXPECT_FALSE(document_.ChangeText(same));
    X().text(u"other");
    DocumentEdits other = document_.TakeEdits();
    EXPECT_TRUE(document_.ChangeText(other));
}

TEST_F(XmlJournal, SeesThatAChildTookThePlaceOfItsLike)
{
    const XmlNode root = document_.documentElement();
    root.replaceChild(X().cloneNode(), X());
    DocumentEdits same = document_.TakeEdits();
    EXPECT_FALSE(document_.ChangeText(same));
    const XmlNode made = document_.createNode(u"x");
    root.replaceChild(made, X());
    DocumentEdits other = document_.TakeEdits();
    EXPECT_TRUE(document_.ChangeText(other));
}

TEST_F(XmlJournal, FindsByKeyWhatWasPutBack)
{
    const XmlNode root = document_.documentElement();
    for (int number = 10; number < 60; ++number) {
        const XmlNode made = document_.createNode(u"x");
        made.setNamedItem(u"n", Text(1, static_cast<char16_t>(number + 100)));
        root.appendChild(made);
    }
    const Text key(1, static_cast<char16_t>(130));
    const XmlNode found = document_.selectSingleNode(u"/r/x", u"n", key); // by an index
    ASSERT_TRUE(found);
    static_cast<void>(document_.TakeEdits());
    root.removeChild(found);
    EXPECT_FALSE(document_.selectSingleNode(u"/r/x", u"n", key));
    DocumentEdits edits = document_.TakeEdits();
    document_.TakeBack(edits);
    EXPECT_EQ(document_.selectSingleNode(u"/r/x", u"n", key), found);
    document_.DoAgain(edits);
    EXPECT_FALSE(document_.selectSingleNode(u"/r/x", u"n", key));
}

TEST_F(XmlJournal, AHandleNamesNothingBehindANewLoad)
{
    const XmlNode old = X();
    EXPECT_TRUE(document_.loadXML(std::string(Loaded)));
    EXPECT_EQ(FailureOf([&] { static_cast<void>(old.text()); }), FailureCode::ObjectVariableNotSet);
    EXPECT_EQ(X().text(), u"one");
}

// Random edits in groups, with the text behind each; then a random way back and forth through the groups.
class RandomEdits {
public:
    explicit RandomEdits(unsigned seed) : random_(seed)
    {
        document_.KeepEdits();
        EXPECT_TRUE(document_.loadXML(std::string(Loaded)));
        texts_.push_back(document_.xmlUtf8());
    }

    void Make(int groups)
    {
        for (; groups > 0; --groups) {
            for (int edits = 1 + Below(4); edits > 0; --edits)
                Edit();
            DocumentEdits made = document_.TakeEdits();
            const std::string text = document_.xmlUtf8();
            EXPECT_EQ(document_.ChangeText(made), text != texts_.back());
            EXPECT_EQ(document_.xmlUtf8(), text);
            done_.push_back(std::move(made));
            texts_.push_back(text);
        }
    }

    void Walk(int steps)
    {
        std::size_t at = done_.size();
        for (; steps > 0; --steps) {
            if (Below(2) == 0 && at > 0)
                document_.TakeBack(done_[--at]);
            else if (at < done_.size())
                document_.DoAgain(done_[at++]);
            Look();
            ASSERT_EQ(document_.xmlUtf8(), texts_[at]);
        }
        while (at > 0)
            document_.TakeBack(done_[--at]);
        ASSERT_EQ(document_.xmlUtf8(), texts_.front());
    }

private:
    std::vector<XmlNode> Elements()
    {
        std::vector<XmlNode> all = {document_.documentElement()};
        for (std::size_t at = 0; at < all.size(); ++at) {
            for (const XmlNode& child : all[at].childNodes())
                all.push_back(child);
        }
        return all;
    }

    // A look makes nodes and indexes, which must do no harm.
    void Look()
    {
        static_cast<void>(document_.selectSingleNode(u"/r/x", u"n", u"2"));
        static_cast<void>(Elements());
    }

    void Edit()
    {
        const std::vector<XmlNode> all = Elements();
        const XmlNode node = all[static_cast<std::size_t>(Below(static_cast<int>(all.size())))];
        const std::vector<XmlNode> children = node.childNodes();
        switch (Below(8)) {
        case 0:
            if (node != all.front() || Below(4) == 0)
                node.text(Below(2) == 0 ? u"one" : u"a\r\n<b>");
            break;
        case 1:
            node.setNamedItem(u"n", Below(2) == 0 ? u"2" : u"\"'\n");
            break;
        case 2:
        case 3:
            node.appendChild(document_.createNode(Below(2) == 0 ? u"x" : u"new"));
            break;
        case 4:
            if (!children.empty())
                node.removeChild(children.front());
            break;
        case 5:
            if (!children.empty())
                node.replaceChild(children.back().cloneNode(), children.front());
            break;
        case 6:
            node.appendChild(node.cloneNode());
            break;
        default:
            if (Below(3) == 0)
                node.removeChildren();
            break;
        }
    }

    int Below(int limit) { return std::uniform_int_distribution<int>(0, limit - 1)(random_); }

    std::mt19937 random_;
    XmlDocument document_;
    std::vector<std::string> texts_; // in front of each group, and behind the last one
    std::vector<DocumentEdits> done_;
};

TEST(XmlJournalOfRandomEdits, LeadsToEveryTextAgain)
{
    for (unsigned seed = 1; seed <= 300 && !testing::Test::HasFailure(); ++seed) {
        RandomEdits edits(seed);
        edits.Make(12);
        edits.Walk(40);
    }
}

} // namespace
} // namespace rulemesh

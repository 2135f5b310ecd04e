#include "views/combo_box.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "base/failure_of.h"
#include "support/view_desk.h"

namespace rulemesh {
namespace {

using testing::ElementsAre;

struct ComboBoxTest : testing::Test, ViewDesk {
    int Clicks = 0;

    ComboBoxTest()
    {
        Tabs.Tab(1);
        Combo.AddItem(u"zwei", 2);
        Combo.AddItem(u"eins", 1);
        Combo.AddItem(u"drei", 3);
        Combo.Click = [this] { ++Clicks; };
    }

    [[nodiscard]] std::vector<Text> Texts() const
    {
        std::vector<Text> texts;
        for (const ComboBox::Entry& entry : Combo.Entries())
            texts.push_back(entry.Text);
        return texts;
    }
};

TEST_F(ComboBoxTest, KeepsEntriesInTheOrderInWhichTheyWereAdded)
{
    EXPECT_THAT(Texts(), ElementsAre(u"zwei", u"eins", u"drei"));
}

TEST_F(ComboBoxTest, HasNoSelectionAndNoTextAtTheStart)
{
    EXPECT_EQ(Combo.ListIndex(), -1);
    EXPECT_EQ(Combo.Text(), u"");
    EXPECT_FALSE(Combo.HasSelection());
}

TEST_F(ComboBoxTest, HasTheTextAndDataOfItsSelectedEntry)
{
    Combo.ListIndex(1);
    EXPECT_EQ(Combo.Text(), u"eins");
    EXPECT_EQ(Combo.ItemData(), 1);
}

TEST_F(ComboBoxTest, RaisesAFailureForTheDataOfNoSelection)
{
    EXPECT_EQ(FailureOf([this] { static_cast<void>(Combo.ItemData()); }), FailureCode::ObjectVariableNotSet);
}

TEST_F(ComboBoxTest, RunsTheClickHandlerWhenTheProgramSelectsAnotherEntry)
{
    Combo.ListIndex(0);
    Combo.ListIndex(2);
    EXPECT_EQ(Clicks, 2);
}

TEST_F(ComboBoxTest, RunsNothingWhenTheProgramSelectsTheSelectedEntry)
{
    Combo.ListIndex(2);
    Combo.ListIndex(2);
    EXPECT_EQ(Clicks, 1);
}

TEST_F(ComboBoxTest, RunsTheClickHandlerWhenTheUserPicksTheSelectedEntry)
{
    Combo.ListIndex(2);
    Combo.UserChooses(2);
    EXPECT_EQ(Clicks, 2);
}

TEST_F(ComboBoxTest, TakesTheFocusBeforeTheUsersClick)
{
    Combo.Click = [this] { Log.emplace_back("combo click"); };
    Combo.UserChooses(0);
    EXPECT_THAT(Log, ElementsAre("combo got", "combo click"));
}

TEST_F(ComboBoxTest, LosesTheClickOnAnEntryThatIsNoLongerThere)
{
    Combo.GotFocus = [this] { Combo.Clear(); };
    Combo.UserChooses(2);
    EXPECT_EQ(Clicks, 0);
    EXPECT_EQ(Combo.ListIndex(), -1);
}

TEST_F(ComboBoxTest, LosesTheClickWhenTheFocusDoesNotReachIt)
{
    Tabs.SetFocus();
    Tabs.LostFocus = [this] { Combo.Enabled(false); };
    Combo.UserChooses(0);
    EXPECT_EQ(Clicks, 0);
}

TEST_F(ComboBoxTest, ClearsItsSelectionWithItsEntriesAndRunsNothing)
{
    Combo.ListIndex(1);
    Clicks = 0;
    Combo.Clear();
    EXPECT_EQ(Combo.ListIndex(), -1);
    EXPECT_EQ(Combo.Text(), u"");
    EXPECT_TRUE(Combo.Entries().empty());
    EXPECT_EQ(Clicks, 0);
}

TEST_F(ComboBoxTest, RefusesAnEntryThatIsNotThere)
{
    EXPECT_EQ(FailureOf([this] { Combo.ListIndex(3); }), FailureCode::InvalidPropertyValue);
    EXPECT_EQ(FailureOf([this] { Combo.ListIndex(-2); }), FailureCode::InvalidPropertyValue);
    EXPECT_EQ(Combo.ListIndex(), -1);
    EXPECT_EQ(Clicks, 0);
}

TEST_F(ComboBoxTest, HoldsTheNewSelectionWhenTheClickHandlerRuns)
{
    Text seen;
    Combo.Click = [&] { seen = Combo.Text(); };
    Combo.ListIndex(2);
    EXPECT_EQ(seen, u"drei");
}

} // namespace
} // namespace rulemesh

#include <gtest/gtest.h>

#include "drive/scripted_platform.h"
#include "support/name_form.h"

namespace rulemesh {
namespace {

class OtherForms : public testing::Test {
protected:
    UserHands hands_;
    ScriptedPlatform platform_{hands_, [](const Json&) {}};
};

TEST_F(OtherForms, AreToldByWhatTheyAsk)
{
    NameForm form;
    form.txtName.Text(u"price");
    form.cmbKind.ListIndex(1);
    platform_.ShowModal(form);
    EXPECT_EQ(platform_.TakeHappened(), Json::parse(R"([{"form":{"mode":"name","caption":"New field",
        "text":"price","locked":false,"ok_enabled":true,"entries":["S","N"],"index":1}}])"));
}

TEST_F(OtherForms, AreWorkedByTheStepsOfAReply)
{
    NameForm form;
    platform_.LayReady("form", Json::parse(R"({"steps":[{"do":"type","view":"txtName","text":"price"},
        {"do":"choose","view":"cmbKind","index":1},{"do":"click","view":"CmdTake"}]})"));
    platform_.ShowModal(form);
    EXPECT_EQ(form.Taken, u"price:N");
    EXPECT_EQ(form.Closings, 0);
}

TEST_F(OtherForms, AreClosedFromTheirFrameWhereTheyHaveNoCancel)
{
    NameForm form;
    platform_.ShowModal(form);
    EXPECT_FALSE(form.IsOpen());
    EXPECT_EQ(form.Closings, 1);
    EXPECT_EQ(form.Taken, u"");
}

TEST_F(OtherForms, MayAskNothingAtAll)
{
    ModalForm form;
    form.Caption(u"About");
    platform_.ShowModal(form);
    EXPECT_FALSE(form.IsOpen());
    EXPECT_EQ(platform_.TakeHappened(), Json::parse(R"([{"form":{"mode":"","caption":"About"}}])"));
}

} // namespace
} // namespace rulemesh

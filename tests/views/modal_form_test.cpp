#include "views/modal_form.h"

#include <gtest/gtest.h>

#include "base/failure_of.h"
#include "views/text_box.h"

namespace rulemesh {
namespace {

TEST(ModalForm, IsOpenUntilItIsUnloaded)
{
    ModalForm form;
    EXPECT_TRUE(form.IsOpen());
    form.Unload();
    EXPECT_FALSE(form.IsOpen());
}

TEST(ModalForm, RunsItsQueryUnloadHandlerWhileStillOpenWhenTheUserClosesIt)
{
    ModalForm form;
    bool wasOpen = false;
    form.QueryUnload = [&] { wasOpen = form.IsOpen(); };
    form.UserCloses();
    EXPECT_TRUE(wasOpen);
    EXPECT_FALSE(form.IsOpen());
}

TEST(ModalForm, RunsNoHandlerWhenTheProgramUnloadsIt)
{
    ModalForm form;
    int runs = 0;
    form.QueryUnload = [&] { ++runs; };
    form.Unload();
    EXPECT_EQ(runs, 0);
}

TEST(ModalForm, StaysOpenWhenItsQueryUnloadHandlerFails)
{
    ModalForm form;
    form.QueryUnload = [] { throw Failure(FailureCode::Overflow); };
    EXPECT_EQ(FailureOf([&] { form.UserCloses(); }), FailureCode::Overflow);
    EXPECT_TRUE(form.IsOpen());
}

TEST(ModalForm, HasAFocusOfItsOwn)
{
    ModalForm form;
    ModalForm behind;
    TextBox box(form.Tree, {.Name = u"TxtDoc"});
    box.SetFocus();
    EXPECT_EQ(form.Tree.Focused(), &box);
    EXPECT_EQ(behind.Tree.Focused(), nullptr);
}

} // namespace
} // namespace rulemesh

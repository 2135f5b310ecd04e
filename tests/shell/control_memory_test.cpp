// A user's session under an allocation that fails, wherever in a step it does: the step ends with std::bad_alloc or is
// done, the object stays one that loads, and the session goes on.

#include <array>
#include <functional>
#include <new>

#include <gtest/gtest.h>

#include "base/failure.h"
#include "shell/designer_bench.h"
#include "support/failing_memory.h"

namespace rulemesh {
namespace {

struct SessionStep {
    const char* Name;
    void (*Do)(ctlRulemesh&);
};

// From the object to the text that goes back.
constexpr std::array Steps = {
    SessionStep{"Open",
                [](ctlRulemesh& control) {
                    control.TargetTable(u"tgtab001");
                    control.Edit(true);
                    control.MappingObjectXML(std::string(SmallObject));
                    control.ShowControl();
                }},
    SessionStep{"TypeQuery",
                [](ctlRulemesh& control) {
                    control.Views().Tree.MoveFocus(control.Views().txtMainQuery);
                    control.Views().txtMainQuery.UserTypes(u"dump 1 | first\r\ndump 3 | a third dump instead");
                }},
    SessionStep{"ShowRules", [](ctlRulemesh& control) { control.Views().MainTab.UserClicksTab(1); }},
    SessionStep{"Guess", [](ctlRulemesh& control) { control.Views().CmdGuess.UserClicks(); }},
    SessionStep{"EditRule",
                [](ctlRulemesh& control) {
                    control.Views().Tree.MoveFocus(control.Views().RulesGrid);
                    control.GridEdit(13);
                    control.Views().txtgrdline.UserTypes(u"a rule of a length\r\nof two lines");
                    control.Views().Tree.UserLeaves();
                }},
    SessionStep{"ShowAnotherDump", [](ctlRulemesh& control) { control.Views().CmbDump.UserChooses(1); }},
    SessionStep{"Undo", [](ctlRulemesh& control) { static_cast<void>(control.Undo()); }},
    SessionStep{"Redo", [](ctlRulemesh& control) { static_cast<void>(control.Redo()); }},
    SessionStep{"Read", [](ctlRulemesh& control) { static_cast<void>(control.MappingObjectXmlUtf8()); }},
};

// A control on the way to a step.
struct Desk {
    explicit Desk(std::size_t step)
    {
        Shared() = {};
        for (std::size_t earlier = 0; earlier < step; ++earlier)
            Steps[earlier].Do(Control);
    }

    RecordingPlatform Platform;
    RecordingEvents Events;
    ctlRulemesh Control{Platform, Events};
};

// After a step that ended in its middle a later one may have nothing to work on, and says so.
void GoOn(std::size_t step, ctlRulemesh& control)
{
    try {
        Steps[step].Do(control);
    } catch (const Failure& failure) {
        EXPECT_EQ(failure.Code(), FailureCode::InvalidPropertyArrayIndex);
    }
}

enum class Memory { Lasted, Failed };

// A step in which an allocation fails. What a handler raises by itself is none of it.
Memory DoWithout(std::size_t allocation, FailingMemory::Which which, std::size_t step, ctlRulemesh& control)
{
    const FailingMemory memory(allocation, which);
    try {
        Steps[step].Do(control);
    } catch (const std::bad_alloc&) {
        return Memory::Failed;
    }
    return memory.HasFailed() ? Memory::Failed : Memory::Lasted;
}

class ControlMemory : public testing::TestWithParam<std::size_t> {
protected:
    static void FailEachAllocation(FailingMemory::Which which)
    {
        for (std::size_t allocation = 1;; allocation += 1 + allocation / 8) {
            SCOPED_TRACE("allocation " + std::to_string(allocation));
            Desk desk(GetParam());
            if (DoWithout(allocation, which, GetParam(), desk.Control) == Memory::Lasted)
                break;
            ASSERT_NO_FATAL_FAILURE(ExpectWhole(desk.Control));
            for (std::size_t later = GetParam() == 0 ? 0 : 1; later < Steps.size(); ++later)
                GoOn(later, desk.Control);
            ASSERT_NO_FATAL_FAILURE(ExpectWhole(desk.Control));
            ASSERT_NE(desk.Control.DocumentAsItStands(), "");
        }
    }

    // No action is left open, and the object is empty as before the first load, or one that loads.
    static void ExpectWhole(ctlRulemesh& control)
    {
        ASSERT_FALSE(control.Views().Tree.Acting.Running());
        const std::string xml = control.DocumentAsItStands();
        XmlDocument fresh;
        ASSERT_EQ(fresh.loadXML(xml), !xml.empty()) << xml;
    }
};

TEST_P(ControlMemory, SessionGoesOnWhenOneAllocationFails) { FailEachAllocation(FailingMemory::Which::Alone); }

TEST_P(ControlMemory, SessionGoesOnWhenAllAllocationsOfAStepFail)
{
    FailEachAllocation(FailingMemory::Which::AndAllBehind);
}

INSTANTIATE_TEST_SUITE_P(Step, ControlMemory, testing::Range(std::size_t{0}, Steps.size()),
                         [](const auto& step) { return Steps[step.param].Name; });

} // namespace
} // namespace rulemesh

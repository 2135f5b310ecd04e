#include <fstream>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "drive/run_program.h"
#include "platform/temporary_folder.h"

// What `rulemesh drive` does when the system gives it no more memory.

#if defined(__SANITIZE_ADDRESS__)
#define RULEMESH_UNDER_SANITIZER
#elif defined(__has_feature)
#if __has_feature(address_sanitizer)
#define RULEMESH_UNDER_SANITIZER
#endif
#endif

namespace rulemesh {
namespace {

using testing::AnyOf;
using testing::Eq;
using testing::HasSubstr;
using testing::StartsWith;

constexpr int RanOutOfMemory = 5;
constexpr const char* SmallRequest = "{\"do\":\"focused\"}\n";
constexpr const char* SmallAnswer = "{\"ok\":true,\"value\":null,\"happened\":[]}\n";

class ProgramMemory : public testing::Test {
protected:
    void SetUp() override
    {
#ifdef RULEMESH_UNDER_SANITIZER
        GTEST_SKIP() << "the address sanitizer reserves more than any limit";
#endif
        Put(folder_ / "small", SmallRequest);
        while (RunWith(least_, "small").output != SmallAnswer)
            ASSERT_LT(least_ += 16, 4096);
    }

    // An object with a text of so many megabytes, and a small request behind it.
    void PutLargeRequest(const char* name, std::size_t megabytes)
    {
        std::ofstream file(folder_ / name, std::ios::binary);
        file << R"({"do":"let","name":"MappingObjectXML","value":"<tgtab001><PREC>)"
             << std::string(megabytes << 20, 'x') << R"(</PREC></tgtab001>"})"
             << "\n"
             << SmallRequest;
    }

    [[nodiscard]] Outcome RunWith(int megabytes, const char* name) const
    {
        return RunShell("ulimit -v " + std::to_string(megabytes * 1024) + " && \"$RULEMESH\" drive '" +
                        (folder_ / name).native() + "'");
    }

    int least_ = 16; // megabytes that the program and a small request need

private:
    TemporaryFolder folder_;
};

TEST_F(ProgramMemory, ObjectThatIsTooLargeIsAnsweredWithAFailureAndTheSessionGoesOn)
{
    PutLargeRequest("large", 32);
    // Enough for the line, not for the texts that are made of it.
    const Outcome outcome = RunWith(least_ + 112, "large");
    EXPECT_EQ(outcome.status, 0);
    EXPECT_THAT(outcome.output, StartsWith(R"({"ok":false,"happened":[],"failure":{"number":7,)"));
    EXPECT_THAT(outcome.output, testing::EndsWith(SmallAnswer));
}

TEST_F(ProgramMemory, LineThatIsTooLongEndsTheProgramWithAMessage)
{
    PutLargeRequest("large", 64);
    const Outcome outcome = RunWith(least_ + 32, "large");
    EXPECT_EQ(outcome.status, RanOutOfMemory);
    EXPECT_EQ(outcome.output, "rulemesh: out of memory\n");
}

TEST_F(ProgramMemory, NoLimitLetsASignalEndTheProgram)
{
    PutLargeRequest("large", 2);
    for (int more = 0; more <= 24; more += 2) {
        const Outcome outcome = RunWith(least_ + more, "large");
        SCOPED_TRACE(std::to_string(least_ + more) + " MB: " + outcome.output.substr(0, 200));
        ASSERT_THAT(outcome.status, AnyOf(Eq(0), Eq(RanOutOfMemory)));
        if (outcome.status == 0)
            ASSERT_THAT(outcome.output, AnyOf(StartsWith(R"({"ok":true)"), HasSubstr(R"("failure":{"number":7,)")));
        else
            ASSERT_THAT(outcome.output, HasSubstr("rulemesh: out of memory\n"));
    }
}

} // namespace
} // namespace rulemesh

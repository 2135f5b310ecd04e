// A session under an allocation that fails, wherever in a request it does.

#include <memory>
#include <new>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "document/xml_document.h"
#include "drive/json_text.h"
#include "drive/session.h"
#include "engine/module1.h"
#include "support/failing_memory.h"

namespace rulemesh {
namespace {

constexpr int OutOfMemory = 7;

// A user's session, from the object to the text that goes back.
const std::vector<std::string>& Requests()
{
    static const std::vector<std::string> requests = {
        R"({"do":"let","name":"TargetTable","value":"tgtab001"})",
        R"({"do":"let","name":"Edit","value":true})",
        R"({"do":"let","name":"MappingObjectXML","value":"<tgtab001><SRCTBL>srtab001</SRCTBL><PREC>migrate srtab001</PREC><QUERY ST='srtab001'>dump 1 | the first of two dumps\ndump 2 | the second</QUERY><SRCTAB><SRTAB001><A FNo='1' TYPE='S' DSCA='a description of some length'/><B FNo='2' TYPE='S'/></SRTAB001></SRCTAB><TARTAB><TGTAB001><A No='1' FNo='1' TYPE='S'/><B No='2' FNo='2' TYPE='S'/></TGTAB001></TARTAB><DUMP No='1'><A TEXT='' TYPE='0'>a rule that is long enough</A></DUMP></tgtab001>"})",
        R"({"do":"call","name":"ShowControl","args":[]})",
        R"({"do":"type","view":"txtMainQuery","text":"dump 1 | first\r\ndump 3 | a third dump instead"})",
        R"({"do":"tab","index":1})",
        R"({"do":"click","view":"CmdGuess"})",
        R"({"do":"cell","view":"RulesGrid","row":1,"col":1,"double":true})",
        R"({"do":"type","view":"txtgrdline","text":"a rule\r\nof two lines"})",
        R"({"do":"key","code":9})",
        R"({"do":"choose","view":"CmbDump","index":1})",
        R"({"do":"click","view":"CmdDumpText"})",
        R"({"do":"state"})",
        R"({"do":"read","view":"lstTargetFields"})",
        R"({"do":"get","name":"MappingObjectXML"})",
    };
    return requests;
}

std::unique_ptr<Session> SessionBefore(std::size_t request)
{
    Shared() = {};
    auto session = std::make_unique<Session>();
    for (std::size_t earlier = 0; earlier < request; ++earlier)
        static_cast<void>(session->Answer(Requests()[earlier]));
    return session;
}

// The answer, "" when there was no memory for one; nothing is left of `number` when no allocation failed.
std::string AnswerWithout(std::size_t& number, FailingMemory::Which which, Session& session, const std::string& request)
{
    const FailingMemory memory(number, which);
    std::string answer;
    try {
        answer = session.Answer(request);
    } catch (const std::bad_alloc&) {
        return {};
    }
    if (!memory.HasFailed())
        number = 0;
    return answer;
}

std::string Xml(Session& session)
{
    return Json::parse(session.Answer(R"({"do":"xml"})")).at("value").get<std::string>();
}

class SessionMemory : public testing::TestWithParam<std::size_t> {
protected:
    static void FailEach(FailingMemory::Which which)
    {
        const std::string& request = Requests()[GetParam()];
        for (std::size_t step = 1;; step += 1 + step / 16) {
            SCOPED_TRACE("allocation " + std::to_string(step) + " of " + request);
            const std::unique_ptr<Session> session = SessionBefore(GetParam());
            std::size_t number = step;
            const std::string line = AnswerWithout(number, which, *session, request);
            if (number == 0)
                break;
            if (!line.empty()) {
                const Json answer = Json::parse(line);
                ASSERT_TRUE(answer.at("ok") == true || answer.at("failure").at("number") == OutOfMemory) << line;
                ASSERT_NE(answer.at("ok") == true, answer.contains("failure")) << line;
            }
            const std::string xml = Xml(*session);
            XmlDocument fresh;
            ASSERT_EQ(fresh.loadXML(xml), !xml.empty()) << xml;
            // And the session goes on, to a text that a fresh document reads.
            for (std::size_t later = GetParam(); later < Requests().size(); ++later)
                static_cast<void>(session->Answer(Requests()[later]));
            ASSERT_TRUE(fresh.loadXML(Xml(*session)));
            ASSERT_TRUE(fresh.selectSingleNode(u"/tgtab001/DUMP", u"No", u"1")) << Xml(*session);
        }
    }
};

TEST_P(SessionMemory, ARequestIsAnsweredWithAFailureWhenOneAllocationFails) { FailEach(FailingMemory::Which::Alone); }

TEST_P(SessionMemory, TheSessionGoesOnWhenAllAllocationsOfARequestFail)
{
    FailEach(FailingMemory::Which::AndAllBehind);
}

INSTANTIATE_TEST_SUITE_P(Session, SessionMemory, testing::Range(std::size_t{0}, std::size_t{15}));

} // namespace
} // namespace rulemesh

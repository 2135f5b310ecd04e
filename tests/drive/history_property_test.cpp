#include <random>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "drive/json_text.h"
#include "drive/session.h"
#include "engine/shared_form_values.h"
#include "support/samples.h"
#include "views/designer_views.h"

// Random sessions of a user and a host. Behind every request the last step is undone and done again, at the end all of
// them are; each time everything that can be read must stand as it stood.

namespace rulemesh {
namespace {

constexpr const char* MultiTargetObject =
    R"(<tgtab001><SRCTBL>srtab010,srtab020</SRCTBL><PREC TEXT="note">migrate srtab010 migrate srtab020 dump 4</PREC>)"
    R"(<QUERY ST="srtab010">select dump 1 | items
</QUERY><QUERY ST="srtab020">dump 2 | codes
dump 3</QUERY><FUNCTIONS>f</FUNCTIONS><VAR>v</VAR><MSCRIPT><TGTAB001/><TGTAB002/></MSCRIPT>)"
    R"(<SRCTAB><SRTAB010><ITEM FNo="1" TYPE="S" LENG="20"/><PRICE__1 FNo="2" TYPE="F"/></SRTAB010>)"
    R"(<SRTAB020><CODE FNo="1" TYPE="I"/></SRTAB020></SRCTAB>)"
    R"(<TARTAB><TGTAB001><ITEM No="1" FNo="1" TYPE="S" LENG="20"/><PRICE__1 No="2" FNo="2" TYPE="F"/></TGTAB001>)"
    R"(<TGTAB002><CODE No="1" FNo="1" TYPE="I"/></TGTAB002></TARTAB>)"
    R"(<DUMP No='1' TT="TGTAB001"><ITEM TEXT="n" TYPE="0">one</ITEM></DUMP><DUMP No="3" TT="TGTAB002"/></tgtab001>)";

Json Let(const char* name, const Json& value) { return {{"do", "let"}, {"name", name}, {"value", value}}; }

// Requests as users and hosts make them, and whether they may make a step.
class RandomPeople {
public:
    explicit RandomPeople(unsigned seed) : random_(seed) {}

    static std::vector<Json> Begin(unsigned seed)
    {
        const bool small = seed % 2 == 0;
        return {Let("TargetTable", small ? "tgtab001" : "salor101"),
                Let("MappingObjectXML", small ? std::string(MultiTargetObject) : Sample("northwind.xml")),
                Let("Edit", true),
                {{"do", "call"}, {"name", "ShowControl"}},
                {{"do", "resize"}, {"width", 11700}, {"height", 7755}}};
    }

    Json Next()
    {
        switch (Below(24)) {
        case 0:
        case 1:
            return {{"do", "tab"}, {"index", Below(2)}};
        case 2:
            return {{"do", "focus"}, {"view", AnyOf(Views())}};
        case 3:
        case 4:
        case 5:
            return {{"do", "type"}, {"view", AnyOf(Boxes())}, {"text", AnyOf(Texts())}};
        case 6:
            return {
                {"do", "key"}, {"code", AnyOf(std::vector{9, 27, 46, 77, 80})}, {"shift", AnyOf(std::vector{0, 1, 4})}};
        case 7:
        case 8:
            return {{"do", "press"}, {"view", "RulesGrid"}, {"ascii", AnyOf(std::vector{9, 13, 32, 65})}};
        case 9:
        case 10:
            return {{"do", "choose"}, {"view", "CmbDump"}, {"index", Below(4)}};
        case 11:
            return {{"do", "row"}, {"view", AnyOf(Lists())}, {"row", 1 + Below(5)}};
        case 12:
            return {{"do", "tick"}, {"view", "lstSourceFields"}, {"row", 1 + Below(5)}, {"on", Below(3) != 0}};
        case 13:
            return {{"do", "header"}, {"view", AnyOf(Lists())}, {"column", 1 + Below(8)}};
        case 14:
            return {
                {"do", "cell"}, {"view", "RulesGrid"}, {"row", Below(6)}, {"col", Below(2)}, {"double", Below(2) == 1}};
        case 15:
            return {{"do", "scroll"}, {"view", "RulesGrid"}, {"top", Below(12)}};
        case 16:
            return Reply();
        case 17:
            return AnyOf(std::vector<Json>{{{"do", "leave"}},
                                           {{"do", "resize"}, {"width", 9000 + 100 * Below(40)}, {"height", 7755}},
                                           {{"do", "set"}, {"view", "Command1"}, {"visible", true}},
                                           {{"do", "get"}, {"name", "MappingObjectXML"}},
                                           {{"do", "call"}, {"name", "GridEdit"}, {"args", {97}}}});
        case 18:
            return AnyOf(
                std::vector<Json>{Let("SourceTables", "srtab010,zzzzz001"),
                                  Let("PreCondition", "migrate srtab020 dump 9"),
                                  Let("MainQuery", "dump 7 | seven"),
                                  Let("FieldMapping", "a rule"),
                                  {{"do", "call"}, {"name", "SetTextNumber"}, {"args", {"D", 7, "1", "item"}}}});
        default:
            return {{"do", "click"}, {"view", AnyOf(Buttons())}};
        }
    }

    int Below(int limit) { return std::uniform_int_distribution<int>(0, limit - 1)(random_); }

private:
    Json Reply()
    {
        return AnyOf(std::vector<Json>{
            {{"do", "reply"}, {"to", "message"}, {"button", "Cancel"}},
            {{"do", "reply"}, {"to", "message"}, {"button", "No"}},
            {{"do", "reply"}, {"to", "input"}, {"text", std::to_string(1 + Below(4))}},
            {{"do", "reply"}, {"to", "editor"}, {"text", "edited dump 8"}},
            {{"do", "reply"},
             {"to", "event"},
             {"name", "SaveDoneDisabled"},
             {"let", {{"name", "FieldMapping"}, {"value", "e"}}}},
            {{"do", "reply"}, {"to", "event"}, {"name", "ShowSourceTablesPopUp"}, {"call", {{"name", "Undo"}}}},
            {{"do", "reply"},
             {"to", "form"},
             {"steps",
              {{{"do", "type"}, {"view", "TxtDoc"}, {"text", "note\r\nof two"}},
               {{"do", "choose"}, {"view", "CmbTargetTable"}, {"index", 1}},
               {{"do", "click"}, {"view", "CmdOk"}}}}}});
    }

    static std::vector<std::string> Boxes()
    {
        return {"txtPreCondition", "txtMainQuery", "txtMainQuery", "txtFunctions",
                "txtVariables",    "txtgrdline",   "txtgrdline"};
    }
    static std::vector<std::string> Lists()
    {
        return {"lstSourceTables", "lstMigrateSource", "lstTargetFields", "lstSourceFields"};
    }
    static std::vector<std::string> Views() { return {"MainTab", "CmdMap", "txtPreCondition", "RulesGrid", "CmbDump"}; }
    static std::vector<std::string> Buttons()
    {
        return {"CmdGuess",        "CmdMap",       "CmdDumpText",  "CmdPreDoc",    "CmdFunction",       "CmdOk",
                "CmdCancel",       "CmdVariables", "cmdCopyDump",  "PicPreResize", "cmdCopyToAllDumps", "CmdChange",
                "CmdMQDoc",        "CmdEditRule",  "CmdMqEditor",  "CmdPreEditor", "cmdSrcEdit",        "PicMQResize",
                "CmdSelectSource", "Command1",     "CmdFuncEditor"};
    }
    static std::vector<std::string> Texts()
    {
        return {"",
                "migrate ordrs001\r\n| dump 10",
                "migrate srtab010 dump 1",
                "a\nb\r\nc\rd",
                "dump 40000",
                "dump 1 dump 5 | five",
                "rule"};
    }

    template <typename Value> Value AnyOf(const std::vector<Value>& values)
    {
        return values[static_cast<std::size_t>(Below(static_cast<int>(values.size())))];
    }

    std::mt19937 random_;
};

// Whether a request only looks around, as users understand it.
bool IsMove(const Json& request, const Json& focused)
{
    const std::string verb = request.at("do");
    const std::string view = request.value("view", "");
    if (verb == "press")
        return request.at("ascii") <= 32;
    if (verb == "key")
        return !(request.at("code") == 46 && focused.is_string() && focused.get<std::string>().starts_with("lst"));
    if (verb == "click")
        return view == "CmdFunction" || view == "CmdVariables" || view.starts_with("Pic");
    return verb != "type" && verb != "let" && verb != "get" && verb != "call";
}

class Everything {
public:
    Everything() { Shared() = {}; }

    Json Answer(const Json& request) { return Json::parse(session_.Answer(request.dump())); }
    [[nodiscard]] Json Value(const Json& request) { return Answer(request).value("value", Json()); }

    // All that can be read, but for what an undo leaves as it is.
    [[nodiscard]] Json Read()
    {
        Json all = {{"xml", Value({{"do", "xml"}})},
                    {"focused", Value({{"do", "focused"}})},
                    {"state", Value({{"do", "state"}})}};
        for (const char* field : {"IntErrorCode", "StrErrorText", "StrEditor", "BoolSyntaxHighlight"})
            all["state"].erase(field);
        for (const View* view : views_.Tree.Views()) {
            const std::string name = JsonOf(view->Name());
            Json values = Value({{"do", "read"}, {"view", name}});
            if (name != "txtgrdline" && name != "CmdFuncEditor") {
                values.erase("left");
                values.erase("width");
            }
            if (name == "MainTab" || name == "FrmCondition" || name == "FrmRules")
                values.erase("height");
            values.erase("columns");
            all[name] = std::move(values);
        }
        return all;
    }

    // What a user would miss.
    [[nodiscard]] static Json WorkOf(const Json& all)
    {
        Json work = {all["xml"], all["lstSourceTables"]["rows"], all["state"]["IntDumpNumbers"],
                     all["state"]["StrDumpTexts"]};
        for (const char* box : {"txtPreCondition", "txtMainQuery", "txtFunctions", "txtVariables"})
            work.push_back(all[box]["text"]);
        for (const Json& row : all["RulesGrid"]["rows"])
            work.push_back(row[1]);
        work.push_back(all["txtgrdline"]["visible"] ? all["txtgrdline"]["text"] : Json());
        return work;
    }

    [[nodiscard]] bool Call(const char* name) { return Value({{"do", "call"}, {"name", name}}).get<bool>(); }

private:
    Session session_;
    DesignerViews views_;
};

void ExpectSame(const Json& now, const Json& then, const std::string& when)
{
    if (now != then)
        ADD_FAILURE() << when << '\n' << Json::diff(then, now).dump(1).substr(0, 1500);
}

// What the history should do, by what was read at each moment.
class RandomWalk {
public:
    explicit RandomWalk(unsigned seed) : seed_(seed), people_(seed)
    {
        for (const Json& request : RandomPeople::Begin(seed))
            static_cast<void>(designer_.Answer(request));
        now_ = designer_.Read();
    }

    void Play(int requests)
    {
        while (requests-- > 0 && !testing::Test::HasFailure()) {
            Ask();
            for (int undos = people_.Below(4); undos > 0; --undos)
                people_.Below(2) == 0 ? Undo() : Redo();
        }
        while (!before_.empty() && !testing::Test::HasFailure())
            Undo();
        Undo();
        while (!undone_.empty() && !testing::Test::HasFailure())
            Redo();
    }

    [[nodiscard]] std::size_t Steps() const noexcept { return steps_; }

private:
    // A request that can't be made is followed by another one.
    void Ask()
    {
        for (int tries = 0; tries < 8; ++tries) {
            const Json request = people_.Next();
            told_ = "seed " + std::to_string(seed_) + ", " + request.dump();
            const bool refused = designer_.Answer(request).contains("refused");
            const Json then = std::exchange(now_, designer_.Read());
            const bool presses = request.at("do") == "press" && request.at("ascii") > 32;
            const bool goesOn = presses && std::exchange(pressed_, presses);
            pressed_ = presses;
            if (!IsMove(request, then["focused"]) && Everything::WorkOf(now_) != Everything::WorkOf(then) && !goesOn) {
                before_.push_back(then);
                undone_.clear();
                ++steps_;
            }
            if (!refused)
                return;
        }
    }

    void Undo()
    {
        pressed_ = false;
        ASSERT_EQ(designer_.Call("Undo"), !before_.empty()) << told_;
        if (before_.empty())
            return;
        undone_.push_back({before_.back(), std::exchange(now_, designer_.Read())});
        ExpectSame(now_, before_.back(), "undone; " + told_);
        before_.pop_back();
    }

    void Redo()
    {
        pressed_ = false;
        ASSERT_EQ(designer_.Call("Redo"), !undone_.empty()) << told_;
        if (undone_.empty())
            return;
        now_ = designer_.Read();
        ExpectSame(now_, undone_.back().Asked, "done again; " + told_);
        before_.push_back(undone_.back().Before);
        undone_.pop_back();
    }

    struct Undone {
        Json Before;
        Json Asked;
    };

    unsigned seed_;
    RandomPeople people_;
    Everything designer_;
    Json now_;
    std::vector<Json> before_; // of each step that can be undone
    std::vector<Undone> undone_;
    bool pressed_ = false; // a character was pressed last, which the next one goes on with
    std::size_t steps_ = 0;
    std::string told_;
};

TEST(HistoryOfRandomSessions, PutsEverythingBack)
{
    std::size_t steps = 0;
    for (unsigned seed = 1; seed <= 30 && !HasFailure(); ++seed) {
        RandomWalk walk(seed);
        walk.Play(40);
        steps += walk.Steps();
    }
    EXPECT_GT(steps, 200U); // or the sessions prove nothing
}

} // namespace
} // namespace rulemesh

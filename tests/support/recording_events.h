#pragma once

#include <functional>
#include <vector>

#include "base/numbers.h"
#include "script/control_events.h"

namespace rulemesh {

/// A host that keeps every event with its arguments, and answers from inside the next one.
class RecordingEvents : public ControlEvents {
public:
    std::vector<Text> Raised;     // "ShowQueryBuilderPopUp(text, tables)"
    int WorkChanges = 0;          // how often the control told of changed work
    std::function<void()> Answer; // run once, inside the next event

    void ShowSourceTablesPopUp(const Text& i_SourceTables) override
    {
        Raise(u"ShowSourceTablesPopUp(" + i_SourceTables + u")");
    }
    void ShowConditionBuilderPopUp(const Text& i_ConditionString, const Text& i_SourceTables) override
    {
        Raise(u"ShowConditionBuilderPopUp(" + i_ConditionString + u", " + i_SourceTables + u")");
    }
    void ShowQueryBuilderPopUp(const Text& i_QueryString, const Text& i_SourceTables) override
    {
        Raise(u"ShowQueryBuilderPopUp(" + i_QueryString + u", " + i_SourceTables + u")");
    }
    void ShowFunctionBuilderPopUp(const Text& StrCondition, const Text& StrSourceTables) override
    {
        Raise(u"ShowFunctionBuilderPopUp(" + StrCondition + u", " + StrSourceTables + u")");
    }
    void ShowFunctionalTextPopUp(const Text& DocType, std::int32_t LngTextNumber, const Text& StrKey1,
                                 const Text& StrKey2) override
    {
        Raise(u"ShowFunctionalTextPopUp(" + DocType + u", " + PlainNumber(LngTextNumber) + u", " + StrKey1 + u", " +
              StrKey2 + u")");
    }
    void SaveDoneDisabled() override { Raise(u"SaveDoneDisabled()"); }
    void SaveDoneEnabled() override { Raise(u"SaveDoneEnabled()"); }
    void WorkChanged() override { ++WorkChanges; }

private:
    void Raise(Text event)
    {
        Raised.push_back(std::move(event));
        if (const std::function<void()> answer = std::exchange(Answer, nullptr))
            answer();
    }
};

} // namespace rulemesh

#pragma once

#include <string>

#include <gtest/gtest.h>

#include "shell/ctl_rulemesh.h"
#include "support/recording_events.h"
#include "support/recording_platform.h"

namespace rulemesh {

/// A small object with one source table and two dumps, 1 and 2, of the one target table.
inline constexpr const char* SmallObject =
    R"(<tgtab001><SRCTBL>srtab001</SRCTBL><PREC>migrate srtab001</PREC>)"
    R"(<QUERY ST="srtab001">dump 1 | one
dump 2 | two</QUERY><FUNCTIONS>f</FUNCTIONS><VAR>v</VAR>)"
    R"(<SRCTAB><SRTAB001><A FNo="1" TYPE="S"/><B FNo="2" TYPE="S"/></SRTAB001></SRCTAB>)"
    R"(<TARTAB><TGTAB001><A No="1" FNo="1" TYPE="S"/><B No="2" FNo="2" TYPE="S"/><C No="3" FNo="3"/></TGTAB001></TARTAB>)"
    R"(<DUMP No="1" TT="tgtab001" TXT="| one"><A TEXT="" TYPE="0">a</A></DUMP>)"
    R"(<DUMP No="2" TT="tgtab001" TXT="| two"/></tgtab001>)";

/// A control as a host has it, with a desktop and a host that record.
class DesignerBench : public testing::Test {
protected:
    DesignerBench() { Shared() = {}; }
    explicit DesignerBench(TextFiles& files) : platform_(files) { Shared() = {}; }

    void Open(const std::string& xml = SmallObject, bool edit = true)
    {
        control_.TargetTable(u"tgtab001");
        control_.Edit(edit);
        control_.MappingObjectXML(xml);
        control_.ShowControl();
    }

    void OpenRules(const std::string& xml = SmallObject, bool edit = true)
    {
        Open(xml, edit);
        views_.MainTab.UserClicksTab(1);
    }

    RecordingPlatform platform_;
    RecordingEvents events_;
    ctlRulemesh control_{platform_, events_};
    DesignerViews& views_ = control_.Views();
};

} // namespace rulemesh

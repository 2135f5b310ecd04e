#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <set>
#include <string_view>

#include "base/failure.h"
#include "base/utf8.h"
#include "script/script_scanner.h"
#include "support/recording_platform.h"

using namespace rulemesh;

namespace {

void Require(bool holds)
{
    if (!holds)
        std::abort();
}

} // namespace

// Every dump of the list is below 1000, stands there once and has its element; its comment is short and printable.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    ControlState state;
    state.StrTargetTable = u"tgtab001";
    XmlDocument document;
    static_cast<void>(document.loadXML(u"<tgtab001/>"));
    DesignerViews views;
    RecordingPlatform platform;
    MappingObject object(document, state);
    ScriptScanner scanner(object, state, views, platform);
    try {
        scanner.ScanDumpKeywords(FromUtf8({reinterpret_cast<const char*>(data), size}), state.IntDumpNumbers,
                                 state.StrDumpTexts);
    } catch (const Failure& failure) {
        Require(failure.Code() == FailureCode::Overflow);
    }
    Require(std::set(state.IntDumpNumbers.begin(), state.IntDumpNumbers.end()).size() == state.IntDumpNumbers.size());
    Require(state.StrDumpTexts.size() == state.IntDumpNumbers.size());
    for (const std::int16_t number : state.IntDumpNumbers)
        Require(number < 1000 && (IsEmptyList(state.IntDumpNumbers) || object.Read().GetDumpNode(number)));
    for (const Text& comment : state.StrDumpTexts) {
        Require(comment.size() < 250 && (comment.empty() || comment.front() == u'|'));
        for (const char16_t character : comment)
            Require(character >= 32 && character <= 126);
    }
    return 0;
}

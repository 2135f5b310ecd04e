#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <set>
#include <string_view>

#include "base/utf8.h"
#include "script/keywords.h"
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

// No failure comes out; every table has the form of a code and stands once, and the list shows each on two rows.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    ControlState state;
    XmlDocument document;
    DesignerViews views;
    RecordingPlatform platform;
    MappingObject object(document, state);
    ScriptScanner scanner(object, state, views, platform);
    scanner.ParseMigrateKeywords(FromUtf8({reinterpret_cast<const char*>(data), size}));
    const std::vector<Text>& tables = state.StrMigrateTables;
    Require(std::set(tables.begin(), tables.end()).size() == tables.size());
    if (IsEmptyList(tables)) {
        Require(views.lstMigrateSource.Count() == 0);
        return 0;
    }
    Require(static_cast<std::size_t>(views.lstMigrateSource.Count()) == 2 * tables.size());
    for (const Text& table : tables)
        Require(IsTableCode(table));
    return 0;
}

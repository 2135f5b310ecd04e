#include <string>

#include <benchmark/benchmark.h>
#include <pugixml.hpp>

#include "base/numbers.h"
#include "base/utf8.h"
#include "object/control_state.h"
#include "object/mapping_object.h"

// The question that the designer asks most, for one element of a name by its key, beside pugixml's search for a child
// by an attribute, which walks the children.

namespace rulemesh {
namespace {

constexpr int Dumps = 5000;

const std::string& Object()
{
    static const std::string text = [] {
        std::string object = "<GENOBJ01>\n  <PREC/>\n";
        for (int dump = 1; dump <= Dumps; ++dump)
            object += "  <DUMP No=\"" + std::to_string(dump) +
                      "\" TT=\"TGTAB001\" TXT=\"| rows\">\n    <ITEM TEXT=\"\" TYPE=\"0\">srtab001.item</ITEM>\n"
                      "    <PRICE__1 TEXT=\"\" TYPE=\"0\">srtab001.price(1)</PRICE__1>\n  </DUMP>\n";
        return object + "</GENOBJ01>\n";
    }();
    return text;
}

// The numbers in an order that follows neither the document nor a cache.
int NextNumber(int number) noexcept { return (number + 3571) % Dumps; }

struct Store {
    ControlState State;
    XmlDocument Document;
    DocumentAccess Access{Document, State};
    MappingObject Mapping{Document, State};

    Store()
    {
        State.StrTargetTable = u"GENOBJ01";
        benchmark::DoNotOptimize(Document.loadXML(Object()));
    }
};

void GetNodeByKey(benchmark::State& state)
{
    const Store store;
    const Text path = store.Access.RootPath(u"DUMP");
    int number = 0;
    for ([[maybe_unused]] auto iteration : state) {
        number = NextNumber(number);
        const XmlNode dump = store.Access.GetNode(path, u"No", FromUtf8(std::to_string(number + 1)));
        if (!dump)
            state.SkipWithError("a dump was not found");
    }
}
BENCHMARK(GetNodeByKey);

void GetNodeByKeyWithPugixml(benchmark::State& state)
{
    pugi::xml_document document;
    benchmark::DoNotOptimize(document.load_buffer(Object().data(), Object().size(), pugi::parse_full));
    const pugi::xml_node root = document.document_element();
    int number = 0;
    for ([[maybe_unused]] auto iteration : state) {
        number = NextNumber(number);
        const pugi::xml_node dump = root.find_child_by_attribute("DUMP", "No", std::to_string(number + 1).c_str());
        if (!dump)
            state.SkipWithError("a dump was not found");
    }
}
BENCHMARK(GetNodeByKeyWithPugixml);

void GetNodeThatIsMissing(benchmark::State& state)
{
    const Store store;
    const Text path = store.Access.RootPath(u"DUMP");
    for ([[maybe_unused]] auto iteration : state)
        benchmark::DoNotOptimize(store.Access.GetNode(path, u"No", u"5001"));
}
BENCHMARK(GetNodeThatIsMissing);

// Dumps come and go at every read of the object; the look-up has to stay true and fast through that.
void GetNodeWhileDumpsComeAndGo(benchmark::State& state)
{
    Store store;
    const Text path = store.Access.RootPath(u"DUMP");
    for ([[maybe_unused]] auto iteration : state) {
        store.Mapping.CreateDumpNode(6000, u"| new");
        const XmlNode dump = store.Access.GetNode(path, u"No", u"6000");
        if (!dump || !store.Access.GetNode(path, u"No", u"4999"))
            state.SkipWithError("a dump was not found");
        store.Document.documentElement().removeChild(dump);
    }
}
BENCHMARK(GetNodeWhileDumpsComeAndGo);

void GetNodeWhileDumpsComeAndGoWithPugixml(benchmark::State& state)
{
    pugi::xml_document document;
    benchmark::DoNotOptimize(document.load_buffer(Object().data(), Object().size(), pugi::parse_full));
    pugi::xml_node root = document.document_element();
    for ([[maybe_unused]] auto iteration : state) {
        pugi::xml_node dump = root.append_child("DUMP");
        dump.append_attribute("No").set_value("6000");
        dump.append_attribute("TXT").set_value("| new");
        if (!root.find_child_by_attribute("DUMP", "No", "6000") || !root.find_child_by_attribute("DUMP", "No", "4999"))
            state.SkipWithError("a dump was not found");
        root.remove_child(dump);
    }
}
BENCHMARK(GetNodeWhileDumpsComeAndGoWithPugixml);

} // namespace
} // namespace rulemesh

#include <sstream>
#include <string>
#include <vector>

#include <benchmark/benchmark.h>
#include <pugixml.hpp>

#include "base/case_map.h"
#include "base/utf8.h"
#include "generated_object.h"
#include "shell/ctl_rulemesh.h"
#include "silent_desk.h"
#include "wide_object.h"

// What a user waits for in a large object: opening it, going to the rules, and changing from one dump of 1,000 fields
// to another. Beside it: pugixml loading the same text, and fetching from its tree the texts that a shown dump needs.

namespace rulemesh {
namespace {

struct Designer {
    SilentDesk Desk;
    ctlRulemesh Control{Desk, Desk};

    void Open()
    {
        Control.TargetTable(GeneratedTargetTable);
        Control.Edit(true);
        Control.MappingObjectXML(WideObject());
        Control.ShowControl();
    }
    [[nodiscard]] bool ShowsRulesOf(int number)
    {
        const Grid& grid = Control.Views().RulesGrid;
        return grid.Rows() == FieldsOfWideTable &&
               grid.TextMatrix(1, 1) == FromUtf8("concat(sraaa001.name, \"" + std::to_string(number) + "\")");
    }
};

void OpenObject(benchmark::State& state)
{
    for ([[maybe_unused]] auto iteration : state) {
        Designer designer;
        designer.Open();
    }
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(WideObject().size()));
}
BENCHMARK(OpenObject)->Unit(benchmark::kMillisecond);

void LoadTheSameWithPugixml(benchmark::State& state)
{
    for ([[maybe_unused]] auto iteration : state) {
        pugi::xml_document document;
        benchmark::DoNotOptimize(document.load_buffer(WideObject().data(), WideObject().size(), pugi::parse_full));
    }
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(WideObject().size()));
}
BENCHMARK(LoadTheSameWithPugixml)->Unit(benchmark::kMillisecond);

// All scripts are saved and scanned on the way.
void GoToTheRules(benchmark::State& state)
{
    Designer designer;
    designer.Open();
    TabControl& tabs = designer.Control.Views().MainTab;
    for ([[maybe_unused]] auto iteration : state) {
        tabs.UserClicksTab(1);
        state.PauseTiming();
        if (!designer.ShowsRulesOf(1))
            state.SkipWithError("the rules of the first dump are not in view");
        tabs.UserClicksTab(0);
        state.ResumeTiming();
    }
}
BENCHMARK(GoToTheRules)->Unit(benchmark::kMillisecond);

// The old dump's rules are saved, the source fields listed, and the new dump's rows and rules shown.
void ChangeDump(benchmark::State& state)
{
    Designer designer;
    designer.Open();
    designer.Control.Views().MainTab.UserClicksTab(1);
    int index = 0;
    for ([[maybe_unused]] auto iteration : state) {
        index = 1 - index;
        designer.Control.Views().CmbDump.UserChooses(index);
    }
    if (!designer.ShowsRulesOf(index + 1))
        state.SkipWithError("the rules of the chosen dump are not in view");
    state.counters["sources"] = designer.Control.Views().lstSourceFields.Count();
}
BENCHMARK(ChangeDump)->Unit(benchmark::kMillisecond);

// Rows of all listed source tables and of the target table with eleven texts each, and the rules of two dumps: what a
// change of dump reads. Nothing is decoded, sorted, compared or saved.
void FetchTheSameWithPugixml(benchmark::State& state)
{
    pugi::xml_document document;
    benchmark::DoNotOptimize(document.load_buffer(WideObject().data(), WideObject().size(), pugi::parse_full));
    const pugi::xml_node root = document.document_element();
    const auto addFields = [](std::vector<std::vector<std::string>>& rows, const pugi::xml_node& table) {
        for (const pugi::xml_node field : table) {
            std::vector<std::string>& row = rows.emplace_back();
            row.emplace_back(std::string(table.name()) + "." + field.name());
            for (const char* name :
                 {"MAN", "FNo", "TYPE", "LENG", "DSCA", "ADJU", "CASE", "DOMAIN", "INITVAL", "DOMENUMS"})
                row.emplace_back(field.attribute(name).value());
        }
    };
    const pugi::xml_node target = root.child("TARTAB").child(WideTable);
    const pugi::xml_node catalogue = root.child("SRCTAB");
    std::vector<std::string> listed;
    std::istringstream names(root.child("SRCTBL").text().get());
    for (std::string name; std::getline(names, name, ',');)
        listed.push_back(ToUtf8(ToUpper(FromUtf8(name))));
    for ([[maybe_unused]] auto iteration : state) {
        std::vector<std::vector<std::string>> sources;
        for (const std::string& table : listed)
            addFields(sources, catalogue.child(table.c_str()));
        std::vector<std::vector<std::string>> targets;
        addFields(targets, target);
        std::vector<std::string> rules;
        for (const char* number : {"1", "2"}) {
            const pugi::xml_node dump = root.find_child_by_attribute("DUMP", "No", number);
            for (const pugi::xml_node field : target)
                rules.emplace_back(dump.child(field.name()).text().get());
        }
        benchmark::DoNotOptimize(rules.data());
        benchmark::DoNotOptimize(sources.data());
        state.counters["sources"] = static_cast<double>(sources.size());
    }
}
BENCHMARK(FetchTheSameWithPugixml)->Unit(benchmark::kMillisecond);

// The host saves while the rules are in view: scripts and rules are saved, the document is brought in line with the
// scripts, the copy file is written and the text handed over.
void SaveObject(benchmark::State& state)
{
    Designer designer;
    designer.Open();
    designer.Control.Views().MainTab.UserClicksTab(1);
    for ([[maybe_unused]] auto iteration : state)
        benchmark::DoNotOptimize(designer.Control.MappingObjectXmlUtf8());
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(WideObject().size()));
}
BENCHMARK(SaveObject)->Unit(benchmark::kMillisecond);

} // namespace
} // namespace rulemesh

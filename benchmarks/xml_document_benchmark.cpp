#include <string>

#include <benchmark/benchmark.h>
#include <pugixml.hpp>

#include "document/xml_document.h"
#include "generated_object.h"

// How long a whole mapping object takes in and out, beside pugixml, a parser that is known for its speed, and beside a
// plain copy of the text. The peer checks far less: neither characters nor names nor the uniqueness of attributes.

namespace rulemesh {
namespace {

const std::string& Object(std::int64_t bytes)
{
    static std::string text;
    static std::int64_t size = 0;
    if (size != bytes) {
        size = bytes;
        text = GeneratedObject(static_cast<std::size_t>(bytes));
    }
    return text;
}

void Sizes(benchmark::internal::Benchmark* benchmark)
{
    for (const std::size_t bytes : {SmallObject, MediumObject, LargeObject})
        benchmark->Arg(static_cast<std::int64_t>(bytes));
    benchmark->Unit(benchmark::kMillisecond);
}

void CountBytes(benchmark::State& state, const std::string& text)
{
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(text.size()));
}

// Both copy the text first: pugixml by itself, the document because it takes its text over.
void Load(benchmark::State& state)
{
    const std::string& text = Object(state.range(0));
    for ([[maybe_unused]] auto iteration : state) {
        XmlDocument document;
        benchmark::DoNotOptimize(document.loadXML(text));
    }
    CountBytes(state, text);
}
BENCHMARK(Load)->Apply(Sizes);

void LoadWithPugixml(benchmark::State& state)
{
    const std::string& text = Object(state.range(0));
    for ([[maybe_unused]] auto iteration : state) {
        pugi::xml_document document;
        benchmark::DoNotOptimize(document.load_buffer(text.data(), text.size(), pugi::parse_full));
    }
    CountBytes(state, text);
}
BENCHMARK(LoadWithPugixml)->Apply(Sizes);

void LoadUtf16(benchmark::State& state)
{
    XmlDocument source;
    benchmark::DoNotOptimize(source.loadXML(Object(state.range(0))));
    const Text text = source.xml();
    for ([[maybe_unused]] auto iteration : state) {
        XmlDocument document;
        benchmark::DoNotOptimize(document.loadXML(TextView(text)));
    }
    CountBytes(state, Object(state.range(0)));
}
BENCHMARK(LoadUtf16)->Apply(Sizes);

void ReadBack(benchmark::State& state)
{
    XmlDocument document;
    benchmark::DoNotOptimize(document.loadXML(Object(state.range(0))));
    for ([[maybe_unused]] auto iteration : state)
        benchmark::DoNotOptimize(document.xmlUtf8());
    CountBytes(state, Object(state.range(0)));
}
BENCHMARK(ReadBack)->Apply(Sizes);

void CopyOfTheText(benchmark::State& state)
{
    const std::string& text = Object(state.range(0));
    for ([[maybe_unused]] auto iteration : state) {
        std::string copy(text);
        benchmark::DoNotOptimize(copy);
    }
    CountBytes(state, text);
}
BENCHMARK(CopyOfTheText)->Apply(Sizes);

void ReadBackUtf16(benchmark::State& state)
{
    XmlDocument document;
    benchmark::DoNotOptimize(document.loadXML(Object(state.range(0))));
    for ([[maybe_unused]] auto iteration : state)
        benchmark::DoNotOptimize(document.xml());
    CountBytes(state, Object(state.range(0)));
}
BENCHMARK(ReadBackUtf16)->Apply(Sizes);

// Every rule of every dump has been written.
void ReadBackEdited(benchmark::State& state)
{
    XmlDocument document;
    benchmark::DoNotOptimize(document.loadXML(Object(state.range(0))));
    for (const XmlNode& dump : document.selectNodes(Text(u"/") + GeneratedTargetTable + u"/DUMP")) {
        for (const XmlNode& rule : dump.childNodes())
            rule.text(u"default()", CarriageReturns::Kept);
    }
    for ([[maybe_unused]] auto iteration : state)
        benchmark::DoNotOptimize(document.xmlUtf8());
    CountBytes(state, document.xmlUtf8());
}
BENCHMARK(ReadBackEdited)->Apply(Sizes);

// The first answer after a load, which reads over the root's children.
void LoadAndFindTheLastDump(benchmark::State& state)
{
    const std::string& text = Object(state.range(0));
    for ([[maybe_unused]] auto iteration : state) {
        XmlDocument document;
        benchmark::DoNotOptimize(document.loadXML(text));
        benchmark::DoNotOptimize(document.selectNodes(Text(u"/") + GeneratedTargetTable + u"/DUMP").back());
    }
    CountBytes(state, text);
}
BENCHMARK(LoadAndFindTheLastDump)->Apply(Sizes);

void VisitEveryElement(benchmark::State& state)
{
    const std::string& text = Object(state.range(0));
    for ([[maybe_unused]] auto iteration : state) {
        XmlDocument document;
        benchmark::DoNotOptimize(document.loadXML(text));
        benchmark::DoNotOptimize(document.getElementsByTagName(u"DSCA"));
    }
    CountBytes(state, text);
}
BENCHMARK(VisitEveryElement)->Apply(Sizes);

void FindADumpByItsNumber(benchmark::State& state)
{
    XmlDocument document;
    benchmark::DoNotOptimize(document.loadXML(Object(state.range(0))));
    const Text path = Text(u"/") + GeneratedTargetTable + u"/DUMP";
    for ([[maybe_unused]] auto iteration : state)
        benchmark::DoNotOptimize(document.selectSingleNode(path, u"No", u"77"));
}
BENCHMARK(FindADumpByItsNumber)->Arg(MediumObject);

void ReadTheAttributesOfAField(benchmark::State& state)
{
    XmlDocument document;
    benchmark::DoNotOptimize(document.loadXML(Object(SmallObject)));
    const XmlNode field =
        document.selectSingleNode(Text(u"/") + GeneratedTargetTable + u"/TARTAB").firstChild().firstChild();
    for ([[maybe_unused]] auto iteration : state) {
        for (const TextView name : {u"No", u"FNo", u"MAN", u"TYPE", u"LENG", u"DSCA", u"ADJU", u"CASE", u"DOMAIN"})
            benchmark::DoNotOptimize(field.getNamedItem(name));
    }
}
BENCHMARK(ReadTheAttributesOfAField);

} // namespace
} // namespace rulemesh

#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <string>
#include <string_view>

#include "document/xml_document.h"
#include "generated_object.h"

// How much memory a loaded document takes, for texts of several shapes: `xml_document_memory [megabytes]`, 500 unless
// told otherwise. Not a test, as it takes minutes and gigabytes. The text itself is part of all numbers.

namespace rulemesh {
namespace {

std::string Repeated(std::string_view head, std::string_view body, std::string_view tail, std::size_t bytes)
{
    std::string text;
    text.reserve(bytes + 2 * body.size());
    text += head;
    while (text.size() < bytes)
        text += body;
    text += tail;
    return text;
}

std::string Nested(std::size_t bytes)
{
    std::string text = Repeated("", "<a>", "", bytes * 3 / 7);
    const std::size_t levels = text.size() / 3;
    text.reserve(bytes + 16);
    for (std::size_t level = 0; level < levels; ++level)
        text += "</a>";
    return text;
}

struct Shape {
    const char* name;
    std::string (*make)(std::size_t bytes);
};

constexpr Shape Shapes[] = {
    {"mapping object", GeneratedObject},
    {"smallest elements", [](std::size_t bytes) { return Repeated("<r>", "<a/>", "</r>", bytes); }},
    {"one text", [](std::size_t bytes) { return Repeated("<r>", "text &amp; more ", "</r>", bytes); }},
    {"large elements",
     [](std::size_t bytes) { return Repeated("<r>", "<a><b>" + std::string(500, 'x') + "</b></a>", "</r>", bytes); }},
    {"nested elements", Nested}};

double Resident()
{
    std::ifstream file("/proc/self/statm");
    std::size_t total = 0;
    std::size_t pages = 0;
    file >> total >> pages;
    return static_cast<double>(pages) * static_cast<double>(sysconf(_SC_PAGESIZE));
}

double Highest()
{
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    return static_cast<double>(usage.ru_maxrss) * 1024;
}

int Measure(const Shape& shape, std::size_t bytes)
{
    constexpr double Megabyte = 1e6;
    std::string text = shape.make(bytes);
    const auto size = static_cast<double>(text.size());
    XmlDocument document;
    if (!document.loadXML(std::move(text)))
        return EXIT_FAILURE;
    const double loaded = Resident();
    const double highest = Highest();
    const bool found = static_cast<bool>(document.documentElement().firstChild());
    std::printf("%-18s %8.1f MB  loaded %8.1f MB (%.2f)  highest %8.1f MB  children reached %8.1f MB %s\n", shape.name,
                size / Megabyte, loaded / Megabyte, loaded / size, highest / Megabyte, Resident() / Megabyte,
                found ? "" : "(none)");
    std::fflush(stdout);
    return EXIT_SUCCESS;
}

} // namespace
} // namespace rulemesh

int main(int count, char** arguments)
{
    const std::size_t megabytes = count > 1 ? std::strtoul(arguments[1], nullptr, 10) : 500;
    for (const rulemesh::Shape& shape : rulemesh::Shapes) {
        // Each in a process of its own, so that the highest value is that of one document.
        const pid_t child = fork();
        if (child == 0)
            _exit(rulemesh::Measure(shape, megabytes * 1'000'000));
        int status = 0;
        if (child < 0 || waitpid(child, &status, 0) != child || status != 0)
            return EXIT_FAILURE;
    }
    return EXIT_SUCCESS;
}

// Hosts that stand outside of the tree and see of Rulemesh what `cmake --install` puts in place, and nothing else.

#include <array>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

#include <sys/wait.h>

#include <gmock/gmock.h>

namespace {

namespace fs = std::filesystem;
using ::testing::AllOf;
using ::testing::HasSubstr;
using ::testing::Not;
using ::testing::UnorderedElementsAreArray;

struct Outcome {
    int Status = 0;
    std::string Output; // both streams
};

Outcome InShell(const std::string& command)
{
    Outcome outcome;
    std::FILE* pipe = popen((command + " 2>&1").c_str(), "r");
    if (pipe == nullptr)
        return {-1, "can't run " + command};
    std::array<char, 4096> buffer{};
    for (std::size_t read = 1; read != 0;) {
        read = std::fread(buffer.data(), 1, buffer.size(), pipe);
        outcome.Output.append(buffer.data(), read);
    }
    const int status = pclose(pipe);
    outcome.Status = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    return outcome;
}

std::string Quoted(const fs::path& path) { return "'" + path.string() + "'"; }

std::string BytesOf(const fs::path& path)
{
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

fs::path Scratch() { return RULEMESH_SCRATCH; }
fs::path Prefix() { return Scratch() / "prefix"; }

class Embedding : public ::testing::Test {
protected:
    // Into a prefix of another name first: an installed tree does not know where it stands.
    static void SetUpTestSuite()
    {
        fs::remove_all(Scratch());
        fs::create_directories(Scratch());
        const fs::path first = Scratch() / "as-installed";
        const Outcome install = InShell(RULEMESH_CMAKE " --install '" RULEMESH_BUILD "' --prefix " + Quoted(first));
        ASSERT_EQ(install.Status, 0) << install.Output;
        fs::rename(first, Prefix());
    }

    static Outcome Configure(const fs::path& source, const fs::path& build)
    {
        return InShell(RULEMESH_CMAKE " -G '" RULEMESH_GENERATOR "' -S " + Quoted(source) + " -B " + Quoted(build) +
                       " -DCMAKE_CXX_COMPILER='" RULEMESH_COMPILER "' -DCMAKE_EXE_LINKER_FLAGS='" RULEMESH_LINK_FLAGS
                       "' -DCMAKE_PREFIX_PATH=" +
                       Quoted(Prefix()));
    }

    // A copy of an example, outside of the tree, built with the installed package.
    static fs::path BuiltByCMake(const std::string& example)
    {
        const fs::path source = Scratch() / example;
        const fs::path build = Scratch() / (example + "-build");
        fs::copy(fs::path(RULEMESH_EXAMPLES) / example, source, fs::copy_options::recursive);
        const Outcome configure = Configure(source, build);
        EXPECT_EQ(configure.Status, 0) << configure.Output;
        const Outcome made = InShell(RULEMESH_CMAKE " --build " + Quoted(build));
        EXPECT_EQ(made.Status, 0) << made.Output;
        return build / example;
    }

    static std::string PkgConfig(const std::string& arguments)
    {
        return "PKG_CONFIG_PATH=" + Quoted(Prefix() / RULEMESH_LIBDIR / "pkgconfig") + " pkg-config " + arguments;
    }

    // An example compiled by a single command, as a makefile has it.
    static fs::path BuiltByPkgConfig(const std::string& example, const std::string& package)
    {
        const fs::path program = Scratch() / (example + "-by-pkg-config");
        const Outcome made =
            InShell(RULEMESH_COMPILER " -std=c++20 -fPIC '" RULEMESH_EXAMPLES "/" + example + "/main.cpp' -o " +
                    Quoted(program) + " $(" + PkgConfig("--cflags --libs " + package) + ") " RULEMESH_LINK_FLAGS);
        EXPECT_EQ(made.Status, 0) << made.Output;
        return program;
    }

    static Outcome FindPackage(const std::string& arguments)
    {
        const fs::path source = Scratch() / "finder";
        const fs::path build = Scratch() / "finder-build";
        fs::remove_all(build);
        fs::create_directories(source);
        std::ofstream(source / "CMakeLists.txt") << "cmake_minimum_required(VERSION 3.25)\n"
                                                    "project(finder LANGUAGES CXX)\n"
                                                    "find_package(Rulemesh " +
                                                        arguments +
                                                        ")\n"
                                                        "message(STATUS \"found: ${Rulemesh_FOUND}\")\n"
                                                        "get_property(targets DIRECTORY PROPERTY IMPORTED_TARGETS)\n"
                                                        "message(STATUS \"targets: ${targets}\")\n";
        return Configure(source, build);
    }
};

const std::string Sample = RULEMESH_SAMPLES "/northwind.xml";

// Dump 20 of the sample has no rule yet. Each field of its target table gets one: the source field of the same name
// and kind where there is one, the default where there is none.
void ExpectsRulesOfDump20(const Outcome& run)
{
    EXPECT_EQ(run.Status, 0) << run.Output;
    EXPECT_THAT(run.Output, HasSubstr("salor101.order_no := default()\n"));
    EXPECT_THAT(run.Output, HasSubstr("salor101.freight := ordrs001.freight\n"));
}

TEST_F(Embedding, CoreHostGuessesADump)
{
    ExpectsRulesOfDump20(InShell(Quoted(BuiltByCMake("embed_core")) + " " + Quoted(Sample) + " salor101 20"));
}

TEST_F(Embedding, CoreHostBuildsByPkgConfig)
{
    const fs::path program = BuiltByPkgConfig("embed_core", "rulemesh");
    ExpectsRulesOfDump20(InShell(Quoted(program) + " " + Quoted(Sample) + " salor101 20"));
    EXPECT_THAT(InShell("ldd " + Quoted(program)).Output, AllOf(HasSubstr("libstdc++"), Not(HasSubstr("Qt"))));
}

TEST_F(Embedding, PackageFindsCoreAloneWithoutComponents)
{
    const Outcome found = FindPackage("0.1 REQUIRED");
    EXPECT_EQ(found.Status, 0) << found.Output;
    EXPECT_THAT(found.Output, AllOf(HasSubstr("Rulemesh::Core"), Not(HasSubstr("Rulemesh::Widgets"))));
}

TEST_F(Embedding, PackageNamesAnUnknownComponent)
{
    const Outcome found = FindPackage("REQUIRED COMPONENTS Core Gadgets");
    EXPECT_NE(found.Status, 0);
    EXPECT_THAT(found.Output, HasSubstr("Rulemesh has no component \"Gadgets\"; it has Core and Widgets."));
}

TEST_F(Embedding, PackageDoesWithoutAnUnknownComponentThatIsOptional)
{
    const Outcome found = FindPackage("REQUIRED COMPONENTS Core OPTIONAL_COMPONENTS Gadgets");
    EXPECT_EQ(found.Status, 0) << found.Output;
    EXPECT_THAT(found.Output, HasSubstr("Rulemesh::Core"));
}

TEST_F(Embedding, PackageRefusesAnotherVersion)
{
    const Outcome found = FindPackage("99.0 REQUIRED");
    EXPECT_NE(found.Status, 0);
    EXPECT_THAT(found.Output, HasSubstr("version: " RULEMESH_VERSION));
}

TEST_F(Embedding, PkgConfigTellsTheVersion)
{
    EXPECT_EQ(InShell(PkgConfig("--modversion rulemesh")).Output, RULEMESH_VERSION "\n");
}

TEST_F(Embedding, PagesShowTheHostsAsTheyAre)
{
    const std::string page = BytesOf(Prefix() / RULEMESH_DOCDIR / "embedding.md");
    for (const char* file : {"embed_core/CMakeLists.txt", "embed_core/main.cpp", "embed_core/console_host.h",
                             "embed_widget/CMakeLists.txt", "embed_widget/main.cpp"})
        EXPECT_THAT(page, HasSubstr(BytesOf(fs::path(RULEMESH_EXAMPLES) / file))) << file;
}

TEST_F(Embedding, InstallsTheHeadersOfTheComponentsAlone)
{
    std::vector<std::string> folders;
    for (const fs::directory_entry& entry : fs::directory_iterator(Prefix() / RULEMESH_INCLUDEDIR))
        folders.push_back(entry.path().filename().string());
    std::vector<std::string> expected = {"base",   "views",  "platform", "document",
                                         "object", "script", "engine",   "shell"};
#ifdef HAS_RULEMESH_DESKTOP
    expected.emplace_back("desktop");
#endif
    EXPECT_THAT(folders, UnorderedElementsAreArray(expected));
}

#ifdef HAS_RULEMESH_PROGRAM
TEST_F(Embedding, InstalledProgramRuns)
{
    const Outcome run = InShell(Quoted(Prefix() / RULEMESH_BINDIR / "rulemesh") + " --version");
    EXPECT_EQ(run.Output, "rulemesh " RULEMESH_VERSION "\n");
}
#endif

#ifdef HAS_RULEMESH_DESKTOP
// The object comes back as it was, since nobody touched it.
void ExpectsAWindow(const fs::path& program)
{
    const fs::path object = Scratch() / (program.filename().string() + ".xml");
    fs::copy_file(Sample, object, fs::copy_options::overwrite_existing);
    const Outcome run =
        InShell("QT_QPA_PLATFORM=offscreen " + Quoted(program) + " " + Quoted(object) + " salor101 100");
    EXPECT_EQ(run.Status, 0) << run.Output;
    EXPECT_THAT(run.Output, HasSubstr("showing salor101 from ordrs001,ordde001,custm001,emply001,shipp001,prodc001\n"));
    EXPECT_EQ(BytesOf(object), BytesOf(Sample));
}

TEST_F(Embedding, WidgetHostShowsAnObject) { ExpectsAWindow(BuiltByCMake("embed_widget")); }

TEST_F(Embedding, WidgetHostBuildsByPkgConfig) { ExpectsAWindow(BuiltByPkgConfig("embed_widget", "rulemesh-widgets")); }
#endif

#ifdef HAS_RULEMESH_DESIGNER_PLUGIN
TEST_F(Embedding, PluginLiesWhereDesignerLooks)
{
    const fs::path folder = Prefix() / RULEMESH_PLUGINDIR / "designer";
    ASSERT_TRUE(fs::is_directory(folder));
    EXPECT_EQ(fs::directory_iterator(folder)->path().stem(), "librulemesh_designer_plugin");
}
#endif

} // namespace

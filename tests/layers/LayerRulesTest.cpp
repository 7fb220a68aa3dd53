// SPDX-License-Identifier: GPL-3.0-or-later
// The rules find what is forbidden; no file of the project breaks them.
#include "tests/layers/LayerRules.h"

#include <array>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <iterator>

namespace veltrano {
namespace {

namespace fs = std::filesystem;

constexpr std::string_view kRooms =
    "# a comment\nplatform:\nengine: platform\napp: platform engine\n";
constexpr std::string_view kManifest = "platform_core core platform/Core.h\n"
                                       "platform plain platform/Plain.h\n"
                                       "audio plain platform/audio/Pulse.cpp\n"
                                       "audio_core core platform/audio/Rules.cpp\n"
                                       "engine_core core engine/Core.cpp\n"
                                       "engine_core core engine/Core.h\n"
                                       "engine plain engine/Plain.cpp\n"
                                       "app_views views app/Window.cpp\n"
                                       "app_views views app/Window.h\n";

struct RuleCase {
    const char* name;
    const char* path;
    const char* contents;
    const char* violation; ///< the only one; empty: none
};

constexpr RuleCase kRules[] = {
    {"own room and a room below", "engine/Core.cpp",
     "#include \"engine/Core.h\"\n#include \"platform/Core.h\"\n", ""},
    {"room above", "engine/Plain.cpp", "\n#include \"app/Window.h\"\n",
     "engine/Plain.cpp:2: engine may not include app/Window.h"},
    {"room that is not in the row", "platform/Plain.h", "#include \"engine/Core.h\"\n",
     "platform/Plain.h:1: platform may not include engine/Core.h"},
    {"core includes plain", "engine/Core.cpp", "#include \"platform/Plain.h\"\n",
     "engine/Core.cpp:1: a purer file may not include platform/Plain.h"},
    {"plain includes plain", "engine/Plain.cpp", "#include \"platform/Plain.h\"\n", ""},
    {"views include everything", "app/Window.cpp",
     "#include \"app/Window.h\"\n#include <QWidget>\n#include \"engine/Core.h\"\n", ""},
    {"no folder", "engine/Core.cpp", "#include \"Core.h\"\n",
     "engine/Core.cpp:1: \"Core.h\" has no folder"},
    {"moc's own file", "engine/Plain.cpp", "#include \"Plain.moc\"\n", ""},
    {"header in no list", "engine/Core.cpp", "#include \"engine/Stray.h\"\n",
     "engine/Core.cpp:1: \"engine/Stray.h\" is in no library's list"},
    {"file in no list", "engine/Stray.cpp", "", "engine/Stray.cpp:1: is in no library's list"},
    {"standard header in core", "engine/Core.cpp", "#include <vector>\n", ""},
    {"Qt in core", "engine/Core.cpp", "#include <QString>\n",
     "engine/Core.cpp:1: a core file may not include <QString>"},
    {"Qt by its folder in core", "engine/Core.cpp", "#include <QtCore/QString>\n",
     "engine/Core.cpp:1: a core file may not include <QtCore/QString>"},
    {"thread in core", "engine/Core.cpp", "  #  include <thread>\n",
     "engine/Core.cpp:1: a core file may not include <thread>"},
    {"clock in core", "engine/Core.cpp", "#include <chrono>\n",
     "engine/Core.cpp:1: a core file may not include <chrono>"},
    {"system in core", "engine/Core.cpp", "#include <unistd.h>\n",
     "engine/Core.cpp:1: a core file may not include <unistd.h>"},
    {"thread and system in plain", "engine/Plain.cpp",
     "#include <thread>\n#include <sys/eventfd.h>\n#include <QString>\n", ""},
    {"widgets in plain", "engine/Plain.cpp", "#include <QWidget>\n",
     "engine/Plain.cpp:1: a plain file may not include <QWidget>, which is not of QtCore"},
    {"gui by its folder in plain", "engine/Plain.cpp", "#include <QtGui/QImage>\n",
     "engine/Plain.cpp:1: a plain file may not include <QtGui/QImage>, which is not of QtCore"},
    {"sound server where it belongs", "platform/audio/Pulse.cpp", "#include <pulse/pulseaudio.h>\n",
     ""},
    {"sound server elsewhere", "engine/Plain.cpp", "#include <pulse/pulseaudio.h>\n",
     "engine/Plain.cpp:1: <pulse/pulseaudio.h> belongs to platform/audio"},
    {"sound file in core", "platform/audio/Rules.cpp", "#include <sndfile.h>\n",
     "platform/audio/Rules.cpp:1: a core file may not include <sndfile.h>"},
};

TEST(LayerRulesTest, FindWhatIsForbidden) {
    const LayerRules rules(kRooms, kManifest, {"QString"});
    for (const RuleCase& test : kRules) {
        SCOPED_TRACE(test.name);
        const std::vector<std::string> found = rules.violations(test.path, test.contents);
        if (std::string_view(test.violation).empty()) {
            EXPECT_EQ(found, std::vector<std::string>{});
        } else {
            EXPECT_EQ(found, std::vector<std::string>{test.violation});
        }
    }
}

std::string contentsOf(const fs::path& path) {
    std::ifstream file(path, std::ios::binary);
    EXPECT_TRUE(file) << path;
    return {std::istreambuf_iterator<char>(file), {}};
}

std::set<std::string> qtCoreHeaders() {
    std::set<std::string> names;
    for (const auto& entry : fs::directory_iterator(VELTRANO_QTCORE_HEADERS)) {
        names.insert(entry.path().filename().string());
    }
    return names;
}

LayerRules rulesOfTheProject() {
    const fs::path source(VELTRANO_SOURCE);
    LayerRules rules(contentsOf(source / "cmake/layers.txt"), contentsOf(VELTRANO_MANIFEST_FILE),
                     qtCoreHeaders());
    rules.addProgramFile("cli/main.cpp", LayerRules::Kind::plain);
    rules.addProgramFile("app/main.cpp", LayerRules::Kind::views);
    rules.addProgramFile("resources/content/MakeContent.cpp", LayerRules::Kind::core);
    return rules;
}

TEST(LayersOfTheProject, AreKept) {
    const fs::path source(VELTRANO_SOURCE);
    const LayerRules rules = rulesOfTheProject();
    ASSERT_TRUE(rules.isRoom("platform") && rules.isRoom("engine"));
    std::size_t files = 0;
    for (const auto& room : fs::directory_iterator(source)) {
        if (!room.is_directory() || !rules.isRoom(room.path().filename().string())) continue;
        for (const auto& entry : fs::recursive_directory_iterator(room.path())) {
            const std::string kind = entry.path().extension().string();
            if (kind != ".h" && kind != ".cpp") continue;
            ++files;
            const std::string path = fs::relative(entry.path(), source).string();
            for (const std::string& line : rules.violations(path, contentsOf(entry.path()))) {
                ADD_FAILURE() << line;
            }
        }
    }
    EXPECT_GT(files, 50u) << "the rooms were not found";
}

/// The libraries that a program asks the loader for, as readelf lists them.
std::string neededLibraries(const std::string& program) {
    std::string text;
    FILE* pipe = ::popen(("LC_ALL=C readelf --dynamic '" + program + "'").c_str(), "r");
    if (!pipe) return text;
    std::array<char, 4096> part{};
    while (std::fgets(part.data(), part.size(), pipe))
        text += part.data();
    ::pclose(pipe);
    return text;
}

TEST(LayersOfTheProject, CommandLineKnowsNoWindows) {
    const std::string needed = neededLibraries(VELTRANO_CLI);
    ASSERT_NE(needed.find("libQt6Core"), std::string::npos) << needed;
    for (const char* library :
         {"libQt6Gui", "libQt6Widgets", "libQt6Svg", "libX11", "libwayland"}) {
        EXPECT_EQ(needed.find(library), std::string::npos) << library;
    }
}

} // namespace
} // namespace veltrano

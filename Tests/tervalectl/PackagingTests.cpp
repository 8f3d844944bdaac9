#include "SMC/Sensors.h"
#include "tervalectl/CommandTable.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <iterator>
#include <regex>
#include <sstream>
#include <string>

using namespace tervale;

namespace {

std::string read(const std::string& name) {
    std::ifstream file(TERVALE_PACKAGING "/" + name);
    EXPECT_TRUE(file) << name;
    return {std::istreambuf_iterator<char>(file), {}};
}

/// The manual's headings of commands and options, one a line, without what makes them bold.
std::string headings() {
    std::istringstream text(read("man/tervalectl.1.in"));
    std::string found = "\n";
    for (std::string line; std::getline(text, line);) {
        if (line != ".TP" || !std::getline(text, line))
            continue;
        for (const char* mark : {".B ", "\\fB", "\\fR", "\\fI", "\\"}) {
            for (auto at = line.find(mark); at != std::string::npos; at = line.find(mark))
                line.erase(at, std::string_view(mark).size());
        }
        found += line + '\n';
    }
    return found;
}

/// Whether a heading begins so, or names it after another option.
bool hasHeading(const std::string& headings, const std::string& name) {
    for (const char* before : {"\n", ", "}) {
        for (const char* after : {"\n", " ", ","}) {
            if (headings.find(before + name + after) != std::string::npos)
                return true;
        }
    }
    return false;
}

} // namespace

namespace {

/// The names of the groups of sensors, with this between them.
std::string groupNames(const std::string& between) {
    std::string names;
    for (const SensorGroup group : SensorGroup::allCases)
        (names += names.empty() ? "" : between) += group.rawValue();
    return names;
}

} // namespace

TEST(Packaging, NamesEveryGroupOfSensors) {
    const auto option = std::ranges::find(ctl::allOptions(), "group", &ctl::Option::name);
    ASSERT_NE(option, ctl::allOptions().end());
    EXPECT_TRUE(option->summary.ends_with(": " + groupNames(", "))) << option->summary;
    const std::string manual = read("man/tervalectl.1.in");
    const auto from = manual.find("Only the sensors of this group:");
    const std::string explained = manual.substr(from, manual.find(".TP", from) - from);
    // Each begins a line in bold.
    for (const SensorGroup group : SensorGroup::allCases) {
        const std::regex bold("\n\\.BR? " + std::string(group.rawValue()) + "\\b");
        EXPECT_TRUE(std::regex_search(explained, bold)) << group.rawValue();
    }
    EXPECT_NE(read("completions/_tervalectl").find("group:(" + groupNames(" ") + ")"),
              std::string::npos);
    for (const char* shell : {"completions/tervalectl.bash.in", "completions/tervalectl.fish"})
        EXPECT_NE(read(shell).find("'" + groupNames(" ") + "'"), std::string::npos) << shell;
}

TEST(Packaging, ExplainsEveryCommandAndOptionInTheManual) {
    const std::string text = headings();
    for (const ctl::Command& command : ctl::allCommands())
        EXPECT_TRUE(hasHeading(text, std::string(command.name))) << command.name;
    for (const ctl::Option& option : ctl::allOptions())
        EXPECT_TRUE(hasHeading(text, "--" + std::string(option.name))) << option.name;
    EXPECT_FALSE(hasHeading(text, "frobnicate"));
}

TEST(Packaging, CompletesEveryCommandAndOptionInZsh) {
    const std::string text = read("completions/_tervalectl");
    for (const ctl::Command& command : ctl::allCommands()) {
        const auto space = command.name.find(' ');
        const std::string first(command.name.substr(0, space));
        EXPECT_TRUE(text.find("'" + first + ":") != std::string::npos ||
                    text.find("\"" + first + ":") != std::string::npos)
            << command.name;
        const auto second = space == std::string_view::npos ? "" : command.name.substr(space + 1);
        EXPECT_NE(text.find(second, text.find("command:(list")), std::string::npos) << command.name;
    }
    for (const ctl::Option& option : ctl::allOptions()) {
        // One with a letter is written with it, in braces.
        const std::string end = option.letter.empty() ? "[" : "}'[";
        EXPECT_NE(text.find("--" + std::string(option.name) + end), std::string::npos)
            << option.name;
    }
}

TEST(Packaging, CompletesEveryCommandAndOptionInFish) {
    const std::string text = read("completions/tervalectl.fish");
    for (const ctl::Command& command : ctl::allCommands()) {
        const auto space = command.name.find(' ');
        const std::string group(space == std::string_view::npos ? ""
                                                                : command.name.substr(0, space));
        const std::string word(command.name.substr(group.empty() ? 0 : space + 1));
        const std::string place =
            group.empty() ? "'__tervalectl_at'" : "'__tervalectl_at " + group + "'";
        std::string offer = "-n ";
        offer.append(place).append(" -a ").append(word).append(" ");
        EXPECT_NE(text.find(offer), std::string::npos) << command.name;
    }
    for (const ctl::Option& option : ctl::allOptions()) {
        EXPECT_NE(text.find(" -l " + std::string(option.name) + " "), std::string::npos)
            << option.name;
        if (option.letter.empty())
            continue;
        EXPECT_NE(text.find(" -s " + std::string(option.letter) + " "), std::string::npos)
            << option.name;
    }
}

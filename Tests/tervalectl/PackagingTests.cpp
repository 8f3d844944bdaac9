#include "tervalectl/CommandTable.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <iterator>
#include <string>

using namespace tervale;

namespace {

std::string read(const std::string& name) {
    std::ifstream file(TERVALE_PACKAGING "/" + name);
    EXPECT_TRUE(file) << name;
    return {std::istreambuf_iterator<char>(file), {}};
}

std::string manual() {
    std::string text = read("man/tervalectl.1.in");
    std::erase(text, '\\');
    return text;
}

void expectWords(const std::string& text, std::string_view name) {
    while (!name.empty()) {
        const auto word = name.substr(0, name.find(' '));
        EXPECT_NE(text.find(word), std::string::npos) << word;
        name.remove_prefix(std::min(name.size(), word.size() + 1));
    }
}

} // namespace

TEST(Packaging, ExplainsEveryCommandAndOptionInTheManual) {
    const std::string text = manual();
    for (const ctl::CommandDescription& command : ctl::allCommands())
        EXPECT_NE(text.find(command.name), std::string::npos) << command.name;
    for (const ctl::OptionDescription& option : ctl::allOptions())
        EXPECT_NE(text.find("--" + std::string(option.name)), std::string::npos) << option.name;
}

TEST(Packaging, CompletesEveryCommandAndOption) {
    for (const char* name : {"completions/tervalectl.bash", "completions/_tervalectl"}) {
        const std::string text = read(name);
        for (const ctl::CommandDescription& command : ctl::allCommands())
            expectWords(text, command.name);
        for (const ctl::OptionDescription& option : ctl::allOptions())
            EXPECT_NE(text.find("--" + std::string(option.name)), std::string::npos)
                << name << option.name;
    }
}

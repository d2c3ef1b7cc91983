#include "ProgramRun.h"

#include <fstream>
#include <sstream>
#include <vector>

// The page for users shows what the program prints: every command on it is run.
namespace
{
using ComputeDocs = ProgramRun;

struct Example
{
    std::string command; // behind "$ wb "
    std::vector<std::string> lines;
};

std::vector<Example> ExamplesOf(const std::string& page)
{
    constexpr std::string_view kCommand = "$ wb ";
    std::ifstream file(page);
    std::vector<Example> examples;
    bool isInBlock = false;
    for (std::string line; std::getline(file, line);) {
        if (line == "```") {
            isInBlock = !isInBlock;
        } else if (isInBlock && line.starts_with(kCommand)) {
            examples.push_back({line.substr(kCommand.size()), {}});
        } else if (isInBlock && !examples.empty()) {
            examples.back().lines.push_back(line);
        }
    }
    return examples;
}

std::vector<std::string> LinesOf(const std::string& text)
{
    std::istringstream stream(text);
    std::vector<std::string> lines;
    for (std::string line; std::getline(stream, line);) {
        lines.push_back(line);
    }
    return lines;
}

/// Whether the lines are those of the page, where "..." stands for any number of them.
void ExpectLines(const std::vector<std::string>& actual, const std::vector<std::string>& expected)
{
    std::size_t at = 0;
    bool skips = false;
    for (const std::string& line : expected) {
        if (line == "...") {
            skips = true;
            continue;
        }
        while (skips && at < actual.size() && actual[at] != line) {
            ++at;
        }
        ASSERT_LT(at, actual.size()) << "nowhere: " << line;
        EXPECT_EQ(actual[at], line);
        ++at;
        skips = false;
    }
    EXPECT_TRUE(skips || at == actual.size());
}
} // namespace

TEST_F(ComputeDocs, PageShowsWhatTheProgramPrints)
{
    const std::vector<Example> examples = ExamplesOf(WB_SOURCE_DIR "/docs/compute.md");
    EXPECT_EQ(examples.size(), 6U);
    std::filesystem::create_directory_symlink(WB_SOURCE_DIR "/data", folder.At("data"));
    for (const Example& example : examples) {
        SCOPED_TRACE(example.command);
        ExpectLines(LinesOf(Run(example.command).out), example.lines);
    }
}

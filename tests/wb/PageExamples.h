#pragma once

#include "ProgramRun.h"

#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

/// Pages for users show what the program prints: every command on them is run.
class PageExamples : public ProgramRun
{
protected:
    /// Runs the commands of the page one after the other, in one folder that has the sample
    /// products. Lines must be those of the page, where "..." stands for any number of them.
    void ExpectPage(const std::string& page, std::size_t commands) const
    {
        const std::vector<Example> examples = ExamplesOf(page);
        EXPECT_EQ(examples.size(), commands);
        std::filesystem::create_directory_symlink(WB_SOURCE_DIR "/data", folder.At("data"));
        for (const Example& example : examples) {
            SCOPED_TRACE(example.command);
            const Outcome outcome =
                RunShell("wb() { '" WB_PROGRAM "' \"$@\"; }; " + example.command);
            ExpectLines(LinesOf(outcome.out), example.lines);
        }
    }

private:
    struct Example
    {
        std::string command; // behind "$ "
        std::vector<std::string> lines;
    };

    static std::vector<Example> ExamplesOf(const std::string& page)
    {
        constexpr std::string_view kPrompt = "$ ";
        std::ifstream file(page);
        std::vector<Example> examples;
        bool isInBlock = false;
        for (std::string line; std::getline(file, line);) {
            if (line.starts_with("```")) {
                isInBlock = !isInBlock;
            } else if (isInBlock && line.starts_with(kPrompt)) {
                examples.push_back({line.substr(kPrompt.size()), {}});
            } else if (isInBlock && !examples.empty()) {
                examples.back().lines.push_back(line);
            }
        }
        return examples;
    }

    static std::vector<std::string> LinesOf(const std::string& text)
    {
        std::istringstream stream(text);
        std::vector<std::string> lines;
        for (std::string line; std::getline(stream, line);) {
            lines.push_back(line);
        }
        return lines;
    }

    static void ExpectLines(const std::vector<std::string>& actual,
                            const std::vector<std::string>& expected)
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
};

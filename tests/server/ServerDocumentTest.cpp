#include "MethodsTesting.h"

#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

namespace
{
std::vector<std::string> LinesOfDocument()
{
    std::ifstream file(std::filesystem::path(WB_SOURCE_DIR) / "docs" / "server.md");
    std::vector<std::string> lines;
    for (std::string line; std::getline(file, line);) {
        lines.push_back(line);
    }
    return lines;
}

/// The lines of all blocks that are fenced with that word.
std::vector<std::string> LinesOfBlocks(const std::string& word)
{
    std::vector<std::string> found;
    bool isInside = false;
    for (const std::string& line : LinesOfDocument()) {
        if (line.starts_with("```")) {
            isInside = line == "```" + word;
        } else if (isInside) {
            found.push_back(line);
        }
    }
    return found;
}

/// Whether a text is what is written, where "..." stands for anything.
bool IsAsWritten(std::string_view text, std::string_view written)
{
    const std::size_t gap = written.find("...");
    if (gap == std::string_view::npos) {
        return text == written;
    }
    if (!text.starts_with(written.substr(0, gap))) {
        return false;
    }
    written.remove_prefix(gap + 3);
    for (std::size_t start = gap; start <= text.size(); ++start) {
        if (IsAsWritten(text.substr(start), written)) {
            return true;
        }
    }
    return false;
}
} // namespace

TEST(ServerDocument, ExamplesAnswerAsWritten)
{
    wbtest::ServedProduct served;
    std::string table;
    for (const std::string& line : LinesOfBlocks("csv")) {
        table += line + "\n";
    }
    served.ImportTable(table);
    wb::CallContext caller;
    caller.user = "kim";
    std::string answer;
    int examples = 0;
    for (const std::string& line : LinesOfBlocks("wire")) {
        if (line.starts_with("> ")) {
            const std::size_t blank = line.find(' ', 2);
            answer = served.Server().Call(line.substr(2, blank - 2),
                                          blank == std::string::npos ? "" : line.substr(blank + 1),
                                          caller);
            ++examples;
        } else {
            const std::string written = line.size() > 1 ? line.substr(2) : "";
            EXPECT_TRUE(IsAsWritten(answer, written)) << answer << "\nis not\n" << written;
        }
    }
    EXPECT_EQ(examples, 33);
}

#include "StoryScript.h"

#include <algorithm>
#include <array>
#include <fstream>

namespace
{

struct Verb
{
    std::string_view name;
    std::size_t leastWords; // behind the verb
    std::size_t mostWords;
    std::string_view form;
};

constexpr std::size_t kAny = 1000;
constexpr std::array kVerbs{
    Verb{"open", 1, 1, "open ROOT|FILE.csv"},
    Verb{"workshop", 1, 1, "workshop NAME"},
    Verb{"start", 1, 1, "start COMMAND"},
    Verb{"menu", 1, 1, "menu TITLE/ENTRY"},
    Verb{"pick", 1, kAny, "pick PATH [PATH...]"},
    Verb{"click", 1, 1, "click CONTROL"},
    Verb{"check", 2, 2, "check CONTROL on|off"},
    Verb{"type", 2, 2, "type CONTROL TEXT"},
    Verb{"select", 2, 2, "select CONTROL TEXT"},
    Verb{"key", 1, 1, "key KEY"},
    Verb{"sort", 2, 2, "sort LIST COLUMN"},
    Verb{"resize", 3, 3, "resize DIALOG WIDTH HEIGHT"},
    Verb{"units", 2, 2, "units MAGNITUDE UNIT"},
    Verb{"expect", 2, 2, "expect CONTROL TEXT"},
    Verb{"expect-cell", 4, 4, "expect-cell LIST ROW COLUMN TEXT"},
    Verb{"expect-tooltip", 2, 2, "expect-tooltip CONTROL TEXT"},
    Verb{"expect-box", 1, 1, "expect-box TEXT"},
    Verb{"expect-copied", 1, 1, "expect-copied TEXT"},
    Verb{"expect-file", 2, 2, "expect-file PATH TEXT"},
    Verb{"answer", 1, 1, "answer Yes|No|OK|Cancel"},
    Verb{"file", 1, 1, "file PATH|cancel"},
    Verb{"close", 1, 1, "close DIALOG"},
    Verb{"shot", 1, 2, "shot FILE.png [DIALOG]"},
    Verb{"dump", 1, 1, "dump FILE.json"},
    Verb{"quit", 0, 0, "quit"},
};

} // namespace

bool SplitStoryLine(std::string_view line, std::vector<std::string>& words)
{
    words.clear();
    std::size_t at = 0;
    while (at < line.size()) {
        if (line[at] == ' ' || line[at] == '\t' || line[at] == '\r') {
            ++at;
            continue;
        }
        std::string word;
        if (line[at] == '"') {
            bool closed = false;
            for (++at; at < line.size() && !closed; ++at) {
                if (line[at] == '"') {
                    closed = true;
                } else if (line[at] == '\\' && at + 1 < line.size()) {
                    ++at;
                    word += line[at] == 'n' ? '\n' : line[at] == 't' ? '\t' : line[at];
                } else {
                    word += line[at];
                }
            }
            if (!closed) {
                return false;
            }
        } else {
            while (at < line.size() && line[at] != ' ' && line[at] != '\t' && line[at] != '\r') {
                word += line[at++];
            }
        }
        words.push_back(std::move(word));
    }
    return true;
}

bool ReadStory(const std::string& path, std::vector<StoryStep>& steps, std::string& problem)
{
    std::ifstream file(path);
    if (!file) {
        problem = path + ": the story cannot be read";
        return false;
    }
    std::string text;
    for (int line = 1; std::getline(file, text); ++line) {
        const std::string place = path + ":" + std::to_string(line) + ": ";
        StoryStep step{line, {}};
        if (!SplitStoryLine(text, step.words)) {
            problem = place + "a double quote is not closed";
            return false;
        }
        if (step.words.empty() || step.words.front().front() == '#') {
            continue;
        }
        const auto verb = std::find_if(kVerbs.begin(), kVerbs.end(), [&](const Verb& candidate) {
            return candidate.name == step.words.front();
        });
        if (verb == kVerbs.end()) {
            problem = place + "there is no step \"" + step.words.front() + "\"";
            return false;
        }
        const std::size_t count = step.words.size() - 1;
        if (count < verb->leastWords || count > verb->mostWords) {
            problem = place + "expected: " + std::string(verb->form);
            return false;
        }
        steps.push_back(std::move(step));
    }
    return true;
}

#include "ReportText.h"

#include <cerrno>
#include <charconv>
#include <cstdio>
#include <cstring>
#include <span>

namespace
{

constexpr const char* kHelp =
    "Writes a made report document in the vocabulary of the server's reports.\n"
    "\n"
    "  wb_make_report OUT.xml [options]      OUT.xml \"-\" is the standard output\n"
    "\n"
    "  --instances N          part instances, each with 25 attributes (1000)\n"
    "  --children N           the most instances directly below the root or an instance (8)\n"
    "  --sections N           sections (10)\n"
    "  --materials N          material statistics of the root (12)\n"
    "  --statistics-every N   every n-th instance has statistics of its own, 0: none (1000)\n"
    "  --distributive         a distributive report: all instances directly below the root\n"
    "  --separator CHARACTER  the decimal separator, \".\" or \",\" (\".\")\n"
    "  --seed N               another number makes other values (1)\n"
    "  --help                 this text\n";
constexpr int kUsageError = 2;

struct Arguments
{
    std::string path;
    ReportOptions options;
    bool wantsHelp = false;
};

struct NumberOption
{
    const char* name;
    int ReportOptions::*value;
};
constexpr NumberOption kNumberOptions[] = {
    {"--instances", &ReportOptions::instances},
    {"--children", &ReportOptions::children},
    {"--sections", &ReportOptions::sections},
    {"--materials", &ReportOptions::materials},
    {"--statistics-every", &ReportOptions::statisticsEvery},
};

template <class Number>
bool ReadWhole(std::string_view text, Number& value)
{
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    return error == std::errc() && end == text.data() + text.size();
}

/// Takes the value of an option; false when it is not one for this option, or the option unknown.
bool TakeOption(std::string_view name, std::string_view value, ReportOptions& options)
{
    for (const NumberOption& option : kNumberOptions) {
        if (name == option.name) {
            return ReadWhole(value, options.*option.value);
        }
    }
    if (name == "--seed") {
        return ReadWhole(value, options.seed);
    }
    if (name == "--separator" && value.size() == 1) {
        options.separator = value.front();
        return true;
    }
    return false;
}

/// The sentence that says what is wrong with the command line; nothing when all is right.
std::optional<std::string> ReadArguments(std::span<char*> texts, Arguments& arguments)
{
    for (std::size_t index = 0; index < texts.size(); ++index) {
        const std::string text = texts[index];
        if (text == "--help" || text == "-h") {
            arguments.wantsHelp = true;
            return std::nullopt;
        }
        if (text == "--distributive") {
            arguments.options.distributive = true;
        } else if (text.starts_with("--")) {
            if (index + 1 == texts.size()) {
                return "\"" + text + "\" needs a value, or is no option.";
            }
            const std::string value = texts[++index];
            if (!TakeOption(text, value, arguments.options)) {
                return "\"" + text + " " + value + "\" is not understood.";
            }
        } else if (arguments.path.empty()) {
            arguments.path = text;
        } else {
            return "There are two files, \"" + arguments.path + "\" and \"" + text + "\".";
        }
    }
    if (arguments.path.empty()) {
        return "The file to write is missing.";
    }
    return ReportProblem(arguments.options);
}

bool WriteFile(const Arguments& arguments)
{
    const bool toOutput = arguments.path == "-";
    std::FILE* const file = toOutput ? stdout : std::fopen(arguments.path.c_str(), "wb");
    if (file == nullptr) {
        return false;
    }
    bool good = true;
    WriteReport(arguments.options, [file, &good](std::string_view piece) {
        good = good && std::fwrite(piece.data(), 1, piece.size(), file) == piece.size();
    });
    const bool closed = (toOutput ? std::fflush(file) : std::fclose(file)) == 0;
    return good && closed;
}

} // namespace

int main(int argc, char** argv)
{
    Arguments arguments;
    const auto problem =
        ReadArguments(std::span(argv, static_cast<std::size_t>(argc)).subspan(1), arguments);
    if (problem) {
        std::fprintf(stderr, "wb_make_report: %s See wb_make_report --help.\n", problem->c_str());
        return kUsageError;
    }
    if (arguments.wantsHelp) {
        std::fputs(kHelp, stdout);
        return 0;
    }
    if (!WriteFile(arguments)) {
        std::fprintf(stderr, "wb_make_report: %s: %s\n", arguments.path.c_str(),
                     std::strerror(errno));
        return 1;
    }
    return 0;
}

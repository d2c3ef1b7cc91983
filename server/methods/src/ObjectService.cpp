#include "Methods.h"
#include "PickedPart.h"
#include "Request.h"

namespace wb
{
namespace
{
std::vector<std::string_view> Split(std::string_view text)
{
    std::vector<std::string_view> fields;
    while (true) {
        const std::size_t end = text.find('|');
        fields.push_back(text.substr(0, end));
        if (end == std::string_view::npos) {
            return fields;
        }
        text.remove_prefix(end + 1);
    }
}

/// What the caller knows of the picked object already; empty fields say nothing.
struct Expected
{
    std::string_view root;
    std::string_view part;
    std::string_view version;
};

std::optional<Expected> ReadInput(std::string_view input)
{
    constexpr std::string_view kAnyVersion = "---";
    const auto fields = Split(input);
    if (fields.size() < 2 || fields[0].empty() || fields[1].empty()) {
        return std::nullopt;
    }
    Expected expected{fields[0], {}, {}};
    if (fields.size() > 3) {
        expected.part = fields[2];
        expected.version = fields[3] == kAnyVersion ? std::string_view() : fields[3];
    }
    return expected;
}

bool Matches(const Expected& expected, const PickedPart& picked)
{
    const bool partMatches = expected.part.empty() || expected.part == picked.Part().identifier;
    const bool versionMatches =
        expected.version.empty() || expected.version == picked.Part().version;
    return partMatches && versionMatches;
}
} // namespace

std::optional<std::string> ObjectIdentifiers(const Store& store,
                                             std::vector<std::string>& identificators,
                                             std::string_view input, bool withPartName)
{
    const auto expected = ReadInput(input);
    if (!expected) {
        return std::nullopt;
    }
    AnswerText answer;
    std::vector<std::string> resolved;
    for (const std::string& identificator : identificators) {
        auto path = Split(identificator);
        // The root is no instance and cannot be described as one.
        if (path.size() < 2 || path[0] != expected->root) {
            continue;
        }
        path.erase(path.begin());
        const WalkResult walk = WalkTo(store, expected->root, path);
        if (!walk.picked || !Matches(*expected, *walk.picked)) {
            continue;
        }
        const PartLine& part = walk.picked->Part();
        answer.Add(part.hasUses)
            .Add(walk.picked->uses.back().instance)
            .Add(part.identifier)
            .Add(part.version)
            .Add(walk.picked->uses.size() - 1);
        for (const std::string& instance : LeafSidePath(*walk.picked)) {
            answer.Add(instance);
        }
        if (withPartName) {
            answer.Add(part.name);
        }
        resolved.push_back(identificator);
    }
    identificators = std::move(resolved);
    return answer.Take();
}
} // namespace wb

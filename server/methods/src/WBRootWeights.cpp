#include "WBRootWeights.h"

#include "WBCompute.h"
#include "WBProductGraph.h"

#include <array>
#include <charconv>

namespace wb
{
namespace
{
std::string Digits(double value, std::chars_format format, int precision)
{
    std::array<char, 400> text{};
    const auto [end, error] =
        std::to_chars(text.data(), text.data() + text.size(), value, format, precision);
    return {text.data(), end};
}

std::string Shown(const Total& total)
{
    constexpr int kMassDigits = 9;
    constexpr int kDecimals = 3;
    std::string text =
        total.HasMass() ? Digits(total.body.mass, std::chars_format::general, kMassDigits) + " kg"
                        : "mass unknown";
    if (total.HasCentre()) {
        std::string centre;
        for (const double term : total.body.centre) {
            centre += (centre.empty() ? " at " : ", ") +
                      Digits(term, std::chars_format::fixed, kDecimals);
        }
        text += centre + " mm";
    } else {
        text += ", centre unknown";
    }
    // What has no mass is not in the figure, and the reader should know.
    return text + (total.IsPartial() ? " (some items have no mass)" : "");
}
} // namespace

std::map<std::string, std::string> WeighRoots(const Store& store)
{
    std::map<std::string, std::string> weights;
    for (const PartLine& root : store.Roots()) {
        const ProductGraph graph(store.ReadProduct(root.id), store.MassTypes());
        ComputeOptions options;
        options.validate = false;
        const ComputeResult result = Compute(graph, AskedPath{}, options);
        weights[root.identifier + " " + root.version] =
            result.error.empty() ? Shown(result.total) : result.error;
    }
    return weights;
}

std::vector<std::string> CompareWeights(const std::map<std::string, std::string>& before,
                                        const std::map<std::string, std::string>& after)
{
    std::map<std::string, std::string> roots = before;
    roots.insert(after.begin(), after.end());
    const auto told = [](const std::map<std::string, std::string>& weights,
                         const std::string& root) {
        const auto found = weights.find(root);
        return found == weights.end() ? "not there" : found->second;
    };
    std::vector<std::string> sentences;
    for (const auto& [root, weight] : roots) {
        sentences.push_back("product " + root + ": before " + told(before, root) + "; after " +
                            told(after, root));
    }
    return sentences;
}
} // namespace wb

#include "WBRootWeights.h"

#include "ShownWeight.h"
#include "WBCompute.h"
#include "WBProductGraph.h"

namespace wb
{
std::map<std::string, std::string> WeighRoots(const Store& store)
{
    std::map<std::string, std::string> weights;
    for (const PartLine& root : store.Roots()) {
        const ProductGraph graph(store.ReadProduct(root.id), store.MassTypes());
        ComputeOptions options;
        options.validate = false;
        const ComputeResult result = Compute(graph, AskedPath{}, options);
        weights[root.identifier + " " + root.version] =
            result.error.empty() ? ShownWeight(result.total) : result.error;
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
    sentences.reserve(roots.size());
    for (const auto& [root, weight] : roots) {
        sentences.push_back("product " + root + ": before " + told(before, root) + "; after " +
                            told(after, root));
    }
    return sentences;
}
} // namespace wb

#include "WBProductExport.h"

#include "WBTableWriter.h"

#include <optional>

namespace wb
{
namespace
{
std::string NoRoot(const Store& store, const std::string& name)
{
    std::string roots;
    for (const PartLine& root : store.Roots()) {
        roots += (roots.empty() ? "" : ", ") + root.identifier + " " + root.version;
    }
    return store.Path() + ": " +
           (roots.empty() ? "the database holds no product"
                          : "\"" + name + "\" is no product root, expected one of " + roots);
}
} // namespace

ProductExport ExportProduct(const Store& store, const std::string& root, const std::string& version)
{
    ProductExport result;
    try {
        const std::optional<PartLine> line = store.FindRoot(root, version);
        if (!line) {
            result.error = NoRoot(store, version.empty() ? root : root + " " + version);
            return result;
        }
        const Product product = store.ReadProduct(line->id);
        result.parts = product.parts.size();
        result.uses = product.uses.size();
        result.table = WriteProductTable(product, 0);
        result.massTypes = store.MassTypes();
    } catch (const StoreError& error) {
        result.error = error.what();
    }
    return result;
}
} // namespace wb

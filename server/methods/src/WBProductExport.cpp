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
    return store.Path() + ": \"" + name + "\" is no product root, expected one of " +
           (roots.empty() ? "none, since the database holds no product" : roots);
}
} // namespace

ProductExport ExportProduct(const Store& store, const std::string& root, const std::string& version)
{
    ProductExport result;
    try {
        std::optional<RowId> id;
        for (const PartLine& line : store.Roots()) {
            const bool isLater = !id || *id < line.id;
            if (line.identifier == root && (version.empty() ? isLater : line.version == version)) {
                id = line.id;
            }
        }
        if (!id) {
            result.error = NoRoot(store, version.empty() ? root : root + " " + version);
            return result;
        }
        const Product product = store.ReadProduct(*id);
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

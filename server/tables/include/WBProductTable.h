#pragma once

#include "WBKnown.h"
#include "WBProduct.h"

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace wb
{
/// What the cells of products of inertia hold: + integral of x y dm, or the terms of the matrix.
enum class ProductSign
{
    Integral,
    MatrixTerm
};

struct TableOptions
{
    /// Stands in for a blank mass_type of rows that fill a value cell; empty: nothing does.
    std::string massType;
    /// Stands in for a blank poi_sign.
    std::optional<ProductSign> productSign;
};

/// What a table says that an assembly adds up to; nothing that is stored.
struct StatedTotal
{
    std::string identifier;
    std::string version;
    std::uint32_t line = 0;
    double mass = kUnknown;         // kg
    std::array<double, 3> centre{}; // mm, in the assembly's axes; unknown where not stated
};

/// What a reader of the table should be told besides the product.
struct TableSummary
{
    std::size_t rows = 0;
    std::size_t valueSets = 0;
    /// Inertias given as three moments alone; their products count as 0.
    std::size_t momentsAlone = 0;
    /// "PARENT/INSTANCE (line N)" of each use with the opposite hand.
    std::vector<std::string> oppositeHands;
    /// Figures of assemblies that name no mass type, to be compared with the sums.
    std::vector<StatedTotal> totals;
    std::string checksum; // SHA-256 of the file

    /// The sentences about what was understood but deserves a look.
    std::vector<std::string> Remarks() const;
};

struct TableResult
{
    Product product; // empty when there are errors
    TableSummary summary;
    std::vector<std::string> errors; // ready sentences, by line; empty: the table was read

    bool Ok() const { return errors.empty(); }
};

/// Reads a product table. name stands in the messages; known says what exists already, so that
/// versions, materials and mass types may be left out of the table.
TableResult ReadProductTable(std::string_view content, const std::string& name,
                             const TableOptions& options, const KnownProducts& known);

/// The same of a file.
TableResult ReadProductFile(const std::string& path, const TableOptions& options,
                            const KnownProducts& known);

/// A product table opened without any database: only the shipped mass types are known.
TableResult ReadLocalProduct(const std::string& path, const TableOptions& options = {});

/// The bytes of a file, or a sentence that says why they cannot be had.
struct FileBytes
{
    std::string bytes;
    std::string error;
};
FileBytes ReadFileBytes(const std::string& path);
} // namespace wb

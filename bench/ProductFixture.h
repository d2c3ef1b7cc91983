#pragma once

#include "WBProductGraph.h"

#include <cstdint>
#include <random>
#include <string>
#include <vector>

/// What the benchmarks of whole products share: their size, figures, and products as arrays.

/// 10,000,000 instances in place of 1,000,000, from now on.
void UseLargeProducts();
/// How many instances the products of this run have at least.
int ProductInstances();

/// Figures of any size that no sum makes round; the same ones in every run.
class Figures
{
public:
    double Between(double low, double high)
    {
        return std::uniform_real_distribution<double>(low, high)(m_random);
    }
    std::size_t Below(std::size_t count)
    {
        return std::uniform_int_distribution<std::size_t>(0, count - 1)(m_random);
    }
    /// Turned about all three axes, and shifted.
    wb::Placement Place();

private:
    std::mt19937 m_random{11};
};

/// A product with a record for each instance, depth first, as wb::RollUpTree takes it.
struct FlatProduct
{
    std::vector<wb::Body> records;
    std::vector<std::uint32_t> sizes;
    std::vector<std::uint32_t> parents;
    std::vector<wb::Placement> placements;

    /// Begins a record below another one and returns its number.
    std::uint32_t Begin(std::uint32_t parent, const wb::Body& body, const wb::Placement& placement);
    /// All that stands below the record is there.
    void End(std::uint32_t record);
};

/// Each record with figures and a place of its own, 32 children a node, so many levels of them,
/// below as many of these trees as the product's size asks for.
FlatProduct GrownProduct(int levels, int trees);
/// The one of this run's size.
FlatProduct& ManyInstances();

/// Every instance of a graph's first part, with the first values that each leaf states.
FlatProduct Flattened(const wb::ProductGraph& graph);

/// True when two sums are the same but for rounding.
bool IsSameBody(const wb::Body& one, const wb::Body& other);

/// A table of so many rows (ProductFile.h) and 10,000 parts, written at the first call; and a
/// database that holds it.
constexpr int kProductParts = 10'000;
const std::string& ProductTable(int rows);
const std::string& ProductDatabase(int rows);

#pragma once

#include "WBCompute.h"
#include "WBStore.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>

namespace wb
{
class Computations;

/// Computes nodes of one product for a program that works on the database itself: by the same
/// rules, and from and into the same kept sums, as the methods do for their clients. What the user
/// has changed and not saved counts, and then no sums are kept or taken.
class ProductComputation
{
public:
    enum class Policy
    {
        Check, // what is no longer up to date is computed
        Force, // everything is, from the database on
        Assume // sums that were kept of what lies deeper than the level are taken, stale or not
    };
    /// Told the share done, from 0 to 1, and what is being done.
    using Progress = std::function<void(double, std::string_view)>;

    /// Borrows the store, whose reads show what is pending of the user while this lives. root: a
    /// part of it. Throws StoreError.
    ProductComputation(Store& store, const PartLine& root, std::string user, Progress progress);
    ProductComputation(const ProductComputation&) = delete;
    ProductComputation& operator=(const ProductComputation&) = delete;
    ~ProductComputation();

    /// The product, whose root is part 0. Good until the next call. Throws StoreError.
    const ProductGraph& Graph();
    /// level: of Assume; the asked node is level 0. What cannot be computed becomes the result's
    /// error. Throws StoreError.
    ComputeResult Compute(const AskedPath& path, const ComputeOptions& options, Policy policy,
                          std::int64_t level);

private:
    const PartLine m_root;
    const std::string m_user;
    const Progress m_progress;
    const PendingView m_view;
    std::unique_ptr<Computations> m_computations;
};
} // namespace wb

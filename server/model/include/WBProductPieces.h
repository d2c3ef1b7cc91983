#pragma once

#include "WBProduct.h"

#include <cstddef>
#include <vector>

namespace wb
{
/// A product whose uses come piece by piece, so that a large one never stands in memory whole.
class ProductPieces
{
public:
    ProductPieces() = default;
    ProductPieces(const ProductPieces&) = delete;
    ProductPieces& operator=(const ProductPieces&) = delete;
    virtual ~ProductPieces() = default;

    /// How many parts the uses speak of.
    virtual std::size_t PartCount() const = 0;
    /// The next uses, in order, without values and materials of their own; none: there are no more.
    virtual std::vector<Use> Next() = 0;
    /// After the last piece: the parts and materials. Null when the pieces make no product.
    virtual const Product* Rest() = 0;
};
} // namespace wb

#include "WBQuantityTexts.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <string_view>

namespace
{

struct Shape
{
    std::string_view quantity;
    std::size_t pieces;
    std::size_t firstNumber; ///< all pieces from it on are numbers
};
constexpr std::array kShapes{
    Shape{kWBMassQuantity, 1, 0},    Shape{kWBCentreQuantity, 3, 0},
    Shape{kWBInertiaQuantity, 6, 0}, Shape{kWBPrecisionQuantity, 3, 1},
    Shape{kWBDensityQuantity, 1, 0},
};
/// A word or a text of its own, which may hold any character.
constexpr Shape kWord{{}, 1, 1};

const Shape& ShapeOf(const CATUnicodeString& quantity)
{
    const auto* found = std::ranges::find(kShapes, quantity.View(), &Shape::quantity);
    return found == kShapes.end() ? kWord : *found;
}

WBPieces Cut(std::string_view text)
{
    WBPieces pieces;
    while (true) {
        const std::size_t end = text.find(';');
        pieces.emplace_back(text.substr(0, end));
        if (end == std::string_view::npos) {
            return pieces;
        }
        text.remove_prefix(end + 1);
    }
}

} // namespace

WBPieces WBPiecesOf(const CATUnicodeString& quantity, const CATUnicodeString& text)
{
    const Shape& shape = ShapeOf(quantity);
    WBPieces pieces = shape.pieces == 1 ? WBPieces{text} : Cut(text.View());
    pieces.resize(shape.pieces);
    return pieces;
}

CATUnicodeString WBTextOf(const WBPieces& pieces)
{
    CATUnicodeString text;
    for (std::size_t index = 0; index < pieces.size(); ++index) {
        text += index == 0 ? pieces[index] : ";" + pieces[index];
    }
    return std::ranges::all_of(pieces, &CATUnicodeString::IsEmpty) ? CATUnicodeString() : text;
}

bool WBAreComplete(const WBPieces& pieces)
{
    const auto stated = std::ranges::count_if(
        pieces, [](const CATUnicodeString& piece) { return !piece.IsEmpty(); });
    return stated == 0 || static_cast<std::size_t>(stated) == pieces.size();
}

bool WBIsTextOf(const CATUnicodeString& quantity, const CATUnicodeString& text)
{
    const Shape& shape = ShapeOf(quantity);
    if (text.IsEmpty() || shape.firstNumber == shape.pieces) {
        return true;
    }
    const WBPieces pieces = Cut(text.View());
    return pieces.size() == shape.pieces &&
           std::all_of(pieces.begin() + static_cast<std::ptrdiff_t>(shape.firstNumber),
                       pieces.end(),
                       [](const CATUnicodeString& piece) { return WBNumberOf(piece); }) &&
           (shape.firstNumber == 0 || pieces[0] == kWBPercent || pieces[0] == kWBAbsolute);
}

CATUnicodeString WBPieceOf(double value)
{
    constexpr int kDigits = 15;
    constexpr std::size_t kLongest = 32;
    std::array<char, kLongest> buffer{};
    const double written = value == 0.0 ? 0.0 : value; // never "-0"
    const auto result = std::to_chars(buffer.data(), buffer.data() + buffer.size(), written,
                                      std::chars_format::general, kDigits);
    return std::string_view(buffer.data(), static_cast<std::size_t>(result.ptr - buffer.data()));
}

std::optional<double> WBNumberOf(const CATUnicodeString& piece)
{
    const std::string_view text = piece.View();
    double value = 0.0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    const bool isNumber =
        error == std::errc() && end == text.data() + text.size() && std::isfinite(value);
    return isNumber ? std::optional(value) : std::nullopt;
}

#include "WBTexts.h"

#include "CATENOWBCSCommonDefinitions.h"
#include "WBNumbers.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstring>
#include <numeric>
#include <vector>

namespace wb
{
std::optional<std::string_view> ForbiddenText(std::string_view text)
{
    if (text.find('|') != std::string_view::npos) {
        return "without \"|\", which separates fields";
    }
    const bool control = std::ranges::any_of(text, [](char character) {
        const auto byte = static_cast<unsigned char>(character);
        return byte < 0x20 || byte == 0x7F;
    });
    if (control) {
        return "without line ends and other control characters";
    }
    if (text == "__null__" || text == "~") {
        return "other than \"__null__\" and \"~\", which stand for empty";
    }
    if (text.find(CATENOWBCSCommonDefinitions::errMsgHeader) != std::string_view::npos) {
        return "without the mark that begins the server's errors";
    }
    return std::nullopt;
}

bool IsReservedMassType(std::string_view name)
{
    return name.empty() || name == "Active" || name == "MostPrecise" ||
           name == CATENOWBCSCommonDefinitions::Computed;
}

namespace
{
// A report writes these as attributes of its own; a property of the same name would be taken for
// them.
constexpr std::array<std::string_view, 44> kReportNames{"COGx",
                                                        "COGy",
                                                        "COGz",
                                                        "WB_Mass",
                                                        "WB_Lower_deviation",
                                                        "WB_Upper_deviation",
                                                        "WB_Mass_Details",
                                                        "MOIxx",
                                                        "MOIyy",
                                                        "MOIzz",
                                                        "POIxy",
                                                        "POIxz",
                                                        "POIyz",
                                                        "WB_Density",
                                                        "Density",
                                                        "Density_dimension",
                                                        "Cut_Volume",
                                                        "LengthUnit",
                                                        "MassUnit",
                                                        "InertiaMomentUnit",
                                                        "DensityUnit",
                                                        "SurfacicDensityUnit",
                                                        "VolumeUnit",
                                                        "PRC_ID",
                                                        "Part_ID",
                                                        "Instance_ID",
                                                        "InstanceID",
                                                        "Name",
                                                        "Version",
                                                        "Quantity",
                                                        "Mass",
                                                        "Mass_ratio",
                                                        "InstancePath",
                                                        "Dimension",
                                                        "Material",
                                                        "Code",
                                                        "Source",
                                                        "WB_Status",
                                                        "instIdAttrAlias",
                                                        "WB_Last_calculation_date",
                                                        "WBLastImposedMassTypeID",
                                                        "WBActiveMassTypeID",
                                                        "WBActiveDocumentID",
                                                        "Unit_mass"};
} // namespace

bool IsReportName(std::string_view name)
{
    return std::ranges::find(kReportNames, name) != kReportNames.end();
}

namespace
{
/// Bytes of the sequence that starts here; 0 where none does.
std::size_t SequenceLength(std::string_view text)
{
    const auto byte = [&](std::size_t index) {
        return index < text.size() ? static_cast<unsigned char>(text[index]) : 0U;
    };
    const auto follows = [&](std::size_t index) {
        return (byte(index) & 0xC0U) == 0x80U;
    };
    const unsigned first = byte(0);
    if (first < 0x80U) {
        return 1;
    }
    if (first >= 0xC2U && first <= 0xDFU) {
        return follows(1) ? 2 : 0;
    }
    if (first >= 0xE0U && first <= 0xEFU) {
        const bool shortest = first != 0xE0U || byte(1) >= 0xA0U;
        const bool noSurrogate = first != 0xEDU || byte(1) < 0xA0U;
        return shortest && noSurrogate && follows(1) && follows(2) ? 3 : 0;
    }
    if (first >= 0xF0U && first <= 0xF4U) {
        const bool shortest = first != 0xF0U || byte(1) >= 0x90U;
        const bool inRange = first != 0xF4U || byte(1) < 0x90U;
        return shortest && inRange && follows(1) && follows(2) && follows(3) ? 4 : 0;
    }
    return 0;
}
} // namespace

std::optional<std::size_t> FirstNonUtf8(std::string_view text)
{
    constexpr std::uint64_t kHighBits = 0x8080808080808080U;
    std::size_t position = 0;
    while (position < text.size()) {
        // Most texts are ASCII throughout, which shows eight bytes at a time.
        std::uint64_t eight = kHighBits;
        if (text.size() - position >= sizeof eight) {
            std::memcpy(&eight, text.data() + position, sizeof eight);
        }
        if ((eight & kHighBits) == 0) {
            position += sizeof eight;
            continue;
        }
        if (static_cast<unsigned char>(text[position]) < 0x80U) {
            ++position;
            continue;
        }
        const std::size_t length = SequenceLength(text.substr(position));
        if (length == 0) {
            return position;
        }
        position += length;
    }
    return std::nullopt;
}

bool IsDate(std::string_view text)
{
    constexpr std::array kDays{31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    constexpr std::string_view kForm = "dddd-dd-dd";
    if (text.size() != kForm.size()) {
        return false;
    }
    for (std::size_t i = 0; i < kForm.size(); ++i) {
        const bool digit = text[i] >= '0' && text[i] <= '9';
        if (kForm[i] == 'd' ? !digit : text[i] != '-') {
            return false;
        }
    }
    const auto year = *ReadInteger(text.substr(0, 4));
    const auto month = *ReadInteger(text.substr(5, 2));
    const auto day = *ReadInteger(text.substr(8, 2));
    if (month < 1 || month > 12 || day < 1) {
        return false;
    }
    const bool leap = (year % 4 == 0 && year % 100 != 0) || year % 400 == 0;
    const int extra = month == 2 && leap ? 1 : 0;
    return day <= kDays[static_cast<std::size_t>(month - 1)] + extra;
}

std::string LowerCase(std::string_view text)
{
    std::string lower(text);
    for (char& character : lower) {
        if (character >= 'A' && character <= 'Z') {
            character = static_cast<char>(character - 'A' + 'a');
        }
    }
    return lower;
}

std::size_t EditDistance(std::string_view left, std::string_view right)
{
    std::vector<std::size_t> row(right.size() + 1);
    std::iota(row.begin(), row.end(), 0U);
    for (std::size_t i = 0; i < left.size(); ++i) {
        std::size_t diagonal = row[0];
        row[0] = i + 1;
        for (std::size_t j = 0; j < right.size(); ++j) {
            const std::size_t changed = diagonal + (left[i] == right[j] ? 0U : 1U);
            diagonal = row[j + 1];
            row[j + 1] = std::min({changed, row[j] + 1, diagonal + 1});
        }
    }
    return row.back();
}
} // namespace wb

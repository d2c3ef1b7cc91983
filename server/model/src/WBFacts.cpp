#include "WBFacts.h"

#include <algorithm>
#include <array>

namespace wb
{
namespace
{
constexpr std::array kNames{"mass",
                            "lower",
                            "upper",
                            "lower_pct",
                            "upper_pct",
                            "cgx",
                            "cgy",
                            "cgz",
                            "ixx",
                            "iyy",
                            "izz",
                            "ixy",
                            "ixz",
                            "iyz",
                            "volume",
                            "area",
                            "sigma_mass",
                            "sigma_cgx",
                            "sigma_cgy",
                            "sigma_cgz",
                            "sigma_ixx",
                            "sigma_iyy",
                            "sigma_izz",
                            "sigma_ixy",
                            "sigma_ixz",
                            "sigma_iyz",
                            "source",
                            "source_date",
                            "author",
                            "note",
                            "name",
                            "type",
                            "standard",
                            "code",
                            "growth_pct",
                            "density",
                            "surface_density",
                            "density_first",
                            "errors",
                            "material",
                            "material_density",
                            "material_surface_density",
                            "active",
                            "quantity",
                            "position",
                            "rotation",
                            "inertia_at",
                            "kx",
                            "ky",
                            "kz",
                            "doc_use",
                            "doc_checkin_date",
                            "doc_checkin_user",
                            "doc_checkout_user",
                            "doc_mass_type",
                            "doc_mass"};
static_assert(kNames.size() == static_cast<std::size_t>(Fact::DocumentMass) + 1);
} // namespace

const char* FactName(Fact fact)
{
    return kNames[static_cast<std::size_t>(fact)];
}

void FactLines::State(Fact fact, std::uint32_t line)
{
    if (m_first == 0) {
        m_first = line;
    } else if (m_first != line) {
        m_later.emplace_back(fact, line);
    }
}

std::uint32_t FactLines::LineOf(Fact fact) const
{
    const auto found =
        std::ranges::find_if(m_later, [&](const auto& entry) { return entry.first == fact; });
    return found == m_later.end() ? m_first : found->second;
}

void KeepTyped(std::string& typed, std::string_view name, std::string_view text,
               std::string_view unit)
{
    constexpr std::size_t kUsual = 64; // a position and a turn
    if (typed.empty()) {
        typed.reserve(kUsual);
    } else {
        typed += '|';
    }
    typed.append(name).append(1, '=').append(text);
    if (!unit.empty()) {
        typed.append(1, ' ').append(unit);
    }
}

void ForgetTyped(std::string& typed, std::string_view name)
{
    const std::string_view text = TypedText(typed, name);
    if (text.empty()) {
        return;
    }
    const auto begin = static_cast<std::size_t>(text.data() - typed.data()) - name.size() - 1;
    // The mark that parts the entry from its neighbour goes with it.
    typed.erase(begin, name.size() + 1 + text.size() + 1);
    if (typed.ends_with('|')) {
        typed.pop_back();
    }
}

std::string_view TypedText(std::string_view typed, std::string_view name)
{
    while (!typed.empty()) {
        const std::string_view entry = typed.substr(0, typed.find('|'));
        if (entry.size() > name.size() && entry.starts_with(name) && entry[name.size()] == '=') {
            return entry.substr(name.size() + 1);
        }
        typed.remove_prefix(std::min(typed.size(), entry.size() + 1));
    }
    return {};
}
} // namespace wb

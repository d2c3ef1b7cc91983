#include "WBPreviewColumns.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace
{

/// Where a column goes: at a position, or at the place that the rule has counted up to; and whether
/// the count then moves one on.
struct Place
{
    int position; // kCounted: as far as the rule has counted
    bool counts;
};
constexpr int kCounted = 0;

/// What counts as an identifier.
enum class Identifiers
{
    All,       // every name with "id" in it
    OfObjects, // but for those of documents and mass types
};

struct Rule
{
    int firstCount;
    Identifiers identifiers;
    Place identifier;
    Place mass;
    bool nameFirst; // "Name" goes to the front and moves the count on; otherwise it is like others
};

constexpr Place kAtFront{1, true};
constexpr Place kBehindFront{2, true};
constexpr Place kAtCount{kCounted, false};

// clang-format off
//                                    count  what identifies          identifier    mass          name
constexpr Rule kReportInstances      {1,     Identifiers::OfObjects,  kAtFront,     kAtCount,     false};
constexpr Rule kReportRoot           {1,     Identifiers::All,        kAtFront,     kAtCount,     false};
constexpr Rule kDistributiveRoot     {1,     Identifiers::OfObjects,  kAtFront,     kAtCount,     false};
constexpr Rule kDistributiveSections {2,     Identifiers::OfObjects,  kAtCount,     kBehindFront, true};
constexpr Rule kDistributiveInstances{1,     Identifiers::All,        kBehindFront, kAtCount,     true};
// clang-format on

constexpr std::array kOtherIdentifiers{"WBLastImposedMassTypeID", "WBActiveMassTypeID",
                                       "WBActiveDocumentID"};

/// With any letter case.
bool IsNamed(const CATUnicodeString& name, const char* expected)
{
    return name.Compare(expected) != 0;
}

bool ContainsId(std::string_view name)
{
    constexpr std::array<std::string_view, 4> kSpellings{"ID", "id", "Id", "iD"};
    return std::ranges::any_of(kSpellings, [name](std::string_view spelling) {
        return name.find(spelling) != std::string_view::npos;
    });
}

bool IsIdentifier(const CATUnicodeString& name, Identifiers which)
{
    const auto isName = [&name](const char* other) {
        return IsNamed(name, other);
    };
    return ContainsId(name.View()) &&
           (which == Identifiers::All || std::ranges::none_of(kOtherIdentifiers, isName));
}

/// Puts names into their places, one after the other.
class Arrangement
{
public:
    explicit Arrangement(const Rule& rule) : m_rule(rule), m_count(rule.firstCount) {}

    void Add(const CATUnicodeString& name)
    {
        if (IsIdentifier(name, m_rule.identifiers)) {
            Put(name, m_rule.identifier);
        } else if (IsNamed(name, "WB_Mass")) {
            Put(name, m_rule.mass);
        } else if (m_rule.nameFirst && IsNamed(name, "Name")) {
            Put(name, kAtFront);
        } else {
            m_columns.Append(name);
        }
    }
    const WBPreviewColumns& Columns() const { return m_columns; }

private:
    void Put(const CATUnicodeString& name, const Place& place)
    {
        m_columns.Insert(name, place.position == kCounted ? m_count : place.position);
        if (place.counts) {
            ++m_count;
        }
    }

    const Rule& m_rule;
    int m_count;
    WBPreviewColumns m_columns;
};

WBPreviewColumns Arranged(const CATListValCATUnicodeString& names, const Rule& rule)
{
    Arrangement arrangement(rule);
    for (const CATUnicodeString& name : names.Items()) {
        arrangement.Add(name);
    }
    return arrangement.Columns();
}

} // namespace

void WBPreviewColumns::Insert(const CATUnicodeString& name, int position)
{
    m_names.Insert(position, name);
}

void WBPreviewColumns::Append(const CATUnicodeString& name)
{
    m_names.Append(name);
}

CATListValCATUnicodeString WBPreviewColumns::Titles(const CATUnicodeString& firstTitle) const
{
    CATListValCATUnicodeString titles{firstTitle};
    for (CATUnicodeString title : m_names.Items()) {
        titles.Append(title.ReplaceAll("_", " "));
    }
    return titles;
}

bool IsCalculationDate(const CATUnicodeString& name)
{
    return IsNamed(name, "WB_Last_calculation_date");
}

WBPreviewColumns ReportInstanceColumns(const CATListValCATUnicodeString& candidates,
                                       bool withoutDate)
{
    Arrangement arrangement(kReportInstances);
    for (const CATUnicodeString& name : candidates.Items()) {
        if (!withoutDate || !IsCalculationDate(name)) {
            arrangement.Add(name);
        }
    }
    return arrangement.Columns();
}

WBPreviewColumns ReportRootColumns(const CATListValCATUnicodeString& names)
{
    return Arranged(names, kReportRoot);
}

WBPreviewColumns DistributiveRootColumns(const CATListValCATUnicodeString& names)
{
    return Arranged(names, kDistributiveRoot);
}

WBPreviewColumns DistributiveSectionColumns(const CATListValCATUnicodeString& names)
{
    return Arranged(names, kDistributiveSections);
}

WBPreviewColumns DistributiveInstanceColumns(const CATListValCATUnicodeString& names)
{
    return Arranged(names, kDistributiveInstances);
}

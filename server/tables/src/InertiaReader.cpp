#include "InertiaReader.h"

#include "SetColumns.h"
#include "TypedForms.h"
#include "WBTexts.h"

#include <algorithm>
#include <cmath>

namespace wb
{
namespace
{
/// The axes of a row's inertia go through the part's origin, not through its centre.
bool SaysOrigin(std::string_view cell)
{
    return LowerCase(cell) == "origin";
}

const char* PointName(bool atOrigin)
{
    return atOrigin ? "origin" : "cg";
}
} // namespace

InertiaReader::InertiaReader(TableRow& row, FactKeeper& keeper, const TableColumns& columns,
                             const TableOptions& options, const KnownProducts& known,
                             const MaterialReader& materials, Product& product,
                             TableSummary& summary)
    : m_row(row),
      m_keeper(keeper),
      m_columns(columns),
      m_options(options),
      m_known(known),
      m_materials(materials),
      m_product(product),
      m_summary(summary)
{}

void InertiaReader::Read(ValueSet& set, SetOwner owner)
{
    if (m_row.AnyFilled(Column::Ixx, Column::Iyz) && HasAllTerms()) {
        ReadTerms(set, owner);
    }
    if (m_row.AnyFilled(Column::Kx, Column::Kz)) {
        ReadRadii(set, owner);
    }
}

/// Of the six terms, or of the three moments where the products are blank.
bool InertiaReader::HasAllTerms()
{
    const Column last = m_row.AnyFilled(Column::Ixy, Column::Iyz) ? Column::Iyz : Column::Izz;
    for (auto column = Column::Ixx; column <= last; column = Next(column)) {
        if (!m_row.Filled(column)) {
            m_row.Complain(column, "the cell is blank, expected all six of the inertia or the "
                                   "three moments alone");
            return false;
        }
    }
    return true;
}

void InertiaReader::ReadTerms(ValueSet& set, SetOwner owner)
{
    const bool statedBefore = set.HasInertia();
    for (const auto& [column, fact] : kMomentColumns) {
        if (const auto moment = m_row.Stored(column)) {
            m_keeper.Number(set[fact], *moment, set.typed, set.lines,
                            m_row.Statement(fact, column));
        }
    }
    if (m_row.AnyFilled(Column::Ixy, Column::Iyz)) {
        StateProducts(set);
    }
    StatePoint(set, owner, statedBefore);
}

/// What makes + integral of x y dm of a cell; nothing after a complaint.
std::optional<double> InertiaReader::ProductFactor(bool anyProduct)
{
    if (m_row.Filled(Column::PoiSign)) {
        // Any other word was complained about when the row was begun.
        const std::string sign = LowerCase(m_row.Cell(Column::PoiSign));
        return sign == "negative" || sign == "-" ? -1.0 : 1.0;
    }
    if (m_options.productSign) {
        return *m_options.productSign == ProductSign::Integral ? 1.0 : -1.0;
    }
    if (anyProduct) {
        m_row.Complain(Column::PoiSign,
                       "the cell is blank beside a product of inertia that is not 0, expected "
                       "positive (+ integral of x y dm) or negative (terms of the matrix), or the "
                       "option --poi-sign for the whole table");
        return std::nullopt;
    }
    return 1.0;
}

void InertiaReader::StateProducts(ValueSet& set)
{
    std::array<double, 3> products{};
    bool anyProduct = false;
    for (std::size_t i = 0; i < kProductColumns.size(); ++i) {
        products[i] = m_row.Stored(kProductColumns[i].column).value_or(0.0);
        anyProduct = anyProduct || products[i] != 0.0;
    }
    const auto factor = ProductFactor(anyProduct);
    if (!factor) {
        return;
    }
    if (*factor < 0.0 && !set.Has(Fact::Ixy)) {
        KeepTyped(set.typed, ColumnName(Column::PoiSign), "negative", {});
    }
    for (std::size_t i = 0; i < kProductColumns.size(); ++i) {
        const auto& [column, fact] = kProductColumns[i];
        // 0 stays a plain 0: its negative would be written "-0" in some places.
        const double product = products[i] == 0.0 ? 0.0 : *factor * products[i];
        m_keeper.Number(set[fact], product, set.typed, set.lines, m_row.Statement(fact, column));
    }
}

void InertiaReader::StatePoint(ValueSet& set, SetOwner owner, bool statedBefore)
{
    const bool atOrigin = SaysOrigin(m_row.Cell(Column::InertiaAt));
    const auto pending = m_pending.find({owner.isUse, owner.index, set.massType});
    const bool wasAtOrigin = pending != m_pending.end() && pending->second.atOrigin;
    if (statedBefore && wasAtOrigin != atOrigin) {
        RefusePoint(set.lines, Fact::Ixx, wasAtOrigin);
    } else if (atOrigin && !statedBefore) {
        PendingOf(owner, set.massType).atOrigin = true;
        KeepTyped(set.typed, ColumnName(Column::InertiaAt), "origin", {});
    }
}

void InertiaReader::RefusePoint(const FactLines& lines, Fact earlier, bool wasAtOrigin)
{
    m_keeper.Refuse(
        {Fact::InertiaAt, m_row.Line(), m_row.HeaderOf(Column::InertiaAt), PointName(!wasAtOrigin)},
        lines.LineOf(earlier), PointName(wasAtOrigin));
}

InertiaReader::Pending& InertiaReader::PendingOf(SetOwner owner, const std::string& massType)
{
    Pending& pending = m_pending[{owner.isUse, owner.index, massType}];
    if (pending.line == 0) {
        pending.owner = owner;
        pending.massType = massType;
        pending.line = m_row.Line();
    }
    return pending;
}

void InertiaReader::ReadRadii(ValueSet& set, SetOwner owner)
{
    Pending& pending = PendingOf(owner, set.massType);
    const bool atOrigin = SaysOrigin(m_row.Cell(Column::InertiaAt));
    if (IsKnown(pending.radii[0]) && pending.atOrigin != atOrigin) {
        RefusePoint(set.lines, Fact::Kx, pending.atOrigin);
        return;
    }
    for (std::size_t i = 0; i < kRadiusColumns.size(); ++i) {
        const auto& [column, fact] = kRadiusColumns[i];
        if (!m_row.Filled(column)) {
            m_row.Complain(column, "the cell is blank, expected kx, ky and kz or none of them");
        }
        if (const auto radius = m_row.StoredNotNegative(column)) {
            m_keeper.Number(pending.radii[i], *radius, set.typed, set.lines,
                            m_row.Statement(fact, column));
        }
    }
    if (atOrigin && !pending.atOrigin) {
        pending.atOrigin = true;
        KeepTyped(set.typed, ColumnName(Column::InertiaAt), "origin", {});
    }
}

void InertiaReader::Finish()
{
    for (Part& part : m_product.parts) {
        FillProducts(part.sets);
    }
    for (Use& use : m_product.uses) {
        FillProducts(use.sets);
    }
    for (const auto& [key, pending] : m_pending) {
        Finish(pending);
    }
}

/// Products that no row states count as 0.
void InertiaReader::FillProducts(std::vector<ValueSet>& sets)
{
    for (ValueSet& set : sets) {
        if (!set.HasInertia() || set.Has(Fact::Ixy)) {
            continue;
        }
        ++m_summary.momentsAlone;
        for (const auto& [column, fact] : kProductColumns) {
            set[fact] = 0.0;
        }
    }
}

void InertiaReader::Complain(const Pending& pending, Column column, const std::string& text)
{
    m_row.Errors().Column(pending.line, m_columns.HeaderOf(column), text);
}

void InertiaReader::Finish(const Pending& pending)
{
    auto& sets = pending.owner.isUse ? m_product.uses[pending.owner.index].sets
                                     : m_product.parts[pending.owner.index].sets;
    ValueSet& set = *std::ranges::find(sets, pending.massType, &ValueSet::massType);
    const ValueSet whole = Whole(pending, set);
    const double mass = MassOf(pending, whole);
    if (IsKnown(pending.radii[0])) {
        if (set.HasInertia()) {
            Complain(pending, Column::Kx,
                     "radii of gyration beside moments of inertia, expected one of the two");
            return;
        }
        if (!IsKnown(mass)) {
            Complain(pending, Column::Kx,
                     "radii of gyration without a mass, expected the mass that makes moments of "
                     "them");
            return;
        }
        SetInertia(set, InertiaOfRadii(pending.radii, mass));
    }
    if (pending.atOrigin && (!IsKnown(mass) || !whole.HasCentre())) {
        Complain(pending, Column::InertiaAt,
                 std::string("found \"origin\" without a ") +
                     (IsKnown(mass) ? "centre of gravity" : "mass") +
                     ", expected both, since they move the inertia to the centre");
        return;
    }
    if (pending.atOrigin) {
        // Products that nobody typed are 0 about the centre. Moved like the others they would
        // become large figures that no one measured.
        const bool withProducts = !TypedText(set.typed, FactName(Fact::Ixy)).empty();
        SetInertia(set, MovedToCentre(InertiaOf(set), withProducts, mass, CentreOf(whole)));
    }
    if (!std::ranges::all_of(InertiaOf(set), [](double term) { return std::isfinite(term); })) {
        Complain(pending, IsKnown(pending.radii[0]) ? Column::Kx : Column::InertiaAt,
                 "the inertia about the centre is beyond all numbers, expected smaller ones");
    }
}

const Part& InertiaReader::PartOf(SetOwner owner) const
{
    return m_product.parts[owner.isUse ? m_product.uses[owner.index].part : owner.index];
}

std::optional<Part> InertiaReader::KnownPart(SetOwner owner) const
{
    const Part& part = PartOf(owner);
    return m_known.FindFacts(part.identifier, part.version);
}

std::optional<Use> InertiaReader::KnownUse(SetOwner owner) const
{
    if (!owner.isUse) {
        return std::nullopt;
    }
    const Use& use = m_product.uses[owner.index];
    return m_known.FindUseFacts(m_product.parts[use.parent], use.instance, PartOf(owner));
}

/// The set as it will be: numbers that the table leaves blank stay as the database holds them.
ValueSet InertiaReader::Whole(const Pending& pending, const ValueSet& set) const
{
    ValueSet whole = set;
    const auto complete = [&](const auto& known) {
        const ValueSet* stored = known ? FindSet(known->sets, pending.massType) : nullptr;
        for (std::size_t i = 0; stored != nullptr && i < kSetNumbers; ++i) {
            if (!IsKnown(whole.numbers[i])) {
                whole.numbers[i] = stored->numbers[i];
            }
        }
    };
    if (pending.owner.isUse) {
        complete(KnownUse(pending.owner));
    } else {
        complete(KnownPart(pending.owner));
    }
    return whole;
}

/// A table may give a material of the database the density that it lacked.
DensityPair InertiaReader::DensitiesOf(const std::string& material) const
{
    DensityPair pair;
    if (const auto stored = m_known.FindMaterial(material)) {
        pair = {stored->density, stored->surfaceDensity};
    }
    if (const Material* stated = m_materials.Find(material)) {
        pair.volumic = IsKnown(stated->density) ? stated->density : pair.volumic;
        pair.surfacic = IsKnown(stated->surfaceDensity) ? stated->surfaceDensity : pair.surfacic;
    }
    return pair;
}

/// The mass of a set that the inertia needs: stated, or size times the density that counts where
/// the set stands, on the part or on one use.
double InertiaReader::MassOf(const Pending& pending, const ValueSet& whole) const
{
    const Part& part = PartOf(pending.owner);
    const Part known = KnownPart(pending.owner).value_or(Part());
    const auto either = [](double stated, double stored) {
        return IsKnown(stated) ? stated : stored;
    };
    DensityChoice choice;
    choice.part = {either(part.density, known.density),
                   either(part.surfaceDensity, known.surfaceDensity)};
    choice.partMaterial = DensitiesOf(part.material.empty() ? known.material : part.material);
    if (pending.owner.isUse) {
        const Use& use = m_product.uses[pending.owner.index];
        const Use knownUse = KnownUse(pending.owner).value_or(Use());
        choice.use = {either(use.density, knownUse.density),
                      either(use.surfaceDensity, knownUse.surfaceDensity)};
        choice.useMaterial = DensitiesOf(use.material.empty() ? knownUse.material : use.material);
    }
    const DensityOrder first =
        part.densityFirst == DensityOrder::Unstated ? known.densityFirst : part.densityFirst;
    if (first == DensityOrder::Material) {
        choice.first = CATENOWBCSCommonDefinitions::MaterialDensityFirst;
    }
    return WithMassInUse(whole, choice)[Fact::Mass];
}
} // namespace wb

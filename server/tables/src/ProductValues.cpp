#include "ProductReader.h"

#include "TypedForms.h"
#include "WBNumbers.h"
#include "WBRules.h"
#include "WBTexts.h"

#include <algorithm>
#include <cmath>

namespace wb
{
namespace
{
struct NumberColumn
{
    Column column;
    Fact fact;
};

constexpr std::array kMoments{NumberColumn{Column::Ixx, Fact::Ixx},
                              NumberColumn{Column::Iyy, Fact::Iyy},
                              NumberColumn{Column::Izz, Fact::Izz}};
constexpr std::array kProducts{NumberColumn{Column::Ixy, Fact::Ixy},
                               NumberColumn{Column::Ixz, Fact::Ixz},
                               NumberColumn{Column::Iyz, Fact::Iyz}};
constexpr std::array kCentre{NumberColumn{Column::CgX, Fact::CgX},
                             NumberColumn{Column::CgY, Fact::CgY},
                             NumberColumn{Column::CgZ, Fact::CgZ}};
constexpr std::array kSigmas{NumberColumn{Column::SigmaMass, Fact::SigmaMass},
                             NumberColumn{Column::SigmaCgX, Fact::SigmaCgX},
                             NumberColumn{Column::SigmaCgY, Fact::SigmaCgY},
                             NumberColumn{Column::SigmaCgZ, Fact::SigmaCgZ},
                             NumberColumn{Column::SigmaIxx, Fact::SigmaIxx},
                             NumberColumn{Column::SigmaIyy, Fact::SigmaIyy},
                             NumberColumn{Column::SigmaIzz, Fact::SigmaIzz},
                             NumberColumn{Column::SigmaIxy, Fact::SigmaIxy},
                             NumberColumn{Column::SigmaIxz, Fact::SigmaIxz},
                             NumberColumn{Column::SigmaIyz, Fact::SigmaIyz}};
constexpr std::array kRadii{Column::Kx, Column::Ky, Column::Kz};

/// The axes of a row's inertia go through the part's origin, not through its centre.
bool SaysOrigin(std::string_view cell)
{
    return LowerCase(cell) == "origin";
}

constexpr const char* kNeedsUse =
    "the row says instance, expected parent and instance in the same row";
} // namespace

std::string ProductReader::RowMassType(bool hasValues)
{
    if (!Filled(Column::MassType)) {
        if (hasValues && m_options.massType.empty()) {
            Complain(Column::MassType,
                     "the cell is blank beside values, expected their mass type (or the option "
                     "--mass-type NAME for the whole table)");
        }
        return hasValues ? m_options.massType : std::string();
    }
    std::string name(Cell(Column::MassType));
    if (FindMassType(m_massTypes, name) != nullptr) {
        return name;
    }
    std::vector<std::string> names;
    std::string list;
    for (const wb::MassType& type : m_massTypes) {
        names.push_back(type.name);
        list += (list.empty() ? "" : ", ") + type.name;
    }
    if (name == CATENOWBCSCommonDefinitions::Computed) {
        Wrong(Column::MassType, "one of " + list + "; Computed is derived and never stated");
    } else {
        Wrong(Column::MassType, "one of " + list + " (nearest: " + NearestName(name, names) +
                                    "); --mass-types FILE.csv adds others");
    }
    return {};
}

ValueSet& ProductReader::SetOf(std::vector<ValueSet>& sets, const std::string& massType)
{
    const auto found = std::ranges::find(sets, massType, &ValueSet::massType);
    if (found != sets.end()) {
        return *found;
    }
    ++m_summary.valueSets;
    ValueSet& set = sets.emplace_back();
    set.massType = massType;
    return set;
}

void ProductReader::ReadValues(const RowSubject& subject)
{
    const auto target = Choice(Column::ValuesOn, {"part", "instance"});
    // A wrong word is told of also where the row holds nothing that it would speak of.
    Choice(Column::PoiSign, {"positive", "+", "negative", "-"});
    Choice(Column::InertiaAt, {"cg", "origin"});
    const bool ofUse = target == std::size_t{1};
    const bool hasValues = AnyFilled(Column::Mass, Column::Iyz) ||
                           AnyFilled(Column::Kx, Column::Area) ||
                           AnyFilled(Column::SigmaMass, Column::SigmaIyz);
    const bool hasOrigin = AnyFilled(Column::Source, Column::Author);
    const bool active = YesNo(Column::Active).value_or(false);
    const std::string massType = RowMassType(hasValues || hasOrigin || active);
    if (ofUse && subject.use == kNone) {
        Complain(Column::ValuesOn, kNeedsUse);
        return;
    }
    Part& part = m_product.parts[subject.part];
    Use* use = ofUse ? &m_product.uses[subject.use] : nullptr;
    FactLines& ownerLines = ofUse ? use->lines : part.lines;
    if (massType.empty()) {
        // A note of a row without values speaks of the part, or of the use that the row is about.
        if (Filled(Column::Note)) {
            const bool aboutUse = subject.use != kNone &&
                                  (ofUse || LowerCase(Cell(Column::MaterialOn)) == "instance");
            Use* noted = aboutUse ? &m_product.uses[subject.use] : nullptr;
            m_keeper.Text(noted != nullptr ? noted->note : part.note, Cell(Column::Note),
                          noted != nullptr ? noted->lines : part.lines,
                          {Fact::Note, m_line, HeaderOf(Column::Note), Cell(Column::Note)});
        }
        return;
    }
    if (active) {
        if (FindMassType(m_massTypes, massType)->kind == wb::MassType::Kind::Goal) {
            Wrong(Column::Active, "no, since " + massType + " is a goal and a goal never counts");
        }
        m_keeper.Text(ofUse ? use->activeType : part.activeType, massType, ownerLines,
                      {Fact::Active, m_line, HeaderOf(Column::Active), massType});
    }
    if (!hasValues && !hasOrigin && !Filled(Column::Note)) {
        return;
    }
    ValueSet& set = SetOf(ofUse ? use->sets : part.sets, massType);
    ReadMassAndPrecision(set);
    ReadCentre(set);
    const std::uint32_t owner = ofUse ? subject.use : subject.part;
    ReadInertia(set, ofUse, owner);
    ReadRadii(ofUse, owner, set);
    for (const NumberColumn& sigma : kSigmas) {
        StateNumber(set, sigma.column, sigma.fact, StoredNotNegative(sigma.column));
    }
    const auto text = [&](std::string& stored, Fact fact, Column column) {
        if (Filled(column)) {
            m_keeper.Text(stored, Cell(column), set.lines,
                          {fact, m_line, HeaderOf(column), Cell(column)});
        }
    };
    text(set.source, Fact::Source, Column::Source);
    text(set.author, Fact::Author, Column::Author);
    text(set.note, Fact::Note, Column::Note);
    if (Filled(Column::SourceDate) && !IsDate(Cell(Column::SourceDate))) {
        Wrong(Column::SourceDate, "a date yyyy-mm-dd");
    } else {
        text(set.sourceDate, Fact::SourceDate, Column::SourceDate);
    }
}

void ProductReader::StateNumber(ValueSet& set, Column column, Fact fact,
                                std::optional<double> value)
{
    if (value) {
        m_keeper.Number(set[fact], *value, set.typed, set.lines,
                        {fact, m_line, HeaderOf(column), Cell(column), UnitOf(column)});
    }
}

void ProductReader::ReadMassAndPrecision(ValueSet& set)
{
    StateNumber(set, Column::Mass, Fact::Mass, Stored(Column::Mass));
    StateNumber(set, Column::Volume, Fact::Volume, StoredNotNegative(Column::Volume));
    StateNumber(set, Column::Area, Fact::Area, StoredNotNegative(Column::Area));
    const auto pair = [&](NumberColumn lower, NumberColumn upper) {
        if (Filled(lower.column) != Filled(upper.column)) {
            Complain(Filled(lower.column) ? upper.column : lower.column,
                     "the cell is blank, expected both sides of the precision or none");
            return;
        }
        StateNumber(set, lower.column, lower.fact, StoredNotNegative(lower.column));
        StateNumber(set, upper.column, upper.fact, StoredNotNegative(upper.column));
    };
    pair({Column::Lower, Fact::Lower}, {Column::Upper, Fact::Upper});
    pair({Column::LowerPct, Fact::LowerPct}, {Column::UpperPct, Fact::UpperPct});
    if (set.Has(Fact::Lower) && set.Has(Fact::LowerPct)) {
        Complain(Filled(Column::LowerPct) ? Column::LowerPct : Column::Lower,
                 "the precision stands in mass and in %, expected one of the two");
    }
}

void ProductReader::ReadCentre(ValueSet& set)
{
    if (!AnyFilled(Column::CgX, Column::CgZ)) {
        return;
    }
    for (const NumberColumn& cell : kCentre) {
        if (!Filled(cell.column)) {
            Complain(cell.column, "the cell is blank, expected cgx, cgy and cgz or none of them");
        }
        StateNumber(set, cell.column, cell.fact, Stored(cell.column));
    }
}

/// What makes + integral of x y dm of a cell; nothing after a complaint.
std::optional<double> ProductReader::ProductFactor(bool anyProduct)
{
    if (Filled(Column::PoiSign)) {
        // Any other word was complained about when the row was begun.
        const std::string sign = LowerCase(Cell(Column::PoiSign));
        return sign == "negative" || sign == "-" ? -1.0 : 1.0;
    }
    if (m_options.productSign) {
        return *m_options.productSign == ProductSign::Integral ? 1.0 : -1.0;
    }
    if (anyProduct) {
        Complain(Column::PoiSign,
                 "the cell is blank beside a product of inertia that is not 0, expected positive "
                 "(+ integral of x y dm) or negative (terms of the matrix), or the option "
                 "--poi-sign for the whole table");
        return std::nullopt;
    }
    return 1.0;
}

void ProductReader::ReadInertia(ValueSet& set, bool ofUse, std::uint32_t owner)
{
    if (!AnyFilled(Column::Ixx, Column::Iyz)) {
        return;
    }
    const bool momentsAlone = !AnyFilled(Column::Ixy, Column::Iyz);
    for (std::size_t i = 0; i < 6; ++i) {
        const Column column = i < 3 ? kMoments[i].column : kProducts[i - 3].column;
        if (!Filled(column) && (i < 3 || !momentsAlone)) {
            Complain(column, "the cell is blank, expected all six of the inertia or the three "
                             "moments alone");
            return;
        }
    }
    const bool statedBefore = set.HasInertia();
    for (const NumberColumn& moment : kMoments) {
        StateNumber(set, moment.column, moment.fact, Stored(moment.column));
    }
    std::array<double, 3> products{};
    bool anyProduct = false;
    for (std::size_t i = 0; i < kProducts.size(); ++i) {
        products[i] = Stored(kProducts[i].column).value_or(0.0);
        anyProduct = anyProduct || products[i] != 0.0;
    }
    const auto factor = ProductFactor(anyProduct);
    if (!factor) {
        return;
    }
    for (std::size_t i = 0; i < kProducts.size(); ++i) {
        // 0 stays a plain 0: its negative would be written "-0" in some places.
        const double product = products[i] == 0.0 ? 0.0 : *factor * products[i];
        if (momentsAlone && !IsKnown(set[kProducts[i].fact])) {
            set[kProducts[i].fact] = 0.0;
        } else if (!momentsAlone) {
            StateNumber(set, kProducts[i].column, kProducts[i].fact, product);
        }
    }
    if (momentsAlone && !statedBefore) {
        ++m_summary.momentsAlone;
    }
    if (!momentsAlone && !statedBefore && *factor < 0.0) {
        KeepTyped(set.typed, "poi_sign", "negative", {});
    }
    const bool atOrigin = SaysOrigin(Cell(Column::InertiaAt));
    const auto pending = m_pending.find({ofUse, owner, set.massType});
    const bool wasAtOrigin = pending != m_pending.end() && pending->second.atOrigin;
    if (statedBefore && wasAtOrigin != atOrigin) {
        m_keeper.Refuse(
            {Fact::InertiaAt, m_line, HeaderOf(Column::InertiaAt), atOrigin ? "origin" : "cg"},
            set.lines.LineOf(Fact::Ixx), wasAtOrigin ? "origin" : "cg");
    } else if (atOrigin && !statedBefore) {
        Pending(ofUse, owner, set.massType).atOrigin = true;
        KeepTyped(set.typed, "inertia_at", "origin", {});
    }
}

ProductReader::PendingInertia& ProductReader::Pending(bool ofUse, std::uint32_t owner,
                                                      const std::string& massType)
{
    PendingInertia& pending = m_pending[{ofUse, owner, massType}];
    if (pending.line == 0) {
        pending.ofUse = ofUse;
        pending.owner = owner;
        pending.massType = massType;
        pending.line = m_line;
    }
    return pending;
}

void ProductReader::ReadRadii(bool ofUse, std::uint32_t owner, const ValueSet& set)
{
    if (!AnyFilled(Column::Kx, Column::Kz)) {
        return;
    }
    PendingInertia& pending = Pending(ofUse, owner, set.massType);
    const bool atOrigin = SaysOrigin(Cell(Column::InertiaAt));
    if (IsKnown(pending.radii[0]) && pending.atOrigin != atOrigin) {
        m_keeper.Refuse(
            {Fact::InertiaAt, m_line, HeaderOf(Column::InertiaAt), atOrigin ? "origin" : "cg"},
            set.lines.LineOf(Fact::Kx), pending.atOrigin ? "origin" : "cg");
        return;
    }
    for (std::size_t i = 0; i < kRadii.size(); ++i) {
        if (!Filled(kRadii[i])) {
            Complain(kRadii[i], "the cell is blank, expected kx, ky and kz or none of them");
            continue;
        }
        const auto radius = StoredNotNegative(kRadii[i]);
        if (!radius) {
            continue;
        }
        auto& target = ofUse ? m_product.uses[owner].sets : m_product.parts[owner].sets;
        ValueSet& kept = SetOf(target, pending.massType);
        m_keeper.Number(pending.radii[i], *radius, kept.typed, kept.lines,
                        {static_cast<Fact>(static_cast<std::size_t>(Fact::Kx) + i), m_line,
                         HeaderOf(kRadii[i]), Cell(kRadii[i]), UnitOf(kRadii[i])});
        if (atOrigin && !pending.atOrigin) {
            pending.atOrigin = true;
            KeepTyped(kept.typed, "inertia_at", "origin", {});
        }
    }
}

void ProductReader::ReadMaterial(const RowSubject& subject, Use* use)
{
    const auto target = Choice(Column::MaterialOn, {"part", "instance"});
    const bool onUse = target == std::size_t{1};
    if (onUse && use == nullptr) {
        Complain(Column::MaterialOn, kNeedsUse);
        return;
    }
    Part& part = m_product.parts[subject.part];
    const bool valuesOnUse = use != nullptr && LowerCase(Cell(Column::ValuesOn)) == "instance";
    ReadDensities(part, onUse || valuesOnUse ? use : nullptr);
    if (!Filled(Column::Material)) {
        for (const Column column : {Column::MaterialDensity, Column::MaterialSurfaceDensity}) {
            if (Filled(column)) {
                Complain(column, "a density without a material, expected the material's name in "
                                 "the same row");
            }
        }
        return;
    }
    m_keeper.Text(onUse ? use->material : part.material, Cell(Column::Material),
                  onUse ? use->lines : part.lines,
                  {Fact::Material, m_line, HeaderOf(Column::Material), Cell(Column::Material)});
    const auto [entry, isNew] = m_materials.emplace(
        Cell(Column::Material), static_cast<std::uint32_t>(m_product.materials.size()));
    if (isNew) {
        m_product.materials.emplace_back().name = Cell(Column::Material);
    }
    StateMaterialDensity(m_product.materials[entry->second]);
}

/// The densities of the part itself, or of the one use that the row is about.
void ProductReader::ReadDensities(Part& part, Use* use)
{
    const auto state = [&](double& stored, Fact fact, Column column) {
        if (const auto value = StoredNotNegative(column)) {
            m_keeper.Number(stored, *value, use == nullptr ? part.typed : use->typed,
                            use == nullptr ? part.lines : use->lines,
                            {fact, m_line, HeaderOf(column), Cell(column), UnitOf(column)});
        }
    };
    state(use == nullptr ? part.density : use->density, Fact::Density, Column::Density);
    state(use == nullptr ? part.surfaceDensity : use->surfaceDensity, Fact::SurfaceDensity,
          Column::SurfaceDensity);
}

void ProductReader::StateMaterialDensity(Material& material)
{
    const auto state = [&](double& stored, Fact fact, Column column) {
        if (const auto value = StoredNotNegative(column)) {
            m_keeper.Number(stored, *value, material.typed, material.lines,
                            {fact, m_line, HeaderOf(column), Cell(column), UnitOf(column)});
        }
    };
    state(material.density, Fact::MaterialDensity, Column::MaterialDensity);
    state(material.surfaceDensity, Fact::MaterialSurfaceDensity, Column::MaterialSurfaceDensity);
    const bool statesOne =
        Filled(Column::MaterialDensity) || Filled(Column::MaterialSurfaceDensity);
    if (statesOne && IsKnown(material.density) && IsKnown(material.surfaceDensity)) {
        const bool surface = Filled(Column::MaterialSurfaceDensity);
        const Fact other = surface ? Fact::MaterialDensity : Fact::MaterialSurfaceDensity;
        Complain(surface ? Column::MaterialSurfaceDensity : Column::MaterialDensity,
                 Quoted(material.name) + " has a " + (surface ? "density" : "surface density") +
                     " in line " + std::to_string(material.lines.LineOf(other)) +
                     ", expected one density of a material");
    }
}

void ProductReader::ReadDocument(Part& part)
{
    if (!Filled(Column::Doc)) {
        for (auto column = Column::DocVersion; column <= Column::DocMass;
             column = static_cast<Column>(static_cast<std::size_t>(column) + 1)) {
            if (Filled(column)) {
                Complain(column, "a revision without a document, expected its name in column doc");
                return;
            }
        }
        return;
    }
    if (!Filled(Column::DocVersion)) {
        Complain(Column::DocVersion, "the cell is blank, expected the revision of the document");
        return;
    }
    auto found = std::ranges::find_if(part.documents, [&](const DocumentRevision& revision) {
        return revision.document == Cell(Column::Doc) &&
               revision.version == Cell(Column::DocVersion);
    });
    if (found == part.documents.end()) {
        DocumentRevision& added = part.documents.emplace_back();
        added.document = Cell(Column::Doc);
        added.version = Cell(Column::DocVersion);
        found = part.documents.end() - 1;
    }
    ReadDocumentFacts(part, *found);
}

void ProductReader::ReadDocumentFacts(Part& part, DocumentRevision& revision)
{
    const auto text = [&](std::string& stored, Fact fact, Column column) {
        if (Filled(column)) {
            m_keeper.Text(stored, Cell(column), revision.lines,
                          {fact, m_line, HeaderOf(column), Cell(column)});
        }
    };
    if (Filled(Column::DocCheckinDate) && !IsDate(Cell(Column::DocCheckinDate))) {
        Wrong(Column::DocCheckinDate, "a date yyyy-mm-dd");
    } else {
        text(revision.checkinDate, Fact::CheckinDate, Column::DocCheckinDate);
    }
    text(revision.checkinUser, Fact::CheckinUser, Column::DocCheckinUser);
    text(revision.checkoutUser, Fact::CheckoutUser, Column::DocCheckoutUser);
    if (Filled(Column::DocMassType) && Cell(Column::DocMassType) != "Computed" &&
        FindMassType(m_massTypes, Cell(Column::DocMassType)) == nullptr) {
        Wrong(Column::DocMassType, "Computed or a mass type of the table of mass types");
    } else {
        text(revision.massType, Fact::DocumentMassType, Column::DocMassType);
    }
    if (const auto mass = Stored(Column::DocMass)) {
        m_keeper.Number(revision.mass, *mass, revision.typed, revision.lines,
                        {Fact::DocumentMass, m_line, HeaderOf(Column::DocMass),
                         Cell(Column::DocMass), UnitOf(Column::DocMass)});
    }
    const auto use = Choice(Column::DocUse, {"attached", "active", "both"});
    if (!use) {
        return;
    }
    const auto wanted = static_cast<DocumentRevision::Use>(*use + 1);
    m_keeper.Choose(revision.use, wanted, revision.lines,
                    {Fact::DocumentUse, m_line, HeaderOf(Column::DocUse), Cell(Column::DocUse)});
    for (const DocumentRevision& other : part.documents) {
        const int shared = static_cast<int>(other.use) & static_cast<int>(revision.use);
        if (&other != &revision && shared != 0) {
            Complain(Column::DocUse, std::string((shared & 1) != 0 ? "attached" : "active") +
                                         " is revision " + other.version + " in line " +
                                         std::to_string(other.lines.LineOf(Fact::DocumentUse)) +
                                         ", expected one such revision a part");
        }
    }
}

void ProductReader::FinishInertias()
{
    for (const auto& [key, pending] : m_pending) {
        auto& sets = pending.ofUse ? m_product.uses[pending.owner].sets
                                   : m_product.parts[pending.owner].sets;
        FinishInertia(pending, SetOf(sets, pending.massType));
    }
}

/// The mass of a set that the inertia needs: stated, or size times the density that counts where
/// the set stands, on the part or on one use.
double ProductReader::MassOf(const PendingInertia& pending, const ValueSet& set) const
{
    // A table may give a material of the database the density that it lacked.
    const auto densitiesOf = [this](const std::string& name) {
        DensityPair pair;
        if (const auto stored = m_known.FindMaterial(name)) {
            pair = {stored->density, stored->surfaceDensity};
        }
        if (const auto found = m_materials.find(name); found != m_materials.end()) {
            const Material& stated = m_product.materials[found->second];
            pair.volumic = IsKnown(stated.density) ? stated.density : pair.volumic;
            pair.surfacic = IsKnown(stated.surfaceDensity) ? stated.surfaceDensity : pair.surfacic;
        }
        return pair;
    };
    const Use* use = pending.ofUse ? &m_product.uses[pending.owner] : nullptr;
    const Part& part = m_product.parts[use != nullptr ? use->part : pending.owner];
    // What the table leaves blank stays as the database holds it, and counts in the mass.
    const Part known = m_known.FindFacts(part.identifier, part.version).value_or(Part());
    const auto either = [](double stated, double stored) {
        return IsKnown(stated) ? stated : stored;
    };
    DensityChoice choice;
    choice.part = {either(part.density, known.density),
                   either(part.surfaceDensity, known.surfaceDensity)};
    choice.partMaterial = densitiesOf(part.material.empty() ? known.material : part.material);
    if (use != nullptr) {
        choice.use = {use->density, use->surfaceDensity};
        choice.useMaterial = densitiesOf(use->material);
    }
    const DensityOrder first =
        part.densityFirst == DensityOrder::Unstated ? known.densityFirst : part.densityFirst;
    if (first == DensityOrder::Material) {
        choice.first = CATENOWBCSCommonDefinitions::MaterialDensityFirst;
    }
    return WithMassInUse(set, choice)[Fact::Mass];
}

void ProductReader::FinishInertia(const PendingInertia& pending, ValueSet& set)
{
    const double mass = MassOf(pending, set);
    if (IsKnown(pending.radii[0])) {
        if (set.HasInertia()) {
            m_errors.Column(pending.line, m_columns.HeaderOf(Column::Kx),
                            "radii of gyration beside moments of inertia, expected one of the two");
            return;
        }
        if (!IsKnown(mass)) {
            m_errors.Column(pending.line, m_columns.HeaderOf(Column::Kx),
                            "radii of gyration without a mass, expected the mass that makes "
                            "moments of them");
            return;
        }
        SetInertia(set, InertiaOfRadii(pending.radii, mass));
    }
    if (!pending.atOrigin) {
        return;
    }
    if (!IsKnown(mass) || !set.HasCentre()) {
        m_errors.Column(pending.line, m_columns.HeaderOf(Column::InertiaAt),
                        std::string("found \"origin\" without a ") +
                            (IsKnown(mass) ? "centre of gravity" : "mass") +
                            ", expected both, since they move the inertia to the centre");
        return;
    }
    // Products that nobody typed are 0 about the centre. Moved like the others they would become
    // large figures that no one measured.
    const bool withProducts = !wb::TypedText(set.typed, FactName(Fact::Ixy)).empty();
    SetInertia(set, MovedToCentre(InertiaOf(set), withProducts, mass, CentreOf(set)));
}

void ProductReader::RefuseNegativeMasses()
{
    for (const Part& part : m_product.parts) {
        for (const ValueSet& set : part.sets) {
            RefuseNegativeMass(set, part);
        }
    }
    for (const Use& use : m_product.uses) {
        for (const ValueSet& set : use.sets) {
            RefuseNegativeMass(set, m_product.parts[use.part]);
        }
    }
}

void ProductReader::RefuseNegativeMass(const ValueSet& set, const Part& part)
{
    if (!(set[Fact::Mass] < 0.0)) {
        return;
    }
    const PartType type =
        part.type != PartType::Unstated ? part.type : m_known.TypeOf(part.identifier, part.version);
    if (type != PartType::Adjustment) {
        m_errors.Found(set.lines.LineOf(Fact::Mass), m_columns.HeaderOf(Column::Mass),
                       wb::TypedText(set.typed, FactName(Fact::Mass)),
                       "a mass that is not negative, or a part of type adjustment");
    }
}
} // namespace wb

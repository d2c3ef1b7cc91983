#include "ValueReader.h"

#include "WBRules.h"
#include "WBTexts.h"

#include <algorithm>
#include <array>

namespace wb
{
ValueReader::ValueReader(TableRow& row, FactKeeper& keeper, const TableColumns& columns,
                         const TableOptions& options, const KnownProducts& known,
                         const std::vector<wb::MassType>& massTypes,
                         const MaterialReader& materials, Product& product, TableSummary& summary)
    : m_row(row),
      m_keeper(keeper),
      m_columns(columns),
      m_options(options),
      m_known(known),
      m_massTypes(massTypes),
      m_product(product),
      m_summary(summary),
      m_inertias(row, keeper, columns, options, known, materials, product, summary),
      m_totals(row, keeper, options, known, product)
{}

bool ValueReader::HasValues() const
{
    return m_row.AnyFilled(Column::Mass, Column::Iyz) ||
           m_row.AnyFilled(Column::Kx, Column::Area) ||
           m_row.AnyFilled(Column::SigmaMass, Column::SigmaIyz);
}

/// Where the values come from.
bool ValueReader::HasOrigin() const
{
    return m_row.AnyFilled(Column::Source, Column::Author);
}

std::string ValueReader::RowMassType(bool isNeeded)
{
    if (!m_row.Filled(Column::MassType)) {
        if (isNeeded && m_options.massType.empty()) {
            m_row.ComplainOfMassType(m_row.Line());
        }
        return isNeeded ? m_options.massType : std::string();
    }
    std::string name(m_row.Cell(Column::MassType));
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
        m_row.Wrong(Column::MassType, "one of " + list + "; Computed is derived and never stated");
    } else {
        m_row.Wrong(Column::MassType, "one of " + list + " (nearest: " + NearestName(name, names) +
                                          "); --mass-types FILE.csv adds others");
    }
    return {};
}

ValueSet& ValueReader::SetOf(std::vector<ValueSet>& sets, const std::string& massType)
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

void ValueReader::Read(const RowSubject& subject)
{
    const bool ofUse = m_row.Choice(Column::ValuesOn, {"part", "instance"}) == std::size_t{1};
    // A wrong word is told of also where the row holds nothing that it would speak of.
    m_row.Choice(Column::PoiSign, {"positive", "+", "negative", "-"});
    m_row.Choice(Column::InertiaAt, {"cg", "origin"});
    const bool isActive = m_row.YesNo(Column::Active).value_or(false);
    if (m_totals.IsTotal()) {
        m_totals.Read(subject.part);
        ReadNote(subject, false);
        return;
    }
    const std::string massType = RowMassType(HasValues() || HasOrigin() || isActive);
    if (ofUse && !subject.HasUse()) {
        m_row.Complain(Column::ValuesOn, kNeedsUse);
        return;
    }
    if (massType.empty()) {
        ReadNote(subject, ofUse);
        return;
    }
    if (isActive) {
        ReadActive(subject, ofUse, massType);
    }
    if (HasValues() || HasOrigin() || m_row.Filled(Column::Note)) {
        const SetOwner owner{ofUse, ofUse ? subject.use : subject.part};
        ValueSet& set = SetOf(
            ofUse ? m_product.uses[owner.index].sets : m_product.parts[owner.index].sets, massType);
        ReadMassAndPrecision(set);
        ReadCentre(set);
        m_inertias.Read(set, owner);
        for (const SetColumn& sigma : kSigmaColumns) {
            StateNumber(set, sigma, m_row.StoredNotNegative(sigma.column));
        }
        ReadOrigin(set);
    }
}

/// A note of a row without values speaks of the part, or of the use that the row is about.
void ValueReader::ReadNote(const RowSubject& subject, bool ofUse)
{
    if (!m_row.Filled(Column::Note)) {
        return;
    }
    const bool aboutUse =
        subject.HasUse() && (ofUse || LowerCase(m_row.Cell(Column::MaterialOn)) == "instance");
    const auto state = [this](auto& owner) {
        m_keeper.Text(owner.note, m_row.Cell(Column::Note), owner.lines,
                      m_row.Statement(Fact::Note, Column::Note));
    };
    if (aboutUse) {
        state(m_product.uses[subject.use]);
    } else {
        state(m_product.parts[subject.part]);
    }
}

void ValueReader::ReadActive(const RowSubject& subject, bool ofUse, const std::string& massType)
{
    if (FindMassType(m_massTypes, massType)->kind == wb::MassType::Kind::Goal) {
        m_row.Wrong(Column::Active, "no, since " + massType + " is a goal and a goal never counts");
    }
    const auto state = [&](auto& owner) {
        m_keeper.Text(owner.activeType, massType, owner.lines,
                      {Fact::Active, m_row.Line(), m_row.HeaderOf(Column::Active), massType});
    };
    if (ofUse) {
        state(m_product.uses[subject.use]);
    } else {
        state(m_product.parts[subject.part]);
    }
}

void ValueReader::ReadOrigin(ValueSet& set)
{
    const auto text = [&](std::string& stored, Fact fact, Column column) {
        if (m_row.Filled(column)) {
            m_keeper.Text(stored, m_row.Cell(column), set.lines, m_row.Statement(fact, column));
        }
    };
    text(set.source, Fact::Source, Column::Source);
    text(set.author, Fact::Author, Column::Author);
    text(set.note, Fact::Note, Column::Note);
    if (m_row.Filled(Column::SourceDate) && !IsDate(m_row.Cell(Column::SourceDate))) {
        m_row.Wrong(Column::SourceDate, "a date yyyy-mm-dd");
    } else {
        text(set.sourceDate, Fact::SourceDate, Column::SourceDate);
    }
}

void ValueReader::StateNumber(ValueSet& set, const SetColumn& place, std::optional<double> value)
{
    if (value) {
        m_keeper.Number(set[place.fact], *value, set.typed, set.lines,
                        m_row.Statement(place.fact, place.column));
    }
}

void ValueReader::ReadMassAndPrecision(ValueSet& set)
{
    StateNumber(set, {Column::Mass, Fact::Mass}, m_row.Stored(Column::Mass));
    StateNumber(set, {Column::Volume, Fact::Volume}, m_row.StoredNotNegative(Column::Volume));
    StateNumber(set, {Column::Area, Fact::Area}, m_row.StoredNotNegative(Column::Area));
    ReadPrecision(set, {Column::Lower, Fact::Lower}, {Column::Upper, Fact::Upper});
    ReadPrecision(set, {Column::LowerPct, Fact::LowerPct}, {Column::UpperPct, Fact::UpperPct});
    if (set.Has(Fact::Lower) && set.Has(Fact::LowerPct)) {
        m_row.Complain(m_row.Filled(Column::LowerPct) ? Column::LowerPct : Column::Lower,
                       "the precision stands in mass and in %, expected one of the two");
    }
}

void ValueReader::ReadPrecision(ValueSet& set, SetColumn lower, SetColumn upper)
{
    if (m_row.Filled(lower.column) != m_row.Filled(upper.column)) {
        m_row.Complain(m_row.Filled(lower.column) ? upper.column : lower.column,
                       "the cell is blank, expected both sides of the precision or none");
        return;
    }
    StateNumber(set, lower, m_row.StoredNotNegative(lower.column));
    StateNumber(set, upper, m_row.StoredNotNegative(upper.column));
}

void ValueReader::ReadCentre(ValueSet& set)
{
    if (!m_row.AnyFilled(Column::CgX, Column::CgZ)) {
        return;
    }
    for (const SetColumn& place : kCentreColumns) {
        if (!m_row.Filled(place.column)) {
            m_row.Complain(place.column,
                           "the cell is blank, expected cgx, cgy and cgz or none of them");
        }
        StateNumber(set, place, m_row.Stored(place.column));
    }
}

void ValueReader::Finish()
{
    m_inertias.Finish();
    m_summary.totals = m_totals.Finish();
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

void ValueReader::RefuseNegativeMass(const ValueSet& set, const Part& part)
{
    if (!(set[Fact::Mass] < 0.0)) {
        return;
    }
    const PartType type =
        part.type != PartType::Unstated ? part.type : m_known.TypeOf(part.identifier, part.version);
    if (type != PartType::Adjustment) {
        m_row.Errors().Found(set.lines.LineOf(Fact::Mass), m_columns.HeaderOf(Column::Mass),
                             wb::TypedText(set.typed, FactName(Fact::Mass)),
                             "a mass that is not negative, or a part of type adjustment");
    }
}
} // namespace wb

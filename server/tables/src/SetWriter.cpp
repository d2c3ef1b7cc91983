#include "SetWriter.h"

#include "SetColumns.h"
#include "TypedForms.h"
#include "TypedNumber.h"

namespace wb
{
namespace
{
bool SaysOrigin(const ValueSet& set)
{
    return TypedText(set.typed, ColumnName(Column::InertiaAt)) == "origin";
}
} // namespace

SetWriter::SetWriter(TableDraft& draft, const Product& product) : m_draft(draft)
{
    for (const Material& material : product.materials) {
        m_densities[material.name] = {material.density, material.surfaceDensity};
    }
}

void SetWriter::Write(const ValueSet& set, const Part& part, const Use* use)
{
    const auto put = [&](const auto& columns) {
        for (const auto& [column, fact] : columns) {
            PutNumber(m_draft, column, set[fact], set.typed);
        }
    };
    put(kMassColumns);
    put(kCentreColumns);
    put(kSigmaColumns);
    if (!set.HasInertia()) {
        return;
    }
    const double mass = MassOf(set, part, use);
    if (!InertiaByRadii(set, mass) && !InertiaByTerms(set, mass)) {
        InertiaAsStored(set);
    }
}

DensityPair SetWriter::DensitiesOf(const std::string& material) const
{
    const auto found = m_densities.find(material);
    return found == m_densities.end() ? DensityPair() : found->second;
}

/// The mass that the typed form of an inertia needs: stated, or size times density.
double SetWriter::MassOf(const ValueSet& set, const Part& part, const Use* use) const
{
    if (!SizedBy(set)) {
        return set[Fact::Mass];
    }
    DensityChoice choice;
    choice.part = {part.density, part.surfaceDensity};
    choice.partMaterial = DensitiesOf(part.material);
    if (use != nullptr) {
        choice.use = {use->density, use->surfaceDensity};
        choice.useMaterial = DensitiesOf(use->material);
    }
    if (part.densityFirst == DensityOrder::Material) {
        choice.first = CATENOWBCSCommonDefinitions::MaterialDensityFirst;
    }
    return WithMassInUse(set, choice)[Fact::Mass];
}

void SetWriter::PutOrigin(const ValueSet& set)
{
    m_draft.PutText(Column::InertiaAt, SaysOrigin(set) ? "origin" : "");
}

/// False when radii of gyration were not typed or no longer give the inertia.
bool SetWriter::InertiaByRadii(const ValueSet& set, double mass)
{
    const auto typed = ReadAllTyped<3>(set.typed, Column::Kx);
    if (!typed) {
        return false;
    }
    const auto& [x, y, z] = *typed;
    InertiaTerms terms = InertiaOfRadii({x.stored, y.stored, z.stored}, mass);
    if (SaysOrigin(set)) {
        terms = MovedToCentre(terms, false, mass, CentreOf(set));
    }
    if (terms != InertiaOf(set)) {
        return false;
    }
    for (std::size_t i = 0; i < typed->size(); ++i) {
        m_draft.PutNumber(Next(Column::Kx, i), (*typed)[i].shown);
    }
    PutOrigin(set);
    return true;
}

/// False when the terms were not typed or no longer give the inertia.
bool SetWriter::InertiaByTerms(const ValueSet& set, double mass)
{
    const auto moments = ReadAllTyped<3>(set.typed, Column::Ixx);
    if (!moments) {
        return false;
    }
    const auto products = ReadAllTyped<3>(set.typed, Column::Ixy);
    const bool negative = TypedText(set.typed, ColumnName(Column::PoiSign)) == "negative";
    InertiaTerms terms{};
    for (std::size_t i = 0; i < 3; ++i) {
        terms[i] = (*moments)[i].stored;
        terms[i + 3] = products ? (negative ? -1.0 : 1.0) * (*products)[i].stored : 0.0;
    }
    if (SaysOrigin(set)) {
        terms = MovedToCentre(terms, products.has_value(), mass, CentreOf(set));
    }
    if (terms != InertiaOf(set)) {
        return false;
    }
    for (std::size_t i = 0; i < 3; ++i) {
        m_draft.PutNumber(Next(Column::Ixx, i), (*moments)[i].shown);
        if (products) {
            m_draft.PutNumber(Next(Column::Ixy, i), (*products)[i].shown);
        }
    }
    m_draft.PutText(Column::PoiSign, !products ? "" : negative ? "negative" : "positive");
    PutOrigin(set);
    return true;
}

void SetWriter::InertiaAsStored(const ValueSet& set)
{
    const InertiaTerms terms = InertiaOf(set);
    const bool momentsAlone = terms[3] == 0.0 && terms[4] == 0.0 && terms[5] == 0.0;
    for (std::size_t i = 0; i < (momentsAlone ? 3U : 6U); ++i) {
        PutNumber(m_draft, Next(Column::Ixx, i), terms[i], set.typed);
    }
    m_draft.PutText(Column::PoiSign, momentsAlone ? "" : "positive");
}
} // namespace wb

#include "WBReportInertia.h"

#include "WBInertia.h"
#include "WBNumbers.h"
#include "WBReportAttributes.h"
#include "WBReportNodes.h"

#include <array>
#include <cstddef>

namespace
{

constexpr std::array kMassAttribute{"WB_Mass"};

/// Attributes that hold numbers, for a walk over one document: their names are looked up once. A
/// document where no element has such an attribute does not know its name before the first element
/// gets it; the later ones then get theirs by the text, since they lack it too.
template <std::size_t N>
class NumberAttributes
{
public:
    using Numbers = std::array<double, N>;

    NumberAttributes(const CATIDOMDocument& document, const std::array<const char*, N>& names)
    {
        for (std::size_t position = 0; position < N; ++position) {
            m_attributes[position] = {names[position], document.FindName(names[position])};
        }
    }

    /// 0 for an attribute that the element lacks or whose text is no number.
    Numbers Read(const CATIDOMElement& element) const
    {
        Numbers numbers{};
        for (std::size_t position = 0; position < N; ++position) {
            const int index = element.FindAttribute(m_attributes[position].name);
            if (index >= 0) {
                ReadAnyReal(element.AttributeText(index), numbers[position]);
            }
        }
        return numbers;
    }

    void Write(CATIDOMElement& element, const Numbers& numbers) const
    {
        for (std::size_t position = 0; position < N; ++position) {
            // Adding zero takes the sign from a negated product that is zero: nobody wants to read
            // "-0".
            const CATUnicodeString text = CATUnicodeString::FromReal(numbers[position] + 0.0, "%g");
            const int index = element.FindAttribute(m_attributes[position].name);
            if (index >= 0) {
                element.RewriteAttribute(index, text.View());
            } else {
                element.SetAttribute(m_attributes[position].text, text);
            }
        }
    }

private:
    struct Attribute
    {
        CATUnicodeString text;
        CATDOMName name;
    };
    std::array<Attribute, N> m_attributes;
};

/// What a report says about the bodies of its elements.
class BodyAttributes
{
public:
    explicit BodyAttributes(const CATIDOMDocument& document)
        : m_inertia(document, kInertiaAttributes),
          m_centre(document, kCentreAttributes),
          m_mass(document, kMassAttribute)
    {}

    CATMath3x3Matrix Inertia(const CATIDOMElement& element) const
    {
        const auto [xx, yy, zz, xy, xz, yz] = m_inertia.Read(element);
        return InertiaMatrix({.xx = xx, .yy = yy, .zz = zz, .xy = xy, .xz = xz, .yz = yz});
    }
    void SetInertia(CATIDOMElement& element, const CATMath3x3Matrix& matrix) const
    {
        const auto [xx, yy, zz, xy, xz, yz] = MomentsAndProducts(matrix);
        m_inertia.Write(element, {xx, yy, zz, xy, xz, yz});
    }

    CATMathVector Centre(const CATIDOMElement& element) const
    {
        const auto [x, y, z] = m_centre.Read(element);
        return {x, y, z};
    }
    void SetCentre(CATIDOMElement& element, const CATMathVector& centre) const
    {
        m_centre.Write(element, {centre.GetX(), centre.GetY(), centre.GetZ()});
    }

    double Mass(const CATIDOMElement& element) const { return m_mass.Read(element)[0]; }

private:
    NumberAttributes<kInertiaAttributes.size()> m_inertia;
    NumberAttributes<kCentreAttributes.size()> m_centre;
    NumberAttributes<kMassAttribute.size()> m_mass;
};

template <class Rewrite>
void ForEachElement(const CATIDOMDocument& document, const char* name, const Rewrite& rewrite)
{
    const CATIDOMNodeList_var elements = document.ElementsByTagName(name);
    // Not by its length: the list would walk through the whole document once more to find it.
    int index = 0;
    for (CATIDOMNode_var element = elements->Item(index); !element.IsNull();
         element = elements->Item(++index)) {
        rewrite(*element->AsElement());
    }
}

} // namespace

void MoveReportToPoint(const CATIDOMDocument_var& document, const CATMathPoint& referencePoint,
                       const CATMath3x3Matrix* axes, WBInertiaAbout about)
{
    constexpr double kMetresInMillimetre = 0.001;
    const CATMathVector given = referencePoint - CATMathPoint();
    const CATMathPoint reference = CATMathPoint() + (axes != nullptr ? *axes * given : given);
    const BodyAttributes body(*document);
    const auto move = [&](CATIDOMElement& element) {
        CATMath3x3Matrix inertia = body.Inertia(element);
        const CATMathPoint centre = CATMathPoint() + body.Centre(element);
        if (about == WBInertiaAbout::ReferencePoint) {
            const CATMathVector offset = reference - centre;
            inertia = MovedInertia(inertia, body.Mass(element),
                                   {offset.GetX() * kMetresInMillimetre,
                                    offset.GetY() * kMetresInMillimetre,
                                    offset.GetZ() * kMetresInMillimetre},
                                   WBInertiaMove::AwayFromCentre);
        }
        body.SetInertia(element, inertia);
        body.SetCentre(element, centre - reference);
    };
    for (const char* name : {kPartInstanceElement, kRootElement, kSectionElement}) {
        ForEachElement(*document, name, move);
    }
}

void TurnReport(const CATIDOMDocument_var& document, const CATMath3x3Matrix& axes)
{
    const CATMath3x3Matrix transpose = axes.Transpose();
    CATMath3x3Matrix inverse;
    const bool hasInverse = axes.Inverse(inverse);
    const BodyAttributes body(*document);
    // A null `left` leaves the inertia alone.
    const auto turn = [&](CATIDOMElement& element, const CATMath3x3Matrix* left) {
        const CATMathVector centre = body.Centre(element);
        if (left != nullptr) {
            body.SetInertia(element, *left * body.Inertia(element) * axes);
        }
        body.SetCentre(element, axes * centre);
    };
    ForEachElement(*document, kPartInstanceElement, [&](CATIDOMElement& element) {
        turn(element, hasInverse ? &inverse : nullptr);
    });
    for (const char* name : {kRootElement, kSectionElement}) {
        ForEachElement(*document, name,
                       [&](CATIDOMElement& element) { turn(element, &transpose); });
    }
}

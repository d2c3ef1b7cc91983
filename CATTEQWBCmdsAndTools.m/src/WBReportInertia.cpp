#include "WBReportInertia.h"

#include "WBInertia.h"
#include "WBNumbers.h"
#include "WBReportNodes.h"

#include <string_view>

namespace
{

/// An attribute that holds a number, for a walk over one document: its name is looked up once.
class NumberAttribute
{
public:
    NumberAttribute(const CATIDOMDocument& document, const char* name)
        : m_text(name), m_name(document.FindName(name))
    {}

    /// 0 when the element has no such attribute or its text is no number.
    double Read(const CATIDOMElement& element) const
    {
        double value = 0.0;
        const int index = element.FindAttribute(m_name);
        if (index >= 0) {
            ReadAnyReal(element.AttributeText(index), value);
        }
        return value;
    }

    void Write(CATIDOMElement& element, double value) const
    {
        // Adding zero takes the sign from a negated product that is zero: nobody wants to read
        // "-0".
        const CATUnicodeString text = CATUnicodeString::FromReal(value + 0.0, "%g");
        const int index = element.FindAttribute(m_name);
        if (index >= 0) {
            element.RewriteAttribute(index, text.View());
        } else {
            element.SetAttribute(m_text, text);
        }
    }

private:
    CATUnicodeString m_text;
    CATDOMName m_name;
};

/// The attributes of one body, in the order in which they are written. A document that has no such
/// attribute anywhere does not know its name before the first element gets it; the others then get
/// theirs by the text, since they lack it too.
class BodyAttributes
{
public:
    explicit BodyAttributes(const CATIDOMDocument& document)
        : m_xx(document, "MOIxx"),
          m_yy(document, "MOIyy"),
          m_zz(document, "MOIzz"),
          m_xy(document, "POIxy"),
          m_xz(document, "POIxz"),
          m_yz(document, "POIyz"),
          m_x(document, "COGx"),
          m_y(document, "COGy"),
          m_z(document, "COGz"),
          m_mass(document, "WB_Mass")
    {}

    CATMath3x3Matrix Inertia(const CATIDOMElement& element) const
    {
        return InertiaMatrix({.xx = m_xx.Read(element),
                              .yy = m_yy.Read(element),
                              .zz = m_zz.Read(element),
                              .xy = m_xy.Read(element),
                              .xz = m_xz.Read(element),
                              .yz = m_yz.Read(element)});
    }
    void SetInertia(CATIDOMElement& element, const CATMath3x3Matrix& matrix) const
    {
        const WBMomentsAndProducts inertia = MomentsAndProducts(matrix);
        m_xx.Write(element, inertia.xx);
        m_yy.Write(element, inertia.yy);
        m_zz.Write(element, inertia.zz);
        m_xy.Write(element, inertia.xy);
        m_xz.Write(element, inertia.xz);
        m_yz.Write(element, inertia.yz);
    }

    CATMathVector Centre(const CATIDOMElement& element) const
    {
        return {m_x.Read(element), m_y.Read(element), m_z.Read(element)};
    }
    void SetCentre(CATIDOMElement& element, const CATMathVector& centre) const
    {
        m_x.Write(element, centre.GetX());
        m_y.Write(element, centre.GetY());
        m_z.Write(element, centre.GetZ());
    }

    double Mass(const CATIDOMElement& element) const { return m_mass.Read(element); }

private:
    NumberAttribute m_xx;
    NumberAttribute m_yy;
    NumberAttribute m_zz;
    NumberAttribute m_xy;
    NumberAttribute m_xz;
    NumberAttribute m_yz;
    NumberAttribute m_x;
    NumberAttribute m_y;
    NumberAttribute m_z;
    NumberAttribute m_mass;
};

template <class Rewrite>
void ForEachElement(const CATIDOMDocument& document, const char* name, const Rewrite& rewrite)
{
    const CATIDOMNodeList_var elements = document.ElementsByTagName(name);
    const int count = elements->Length();
    for (int index = 0; index < count; ++index) {
        const CATIDOMNode_var element = elements->Item(index);
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

#pragma once

#include "CATDlgControls.h"
#include "CATICkeUnit.h"
#include "CATMath3x3Matrix.h"

#include <array>
#include <optional>

/// How a report's centres and inertias are placed; nothing: as the server gives them.
struct WBPlacing
{
    std::optional<CATMath3x3Matrix> axes = std::nullopt;
    std::optional<CATMathPoint> reference = std::nullopt; ///< in millimetres
    bool keepsInertiaAtCentre = false;
};

/// The part of the report panel in which the user says about which point and in which axes the
/// report shall be. Lengths are typed and shown in the user's unit; a point that was typed stays
/// the same point when that unit changes, to the last digit.
class WBReportPlacing : public CATDlgFrame
{
public:
    explicit WBReportPlacing(CATDialog* window);

    /// What the report has: without centres no point can be referred to, without both nothing
    /// turned.
    void ShowWhatCounts(bool hasCentre, bool hasInertia);
    /// Shows the point in the user's unit of lengths, after that may have changed.
    void FollowLengthUnit();

    struct Reading
    {
        WBPlacing placing;
        CATUnicodeString problem; ///< a sentence about a field that holds no number; else empty
    };
    /// What is typed, as far as it counts. Empty fields are 0; only empty ones, or angles that turn
    /// nothing, ask for nothing.
    Reading Read() const;

private:
    /// A length that the panel itself wrote: read back, it is what was typed, not what is shown.
    struct WrittenLength
    {
        CATUnicodeString text;
        double millimetres = 0.0;
    };
    static constexpr std::size_t kAxes = 3;

    void BuildReference();
    void BuildAxes();
    void ShowWhetherInertiaIsMoved();
    bool HasPoint() const;
    /// The field's length; nothing for what is no number.
    std::optional<double> Millimetres(std::size_t axis) const;
    void ReadReference(Reading& reading) const;
    void ReadAxes(Reading& reading) const;

    bool m_hasCentre = true;
    bool m_hasInertia = true;
    CATICkeUnit_var m_lengthUnit; // that the point is shown in; null: stored ones
    std::array<WrittenLength, kAxes> m_written;

    // Controls belong to the controls that they stand in.
    CATDlgFrame* m_referenceFrame = nullptr;
    std::array<CATDlgEditor*, kAxes> m_point{};
    std::array<CATDlgLabel*, kAxes> m_pointLabels{};
    CATDlgCheckButton* m_keepInertia = nullptr;
    CATDlgFrame* m_axesFrame = nullptr;
    std::array<CATDlgEditor*, kAxes> m_angles{};
};

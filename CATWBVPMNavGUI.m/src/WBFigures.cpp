#include "WBFigures.h"

WBTwelveFigures WBFiguresOf(const WBPanelMassType& massType)
{
    WBTwelveFigures figures{massType.mass, massType.lowerDeviation, massType.upperDeviation};
    if (massType.centre) {
        figures[kWBCentre] = massType.centre->GetX();
        figures[kWBCentre + 1] = massType.centre->GetY();
        figures[kWBCentre + 2] = massType.centre->GetZ();
    }
    if (massType.inertia) {
        const CATMath3x3Matrix& matrix = *massType.inertia;
        // The matrix holds the products negated.
        const std::array terms{matrix.GetCoef(1, 1),  matrix.GetCoef(2, 2),  matrix.GetCoef(3, 3),
                               -matrix.GetCoef(1, 2), -matrix.GetCoef(1, 3), -matrix.GetCoef(2, 3)};
        for (std::size_t index = 0; index < terms.size(); ++index) {
            figures[kWBInertia + index] = terms[index];
        }
    }
    return figures;
}

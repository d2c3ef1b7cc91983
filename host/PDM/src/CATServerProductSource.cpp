#include "CATServerProductSource.h"

#include "CATENOWBCSCommonDefinitions.h"
#include "CATPDMMessages.h"
#include "CATPDMProblems.h"
#include "CATWireFields.h"
#include "RunServerCode.h"

#include <array>

namespace
{
CATProductRow ReadRoot(CATWireFields& fields)
{
    CATProductRow row;
    row.part = fields.Text();
    row.instance = row.part;
    row.version = fields.Text();
    row.name = fields.Text();
    row.type = fields.Text();
    row.hasUses = true; // the list does not say; whoever opens the root finds out
    return row;
}

CATMathTransformation ReadPlacement(CATWireFields& fields)
{
    std::array<double, 12> coefficients{};
    for (double& coefficient : coefficients) {
        coefficient = fields.Real();
    }
    return CATMathTransformation::FromCoefficients(coefficients);
}

CATProductRow ReadUse(CATWireFields& fields)
{
    CATProductRow row;
    row.instance = fields.Text();
    row.part = fields.Text();
    row.version = fields.Text();
    row.name = fields.Text();
    row.type = fields.Text();
    row.quantity = fields.Quantity();
    row.hasUses = fields.Flag();
    row.placement = ReadPlacement(fields);
    return row;
}

using RowReader = CATProductRow (*)(CATWireFields& fields);

/// All rows of an answer or, when one field of it is wrong, none.
std::vector<CATProductRow> ReadRows(const CATUnicodeString& answer, RowReader readRow)
{
    CATWireFields fields(answer.View());
    std::vector<CATProductRow> rows =
        fields.List<CATProductRow>([&fields, readRow] { return readRow(fields); });
    fields.End();
    if (!fields.IsSound()) {
        CATReportPDMProblem(
            PDMText(kProductsUnreadable, {CATUnicodeString::FromInt(fields.WrongField()),
                                          CATUnicodeString(fields.Expected())}));
        return {};
    }
    return rows;
}

std::vector<CATProductRow> CallAndRead(const char* method, const CATUnicodeString& request,
                                       RowReader readRow)
{
    const CATUnicodeString marker = CATENOWBCSCommonDefinitions::errMsgHeader;
    const CATUnicodeString answer = RunServerCode(method, request);
    if (answer.IsEmpty()) {
        CATReportPDMProblem(PDMText(kProductsNoAnswer));
        return {};
    }
    if (answer.Find(marker) == 0) {
        CATReportPDMProblem(PDMText(kProductsRefused, {answer.Part(marker.Length())}));
        return {};
    }
    return ReadRows(answer, readRow);
}
} // namespace

std::vector<CATProductRow> CATServerProductSource::Roots()
{
    return CallAndRead("WBListRoots", {}, ReadRoot);
}

std::vector<CATProductRow> CATServerProductSource::Uses(const CATUnicodeString& part,
                                                        const CATUnicodeString& version)
{
    return CallAndRead("WBListUses", part + "|" + version + "|", ReadUse);
}

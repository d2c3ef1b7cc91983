#include "WBReportOpening.h"

#include "WBPickedInstances.h"
#include "WBReportConversion.h"

#include "CATCommand.h"
#include "CATIDOMNodeList.h"
#include "CATIXMLDOMDocumentBuilder.h"
#include "CATWBVPMNavDistributiveReportPreview.h"
#include "CATWBVPMNavMatStatPreview.h"
#include "CATWBVPMNavReportPreview.h"

#include <utility>

namespace
{

template <class Preview>
CATDialog* MakePreview(const CATUnicodeString& selectionText, const CATIDOMDocument_var& document,
                       unsigned char creatorFlag)
{
    auto* preview = new Preview(selectionText, document, creatorFlag); // the main window owns it
    try {
        preview->Build();
    } catch (...) {
        CATRequestDelayedDestruction(preview); // half made and hidden, nobody else would end it
        throw;
    }
    return preview;
}

WBPreviewMakers& Makers()
{
    static WBPreviewMakers makers{MakePreview<CATWBVPMNavReportPreview>,
                                  MakePreview<CATWBVPMNavDistributiveReportPreview>,
                                  MakePreview<CATWBVPMNavMatStatPreview>};
    return makers;
}

} // namespace

CATIDOMDocument_var WBReadReport(const CATUnicodeString& answer, CATUnicodeString& problem)
{
    CATIDOMDocument_var document;
    CATXMLProblem found;
    if (CreateCATIXMLDOMDocumentBuilder()->ParseText(answer.View(), document, found) != S_OK) {
        problem = found.sentence;
        return {};
    }
    if (document->ElementsByTagName("PRC")->Length() == 0) {
        problem = WBReportText("NoProduct.Text", "@It holds no product.");
        return {};
    }
    return document;
}

void WBTreatReport(CATIDOMDocument_var& document, WBReportKind kind, const WBPlacing& placing)
{
    if (kind == WBReportKind::MaterialStatistics) {
        return;
    }
    CATWBReportConversion conversion;
    conversion.kind = kind == WBReportKind::Distributive ? CATWBReportConversion::Kind::Distributive
                                                         : CATWBReportConversion::Kind::Report;
    conversion.axes = placing.axes;
    conversion.reference = placing.reference;
    conversion.keepInertiaAtCentre = placing.keepsInertiaAtCentre;
    WBConvertReport(document, conversion);
}

WBPreviewMakers WBSetPreviewMakers(const WBPreviewMakers& makers)
{
    return std::exchange(Makers(), makers);
}

CATDialog* WBOpenPreview(WBReportKind kind, const CATUnicodeString& selectionText,
                         const CATIDOMDocument_var& document, unsigned char creatorFlag)
{
    const WBPreviewMaker make = Makers()[static_cast<std::size_t>(kind)];
    CATDialog* const preview = make(selectionText, document, creatorFlag);
    preview->SetVisibility(true);
    return preview;
}

#pragma once

#include "CATIDOMDocument.h"
#include "WBReportPlacing.h"
#include "WBReportRequest.h"

#include <array>

/// From the server's answer to a window with the report.

/// The report that the server's text holds. Null, with the problem as a sentence for users, when
/// the text is no XML (the sentence names line and column) or holds no product.
CATIDOMDocument_var WBReadReport(const CATUnicodeString& answer, CATUnicodeString& problem);

/// Brings a report into the user's axes, reference point and units; what was not known stays
/// unknown. Material statistics come and go in storage units, since their preview converts them.
void WBTreatReport(CATIDOMDocument_var& document, WBReportKind kind, const WBPlacing& placing);

/// Makes and builds a preview, which belongs to the main window and outlives whoever opened it.
using WBPreviewMaker = CATDialog* (*)(const CATUnicodeString& selectionText,
                                      const CATIDOMDocument_var& document,
                                      unsigned char creatorFlag);
/// One a kind, in the order of the kinds.
using WBPreviewMakers = std::array<WBPreviewMaker, 3>;
/// Puts other makers in place and returns those that stood there: a test's, and then the real ones.
WBPreviewMakers WBSetPreviewMakers(const WBPreviewMakers& makers);

/// Opens a preview of its own for the report. `selectionText` says what it was made for and becomes
/// part of a file's name; the flag 1 asks for the statistics of the part instances. The preview
/// goes when its user closes it.
CATDialog* WBOpenPreview(WBReportKind kind, const CATUnicodeString& selectionText,
                         const CATIDOMDocument_var& document, unsigned char creatorFlag);

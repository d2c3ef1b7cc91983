#pragma once

#include "CATCollections.h"
#include "CATIDOMDocument.h"

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

/// Why a text is no document, or a document did not reach its file.
struct CATXMLProblem
{
    CATUnicodeString sentence; ///< what was found, where, and what was expected; for users
    int line = 0;              ///< of the text, from 1; 0 when no place in the text is to blame
    int column = 0;            ///< in characters, from 1
};

/// How far a long reading or writing has come, in bytes; of a total of 0 the end is not known.
using CATXMLProgress = std::function<void(std::uint64_t done, std::uint64_t total)>;

/// Makes documents from texts and files, and files from documents.
///
/// Reading takes XML 1.0 in UTF-8, UTF-16, US-ASCII and ISO-8859-1, keeps every character, comment
/// and instruction, and gives back what it read when it is written: same names, same attributes in
/// the same order, same texts. A document type declaration is read for its internal entities and
/// default values and not kept. Nothing outside the text is ever fetched: whatever asks for it (an
/// external entity, a document type that stands elsewhere, a parameter entity) is a problem. Texts
/// that swell to more than 20 times what was written, beyond 8 MiB, declare more than 1000
/// entities, nest deeper than kCATDOMMostDepth or are longer than 2 GiB are refused, by line and
/// column.
///
/// Every failure gives E_FAIL with the outputs untouched and the problem filled.
class WB_EXPORT CATIXMLDOMDocumentBuilder : public CATBaseUnknown
{
public:
    // Slot order is binary interface: append, never sort.
    /// A document that holds one element without attributes. E_INVALIDARG when the name is no XML
    /// name.
    virtual long CreateDocument(const CATUnicodeString& elementName,
                                CATIDOMDocument_var& document) = 0;
    virtual long ParseText(std::string_view text, CATIDOMDocument_var& document,
                           CATXMLProblem& problem) = 0;
    /// Reads the file piece by piece; it never stands in memory as a whole.
    virtual long ParseFile(const CATUnicodeString& path, CATIDOMDocument_var& document,
                           CATXMLProblem& problem) = 0;
    /// The document as UTF-8 text, with the XML declaration before it.
    virtual std::string WriteText(const CATIDOMDocument_var& document) = 0;
    /// Replaces the file by the document's text, so that a crash at any moment leaves the old file
    /// or the new one, whole; a failure leaves the old one. The path is read as CATFilePath reads
    /// it. The options come in two lists of the same length; "Flush" = "no" gives up waiting for
    /// the disk (the file may then be old, not broken, after a power cut). Any other option is
    /// E_INVALIDARG.
    virtual long WriteToFile(const CATIDOMDocument_var& document, const CATUnicodeString& path,
                             const CATListValCATUnicodeString& optionNames,
                             const CATListValCATUnicodeString& optionValues,
                             CATXMLProblem& problem) = 0;
    /// Who hears of the progress of ParseFile and WriteToFile, about every megabyte.
    virtual void SetProgress(CATXMLProgress progress) = 0;
};
using CATIXMLDOMDocumentBuilder_var = CATHandle<CATIXMLDOMDocumentBuilder>;

/// Makes a builder. Never null.
WB_EXPORT CATIXMLDOMDocumentBuilder_var CreateCATIXMLDOMDocumentBuilder();

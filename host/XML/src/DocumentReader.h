#pragma once

#include "CATIXMLDOMDocumentBuilder.h"

#include <memory>

class DomDocument;

/// What a text may ask for before it is refused.
struct ReadingLimits
{
    std::uint64_t mostBytes = std::uint64_t{1} << 31U; ///< of the text as it is read
    int mostEntities = 1000;                           ///< declared in one text
    std::uint64_t freeSwelling = std::uint64_t{8} << 20U;
    std::uint64_t mostSwelling = 20; ///< times the text, beyond the free bytes
};

/// Reads one text, piece by piece, into a document.
class DocumentReader
{
public:
    explicit DocumentReader(const ReadingLimits& limits = {});
    DocumentReader(const DocumentReader&) = delete;
    DocumentReader& operator=(const DocumentReader&) = delete;
    ~DocumentReader();

    /// Where the next piece is to be put: at least one byte, `size` says how many there are.
    char* Room(std::size_t& size);
    /// Takes over that many bytes of the room. False when the text was refused.
    bool Take(std::size_t size, bool isLast);
    /// What was wrong; without the name of the file.
    const CATXMLProblem& Problem() const;
    /// The document, after the last piece was taken.
    CATIDOMDocument_var Document() const;

private:
    class Impl;
    std::unique_ptr<Impl> m_impl;
};

/// Whether a text without ASCII characters that no name has can be read as a name.
bool IsReadableName(std::string_view text);

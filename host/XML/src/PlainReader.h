#pragma once

#include "CATIDOMDocument.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

class DomDocument;
struct NodeLinks;

/// Reads the plain texts that reports are: elements with attributes and text in UTF-8, names in
/// ASCII, no entities but those that every text has. It takes a sixth of the time of the parser for
/// all texts, which spends most of its own on what reports never hold. At the first thing that is
/// not plain, or wrong, it gives up, and whoever called it reads the text again with
/// DocumentReader, which takes everything and knows what to say about what is wrong. It may
/// refuse a text that the other takes, but never takes one that the other refuses or reads
/// differently: the parser stays the judge, and the tests ask it.
class PlainReader
{
public:
    PlainReader();
    PlainReader(const PlainReader&) = delete;
    PlainReader& operator=(const PlainReader&) = delete;

    /// Reads from the front of the text what is whole and says how many bytes that are; the rest
    /// is to come again with more behind it, except when it is the last.
    std::size_t Take(std::string_view text, bool isLast);
    bool IsPlain() const { return m_isPlain; }
    /// The document, after the last text was taken and was plain.
    CATIDOMDocument_var Document() const { return m_document; }

private:
    /// An attribute of the tag that is being read; a decoded text stands in m_decoded.
    struct Found
    {
        std::uint32_t name;
        bool isDecoded;
        const char* text;
        std::size_t offset;
        std::size_t size;
    };
    enum class Result
    {
        Done,
        Incomplete,
        NotPlain
    };

    Result ReadOne();
    Result ReadDeclaration(bool isLast);
    Result ReadText();
    Result ReadStartTag();
    Result ReadEndTag();
    Result ReadTagEnd();
    Result ReadAttribute(std::vector<std::uint32_t>& last);
    Result ReadAttributeStart(char& quote, std::uint32_t& name);
    Result ReadValue(char quote, std::uint32_t name);
    Result ReadName(std::string_view& name);
    void SkipBlanks();
    bool Skip(std::string_view expected);
    bool Decode(std::string_view text);
    void AddElement(std::uint32_t name, bool isEmpty);
    bool IsFirstInTag(std::uint32_t name);
    std::size_t Left() const { return static_cast<std::size_t>(m_end - m_at); }

    DomDocument* m_dom;
    CATIDOMDocument_var m_document;
    NodeLinks* m_parent;
    const char* m_at = nullptr;
    const char* m_end = nullptr;
    int m_depth = 0;
    std::uint64_t m_read = 0;
    bool m_isPlain = true;
    bool m_hasBegun = false;
    std::uint32_t m_lastElement;
    // By element name: the attribute names of the last such element, a guess for the next.
    std::vector<std::vector<std::uint32_t>> m_lastAttributes;
    // By attribute name: the number of the tag that had it last.
    std::vector<std::uint64_t> m_lastTag;
    std::uint64_t m_tag = 0;
    std::vector<Found> m_found;
    std::string m_decoded;
};

#include "DocumentReader.h"

#include "DomDocument.h"
#include "ElementNode.h"
#include "LeafNode.h"
#include "XMLText.h"

// The header shows the limits of entities only to who asks for document types.
#define XML_DTD
#include <expat.h>

#include <algorithm>
#include <array>
#include <cstring>
#include <exception>
#include <new>

namespace
{

// Pieces that fit the processor's cache are read fastest.
constexpr std::size_t kPiece = std::size_t{1} << 18U;
constexpr std::size_t kLargestPiece = std::size_t{1} << 29U;

struct ParserDeleter
{
    void operator()(XML_Parser parser) const { XML_ParserFree(parser); }
};
using ParserOwner = std::unique_ptr<std::remove_pointer_t<XML_Parser>, ParserDeleter>;

ParserOwner NewParser()
{
    ParserOwner parser(XML_ParserCreate(nullptr));
    if (!parser) {
        throw std::bad_alloc();
    }
    return parser;
}

constexpr const char* kSwollen =
    "the entities make far more text than was written; that is refused";

// What the parser's errors mean for who wrote the text; it follows what was found.
struct Explanation
{
    XML_Error error;
    const char* sentence;
};
constexpr std::array kExplanations{
    Explanation{XML_ERROR_SYNTAX, "this cannot stand here"},
    Explanation{XML_ERROR_INVALID_TOKEN, "this cannot stand here"},
    Explanation{XML_ERROR_UNCLOSED_TOKEN, "this begins but does not end"},
    Explanation{XML_ERROR_PARTIAL_CHAR, "the text ends within a character"},
    Explanation{XML_ERROR_DUPLICATE_ATTRIBUTE,
                "an attribute of this name stands in the same element already"},
    Explanation{XML_ERROR_JUNK_AFTER_DOC_ELEMENT,
                "the document element has ended; only comments and instructions may follow"},
    Explanation{XML_ERROR_UNDEFINED_ENTITY, "no entity of this name is declared"},
    Explanation{XML_ERROR_RECURSIVE_ENTITY_REF, "this entity holds itself"},
    Explanation{XML_ERROR_ASYNC_ENTITY, "an element must end in the entity that it begins in"},
    Explanation{XML_ERROR_BAD_CHAR_REF, "this is the number of no character that XML can hold"},
    Explanation{XML_ERROR_BINARY_ENTITY_REF, "an entity that is no text cannot stand here"},
    Explanation{XML_ERROR_ATTRIBUTE_EXTERNAL_ENTITY_REF,
                "an attribute's value cannot come from outside the text"},
    Explanation{XML_ERROR_MISPLACED_XML_PI,
                "the XML declaration may stand at the very beginning only"},
    Explanation{XML_ERROR_UNKNOWN_ENCODING,
                "the encoding is not known; UTF-8, UTF-16, ISO-8859-1 or US-ASCII was expected"},
    Explanation{XML_ERROR_INCORRECT_ENCODING, "the text is not in the encoding that it declares"},
    Explanation{XML_ERROR_UNCLOSED_CDATA_SECTION,
                "the CDATA section does not end; \"]]>\" was expected"},
    Explanation{XML_ERROR_PARAM_ENTITY_REF, "a parameter entity cannot stand here"},
    Explanation{XML_ERROR_XML_DECL, "the XML declaration is not well formed"},
    Explanation{XML_ERROR_AMPLIFICATION_LIMIT_BREACH, kSwollen},
};

std::string UnreadableByte(unsigned char byte)
{
    constexpr const char* kDigits = "0123456789abcdef";
    const std::string number{'0', 'x', kDigits[byte >> 4U], kDigits[byte & 0xfU]};
    return byte < 0x80 ? "found the character " + number + ", which XML cannot hold"
                       : "found the byte " + number + ", which is no text in this encoding";
}

constexpr std::string_view kEndTagStart = "</";
constexpr std::size_t kMostExcerpt = 24; // characters

// The text at the place of a problem, fit for a sentence. Characters that XML cannot hold end it.
std::string Excerpt(std::string_view text)
{
    std::string excerpt;
    for (std::size_t count = 0; count < kMostExcerpt; ++count) {
        const std::size_t length = XMLCharacterLength(text);
        if (length == 0 || text.front() == '\n' || text.front() == '\r') {
            return excerpt;
        }
        excerpt += text.substr(0, length);
        text.remove_prefix(length);
        if (excerpt.back() == '>' || (excerpt.back() == ';' && excerpt.front() == '&')) {
            return excerpt;
        }
    }
    return text.empty() ? excerpt : excerpt + "...";
}

} // namespace

class DocumentReader::Impl
{
public:
    explicit Impl(const ReadingLimits& limits);

    char* Room(std::size_t& size);
    bool Take(std::size_t size, bool isLast);
    const CATXMLProblem& Problem() const { return m_problem; }
    CATIDOMDocument_var Document() const { return m_document; }

private:
    void SetHandlers();
    // Nothing may fly through the parser's C code: what is thrown waits for Take to throw it on.
    template <class Work>
    static void Guarded(void* data, Work work)
    {
        Impl& self = *static_cast<Impl*>(data);
        if (self.m_isStopped) {
            return;
        }
        try {
            work(self);
        } catch (...) {
            self.m_exception = std::current_exception();
            self.Stop();
        }
    }
    void Stop();
    // Stops with a fact of our own about the present place.
    void Refuse(const std::string& fact);
    void SetProblem(const std::string& fact, int columnsBack = 0);
    std::string FactOf(XML_Error error) const;
    std::string ExpectedEnd() const;
    std::string_view TextHere() const;
    // Counts what the document keeps of the text; beyond the limit the text is refused.
    void CountKept(std::size_t bytes);

    void StartElement(const char* name, const char** attributes);
    void EndElement();
    void AddLeaf(CATDOMNodeType type, std::uint32_t name, std::string_view text);
    void FlushText();
    // A comment or instruction; those in the document type go with it.
    void AddRemark(CATDOMNodeType type, std::uint32_t name, std::string_view text);
    void CountEntity(bool isParameter);
    std::uint32_t ElementNumber(const char* name);
    std::uint32_t AttributeNumber(std::vector<std::uint32_t>& last, std::size_t index,
                                  const char* name);

    ReadingLimits m_limits;
    ParserOwner m_parser;
    DomDocument* m_dom;
    CATIDOMDocument_var m_document;
    NodeLinks* m_parent;
    int m_depth = 0;
    std::string m_text;
    std::uint32_t m_lastElement = kNoName;
    // By element name: the attribute names of the last such element, a guess for the next.
    std::vector<std::vector<std::uint32_t>> m_lastAttributes;

    std::uint64_t m_read = 0;
    std::uint64_t m_kept = 0;
    int m_entities = 0;
    std::size_t m_piece = kPiece;
    XML_Index m_lastPlace = 0;
    bool m_isInDocumentType = false;
    bool m_isStopped = false;
    std::exception_ptr m_exception;
    CATXMLProblem m_problem;
};

DocumentReader::Impl::Impl(const ReadingLimits& limits)
    : m_limits(limits),
      m_parser(NewParser()),
      m_dom(new DomDocument),
      m_document(CATIDOMDocument_var::Adopt(m_dom)),
      m_parent(m_dom)
{
    SetHandlers();
}

void DocumentReader::Impl::SetHandlers()
{
    XML_Parser parser = m_parser.get();
    XML_SetUserData(parser, this);
    XML_SetElementHandler(
        parser,
        [](void* data, const char* name, const char** attributes) {
            Guarded(data, [=](Impl& self) { self.StartElement(name, attributes); });
        },
        [](void* data, const char* /*name*/) {
            Guarded(data, [](Impl& self) { self.EndElement(); });
        });
    XML_SetCharacterDataHandler(parser, [](void* data, const char* text, int length) {
        Guarded(data, [=](Impl& self) {
            self.CountKept(static_cast<std::size_t>(length));
            self.m_text.append(text, static_cast<std::size_t>(length));
        });
    });
    XML_SetCdataSectionHandler(
        parser, [](void* data) { Guarded(data, [](Impl& self) { self.FlushText(); }); },
        [](void* data) {
            Guarded(data, [](Impl& self) {
                self.AddLeaf(CATDOMNodeType::CDataSection, kNoName, self.m_text);
                self.m_text.clear();
            });
        });
    XML_SetCommentHandler(parser, [](void* data, const char* text) {
        Guarded(data, [=](Impl& self) { self.AddRemark(CATDOMNodeType::Comment, kNoName, text); });
    });
    XML_SetProcessingInstructionHandler(
        parser, [](void* data, const char* target, const char* text) {
            Guarded(data, [=](Impl& self) {
                self.AddRemark(CATDOMNodeType::ProcessingInstruction,
                               self.m_dom->Names().Intern(target), text);
            });
        });
    XML_SetDoctypeDeclHandler(
        parser,
        [](void* data, const char* /*name*/, const char* /*system*/, const char* /*publicName*/,
           int /*hasSubset*/) { static_cast<Impl*>(data)->m_isInDocumentType = true; },
        [](void* data) { static_cast<Impl*>(data)->m_isInDocumentType = false; });
    XML_SetEntityDeclHandler(parser, [](void* data, const char* /*name*/, int isParameter,
                                        const char* /*value*/, int /*length*/, const char* /*base*/,
                                        const char* /*system*/, const char* /*publicName*/,
                                        const char* /*notation*/) {
        Guarded(data, [=](Impl& self) { self.CountEntity(isParameter != 0); });
    });
    // What the text leaves to others is never fetched, and never left out in silence either: the
    // parser is made to ask for it all, and every question is answered by a refusal.
    XML_SetParamEntityParsing(parser, XML_PARAM_ENTITY_PARSING_ALWAYS);
    XML_SetExternalEntityRefHandlerArg(parser, parser);
    XML_SetExternalEntityRefHandler(
        parser,
        [](XML_Parser asking, const char* /*context*/, const char* /*base*/, const char* system,
           const char* /*publicName*/) -> int {
            Guarded(XML_GetUserData(asking), [=](Impl& self) {
                self.Refuse("what stands outside the text is never fetched, here \"" +
                            Excerpt(system == nullptr ? "" : system) + '"');
            });
            return XML_STATUS_ERROR;
        });
    XML_SetSkippedEntityHandler(parser, [](void* data, const char* name, int /*isParameter*/) {
        Guarded(data, [=](Impl& self) {
            self.Refuse("no entity of the name \"" + Excerpt(name) + "\" is declared");
        });
    });
    XML_SetBillionLaughsAttackProtectionMaximumAmplification(
        parser, static_cast<float>(m_limits.mostSwelling));
    XML_SetBillionLaughsAttackProtectionActivationThreshold(parser, m_limits.freeSwelling);
}

void DocumentReader::Impl::Stop()
{
    m_isStopped = true;
    XML_StopParser(m_parser.get(), XML_FALSE);
}

void DocumentReader::Impl::Refuse(const std::string& fact)
{
    SetProblem(fact);
    Stop();
}

void DocumentReader::Impl::SetProblem(const std::string& fact, int columnsBack)
{
    m_problem.line = static_cast<int>(XML_GetCurrentLineNumber(m_parser.get()));
    m_problem.column =
        static_cast<int>(XML_GetCurrentColumnNumber(m_parser.get())) + 1 - columnsBack;
    m_problem.sentence = "line " + std::to_string(m_problem.line) + ", column " +
                         std::to_string(m_problem.column) + ": " + fact;
}

std::string_view DocumentReader::Impl::TextHere() const
{
    int offset = 0;
    int size = 0;
    const char* context = XML_GetInputContext(m_parser.get(), &offset, &size);
    return context == nullptr || offset >= size
               ? std::string_view()
               : std::string_view(context + offset, static_cast<std::size_t>(size - offset));
}

std::string DocumentReader::Impl::ExpectedEnd() const
{
    return m_parent->kind == CATDOMNodeType::Element
               ? "the end tag \"</" + std::string(m_dom->Names().Text(m_parent->name)) + ">\""
               : std::string("an element");
}

std::string DocumentReader::Impl::FactOf(XML_Error error) const
{
    const std::string_view here = TextHere();
    if (error == XML_ERROR_INVALID_TOKEN && !here.empty() && XMLCharacterLength(here) == 0) {
        return UnreadableByte(static_cast<unsigned char>(here.front()));
    }
    const std::string excerpt = Excerpt(here);
    const std::string found =
        excerpt.empty() ? "found the end of the text" : "found \"" + excerpt + '"';
    if (error == XML_ERROR_TAG_MISMATCH) {
        return "found \"" + std::string(kEndTagStart) + excerpt + "\", where " + ExpectedEnd() +
               " was expected";
    }
    if (error == XML_ERROR_NO_ELEMENTS) {
        return found + ", where " + ExpectedEnd() + " was expected";
    }
    const auto* known =
        std::find_if(kExplanations.begin(), kExplanations.end(),
                     [error](const Explanation& row) { return row.error == error; });
    return found + ": " + (known != kExplanations.end() ? known->sentence : XML_ErrorString(error));
}

void DocumentReader::Impl::CountKept(std::size_t bytes)
{
    m_kept += bytes;
    if (m_kept > m_limits.freeSwelling && m_kept > m_limits.mostSwelling * m_read) {
        Refuse(kSwollen);
    }
}

void DocumentReader::Impl::CountEntity(bool isParameter)
{
    if (isParameter) {
        Refuse("parameter entities are not read; only entities for the text itself are");
    } else if (++m_entities > m_limits.mostEntities) {
        Refuse("more than " + std::to_string(m_limits.mostEntities) +
               " entities are declared; that is refused");
    }
}

std::uint32_t DocumentReader::Impl::ElementNumber(const char* name)
{
    if (m_lastElement == kNoName || !m_dom->Names().IsAt(m_lastElement, name)) {
        m_lastElement = m_dom->UsedName(name);
    }
    return m_lastElement;
}

std::uint32_t DocumentReader::Impl::AttributeNumber(std::vector<std::uint32_t>& last,
                                                    std::size_t index, const char* name)
{
    if (index == last.size()) {
        last.push_back(m_dom->UsedName(name));
    } else if (!m_dom->Names().IsAt(last[index], name)) {
        last[index] = m_dom->UsedName(name);
    }
    return last[index];
}

void DocumentReader::Impl::StartElement(const char* name, const char** attributes)
{
    FlushText();
    if (m_depth == kCATDOMMostDepth) {
        Refuse("more than " + std::to_string(kCATDOMMostDepth) +
               " elements stand in one another; that is refused");
        return;
    }
    const std::uint32_t number = ElementNumber(name);
    if (number >= m_lastAttributes.size()) {
        m_lastAttributes.resize(number + std::size_t{1});
    }
    std::vector<std::uint32_t>& last = m_lastAttributes[number];
    ElementNode& element = m_dom->NewElement(number);
    LinkNode(element, *m_parent, nullptr);
    std::size_t count = 0;
    while (attributes[2 * count] != nullptr) {
        ++count;
    }
    element.ReserveAttributes(count);
    for (std::size_t index = 0; index < count; ++index) {
        const std::string_view value = attributes[2 * index + 1];
        const std::uint32_t attribute = AttributeNumber(last, index, attributes[2 * index]);
        CountKept(m_dom->Names().AttributeStart(attribute).size() + value.size() + 1);
        element.AddReservedAttribute(attribute, value);
    }
    m_parent = &element;
    ++m_depth;
}

void DocumentReader::Impl::EndElement()
{
    FlushText();
    m_parent = m_parent->parent;
    --m_depth;
}

void DocumentReader::Impl::AddLeaf(CATDOMNodeType type, std::uint32_t name, std::string_view text)
{
    LinkNode(m_dom->NewLeaf(type, name, text), *m_parent, nullptr);
}

void DocumentReader::Impl::FlushText()
{
    if (!m_text.empty()) {
        AddLeaf(CATDOMNodeType::Text, kNoName, m_text);
        m_text.clear();
    }
}

void DocumentReader::Impl::AddRemark(CATDOMNodeType type, std::uint32_t name, std::string_view text)
{
    if (!m_isInDocumentType) {
        FlushText();
        CountKept(text.size());
        AddLeaf(type, name, text);
    }
}

char* DocumentReader::Impl::Room(std::size_t& size)
{
    void* room = XML_GetBuffer(m_parser.get(), static_cast<int>(m_piece));
    if (room == nullptr) {
        throw std::bad_alloc();
    }
    size = m_piece;
    return static_cast<char*>(room);
}

bool DocumentReader::Impl::Take(std::size_t size, bool isLast)
{
    m_read += size;
    const XML_Status status =
        XML_ParseBuffer(m_parser.get(), static_cast<int>(size), isLast ? 1 : 0);
    if (m_exception) {
        std::rethrow_exception(m_exception);
    }
    if (status != XML_STATUS_OK) {
        const XML_Error error = XML_GetErrorCode(m_parser.get());
        if (error == XML_ERROR_NO_MEMORY) {
            throw std::bad_alloc();
        }
        if (!m_isStopped) {
            // The parser points at the name in a wrong end tag; the tag begins before it.
            const bool isEndTag = error == XML_ERROR_TAG_MISMATCH;
            SetProblem(FactOf(error), isEndTag ? static_cast<int>(kEndTagStart.size()) : 0);
        }
        return false;
    }
    if (m_read > m_limits.mostBytes) {
        SetProblem("the text is longer than " + std::to_string(m_limits.mostBytes >> 20U) +
                   " MiB; that is refused");
        return false;
    }
    // A tag that is larger than a piece is read again from its beginning with each piece, so the
    // pieces grow with it.
    const XML_Index place = XML_GetCurrentByteIndex(m_parser.get());
    m_piece = place == m_lastPlace ? std::min(2 * m_piece, kLargestPiece) : kPiece;
    m_lastPlace = place;
    return true;
}

DocumentReader::DocumentReader(const ReadingLimits& limits) : m_impl(std::make_unique<Impl>(limits))
{}

DocumentReader::~DocumentReader() = default;

char* DocumentReader::Room(std::size_t& size)
{
    return m_impl->Room(size);
}

bool DocumentReader::Take(std::size_t size, bool isLast)
{
    return m_impl->Take(size, isLast);
}

const CATXMLProblem& DocumentReader::Problem() const
{
    return m_impl->Problem();
}

CATIDOMDocument_var DocumentReader::Document() const
{
    return m_impl->Document();
}

bool IsReadableName(std::string_view text)
{
    const ParserOwner parser = NewParser();
    const std::string element = '<' + std::string(text) + "/>";
    return XML_Parse(parser.get(), element.data(), static_cast<int>(element.size()), 1) ==
           XML_STATUS_OK;
}

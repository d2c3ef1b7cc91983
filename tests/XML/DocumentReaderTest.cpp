#include "DocumentReader.h"

#include "XMLTestSupport.h"

#include <cstring>
#include <random>

namespace
{

using namespace std::string_view_literals;
using namespace std::string_literals;

struct PlaceRow
{
    std::string_view text;
    int line;
    int column;
    const char* fact; // what the sentence says behind the place
};

// The places are counted by hand, in characters from 1.
constexpr std::array kPlaces{
    PlaceRow{"", 1, 1, "found the end of the text, where an element was expected"},
    PlaceRow{"  \n ", 2, 2, "found the end of the text, where an element was expected"},
    PlaceRow{"text", 1, 1, "found \"text\": this cannot stand here"},
    PlaceRow{"<a", 1, 1, "found \"<a\": this begins but does not end"},
    PlaceRow{"<a>text", 1, 8, "found the end of the text, where the end tag \"</a>\" was expected"},
    PlaceRow{"<a>\n  <b></a>", 2, 6, "found \"</a>\", where the end tag \"</b>\" was expected"},
    PlaceRow{"<a>\r\n\r<b x='\n", 3, 1, "found \"<b x='\": this begins but does not end"},
    PlaceRow{"<a x=\"1\" x=\"2\"/>", 1, 10,
             "found \"x=\"2\"/>\": an attribute of this name stands in the same element already"},
    PlaceRow{"<a b=1/>", 1, 6, "found \"1/>\": this cannot stand here"},
    PlaceRow{"<a b='<'/>", 1, 7, "found \"<'/>\": this cannot stand here"},
    PlaceRow{"<a/><b/>", 1, 5,
             "found \"<b/>\": the document element has ended; only comments and instructions may "
             "follow"},
    PlaceRow{"<a>&nope;</a>", 1, 4, "found \"&nope;\": no entity of this name is declared"},
    PlaceRow{"<a b='&nope;'/>", 1, 1,
             "found \"<a b='&nope;'/>\": no entity of this name is declared"},
    PlaceRow{"<a>&#0;</a>", 1, 4,
             "found \"&#0;\": this is the number of no character that XML can hold"},
    PlaceRow{"<a>&#xFFFF;</a>", 1, 4,
             "found \"&#xFFFF;\": this is the number of no character that XML can hold"},
    PlaceRow{"<a>\xff</a>", 1, 4, "found the byte 0xff, which is no text in this encoding"},
    PlaceRow{"<a b='\xc3\x28'/>", 1, 7, "found the byte 0xc3, which is no text in this encoding"},
    PlaceRow{"<\u00e4>\u00f6\x01</\u00e4>", 1, 5,
             "found the character 0x01, which XML cannot hold"},
    PlaceRow{"<a>\n\U0001f600\0</a>"sv, 2, 2, "found the character 0x00, which XML cannot hold"},
    PlaceRow{
        " <?xml version=\"1.0\"?><a/>", 1, 2,
        "found \"<?xml version=\"1.0\"?>\": the XML declaration may stand at the very beginning "
        "only"},
    PlaceRow{
        "<?xml version=\"1.0\" encoding=\"KOI8-R\"?><a/>", 1, 31,
        "found \"KOI8-R\"?>\": the encoding is not known; UTF-8, UTF-16, ISO-8859-1 or US-ASCII "
        "was expected"},
    PlaceRow{"<?xml version='1.0' encoding='UTF-16'?><a/>", 1, 31,
             "found \"UTF-16'?>\": the text is not in the encoding that it declares"},
    PlaceRow{"<?xml version='1.0' encoding='US-ASCII'?><a>\xe4</a>", 1, 45,
             "found the byte 0xe4, which is no text in this encoding"},
    PlaceRow{"<?xml encoding='UTF-8'?><a/>", 1, 7,
             "found \"encoding='UTF-8'?>\": the XML declaration is not well formed"},
    PlaceRow{"<a><![CDATA[x</a>", 1, 18,
             "found the end of the text: the CDATA section does not end; \"]]>\" was expected"},
    PlaceRow{"<a>\xc3", 1, 4, "found the end of the text: the text ends within a character"},
    PlaceRow{"<a123456789012345678901234567890 =/>", 1, 34,
             "found \"=/>\": this cannot stand here"},
    PlaceRow{"<a>&a123456789012345678901234567890;</a>", 1, 4,
             "found \"&a1234567890123456789012...\": no entity of this name is declared"},
};

TEST(DocumentReader, ProblemNamesThePlaceTheFactAndWhatWasExpected)
{
    for (const PlaceRow& row : kPlaces) {
        const CATXMLProblem problem = ProblemOf(row.text);
        EXPECT_EQ(problem.sentence.ToStdString(), "line " + std::to_string(row.line) + ", column " +
                                                      std::to_string(row.column) + ": " + row.fact)
            << row.text;
        EXPECT_EQ(problem.line, row.line) << row.text;
        EXPECT_EQ(problem.column, row.column) << row.text;
    }
}

struct EntityRow
{
    const char* text;
    const char* sentence; // empty: the text is read
    const char* written;
};
constexpr std::array kEntities{
    EntityRow{"<!DOCTYPE a [<!ENTITY e 'v&#38;amp;w'>]><a b='&e;'>&e;</a>", "",
              "<a b=\"v&amp;w\">v&amp;w</a>"},
    EntityRow{"<!DOCTYPE a [<!ENTITY e '<b>x</b>'>]><a>&e;&e;</a>", "", "<a><b>x</b><b>x</b></a>"},
    EntityRow{"<!--1--><!DOCTYPE a [<!--2--><?p 3?>]><?p 4?><a/>", "", "<!--1--><?p 4?><a/>"},
    EntityRow{"<!DOCTYPE a [<!ATTLIST a b CDATA 'given'>]><a/>", "", "<a b=\"given\"/>"},
    EntityRow{"<!DOCTYPE a [<!ENTITY e SYSTEM 'file:///etc/passwd'>]><a/>", "", "<a/>"},
    EntityRow{"<!DOCTYPE a [<!ENTITY e SYSTEM 'file:///etc/passwd'>]>\n<a>&e;</a>",
              "line 2, column 4: what stands outside the text is never fetched, here "
              "\"file:///etc/passwd\"",
              ""},
    EntityRow{"<!DOCTYPE a [<!ENTITY e SYSTEM 'file:///etc/passwd'>]>\n<a b='&e;'/>",
              "line 2, column 7: found \"&e;\": an attribute's value cannot come from outside the "
              "text",
              ""},
    EntityRow{"<!DOCTYPE a SYSTEM 'http://host/a.dtd'>\n<a/>",
              "line 1, column 39: what stands outside the text is never fetched, here "
              "\"http://host/a.dtd\"",
              ""},
    EntityRow{"<!DOCTYPE a PUBLIC '-//x' 'a.dtd' [<!ENTITY e 'v'>]>\n<a>&e;</a>",
              "line 1, column 52: what stands outside the text is never fetched, here \"a.dtd\"",
              ""},
    EntityRow{
        "<!DOCTYPE a [<!ENTITY % p SYSTEM 'file:///etc/passwd'>\n%p;]><a/>",
        "line 1, column 54: parameter entities are not read; only entities for the text itself "
        "are",
        ""},
    EntityRow{
        "<!DOCTYPE a [<!ENTITY % p \"<!ENTITY e 'v'>\"> %p;]><a>&e;</a>",
        "line 1, column 27: parameter entities are not read; only entities for the text itself "
        "are",
        ""},
    EntityRow{"<!DOCTYPE a [ %p; ]><a b='&e;'/>",
              "line 1, column 15: no entity of the name \"p\" is declared", ""},
    EntityRow{"<!DOCTYPE a [<!ENTITY e '%p;'>]><a/>",
              "line 1, column 26: found \"%p;'>\": a parameter entity cannot stand here", ""},
    EntityRow{"<!DOCTYPE a [<!ENTITY e '&e;'>]><a>&e;</a>",
              "line 1, column 36: found \"&e;\": this entity holds itself", ""},
    EntityRow{
        "<!DOCTYPE a [<!ENTITY e '<b>'>]><a>&e;</b></a>",
        "line 1, column 36: found \"&e;\": an element must end in the entity that it begins in",
        ""},
    EntityRow{"<!DOCTYPE a [<!NOTATION n SYSTEM 'n'><!ENTITY e SYSTEM 'x' NDATA n>]>\n<a>&e;</a>",
              "line 2, column 4: found \"&e;\": an entity that is no text cannot stand here", ""},
};

TEST(DocumentReader, EntitiesAreReadFromTheTextAloneAndNotKept)
{
    for (const EntityRow& row : kEntities) {
        if (row.sentence[0] == '\0') {
            EXPECT_EQ(Written(Parsed(row.text)), row.written) << row.text;
        } else {
            EXPECT_EQ(ProblemOf(row.text).sentence.ToStdString(), row.sentence) << row.text;
        }
    }
}

struct EncodingRow
{
    std::string_view text;
    const char* written;
};
constexpr std::array kEncodings{
    EncodingRow{"\xef\xbb\xbf<a>\u00e4</a>", "<a>\u00e4</a>"},
    EncodingRow{"\xff\xfe<\0a\0>\0\xe4\0\x3d\xd8\x00\xde<\0/\0a\0>\0"sv, "<a>\u00e4\U0001f600</a>"},
    EncodingRow{"\xfe\xff\0<\0a\0>\0\xe4\0<\0/\0a\0>"sv, "<a>\u00e4</a>"},
    EncodingRow{"<?xml version='1.0' encoding='ISO-8859-1'?><a b='\xe4'/>", "<a b=\"\u00e4\"/>"},
    EncodingRow{"<?xml version='1.0' encoding='us-ascii'?><a>&#228;</a>", "<a>\u00e4</a>"},
    EncodingRow{"<?xml version='1.0' encoding='utf-8' standalone='yes'?><a/>", "<a/>"},
};

TEST(DocumentReader, ReadsItsEncodings)
{
    for (const EncodingRow& row : kEncodings) {
        EXPECT_EQ(Written(Parsed(row.text)), row.written) << row.written;
    }
}

TEST(DocumentReader, EveryTruncatedTextIsAProblem)
{
    const std::string text =
        "<?xml version='1.0'?><!DOCTYPE r [<!ENTITY e 'v'>]><r a=\"1&e;\">\u00e4&e;"
        "<![CDATA[x]]><!--c--><?p d?><b/></r>";
    for (std::size_t size = 0; size < text.size(); ++size) {
        const CATXMLProblem problem = ProblemOf(text.substr(0, size));
        EXPECT_EQ(problem.line, 1) << size;
        EXPECT_GE(problem.column, 1) << size;
        EXPECT_LE(problem.column, static_cast<int>(size) + 1) << size;
    }
    EXPECT_EQ(Written(Parsed(text)), "<r a=\"1v\">\u00e4v<![CDATA[x]]><!--c--><?p d?><b/></r>");
}

// Whatever byte stands at whatever place, the text is read or refused, and what was read is
// written so that it reads the same.
TEST(DocumentReader, AnyByteAnywhereIsReadOrRefused)
{
    const std::string text = "<!DOCTYPE r [<!ENTITY e 'v'>]><r a=\"&e;\">t&#65;<b/><!--c--></r>";
    for (std::size_t place = 0; place < text.size(); ++place) {
        for (int byte = 0; byte < 256; ++byte) {
            std::string changed = text;
            changed[place] = static_cast<char>(byte);
            CATIDOMDocument_var document;
            CATXMLProblem problem;
            if (CreateCATIXMLDOMDocumentBuilder()->ParseText(changed, document, problem) == S_OK) {
                ASSERT_EQ(Written(Parsed(Written(document))), Written(document)) << changed;
            } else {
                ASSERT_GT(problem.line, 0) << changed;
            }
        }
    }
}

// Texts with pieces of themselves and of mischief put in, taken out and moved.
TEST(DocumentReader, MangledTextsAreReadOrRefused)
{
    const std::string seed =
        "<?xml version='1.0' encoding='UTF-8'?><!DOCTYPE r [<!ENTITY e 'v'><!ATTLIST b c CDATA "
        "'d'>]>"
        "<r a=\"&e;\">\u00e4<b/><![CDATA[x]]><!--c--><?p i?><b c='1'>&e;&#65;</b></r>";
    constexpr std::array kMischief{
        "<",          ">",   "&",           "]]>",          "<!ENTITY f '&e;&e;'>",
        "&f;",        "\0",  "\xff",        "\"",           "'",
        "<![CDATA[",  "-->", "<!--",        "%e;",          "</b>",
        "<b>",        "=",   "&#0;",        "\xef\xbb\xbf", "\r",
        "SYSTEM 'x'", "?>",  "\xed\xa0\x80"};
    const unsigned first = std::random_device()();
    for (unsigned round = 0; round < 5000; ++round) {
        std::mt19937 random(first + round);
        const auto draw = [&random](std::size_t below) {
            return std::uniform_int_distribution<std::size_t>(0, below)(random);
        };
        std::string text = seed;
        for (std::size_t changes = draw(4); changes > 0; --changes) {
            const std::size_t place = draw(text.size());
            switch (draw(2)) {
            case 0:
                text.erase(place, draw(10));
                break;
            case 1:
                text.insert(place, kMischief[draw(kMischief.size() - 1)]);
                break;
            default:
                text.insert(draw(text.size()), text.substr(place, draw(30)));
            }
        }
        SCOPED_TRACE("seed " + std::to_string(first + round) + ": " + text);
        CATIDOMDocument_var document;
        CATXMLProblem problem;
        if (CreateCATIXMLDOMDocumentBuilder()->ParseText(text, document, problem) == S_OK) {
            ASSERT_EQ(Written(Parsed(Written(document))), Written(document));
        } else {
            ASSERT_GT(problem.line, 0);
            ASSERT_GT(problem.column, 0);
        }
    }
}

std::string Repeated(const std::string& text, int count)
{
    std::string repeated;
    for (int turn = 0; turn < count; ++turn) {
        repeated += text;
    }
    return repeated;
}

TEST(DocumentReader, RefusesElementsThatStandTooDeep)
{
    EXPECT_TRUE(Parsed(Repeated("<a>", kCATDOMMostDepth) + Repeated("</a>", kCATDOMMostDepth)));
    EXPECT_TRUE(Parsed("<a>" + Repeated("<b></b>", 2 * kCATDOMMostDepth) + "</a>"));
    // The first that is too deep begins behind a thousand tags of three characters.
    EXPECT_EQ(ProblemOf(Repeated("<a>", 100000)).sentence.ToStdString(),
              "line 1, column 3001: more than 1000 elements stand in one another; that is refused");
}

const char* const kSwollen = ": the entities make far more text than was written; that is refused";

bool IsSwollen(const std::string& text)
{
    return ProblemOf(text).sentence.Contains(kSwollen);
}

// Eleven entities of ten times the one before: ten to the twelfth characters.
std::string Bomb()
{
    std::string text = "<!DOCTYPE r [<!ENTITY a '0123456789'>";
    for (char name = 'b'; name <= 'l'; ++name) {
        const char before = static_cast<char>(name - 1);
        text += std::string("<!ENTITY ") + name + " '" + Repeated({'&', before, ';'}, 10) + "'>";
    }
    return text + "]>\n";
}

TEST(DocumentReader, RefusesTextsThatWouldSwell)
{
    EXPECT_TRUE(IsSwollen(Bomb() + "<r>&l;</r>"));
    EXPECT_TRUE(IsSwollen(Bomb() + "<r a='&l;'/>"));
    const std::string large = "<!DOCTYPE r [<!ENTITY e '" + std::string(1000000, 'x') + "'>]>\n";
    EXPECT_TRUE(IsSwollen(large + "<r>" + Repeated("&e;", 1000) + "</r>"));
    EXPECT_TRUE(IsSwollen(large + "<r>" + Repeated("<e a='&e;'/>", 1000) + "</r>"));
    EXPECT_EQ(Parsed(large + "<r>&e;</r>")->DocumentElement()->FirstChild()->NodeValue().Length(),
              1000000);
}

TEST(DocumentReader, RefusesDefaultsThatWouldSwell)
{
    std::string text = "<!DOCTYPE r [<!ATTLIST e";
    for (int number = 0; number < 1000; ++number) {
        text += " a" + std::to_string(number) + " CDATA ''";
    }
    EXPECT_EQ(ProblemOf(text + ">]>\n<r>" + Repeated("<e/>", 100000) + "</r>").line, 2);
    const std::string large =
        "<!DOCTYPE r [<!ATTLIST e a CDATA '" + std::string(100000, 'x') + "'>]>\n";
    EXPECT_EQ(ProblemOf(large + "<r>" + Repeated("<e/>", 100000) + "</r>").line, 2);
}

// Entities in entities are read by recursion; without a limit a chain of them ends the program.
TEST(DocumentReader, RefusesLongChainsOfEntities)
{
    const auto chain = [](int length) {
        std::string text = "<!DOCTYPE r [<!ENTITY e0 'x'>";
        for (int number = 1; number < length; ++number) {
            text += "\n<!ENTITY e" + std::to_string(number) + " '&e" + std::to_string(number - 1) +
                    ";'>";
        }
        const std::string last = "&e" + std::to_string(length - 1) + ";";
        return text + "]><r a='" + last + "'>" + last + "</r>";
    };
    EXPECT_EQ(Written(Parsed(chain(1000))), "<r a=\"x\">x</r>");
    const CATXMLProblem problem = ProblemOf(chain(200000));
    EXPECT_EQ(problem.line, 1001);
    EXPECT_TRUE(problem.sentence.Contains("more than 1000 entities are declared; that is refused"));
}

// Tags that are larger than a piece of the reading: their length costs no more than reading them.
TEST(DocumentReader, ReadsHugeAttributesTextsAndNames)
{
    const std::string huge(20000000, 'x');
    const CATIDOMDocument_var document =
        Parsed("<r a='" + huge + "'><" + huge + "/>" + huge + "<!--" + huge + "--></r>");
    EXPECT_EQ(document->DocumentElement()->AttributeText(0), huge);
    EXPECT_EQ(document->DocumentElement()->FirstChild()->NodeName(), huge);
    EXPECT_EQ(ProblemOf("<r a='" + huge).line, 1);
    EXPECT_EQ(ProblemOf("<r>" + huge).column, 20000004);
}

bool Feed(DocumentReader& reader, std::string_view text)
{
    std::size_t size = 0;
    char* room = reader.Room(size);
    EXPECT_GE(size, text.size());
    std::memcpy(room, text.data(), text.size());
    return reader.Take(text.size(), false);
}

TEST(DocumentReader, RefusesTextsThatAreTooLong)
{
    DocumentReader reader({.mostBytes = 3U << 20U});
    EXPECT_TRUE(Feed(reader, "<r>\n"));
    const std::string piece(1U << 18U, 'x');
    for (int count = 0; count < 11; ++count) {
        ASSERT_TRUE(Feed(reader, piece));
    }
    EXPECT_FALSE(Feed(reader, piece));
    EXPECT_EQ(reader.Problem().line, 2);
    EXPECT_TRUE(
        reader.Problem().sentence.Contains("the text is longer than 3 MiB; that is refused"));
}

TEST(DocumentReader, LimitsThatAreShipped)
{
    const ReadingLimits limits;
    EXPECT_EQ(limits.mostBytes, 2147483648U);
    EXPECT_EQ(limits.mostEntities, 1000);
    EXPECT_EQ(limits.freeSwelling, 8388608U);
    EXPECT_EQ(limits.mostSwelling, 20U);
}

} // namespace

#include "PlainReader.h"

#include "DocumentReader.h"
#include "TemporaryDirectory.h"
#include "XMLTestSupport.h"

#include <algorithm>
#include <cstring>
#include <random>

namespace
{

using namespace std::string_view_literals;

// The document's text as the plain reader has it, in pieces of so many bytes; "not plain" when it
// gives up.
std::string ReadPlainly(std::string_view text, std::size_t piece)
{
    PlainReader reader;
    std::string kept;
    do {
        const std::size_t size = std::min(piece, text.size());
        kept += text.substr(0, size);
        text.remove_prefix(size);
        // Bytes that were taken may go away.
        const std::string given = std::exchange(kept, std::string());
        kept = given.substr(reader.Take(given, text.empty()));
    } while (!text.empty() && reader.IsPlain());
    return reader.IsPlain() ? Written(reader.Document()) : "not plain";
}

std::string ReadPlainly(std::string_view text)
{
    return ReadPlainly(text, std::max<std::size_t>(text.size(), 1));
}

// The same as the parser for all texts has it; "refused" when it refuses.
std::string ReadByParser(std::string_view text)
{
    DocumentReader reader;
    bool isGood = true;
    do {
        std::size_t size = 0;
        char* room = reader.Room(size);
        size = std::min(size, text.size());
        std::memcpy(room, text.data(), size);
        text.remove_prefix(size);
        isGood = reader.Take(size, text.empty());
    } while (isGood && !text.empty());
    return isGood ? Written(reader.Document()) : "refused";
}

constexpr std::array kPlain{
    "<r/>",
    "<r></r>",
    "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<r/>\n",
    "<?xml version=\"1.0\" encoding=\"utf-8\"?><r/>",
    "<?xml version=\"1.0\"?> \t\r\n<r/>",
    "<?xml version='1.0' encoding='UTF-8'?><r/>",
    "<r a=\"1\" b='2'\n\tc = \"3\"\r\n/>",
    "<r a=\"\" b=\"x>y'z\" c='x\"y'/>",
    "<r a=\"&lt;&gt;&amp;&quot;&apos;&#65;&#x1F600;&#10;&#9;&#13;\u00e4\u20ac\"/>",
    "<r>\n\ttext &lt; \u00e4 &#228;&#xe4;&#x20AC;&#13;] ]] ]>\x7f</r >",
    "<r><a x=\"1\" y=\"2\"/><a x=\"3\" y=\"4\"/><a y=\"5\"/><a x=\"6\" y=\"7\" z=\"8\"/><b "
    "z=\"9\"/></r>",
    "<_:a-b.c1/>",
};

TEST(PlainReader, ReadsPlainTextsToTheSameDocument)
{
    for (const char* text : kPlain) {
        EXPECT_EQ(ReadPlainly(text), ReadByParser(text)) << text;
        EXPECT_NE(ReadPlainly(text), "not plain") << text;
    }
}

// What is right but not plain, and what is wrong.
constexpr std::array kNotPlain{
    ""sv,
    " "sv,
    "x"sv,
    "<"sv,
    "<r"sv,
    "<r>"sv,
    "<r>x"sv,
    "<r a"sv,
    "<r a="sv,
    "<r a=\""sv,
    "<r/"sv,
    "</r>"sv,
    "<r></s>"sv,
    "<r></r"sv,
    "<r></r x>"sv,
    "<r/><s/>"sv,
    "<r/>x"sv,
    "<r / >"sv,
    "<r/x>"sv,
    "< r/>"sv,
    "<1/>"sv,
    "<r\u00e4/>"sv,
    "<r a=\"1\"b=\"2\"/>"sv,
    "<r a=\"1\" a=\"2\"/>"sv,
    "<r b=\"0\" a=\"1\" a=\"2\"/>"sv,
    "<r a=1/>"sv,
    "<r a/>"sv,
    "<r a=\"<\"/>"sv,
    "<r a=\"\n\"/>"sv,
    "<r a=\"\t\"/>"sv,
    "<r a=\"\r\"/>"sv,
    "<r a=\"\x01\"/>"sv,
    "<r a=\"\xff\"/>"sv,
    "<r a=\"&e;\"/>"sv,
    "<r a=\"&\"/>"sv,
    "<r a=\"&#0;\"/>"sv,
    "<r a=\"&#xd800;\"/>"sv,
    "<r a=\"&#x110000;\"/>"sv,
    "<r a=\"&#99999999999;\"/>"sv,
    "<r a=\"&#;\"/>"sv,
    "<r a=\"&#x;\"/>"sv,
    "<r a=\"&#65\"/>"sv,
    "<r a=\"&#6a;\"/>"sv,
    "<r a=\"&#-6;\"/>"sv,
    "<r a=\"&lt\"/>"sv,
    "<r>]]></r>"sv,
    "<r>\r</r>"sv,
    "<r>\0</r>"sv,
    "<r>\xed\xa0\x80</r>"sv,
    "<r>&#</r>"sv,
    "<!--c--><r/>"sv,
    "<r><![CDATA[]]></r>"sv,
    "<r><?p?></r>"sv,
    "<!DOCTYPE r><r/>"sv,
    "<?xml version=\"1.0\" standalone=\"yes\"?><r/>"sv,
    " <?xml version=\"1.0\"?><r/>"sv,
    "\xef\xbb\xbf<r/>"sv,
    "<r>&amp</r>"sv,
    "<r a =\"1\" a= \"2\"/>"sv,
};

TEST(PlainReader, LeavesEverythingElseToTheParser)
{
    for (const std::string_view text : kNotPlain) {
        EXPECT_EQ(ReadPlainly(text), "not plain") << text;
    }
}

TEST(PlainReader, LeavesElementsThatStandTooDeepToTheParser)
{
    const auto tower = [](int depth) {
        std::string text;
        for (int level = 0; level < depth; ++level) {
            text += "<a>";
        }
        for (int level = 0; level < depth; ++level) {
            text += "</a>";
        }
        return text;
    };
    EXPECT_NE(ReadPlainly(tower(kCATDOMMostDepth)), "not plain");
    EXPECT_EQ(ReadPlainly(tower(kCATDOMMostDepth + 1)), "not plain");
}

TEST(PlainReader, PiecesOfAnySizeGiveTheSameDocument)
{
    const std::string text =
        "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<Report a='1'><PartInstance V_ID=\"P-1\" "
        "COGx=\"1.5\"/>t&lt;\u00e4xt<PartInstance V_ID=\"&#x1F600;\u20ac\" COGx=\"-2\" "
        "></PartInstance >"
        "</Report> \n";
    const std::string whole = ReadPlainly(text);
    EXPECT_NE(whole, "not plain");
    for (std::size_t piece = 1; piece < text.size(); ++piece) {
        EXPECT_EQ(ReadPlainly(text, piece), whole) << piece;
    }
    for (std::size_t size = 0; size < text.size() - 2; ++size) {
        EXPECT_EQ(ReadPlainly(text.substr(0, size), 7), "not plain") << size;
    }
}

// The parser is the judge: what the plain reader reads of a mangled text, it must read alike.
void ExpectAgreement(const std::string& text)
{
    const std::string plainly = ReadPlainly(text);
    if (plainly != "not plain") {
        ASSERT_EQ(plainly, ReadByParser(text)) << text;
    }
    ASSERT_EQ(ReadPlainly(text, 5), plainly) << text;
}

constexpr const char* kSeed = "<?xml version=\"1.0\"?>\n<r a=\"1&lt;\u00e4\" "
                              "b='&#65;'>t&amp;\u20ac<s a=\"1\" b=\"2\"/>\n<s a=\"3\" "
                              "b=\"4\"></s></r>\n";

TEST(PlainReader, AgreesWithTheParserWhateverByteStandsAnywhere)
{
    const std::string seed = kSeed;
    for (std::size_t place = 0; place < seed.size(); ++place) {
        for (int byte = 0; byte < 256; ++byte) {
            std::string text = seed;
            text[place] = static_cast<char>(byte);
            ExpectAgreement(text);
            ASSERT_FALSE(testing::Test::HasFatalFailure());
        }
    }
}

TEST(PlainReader, AgreesWithTheParserOnMangledTexts)
{
    constexpr std::array kMischief{"<",
                                   ">",
                                   "&",
                                   "]]>",
                                   "\"",
                                   "'",
                                   "=",
                                   " ",
                                   "\n",
                                   "\r",
                                   "/",
                                   "</s>",
                                   "<s>",
                                   "<s/>",
                                   " a='1'",
                                   " b=\"&gt;\"",
                                   ";",
                                   "&#9;",
                                   "\t",
                                   "\x7f",
                                   "\xc2\x80",
                                   "\xed\xa0\x80",
                                   "\xff",
                                   "<!--c-->",
                                   "?>",
                                   "<?",
                                   "x",
                                   "&#x41;",
                                   "&quot;",
                                   "\xef\xbf\xbe",
                                   "\xf0\x9f\x98\x80"};
    const unsigned first = std::random_device()();
    for (unsigned round = 0; round < 20000; ++round) {
        std::mt19937 random(first + round);
        const auto draw = [&random](std::size_t most) {
            return std::uniform_int_distribution<std::size_t>(0, most)(random);
        };
        std::string text = kSeed;
        for (std::size_t changes = 1 + draw(3); changes > 0; --changes) {
            const std::size_t place = draw(text.size());
            switch (draw(2)) {
            case 0:
                text.erase(place, 1 + draw(8));
                break;
            case 1:
                text.insert(place, kMischief[draw(kMischief.size() - 1)]);
                break;
            default:
                text.insert(draw(text.size()), text.substr(place, draw(20)));
            }
        }
        SCOPED_TRACE("seed " + std::to_string(first + round));
        ExpectAgreement(text);
        ASSERT_FALSE(testing::Test::HasFatalFailure());
    }
}

TEST(PlainReader, FileIsReadInPiecesThatEndAnywhere)
{
    const TemporaryDirectory directory;
    std::string text = "<r>";
    for (std::size_t number = 0; text.size() < 3000000; ++number) {
        text += "<e n=\"" + std::to_string(number) + "\" t=\"&lt;" + std::string(number % 50, 'x') +
                "\">text \u00e4</e>";
    }
    text += "<e t=\"" + std::string(2000000, 'y') + "\"/>" + std::string(2000000, 'z') + "</r>";
    CATIDOMDocument_var document;
    CATXMLProblem problem;
    ASSERT_EQ(CreateCATIXMLDOMDocumentBuilder()->ParseFile(directory.Write("r.xml", text), document,
                                                           problem),
              S_OK);
    EXPECT_EQ(Written(document), text);
    // What shows late that it is not plain is read again from the beginning.
    text.insert(text.size() - 4, "<!--c-->");
    ASSERT_EQ(CreateCATIXMLDOMDocumentBuilder()->ParseFile(directory.Write("r.xml", text), document,
                                                           problem),
              S_OK);
    EXPECT_EQ(Written(document), text);
}

} // namespace

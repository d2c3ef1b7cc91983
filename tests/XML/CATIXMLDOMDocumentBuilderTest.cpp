#include "TemporaryDirectory.h"
#include "XMLTestSupport.h"

#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <thread>

namespace
{

CATIXMLDOMDocumentBuilder_var NewBuilder()
{
    return CreateCATIXMLDOMDocumentBuilder();
}

CATXMLProblem WriteProblem(const CATIDOMDocument_var& document, const std::string& path)
{
    CATXMLProblem problem;
    EXPECT_EQ(NewBuilder()->WriteToFile(document, path, {}, {}, problem), E_FAIL);
    EXPECT_EQ(problem.line, 0);
    EXPECT_EQ(problem.column, 0);
    return problem;
}

TEST(CATIXMLDOMDocumentBuilder, NamesItsClass)
{
    EXPECT_STREQ(NewBuilder()->ClassName(), "CATIXMLDOMDocumentBuilder");
}

TEST(CATIXMLDOMDocumentBuilder, NewDocumentHoldsOneElement)
{
    CATIDOMDocument_var document;
    EXPECT_EQ(NewBuilder()->CreateDocument("Report", document), S_OK);
    EXPECT_EQ(NewBuilder()->WriteText(document),
              "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<Report/>");
    const CATIDOMDocument_var before = document;
    EXPECT_EQ(NewBuilder()->CreateDocument("no name", document), E_INVALIDARG);
    EXPECT_TRUE(document == before);
}

TEST(CATIXMLDOMDocumentBuilder, WritesWhatItRead)
{
    const std::string text = "<!--before--><?first?><r a=\"1\" "
                             "b=\"&amp;&lt;&quot;&#9;&#10;&#13;>'\"><c/>\n\t text &amp; "
                             "&lt;more&gt;&#13;\"'<![CDATA[a<b]]><![CDATA[]]><?do it = "
                             "now?><\u00e9l d=\"\u00e4\">x</\u00e9l>"
                             "</r><!--after--><?last one?>";
    EXPECT_EQ(Written(Parsed(text)), text);
}

struct FormRow
{
    const char* text;
    const char* written;
};
constexpr std::array kForms{
    FormRow{"<a></a>", "<a/>"},
    FormRow{"<a  b = '1'\n c=\"2\" />", "<a b=\"1\" c=\"2\"/>"},
    FormRow{"<a b='\"'/>", "<a b=\"&quot;\"/>"},
    FormRow{"<a b='x\ty\nz'/>", "<a b=\"x y z\"/>"},
    FormRow{"<a>\r\nx\ry</a>", "<a>\nx\ny</a>"},
    FormRow{"<a>&#228;&#x1F600;</a>", "<a>\u00e4\U0001f600</a>"},
    FormRow{"\n<a/>\n", "<a/>"},
    FormRow{"<a> <b/> </a>", "<a> <b/> </a>"},
};

TEST(CATIXMLDOMDocumentBuilder, EveryFormOfATextIsWrittenInOne)
{
    for (const FormRow& row : kForms) {
        EXPECT_EQ(Written(Parsed(row.text)), row.written) << row.text;
    }
}

// Long enough for many pieces of reading and writing, whose ends fall on any place in a tag.
TEST(CATIXMLDOMDocumentBuilder, LongTextsGoThroughUnchanged)
{
    std::string text = "<r>";
    for (int number = 0; number < 40000; ++number) {
        text += "<PartInstance V_ID=\"P-" + std::to_string(number) + "\" name=\"&lt;\u00e4" +
                std::string(static_cast<std::size_t>(number % 40), 'x') + "\">t" +
                std::to_string(number) + "</PartInstance>";
    }
    text += "</r>";
    EXPECT_EQ(Written(Parsed(text)), text);
}

TEST(CATIXMLDOMDocumentBuilder, DocumentWithoutAnElementIsWrittenAsItIs)
{
    const CATIDOMDocument_var document = Parsed("<r/><!--c-->");
    document->RemoveChild(document->DocumentElement());
    EXPECT_EQ(Written(document), "<!--c-->");
    document->RemoveChild(document->FirstChild());
    EXPECT_EQ(Written(document), "");
}

TEST(CATIXMLDOMDocumentBuilder, FileGivesTheSameDocumentAsItsText)
{
    const TemporaryDirectory directory;
    const std::string path = directory.Write("r.xml", "<r a=\"1\">text</r>");
    CATIDOMDocument_var document;
    CATXMLProblem problem;
    EXPECT_EQ(NewBuilder()->ParseFile(path, document, problem), S_OK);
    EXPECT_EQ(Written(document), "<r a=\"1\">text</r>");
}

TEST(CATIXMLDOMDocumentBuilder, FileThatCannotBeReadIsToldByItsPath)
{
    const TemporaryDirectory directory;
    CATIDOMDocument_var document;
    CATXMLProblem problem;
    const auto sentence = [&](const std::string& path) {
        EXPECT_EQ(NewBuilder()->ParseFile(path, document, problem), E_FAIL);
        EXPECT_TRUE(document.IsNull());
        return problem.sentence;
    };
    EXPECT_EQ(sentence(directory.At("none.xml")),
              "cannot open " + directory.At("none.xml") + ": No such file or directory");
    EXPECT_EQ(problem.line, 0);
    EXPECT_EQ(sentence(directory.Path()), "cannot read " + directory.Path() + ": Is a directory");
    const std::string broken = directory.Write("broken.xml", "<r>\n<a></r>");
    EXPECT_EQ(sentence(broken),
              broken +
                  ": line 2, column 4: found \"</r>\", where the end tag \"</a>\" was expected");
    EXPECT_EQ(problem.line, 2);
    EXPECT_EQ(problem.column, 4);
}

TEST(CATIXMLDOMDocumentBuilder, ReadsFromAPipe)
{
    const TemporaryDirectory directory;
    ASSERT_EQ(mkfifo(directory.At("pipe").c_str(), 0600), 0);
    std::thread writer([&] { directory.Write("pipe", "<r>text</r>"); });
    CATIDOMDocument_var document;
    CATXMLProblem problem;
    EXPECT_EQ(NewBuilder()->ParseFile(directory.At("pipe"), document, problem), S_OK);
    writer.join();
    EXPECT_EQ(Written(document), "<r>text</r>");
}

TEST(CATIXMLDOMDocumentBuilder, FileIsReplacedByTheDocument)
{
    const TemporaryDirectory directory;
    const std::string path = directory.Write("r.xml", "old");
    const CATIDOMDocument_var document = Parsed("<r>new</r>");
    CATXMLProblem problem;
    const std::string text = std::string(kDeclaration) + "<r>new</r>";
    EXPECT_EQ(NewBuilder()->WriteToFile(document, path, {}, {}, problem), S_OK);
    EXPECT_EQ(directory.Read("r.xml"), text);
    for (const char* value : {"no", "yes"}) {
        directory.Write("r.xml", "old");
        EXPECT_EQ(NewBuilder()->WriteToFile(document, path, {"Flush"}, {value}, problem), S_OK);
        EXPECT_EQ(directory.Read("r.xml"), text);
    }
    EXPECT_EQ(directory.FileCount(), 1U);
}

TEST(CATIXMLDOMDocumentBuilder, DirectoryAndFileMayBeJoinedByABackslash)
{
    const TemporaryDirectory directory;
    const std::string text = std::string(kDeclaration) + "<r/>";
    CATXMLProblem problem;
    EXPECT_EQ(
        NewBuilder()->WriteToFile(Parsed(text), directory.Path() + "\\r.xml", {}, {}, problem),
        S_OK);
    EXPECT_EQ(directory.Read("r.xml"), text);
}

TEST(CATIXMLDOMDocumentBuilder, RefusesOptionsThatItDoesNotKnow)
{
    const TemporaryDirectory directory;
    const CATIDOMDocument_var document = Parsed("<r/>");
    const std::string path = directory.At("r.xml");
    CATXMLProblem problem;
    EXPECT_EQ(NewBuilder()->WriteToFile(document, path, {"Indent"}, {"no"}, problem), E_INVALIDARG);
    EXPECT_EQ(NewBuilder()->WriteToFile(document, path, {"Flush"}, {"perhaps"}, problem),
              E_INVALIDARG);
    EXPECT_EQ(NewBuilder()->WriteToFile(document, path, {"Flush"}, {}, problem), E_INVALIDARG);
    EXPECT_EQ(NewBuilder()->WriteToFile(CATIDOMDocument_var(), path, {}, {}, problem),
              E_INVALIDARG);
    EXPECT_EQ(directory.FileCount(), 0U);
}

TEST(CATIXMLDOMDocumentBuilder, FileThatCannotBeWrittenIsToldAndLeavesNothing)
{
    const TemporaryDirectory directory;
    const CATIDOMDocument_var document = Parsed("<r/>");
    EXPECT_EQ(WriteProblem(document, directory.At("none/r.xml")).sentence,
              "cannot write " + directory.At("none/r.xml") + ": No such file or directory");
    EXPECT_EQ(WriteProblem(document, directory.Path()).sentence,
              "cannot write " + directory.Path() + ": Is a directory");
    EXPECT_EQ(WriteProblem(document, "/dev/full").sentence,
              "cannot write /dev/full: No space left on device");
    EXPECT_EQ(directory.FileCount(), 0U);
}

TEST(CATIXMLDOMDocumentBuilder, FullDiskLeavesTheOldFileWhole)
{
    const TemporaryDirectory directory;
    const std::string path = directory.Write("r.xml", "old");
    const CATIDOMDocument_var document = Parsed("<r>" + std::string(1000000, 'x') + "</r>");
    const pid_t child = fork();
    if (child == 0) {
        signal(SIGXFSZ, SIG_IGN);
        const rlimit limit{300000, 300000};
        setrlimit(RLIMIT_FSIZE, &limit);
        CATXMLProblem problem;
        const bool isRefused =
            NewBuilder()->WriteToFile(document, path, {}, {}, problem) == E_FAIL &&
            problem.sentence == "cannot write " + path + ": File too large";
        _exit(isRefused ? 0 : 1);
    }
    int status = 1;
    waitpid(child, &status, 0);
    EXPECT_EQ(status, 0);
    EXPECT_EQ(directory.Read("r.xml"), "old");
    EXPECT_EQ(directory.FileCount(), 1U);
}

TEST(CATIXMLDOMDocumentBuilder, TellsOfItsProgressAboutEveryMegabyte)
{
    const TemporaryDirectory directory;
    std::string text = "<r>";
    for (int count = 0; count < 50000; ++count) {
        text += "<e a=\"0123456789\" b=\"0123456789\" c=\"0123456789\" d=\"0123456789012345\"/>";
    }
    const std::string path = directory.Write("r.xml", text + "</r>");
    const auto size = std::filesystem::file_size(path); // 3.6 MB
    const CATIXMLDOMDocumentBuilder_var builder = NewBuilder();
    std::vector<std::pair<std::uint64_t, std::uint64_t>> told;
    builder->SetProgress(
        [&told](std::uint64_t done, std::uint64_t total) { told.emplace_back(done, total); });
    CATIDOMDocument_var document;
    CATXMLProblem problem;
    ASSERT_EQ(builder->ParseFile(path, document, problem), S_OK);
    ASSERT_EQ(told.size(), 4U);
    for (std::size_t index = 0; index < 3; ++index) {
        EXPECT_NEAR(static_cast<double>(told[index].first), 1.05e6 * static_cast<double>(index + 1),
                    3e5);
        EXPECT_EQ(told[index].second, size);
    }
    EXPECT_EQ(told.back(), std::make_pair(size, size));
    told.clear();
    ASSERT_EQ(builder->WriteToFile(document, path, {}, {}, problem), S_OK);
    ASSERT_EQ(told.size(), 4U);
    EXPECT_EQ(told.front().second, 0U);
    const auto written = std::filesystem::file_size(path);
    EXPECT_EQ(told.back(), std::make_pair(written, written));
}

} // namespace

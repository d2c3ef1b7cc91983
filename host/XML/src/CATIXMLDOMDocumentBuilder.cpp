#include "CATIXMLDOMDocumentBuilder.h"

#include "CATFileAccess.h"
#include "CATFileReplacement.h"
#include "DocumentReader.h"
#include "DocumentWriter.h"
#include "DomDocument.h"
#include "XMLText.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <new>
#include <optional>
#include <system_error>
#include <utility>

namespace
{

constexpr std::uint64_t kProgressStep = std::uint64_t{1} << 20U;

std::string ErrorText(int error)
{
    return std::generic_category().message(error);
}

// An open file that closes itself.
class InputFile
{
public:
    explicit InputFile(const char* path) : m_number(open(path, O_RDONLY | O_CLOEXEC)) {}
    InputFile(const InputFile&) = delete;
    InputFile& operator=(const InputFile&) = delete;
    ~InputFile()
    {
        if (IsOpen()) {
            close(m_number);
        }
    }
    bool IsOpen() const { return m_number >= 0; }
    // 0 where the end is not known beforehand, as of a pipe.
    std::uint64_t Size() const
    {
        struct stat facts = {};
        return fstat(m_number, &facts) == 0 && S_ISREG(facts.st_mode)
                   ? static_cast<std::uint64_t>(facts.st_size)
                   : 0;
    }
    // The number of bytes, 0 at the end, -1 when reading failed.
    ssize_t Read(char* room, std::size_t size)
    {
        ssize_t got = 0;
        do {
            got = read(m_number, room, size);
        } while (got < 0 && errno == EINTR);
        return got;
    }

private:
    int m_number;
};

// Tells of progress about every megabyte, and once at the end.
class ProgressTeller
{
public:
    ProgressTeller(const CATXMLProgress& progress, std::uint64_t total)
        : m_progress(progress), m_total(total)
    {}
    void Add(std::uint64_t bytes)
    {
        const std::uint64_t before = m_done / kProgressStep;
        m_done += bytes;
        if (m_progress && m_done / kProgressStep != before) {
            m_progress(m_done, m_total);
        }
    }
    void End() const
    {
        if (m_progress) {
            m_progress(m_done, m_done);
        }
    }

private:
    const CATXMLProgress& m_progress;
    std::uint64_t m_total;
    std::uint64_t m_done = 0;
};

struct WriteOptions
{
    bool isFlushed = true;
};

std::optional<WriteOptions> ReadOptions(const CATListValCATUnicodeString& names,
                                        const CATListValCATUnicodeString& values)
{
    WriteOptions options;
    if (names.Size() != values.Size()) {
        return std::nullopt;
    }
    for (int position = 1; position <= names.Size(); ++position) {
        const bool isNo = values[position] == "no";
        if (names[position] != "Flush" || (!isNo && values[position] != "yes")) {
            return std::nullopt;
        }
        options.isFlushed = !isNo;
    }
    return options;
}

long Fail(CATXMLProblem& problem, const std::string& sentence)
{
    problem = {sentence, 0, 0};
    return E_FAIL;
}

class Builder final : public CATIXMLDOMDocumentBuilder
{
public:
    const char* ClassName() const override { return "CATIXMLDOMDocumentBuilder"; }
    long CreateDocument(const CATUnicodeString& elementName,
                        CATIDOMDocument_var& document) override;
    long ParseText(std::string_view text, CATIDOMDocument_var& document,
                   CATXMLProblem& problem) override;
    long ParseFile(const CATUnicodeString& path, CATIDOMDocument_var& document,
                   CATXMLProblem& problem) override;
    std::string WriteText(const CATIDOMDocument_var& document) override;
    long WriteToFile(const CATIDOMDocument_var& document, const CATUnicodeString& path,
                     const CATListValCATUnicodeString& optionNames,
                     const CATListValCATUnicodeString& optionValues,
                     CATXMLProblem& problem) override;
    void SetProgress(CATXMLProgress progress) override { m_progress = std::move(progress); }

private:
    CATXMLProgress m_progress;
};

long Builder::CreateDocument(const CATUnicodeString& elementName, CATIDOMDocument_var& document)
{
    const auto made = CATIDOMDocument_var::Adopt(new DomDocument);
    const CATIDOMElement_var element = made->CreateElement(elementName);
    if (element.IsNull()) {
        return E_INVALIDARG;
    }
    made->AppendChild(element);
    document = made;
    return S_OK;
}

long Builder::ParseText(std::string_view text, CATIDOMDocument_var& document,
                        CATXMLProblem& problem)
{
    try {
        DocumentReader reader;
        do {
            std::size_t size = 0;
            char* room = reader.Room(size);
            size = std::min(size, text.size());
            if (size > 0) {
                std::memcpy(room, text.data(), size);
            }
            text.remove_prefix(size);
            if (!reader.Take(size, text.empty())) {
                problem = reader.Problem();
                return E_FAIL;
            }
        } while (!text.empty());
        document = reader.Document();
        return S_OK;
    } catch (const std::bad_alloc&) {
        return Fail(problem, "there is not enough memory for the document");
    }
}

long Builder::ParseFile(const CATUnicodeString& path, CATIDOMDocument_var& document,
                        CATXMLProblem& problem)
{
    InputFile file(path.Text());
    const std::string name = path.ToStdString();
    if (!file.IsOpen()) {
        return Fail(problem, "cannot open " + name + ": " + ErrorText(errno));
    }
    try {
        DocumentReader reader;
        ProgressTeller progress(m_progress, file.Size());
        ssize_t got = 0;
        do {
            std::size_t size = 0;
            char* room = reader.Room(size);
            got = file.Read(room, size);
            if (got < 0) {
                return Fail(problem, "cannot read " + name + ": " + ErrorText(errno));
            }
            if (!reader.Take(static_cast<std::size_t>(got), got == 0)) {
                problem = reader.Problem();
                problem.sentence = name + ": " + problem.sentence;
                return E_FAIL;
            }
            progress.Add(static_cast<std::uint64_t>(got));
        } while (got > 0);
        progress.End();
        document = reader.Document();
        return S_OK;
    } catch (const std::bad_alloc&) {
        return Fail(problem, "there is not enough memory for " + name);
    }
}

std::string Builder::WriteText(const CATIDOMDocument_var& document)
{
    std::string text;
    WriteDocument(static_cast<const DomDocument&>(*document), [&text](std::string_view piece) {
        text += piece;
        return true;
    });
    return text;
}

long Builder::WriteToFile(const CATIDOMDocument_var& document, const CATUnicodeString& path,
                          const CATListValCATUnicodeString& optionNames,
                          const CATListValCATUnicodeString& optionValues, CATXMLProblem& problem)
{
    const std::optional<WriteOptions> options = ReadOptions(optionNames, optionValues);
    if (!options || document.IsNull()) {
        return E_INVALIDARG;
    }
    CATFileReplacement file(CATFilePath(path).ToStdString());
    ProgressTeller progress(m_progress, 0);
    const bool isWritten = file.Open() &&
                           WriteDocument(static_cast<const DomDocument&>(*document),
                                         [&file, &progress](std::string_view piece) {
                                             progress.Add(piece.size());
                                             return file.Write(piece);
                                         }) &&
                           file.Commit(options->isFlushed ? CATFileReplacement::Flush::Yes
                                                          : CATFileReplacement::Flush::No);
    if (!isWritten) {
        return Fail(problem, "cannot write " + path.ToStdString() + ": " + ErrorText(file.Error()));
    }
    progress.End();
    return S_OK;
}

} // namespace

CATIXMLDOMDocumentBuilder_var CreateCATIXMLDOMDocumentBuilder()
{
    return CATIXMLDOMDocumentBuilder_var::Adopt(new Builder);
}

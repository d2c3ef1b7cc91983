#include "Subcommands.h"

#include "CATCkeGlobalFunctions.h"
#include "CATCommandLoader.h"
#include "CATDiagnostics.h"
#include "CATIXMLDOMDocumentBuilder.h"
#include "CATNumberLocale.h"
#include "CATSettingRepository.h"
#include "CATWBVPMNavGUITable.h"
#include "PostponedEnd.h"
#include "ProgressBar.h"
#include "ReportArguments.h"
#include "ReportSize.h"
#include "ReportUnits.h"
#include "StandardOutput.h"

#include <unistd.h>

#include <cstdio>
#include <functional>
#include <utility>

namespace
{

using ConvertFunction = decltype(CATWBVPMNavGUITable::convertReport);

constexpr const char* kStandardStream = "-";
// The stream is a file too: it is read piece by piece, and sentences name it as any other.
constexpr const char* kStandardInput = "/dev/stdin";

constexpr int kFailed = 1;
constexpr int kWrongUse = 2;

void Tell(const std::string& sentence)
{
    std::fprintf(stderr, "wb: %s\n", sentence.c_str());
}

void TellUser(const CATUnicodeString& sentence)
{
    Tell(sentence.ToStdString());
}

int Refuse(int status, const std::string& problem)
{
    Tell(problem);
    return status;
}

/// The services of the module, which the program reaches through the panels' table alone; null,
/// with a sentence that names what is missing.
ConvertFunction LoadConversion(std::string& problem)
{
    CATUnicodeString reason;
    if (!CATLoadCompanion("CATWBVPMNavGUI", reason)) {
        problem = reason.ToStdString();
        return nullptr;
    }
    const CATWBVPMNavGUITable table = CATWBVPMNavGUISetTable({});
    CATWBVPMNavGUISetTable(table);
    return table.convertReport;
}

/// Counts, while it lives, the user-defined properties that the services could not treat. They say
/// so in the session's log, where a user looks only when told to.
class UntreatedProperties
{
public:
    UntreatedProperties() : m_before(CATDiagnosticOutput().SetListener({}))
    {
        CATDiagnosticOutput().SetListener([this](std::string_view line) { Hear(line); });
    }
    ~UntreatedProperties() { CATDiagnosticOutput().SetListener(std::move(m_before)); }
    UntreatedProperties(const UntreatedProperties&) = delete;
    UntreatedProperties& operator=(const UntreatedProperties&) = delete;

    std::size_t Count() const { return m_count; }

private:
    void Hear(std::string_view line)
    {
        if (line.starts_with("Error encountered: could not find the ")) {
            ++m_count;
        }
        if (m_before) {
            m_before(line);
        }
    }

    CATLineStream::Listener m_before;
    std::size_t m_count = 0;
};

ReportSize SizeOf(const CATIDOMDocument_var& document)
{
    const auto count = [&](const char* name) {
        return static_cast<std::size_t>(document->ElementsByTagName(name)->Length());
    };
    return {count("PRC"), count("PartInstance"), count("WB_Section")};
}

bool WriteToStandardOutput(const CATIXMLDOMDocumentBuilder_var& builder,
                           const CATIDOMDocument_var& document)
{
    const std::string text = builder->WriteText(document);
    return std::fwrite(text.data(), 1, text.size(), stdout) == text.size() &&
           std::fflush(stdout) == 0;
}

/// Reads, converts and writes one report, and shows on the terminal how far it is.
class Conversion
{
public:
    Conversion(const ConvertReportOptions& options, const CATWBReportConversion& what)
        : m_options(options),
          m_what(what),
          m_input(options.input == kStandardStream ? kStandardInput : options.input),
          // Diagnostic lines and a bar would write over each other.
          m_bar(isatty(STDERR_FILENO) != 0 && !options.session.verbose ? stderr : nullptr)
    {}

    /// False, with a sentence for the user.
    bool Read(std::string& problem)
    {
        ShowProgressAs("reading");
        CATXMLProblem wrong;
        if (m_builder->ParseFile(m_input, m_document, wrong) == S_OK) {
            TakeKind();
            return true;
        }
        problem = wrong.sentence.ToStdString();
        return false;
    }

    void Convert(ConvertFunction convert)
    {
        const std::vector<std::string> warnings = UnitWarnings(m_document, m_what.values);
        m_bar.Show("converting");
        const UntreatedProperties untreated;
        convert(m_document, m_what);
        m_bar.Clear();
        for (const std::string& warning : warnings) {
            Tell(m_input + ": " + warning);
        }
        if (untreated.Count() > 0) {
            Tell(m_input + ": " + Counted(untreated.Count(), "value") +
                 " of user-defined properties could not be converted; --verbose says why");
        }
    }

    bool Write(std::string& problem)
    {
        if (m_options.output == kStandardStream) {
            m_bar.Show("writing");
            problem = kStandardOutputProblem;
            return WriteToStandardOutput(m_builder, m_document);
        }
        // Whoever interrupts it finds no half report beside OUT.
        const PostponedEnd end;
        ShowProgressAs("writing", [&end] { end.LeaveWhenAsked(); });
        CATXMLProblem wrong;
        const bool isWritten =
            m_builder->WriteToFile(m_document, m_options.output, {}, {}, wrong) == S_OK;
        problem = wrong.sentence.ToStdString();
        return isWritten;
    }

    void SayWhatWasWritten()
    {
        m_bar.Clear();
        const ReportSize size = SizeOf(m_document);
        if (size.roots + size.instances + size.sections == 0) {
            Tell(m_input +
                 ": there is no PRC, PartInstance or WB_Section in it: nothing was converted");
        }
        if (m_options.output != kStandardStream) {
            std::printf("%s: %s\n", m_options.output.c_str(), InWords(size).c_str());
        }
    }

private:
    /// Reports that the server has made say so when they are distributive ones.
    void TakeKind()
    {
        CATUnicodeString kind;
        if (m_document->DocumentElement()->GetAttribute("Kind", kind) == S_OK &&
            kind == "distributive") {
            m_what.kind = CATWBReportConversion::Kind::Distributive;
        }
    }
    /// `then` is done each time that the stage has come further.
    void ShowProgressAs(
        const char* stage, std::function<void()> then = [] {})
    {
        m_bar.Show(stage);
        m_builder->SetProgress(
            [this, stage, then = std::move(then)](std::uint64_t done, std::uint64_t total) {
                m_bar.Show(stage, done, total);
                then();
            });
    }

    const ConvertReportOptions& m_options;
    CATWBReportConversion m_what;
    const std::string m_input; ///< a path
    CATIXMLDOMDocumentBuilder_var m_builder = CreateCATIXMLDOMDocumentBuilder();
    CATIDOMDocument_var m_document;
    ProgressBar m_bar;
};

/// The whole way from file to file. False, with a sentence, when a file cannot be read or written;
/// the terminal is free for it then.
bool ConvertFile(const ConvertReportOptions& options, const CATWBReportConversion& what,
                 ConvertFunction convert, std::string& problem)
{
    Conversion conversion(options, what);
    if (!conversion.Read(problem)) {
        return false;
    }
    conversion.Convert(convert);
    if (!conversion.Write(problem)) {
        return false;
    }
    conversion.SayWhatWasWritten();
    return true;
}

} // namespace

int RunConvertReport(const ConvertReportOptions& options)
{
    std::string problem;
    const std::optional<CATWBReportConversion> what = ReadReportConversion(options, problem);
    if (!what) {
        return Refuse(kWrongUse, problem);
    }
    const HostSession session(options.session, {});
    CATUseNumberLocale(""); // there is no toolkit that does it
    // The session's log is silent unless asked for; a bad units file must not be.
    CATCkeGlobalFunctions::ReportProblemsTo(TellUser);
    CATSettingRepository::ReportProblemsTo(TellUser);
    if (options.units && !UseReportUnits(*options.units, problem)) {
        return Refuse(kWrongUse, problem);
    }
    problem = ReferenceProblem(*what);
    if (!problem.empty()) {
        return Refuse(kWrongUse, problem);
    }
    const ConvertFunction convert = LoadConversion(problem);
    if (convert == nullptr) {
        return Refuse(kFailed, problem);
    }
    const std::string warning = what->axes ? AxesWarning(*what->axes) : std::string();
    if (!warning.empty()) {
        Tell(warning);
    }
    return ConvertFile(options, *what, convert, problem) ? 0 : Refuse(kFailed, problem);
}

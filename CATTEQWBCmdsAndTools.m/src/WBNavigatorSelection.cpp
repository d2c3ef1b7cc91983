#include "WBNavigatorSelection.h"

#include "WBPickedObject.h"

#include "CATWBVPMNavFilterPanel.h"

#include "CATDiagnostics.h"
#include "CATEnvironment.h"
#include "CATIPLMIdentificator.h"
#include "CATImmIdentifierAcquisitionAgent.h"
#include "CATPDMServices.h"
#include "CATToken.h"

#include <array>
#include <cstddef>
#include <vector>

namespace
{

constexpr const char* kSeparator = "|";
constexpr int kBehaviour = 0x40a40010; // takes several picked instances at once
// No product is as deep. A count beyond it is garbled and must cost neither time nor memory.
constexpr int kLongestPath = 100'000;

enum class TellOfEntry
{
    ClassName,
    Depths // and the class name of an object that cannot be identified
};
enum class Root
{
    Kept,    // by the command; it may be empty
    LookedUp // at every pick; without one nothing is asked
};
enum class EmptyPick
{
    Refused,
    Asked // the server is asked about nothing, and there are no records
};
enum class TellTexts
{
    Yes,
    No
};

struct Variant
{
    const char* sizeLine;
    const char* missingEntryLine;
    TellOfEntry tellOfEntry;
    Root root;
    EmptyPick emptyPick;
    TellTexts tellTexts;
};

// In the order of WBNavigatorCommand.
constexpr std::array kVariants{
    Variant{"Size of the list of selected objects: ", "pPathElement not valid at iteration ",
            TellOfEntry::Depths, Root::Kept, EmptyPick::Refused, TellTexts::Yes},
    Variant{"Object list's size: ", "pPath not valid at iteration ", TellOfEntry::ClassName,
            Root::LookedUp, EmptyPick::Asked, TellTexts::No},
    Variant{"Object list's size: ", "pPath not valid at iteration ", TellOfEntry::ClassName,
            Root::LookedUp, EmptyPick::Asked, TellTexts::No},
};

const Variant& VariantOf(WBNavigatorCommand command)
{
    return kVariants[static_cast<std::size_t>(command)];
}

/// How deep the path stands now, on its top and on its leaf, where it stays.
void TellDepths(CATPathElement& path)
{
    CATDiagnosticOutput().Line("pathDepth originally: ", path.Position());
    path.InitToTopElement();
    CATDiagnosticOutput().Line("pathDepth after InitToTopElement: ", path.Position());
    path.InitToLeafElement();
    CATDiagnosticOutput().Line("pathDepth after InitToLeafElement: ", path.Position());
}

/// Appends what the PDM calls the picked object, when it is an item instance that it knows.
void TakeEntry(const Variant& variant, const CATPathElement_var& path, int iteration,
               CATListIdentificators& identificators)
{
    if (path.IsNull()) {
        CATDiagnosticOutput().Line(variant.missingEntryLine, iteration);
        return;
    }
    const auto object = path->Search<CATBaseUnknown>();
    if (!WBIsItemInstance(object)) {
        CATDiagnosticOutput().Line("pElem not valid at iteration ", iteration);
        return;
    }
    if (variant.tellOfEntry == TellOfEntry::ClassName) {
        CATDiagnosticOutput().Line("pElem is a: ", object->ClassName());
    } else {
        TellDepths(*path);
    }
    const CATIPLMIdentificator_var identificator =
        CATPDMNavServices::ExtractEnoviaIdFromNav(object);
    if (!identificator.IsNull()) {
        identificators.Append(identificator);
    } else if (variant.tellOfEntry == TellOfEntry::Depths) {
        CATDiagnosticOutput().Line("skipping this: ", object->ClassName());
    }
}

CATListIdentificators TakePick(const Variant& variant, CATPathElementAgent& agent)
{
    const std::vector<CATPathElement_var> picked = agent.GetListOfValues();
    agent.InitializeAcquisition(); // at once: the next pick starts from an empty set
    CATListIdentificators identificators;
    if (picked.empty()) {
        CATDiagnosticOutput().Line("Nothing could be retrieved from the acq agent!");
        return identificators;
    }
    CATDiagnosticOutput().Line(variant.sizeLine, picked.size());
    int iteration = 0;
    for (const CATPathElement_var& path : picked) {
        TakeEntry(variant, path, iteration, identificators);
        ++iteration;
    }
    return identificators;
}

/// The identifier of the navigator's current root; empty when there is no root or it has none.
CATUnicodeString LookUpRoot()
{
    CATListValCATUnicodeString names;
    CATListValCATUnicodeString values;
    CATUnicodeString type;
    if (CATImmCAAServices::GetCurrentRootIdentifiers(names, values, type) != S_OK) {
        return {};
    }
    CATDiagnosticOutput().Line("_RootType: ", type);
    CATDiagnosticOutput().Line("rootType2: ", CATImmCAAServices::GetCurrentRootType());
    CATUnicodeString identifier;
    WBFindRootIdentifier(names, values, identifier); // stays empty when there is none
    return identifier;
}

/// 0 for a text that is no number, and for a number that cannot be that of a path's names.
int PathCount(const CATUnicodeString& text)
{
    int count = 0;
    text.ReadInt(count);
    return count < 0 || count > kLongestPath ? 0 : count;
}

WBNavigatorRecord ReadRecord(CATToken& fields, bool hasPartName)
{
    WBNavigatorRecord record;
    fields.GetNextToken(kSeparator); // whether there are instances below it: nobody asks
    record.instance = fields.GetNextToken(kSeparator);
    record.part = fields.GetNextToken(kSeparator);
    record.version = fields.GetNextToken(kSeparator);
    record.count = PathCount(fields.GetNextToken(kSeparator));
    for (int position = 1; position <= record.count; ++position) {
        if (position > 1) {
            record.path += kSeparator;
        }
        record.path += fields.GetNextToken(kSeparator);
    }
    if (hasPartName) {
        record.partName = fields.GetNextToken(kSeparator);
    }
    return record;
}

} // namespace

CATImmIdentifierAcquisitionAgent* WBMakeNavigatorAgent()
{
    auto* agent = new CATImmIdentifierAcquisitionAgent(0); // handed over
    agent->SetBehaviour(kBehaviour);
    return agent;
}

bool WBNavigatorSelection::Ask(CATPathElementAgent& agent,
                               const CATUnicodeString& keptRootIdentifier)
{
    const Variant& variant = VariantOf(m_command);
    m_recordCount = 0;
    CATListIdentificators identificators = TakePick(variant, agent);
    if (variant.emptyPick == EmptyPick::Refused && identificators.IsEmpty()) {
        CATDiagnosticOutput().Line("No ids in the list - returning here");
        return false;
    }
    if (variant.root == Root::Kept) {
        m_rootIdentifier = keptRootIdentifier;
    } else {
        m_rootIdentifier = LookUpRoot();
        if (m_rootIdentifier.IsEmpty()) {
            return false;
        }
    }
    const CATUnicodeString input =
        m_rootIdentifier + kSeparator + CATWBVPMNavFilterPanel::selectedPRCConfigHandler;
    if (variant.tellTexts == TellTexts::Yes) {
        CATDiagnosticOutput().Line("inputString: ", input);
    }
    const WBObjectServiceAnswer answer = WBAskObjectService(identificators, input);
    return TakeAnswer(answer, identificators.Size()); // the service keeps one for each record
}

bool WBNavigatorSelection::TakeAnswer(const WBObjectServiceAnswer& answer, int recordCount)
{
    m_recordCount = 0;
    if (answer.status != S_OK) {
        return false;
    }
    if (answer.text) {
        m_answer = *answer.text;
        m_recordCount = recordCount;
        if (VariantOf(m_command).tellTexts == TellTexts::Yes) {
            CATDiagnosticOutput().Line("Filter:  usReturnString:", m_answer);
        }
    }
    return true;
}

bool WBNavigatorSelection::HandRecordsTo(
    const std::function<bool(const WBNavigatorRecord&)>& consumer) const
{
    // The service was told by the same variable whether to send the part's name. A server that
    // sends it all the same shifts every record behind the first by one field.
    const bool hasPartName = CATGetEnv("KR4_DA_FOR_CGR") == nullptr;
    CATToken fields(m_answer);
    for (int position = 1; position <= m_recordCount; ++position) {
        if (!consumer(ReadRecord(fields, hasPartName))) {
            return false;
        }
    }
    return true;
}

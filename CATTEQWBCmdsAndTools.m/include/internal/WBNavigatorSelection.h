#pragma once

#include "WBObjectService.h"

#include "CATUnicodeString.h"

#include <functional>

class CATImmIdentifierAcquisitionAgent;
class CATPathElementAgent;

/// The agent that waits for picked item instances, several at a time. It has no parent: the caller
/// asks for its destruction.
CATImmIdentifierAcquisitionAgent* WBMakeNavigatorAgent();

/// Which command asks about a pick; see the table in the source file for what that changes.
enum class WBNavigatorCommand
{
    DefineFilter,
    Report,
    Group
};

/// What the PDM says about one picked item instance.
struct WBNavigatorRecord
{
    CATUnicodeString instance;
    CATUnicodeString part;
    CATUnicodeString version;
    CATUnicodeString path;     ///< instance names from the parent up, joined by "|"
    int count = 0;             ///< how many names the path has
    CATUnicodeString partName; ///< empty with "KR4_DA_FOR_CGR" in the environment
};

/// From a pick in the navigator's tree to what the PDM says about each picked item instance: the
/// routine that the commands of the navigator share. It speaks to developers alone, on the
/// diagnostic output.
class WBNavigatorSelection
{
public:
    explicit WBNavigatorSelection(WBNavigatorCommand command) : m_command(command) {}

    /// Takes the picked objects from the agent, which is empty afterwards and ready for the next
    /// pick, and asks the PDM about those that are item instances. The define-filter command gives
    /// the root's identifier, which it keeps; for the others it is looked up. False when the PDM
    /// could not be asked or did not answer; true otherwise, however many records there are.
    bool Ask(CATPathElementAgent& agent, const CATUnicodeString& keptRootIdentifier = {});
    /// Takes what the service said of so many objects, as Ask does. False when it failed; without
    /// an answer there are no records.
    bool TakeAnswer(const WBObjectServiceAnswer& answer, int recordCount);
    /// Hands the records on in pick order until the consumer answers false. True when it took them
    /// all.
    bool HandRecordsTo(const std::function<bool(const WBNavigatorRecord&)>& consumer) const;
    /// The identifier of the root that the pick was asked about.
    const CATUnicodeString& RootIdentifier() const { return m_rootIdentifier; }

private:
    WBNavigatorCommand m_command;
    CATUnicodeString m_rootIdentifier;
    CATUnicodeString m_answer;
    int m_recordCount = 0; // 0 as long as nothing was answered
};

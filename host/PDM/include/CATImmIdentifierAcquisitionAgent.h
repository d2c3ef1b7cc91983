#pragma once

#include "CATDialogAgent.h"
#include "CATIPLMIdentificator.h"

/// Waits for picks in the navigator.
class WB_EXPORT CATImmIdentifierAcquisitionAgent : public CATPathElementAgent
{
public:
    /// `option` is the behaviour word to begin with.
    explicit CATImmIdentifierAcquisitionAgent(int option = 0);
    const char* ClassName() const override;

    /// The type of the picked node behind the family it belongs to ("Item/ENOVIA_VPMItemInstance");
    /// empty when nothing is picked or the object has no type.
    CATUnicodeString GetType() const;
    /// Null when nothing is picked or the object is no node of the navigator.
    CATIPLMIdentificator_var GetIdentificator() const;
    /// The picked node's part identifier and version, in this order. E_FAIL, with the output
    /// untouched, when nothing is picked or the object has no such attributes.
    long GetIdentifiers(CATListValCATUnicodeString& values) const;
};

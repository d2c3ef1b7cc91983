#pragma once

#include "CATBaseUnknown.h"
#include "CATCollections.h"
#include "CATHandle.h"
#include "CATUnicodeString.h"

/// Which object of the PDM is meant: the root's part number and the instance names from the root
/// down.
class WB_EXPORT CATIPLMIdentificator : public CATBaseUnknown
{
public:
    explicit CATIPLMIdentificator(CATUnicodeString text) : m_text(std::move(text)) {}
    const char* ClassName() const override;
    /// The names joined by "|", the root first.
    const CATUnicodeString& Text() const { return m_text; }

private:
    CATUnicodeString m_text;
};
using CATIPLMIdentificator_var = CATHandle<CATIPLMIdentificator>;
using CATListIdentificators = CATList<CATIPLMIdentificator_var>;

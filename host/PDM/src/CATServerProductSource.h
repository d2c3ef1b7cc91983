#pragma once

#include "CATProductSource.h"

/// The server's products. A read that fails gives no rows, and the user is told a sentence.
class CATServerProductSource : public CATProductSource
{
public:
    std::vector<CATProductRow> Roots() override;
    std::vector<CATProductRow> Uses(const CATUnicodeString& part,
                                    const CATUnicodeString& version) override;
};

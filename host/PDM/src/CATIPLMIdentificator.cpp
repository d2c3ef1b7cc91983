#include "CATIPLMIdentificator.h"

const char* CATIPLMIdentificator::ClassName() const
{
    return "CATIPLMIdentificator";
}

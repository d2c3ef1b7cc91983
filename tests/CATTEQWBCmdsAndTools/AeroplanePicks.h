#pragma once

#include "ComputePart/PickedProducts.h"

#include <map>
#include <memory>
#include <string>

/// What the user picks of the aeroplane, and what the server says about it.

// The records of the aeroplane's three item instances.
constexpr const char* kFuselage = "1|FUS-000.1|FUS-000|A|0|Fuselage|";
constexpr const char* kForward = "1|FUS-100.1|FUS-100|A|1|FUS-000.1|Forward section|";
constexpr const char* kFirewall = "0|FUS-110.1|FUS-110|B|2|FUS-100.1|FUS-000.1|Firewall|";

inline void OpenAeroplane()
{
    CATNavigator::Open(std::make_shared<AeroplaneSource>(),
                       AeroplaneSource::Row("LA1", "LA1", true));
}

inline CATPathElement_var PathToFuselage()
{
    return PathTo(CATNavigator::Find({"FUS-000.1"}));
}

inline CATPathElement_var PathToForward()
{
    return PathTo(CATNavigator::Find({"FUS-000.1", "FUS-100.1"}));
}

inline CATPathElement_var PathToFirewall()
{
    return PathTo(CATNavigator::Find({"FUS-000.1", "FUS-100.1", "FUS-110.1"}));
}

/// A path to something that the tree shows and the PDM does not know.
inline CATPathElement_var PathToStranger(const std::map<std::string, std::string>& attributes)
{
    return CATPathElement_var::Adopt(
        new CATPathElement({CATBaseUnknown_var::Adopt(new FakeTreeObject(attributes))}));
}

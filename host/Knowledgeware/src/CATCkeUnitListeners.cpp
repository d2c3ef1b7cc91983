#include "CATCkeUnitListeners.h"

#include <map>
#include <memory>
#include <utility>
#include <vector>

namespace
{

using UnitListener = CATCkeGlobalFunctions::UnitListener;

/// By number, and so in the order in which they came. Shared, so that one lives on while it runs,
/// whoever removes it meanwhile.
std::map<int, std::shared_ptr<const UnitListener>>& Listeners()
{
    static std::map<int, std::shared_ptr<const UnitListener>> listeners;
    return listeners;
}

std::vector<int> Numbers()
{
    std::vector<int> numbers;
    numbers.reserve(Listeners().size());
    for (const auto& [number, listener] : Listeners()) {
        numbers.push_back(number);
    }
    return numbers;
}

} // namespace

int CATCkeAddUnitListener(UnitListener listener)
{
    static int lastNumber = 0;
    if (!listener) {
        return 0;
    }
    // Numbers are not used again: who removes a listener twice cannot remove another's.
    Listeners().emplace(++lastNumber, std::make_shared<const UnitListener>(std::move(listener)));
    return lastNumber;
}

void CATCkeRemoveUnitListener(int number)
{
    Listeners().erase(number);
}

void CATCkeTellUnitListeners(const CATICkeMagnitude_var& magnitude)
{
    for (const int number : Numbers()) {
        const auto found = Listeners().find(number);
        if (found != Listeners().end()) {
            const std::shared_ptr<const UnitListener> listener = found->second;
            (*listener)(magnitude);
        }
    }
}

#include "WBNavigatorPlaces.h"

#include "CATNavigator.h"

#include <algorithm>

WBProductPlace WBFindInNavigator(const CATUnicodeString& rootIdentifier,
                                 const std::vector<CATUnicodeString>& names)
{
    CATNavigatorNode_var node = CATNavigator::CurrentRoot();
    if (node.IsNull() || !(node->Row().part == rootIdentifier)) {
        return {};
    }
    for (const CATUnicodeString& name : names) {
        const auto& children = node->Children();
        const auto child = std::ranges::find_if(
            children, [&](const CATNavigatorNode_var& use) { return use->Row().instance == name; });
        if (child == children.end()) {
            // An assembly without anything below it is one that the server did not tell about.
            const bool isUnknown = children.empty() && node->Row().hasUses;
            return {isUnknown ? WBProductPlace::State::Unknown : WBProductPlace::State::Gone,
                    {},
                    {},
                    {}};
        }
        node = *child;
    }
    const CATProductRow& row = node->Row();
    return {WBProductPlace::State::There, row.part, row.version, row.name};
}

bool WBIsOtherRootOpen(const CATUnicodeString& rootIdentifier)
{
    const CATNavigatorNode_var root = CATNavigator::CurrentRoot();
    return !root.IsNull() && !(root->Row().part == rootIdentifier);
}

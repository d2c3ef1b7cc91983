#include "WBFilterDrafts.h"

#include <utility>

WBFilterDrafts::WBFilterDrafts(CATCommand* parent) : CATCommand(parent, "WBFilterDrafts")
{}

WBFilterDrafts* WBFilterDrafts::Below(CATCommand* parent)
{
    if (parent == nullptr) {
        return nullptr; // there is nobody who would own it
    }
    for (int position = 1; position <= parent->ChildCount(); ++position) {
        if (auto* drafts = dynamic_cast<WBFilterDrafts*>(parent->Child(position))) {
            return drafts;
        }
    }
    return new WBFilterDrafts(parent); // the parent owns it
}

const char* WBFilterDrafts::ClassName() const
{
    return "WBFilterDrafts";
}

void WBFilterDrafts::Put(const CATUnicodeString& root, WBFilterSet set)
{
    m_drafts[root.ToStdString()] = std::move(set);
}

std::optional<WBFilterSet> WBFilterDrafts::Take(const CATUnicodeString& root)
{
    const auto found = m_drafts.find(root.View());
    if (found == m_drafts.end()) {
        return std::nullopt;
    }
    std::optional<WBFilterSet> set = std::move(found->second);
    m_drafts.erase(found);
    return set;
}

#include "WBGroupDrafts.h"

WBGroupDrafts::WBGroupDrafts(CATCommand* parent) : CATCommand(parent, "WBGroupDrafts")
{}

WBGroupDrafts* WBGroupDrafts::Below(CATCommand* parent)
{
    if (parent == nullptr) {
        return nullptr; // there is nobody who would own it
    }
    for (int position = 1; position <= parent->ChildCount(); ++position) {
        if (auto* drafts = dynamic_cast<WBGroupDrafts*>(parent->Child(position))) {
            return drafts;
        }
    }
    return new WBGroupDrafts(parent); // the parent owns it
}

const char* WBGroupDrafts::ClassName() const
{
    return "WBGroupDrafts";
}

void WBGroupDrafts::Put(WBGroupKind kind, const CATUnicodeString& root, WBStoredGroup group)
{
    m_drafts[{kind, root.ToStdString()}] = std::move(group);
}

std::optional<WBStoredGroup> WBGroupDrafts::Take(WBGroupKind kind, const CATUnicodeString& root)
{
    const auto found = m_drafts.find({kind, root.ToStdString()});
    if (found == m_drafts.end()) {
        return std::nullopt;
    }
    std::optional<WBStoredGroup> group = std::move(found->second);
    m_drafts.erase(found);
    return group;
}

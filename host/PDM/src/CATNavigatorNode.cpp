#include "CATNavigator.h"

#include <array>

CATISpecAttrAccess::~CATISpecAttrAccess() = default;

namespace
{
struct AttributeRow
{
    std::string_view name;
    CATUnicodeString CATProductRow::*value;
};

constexpr std::array kAttributes{
    AttributeRow{"V_ID", &CATProductRow::part},
    AttributeRow{"V_version", &CATProductRow::version},
    AttributeRow{"V_Name", &CATProductRow::name},
    AttributeRow{"Instance", &CATProductRow::instance},
};
} // namespace

CATNavigatorNode::CATNavigatorNode(std::shared_ptr<CATProductSource> source,
                                   CATNavigatorNode* parent, CATProductRow row)
    : m_source(std::move(source)), m_parent(parent), m_row(std::move(row))
{}

const char* CATNavigatorNode::ClassName() const
{
    return "CATNavigatorNode";
}

long CATNavigatorNode::GetString(const CATUnicodeString& attribute, CATUnicodeString& value) const
{
    if (attribute == "Type") {
        value = IsRoot() ? "ENOVIA_VPMItem" : "ENOVIA_VPMItemInstance";
        return S_OK;
    }
    for (const AttributeRow& row : kAttributes) {
        if (attribute.View() == row.name) {
            value = m_row.*row.value;
            return S_OK;
        }
    }
    return S_FALSE;
}

const std::vector<CATHandle<CATNavigatorNode>>& CATNavigatorNode::Children()
{
    // A source that gave nothing for a part that has uses has failed (the server was away): the
    // node stays as if nobody had looked, so that the next look asks again. A node that has left
    // the navigator has let its source go and reads no more.
    if (m_children.empty() && m_row.hasUses && m_source != nullptr) {
        for (CATProductRow& use : m_source->Uses(m_row.part, m_row.version)) {
            // Counted: its last handle frees it.
            m_children.push_back(
                CATNavigatorNode_var::Adopt(new CATNavigatorNode(m_source, this, std::move(use))));
        }
    }
    return m_children;
}

CATListValCATUnicodeString CATNavigatorNode::PathNames() const
{
    CATListValCATUnicodeString names;
    if (!IsRoot()) {
        names = m_parent->PathNames();
    }
    names.Append(IsRoot() ? m_row.part : m_row.instance);
    return names;
}

void CATNavigatorNode::LeaveNavigator()
{
    // The children hold their parents; letting the children go is what ends that circle.
    m_source.reset();
    for (const CATNavigatorNode_var& child : std::exchange(m_children, {})) {
        child->LeaveNavigator();
    }
}

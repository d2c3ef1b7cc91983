#include "CATNavigator.h"

#include "CATServerProductSource.h"

#include <algorithm>

/// The open root. The tree below it comes apart when another takes its place, and at the end of the
/// program.
class CATNavigatorSession
{
public:
    static CATNavigatorSession& Current()
    {
        static CATNavigatorSession session;
        return session;
    }
    CATNavigatorSession() = default;
    CATNavigatorSession(const CATNavigatorSession&) = delete;
    CATNavigatorSession& operator=(const CATNavigatorSession&) = delete;
    ~CATNavigatorSession() { Replace({}); }

    const CATNavigatorNode_var& Root() const { return m_root; }
    void Replace(CATNavigatorNode_var root)
    {
        const CATNavigatorNode_var former = std::exchange(m_root, std::move(root));
        if (!former.IsNull()) {
            former->LeaveNavigator();
        }
    }

private:
    CATNavigatorNode_var m_root;
};

std::shared_ptr<CATProductSource> CATNavigator::ServerSource()
{
    return std::make_shared<CATServerProductSource>();
}

CATNavigatorNode_var CATNavigator::Open(std::shared_ptr<CATProductSource> source,
                                        const CATProductRow& root)
{
    if (source == nullptr) {
        return {};
    }
    // Counted: its last handle frees it.
    auto node = CATNavigatorNode_var::Adopt(new CATNavigatorNode(std::move(source), nullptr, root));
    CATNavigatorSession::Current().Replace(node);
    return node;
}

CATNavigatorNode_var CATNavigator::CurrentRoot()
{
    return CATNavigatorSession::Current().Root();
}

void CATNavigator::Close()
{
    CATNavigatorSession::Current().Replace({});
}

CATNavigatorNode_var CATNavigator::Find(const CATListValCATUnicodeString& instanceNames)
{
    CATNavigatorNode_var node = CurrentRoot();
    for (const CATUnicodeString& name : instanceNames.Items()) {
        if (node.IsNull()) {
            break;
        }
        const std::vector<CATNavigatorNode_var>& children = node->Children();
        const auto child =
            std::ranges::find_if(children, [&name](const CATNavigatorNode_var& candidate) {
                return candidate->Row().instance == name;
            });
        node = child == children.end() ? CATNavigatorNode_var() : *child;
    }
    return node;
}

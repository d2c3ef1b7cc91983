#include "XMLTestSupport.h"

#include <algorithm>
#include <map>
#include <memory>
#include <random>

namespace
{

std::string Values(const CATIDOMNodeList_var& list)
{
    std::string values;
    for (int index = 0; index < list->Length(); ++index) {
        values += list->Item(index)->AsElement()->AttributeText(0);
    }
    return values;
}

constexpr const char* kTree =
    "<r i=\"0\"><a i=\"1\"><b i=\"2\"/><a i=\"3\"/></a><b i=\"4\"/><a i=\"5\"/></r>";

TEST(CATIDOMNodeList, GivesNullOutsideItsRange)
{
    const CATIDOMNodeList_var list = Parsed(kTree)->ElementsByTagName("a");
    EXPECT_TRUE(list->Item(3).IsNull());
    EXPECT_TRUE(list->Item(-1).IsNull());
    EXPECT_EQ(list->Length(), 3);
    EXPECT_TRUE(list->Item(3).IsNull());
    EXPECT_FALSE(list->Item(2).IsNull());
    EXPECT_STREQ(list->ClassName(), "CATIDOMNodeList");
}

TEST(CATIDOMNodeList, KnowsItsDocument)
{
    const CATIDOMDocument_var document = Parsed(kTree);
    EXPECT_TRUE(document->ElementsByTagName("a")->OwnerDocument() == document);
    EXPECT_TRUE(document->DocumentElement()->ChildNodes()->OwnerDocument() == document);
}

TEST(CATIDOMNodeList, ReadsInAnyDirection)
{
    const CATIDOMNodeList_var list = Parsed(kTree)->ElementsByTagName("*");
    constexpr std::array kOrder{0, 5, 4, 3, 2, 1, 0, 3, 3, 5, 1, 4};
    for (const int index : kOrder) {
        EXPECT_EQ(list->Item(index)->AsElement()->AttributeText(0), std::to_string(index));
    }
}

TEST(CATIDOMNodeList, FollowsWhatComesAndGoes)
{
    const CATIDOMDocument_var document = Parsed(kTree);
    const CATIDOMNodeList_var list = document->ElementsByTagName("a");
    const CATIDOMNode_var second = list->Item(1);
    EXPECT_EQ(Values(list), "135");
    const CATIDOMElement_var added = document->CreateElement("a");
    added->SetAttribute("i", "6");
    second->AppendChild(added);
    EXPECT_EQ(Values(list), "1365");
    EXPECT_TRUE(list->Item(1) == second);
    document->DocumentElement()->InsertBefore(added, document->DocumentElement()->FirstChild());
    EXPECT_EQ(Values(list), "6135");
    EXPECT_TRUE(list->Item(2) == second);
    document->DocumentElement()->RemoveChild(second->ParentNode());
    EXPECT_EQ(Values(list), "65");
}

TEST(CATIDOMNodeList, AttributesThatAreRewrittenChangeNoList)
{
    const CATIDOMDocument_var document = Parsed(kTree);
    const CATIDOMNodeList_var list = document->ElementsByTagName("a");
    for (int index = 0; index < list->Length(); ++index) {
        list->Item(index)->AsElement()->SetAttribute("i", "9");
        list->Item(index)->AsElement()->SetAttribute("new", "9");
    }
    EXPECT_EQ(Values(list), "999");
}

TEST(CATIDOMNodeList, ListInATreeThatWasTakenOutLivesOn)
{
    const CATIDOMDocument_var document = Parsed(kTree);
    const CATIDOMNode_var first = Find(document, "a");
    const CATIDOMNodeList_var list = first->AsElement()->ElementsByTagName("*");
    const CATIDOMNodeList_var children = first->ChildNodes();
    EXPECT_EQ(list->Length(), 2);
    document->DocumentElement()->RemoveChild(first);
    EXPECT_EQ(Values(list), "23");
    first->RemoveChild(list->Item(0));
    EXPECT_EQ(Values(list), "3");
    EXPECT_EQ(Values(children), "3");
}

TEST(CATIDOMNodeList, ListOfChildrenHoldsItsNode)
{
    const CATIDOMDocument_var document = Parsed(kTree);
    const CATIDOMNodeList_var list = Find(document, "a")->ChildNodes();
    document->DocumentElement()->RemoveChild(Find(document, "a"));
    EXPECT_EQ(Values(list), "23");
    EXPECT_TRUE(list->Item(0)->ParentNode()->ParentNode().IsNull());
}

TEST(CATIDOMNodeList, ManyListsFollowTheSameDocument)
{
    const CATIDOMDocument_var document = Parsed(kTree);
    std::vector<CATIDOMNodeList_var> lists;
    for (int count = 0; count < 1000; ++count) {
        lists.push_back(document->ElementsByTagName("a"));
        EXPECT_EQ(lists.back()->Length(), 3);
    }
    document->DocumentElement()->RemoveChild(lists.front()->Item(2));
    for (const CATIDOMNodeList_var& list : lists) {
        EXPECT_EQ(Values(list), "13");
    }
    // The first, the last and one in the middle go before the others.
    lists.erase(lists.begin() + 500);
    lists.erase(lists.begin());
    lists.pop_back();
    document->DocumentElement()->RemoveChild(lists.front()->Item(0));
    for (const CATIDOMNodeList_var& list : lists) {
        EXPECT_EQ(list->Length(), 0);
    }
}

// A second tree of our own, as plain as can be, that every change is made in as well. Handles are
// held on the tops of trees alone; what is below is looked for where the plain tree says it is.
struct Model
{
    std::string name;
    int id = 0;
    Model* parent = nullptr;
    std::vector<Model*> children;
};

bool IsInside(const Model* node, const Model* ancestor)
{
    while (node != nullptr && node != ancestor) {
        node = node->parent;
    }
    return node != nullptr;
}

// Long for some, so that texts in and out of place are used.
std::string TextOf(const Model& model)
{
    return std::to_string(model.id) + std::string(static_cast<std::size_t>(model.id % 40), '.');
}

class Twins
{
public:
    explicit Twins(unsigned seed) : m_random(seed)
    {
        CreateCATIXMLDOMDocumentBuilder()->CreateDocument("r", m_document);
        Add("r", m_document->DocumentElement());
    }

    void Change()
    {
        Model* node = Any();
        switch (Draw(8)) {
        case 0:
        case 1:
        case 2:
            Insert(New(), node);
            return;
        case 3:
            Remove(node);
            return;
        case 4:
        case 5:
            Insert(Any(), node);
            return;
        case 6:
            Follow(node);
            return;
        default:
            ForgetList();
            ForgetTree(node);
        }
    }

    // Asks one list for a few places, as somebody who walks along it does, or jumps.
    void Ask()
    {
        if (m_lists.empty()) {
            return;
        }
        const Followed& followed = m_lists[Draw(m_lists.size())];
        const std::vector<const Model*> expected = Members(followed);
        const int size = static_cast<int>(expected.size());
        if (Draw(2) == 0) {
            ASSERT_EQ(followed.list->Length(), size);
        }
        int index = static_cast<int>(Draw(expected.size() + 2)) - 1;
        const int step = static_cast<int>(Draw(3)) - 1;
        for (int count = 0; count < 4; ++count, index += step) {
            const CATIDOMNode_var node = followed.list->Item(index);
            ASSERT_EQ(node.IsNull(), index < 0 || index >= size);
            if (node) {
                ASSERT_EQ(node->AsElement()->AttributeText(0),
                          TextOf(*expected[static_cast<std::size_t>(index)]));
            }
        }
        if (Draw(2) == 0) {
            ASSERT_EQ(followed.list->Length(), size);
        }
    }

    // All trees, forwards and backwards.
    void CompareTrees() const
    {
        for (const auto& model : m_models) {
            const CATIDOMNode_var node = HandleOn(*model);
            ASSERT_EQ(node->NodeName(), model->name);
            ASSERT_EQ(node->AsElement()->AttributeText(0), TextOf(*model));
            ASSERT_EQ(node->ChildNodes()->Length(), static_cast<int>(model->children.size()));
            CATIDOMNode_var child = node->LastChild();
            for (auto expected = model->children.rbegin(); expected != model->children.rend();
                 ++expected) {
                ASSERT_TRUE(child == HandleOn(**expected));
                ASSERT_TRUE(child->ParentNode() == node);
                child = child->PreviousSibling();
            }
            ASSERT_TRUE(child.IsNull());
        }
    }

private:
    enum class Kind
    {
        Children,
        Named,
        All
    };
    struct Followed
    {
        CATIDOMNodeList_var list;
        const Model* root;
        Kind kind;
        std::string name;
    };

    std::size_t Draw(std::size_t below)
    {
        return std::uniform_int_distribution<std::size_t>(0, below - 1)(m_random);
    }
    Model* Any() { return m_models[Draw(m_models.size())].get(); }
    std::string AnyName() { return std::string(1, "abc"[Draw(3)]); }

    CATIDOMNode_var HandleOn(const Model& model) const
    {
        if (model.parent == nullptr) {
            return m_tops.at(model.id);
        }
        CATIDOMNode_var node = HandleOn(*model.parent)->FirstChild();
        for (const Model* sibling : model.parent->children) {
            if (sibling == &model) {
                break;
            }
            node = node->NextSibling();
        }
        return node;
    }
    Model* Add(const std::string& name, const CATIDOMElement_var& element)
    {
        m_models.push_back(std::make_unique<Model>());
        Model* model = m_models.back().get();
        model->name = name;
        model->id = ++m_lastId;
        element->SetAttribute("i", TextOf(*model));
        m_tops[model->id] = element;
        return model;
    }
    Model* New()
    {
        const std::string name = AnyName();
        return Add(name, m_document->CreateElement(name));
    }
    static void TakeOut(Model* node)
    {
        if (node->parent != nullptr) {
            std::erase(node->parent->children, node);
            node->parent = nullptr;
        }
    }
    void Insert(Model* node, Model* under)
    {
        const auto& before = under->children;
        Model* place = before.empty() || Draw(3) == 0 ? nullptr : before[Draw(before.size())];
        const bool isAllowed = !IsInside(under, node);
        ASSERT_EQ(HandleOn(*under)->InsertBefore(
                      HandleOn(*node), place == nullptr ? CATIDOMNode_var() : HandleOn(*place)),
                  isAllowed ? S_OK : E_INVALIDARG);
        if (isAllowed && place != node) {
            TakeOut(node);
            auto& children = under->children;
            children.insert(std::find(children.begin(), children.end(), place), node);
            node->parent = under;
            m_tops.erase(node->id);
        }
    }
    void Remove(Model* node)
    {
        if (node->parent != nullptr) {
            const CATIDOMNode_var handle = HandleOn(*node);
            ASSERT_EQ(HandleOn(*node->parent)->RemoveChild(handle), S_OK);
            TakeOut(node);
            m_tops[node->id] = handle;
        }
    }
    void Follow(const Model* node)
    {
        const auto kind = static_cast<Kind>(Draw(3));
        const std::string name = kind == Kind::All ? "*" : AnyName();
        const CATIDOMElement_var element = HandleOn(*node);
        m_lists.push_back(
            {kind == Kind::Children ? element->ChildNodes() : element->ElementsByTagName(name),
             node, kind, name});
    }
    void ForgetList()
    {
        if (m_lists.size() > 20) {
            m_lists.erase(m_lists.begin() + static_cast<std::ptrdiff_t>(Draw(m_lists.size())));
        }
    }
    // The handle on a tree's top goes, and the tree with it, where no list holds a part of it.
    void ForgetTree(const Model* node)
    {
        while (node->parent != nullptr) {
            node = node->parent;
        }
        const bool isListed =
            std::any_of(m_lists.begin(), m_lists.end(),
                        [node](const Followed& followed) { return IsInside(followed.root, node); });
        const auto isPart = [node](const auto& model) {
            return IsInside(model.get(), node);
        };
        const auto parts = std::count_if(m_models.begin(), m_models.end(), isPart);
        if (isListed || 2 * parts > static_cast<std::ptrdiff_t>(m_models.size())) {
            return;
        }
        m_tops.erase(node->id);
        const auto middle = std::stable_partition(
            m_models.begin(), m_models.end(), [&](const auto& model) { return !isPart(model); });
        m_models.erase(middle, m_models.end());
    }
    static void Collect(const Model& root, const Followed& followed,
                        std::vector<const Model*>& members)
    {
        for (const Model* child : root.children) {
            if (followed.kind != Kind::Named || child->name == followed.name) {
                members.push_back(child);
            }
            if (followed.kind != Kind::Children) {
                Collect(*child, followed, members);
            }
        }
    }
    static std::vector<const Model*> Members(const Followed& followed)
    {
        std::vector<const Model*> members;
        Collect(*followed.root, followed, members);
        return members;
    }

    std::mt19937 m_random;
    CATIDOMDocument_var m_document;
    std::vector<std::unique_ptr<Model>> m_models;
    std::map<int, CATIDOMNode_var> m_tops;
    std::vector<Followed> m_lists;
    int m_lastId = 0;
};

TEST(CATIDOMNodeList, AgreesWithAPlainTreeUnderAnyChanges)
{
    const unsigned first = std::random_device()();
    for (unsigned round = 0; round < 30; ++round) {
        SCOPED_TRACE("seed " + std::to_string(first + round));
        Twins twins(first + round);
        for (int count = 0; count < 600; ++count) {
            twins.Change();
            twins.Ask();
            ASSERT_FALSE(testing::Test::HasFatalFailure());
        }
        twins.CompareTrees();
        ASSERT_FALSE(testing::Test::HasFatalFailure());
    }
}

// Between the listed elements stand others, so that looking further than a walk does would show.
CATIDOMDocument_var WideDocument(int size)
{
    std::string text = "<r>";
    for (int count = 0; count < size; ++count) {
        text += "<x><y/></x><z/><z/>";
    }
    return Parsed(text + "</r>");
}

void RemoveFirst(const CATIDOMNodeList_var& list)
{
    while (list->Length() > 0) {
        const CATIDOMNode_var node = list->Item(0);
        node->ParentNode()->RemoveChild(node);
    }
}

void RemoveBackwards(const CATIDOMNodeList_var& list)
{
    for (int index = list->Length() - 1; index >= 0; --index) {
        const CATIDOMNode_var node = list->Item(index);
        node->ParentNode()->RemoveChild(node);
    }
}

void RemoveEverySecond(const CATIDOMNodeList_var& list)
{
    for (int index = 0; index < list->Length(); ++index) {
        const CATIDOMNode_var node = list->Item(index);
        node->ParentNode()->RemoveChild(node);
    }
}

void WalkBackwards(const CATIDOMNodeList_var& list)
{
    for (int index = list->Length() - 1; index >= 0; --index) {
        EXPECT_FALSE(list->Item(index).IsNull());
    }
}

void MoveEachToTheEnd(const CATIDOMNodeList_var& list)
{
    for (int count = list->Length(); count > 0; --count) {
        const CATIDOMNode_var node = list->Item(0);
        const CATIDOMNode_var parent = node->ParentNode();
        parent->RemoveChild(node);
        parent->AppendChild(node);
    }
}

// Takes all out by their handles in an order of its own and puts them in again, as sorting does.
void Shuffle(const CATIDOMNodeList_var& list)
{
    std::vector<CATIDOMNode_var> nodes;
    for (int index = 0; index < list->Length(); ++index) {
        nodes.push_back(list->Item(index));
    }
    std::shuffle(nodes.begin(), nodes.end(), std::mt19937(1));
    const CATIDOMNode_var parent = nodes.front()->ParentNode();
    for (std::size_t index = 0; index < nodes.size(); ++index) {
        parent->RemoveChild(nodes[index]);
        parent->AppendChild(nodes[index]);
        EXPECT_FALSE(list->Item(static_cast<int>(nodes.size()) / 2).IsNull());
    }
}

struct WorkRow
{
    const char* name;
    void (*work)(const CATIDOMNodeList_var& list);
    int Left(int size) const { return isEmptied ? 0 : size / keptShare; }
    bool isEmptied = false;
    int keptShare = 1;
};
constexpr std::array kWork{WorkRow{"remove the first", RemoveFirst, true},
                           WorkRow{"remove backwards", RemoveBackwards, true},
                           WorkRow{"remove every second", RemoveEverySecond, false, 2},
                           WorkRow{"walk backwards", WalkBackwards},
                           WorkRow{"move each to the end", MoveEachToTheEnd},
                           WorkRow{"shuffle", Shuffle}};

// Were the cost of a step to grow with the list, each of these would take minutes instead of part
// of a second, and the time that a test is given would end it.
TEST(CATIDOMNodeList, LongListsAreWalkedAndChangedStepByStep)
{
    constexpr int kSize = 100000;
    for (const WorkRow& row : kWork) {
        const CATIDOMDocument_var byName = WideDocument(kSize);
        const CATIDOMNodeList_var elements = byName->ElementsByTagName("x");
        row.work(elements);
        EXPECT_EQ(elements->Length(), row.Left(kSize)) << row.name;

        const CATIDOMDocument_var ofChildren = WideDocument(kSize);
        const CATIDOMNodeList_var children = ofChildren->DocumentElement()->ChildNodes();
        row.work(children);
        EXPECT_EQ(children->Length(), row.Left(3 * kSize)) << row.name;
    }
}

} // namespace

#pragma once

#include "CATBaseUnknown.h"
#include "CATDocument.h"
#include "CATIProduct.h"
#include "CATNavigator.h"
#include "CATPathElement.h"
#include "CATStatus.h"

#include <map>
#include <optional>
#include <string>
#include <vector>

/// A document whose pieces a test takes away.
class FakeDocument : public CATDocument
{
public:
    long GetIdentifier(CATUnicodeString& output) const override { return Give(identifier, output); }
    long GetStorageEnvironment(CATUnicodeString& output) const override
    {
        return Give(environment, output);
    }

    std::optional<std::string> identifier = "document 7";
    std::optional<std::string> environment = "ENOVIA5";

private:
    static long Give(const std::optional<std::string>& text, CATUnicodeString& output)
    {
        if (!text) {
            return E_FAIL;
        }
        output = *text;
        return S_OK;
    }
};
using FakeDocument_var = CATHandle<FakeDocument>;

/// A product in a document, which has no place in space.
class FakeProduct : public CATBaseUnknown, public CATIProduct, public CATILinkableObject
{
public:
    FakeProduct(const CATHandle<FakeProduct>& parent, std::string instance, std::string part,
                const FakeDocument_var& inDocument)
        : document(inDocument),
          m_parent(parent),
          m_instance(std::move(instance)),
          m_part(std::move(part))
    {}

    CATUnicodeString GetPartNumber() const override { return m_part; }
    CATUnicodeString GetPartVersion() const override { return "A"; }
    CATUnicodeString GetInstanceName() const override { return m_instance; }
    CATUnicodeString GetPartName() const override { return "Name of " + m_part; }
    int GetQuantity() const override { return 1; }
    CATIProduct_var GetParent() const override { return m_parent; }
    bool HasChildren() const override { return false; }
    int GetChildCount() const override { return 0; }
    CATIProduct_var GetChild(int) const override { return {}; }
    CATUnicodeString GetType() const override { return type; }
    CATHandle<CATDocument> GetDocument() const override { return document; }

    std::string type = "ASMPRODUCT";
    FakeDocument_var document;

private:
    CATHandle<FakeProduct> m_parent;
    std::string m_instance;
    std::string m_part;
};
using FakeProduct_var = CATHandle<FakeProduct>;

/// A product that stands somewhere.
class FakeMovableProduct : public FakeProduct, public CATIMovable
{
public:
    using FakeProduct::FakeProduct;
    CATMathTransformation GetAbsoluteTransformation() const override { return place; }

    CATMathTransformation place;
};

/// Something that the tree shows and the PDM does not know.
class FakeTreeObject : public CATBaseUnknown, public CATISpecAttrAccess
{
public:
    explicit FakeTreeObject(std::map<std::string, std::string> attributes)
        : m_attributes(std::move(attributes))
    {}
    long GetString(const CATUnicodeString& attribute, CATUnicodeString& value) const override
    {
        const auto found = m_attributes.find(attribute.ToStdString());
        if (found == m_attributes.end()) {
            return S_FALSE;
        }
        value = found->second;
        return S_OK;
    }

private:
    std::map<std::string, std::string> m_attributes;
};

/// LA1 > FUS-000.1 (FUS-000) > FUS-100.1 (FUS-100) > FUS-110.1 (FUS-110), all in one document.
struct FakeAeroplane
{
    FakeAeroplane()
    {
        products.push_back(New(nullptr, "LA1", "LA1"));
        products.push_back(New(products[0].Get(), "FUS-000.1", "FUS-000"));
        products.push_back(New(products[1].Get(), "FUS-100.1", "FUS-100"));
        products.push_back(New(products[2].Get(), "FUS-110.1", "FUS-110"));
    }

    FakeProduct_var New(FakeProduct* parent, const char* instance, const char* part) const
    {
        return FakeProduct_var::Adopt(
            new FakeMovableProduct(FakeProduct_var(parent), instance, part, document));
    }
    /// The path from the root down that is so many objects long.
    CATPathElement_var Path(std::size_t size) const
    {
        std::vector<CATBaseUnknown_var> objects;
        for (std::size_t index = 0; index < size; ++index) {
            objects.push_back(products[index]);
        }
        return CATPathElement_var::Adopt(new CATPathElement(objects));
    }
    /// The same with one object exchanged; positions count from 1.
    CATPathElement_var PathWith(std::size_t size, std::size_t position,
                                const CATBaseUnknown_var& object) const
    {
        std::vector<CATBaseUnknown_var> objects(
            products.begin(), products.begin() + static_cast<std::ptrdiff_t>(size));
        objects[position - 1] = object;
        return CATPathElement_var::Adopt(new CATPathElement(objects));
    }

    FakeDocument_var document = FakeDocument_var::Adopt(new FakeDocument);
    std::vector<FakeProduct_var> products;
};

/// The same aeroplane as the navigator's source; the leaf stands in CATNavigator's open root.
class AeroplaneSource : public CATProductSource
{
public:
    static CATProductRow Row(const char* instance, const char* part, bool hasUses)
    {
        CATProductRow row;
        row.instance = instance;
        row.part = part;
        row.version = "A";
        row.hasUses = hasUses;
        return row;
    }
    std::vector<CATProductRow> Roots() override { return {Row("LA1", "LA1", true)}; }
    std::vector<CATProductRow> Uses(const CATUnicodeString& part, const CATUnicodeString&) override
    {
        if (part == "LA1") {
            return {Row("FUS-000.1", "FUS-000", true)};
        }
        if (part == "FUS-000") {
            return {Row("FUS-100.1", "FUS-100", true)};
        }
        return part == "FUS-100" ? std::vector{Row("FUS-110.1", "FUS-110", false)}
                                 : std::vector<CATProductRow>();
    }
};

inline CATPathElement_var PathTo(const CATNavigatorNode_var& leaf)
{
    std::vector<CATBaseUnknown_var> objects;
    for (CATNavigatorNode* node = leaf.Get(); node != nullptr; node = node->Parent()) {
        objects.insert(objects.begin(), CATNavigatorNode_var(node));
    }
    return CATPathElement_var::Adopt(new CATPathElement(objects));
}

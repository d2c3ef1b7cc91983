#pragma once

#include "CATIDOMNamedNodeMap.h"
#include "ModuleSession.h"
#include "ReportDocuments.h"
#include "ShippedUnits.h"
#include "TestMagnitude.h"

#include <algorithm>
#include <functional>
#include <map>
#include <string>
#include <utility>
#include <vector>

/// A unit of which a test decides what it shows.
class ScriptedUnit : public CATICkeUnit
{
public:
    using Shows = std::function<std::string(double storageValue, int decimals)>;

    ScriptedUnit(std::string symbol, double factor, Shows shows)
        : m_symbol(std::move(symbol)), m_factor(factor), m_shows(std::move(shows))
    {}
    CATUnicodeString Symbol() const override
    {
        ++symbolsAsked;
        return m_symbol;
    }
    double ToStorage(double value) const override { return value * m_factor; }
    double FromStorage(double value) const override { return value / m_factor; }
    CATUnicodeString Show(double storageValue, int decimals) const override
    {
        return m_shows(storageValue, decimals);
    }

    mutable int symbolsAsked = 0;

private:
    std::string m_symbol;
    double m_factor;
    Shows m_shows;
};

inline CATICkeUnit_var UnitThatShows(const std::string& text, const std::string& symbol = "u")
{
    return CATICkeUnit_var::Adopt(
        new ScriptedUnit(symbol, 1.0, [text](double, int) { return text; }));
}

/// The session's dictionary, of which a test replaces some magnitudes or takes them away.
class ChangedDictionary : public CATICkeParmDictionary
{
public:
    explicit ChangedDictionary(CATICkeParmDictionary_var real) : m_real(std::move(real)) {}
    CATICkeMagnitude_var FindMagnitude(const CATUnicodeString& name) const override
    {
        asked.push_back(name.ToStdString());
        const auto found = magnitudes.find(asked.back());
        return found == magnitudes.end() ? m_real->FindMagnitude(name) : found->second;
    }
    CATListValCATUnicodeString MagnitudeNames() const override { return m_real->MagnitudeNames(); }

    std::map<std::string, CATICkeMagnitude_var> magnitudes;
    mutable std::vector<std::string> asked;

private:
    CATICkeParmDictionary_var m_real;
};

/// A session with the shipped units. A user who works in inches, pounds and small units of the
/// rest, so that every magnitude's current unit differs from its storage unit:
/// 25.4 mm are 1in, 0.45359237 kg are 1lb, 1 kg.m2 is 1000000kg.mm2, 1000 kg/m3 are 1g/cm3,
/// 10 kg/m2 are 1g/cm2, 0.001 m3 are 1L.
class ReportUnitsSession : public testing::Test
{
protected:
    ReportUnitsSession()
    {
        Use("LENGTH", "in");
        Use("MASS", "lb");
        Use("INERTIAMOMENT", "kg.mm2");
        Use("DENSITY", "g/cm3");
        Use("SURFACICMASS", "g/cm2");
        Use("VOLUME", "L");
    }

    static CATICkeMagnitude_var Magnitude(const std::string& name)
    {
        return CATCkeGlobalFunctions::GetParmDictionary()->FindMagnitude(name);
    }
    static CATICkeUnit_var Unit(const char* magnitude, const char* symbol)
    {
        return Magnitude(magnitude)->FindUnit(symbol);
    }
    static void Use(const char* magnitude, const char* symbol)
    {
        EXPECT_GE(Magnitude(magnitude)->UseUnit(symbol), S_OK) << magnitude << " " << symbol;
    }

    /// From now on the dictionary has this magnitude in the place of its own; a null one: none.
    void Replace(const std::string& name, const CATICkeMagnitude_var& magnitude)
    {
        if (m_changed.IsNull()) {
            m_changed = CATHandle<ChangedDictionary>::Adopt(
                new ChangedDictionary(CATCkeGlobalFunctions::GetParmDictionary()));
            CATCkeGlobalFunctions::SetParmDictionary(m_changed);
        }
        m_changed->magnitudes[name] = magnitude;
    }
    /// How often the dictionary was asked for a magnitude since one was replaced or forgotten.
    long TimesAsked(const std::string& name) const
    {
        return std::count(m_changed->asked.begin(), m_changed->asked.end(), name);
    }
    void Forget(const std::string& name) { Replace(name, {}); }
    void TakeStorageUnit(const std::string& name)
    {
        const CATICkeUnit_var current = Magnitude(name)->CurrentUnit();
        Replace(name, MagnitudeOf({}, current));
    }
    void TakeCurrentUnit(const std::string& name)
    {
        const CATICkeUnit_var storage = Magnitude(name)->StorageUnit();
        Replace(name, MagnitudeOf(storage, {}));
    }

private:
    const ShippedUnits m_shipped;
    CATHandle<ChangedDictionary> m_changed;
};

/// Every attribute that the services rewrite somewhere, each holding "1" (an item of every list; a
/// volumic density), and two that they never do.
constexpr const char* kEveryAttribute =
    R"(Name="1" COGx="1" COGy="1" COGz="1" WB_Mass="1" WB_Lower_deviation="1")"
    R"( WB_Upper_deviation="1" WB_Mass_Details="1" MOIxx="1" MOIyy="1" MOIzz="1" POIxy="1")"
    R"( POIxz="1" POIyz="1" WB_Density="1" Density="1" Density_dimension="1" Cut_Volume="1")"
    R"( Mass="1")";

/// The attributes of an element that do not hold "1", as NAME=TEXT.
inline std::vector<std::string> Changed(const CATIDOMNode_var& element)
{
    std::vector<std::string> changed;
    const CATIDOMNamedNodeMap_var attributes = element->Attributes();
    for (int index = 0; index < attributes->Length(); ++index) {
        const CATIDOMNode_var attribute = attributes->Item(index);
        if (!(attribute->NodeValue() == "1")) {
            changed.push_back((attribute->NodeName() + "=" + attribute->NodeValue()).ToStdString());
        }
    }
    return changed;
}

/// A report with one element of every kind, each with every attribute.
inline std::string ReportOfEveryAttribute()
{
    const std::string attributes = std::string(" ") + kEveryAttribute + "/>";
    return "<Report><PRC" + attributes + "<PartInstance" + attributes + "<WB_Section" + attributes +
           "<Other" + attributes + "</Report>";
}

/// A document that answers as another does; a test says what it answers instead, and sees what it
/// was asked for.
class AnsweringDocument
{
public:
    explicit AnsweringDocument(const std::string& text) : m_real(Parsed(text))
    {
        using testing::_;
        ON_CALL(*m_mock, DocumentElement).WillByDefault([this] {
            return hasDocumentElement ? m_real->DocumentElement() : CATIDOMElement_var();
        });
        ON_CALL(*m_mock, ElementsByTagName(_)).WillByDefault([this](const CATUnicodeString& name) {
            asked.push_back(name.ToStdString());
            if (name == "PartInstance" && !parts.IsNull()) {
                return parts;
            }
            return name == CATUnicodeString(missing) ? CATIDOMNodeList_var()
                                                     : m_real->ElementsByTagName(name);
        });
        ON_CALL(*m_mock, FindName(_)).WillByDefault([this](std::string_view name) {
            return m_real->FindName(name);
        });
        ON_CALL(*m_mock, NameText(_)).WillByDefault([this](CATDOMName name) {
            ++namesRead;
            return m_real->NameText(name);
        });
    }

    CATIDOMDocument_var Handle() const { return m_mock; }
    std::string Text() const { return Written(m_real); }

    bool hasDocumentElement = true;
    std::string missing;       // the name whose look-up fails
    CATIDOMNodeList_var parts; // the part instances, in the place of the real ones
    std::vector<std::string> asked;
    int namesRead = 0;

private:
    CATIDOMDocument_var m_real;
    CATHandle<MockDocument> m_mock =
        CATHandle<MockDocument>::Adopt(new testing::NiceMock<MockDocument>);
};

constexpr unsigned char kWithSymbol = 1;
constexpr unsigned char kWithoutSymbol = 0;
constexpr int kOwnDecimals = 0;    // as the unit shows a value
constexpr int kFixedDecimals = -1; // the unit's own number of them, trailing zeros kept

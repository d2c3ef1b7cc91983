#pragma once

#include "PanelSession.h"
#include "WBEdits.h"

#include <memory>

/// A wing used in a fuselage: an estimate that states everything, a calculation whose mass follows
/// from a size, nothing weighed, and a target, which is a goal. No instance that the PDM knows, so
/// that a material may be the part's or the use's.
class EditsSession : public PanelSession
{
protected:
    static constexpr const char* kPart = "PartRef";
    static constexpr const char* kUse = "PartInst";

    EditsSession() { m_stated = StatedOfTheWing(); }

    static std::string WingStream()
    {
        return Join({"0|WING.1|WING|A|AEROPLANE|1|FUSELAGE.1|1|0|1|0|0|0|0|0|",
                     "5|Computed|1|20|1|2|1|2|3|1|2|3|0|0|0|0|0|0|0|",
                     "Estimated|1|12.3456|0.61728|1.23456|100|200.5|-300|4|5|6|0.2|0.1|0.3|"
                     "1|0|5|10|0|10|20|",
                     "Calculated|1|7.5|0.225|0.375|0|0|0|0|0|0|0|0|0|0|0|3|5|",
                     "Weighed|0|0|-0.5|1|", "Target|0|0|0|0|", "1|Estimated|Estimated|",
                     "1|7850|Steel|PartRef|1|7850|Steel|1|0|0|1|0|0|0|1|0|0|0|1|0|0|0|",
                     "7|Vendor|1|0|Part|Smith|__null__|Due|1|1|Part|2026/09/01|__null__|",
                     "Count|2|0|Part|3|__null__|Rough|3|0|Part|3.25|__null__|",
                     "Flammable|4|0|Part|no|__null__|Reach|100|0|Part|1500.25|LENGTH|",
                     "Bay|1|0|Instance|7|__null__|"});
    }
    static WBStatedQuantity Stated(const char* owner, const char* massType, const char* name,
                                   const char* text)
    {
        return {owner, massType, name, text, text, false, false, {}, {}};
    }
    static WBStatedValues StatedOfTheWing()
    {
        WBStatedValues stated;
        stated.partName = "Wing";
        stated.isLeaf = true;
        stated.places = 12;
        stated.otherRoots = 2;
        stated.materials = {"Aluminium", "Steel"};
        stated.goals = {"Target"};
        for (const char* massType : {"Target", "Estimated", "Calculated", "Weighed"}) {
            for (const char* name : {"mass", "centre", "inertia", "precision"}) {
                stated.quantities.push_back(Stated(kPart, massType, name, ""));
            }
        }
        stated.quantities.push_back(Stated(kPart, "", "active", "Estimated"));
        stated.quantities.push_back(Stated(kPart, "", "density", ""));
        stated.quantities.push_back(Stated(kUse, "", "density", ""));
        stated.quantities.push_back(Stated(kPart, "", "material", "Steel"));
        stated.quantities.push_back(Stated(kUse, "", "material", ""));
        stated.quantities.push_back(Stated(kPart, "", "density order", ""));
        for (const auto& [name, value] :
             std::vector<std::pair<const char*, const char*>>{{"Vendor", "Smith"},
                                                              {"Due", "2026/09/01"},
                                                              {"Count", "3"},
                                                              {"Rough", "3.25"},
                                                              {"Flammable", "no"},
                                                              {"Reach", "1500.25"}}) {
            const std::string quantity = std::string("property ") + name;
            stated.quantities.push_back(Stated(kPart, "", quantity.c_str(), value));
        }
        stated.quantities.push_back(Stated(kUse, "", "property Bay", "7"));
        const auto state = [&](const char* name, const char* text) {
            WBStatedQuantity& quantity = Of(stated, kPart, "Estimated", name);
            quantity.text = text;
            quantity.stored = text;
        };
        state("mass", "12.3456");
        state("centre", "100;200.5;-300");
        state("inertia", "4;5;6;0.1;0.2;0.3");
        state("precision", "percent;5;10");
        return stated;
    }
    static WBStatedQuantity& Of(WBStatedValues& stated, const char* owner, const char* massType,
                                const char* name)
    {
        for (WBStatedQuantity& quantity : stated.quantities) {
            if (quantity.owner == owner && quantity.massType == massType && quantity.name == name) {
                return quantity;
            }
        }
        ADD_FAILURE() << "no " << name;
        return stated.quantities.front();
    }
    /// For what a test wants to be stated otherwise; before the first edit.
    WBStatedQuantity& StatedAs(const char* owner, const char* massType, const char* name)
    {
        return Of(m_stated, owner, massType, name);
    }
    void StateAs(const char* owner, const char* massType, const char* name, const char* text)
    {
        StatedAs(owner, massType, name).text = text;
        StatedAs(owner, massType, name).stored = text;
    }

    using Kind = WBEditField::Kind;
    using State = WBEdits::State;
    static WBEditField Field(Kind kind, const char* massType = "") { return {kind, massType, 0}; }
    static WBEditField PropertyField(int position) { return {Kind::Property, {}, position}; }

    WBEdits& Edits()
    {
        if (!m_edits) {
            m_edits = std::make_unique<WBEdits>(*record, m_stated);
        }
        return *m_edits;
    }
    /// What is wrong with the text.
    CATUnicodeString Type(const WBEditField& field, const char* text)
    {
        return Edits().Type(field, text);
    }
    CATUnicodeString Text(const WBEditField& field) { return Edits().Text(field); }
    /// What travels for the record at present.
    CATUnicodeString Travelling() const
    {
        CATUnicodeString text;
        EXPECT_EQ(record->GetAllData(text), S_OK);
        return text;
    }
    /// The K lines of the request.
    std::string Lines()
    {
        const std::string place = "0|WING.1|WING|A|1|FUSELAGE.1|AEROPLANE|";
        const std::string request = Edits().ApplyRequest().ToStdString();
        EXPECT_TRUE(request.starts_with(place)) << request;
        const std::size_t end = request.find("0|WING|A|0|0|5|");
        EXPECT_NE(end, std::string::npos) << request;
        return request.substr(place.size(), end - place.size());
    }

    RecordHandle record = RecordOf(WingStream());
    WBStatedValues m_stated;

private:
    std::unique_ptr<WBEdits> m_edits;
};

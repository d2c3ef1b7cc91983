#include "EditsSession.h"
#include "WBPanelRecord.h"

namespace
{

using Definitions = CATENOWBCSCommonDefinitions;

/// What edits do to the record, and what of them travels.
class WBEditedRecordTest : public EditsSession
{
protected:
    const WBPanelMassType& Shown(const char* massType)
    {
        m_shown = WBReadPanelRecord(*record, {});
        for (const WBPanelMassType& shown : m_shown.massTypes) {
            if (shown.name == massType) {
                return shown;
            }
        }
        ADD_FAILURE() << massType;
        return m_shown.massTypes.front();
    }
    WBPanelRecord ShownRecord() const { return WBReadPanelRecord(*record, {}); }
    /// Takes all back and expects the record as it came.
    void ExpectUndone()
    {
        Edits().UndoAll();
        EXPECT_EQ(Travelling(), m_before);
        EXPECT_FALSE(Edits().HasEdits());
        EXPECT_EQ(Edits().Undo(), std::nullopt);
    }

    const std::string m_computed = "Computed|1|1|2|20|1|2|3|1|2|3|0|0|0|0|0|";
    const std::string m_estimated =
        "Estimated|1|0|0|12.3456|100|200.5|-300|4|5|6|0.2|0.1|0.3|1|0|5|10|0|";
    const std::string m_calculated = "Calculated|1|0|0|7.5|0|0|0|0|0|0|0|0|0|0|0|";
    const std::string m_properties =
        "<userDefinedProps>|7|Vendor|1|0|Part|Smith|Due|1|1|Part|2026/09/01|Count|2|0|Part|3|"
        "Rough|3|0|Part|3.25|Flammable|4|0|Part|no|Reach|100|0|Part|1500.25|Bay|1|0|Instance|7|"
        "</userDefinedProps>|";
    const CATUnicodeString m_before = Travelling();

private:
    WBPanelRecord m_shown;
};

} // namespace

TEST_F(WBEditedRecordTest, RequestNamesWhatWasEditedAndCarriesTheWholeRecord)
{
    Type(Field(Kind::CentreX, "Weighed"), "1");
    Type(Field(Kind::CentreY, "Weighed"), "2");
    Type(Field(Kind::CentreZ, "Weighed"), "3");
    Type(Field(Kind::Mass, "Estimated"), "15");
    Type(PropertyField(1), "");
    // A set that has a centre and no mass travels with values, though the record says that it has
    // none.
    EXPECT_EQ(Edits().ApplyRequest().ToStdString(),
              Join({"0|WING.1|WING|A|1|FUSELAGE.1|AEROPLANE|", "3|",
                    "PartRef|Estimated|mass|1|12.3456|", "PartRef|Weighed|centre|1|__null__|",
                    "PartRef|__null__|property Vendor|0|Smith|", "0|WING|A|0|0|5|", m_computed,
                    "Estimated|1|0|0|15|100|200.5|-300|4|5|6|0.2|0.1|0.3|1|0|5|10|0|", m_calculated,
                    "Weighed|1|0|0|0|1|2|3|0|0|0|0|0|0|0|0|", "Target|0|0|",
                    "Estimated|Estimated|1|7850|Steel|PartRef|3|WING.1|FUSELAGE.1|AEROPLANE|0|",
                    "<userDefinedProps>|7|Vendor|1|0|Part|__null__|Due|1|1|Part|2026/09/01|"
                    "Count|2|0|Part|3|Rough|3|0|Part|3.25|Flammable|4|0|Part|no|"
                    "Reach|100|0|Part|1500.25|Bay|1|0|Instance|7|</userDefinedProps>|"}));
    EXPECT_EQ(Shown("Weighed").status, Definitions::PartiallyAssigned);
    ExpectUndone();
}

TEST_F(WBEditedRecordTest, RequestWithoutEditsNamesNothing)
{
    EXPECT_EQ(Edits().ApplyRequest().ToStdString(),
              Join({"0|WING.1|WING|A|1|FUSELAGE.1|AEROPLANE|0|0|WING|A|0|0|5|", m_computed,
                    m_estimated, m_calculated, "Weighed|0|0|Target|0|0|",
                    "Estimated|Estimated|1|7850|Steel|PartRef|3|WING.1|FUSELAGE.1|AEROPLANE|0|",
                    m_properties}));
}

TEST_F(WBEditedRecordTest, LinesStandInTheServersOrderHoweverOneTyped)
{
    Type(PropertyField(7), "8");
    Type(Field(Kind::DensityOrder), "the density of the material");
    Type(Field(Kind::Material), "Aluminium");
    Type(Field(Kind::ActiveMassType), "Weighed");
    Type(Field(Kind::Mass, "Weighed"), "1");
    Type(Field(Kind::LowerPrecision, "Estimated"), "6");
    Type(Field(Kind::Ixy, "Estimated"), "0.5");
    EXPECT_EQ(
        Lines(),
        Join({"7|PartRef|Estimated|inertia|1|4;5;6;0.1;0.2;0.3|",
              "PartRef|Estimated|precision|1|percent;5;10|", "PartRef|Weighed|mass|1|__null__|",
              "PartRef|__null__|active|1|Estimated|", "PartRef|__null__|material|1|Steel|",
              "PartRef|__null__|density order|1|__null__|",
              "PartInst|__null__|property Bay|1|7|"}));
    EXPECT_EQ(Edits().EditCount(), 7);
    ExpectUndone();
}

TEST_F(WBEditedRecordTest, ChangedValueNamesTheOneThatWasSavedAsSeen)
{
    WBStatedQuantity& mass = StatedAs(kPart, "Estimated", "mass");
    mass.stored = "11";
    mass.isPending = true;
    Type(Field(Kind::Mass, "Estimated"), "13");
    EXPECT_EQ(Lines(), "1|PartRef|Estimated|mass|1|11|");
}

TEST_F(WBEditedRecordTest, NumbersTravelWithTheSessionsSeparatorAndTheSeenTextAsItCame)
{
    ASSERT_TRUE(CATUseNumberLocale("de_DE.UTF-8"));
    Type(Field(Kind::Mass, "Estimated"), "0.1");
    const CATUnicodeString request = Edits().ApplyRequest();
    EXPECT_TRUE(request.Contains("PartRef|Estimated|mass|1|12.3456|"));
    EXPECT_TRUE(request.Contains("Estimated|1|0|0|0,1|100|200,5|-300|")) << request.Text();
}

TEST_F(WBEditedRecordTest, StatedMassMakesTheTypeAssignedWithItsDeviations)
{
    EXPECT_EQ(Type(Field(Kind::Mass, "Weighed"), "200"), "");
    const WBPanelMassType& weighed = Shown("Weighed");
    EXPECT_EQ(weighed.status, Definitions::Assigned);
    EXPECT_EQ(weighed.mass, 200);
    EXPECT_EQ(weighed.lowerDeviation, 1); // by default 0.5 %, whose sign is the side's
    EXPECT_EQ(weighed.upperDeviation, 2);
    EXPECT_TRUE(Travelling().Contains("Weighed|1|0|0|200|0|0|0|0|0|0|0|0|0|0|0|"));
    ExpectUndone();
}

TEST_F(WBEditedRecordTest, DeviationsFollowThePrecision)
{
    Type(Field(Kind::Mass, "Estimated"), "-200");
    EXPECT_EQ(Shown("Estimated").lowerDeviation, 10); // 5 % of the size
    EXPECT_EQ(Shown("Estimated").upperDeviation, 20);
    Type(Field(Kind::PrecisionKind, "Estimated"), "as a mass");
    Type(Field(Kind::LowerPrecision, "Estimated"), "0.5");
    Type(Field(Kind::UpperPrecision, "Estimated"), "0.75");
    EXPECT_EQ(Shown("Estimated").lowerDeviation, 0.5);
    EXPECT_EQ(Shown("Estimated").upperDeviation, 0.75);
    EXPECT_TRUE(Shown("Estimated").isPrecisionAbsolute);
    EXPECT_TRUE(Travelling().Contains("|1|1|0.5|0.75|0|"));
    Type(Field(Kind::PrecisionKind, "Estimated"), "");
    EXPECT_FALSE(Shown("Estimated").hasPrecision);
    EXPECT_FALSE(Shown("Estimated").isPrecisionAbsolute);
    EXPECT_EQ(Shown("Estimated").lowerPrecision, 0);
    EXPECT_EQ(Shown("Estimated").lowerDeviation, 20); // the default 10 %
    EXPECT_EQ(Shown("Estimated").upperDeviation, 40);
    ExpectUndone();
}

TEST_F(WBEditedRecordTest, EditedPrecisionAloneChangesTheDeviationsAndNotTheMass)
{
    Type(Field(Kind::LowerPrecision, "Estimated"), "50");
    EXPECT_EQ(Shown("Estimated").mass, 12.3456);
    EXPECT_DOUBLE_EQ(*Shown("Estimated").lowerDeviation, 6.1728);
    Type(Field(Kind::LowerPrecision, "Estimated"), "5");
    EXPECT_EQ(Shown("Estimated").lowerDeviation, 0.61728); // as it came
    EXPECT_FALSE(Edits().HasEdits());
}

TEST_F(WBEditedRecordTest, EditedCentreLeavesTheDeviationsAsTheyCame)
{
    StateAs(kPart, "Estimated", "precision", ""); // the deviations are those of a size
    Type(Field(Kind::CentreX, "Estimated"), "7");
    EXPECT_EQ(Shown("Estimated").lowerDeviation, 0.61728);
    EXPECT_EQ(Shown("Estimated").upperDeviation, 1.23456);
    EXPECT_EQ(Shown("Estimated").centre, CATMathPoint(7, 200.5, -300));
    EXPECT_EQ(Shown("Estimated").mass, 12.3456);
    ExpectUndone();
}

TEST_F(WBEditedRecordTest, ClearedMassLeavesWhatElseIsStated)
{
    EXPECT_EQ(Type(Field(Kind::Mass, "Estimated"), ""), "");
    EXPECT_EQ(Shown("Estimated").status, Definitions::PartiallyAssigned);
    EXPECT_EQ(Lines(), "1|PartRef|Estimated|mass|0|12.3456|");
    double deviation = -1.0;
    record->GetLowerDeviation("Estimated", deviation);
    EXPECT_EQ(deviation, 0);
    for (const Kind kind : {Kind::CentreX, Kind::CentreY, Kind::CentreZ, Kind::Ixx, Kind::Iyy,
                            Kind::Izz, Kind::Ixy, Kind::Ixz, Kind::Iyz, Kind::PrecisionKind}) {
        EXPECT_EQ(Shown("Estimated").status, Definitions::PartiallyAssigned);
        EXPECT_EQ(Type(Field(kind, "Estimated"), ""), "");
    }
    EXPECT_EQ(Shown("Estimated").status, Definitions::Empty);
    EXPECT_EQ(Lines(), Join({"4|PartRef|Estimated|mass|0|12.3456|",
                             "PartRef|Estimated|centre|0|100;200.5;-300|",
                             "PartRef|Estimated|inertia|0|4;5;6;0.1;0.2;0.3|",
                             "PartRef|Estimated|precision|0|percent;5;10|"}));
    ExpectUndone();
}

TEST_F(WBEditedRecordTest, MassThatFollowsFromASizeStaysWhenTheCentreIsEdited)
{
    for (const Kind kind : {Kind::CentreX, Kind::CentreY, Kind::CentreZ}) {
        Type(Field(kind, "Calculated"), "5");
    }
    EXPECT_EQ(Shown("Calculated").status, Definitions::Assigned);
    EXPECT_EQ(Shown("Calculated").mass, 7.5);
    EXPECT_EQ(Shown("Calculated").centre, CATMathPoint(5, 5, 5));
    ExpectUndone();
}

TEST_F(WBEditedRecordTest, InertiaStandsInTheMatrixWithItsProductsNegated)
{
    const std::vector<std::pair<Kind, const char*>> terms{{Kind::Ixx, "10"}, {Kind::Iyy, "20"},
                                                          {Kind::Izz, "30"}, {Kind::Ixy, "1"},
                                                          {Kind::Ixz, "2"},  {Kind::Iyz, "3"}};
    for (const auto& [kind, term] : terms) {
        EXPECT_EQ(Type(Field(kind, "Estimated"), term), "");
    }
    const CATMath3x3Matrix inertia = Shown("Estimated").inertia.value();
    EXPECT_EQ(inertia.GetCoef(1, 1), 10);
    EXPECT_EQ(inertia.GetCoef(2, 2), 20);
    EXPECT_EQ(inertia.GetCoef(3, 3), 30);
    EXPECT_EQ(inertia.GetCoef(1, 2), -1);
    EXPECT_EQ(inertia.GetCoef(3, 1), -2);
    EXPECT_EQ(inertia.GetCoef(2, 3), -3);
    // On the way xz stands before xy.
    EXPECT_TRUE(Travelling().Contains("|10|20|30|2|1|3|1|0|5|10|"));
    EXPECT_EQ(Edits().EditCount(), 1);
    ExpectUndone();
}

TEST_F(WBEditedRecordTest, ActiveMassTypeIsTheOneImposedLast)
{
    m_stated.isLeaf = false;
    Type(Field(Kind::ActiveMassType), "Weighed");
    EXPECT_EQ(ShownRecord().activeMassType, "Weighed");
    EXPECT_EQ(ShownRecord().lastImposedMassType, "Weighed");
    Type(Field(Kind::ActiveMassType), "Computed");
    EXPECT_EQ(ShownRecord().activeMassType, "Computed");
    EXPECT_EQ(ShownRecord().lastImposedMassType, "Estimated"); // as it came
    ExpectUndone();
}

TEST_F(WBEditedRecordTest, LeafWithNothingChosenHasNoActiveMassType)
{
    Type(Field(Kind::ActiveMassType), "");
    EXPECT_EQ(ShownRecord().activeMassType, "");
    EXPECT_EQ(ShownRecord().lastImposedMassType, "Estimated");
    ExpectUndone();
}

TEST_F(WBEditedRecordTest, MaterialOfThePartIsThePartsAndThatOfThePlace)
{
    Type(Field(Kind::Density), "2700");
    Type(Field(Kind::Material), "Aluminium");
    const WBPanelRecord shown = ShownRecord();
    EXPECT_EQ(shown.density.density, 2700);
    EXPECT_EQ(shown.density.material, "Aluminium");
    EXPECT_EQ(shown.partDensity.density, 2700);
    EXPECT_EQ(shown.partDensity.material, "Aluminium");
    EXPECT_EQ(shown.appliedOn, "PartRef");
    EXPECT_TRUE(
        Travelling().Contains("|1|2700|Aluminium|PartRef|3|WING.1|FUSELAGE.1|AEROPLANE|0|"));
    ExpectUndone();
    EXPECT_EQ(ShownRecord().partDensity.material, "Steel");
    EXPECT_EQ(ShownRecord().partDensity.density, 7850);
}

TEST_F(WBEditedRecordTest, MaterialOfTheUseLeavesThePartAlone)
{
    Type(Field(Kind::AppliedOn), "this instance alone");
    Type(Field(Kind::Material), "Aluminium");
    const WBPanelRecord shown = ShownRecord();
    EXPECT_EQ(shown.density.material, "Aluminium");
    EXPECT_EQ(shown.partDensity.material, "Steel");
    EXPECT_EQ(shown.partDensity.density, 7850);
    EXPECT_EQ(shown.appliedOn, "PartInst");
    // Its density is the server's to know, and only a density carries a material.
    EXPECT_EQ(shown.density.status, Definitions::PartiallyAssigned);
    EXPECT_FALSE(shown.density.density.has_value());
    EXPECT_TRUE(Edits().ApplyRequest().Contains(
        "|1|0|Aluminium|PartInst|3|WING.1|FUSELAGE.1|AEROPLANE|0|"));
    ExpectUndone();
}

TEST_F(WBEditedRecordTest, MaterialBesideAStatedDensityKeepsIt)
{
    StateAs(kPart, "", "density", "8000");
    Type(Field(Kind::Material), "Aluminium");
    EXPECT_EQ(ShownRecord().density.density, 8000);
    EXPECT_EQ(ShownRecord().density.status, Definitions::Assigned);
}

TEST_F(WBEditedRecordTest, ClearedMaterialAndDensityLeaveNone)
{
    StateAs(kPart, "", "density", "8000");
    Type(Field(Kind::Density), "");
    EXPECT_EQ(ShownRecord().density.status, Definitions::PartiallyAssigned);
    Type(Field(Kind::Material), "");
    EXPECT_EQ(ShownRecord().density.status, Definitions::Empty);
    EXPECT_EQ(ShownRecord().density.material, "");
    EXPECT_EQ(Lines(), "2|PartRef|__null__|density|0|8000|PartRef|__null__|material|0|Steel|");
    ExpectUndone();
}

TEST_F(WBEditedRecordTest, InstanceThatThePDMKnowsHasOneMaterial)
{
    record->SetHasInstInENOVIA(true);
    Type(Field(Kind::Material), "Aluminium");
    EXPECT_EQ(ShownRecord().density.material, "Aluminium");
    EXPECT_EQ(ShownRecord().partDensity.material, "Steel"); // as it came: it does not travel
    EXPECT_TRUE(Edits().ApplyRequest().Contains("1|PartRef|__null__|material|1|Steel|1|WING|A|"));
}

TEST_F(WBEditedRecordTest, DensityOrderIsThatOfTheRecord)
{
    Type(Field(Kind::DensityOrder), "the density of the material");
    EXPECT_TRUE(ShownRecord().isMaterialDensityFirst);
    Type(Field(Kind::DensityOrder), "the density stated for the part");
    EXPECT_FALSE(ShownRecord().isMaterialDensityFirst);
    EXPECT_TRUE(Edits().HasEdits()); // now it is stated
    ExpectUndone();
}

TEST_F(WBEditedRecordTest, UndoGoesBackStepByStep)
{
    Type(Field(Kind::Mass, "Weighed"), "1");
    const CATUnicodeString first = Travelling();
    Type(Field(Kind::Mass, "Weighed"), "2");
    Type(Field(Kind::Mass, "Weighed"), "abc");  // refused: no step
    Type(Field(Kind::Mass, "Weighed"), "2 kg"); // as it shows: no step
    Type(PropertyField(1), "Jones");
    EXPECT_EQ(Edits().Undo(), PropertyField(1));
    EXPECT_EQ(Text(PropertyField(1)), "Smith");
    EXPECT_EQ(Edits().Undo(), Field(Kind::Mass, "Weighed"));
    EXPECT_EQ(Text(Field(Kind::Mass, "Weighed")), "1 kg");
    EXPECT_EQ(Travelling(), first);
    EXPECT_EQ(Edits().EditCount(), 1);
    EXPECT_EQ(Edits().Undo(), Field(Kind::Mass, "Weighed"));
    EXPECT_EQ(Travelling(), m_before);
    EXPECT_FALSE(Edits().HasEdits());
    EXPECT_EQ(Edits().Undo(), std::nullopt);
}

TEST_F(WBEditedRecordTest, TypingTheStatedValueBackIsAnEditNoMore)
{
    Type(Field(Kind::Mass, "Estimated"), "13");
    EXPECT_TRUE(Edits().HasEdits());
    Type(Field(Kind::Mass, "Estimated"), "12.3456");
    EXPECT_FALSE(Edits().HasEdits());
    EXPECT_EQ(Travelling(), m_before);
    EXPECT_EQ(Edits().Undo(), Field(Kind::Mass, "Estimated"));
    EXPECT_EQ(Text(Field(Kind::Mass, "Estimated")), "13 kg");
}

TEST_F(WBEditedRecordTest, WhatWasComputedMeanwhileIsNotUndone)
{
    Type(Field(Kind::Mass, "Estimated"), "13");
    record->SetMass("Computed", 21);
    Edits().UndoAll();
    EXPECT_EQ(Shown("Computed").mass, 21);
    EXPECT_EQ(Shown("Estimated").mass, 12.3456);
}

TEST_F(WBEditedRecordTest, QuantityWithMissingPiecesIsToldAndNotSent)
{
    Type(Field(Kind::CentreX, "Weighed"), "1");
    EXPECT_EQ(Edits().CompletenessError(),
              "The centre of gravity of Weighed needs x, y and z, or none of them.");
    EXPECT_EQ(Lines(), "0|");
    EXPECT_EQ(Edits().EditCount(), 1);
    Edits().UndoAll();
    Type(Field(Kind::Iyz, "Estimated"), "");
    EXPECT_EQ(Edits().CompletenessError(), "The inertia of Estimated needs all six terms, 0 where "
                                           "one is nothing, or none of them.");
    Edits().UndoAll();
    Type(Field(Kind::LowerPrecision, "Weighed"), "1");
    EXPECT_EQ(Edits().CompletenessError(),
              "The precision of Weighed needs a lower and an upper value, or none of them.");
    Type(Field(Kind::UpperPrecision, "Weighed"), "1");
    EXPECT_EQ(Edits().CompletenessError(), "");
    Edits().UndoAll();
    Type(Field(Kind::PrecisionKind, "Weighed"), "in percent");
    EXPECT_EQ(Edits().CompletenessError(),
              "The precision of Weighed needs a lower and an upper value, or none of them.");
}

TEST_F(WBEditedRecordTest, MaterialOfThePartIsSaidToCountElsewhere)
{
    EXPECT_EQ(Edits().PlacesWarning(), "");
    Type(Field(Kind::Mass, "Estimated"), "13");
    EXPECT_EQ(Edits().PlacesWarning(), "");
    Type(Field(Kind::Density), "2700");
    EXPECT_EQ(Edits().PlacesWarning(),
              "This changes WING A in 12 places of AEROPLANE and in 2 other products.");
    Type(Field(Kind::AppliedOn), "this instance alone");
    EXPECT_EQ(Edits().PlacesWarning(), "");
    Edits().UndoAll();
    Type(Field(Kind::Material), "");
    EXPECT_EQ(Edits().PlacesWarning(),
              "This changes WING A in 12 places of AEROPLANE and in 2 other products.");
}

TEST_F(WBEditedRecordTest, PlacesAreCountedInWords)
{
    struct Row
    {
        long long places;
        long long otherRoots;
        const char* warning;
    };
    for (const Row& row : {Row{1, 0, ""}, Row{2, 0, "This changes WING in 2 places of AEROPLANE."},
                           Row{1, 1,
                               "This changes WING in 1 place of AEROPLANE and in 1 other "
                               "product."}}) {
        record->SetCurrentPartVersion("");
        m_stated.places = row.places;
        m_stated.otherRoots = row.otherRoots;
        WBEdits edits(*record, m_stated);
        EXPECT_EQ(edits.Type(Field(Kind::Material), "Aluminium"), "");
        EXPECT_EQ(edits.PlacesWarning(), row.warning);
        edits.UndoAll();
    }
}

TEST_F(WBEditedRecordTest, SetWhoseCentreTheServerDoesNotNameIsWrittenWithoutOne)
{
    std::erase_if(m_stated.quantities, [](const WBStatedQuantity& quantity) {
        return quantity.massType == "Weighed" && quantity.name == "centre";
    });
    EXPECT_EQ(Type(Field(Kind::Mass, "Weighed"), "5"), "");
    EXPECT_EQ(Shown("Weighed").mass, 5);
    EXPECT_EQ(Type(Field(Kind::Mass, "Weighed"), ""), "");
    EXPECT_EQ(Shown("Weighed").status, Definitions::Empty);
}

TEST_F(WBEditedRecordTest, InertiaAloneMakesTheTypePartiallyAssigned)
{
    for (const Kind kind : {Kind::Ixx, Kind::Iyy, Kind::Izz, Kind::Ixy, Kind::Ixz, Kind::Iyz}) {
        EXPECT_EQ(Type(Field(kind, "Weighed"), "1"), "");
    }
    EXPECT_EQ(Shown("Weighed").status, Definitions::PartiallyAssigned);
    ExpectUndone();
}

TEST_F(WBEditedRecordTest, TypeThatStatesASizeStaysPartiallyAssigned)
{
    record->SetMassTypeStatus("Weighed", Definitions::PartiallyAssigned);
    Type(Field(Kind::CentreX, "Weighed"), "1");
    Edits().UndoAll();
    EXPECT_EQ(Shown("Weighed").status, Definitions::PartiallyAssigned);
}

TEST_F(WBEditedRecordTest, PrecisionInAMassStaysOneWhenTheMassIsEdited)
{
    record->SetPrecisionValueType("Estimated", Definitions::Absolute);
    StateAs(kPart, "Estimated", "precision", "absolute;5;10");
    Type(Field(Kind::Mass, "Estimated"), "20");
    EXPECT_TRUE(Shown("Estimated").isPrecisionAbsolute);
    EXPECT_EQ(Shown("Estimated").lowerDeviation, 5);
    EXPECT_EQ(Shown("Estimated").upperDeviation, 10);
    Edits().UndoAll();
    EXPECT_EQ(Shown("Estimated").lowerDeviation, 0.61728); // as they came
    EXPECT_EQ(Shown("Estimated").upperDeviation, 1.23456);
}

TEST_F(WBEditedRecordTest, WhatCountsStaysWhereItIsNotEdited)
{
    record->SetCenterOfGravity("Weighed", CATMathPoint(7, 8, 9));
    const CATMath3x3Matrix inertia(1, 0, 0, 0, 2, 0, 0, 0, 3);
    record->SetInertia("Weighed", inertia);
    Type(Field(Kind::Mass, "Weighed"), "5");
    EXPECT_TRUE(Travelling().Contains("Weighed|1|0|0|5|7|8|9|1|2|3|0|0|0|"));
}

TEST_F(WBEditedRecordTest, DensityThatIsTypedIsAssigned)
{
    record->SetWBDensityStatus(Definitions::Empty);
    record->SetWBDensity(0.0);
    record->SetPartRefWBDensityStatus(Definitions::Empty);
    record->SetPartRefWBDensity(0.0);
    Type(Field(Kind::Density), "2700");
    EXPECT_EQ(ShownRecord().density.status, Definitions::Assigned);
    EXPECT_EQ(ShownRecord().partDensity.status, Definitions::Assigned);
    EXPECT_EQ(ShownRecord().density.material, "Steel");
    Edits().UndoAll();
    EXPECT_EQ(record->GetPartRefWBDensityStatus(), Definitions::Empty);
}

TEST_F(WBEditedRecordTest, DensityOfTheUseLeavesTheNameThatCountsAlone)
{
    Type(Field(Kind::AppliedOn), "this instance alone");
    Type(Field(Kind::Density), "100");
    EXPECT_EQ(ShownRecord().density.material, "Steel");
    EXPECT_EQ(ShownRecord().density.density, 100);
    Edits().UndoAll();
    EXPECT_EQ(ShownRecord().density.density, 7850);
    EXPECT_EQ(ShownRecord().partDensity.density, 7850);
    EXPECT_EQ(ShownRecord().appliedOn, "PartRef");
}

TEST_F(WBEditedRecordTest, WhatCountsByDefaultIsThereAgainAfterUndo)
{
    StateAs(kPart, "", "active", "");
    record->SetDensityPriority(Definitions::MaterialDensityFirst);
    Type(Field(Kind::ActiveMassType), "Weighed");
    Type(Field(Kind::DensityOrder), "the density stated for the part");
    EXPECT_FALSE(ShownRecord().isMaterialDensityFirst);
    Edits().UndoAll();
    EXPECT_EQ(ShownRecord().activeMassType, "Estimated");
    EXPECT_TRUE(ShownRecord().isMaterialDensityFirst);
}

TEST_F(WBEditedRecordTest, DensityThatIsNotEditedTravelsAsItIs)
{
    record->SetWBDensityStatus(Definitions::Empty);
    Type(PropertyField(1), "Miller");
    EXPECT_TRUE(Edits().ApplyRequest().Contains("|Estimated|Estimated|0|"));
}

TEST_F(WBEditedRecordTest, OtherValuesCountHereAlone)
{
    Type(Field(Kind::Mass, "Weighed"), "5");
    EXPECT_EQ(Edits().PlacesWarning(), "");
}

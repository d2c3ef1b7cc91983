#include "UnsavedNotice.h"

#include "ChangedPlane.h"

using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

namespace
{
class UnsavedNotice : public ChangedPlane
{
protected:
    std::size_t Count(const std::string& path, FiguresOf figures = FiguresOf::Place) const
    {
        const auto store = Store();
        std::string problem;
        const auto place = FindStoredPlace(*store, path, {}, problem);
        EXPECT_EQ(problem, "");
        return place ? CountUnsavedWithin(*store, "anna", *place, figures) : 0;
    }
};

constexpr const char* kOne =
    "wb: The figures include 1 unsaved change of anna; wb pending lists it.\n";
} // namespace

TEST_F(UnsavedNotice, ChangesOfThePartItsUseAndAllBelowAreCounted)
{
    ChangeWing("anna", "12");
    ChangeUse("anna", "PLANE", "left", {"", "density"}, "", "2700");
    ChangeUse("anna", "TAIL", "fin", {"", "density"}, "", "2700");
    Change("anna", "FIN", kWeighed, "4", "5");
    Change("anna", "TAIL", {"Weighed", "mass"}, "", "6");
    ChangeWing("ben", "13"); // not hers
    EXPECT_EQ(Count("PLANE"), 5U);
    EXPECT_EQ(Count("PLANE/left"), 2U);
    EXPECT_EQ(Count("PLANE/tail"), 3U);
    EXPECT_EQ(Count("PLANE/tail/fin"), 2U);
    EXPECT_EQ(Count("GLIDER"), 1U) << "the same wing, another use";
    EXPECT_EQ(Count("GLIDER/only"), 1U);
}

TEST_F(UnsavedNotice, ThePartAloneHasItsOwnChangesAlone)
{
    Change("anna", "FIN", kWeighed, "4", "5");
    Change("anna", "TAIL", {"Weighed", "mass"}, "", "6");
    EXPECT_EQ(Count("PLANE/tail", FiguresOf::PartAlone), 1U);
    EXPECT_EQ(Count("PLANE", FiguresOf::PartAlone), 0U);
}

TEST_F(UnsavedNotice, ComputedFiguresSayThatTheyIncludeUnsavedChanges)
{
    ChangeWing("anna", "12");
    const Outcome hers = Run("compute PLANE --db p.db --user anna");
    EXPECT_THAT(hers.out, HasSubstr("16.000000 kg"));
    EXPECT_EQ(hers.err, kOne);
    const Outcome others = Run("compute PLANE --db p.db --user ben");
    EXPECT_THAT(others.out, HasSubstr("14.000000 kg"));
    EXPECT_THAT(others.err, IsEmpty());
    EXPECT_THAT(Run("compute PLANE/tail --db p.db --user anna").err, IsEmpty())
        << "the wing is elsewhere";
    EXPECT_EQ(Run("compute PLANE/tail --entity root --db p.db --user anna").err, kOne);
    EXPECT_THAT(Run("compute PLANE --entity part --db p.db --user anna").err,
                Not(HasSubstr("unsaved")));
}

TEST_F(UnsavedNotice, WhatAUserHasNotSavedIsNotKeptForOthers)
{
    ChangeWing("anna", "12");
    EXPECT_THAT(Run("compute PLANE --db p.db --user anna").out, HasSubstr("16.000000 kg"));
    EXPECT_THAT(Run("compute PLANE --update assume:0 --db p.db --user ben").out,
                HasSubstr("14.000000 kg"));
    EXPECT_THAT(Run("compute PLANE --update assume:0 --db p.db --user anna").out,
                HasSubstr("16.000000 kg"))
        << "nor does she get what ben's run has kept";
}

TEST_F(UnsavedNotice, SeveralChangesAreCounted)
{
    ChangeWing("anna", "12");
    Change("anna", "FIN", kWeighed, "4", "5");
    EXPECT_EQ(Run("compute PLANE --db p.db --user anna --json").err,
              "wb: The figures include 2 unsaved changes of anna; wb pending lists them.\n");
}

TEST_F(UnsavedNotice, RecordsOfPartsSayIt)
{
    ChangeWing("anna", "12");
    const Outcome hers = Run("part PLANE/left --db p.db --user anna");
    EXPECT_EQ(hers.status, 0) << hers.err;
    EXPECT_THAT(hers.out, HasSubstr("12"));
    EXPECT_THAT(hers.err, HasSubstr(kOne));
    EXPECT_THAT(Run("part PLANE/tail/fin --db p.db --user anna").err, Not(HasSubstr("unsaved")));
    EXPECT_THAT(Run("part PLANE/left --db p.db --user ben").err, Not(HasSubstr("unsaved")));
}

TEST_F(UnsavedNotice, ReportsSayIt)
{
    ChangeWing("anna", "12");
    const Outcome hers = Run("report PLANE --db p.db --user anna --out r.xml");
    EXPECT_EQ(hers.status, 0) << hers.err;
    EXPECT_THAT(hers.err, HasSubstr(kOne));
    EXPECT_THAT(folder.Read("r.xml"), HasSubstr("WB_Mass=\"16\""));
    const Outcome others = Run("report PLANE --db p.db --user ben --out r.xml");
    EXPECT_THAT(others.err, Not(HasSubstr("unsaved")));
    EXPECT_THAT(folder.Read("r.xml"), HasSubstr("WB_Mass=\"14\""));
}

TEST_F(UnsavedNotice, ExportsHoldSavedValuesAloneAndSayNothing)
{
    const Outcome before = Run("export PLANE --db p.db --out -");
    ChangeWing("anna", "12");
    const Outcome after = Run("export PLANE --db p.db --out -");
    EXPECT_EQ(after.status, 0);
    EXPECT_EQ(after.out, before.out);
    EXPECT_THAT(after.err, IsEmpty());
    EXPECT_THAT(Run("export --help").out, HasSubstr("saved values alone"));
}

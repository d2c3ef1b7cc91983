#include "ComputeTesting.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <gmock/gmock.h>

using testing::AllOf;
using testing::HasSubstr;
using testing::StartsWith;

namespace
{
class ComputeOutput : public ComputeProgram
{
protected:
    /// The object that is printed; it must be JSON.
    QJsonObject Object(const std::string& arguments) const
    {
        const std::string text = Answer(arguments + " --json").out;
        QJsonParseError error;
        const QJsonDocument document =
            QJsonDocument::fromJson(QByteArray::fromStdString(text), &error);
        EXPECT_EQ(error.error, QJsonParseError::NoError) << error.errorString().toStdString();
        return document.object();
    }
    /// The CSV line that begins so, without the columns before "row".
    std::string Line(const std::string& arguments, const std::string& begin) const
    {
        const std::string text = Answer(arguments + " --csv").out;
        const std::size_t at = text.find("," + begin);
        return at == std::string::npos ? "" : text.substr(at + 1, text.find('\n', at) - at - 1);
    }
};

constexpr const char* kTwoTypes =
    "parent,instance,part,mass_type,mass [kg],cgx [mm],cgy [mm],cgz [mm]\n,,R,,,,,\n"
    "R,\"a \"\"b\"\", c\",P,Weighed,1,,,\nR,\"a \"\"b\"\", c\",P,Estimated,2,5,0,0\nR,q,Q,,,,,\n";
} // namespace

TEST_F(ComputeOutput, JsonHoldsTheTotals)
{
    Import(kBeam);
    const QJsonObject object = Object("R");
    EXPECT_EQ(object["product"].toObject()["part"].toString(), "R");
    EXPECT_EQ(object["product"].toObject()["version"].toString(), "A");
    EXPECT_EQ(object["product"].toObject()["name"].toString(), "Beam");
    EXPECT_EQ(object["node"].toObject()["path"].toString(), "R");
    const QJsonObject total = object["total"].toObject();
    EXPECT_EQ(total["mass"].toDouble(), 3.0);
    EXPECT_NEAR(total["lower_deviation"].toDouble(), 0.205, 1e-15);
    EXPECT_NEAR(total["upper_deviation"].toDouble(), 0.405, 1e-15);
    EXPECT_NEAR(total["cgx"].toDouble(), 200.0, 1e-12);
    EXPECT_EQ(total["cgz"].toDouble(), 0.0);
    EXPECT_NEAR(total["ixx"].toDouble(), 0.003, 1e-15);
    EXPECT_NEAR(total["izz"].toDouble(), 0.063, 1e-15);
    EXPECT_EQ(total["iyz"].toDouble(), 0.0);
    EXPECT_NEAR(total["principal_moments"].toArray()[0].toDouble(), 0.063, 1e-15);
    EXPECT_NEAR(total["principal_moments"].toArray()[2].toDouble(), 0.003, 1e-15);
    EXPECT_NEAR(total["radii_of_gyration"].toArray()[0].toDouble(), 31.6227766, 1e-7);
    EXPECT_EQ(object["partial"].toBool(true), false);
    EXPECT_EQ(object["deviations"].toString(), "worst case");
    EXPECT_EQ(object["coverage"].toObject()["items"].toDouble(), 2.0);
    EXPECT_TRUE(object["imposed"].isNull());
    EXPECT_TRUE(object["rss"].isNull());
    EXPECT_TRUE(object["standard_uncertainty"].isNull());
    EXPECT_TRUE(object["taken_mass_type"].isNull());
    EXPECT_TRUE(object["largest_masses"].toArray().isEmpty());
    EXPECT_TRUE(object["took_active_values"].toArray().isEmpty());
    EXPECT_TRUE(object["warnings"].toArray().isEmpty());
    EXPECT_NEAR(object["growth"].toObject()["predicted_mass"].toDouble(), 3.2, 1e-15);
    EXPECT_NEAR(object["growth"].toObject()["growth_allowance"].toDouble(), 0.2, 1e-15);
}

TEST_F(ComputeOutput, JsonSaysWhatWasAsked)
{
    Import(kBeam);
    QJsonObject asked = Object("R")["asked"].toObject();
    EXPECT_EQ(asked["entity"].toString(), "instance");
    EXPECT_EQ(asked["precision"].toString(), "active");
    EXPECT_EQ(asked["or_active"].toBool(true), false);
    EXPECT_EQ(asked["update"].toString(), "check");
    EXPECT_TRUE(asked["filter"].toArray().isEmpty());
    EXPECT_TRUE(asked["density_first"].isNull());
    EXPECT_TRUE(asked["material"].isNull());
    const QJsonObject object = Object("R/q --precision Weighed --or active --update force "
                                      "--exclude R/p --density-first wb --at 1,2.5,-3");
    asked = object["asked"].toObject();
    EXPECT_EQ(asked["precision"].toString(), "Weighed");
    EXPECT_EQ(asked["or_active"].toBool(), true);
    EXPECT_EQ(asked["update"].toString(), "force");
    EXPECT_EQ(asked["filter"].toArray()[0].toString(), "without R/p");
    EXPECT_EQ(asked["density_first"].toString(), "wb");
    EXPECT_EQ(object["node"].toObject()["path"].toString(), "R/q");
    EXPECT_EQ(object["axes"].toString(), "Q A");
    EXPECT_EQ(object["inertia_about"].toObject()["point"].toString(), "point");
    EXPECT_EQ(object["inertia_about"].toObject()["position"].toArray(), QJsonArray({1, 2.5, -3}));
    EXPECT_EQ(object["product_sign"].toString(), "+ integral");
    EXPECT_EQ(object["took_active_values"].toArray()[0].toString(), "Ballast");
    EXPECT_EQ(Object("R --entity root")["asked"].toObject()["entity"].toString(), "root");
    EXPECT_EQ(Object("R --at origin")["inertia_about"].toObject()["point"].toString(), "origin");
    EXPECT_EQ(Object("R --precision most-precise")["asked"].toObject()["precision"].toString(),
              "most-precise");
}

TEST_F(ComputeOutput, JsonKnowsNoZeroForWhatIsUnknown)
{
    Import(kTwoTypes);
    const Outcome outcome = Answer("R/q --json");
    EXPECT_EQ(outcome.status, 3);
    EXPECT_EQ(outcome.err, "");
    const QJsonObject object = Object("R/q");
    EXPECT_EQ(object["partial"].toBool(), true);
    for (const char* key : {"mass", "lower_deviation", "upper_deviation", "cgx", "ixx", "iyz"}) {
        EXPECT_TRUE(object["total"].toObject()[key].isNull()) << key;
    }
    EXPECT_TRUE(object["total"].toObject()["principal_moments"].toArray()[0].isNull());
    EXPECT_TRUE(object["growth"].toObject()["predicted_mass"].isNull());
    EXPECT_EQ(object["warnings"].toArray()[0].toString(),
              "unknown: mass, centre of gravity and inertia");
}

TEST_F(ComputeOutput, JsonNamesWhoLends)
{
    Import(kTwoTypes);
    const QJsonObject object = Object("'R/a \"b\", c'");
    EXPECT_EQ(object["node"].toObject()["path"].toString(), "R/a \"b\", c");
    EXPECT_EQ(object["taken_mass_type"].toString(), "Weighed");
    EXPECT_EQ(object["centre_from"].toString(), "Estimated");
    EXPECT_TRUE(object["inertia_from"].isNull());
}

TEST_F(ComputeOutput, JsonHoldsTheListsThatAreAskedFor)
{
    Import("parent,instance,part,quantity,mass_type,mass [kg],lower [kg],upper [kg]\n,,R,,,,,\n"
           "R,p,P,4,Weighed,1,0.1,0.2\nR,q,Q,,Weighed,1,0.3,0.6\n");
    const QJsonObject object = Object("R --rss --apart --uncertainty --explain 1");
    const QJsonObject rss = object["rss"].toObject();
    EXPECT_NEAR(rss["together"].toObject()["lower_deviation"].toDouble(), 0.5, 1e-15);
    EXPECT_NEAR(rss["together"].toObject()["upper_deviation"].toDouble(), 1.0, 1e-15);
    EXPECT_NEAR(rss["apart"].toObject()["lower_deviation"].toDouble(), 0.3605551275, 1e-10);
    const QJsonObject sigma = object["standard_uncertainty"].toObject();
    EXPECT_EQ(sigma["errors"].toString(), "apart");
    // Spreads of 0.3 and 0.9 kg: sqrt((4 x 0.09 + 0.81) / 12).
    EXPECT_NEAR(sigma["mass"].toDouble(), 0.3122498999, 1e-10);
    EXPECT_EQ(sigma["share_unstated"].toDouble(), 0.0);
    ASSERT_EQ(object["largest_masses"].toArray().size(), 1);
    const QJsonObject largest = object["largest_masses"].toArray()[0].toObject();
    EXPECT_EQ(largest["part"].toString(), "P");
    EXPECT_EQ(largest["pieces"].toDouble(), 4.0);
    EXPECT_EQ(largest["mass"].toDouble(), 4.0);
    EXPECT_EQ(largest["share"].toDouble(), 80.0);
    EXPECT_EQ(object["largest_uncertainties"].toArray()[0].toObject()["part"].toString(), "Q");
    EXPECT_NEAR(
        object["largest_uncertainties"].toArray()[0].toObject()["share_of_variance"].toDouble(),
        0.81 / 1.17 * 100.0, 1e-10);
    EXPECT_EQ(Object("R --uncertainty")["standard_uncertainty"].toObject()["errors"].toString(),
              "together");
}

TEST_F(ComputeOutput, JsonSharesCarryDimensionAndDensity)
{
    ImportSatellite();
    const QJsonObject object = Object("SC1");
    const QJsonObject first = object["materials"].toArray()[0].toObject();
    EXPECT_EQ(first["material"].toString(), "(no material)");
    EXPECT_TRUE(first["density"].isNull());
    const QJsonObject panel = object["materials"].toArray()[4].toObject();
    EXPECT_EQ(panel["material"].toString(), "Solar panel with cells");
    EXPECT_EQ(panel["dimension"].toInt(), 2);
    EXPECT_EQ(panel["density"].toDouble(), 3.9);
    EXPECT_NEAR(panel["mass"].toDouble(), 7.2072, 1e-12);
    EXPECT_NEAR(panel["share"].toDouble(), 7.2072 / 107.9207 * 100.0, 1e-10);
    EXPECT_EQ(object["mass_types"].toArray()[0].toObject()["name"].toString(), "Estimated");
    EXPECT_EQ(object["codes"].toArray()[0].toObject()["name"].toString(), "PAYLOAD");
}

TEST_F(ComputeOutput, ImposedAssemblyHoldsOwnBelowAndDifference)
{
    ImportAeroplane();
    const std::string engine = "LA1/PWR-000.1/PWR-100.1";
    const QJsonObject imposed = Object(engine)["imposed"].toObject();
    EXPECT_NEAR(imposed["own"].toObject()["mass"].toDouble(), 61.4, 1e-12);
    EXPECT_NEAR(imposed["below"].toObject()["mass"].toDouble(), 59.8, 1e-12);
    EXPECT_NEAR(imposed["difference"].toObject()["mass"].toDouble(), 1.6, 1e-12);
    EXPECT_EQ(Object(engine)["inertia_from"].toString(), "Computed");
    EXPECT_THAT(Line(engine, "own"), StartsWith("own,Weighed,61.4,0.05,0.05,-14,2,6,"));
    EXPECT_THAT(Line(engine, "below"), StartsWith("below,,59.8"));
    EXPECT_THAT(Line(engine, "difference"), StartsWith("difference,,1.5999999999"));
    EXPECT_THAT(Line(engine, "taken_mass_type"), StartsWith("taken_mass_type,Weighed,"));
    EXPECT_THAT(Line(engine, "inertia_from"), StartsWith("inertia_from,Computed,"));
}

TEST_F(ComputeOutput, CsvNamesUnitsInItsHeadings)
{
    Import(kBeam);
    EXPECT_THAT(Computed("R --csv"),
                StartsWith("product,path,mode,row,key,mass [kg],lower [kg],upper [kg],cgx [mm],cgy "
                           "[mm],cgz [mm],ixx [kg.m2],iyy [kg.m2],izz [kg.m2],ixy [kg.m2],ixz "
                           "[kg.m2],iyz [kg.m2],dimension,density [kg/m3],surface_density "
                           "[kg/m2],share [%],leaves,without_mass,mass_without_cg "
                           "[kg],mass_without_inertia [kg],version,name,pieces,sigma_mass "
                           "[kg],share_of_variance [%]\n"
                           "R,R,active,node,R A,"));
    EXPECT_THAT(Computed("R --csv --units MASS=lb,LENGTH=in"),
                StartsWith("product,path,mode,row,key,mass [lb],lower [lb],upper [lb],cgx [in],"));
}

TEST_F(ComputeOutput, CsvSaysWhatWasAskedInRows)
{
    Import(kBeam);
    const std::string asked = "R/q --precision Weighed --or active --update force --exclude R/p "
                              "--density-first material --at 1,2,3 --deviations 1,2kg";
    for (const char* row :
         {"entity,instance,", "or,active,", "update,force,", "filter,without R/p,",
          "density_first,material,", "product_sign,+ integral,", "inertia_about,point,,,,1,2,3,",
          "total,defined,2,1,2,0,0,0,", "took_active_values,Ballast,"}) {
        EXPECT_THAT(Line(asked, row), StartsWith(row));
    }
    EXPECT_EQ(Line("R", "density_first"), "");
    EXPECT_EQ(Line("R", "or,"), "");
    EXPECT_EQ(Line("R", "rss"), "");
    EXPECT_EQ(Line("R", "sigma,"), "");
}

TEST_F(ComputeOutput, CsvLeavesUnknownCellsEmptyAndQuotesNames)
{
    Import(kTwoTypes);
    const std::string text = Answer("R/q --csv").out;
    EXPECT_THAT(text, HasSubstr("\nR,R/q,active,total,worst case,,,,,,,,,,,,,,,,,1,1,0,0,,,,,\n"));
    EXPECT_THAT(text, HasSubstr("\nR,R/q,active,warning,\"unknown: mass, centre of gravity and "
                                "inertia\","));
    EXPECT_THAT(Answer("'R/a \"b\", c' --csv").out, HasSubstr("\nR,\"R/a \"\"b\"\", c\",active,"));
}

TEST_F(ComputeOutput, CsvRowsOfContributorsNameThePart)
{
    Import(kBeam);
    EXPECT_THAT(
        Line("R --explain 1", "largest_mass"),
        AllOf(StartsWith("largest_mass,Q,2,,,"), HasSubstr(",66.66666666666667,,,,,A,"
                                                           "Ballast,1,0.1732050807568877")));
    EXPECT_THAT(Line("R --explain 1", "largest_uncertainty"),
                StartsWith("largest_uncertainty,Q,2,"));
    EXPECT_THAT(Line("R --uncertainty", "sigma_unstated"),
                StartsWith("sigma_unstated,,,,,,,,,,,,,,,,,100,"));
}

TEST_F(ComputeOutput, PeopleReadTheirUnitsAndProgramsTheStorageUnits)
{
    Import(kBeam);
    folder.Write("config/wb/Units.CATSettings", "MASS = \"g\"\nLENGTH = \"m\"\n");
    EXPECT_THAT(Computed("R"), StartsWith("R A, Beam\n3000.0000 g at 0.200000, 0.000000, 0.000000 "
                                          "m\n"));
    EXPECT_EQ(Object("R")["units"].toObject()["mass"].toString(), "kg");
    EXPECT_EQ(Object("R")["total"].toObject()["mass"].toDouble(), 3.0);
    EXPECT_THAT(Line("R", "total"), StartsWith("total,worst case,3,"));
    EXPECT_THAT(Computed("R --units MASS=t"),
                StartsWith("R A, Beam\n0.0030000000 t at 0.200000, "));
    // Units that nobody asks for in this run stay those of the storage.
    const QJsonObject object = Object("R --units MASS=t");
    EXPECT_EQ(object["units"].toObject()["mass"].toString(), "t");
    EXPECT_EQ(object["units"].toObject()["length"].toString(), "mm");
    EXPECT_NEAR(object["total"].toObject()["mass"].toDouble(), 0.003, 1e-18);
    EXPECT_EQ(folder.Read("config/wb/Units.CATSettings"), "MASS = \"g\"\nLENGTH = \"m\"\n");
}

TEST_F(ComputeOutput, EveryFigureStandsInTheUnitsOfTheOutput)
{
    ImportAeroplane();
    const std::string asked = "LA1 --rss --uncertainty --explain 1";
    const QJsonObject stored = Object(asked);
    const QJsonObject shown = Object(
        asked + " --units MASS=g,LENGTH=m,INERTIAMOMENT=kg.mm2,DENSITY=g/cm3,SURFACICMASS=g/m2");
    const auto expectRatio = [&](const char* section, const char* key, double ratio) {
        const auto of = [&](const QJsonObject& object) {
            const QJsonValue value = object[section];
            return (value.isArray() ? value.toArray()[0] : value).toObject()[key].toDouble();
        };
        EXPECT_NE(of(stored), 0.0) << section << key;
        EXPECT_NEAR(of(shown) / of(stored), ratio, 1e-12 * ratio) << section << key;
    };
    for (const char* section :
         {"total", "growth", "materials", "mass_types", "codes", "standard_uncertainty",
          "largest_masses", "largest_uncertainties"}) {
        expectRatio(section, std::string(section) == "growth" ? "basic_mass" : "mass", 1e3);
    }
    expectRatio("total", "upper_deviation", 1e3);
    expectRatio("coverage", "mass_without_centre", 1e3);
    expectRatio("coverage", "mass_without_inertia", 1e3);
    expectRatio("largest_masses", "sigma", 1e3);
    expectRatio("largest_masses", "share_of_variance", 1.0);
    expectRatio("largest_masses", "share", 1.0);
    expectRatio("total", "cgx", 1e-3);
    expectRatio("standard_uncertainty", "cgy", 1e-3);
    expectRatio("total", "iyy", 1e6);
    expectRatio("standard_uncertainty", "ixz", 1e6);
    expectRatio("materials", "density", 1e-3);
    EXPECT_NEAR(shown["rss"].toObject()["apart"].toObject()["upper_deviation"].toDouble(),
                1e3 * stored["rss"].toObject()["apart"].toObject()["upper_deviation"].toDouble(),
                1e-9);
    // The fourth material is a sheet.
    EXPECT_NEAR(shown["materials"].toArray()[3].toObject()["density"].toDouble(), 2224.0, 1e-9);
}

TEST_F(ComputeOutput, DensitiesAreShownWithTheirUnits)
{
    ImportAeroplane();
    EXPECT_THAT(
        Computed("LA1"),
        AllOf(HasSubstr("\n  Al 2024-T3                2780 kg/m3   94.99776      24.91\n"),
              HasSubstr("\n  Al 2024-T3 sheet 0.8 mm  2.224 kg/m2   37.04294       9.71\n")));
}

TEST_F(ComputeOutput, LocaleChangesNothing)
{
    ImportAeroplane();
    for (const char* form : {"", " --json", " --csv"}) {
        const std::string asked =
            std::string("LA1 --uncertainty --rss --explain --at 1.5,2.5,3.5") + form;
        environment = "LC_ALL=C";
        const std::string expected = Computed(asked);
        environment = "LC_ALL=de_DE.UTF-8";
        EXPECT_EQ(Computed(asked), expected);
    }
}

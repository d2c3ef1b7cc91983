#include "MethodsTesting.h"
#include "SqlConnection.h"
#include "WBCompute.h"
#include "WBNumbers.h"
#include "WBProductExport.h"

#include <algorithm>
#include <array>
#include <list>
#include <map>
#include <random>
#include <set>
#include <sstream>

using namespace wb;
using testing::IsEmpty;

namespace
{
/// Makes tables that fill every column in every form, the same one for the same seed.
class TableMaker
{
public:
    explicit TableMaker(unsigned seed)
        : m_random(seed), m_mark(seed % 3 == 1 ? ',' : '.'), m_separator(",;\t"[seed % 3])
    {}

    std::string Make()
    {
        constexpr std::size_t kParts = 14;
        constexpr std::array kOddNames{"P,1", "P;2", "P\"3\"", " P4 ", "Ölkühler", "\"\"6 Größe"};
        for (std::size_t i = 0; i < kParts; ++i) {
            m_names.push_back(i < kOddNames.size() ? kOddNames[i] : "P-" + std::to_string(i / 2));
            m_versions.push_back(i < kOddNames.size() || i % 2 == 0 ? "A" : "B.2");
        }
        MakeUses();
        for (std::size_t part = 0; part < kParts; ++part) {
            MakeFacts(part);
        }
        return Text();
    }

    std::string RootName() const { return m_names[0]; }

private:
    using Row = std::map<std::string, std::string>;

    std::size_t Below(std::size_t count)
    {
        return std::uniform_int_distribution<std::size_t>(0, count - 1)(m_random);
    }
    bool Often() { return Below(3) > 0; }
    template <typename Choices>
    std::string OneOf(const Choices& choices)
    {
        return choices[Below(choices.size())];
    }
    std::string OneOf(std::initializer_list<const char*> choices)
    {
        return *(choices.begin() + Below(choices.size()));
    }
    std::string Marked(std::string text) const
    {
        std::ranges::replace(text, '.', m_mark);
        return text;
    }
    /// Not negative and not 0.
    std::string Size()
    {
        switch (Below(7)) {
        case 0:
            return std::to_string(1 + Below(900));
        case 5:
            return Marked(OneOf({"1e-300", "0.1", "9007199254740993", "0.30000000000000004",
                                 "123456.7890123456789", "1E+02", "007.10"}));
        case 6:
            // Below what a double holds in full.
            return Marked(WriteShortest(0x1p-1070 * static_cast<double>(1 + Below(15))));
        case 1:
            return Marked("+" + std::to_string(Below(90)) + ".50");
        case 2:
            return Marked(std::to_string(1 + Below(9)) + "e-3");
        case 3:
            return Marked("." + std::to_string(1 + Below(99)));
        default:
            return Marked(WriteShortest(0.001 + 7.0 * static_cast<double>(Below(1000003)) / 3.0));
        }
    }
    std::string Signed()
    {
        const std::string size = Below(12) == 0 ? OneOf({"0", "-0", "0e5"}) : Size();
        return Below(3) == 0 && size[0] != '+' && size[0] != '-' ? "-" + size : size;
    }
    std::string Turned()
    {
        return Marked(OneOf({"30", "-45.5", "1e-300", "0.1", "-0", "720", "-180.0", "1.5707963"}));
    }
    void Number(Row& row, const std::string& column, std::initializer_list<const char*> units,
                const std::string& text)
    {
        row[column + " [" + OneOf(units) + "]"] = text;
    }
    Row& Add(Row row) { return m_rows.emplace_back(std::move(row)); }
    Row Naming(std::size_t part) const
    {
        return {{"part", m_names[part]}, {"version", m_versions[part]}};
    }
    Row NamingUse(std::size_t parent, const std::string& instance, std::size_t part) const
    {
        Row row = Naming(part);
        row["parent"] = m_names[parent];
        row["parent_version"] = m_versions[parent];
        row["instance"] = instance;
        return row;
    }

    void MakeUses()
    {
        // Everything below the first part, and some parts in several places.
        std::vector<std::pair<std::size_t, std::size_t>> uses;
        for (std::size_t part = 1; part < m_names.size(); ++part) {
            for (std::size_t count = 1 + Below(3); count > 0; --count) {
                uses.emplace_back(Below(std::min<std::size_t>(part, 5)), part);
            }
        }
        std::ranges::shuffle(uses, m_random);
        for (const auto& [parent, part] : uses) {
            m_parents.insert(parent);
            const std::string instance = "i;" + std::to_string(m_rows.size()) + " \"ß\"";
            Row& row = Add(NamingUse(parent, instance, part));
            if (Often()) {
                row["quantity"] = std::to_string(1 + Below(9));
            }
            if (Often()) {
                for (const char* axis : {"x", "y", "z"}) {
                    Number(row, axis, {"mm", "in"}, Signed());
                }
            }
            Turn(row);
            Properties(row, "i:");
            if (Below(3) == 0) {
                MakeOwn(NamingUse(parent, instance, part));
            }
        }
    }

    void Turn(Row& row)
    {
        const auto angle = [this] {
            return 360.0 * static_cast<double>(Below(997)) / 997.0;
        };
        switch (Below(4)) {
        case 0:
            Number(row, "rx", {"deg", "rad"}, Turned());
            Number(row, "rz", {"deg", "rad"}, Turned());
            break;
        case 1:
            Number(row, "ry", {"deg"}, "90");
            break;
        case 2: {
            auto matrix = RotationFromAngles(angle(), angle(), angle());
            const double hand = Below(2) == 0 ? -1.0 : 1.0;
            for (std::size_t i = 0; i < 9; ++i) {
                const double term = matrix[i / 3][i % 3] * (i % 3 == 0 ? hand : 1.0);
                row["r" + std::to_string(i / 3 + 1) + std::to_string(i % 3 + 1)] =
                    Marked(WriteShortest(term));
            }
            break;
        }
        default:
            break;
        }
    }

    /// What one use says of itself.
    void MakeOwn(const Row& naming)
    {
        Row& row = Add(naming);
        row["values_on"] = "instance";
        row["note"] = "of this use, alone";
        if (Often()) {
            row["material_on"] = "instance";
            Material(row);
        }
        if (Often()) {
            Number(row, "density", {"kg/m3", "lb/ft3"}, Size());
        }
        Row& values = Add(naming);
        values["values_on"] = "instance";
        Values(values, OneOf({"Weighed", "Supplier"}), false);
        values["active"] = OneOf({"", "yes"});
    }

    void MakeFacts(std::size_t part)
    {
        Row& row = Add(Naming(part));
        row["name"] = OneOf({"", "Träger, links", "\"Deckel\"", "a;b", "  ", "=1+1", "1,5", "'",
                             "\xC2\xA0x", "\xF0\x9F\x94\xA9", "~ ", "[kg]"});
        row["standard"] = OneOf({"", "yes", "no"});
        row["type"] = m_parents.contains(part) ? OneOf({"", "assembly"}) : OneOf({"", "part"});
        if (part == 13) {
            row["type"] = "adjustment";
        }
        row["density_first"] = OneOf({"", "wb", "material"});
        row["errors"] = OneOf({"", "together", "apart"});
        row["code"] = OneOf({"", "WING", "BODY", "0815", "-"});
        row["note"] = OneOf({"", "of the part"});
        if (Often()) {
            row["growth_pct"] = Size();
        }
        if (Often()) {
            Material(row);
        }
        const bool hasDensity = Often();
        if (hasDensity) {
            Number(row, "density", {"kg/m3", "g/cm3"}, Size());
            Number(row, "surface_density", {"kg/m2", "lb/ft2"}, Size());
        }
        Properties(row, "p:");
        bool mayBeActive = true;
        for (const char* massType : {"Weighed", "Estimated", "Target", "Calculated"}) {
            if (Below(2) == 0) {
                Row& values = Add(Naming(part));
                Values(values, massType, hasDensity);
                if (mayBeActive && std::string(massType) != "Target" && Below(3) == 0) {
                    values["active"] = "yes";
                    mayBeActive = false;
                }
            }
        }
        if (part == 13) {
            Row& values = Add(Naming(part));
            values["mass_type"] = "Supplier";
            Number(values, "mass", {"kg"}, Marked("-0.42"));
        }
        if (mayBeActive && Below(3) == 0) {
            Row& choice = Add(Naming(part));
            choice["mass_type"] = "Supplier";
            choice["active"] = "yes";
        }
        MakeDocuments(part);
    }

    void MakeDocuments(std::size_t part)
    {
        for (std::size_t revision = Below(4); revision > 0; --revision) {
            Row& row = Add(Naming(part));
            row["doc"] = OneOf({"D,1", "D \"2\""});
            row["doc_version"] = std::to_string(revision);
            row["doc_use"] = revision == 1 ? "attached" : revision == 2 ? "active" : "";
            row["doc_checkin_date"] = "2026-02-2" + std::to_string(revision);
            row["doc_checkin_user"] = OneOf({"", "kim"});
            row["doc_checkout_user"] = OneOf({"", "lee"});
            row["doc_mass_type"] = OneOf({"", "Computed", "Weighed"});
            Number(row, "doc_mass", {"kg", "lb"}, Size());
        }
    }

    void Material(Row& row)
    {
        const std::size_t which = Below(4);
        row["material"] = std::array{"Al, 2024", "Stahl", "Folie", "?"}[which];
        if (which == 0) {
            row["material_density [g/cm3]"] = Marked("2.78");
        } else if (which == 2) {
            row["material_surface_density [kg/m2]"] = Marked("0.30");
        }
    }

    void Values(Row& row, const std::string& massType, bool hasDensity)
    {
        row["mass_type"] = massType;
        row["source"] = OneOf({"", "scale 3, hall B"});
        row["source_date"] = OneOf({"", "2026-05-06"});
        row["author"] = OneOf({"", "Jörg"});
        row["note"] = OneOf({"", "dry"});
        const bool hasMass = Below(4) > 0;
        if (hasMass) {
            Number(row, "mass", {"kg", "lb", "g"}, Size());
        }
        if (!hasMass || Below(4) == 0) {
            Number(row, "volume", {"m3", "L"}, Size());
            Number(row, "area", {"m2", "in2"}, Size());
        }
        const std::size_t precision = Below(3);
        if (precision == 1) {
            Number(row, "lower", {"kg", "lb"}, Size());
            Number(row, "upper", {"kg", "lb"}, Size());
        } else if (precision == 2) {
            row["lower_pct"] = Size();
            row["upper_pct"] = Size();
        }
        for (const char* axis : {"x", "y", "z"}) {
            Number(row, std::string("cg") + axis, {"mm", "in"}, Signed());
        }
        Inertia(row, hasMass || hasDensity);
        for (const char* sigma : {"mass", "cgx", "cgy", "cgz"}) {
            if (Below(4) == 0) {
                const bool isMass = std::string(sigma) == "mass";
                Number(row, std::string("sigma_") + sigma,
                       isMass ? std::initializer_list<const char*>{"kg", "g"}
                              : std::initializer_list<const char*>{"mm", "in"},
                       Size());
            }
        }
        for (const char* sigma : {"ixx", "iyy", "izz", "ixy", "ixz", "iyz"}) {
            if (Below(4) == 0) {
                Number(row, std::string("sigma_") + sigma, {"kg.m2", "lb.in2"}, Size());
            }
        }
    }

    void Inertia(Row& row, bool knowsMass)
    {
        const std::size_t form = Below(4);
        if (form == 0 && knowsMass) {
            for (const char* axis : {"x", "y", "z"}) {
                Number(row, std::string("k") + axis, {"mm", "in"}, Size());
            }
        } else if (form > 1) {
            for (const char* term : {"ixx", "iyy", "izz"}) {
                Number(row, term, {"kg.m2", "lb.in2"}, Size());
            }
        }
        if (form == 3) {
            for (const char* term : {"ixy", "ixz", "iyz"}) {
                Number(row, term, {"kg.m2", "lb.in2"}, Signed());
            }
            row["poi_sign"] = OneOf({"positive", "negative", "+", "-"});
        }
        const bool hasForm = form > 1 || (form == 0 && knowsMass);
        if (hasForm && knowsMass && Below(2) == 0) {
            row["inertia_at"] = "origin";
        }
    }

    void Properties(Row& row, const std::string& owner)
    {
        for (const char* name : {"One", "Two.b", "Three_c"}) {
            if (Below(2) == 0) {
                continue;
            }
            const std::string property = owner + name;
            switch (Below(7)) {
            case 0:
                row[property] = OneOf({"x, y", "\"z\"", "ä"});
                break;
            case 1:
                row[property + ":date"] = "2024-02-29";
                break;
            case 2:
                row[property + ":int"] = OneOf({"-7", "+07", "9007199254740993", "-0"});
                break;
            case 3:
                row[property + ":real"] = Signed();
                break;
            case 4:
                row[property + ":bool"] = OneOf({"yes", "NO"});
                break;
            case 5:
                Number(row, property, {"degC", "h", "min", "W"}, Signed());
                break;
            default:
                Number(row, property + ":ENERGY", {"N.m", "W.h"}, Signed());
                break;
            }
        }
    }

    std::string Text() const
    {
        std::set<std::string> columns;
        for (const Row& row : m_rows) {
            for (const auto& [column, cell] : row) {
                columns.insert(column);
            }
        }
        const auto quoted = [](const std::string& cell) {
            std::string text = "\"";
            for (const char character : cell) {
                text.append(character == '"' ? 2 : 1, character);
            }
            return text + "\"";
        };
        std::string table;
        for (const std::string& column : columns) {
            table += (table.empty() ? "" : std::string(1, m_separator)) + column;
        }
        for (const Row& row : m_rows) {
            table += "\n";
            std::string line;
            for (const std::string& column : columns) {
                const auto cell = row.find(column);
                line += std::string(1, m_separator) +
                        (cell == row.end() || cell->second.empty() ? "" : quoted(cell->second));
            }
            table += line.substr(1);
        }
        return table + "\n";
    }

    std::mt19937 m_random;
    char m_mark;
    char m_separator;
    std::vector<std::string> m_names;
    std::vector<std::string> m_versions;
    std::set<std::size_t> m_parents;
    std::list<Row> m_rows; // a reference to a row stays good
};

std::string Numbers(const ValueSet& set)
{
    std::string text;
    for (const double number : set.numbers) {
        text += IsKnown(number) ? WriteShortest(number) + " " : "? ";
    }
    return text;
}

/// The texts as typed in any order.
std::string SortedTyped(const std::string& typed)
{
    std::set<std::string> entries;
    std::istringstream stream(typed);
    for (std::string entry; std::getline(stream, entry, '|');) {
        entries.insert(entry);
    }
    std::string text;
    for (const std::string& entry : entries) {
        text += entry + "|";
    }
    return text;
}

template <typename Owner>
std::string Described(const Owner& owner)
{
    std::string text = owner.activeType + "," + owner.material + "," + owner.note + "," +
                       WriteShortest(owner.density) + "," + WriteShortest(owner.surfaceDensity) +
                       "," + SortedTyped(owner.typed) + "\n";
    for (const ValueSet& set : owner.sets) {
        text += set.massType + ": " + Numbers(set) + set.source + set.sourceDate + set.author +
                set.note + SortedTyped(set.typed) + "\n";
    }
    for (const Property& property : owner.properties) {
        text += property.name + "=" + property.value + " " + property.magnitude + " " +
                std::to_string(static_cast<int>(property.type)) + (property.isDate ? "d" : "") +
                property.typed + "\n";
    }
    return text;
}

/// Everything that a database says of a product.
std::string Described(const Product& product)
{
    std::string text;
    for (const Part& part : product.parts) {
        text += "part " + part.identifier + " " + part.version + " " + part.name + " " +
                PartTypeName(part.type) + std::to_string(static_cast<int>(part.standard)) +
                std::to_string(static_cast<int>(part.densityFirst)) +
                std::to_string(static_cast<int>(part.errors)) + part.code + " " +
                WriteShortest(part.growthPct) + " " + Described(part);
        for (const DocumentRevision& revision : part.documents) {
            text += revision.document + revision.version +
                    std::to_string(static_cast<int>(revision.use)) + revision.checkinDate +
                    revision.checkinUser + revision.checkoutUser + revision.massType +
                    WriteShortest(revision.mass) + revision.typed + "\n";
        }
    }
    for (const Use& use : product.uses) {
        text += "use " + std::to_string(use.parent) + " " + use.instance + " " +
                std::to_string(use.part) + " " + std::to_string(use.quantity) +
                (use.positionStated ? "p" : "") + (use.rotationStated ? "r" : "");
        for (const double coefficient : Coefficients(use.placement)) {
            text += " " + WriteShortest(coefficient);
        }
        text += " " + Described(use);
    }
    for (const Material& material : product.materials) {
        text += material.name + WriteShortest(material.density) +
                WriteShortest(material.surfaceDensity) + SortedTyped(material.typed) + "\n";
    }
    return text;
}

/// All figures of the product to the last bit.
std::string Weighed(const Store& store, const std::string& root)
{
    const ProductGraph graph(store.ReadProduct(store.FindRoot(root)->id), store.MassTypes());
    const ComputeResult result = Compute(graph, AskedPath{}, {});
    std::ostringstream text;
    text << std::hexfloat << result.error;
    const Total& total = result.total;
    text << total.body.mass << ' ' << total.body.lower << ' ' << total.body.upper;
    for (const double term : total.body.centre) {
        text << ' ' << term;
    }
    for (const double term : total.body.inertia) {
        text << ' ' << term;
    }
    for (const std::string& warning : result.warnings) {
        text << '\n' << warning;
    }
    return text.str();
}

/// Exports a root, imports that into a new database, and exports again.
void ExpectSameAfterExport(Store& store, const std::string& root)
{
    const ProductExport first = ExportProduct(store, root);
    ASSERT_EQ(first.error, "");
    wbtest::ServedProduct other;
    const std::string path = other.Folder().Write("e.csv", first.table);
    ASSERT_THAT(ImportFile(other.Store(), path).errors, IsEmpty());
    const ProductExport second = ExportProduct(other.Store(), root);
    EXPECT_EQ(second.table, first.table);
    EXPECT_EQ(Described(other.Store().ReadProduct(other.Store().FindRoot(root)->id)),
              Described(store.ReadProduct(store.FindRoot(root)->id)));
    EXPECT_EQ(other.Store().Roots().size(), 1U);
    EXPECT_EQ(Weighed(other.Store(), root), Weighed(store, root));
    // The same table again, into either database, changes nothing.
    for (Store* target : {&other.Store(), &store}) {
        const std::size_t entries = target->History().size();
        for (const KnownFacts known : {KnownFacts::Update, KnownFacts::Refuse}) {
            ImportFileOptions options;
            options.known = known;
            options.replace = root;
            const ImportFileResult again = ImportFile(*target, path, options);
            EXPECT_THAT(again.errors, IsEmpty());
            EXPECT_FALSE(again.counts.Changes());
            EXPECT_THAT(again.counts.changedFacts, IsEmpty());
            EXPECT_GT(again.counts.unchangedParts, 0U);
        }
        EXPECT_EQ(target->History().size(), entries);
        EXPECT_EQ(ExportProduct(*target, root).table, first.table);
    }
}
} // namespace

TEST(ProductRoundTrip, EveryMadeProductComesBackAlike)
{
    for (unsigned seed = 1; seed <= 30; ++seed) {
        TableMaker maker(seed);
        const std::string table = maker.Make();
        wbtest::ServedProduct served;
        const std::string path = served.Folder().Write("t.csv", table);
        ASSERT_THAT(ImportFile(served.Store(), path).errors, IsEmpty()) << "seed " << seed;
        ExpectSameAfterExport(served.Store(), maker.RootName());
        ASSERT_FALSE(testing::Test::HasFailure()) << "seed " << seed << "\n" << table;
    }
}

TEST(ProductRoundTrip, SamplesComeBackAlikeOutOfOneDatabase)
{
    wbtest::ServedProduct served;
    served.ImportSample("light_aeroplane.csv");
    served.ImportSample("small_satellite.csv");
    ExpectSameAfterExport(served.Store(), "LA1");
    ExpectSameAfterExport(served.Store(), "SC1");
}

TEST(ProductRoundTrip, OnlyARootIsExported)
{
    wbtest::ServedProduct served;
    EXPECT_EQ(ExportProduct(served.Store(), "R").error,
              served.Store().Path() + ": the database holds no product");
    served.ImportTable("parent,instance,part\n,,R\nR,p,P\n,,O\n");
    EXPECT_EQ(ExportProduct(served.Store(), "P").error,
              served.Store().Path() + ": \"P\" is no product root, expected one of O A, R A");
}

TEST(ProductRoundTrip, LastStoredVersionOfARootIsExportedUnlessAnotherIsNamed)
{
    wbtest::ServedProduct served;
    served.ImportTable("part,version,name\nR,B,second\nR,A,first\n");
    EXPECT_EQ(ExportProduct(served.Store(), "R").table, "part,version,name\nR,A,first\n");
    EXPECT_EQ(ExportProduct(served.Store(), "R", "B").table, "part,version,name\nR,B,second\n");
    EXPECT_EQ(ExportProduct(served.Store(), "R", "C").error,
              served.Store().Path() + ": \"R C\" is no product root, expected one of R A, R B");
}

TEST(WBImport, WhatGaveWayIsTold)
{
    wbtest::ServedProduct served;
    served.ImportTable("parent,instance,part,mass_type,mass [kg]\n,,R,,\nR,p,P,Weighed,1\nR,q,Q,,\n"
                       ",,O,,\n");
    ImportFileOptions options;
    options.replace = "R";
    const std::string path = served.Folder().Write(
        "n.csv", "parent,instance,part,mass_type,mass [lb]\n,,R,,\nR,p,P,Weighed,2\n");
    EXPECT_THAT(ImportFile(served.Store(), path, options).Sentences(),
                testing::ElementsAre("rows: 2", "parts: 0 new, 1 changed, 1 unchanged",
                                     "uses: 0 new, 0 changed, 1 unchanged, 1 removed",
                                     "parts that nobody uses: R A, Q A",
                                     "removed: use R A / q: Q A",
                                     "changed: part P A, mass type Weighed, mass: 2 lb, was 1 kg"));
}

TEST(ProductRoundTrip, MostNumbersDecideTheDecimalMark)
{
    wbtest::ServedProduct served;
    served.ImportTable("parent,instance,part,mass_type,mass [kg]\n,,R,Weighed,1.5\n"
                       "R,p,P,Weighed,2.5\n");
    served.ImportTable("parent;instance;part;mass_type;mass [kg]\nR;q;Q;Weighed;3,5\n");
    EXPECT_EQ(ExportProduct(served.Store(), "R").table,
              "parent,parent_version,instance,part,version,mass_type,mass [kg]\n"
              ",,,R,A,Weighed,1.5\nR,A,p,P,A,Weighed,2.5\nR,A,q,Q,A,Weighed,3.5\n");
    served.ImportTable("parent;instance;part;mass_type;mass [kg]\nR;r;S;Weighed;4,5\n"
                       "R;s;T;Weighed;5,5\n");
    EXPECT_THAT(ExportProduct(served.Store(), "R").table,
                testing::HasSubstr("\nR;A;p;P;A;Weighed;2,5\n"));
}

TEST(WBImport, MissingFileIsNamed)
{
    wbtest::ServedProduct served;
    EXPECT_THAT(ImportFile(served.Store(), "/nowhere/x.csv").errors,
                testing::ElementsAre("/nowhere/x.csv: does not exist"));
}

TEST(WBImport, LongListsAreCounted)
{
    wbtest::ServedProduct served;
    std::string table = "part\n";
    for (int i = 1; i <= 250; ++i) {
        table += "P" + std::to_string(i) + "\n";
    }
    const auto result = ImportBytes(served.Store(), table, "t.csv");
    EXPECT_EQ(result.counts.unusedParts.size(), 250U);
    EXPECT_THAT(result.Sentences().at(3), testing::EndsWith(", P99 A, P100 A and 150 more"));
}

TEST(WBImport, BytesHaveTheNameThatTheyAreGiven)
{
    wbtest::ServedProduct served;
    EXPECT_THAT(ImportBytes(served.Store(), "part,mass\nP,1\n", "standard input").errors.at(0),
                testing::StartsWith("standard input:1: column \"mass\""));
    EXPECT_THAT(ImportBytes(served.Store(), "part\nP\n", "standard input").errors, IsEmpty());
    EXPECT_EQ(served.Store().History().at(0).subject, "standard input");
}

TEST(WBImport, DatabaseThatFailsIsToldAsASentence)
{
    wbtest::ServedProduct served;
    served.ImportTable("part\nR\n");
    const auto other = Store::Open(served.Store().Path(), 0);
    const auto isBusy = testing::ElementsAre(testing::HasSubstr("another program is writing"));
    {
        const StoreBatch batch(served.Store());
        EXPECT_THAT(ImportBytes(*other.store, "part\nP\n", "t.csv").errors, isBusy);
    }
    // Another program that has the file to itself keeps readers out as well.
    {
        wbtest::SqlConnection connection(served.Store().Path());
        connection.Run("BEGIN EXCLUSIVE");
        EXPECT_THAT(ImportBytes(*other.store, "part\nP\n", "t.csv").errors, isBusy);
        EXPECT_THAT(std::vector{ExportProduct(*other.store, "R").error}, isBusy);
    }
    EXPECT_EQ(ExportProduct(*other.store, "R").error, "");
}

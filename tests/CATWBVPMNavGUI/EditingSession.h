#pragma once

#include "MainPanelSession.h"

#include "CATDlgNotify.h"
#include "CATFatalError.h"

#include <QAbstractButton>
#include <QKeyEvent>
#include <QLineEdit>

#include <deque>

/// What the server says is stated: rows of owner, mass type, quantity, text, stored text, pending,
/// conflict, who and when.
struct StatedRow
{
    std::string owner;
    std::string massType;
    std::string name;
    std::string text = "__null__";
    std::string stored = text;
    std::string marks = "0|0|__null__|__null__|";

    std::string Text() const
    {
        return Join({owner, "|", massType, "|", name, "|", text, "|", stored, "|", marks});
    }
};

/// A main panel on a bolt, whose values can be edited: estimated with all that can be said of it,
/// weighed not yet. The user's answers to questions are given by the test.
class EditingSession : public MainPanelSession
{
protected:
    EditingSession()
    {
        CATDlgNotify::SetAnswerer([this](const CATDlgNotify::Shown& box) {
            boxes.push_back({box.title.ToStdString(), box.text.ToStdString()});
            const int answer = answers.empty() ? box.no : answers.front();
            if (!answers.empty() && box.blocking) {
                answers.pop_front();
            }
            return std::optional(answer);
        });
        // As in the workbench.
        CATSetFatalErrorHandler([](const CATFatalError& error) { throw error; });
        CATSession::SetFaultReporter(
            [this](const CATUnicodeString&, const CATUnicodeString&) { ++faults; });
        State("12.5");
        server->answers["WBListMassTypes"] = "0|";
        server->answers["WBApplyValues"] = "Apply|OK|1|";
        server->answers["WBPendingChanges"] = "0|";
        server->answers["WBHistory"] = "0|";
        server->details =
            DetailsSaid{"Bolt", {{"Computed", "0|0|0|"}, {"Estimated", "1|1|1|"}}}.Text();
        record = RecordOf("1|BOLT.1|BOLT|A|CAR|1|AXLE.1|" + Values("12.5"));
        record->SetIsLeaf(true);
    }
    ~EditingSession() override
    {
        CATSession::SetFaultReporter({});
        CATSetFatalErrorHandler({});
        CATDlgNotify::SetAnswerer({});
    }

    /// An answer of the record's values: estimated so many kilograms. Without an instance that the
    /// PDM knows it says too what of the density is the part's: kOfUse.
    static std::string Values(const std::string& mass, const std::string& ofUse = {})
    {
        return Join({"1|0|1|0|0|0|0|0|", "3|Computed|0|0|0|0|", "Estimated|1|", mass,
                     "|0.1|0.2|10|20|30|1|2|3|0.2|0.1|0.3|1|0|10|20|0|1|2|",
                     "Weighed|0|0|-0.5|0.5|", "1|Estimated|__null__|", "1|7850|Steel|", ofUse,
                     "1|1|0|", "1|0|0|0|1|0|0|0|1|5|6|7|",
                     "2|Vendor|1|0|Part|Smith|__null__|Flammable|4|0|Part|no|__null__|"});
    }
    /// What is stated, with that mass as the estimate.
    void State(const std::string& mass)
    {
        rows = {{"PartRef", "Estimated", "mass", mass},
                {"PartRef", "Estimated", "centre", "10;20;30"},
                {"PartRef", "Estimated", "inertia", "1;2;3;0.1;0.2;0.3"},
                {"PartRef", "Estimated", "precision"},
                {"PartRef", "Weighed", "mass"},
                {"PartRef", "Weighed", "centre"},
                {"PartRef", "Weighed", "inertia"},
                {"PartRef", "Weighed", "precision"},
                {"PartRef", "__null__", "active"},
                {"PartRef", "__null__", "density"},
                {"PartRef", "__null__", "material", "Steel"},
                {"PartRef", "__null__", "density order"},
                {"PartRef", "__null__", "property Vendor", "Smith"},
                {"PartRef", "__null__", "property Flammable", "no"}};
        SayWhatIsStated();
    }
    void SayWhatIsStated()
    {
        std::string text =
            "Bolt|1|0|" + places + "|0|2|Brass|Steel|0|0|" + std::to_string(rows.size()) + "|";
        for (const StatedRow& row : rows) {
            text += row.Text();
        }
        server->answers["WBGetStatedValues"] = text;
    }
    /// From now on the server has another estimate, pending or saved.
    void ServerHas(const std::string& mass, const std::string& stored)
    {
        State(mass);
        rows[0].stored = stored;
        rows[0].marks = mass == stored ? "0|0|__null__|__null__|" : "1|0|__null__|__null__|";
        SayWhatIsStated();
        server->answers["WBCompPartGetInitialValues"] = Values(mass);
    }

    QLineEdit* Line(const char* name) const { return panel->Widget()->findChild<QLineEdit*>(name); }
    /// As the user does it, the keys left in the field.
    void Enter(const char* name, const char* text) const
    {
        Line(name)->selectAll();
        Line(name)->insert(text);
    }
    void Press(const char* name, Qt::Key key) const
    {
        QKeyEvent press(QEvent::KeyPress, key, Qt::NoModifier);
        QApplication::sendEvent(Line(name), &press);
        Settle();
    }
    void Type(const char* name, const char* text) const
    {
        Enter(name, text);
        Press(name, Qt::Key_Return);
    }
    std::string Field(const char* name) const
    {
        return Find<CATDlgEditor>(name)->Text().ToStdString();
    }
    std::string Chosen(const char* name) const
    {
        const auto* combo = Find<CATDlgCombo>(name);
        return combo->SelectedIndex() < 0 ? "nothing"
                                          : combo->Line(combo->SelectedIndex()).ToStdString();
    }
    /// As the user does it.
    void Choose(const char* name, int line) const
    {
        Find<CATDlgCombo>(name)->Select(line);
        Find<CATDlgCombo>(name)->Send(CATDlgCombo::Selected, line);
        Settle();
    }
    void Click(const char* button) const
    {
        panel->Widget()->findChild<QAbstractButton*>(button)->click();
        Settle();
    }
    bool CanClick(const char* button) const
    {
        return Find<CATDlgPushButton>(button)->IsSensitive();
    }
    CATDlgLook LookOf(const char* name) const { return Find<CATDlgEditor>(name)->Look(); }
    std::string ProblemOn(const char* page) const
    {
        const auto* line = FindBelow<CATDlgLabel>(*Find<CATDlgTabPage>(page), "Problem");
        return line->IsVisible() ? line->Title().ToStdString() : "none";
    }
    void SelectMassType(int row) const
    {
        List("MassTypes")->SelectRow(row);
        List("MassTypes")->Send(CATDlgMultiList::RowSelected, row);
    }
    double EstimateOf(const CATWBAllDataBuffer& of) const
    {
        double mass = 0.0;
        of.GetMass("Estimated", mass);
        return mass;
    }

    static constexpr const char* kOfUse = "PartRef|1|7850|Steel|";
    struct Box
    {
        std::string title;
        std::string text;
    };
    static constexpr int kYes = 1;
    static constexpr int kNo = 2;
    static constexpr int kCancel = 5;
    std::vector<StatedRow> rows;
    std::string places = "1";
    RecordHandle record;
    std::vector<Box> boxes;
    std::deque<int> answers; // to the questions to come
    int faults = 0;
};

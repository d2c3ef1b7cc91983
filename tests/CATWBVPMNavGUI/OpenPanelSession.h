#pragma once

#include "PanelChecks.h"
#include "PanelSession.h"

#include "CATDlgControls.h"
#include "CATDlgNotify.h"
#include "CATNavigator.h"
#include "CATWBVPMNavGUITable.h"

#include <QComboBox>

/// Products that have nothing below them.
class LonelyProducts : public CATProductSource
{
public:
    std::vector<CATProductRow> Roots() override { return {}; }
    std::vector<CATProductRow> Uses(const CATUnicodeString&, const CATUnicodeString&) override
    {
        return {};
    }
};

/// A panel in a session with a main window, and what the user does with it; the session of each
/// panel makes it and opens the product that it is about.
template <class Panel, class Session = PanelSession>
class OpenPanelSession : public Session
{
protected:
    OpenPanelSession()
    {
        m_window = new CATDlgDialog(&CATSession::Root(), "Main", 0x4001);
        m_frame = std::make_unique<CATApplicationFrame>(m_window);
        m_table = CATWBVPMNavGUISetTable({});
        CATDlgNotify::SetAnswerer([this](const CATDlgNotify::Shown& box) {
            boxes.push_back({box.title.ToStdString(), box.text.ToStdString(), box.style});
            return std::optional(answer == Answer::Cancel ? box.cancel.value_or(box.no)
                                 : answer == Answer::Yes  ? box.yes
                                                          : box.no);
        });
    }
    ~OpenPanelSession() override
    {
        CATNavigator::Close();
        CATSession::Close();
        CATDlgNotify::SetAnswerer({});
        CATWBVPMNavGUISetTable(m_table);
    }

    /// A product with nothing in it.
    static void OpenProduct(const char* root)
    {
        CATProductRow row;
        row.instance = root;
        row.part = root;
        row.version = "A";
        CATNavigator::Open(std::make_shared<LonelyProducts>(), row);
    }
    /// The filter of every product leaves its door out.
    static void LeaveOutTheDoor()
    {
        CATWBVPMNavGUITable table;
        table.getFilter = [](const CATUnicodeString&) -> CATUnicodeString {
            return "1|Doors|X|D.1|D|A|0";
        };
        table.getDisplayFilter = [](const CATUnicodeString& root) {
            return "Doors of " + root;
        };
        CATWBVPMNavGUISetTable(table);
    }
    /// As the command does it.
    void Show(Panel* made)
    {
        panel = made;
        panel->Build();
        panel->SetVisibility(true);
        Settle();
    }
    template <class T>
    T* Find(const char* name) const
    {
        return FindBelow<T>(*panel, name);
    }
    std::string Text(const char* label) const
    {
        return Find<CATDlgLabel>(label)->Title().ToStdString();
    }
    std::string Typed(const char* field) const
    {
        return Find<CATDlgEditor>(field)->Text().ToStdString();
    }
    /// Whether the user can use it: neither it nor what it stands in is greyed.
    bool IsUsable(const char* name) const
    {
        return panel->Widget()->template findChild<QWidget*>(name)->isEnabled();
    }
    static void Press(QAbstractButton* button)
    {
        ASSERT_TRUE(button->isEnabled()) << button->objectName().toStdString();
        button->click();
        Settle();
    }
    void Click(const char* name) const
    {
        Press(panel->Widget()->template findChild<QAbstractButton*>(name));
    }
    void Choose(const char* combo, int line) const
    {
        qobject_cast<QComboBox*>(Find<CATDlgCombo>(combo)->Widget())->setCurrentIndex(line);
        Settle();
    }
    /// As the user does it: a character after the other.
    void Type(const char* field, const char* text) const
    {
        auto* editor = Find<CATDlgEditor>(field);
        editor->SetText(text);
        editor->Send(CATDlgEditor::Modified);
    }
    CATDlgDialog* Window() const { return m_window; }

    enum class Answer
    {
        Yes,
        No,
        Cancel
    };
    struct ShownBox
    {
        std::string title;
        std::string text;
        int style;
    };
    static constexpr int kErrorStyle = 0x10000000;
    static constexpr int kWarningStyle = 0x8000000;

    Panel* panel = nullptr;
    std::vector<ShownBox> boxes;
    Answer answer = Answer::Yes;

private:
    CATDlgDialog* m_window = nullptr;
    std::unique_ptr<CATApplicationFrame> m_frame;
    CATWBVPMNavGUITable m_table;
};

#pragma once

#include "PreviewSession.h"

#include "CATWBVPMNavDistributiveReportPreview.h"
#include "CATWBVPMNavMatStatPreview.h"

#include <QImage>
#include <QPixmap>

/// A preview that says which of its operations were called.
template <class Preview>
class HeardOther : public Preview
{
public:
    using Preview::Preview;
    using Preview::operator=;
    void OnSaveNotification() override
    {
        calls.emplace_back("Save");
        Preview::OnSaveNotification();
    }
    void OnCloseNotification() override
    {
        calls.emplace_back("Close");
        Preview::OnCloseNotification();
    }
    void OnSaveAsNotification() override
    {
        calls.emplace_back("SaveAs");
        Preview::OnSaveAsNotification();
    }
    void OnUnitsDisplayNotification() override
    {
        calls.emplace_back("Units");
        Preview::OnUnitsDisplayNotification();
    }
    void OnTrailingZeroNotification() override
    {
        calls.emplace_back("TrailingZero");
        Preview::OnTrailingZeroNotification();
    }
    void OnTrailingDigitsNotification() override
    {
        calls.emplace_back("TrailingDigits");
        Preview::OnTrailingDigitsNotification();
    }
    void UpdatePreviewPanelList() override
    {
        calls.emplace_back("Update");
        Preview::UpdatePreviewPanelList();
    }

    std::vector<std::string> calls;
};

/// A session with one report and a preview of that kind.
template <class Preview>
class OtherPreviewSession : public PreviewSession
{
protected:
    using Heard = HeardOther<Preview>;

    /// A preview of the report that is not built; the session owns it.
    Heard& Make(const std::string& text, unsigned char flag = 0)
    {
        document = Parsed(text);
        return Of(document, flag);
    }
    Heard& Of(const CATIDOMDocument_var& shown, unsigned char flag = 0)
    {
        preview = new Heard("Legs", shown, flag); // the command tree owns it
        watch = preview;
        return *preview;
    }
    Heard& Built(const std::string& text, unsigned char flag = 0)
    {
        Make(text, flag).Build();
        return *preview;
    }
    CATDlgMultiList& List(const char* name) const { return Find<CATDlgMultiList>(*preview, name); }
    CATDlgCheckButton& Units() const { return Find<CATDlgCheckButton>(*preview, "UnitsDisplay"); }
    CATDlgCheckButton& Zeros() const { return Find<CATDlgCheckButton>(*preview, "TrailingZero"); }
    CATDlgSpinner& Digits() const { return Find<CATDlgSpinner>(*preview, "DigitsDisplay"); }

    CATIDOMDocument_var document;
    Heard* preview = nullptr;
    CATCommandWatch<Preview> watch;
};

/// The empty list, which is shown, looks as it does with that text in its place.
inline void ExpectEmptyText(CATDlgMultiList& list, const char* text)
{
    CATDlgApplication::ProcessEvents();
    ASSERT_EQ(list.RowCount(), 0);
    const QImage asBuilt = list.Widget()->grab().toImage();
    list.SetEmptyText("");
    EXPECT_NE(asBuilt, list.Widget()->grab().toImage()) << text;
    list.SetEmptyText(text);
    EXPECT_EQ(asBuilt, list.Widget()->grab().toImage()) << text;
}

/// What a control says in both languages.
struct ShownText
{
    const char* control;
    const char* english;
    const char* german;
};

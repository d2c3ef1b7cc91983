#pragma once

#include "CATDlgDialog.h"

#include <functional>
#include <memory>
#include <optional>

/// A message box. Its name is its title until SetTitle says otherwise. Style words: 0x10000000 an
/// error, 0x8000000 a warning, 0 a plain message, two for a question with Yes and No: kQuestion,
/// and 0x8800200, a notification that lets choose, which differ in their answers alone; and
/// kQuestionWithCancel. Without a running toolkit a box that nobody answers goes to the diagnostic
/// error stream, and a question is answered as if it were closed.
class WB_EXPORT CATDlgNotify : public CATDlgDialog
{
public:
    /// The style of a question that answers 1 for yes and 2 for no.
    static constexpr int kQuestion = 0x20000000;
    /// The style of a question that answers 1 for yes, 2 for no and 5 for Cancel: leave all as it
    /// was before I was asked.
    static constexpr int kQuestionWithCancel = 0x20000001;

    CATDlgNotify(CATCommand* parent, const CATString& name, int style);
    ~CATDlgNotify() override;
    void SetText(const CATUnicodeString& text);
    /// What the buttons Yes and No of a question say instead: "Save" and "Leave for later". They
    /// answer the same. Nothing in other boxes.
    void SetChoices(const CATUnicodeString& yes, const CATUnicodeString& no);

    /// Shows the box and goes on; the box deletes itself when it is closed.
    void DisplayNonBlocking();
    /// Shows the box and waits for the user. kQuestion answers 1 for yes and 2 for no, 0x8800200 3
    /// for yes and 4 for no (closing the box, also by Esc, is no); kQuestionWithCancel 1, 2 and 5
    /// (closing it is Cancel); other boxes answer 1. The caller deletes the box, or lets the parent
    /// do it.
    int DisplayBlocking();

    /// Answers boxes in the user's place: called with every box before it is shown; an answer keeps
    /// it from being shown. A test or a story puts its own; an empty one asks the user again.
    struct Shown
    {
        CATString name;
        CATUnicodeString title;
        CATUnicodeString text;
        int style;
        bool blocking;
        int yes;                   ///< the answer of the Yes button, or of OK
        int no;                    ///< the answer of the No button, or of OK
        std::optional<int> cancel; ///< the answer of the Cancel button, where there is one
    };
    using Answerer = std::function<std::optional<int>(const Shown& box)>;
    static void SetAnswerer(Answerer answerer);

private:
    struct Box;
    std::optional<int> AskAnswerer(bool blocking) const;
    std::unique_ptr<Box> m_box;
};

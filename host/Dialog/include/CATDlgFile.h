#pragma once

#include "CATDlgDialog.h"

#include <functional>
#include <memory>
#include <optional>

/// Asks the user for a file: one to open, or one to save to. It does not ask whether an existing
/// file may be overwritten; whoever writes does.
class WB_EXPORT CATDlgFile : public CATDlgDialog
{
public:
    enum class Mode
    {
        Open,
        Save
    };
    CATDlgFile(CATCommand* parent, const CATString& name, Mode mode);
    ~CATDlgFile() override;

    static const CATEvent FileChosen; ///< Path holds the file
    static const CATEvent Cancelled;  ///< the user closed the box without a file

    /// The kind of file offered: what it is called ("Comma-separated values") and the end of its
    /// name without the dot ("csv"). Without one, all files are offered.
    void SetFileType(const CATUnicodeString& title, const CATUnicodeString& extension);
    /// The name that stands in the box at first.
    void SetSuggestedName(const CATUnicodeString& name);
    /// The directory that the box shows at first, read as CATFilePath reads it; the current one
    /// when it is not there.
    void SetDirectory(const CATUnicodeString& directory);

    /// Shows the box and goes on; FileChosen or Cancelled follows from the event loop.
    void Display();
    /// Shows the box and waits for the user; the file's path, the empty text when there is none.
    CATUnicodeString DisplayBlocking();
    /// The chosen file with its directory; empty until one is chosen. A name without an ending gets
    /// the file type's when it is to be saved to.
    CATUnicodeString Path() const;

    /// What the box asks for.
    struct Request
    {
        CATString name;
        CATUnicodeString title;
        Mode mode;
        CATUnicodeString suggestedName;
        CATUnicodeString extension;
        CATUnicodeString directory; ///< as it was read
    };
    /// Chooses in the user's place: called with every box before it is shown; a path keeps it from
    /// being shown, an empty path cancels. A test or a story puts its own; an empty one asks the
    /// user again. Without a running toolkit a box that nobody answers is cancelled.
    using Chooser = std::function<std::optional<CATUnicodeString>(const Request& request)>;
    static void SetChooser(Chooser chooser);

private:
    struct Choice;
    std::optional<CATUnicodeString> AskChooser() const;
    void ShowBox();
    void Finish(const CATUnicodeString& path);
    std::unique_ptr<Choice> m_choice;
};

#pragma once

#include "CATUnicodeString.h"

#include <functional>
#include <optional>
#include <string>

/// The text of a dialog's resource file "dialogs/<file>.toml", in the user's language where it has
/// one and else in English. Keys are the dotted paths of control names; a file may write them as
/// nested tables or as one quoted key.
std::optional<std::string> FindDialogText(const std::string& file, const std::string& key);

/// Whether any file of that name could be read. The first time it cannot, the problem is reported.
bool HasDialogTexts(const std::string& file);

void ReportDialogProblemsTo(std::function<void(const CATUnicodeString& sentence)> listener);

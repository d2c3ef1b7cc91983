#pragma once

#include "CATCkeParmDictionary.h"

#include <string>
#include <vector>

/// The session's unit files in the order in which they are read: "units/*.toml" of the session's
/// own resources, then of the directories of "WB_RESOURCE_PATH", then "units.toml" of the
/// directories of "CATUserSettingPath". What is read first counts; later files only add. A
/// directory that is named twice is read once.
std::vector<std::string> CATCkeUnitFilePaths();

/// The dictionary of these unit files, with the units current that the user's settings name. Every
/// entry that is wrong is reported by file, line and what was expected, and left out; the rest is
/// read. Never null; one without any magnitude is reported.
CATHandle<CATCkeParmDictionary> CATCkeReadDictionary(const std::vector<std::string>& paths,
                                                     const CATCkeReport& report);

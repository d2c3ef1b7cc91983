#pragma once

#include "CATUnicodeString.h"

#include <string>
#include <vector>

/// The first existing file `name` in a list of directories separated by ";" (empty entries are
/// skipped): its full path, or the empty text.
WB_EXPORT CATUnicodeString CATFindPath(const CATUnicodeString& name,
                                       const CATUnicodeString& directories);

/// The folder of the session's own resources (catalogs, dialogs, units, workbenches): the
/// "resources" folder beside the folder of the host's libraries. With "WB_RESOURCE_PATH" set, its
/// directories (separated by ";") are looked through before that.
WB_EXPORT std::vector<std::string> CATResourceDirectories();
/// The first resource of that relative name ("catalogs/X.toml"), or the empty text.
WB_EXPORT std::string CATFindResource(const std::string& relativeName);

#pragma once

#include "CATUnicodeString.h"

#include <functional>
#include <optional>
#include <string>

/// The variable's text, or null when it is not set. A variable set to an empty text is set. The
/// text stays valid until the next call.
WB_EXPORT const char* CATGetEnv(const char* name);
/// S_OK and the value when the variable is set; S_FALSE with the output untouched when it is not.
WB_EXPORT long CATGetEnvValue(const CATUnicodeString& name, CATUnicodeString& value);

/// Where the session reads its environment from; an empty source brings the process's own back.
using CATEnvironmentSource = std::function<std::optional<std::string>(const char* name)>;
WB_EXPORT void CATSetEnvironmentSource(CATEnvironmentSource source);

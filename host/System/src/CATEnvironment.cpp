#include "CATEnvironment.h"

#include "CATStatus.h"

#include <cstdlib>
#include <utility>

namespace
{

std::optional<std::string> ReadProcessEnvironment(const char* name)
{
    const char* value = std::getenv(name);
    return value == nullptr ? std::nullopt : std::optional<std::string>(value);
}

CATEnvironmentSource& Source()
{
    static CATEnvironmentSource source = ReadProcessEnvironment;
    return source;
}

} // namespace

const char* CATGetEnv(const char* name)
{
    // The source gives texts that nobody keeps, the caller gets a pointer: the last one lives here.
    static std::optional<std::string> value;
    value = Source()(name);
    return value ? value->c_str() : nullptr;
}

long CATGetEnvValue(const CATUnicodeString& name, CATUnicodeString& value)
{
    const char* found = CATGetEnv(name.Text());
    if (found == nullptr) {
        return S_FALSE;
    }
    value = found;
    return S_OK;
}

void CATSetEnvironmentSource(CATEnvironmentSource source)
{
    Source() = source ? std::move(source) : CATEnvironmentSource(ReadProcessEnvironment);
}

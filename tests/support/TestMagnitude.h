#pragma once

#include "CATCkeGlobalFunctions.h"

#include <map>
#include <string>
#include <utility>

/// A magnitude with the two units that a test gives it, either of which may be missing.
class TestMagnitude : public CATICkeMagnitude
{
public:
    TestMagnitude(CATICkeUnit_var storage, CATICkeUnit_var current)
        : m_storage(std::move(storage)), m_current(std::move(current))
    {}
    CATUnicodeString Name() const override { return "TEST"; }
    CATICkeUnit_var StorageUnit() const override { return m_storage; }
    CATICkeUnit_var CurrentUnit() const override { return m_current; }
    long SetCurrentUnit(const CATUnicodeString&) override { return E_FAIL; }
    CATICkeUnit_var FindUnit(const CATUnicodeString&) const override { return {}; }
    CATListValCATUnicodeString UnitSymbols() const override { return {}; }
    long UseUnit(const CATUnicodeString&) override { return E_FAIL; }

private:
    CATICkeUnit_var m_storage;
    CATICkeUnit_var m_current;
};

inline CATICkeMagnitude_var MagnitudeOf(const CATICkeUnit_var& storage,
                                        const CATICkeUnit_var& current)
{
    return CATICkeMagnitude_var::Adopt(new TestMagnitude(storage, current));
}

/// A dictionary of the magnitudes that a test gives it, and no others.
class TestDictionary : public CATICkeParmDictionary
{
public:
    CATICkeMagnitude_var FindMagnitude(const CATUnicodeString& name) const override
    {
        const auto found = magnitudes.find(name.ToStdString());
        return found == magnitudes.end() ? CATICkeMagnitude_var() : found->second;
    }
    CATListValCATUnicodeString MagnitudeNames() const override { return {}; }

    std::map<std::string, CATICkeMagnitude_var> magnitudes;
};

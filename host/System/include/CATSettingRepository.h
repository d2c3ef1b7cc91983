#pragma once

#include "CATCollections.h"
#include "CATUnicodeString.h"

#include <functional>
#include <memory>
#include <string>
#include <vector>

/// A named set of settings that outlives the session: the TOML file "<name>.CATSettings", looked
/// for in the directories of "CATUserSettingPath" (where it is written) and then of
/// "CATReferenceSettingPath" (whose values count where the user has none).
///
/// Writing a setting changes memory; SaveRepository writes the file: a new file beside the old one,
/// flushed and renamed, so that a crash at any moment leaves the old or the new one, whole. Commit
/// makes the present values the ones that Rollback returns to. A user's file that cannot be read is
/// set aside under another name and reported, never overwritten.
class WB_EXPORT CATSettingRepository
{
public:
    CATSettingRepository(const CATSettingRepository&) = delete;
    CATSettingRepository& operator=(const CATSettingRepository&) = delete;
    ~CATSettingRepository();

    /// The repository of that name, the same one for every caller in the session; null when the
    /// name is empty, has a "/" in it, or neither a user directory nor a reference file exists. The
    /// session owns it.
    static CATSettingRepository* GetRepository(const CATUnicodeString& name);
    /// Forgets every repository read so far: the next GetRepository reads its file again.
    static void CloseAll();
    /// Who is told that a settings file could not be read or written; the sentence names the file.
    static void ReportProblemsTo(std::function<void(const CATUnicodeString& sentence)> listener);

    const CATUnicodeString& Name() const;

    // Reading: S_OK and the value; S_FALSE when there is no such setting and E_FAIL when it is of
    // another kind, both with the output untouched.
    long ReadSetting(const CATUnicodeString& key, int& value) const;
    long ReadSetting(const CATUnicodeString& key, double& value) const;
    long ReadSetting(const CATUnicodeString& key, CATUnicodeString& value) const;
    long ReadSetting(const CATUnicodeString& key, CATListValCATUnicodeString& values) const;
    // Writing: S_OK; E_INVALIDARG for an empty key.
    long WriteSetting(const CATUnicodeString& key, int value);
    long WriteSetting(const CATUnicodeString& key, double value);
    long WriteSetting(const CATUnicodeString& key, const CATUnicodeString& value);
    long WriteSetting(const CATUnicodeString& key, const CATListValCATUnicodeString& values);
    /// S_OK, or S_FALSE when the user has no such setting. A reference value shows again.
    long RemoveSetting(const CATUnicodeString& key);
    /// The keys in order, the user's and the reference's.
    CATListValCATUnicodeString Keys() const;

    /// S_OK; E_FAIL, with the reason told to the listener, when the file cannot be written.
    long SaveRepository();
    long Commit();
    long Rollback();

private:
    struct Contents;
    explicit CATSettingRepository(std::unique_ptr<Contents> contents);
    std::unique_ptr<Contents> m_contents;
};

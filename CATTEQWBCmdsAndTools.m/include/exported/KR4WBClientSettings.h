#pragma once

#include "CATCollections.h"
#include "CATStatus.h"
#include "CATUnicodeString.h"
#include "WBExport.h"

class CATSettingRepository;

/// What the weight and balance client remembers for its user from one session to the next: how the
/// previews show a report, and the named groups of instances and of criteria. Everything stands in
/// the settings repository "KR4WBClientSettings", opened by the first operation and kept for the
/// whole session.
///
/// A setting that is written stays in memory until Save brings it into the file; Commit makes the
/// present values the ones that Rollback returns to. No setting has a default of its own: one that
/// was never written reads as a failure, and whoever reads it knows what to take instead.
///
/// Statuses are S_OK and E_FAIL unless something else is said. E_FAIL means that a setting could
/// not be read or written, or that there is no place for the user's settings at all; outputs that
/// an operation does not speak of are untouched then. Nothing is shown to the user.
class WB_EXPORT KR4WBClientSettings
{
public:
    KR4WBClientSettings() = delete;

    /// The version of the settings, a free text of whoever set it.
    static long GetVersion(CATUnicodeString& version);
    static long SetVersion(const CATUnicodeString& version);

    /// Writes the file; E_FAIL when that is not possible, and the old file is whole then.
    static long Save();
    static long Commit();
    /// Forgets what was written since the last Commit, or since the file was read.
    static long Rollback();

    /// How the previews show a report: with unit symbols, with trailing zeros, with how many
    /// digits. The two flags are 1 exactly when the stored number is 1, else 0. The first setting
    /// that cannot be read ends the operation with E_FAIL: its own flag is 0 then, and what stands
    /// behind it is untouched. So a new user gets E_FAIL and `unitsDisplay` 0.
    static long GetReportDisplay(unsigned char& unitsDisplay, unsigned char& trailingZero,
                                 int& nbDigits);
    /// Any flag other than 0 is kept as 1; any number of digits is kept as it is. The first setting
    /// that cannot be written ends the operation with E_FAIL.
    static long SetReportDisplay(unsigned char& unitsDisplay, unsigned char& trailingZero,
                                 int& nbDigits);

    // Groups. They are kept under a prefix, which says whose they are, and their name. Nothing in
    // this library calls these operations: they are offered to the group panel, whose buttons save
    // and retrieve groups.

    /// A group of instances: five lists of equal length, one item of each for an instance.
    static long SetItemInstanceGroup(CATUnicodeString prefix, CATUnicodeString name,
                                     CATListValCATUnicodeString& l1, CATListValCATUnicodeString& l2,
                                     CATListValCATUnicodeString& l3, CATListValCATUnicodeString& l4,
                                     CATListValCATUnicodeString& l5);
    /// Appends the group's instances to the lists. Entries that are too many to be shared out
    /// evenly are left out. A group that is stored incompletely is given as far as it can be read,
    /// empty texts standing for the rest, with E_FAIL; one that was never stored gives nothing and
    /// S_OK.
    static long GetItemInstanceGroup(CATUnicodeString prefix, CATUnicodeString name,
                                     CATListValCATUnicodeString& l1, CATListValCATUnicodeString& l2,
                                     CATListValCATUnicodeString& l3, CATListValCATUnicodeString& l4,
                                     CATListValCATUnicodeString& l5);
    /// A group of criteria: how they are combined, and four lists of equal length, one item of each
    /// for a criterion.
    static long SetCriteriaGroup(CATUnicodeString prefix, CATUnicodeString name,
                                 CATUnicodeString criterion, CATListValCATUnicodeString& m1,
                                 CATListValCATUnicodeString& m2, CATListValCATUnicodeString& m3,
                                 CATListValCATUnicodeString& m4);
    /// The same for the criteria; `criterion` is replaced. S_FALSE, with every output untouched,
    /// when nothing is stored, also where there is no place to store it.
    static long GetCriteriaGroup(CATUnicodeString prefix, CATUnicodeString name,
                                 CATUnicodeString& criterion, CATListValCATUnicodeString& m1,
                                 CATListValCATUnicodeString& m2, CATListValCATUnicodeString& m3,
                                 CATListValCATUnicodeString& m4);

    /// Where the user's settings are written: the first directory of "CATUserSettingPath". A value
    /// that begins with ";" is given whole. Writes it to the diagnostic output. E_FAIL, with an
    /// empty path, when the variable is not set.
    static long GetCATSettingsOrigin(CATUnicodeString& path);
    /// S_OK (0) when there is a settings file, in the user's first directory or anywhere in
    /// "CATReferenceSettingPath"; S_FALSE (1) when there is none. So 0 means yes, the reverse of
    /// what the name suggests, and stays so for whoever calls it already. Says on the diagnostic
    /// output where it looked.
    static long GetFileExist();

private:
    static long GetSettingRepository(CATSettingRepository*& repository);
    static long WriteListSetting(const CATUnicodeString& key,
                                 const CATListValCATUnicodeString& list);
    static long ReadListSetting(const CATUnicodeString& key, CATListValCATUnicodeString& list);
    static long GetListCount(const CATUnicodeString& key, int& count);
};

#pragma once

#include "CATUnicodeString.h"

/// The path that the file layer really uses for `path`. Commands join a directory and a file name
/// with "\", and their default directory is "C:\Temp"; here "\" is an ordinary character of file
/// names. So the directory "C:\Temp" is read as the system's temporary directory, and the one "\"
/// that follows an existing directory (the longest, where several fit) as the separator; every
/// other "\" stays as it is.
WB_EXPORT CATUnicodeString CATFilePath(const CATUnicodeString& path);

/// What may be done with the file, the path read as CATFilePath reads it. Mode 0 asks whether there
/// is such a file or directory, 2 whether it may be written, 4 whether it may be read, 6 both.
/// S_OK for yes, E_FAIL for no.
WB_EXPORT long CATFileAccess(const CATUnicodeString& path, int mode);

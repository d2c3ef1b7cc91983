#pragma once

#include <string>

/// The database with the two sample products that the program brings along: made at the first call
/// in `directory` under a name that follows from the files' contents, so that changed samples are
/// read anew. Empty, with what is wrong, when that fails.
std::string SampleDatabase(const std::string& directory, std::string& problem);

/// The user's own folder for data ("$XDG_DATA_HOME/wb"), made when it is missing.
std::string UserDataDirectory();
/// The user's own folder for settings ("$XDG_CONFIG_HOME/wb").
std::string UserSettingsDirectory();

#pragma once

#include <chrono>
#include <string>

namespace wb
{
/// A moment as reports write it, in the time of the place where the server runs:
/// "yyyy/mm/dd hh:mm:ss".
std::string ReportTime(std::chrono::system_clock::time_point moment);
/// The same of a moment as the database keeps it, "yyyy-mm-dd hh:mm:ss" in UTC; a text that is no
/// moment stays as it is.
std::string WireTime(const std::string& stored);
} // namespace wb

#pragma once
// The one date form of the files, the log and the store: "yyyy-mm-dd Hh:Nn:Ss", that is a
// four-digit year, then month, day, hours (0-23), minutes and seconds of two digits each, for
// instance "2024-03-07 09:05:00".

#include <ctime>
#include <string>

namespace qdf {

// Takes the calendar fields of `t` as they stand (tm_year + 1900, tm_mon + 1); nothing is
// normalised, so the caller's fields are what the text shows.
std::string FormatDateTime(const std::tm& t);

// The present local time in the same form.
std::string NowDateTime();

}  // namespace qdf

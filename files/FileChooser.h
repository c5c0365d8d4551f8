#pragma once
// A file dialog as the menu commands of this library see it, so that they stay free of any
// toolkit: the wizard hands in its open or save dialog, tests a script.

#include <functional>
#include <string>

namespace qdf {

// Shows the dialog with a filter ("CSV File (*.CSV) | *.CSV") and the name offered; returns the
// chosen path, or an empty text when the user chose nothing.
using ChooseFile =
    std::function<std::string(const std::string& filter, const std::string& offered)>;

inline constexpr const char* kPmfFilter = "PMF File (*.PMF) | *.PMF";
inline constexpr const char* kCsvFilter = "CSV File (*.CSV) | *.CSV";

}  // namespace qdf

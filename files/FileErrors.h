#pragma once
// Failures at the file boundary that a menu command tells the user about: a file that cannot be
// opened for the access asked (a read-only file chosen for saving, a folder that doesn't exist).

#include <stdexcept>
#include <string>

namespace qdf {

class FileAccessError : public std::runtime_error {
  public:
    explicit FileAccessError(const std::string& path)
        : std::runtime_error("cannot access file: " + path) {}
};

}  // namespace qdf

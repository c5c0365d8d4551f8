#pragma once
// A store and a private log folder per test: QDF_LOG_DIR points at a fresh temporary folder, so
// every library failure a test provokes is logged where the test can read it.

#include <gtest/gtest.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

#include "clsExGlobalVars.h"

namespace qdf::test {

class PropertyTest : public ::testing::Test {
  protected:
    void SetUp() override {
        const auto* info = ::testing::UnitTest::GetInstance()->current_test_info();
        dir_ = std::filesystem::temp_directory_path() /
               (std::string("qdf_props_") + info->name() + "_" + std::to_string(::getpid()));
        std::filesystem::remove_all(dir_);
        std::filesystem::create_directories(dir_);
        ::setenv("QDF_LOG_DIR", dir_.string().c_str(), 1);
        store.BusID = "HART";
        store.tag = "FT-101";
    }
    void TearDown() override {
        ::unsetenv("QDF_LOG_DIR");
        std::filesystem::remove_all(dir_);
    }
    std::filesystem::path LogPath(const std::string& file = "QDFSondra.log") const {
        return dir_ / file;
    }
    // The log's lines without their CR LF ends; a missing log has none.
    std::vector<std::string> LogLines(const std::string& file = "QDFSondra.log") const {
        std::ifstream in(LogPath(file), std::ios::binary);
        std::stringstream ss;
        ss << in.rdbuf();
        const std::string text = ss.str();
        std::vector<std::string> lines;
        for (std::size_t start = 0, end; start < text.size(); start = end + 2) {
            end = text.find("\r\n", start);
            if (end == std::string::npos) end = text.size();
            lines.push_back(text.substr(start, end - start));
        }
        return lines;
    }

    std::filesystem::path dir_;
    clsExGlobalVars store;
};

// The fields of a log line, quotes kept (no field of ours holds a comma).
inline std::vector<std::string> Fields(const std::string& line) {
    std::vector<std::string> out;
    std::stringstream ss(line);
    for (std::string f; std::getline(ss, f, ',');) out.push_back(f);
    return out;
}

}  // namespace qdf::test

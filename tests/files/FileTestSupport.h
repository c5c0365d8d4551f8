#pragma once
// A frame reduced to its message service, a private folder per test (also the log folder) and
// file helpers shared by the file format tests.

#include <gtest/gtest.h>

#include <unistd.h>

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <deque>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <memory>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include "SDKFrame.h"
#include "clsExGlobalVars.h"

namespace qdf::test {

struct Shown {
    std::string title, text;
    int kind, buttons, def;
    friend bool operator==(const Shown&, const Shown&) = default;
};

// Records every message; questions take the queued answers, then their default.
class FakeFrame : public ISDKManager, public ISDKMessageService {
  public:
    std::deque<int> answers;
    std::vector<Shown> shown;

    void RequestBusinessObject(const std::string&, ISDKAsyncStatus*) override {}
    ISDKVariable* FindVariable(std::int32_t, const std::string&) override { return nullptr; }
    ISDKAccessor* OpenVariable(ISDKVariable*) override { return nullptr; }
    std::shared_ptr<ISDKParameterWriter> GetParameterWriter() override { return nullptr; }
    void CloseModule(const std::string&) override {}
    ISDKMessageService* SDKMessageService() override { return this; }

    std::int32_t ShowMessage(const std::string& title, const std::string& text, std::int32_t kind,
                             std::int32_t buttons, std::int32_t def) override {
        shown.push_back({title, text, kind, buttons, def});
        if (buttons == 2 || answers.empty()) return buttons == 2 ? 4 : def;
        const int a = answers.front();
        answers.pop_front();
        return a;
    }
};

// The lines of a file under tests/files/data, as they stand.
inline std::vector<std::string> DataLines(const std::string& name) {
    std::ifstream in(std::string(QDF_SOURCE_DIR) + "/tests/files/data/" + name);
    if (!in) throw std::runtime_error("cannot open " + name);
    std::vector<std::string> lines;
    for (std::string line; std::getline(in, line);) lines.push_back(line);
    return lines;
}

// got[from...] against an expected text under tests/files/data, one line per line ('#' lines at
// its top say what it is); each difference names the data file's line. whole: got must also end
// where the file ends.
inline void ExpectDataLines(const std::vector<std::string>& got, const std::string& name,
                            std::size_t from = 0, bool whole = true) {
    std::ifstream in(std::string(QDF_SOURCE_DIR) + "/tests/files/data/" + name);
    ASSERT_TRUE(in) << "cannot open " << name;
    std::vector<std::pair<int, std::string>> want;
    std::string line;
    for (int number = 1; std::getline(in, line); ++number)
        if (!want.empty() || line.empty() || line[0] != '#') want.emplace_back(number, line);
    ASSERT_FALSE(want.empty()) << name;
    std::size_t i = from;
    for (const auto& [number, text] : want) {
        ASSERT_LT(i, got.size()) << name << ":" << number << " missing: " << text;
        EXPECT_EQ(got[i++], text) << name << ":" << number;
    }
    if (whole) {
        EXPECT_EQ(got.size(), i) << name << ": more lines than expected";
    }
}

class FileTest : public ::testing::Test {
  protected:
    void SetUp() override {
        const auto* info = ::testing::UnitTest::GetInstance()->current_test_info();
        std::string name = std::string("qdf_files_") + info->test_suite_name() + "_" +
                           info->name() + "_" + std::to_string(::getpid());
        std::replace(name.begin(), name.end(), '/', '_');  // parameterised test names
        dir_ = std::filesystem::temp_directory_path() / name;
        std::filesystem::remove_all(dir_);
        std::filesystem::create_directories(dir_);
        ::setenv("QDF_LOG_DIR", dir_.string().c_str(), 1);
        store.BusID = "HART";
        store.SDKManager = &frame;
    }
    void TearDown() override {
        ::unsetenv("QDF_LOG_DIR");
        std::filesystem::remove_all(dir_);
    }

    std::string Path(const std::string& name) const { return (dir_ / name).string(); }

    static std::vector<std::uint8_t> ReadBytes(const std::string& path) {
        std::ifstream in(path, std::ios::binary);
        return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
    }
    static std::string ReadText(const std::string& path) {
        std::ifstream in(path, std::ios::binary);
        return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
    }
    static void WriteText(const std::string& path, const std::string& text) {
        std::ofstream out(path, std::ios::binary | std::ios::trunc);
        out << text;
    }
    static void WriteBytes(const std::string& path, const std::vector<std::uint8_t>& bytes) {
        std::ofstream out(path, std::ios::binary | std::ios::trunc);
        out.write(reinterpret_cast<const char*>(bytes.data()),
                  static_cast<std::streamsize>(bytes.size()));
    }

    FakeFrame frame;
    clsExGlobalVars store;

  private:
    std::filesystem::path dir_;
};

}  // namespace qdf::test

// Store members kept as JSON files beside the tests: an object of member names to values, an
// array member to its leading elements; '//' comments allowed. ApplyMembers sets them,
// ExpectMembers checks them exactly, each difference named by file and member.
#ifndef TESTS_COMMON_STOREMEMBERS_H
#define TESTS_COMMON_STOREMEMBERS_H

#include <gtest/gtest.h>

#include <fstream>
#include <stdexcept>
#include <string>

#include <nlohmann/json.hpp>

#include "StoreRegistry.h"
#include "clsExGlobalVars.h"

namespace qdf::testdata {

// path: from the repository root, e.g. "tests/files/data/report_common.json".
inline nlohmann::ordered_json LoadMembers(const std::string& path) {
    std::ifstream in(std::string(QDF_SOURCE_DIR) + "/" + path);
    if (!in) throw std::runtime_error("cannot open " + path);
    nlohmann::ordered_json j = nlohmann::ordered_json::parse(in, nullptr, true, true);
    if (!j.is_object() || j.empty()) throw std::runtime_error(path + ": no members");
    for (const auto& [member, value] : j.items())
        if (!FindMember(member)) throw std::runtime_error(path + ": no member " + member);
    return j;
}

inline void ApplyMembers(clsExGlobalVars& s, const std::string& path) {
    const nlohmann::ordered_json j = LoadMembers(path);
    for (const auto& [member, value] : j.items()) MemberFromJson(s, *FindMember(member), value);
}

inline void ExpectMembers(const clsExGlobalVars& s, const std::string& path) {
    const nlohmann::ordered_json j = LoadMembers(path);
    for (const auto& [member, want] : j.items()) {
        const nlohmann::ordered_json got = MemberToJson(s, *FindMember(member));
        if (!want.is_array()) {
            EXPECT_EQ(got, want) << path << ": " << member;
            continue;
        }
        ASSERT_TRUE(got.is_array() && got.size() >= want.size()) << path << ": " << member;
        for (std::size_t i = 0; i < want.size(); ++i)
            EXPECT_EQ(got[i], want[i]) << path << ": " << member << "[" << i << "]";
    }
}

}  // namespace qdf::testdata

#endif

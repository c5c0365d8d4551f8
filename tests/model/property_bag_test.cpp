// The property bag on its own: keys kept in one block with an index of their own, and the
// byte form's rejection of blocks it did not write.

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <stdexcept>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "PropertyBag.h"

using qdf::PropertyBag;
using qdf::Value;
using namespace std::string_view_literals;

namespace {

std::vector<std::pair<std::string, Value>> EntriesOf(const PropertyBag& bag) {
    std::vector<std::pair<std::string, Value>> out;
    for (const auto& [k, v] : bag.entries()) out.emplace_back(std::string(k), v);
    return out;
}

}  // namespace

TEST(PropertyBagIndex, GrowsWithoutLosingKeysOrderOrReplacements) {
    // Catches an index that loses or misplaces keys when it grows, a replacement that moves its
    // key to the end or adds it twice, and a copy that shares its index with the original. So
    // many keys that some share their whole hash: telling them apart takes the key itself.
    constexpr int kKeys = 200000;
    PropertyBag bag;
    std::vector<std::pair<std::string, Value>> expected;
    for (int i = 0; i < kKeys; ++i) {
        const std::string key = "m_UI_DensAbsPress_" + std::to_string(i);
        bag.WriteProperty(key, Value(std::int32_t{i}));
        expected.emplace_back(key, Value(std::int32_t{i}));
        if (i % 3 == 0 && i > 0) {  // an earlier key again, while the index keeps growing
            const int j = i / 3;
            bag.WriteProperty(expected[j].first, Value(-1.0 * j));
            expected[j].second = Value(-1.0 * j);
        }
    }
    ASSERT_EQ(bag.size(), expected.size());
    EXPECT_EQ(EntriesOf(bag), expected);
    for (const auto& [k, v] : expected) ASSERT_EQ(bag.ReadProperty(k), v) << k;
    EXPECT_EQ(bag.Find("m_UI_DensAbsPress_200000"), nullptr);
    EXPECT_THROW(bag.ReadProperty("m_UI_DensAbsPress_"), std::out_of_range);

    PropertyBag copy = bag;
    copy.WriteProperty("m_UI_DensAbsPress_5", Value("changed"));
    copy.WriteProperty("only in the copy", Value());
    EXPECT_EQ(bag.ReadProperty("m_UI_DensAbsPress_5"), expected[5].second);
    EXPECT_FALSE(bag.Contains("only in the copy"));
    EXPECT_EQ(copy.size(), bag.size() + 1);
    EXPECT_EQ(EntriesOf(copy)[5].second, Value("changed"));

    const auto restored = PropertyBag::FromBytes(bag.Contents());
    ASSERT_TRUE(restored);
    EXPECT_EQ(*restored, bag);
}

TEST(PropertyBagIndex, KeysThatDifferInOneCharacterOrLengthStayApart) {
    // Catches a key compare or hash that ignores characters (the first, the last, those past a
    // word, an embedded NUL) or the length: every key of every length up to three words.
    const std::string base = "m_Xmtr_CONFIG_VSTRING16_ENTRY2_m";
    std::vector<std::string> keys;
    for (std::size_t n = 0; n <= base.size(); ++n) {
        keys.push_back(base.substr(0, n));
        if (n == 0) continue;
        std::string first = keys.back(), last = keys.back(), nul = keys.back();
        first.front() = '#';
        last.back() = '#';
        nul.back() = '\0';
        keys.insert(keys.end(), {first, last, nul});
    }
    PropertyBag bag;
    for (std::size_t i = 0; i < keys.size(); ++i)
        bag.WriteProperty(keys[i], Value(static_cast<std::int32_t>(i)));
    // A key that is both a "last" and a "first" variant of a one-character key is one key.
    std::vector<std::string> distinct;
    for (const std::string& k : keys)
        if (std::find(distinct.begin(), distinct.end(), k) == distinct.end()) distinct.push_back(k);
    EXPECT_EQ(bag.size(), distinct.size());
    for (const std::string& k : distinct) {
        const auto last = std::find(keys.rbegin(), keys.rend(), k);
        ASSERT_TRUE(bag.Contains(k)) << k;
        EXPECT_EQ(bag.ReadProperty(k), Value(static_cast<std::int32_t>(keys.rend() - last - 1)))
            << k;
    }
    EXPECT_FALSE(bag.Contains(base + "_"));
    EXPECT_FALSE(bag.Contains("\0\0"sv));
}

TEST(PropertyBagIndex, KeyTakenFromTheBagItself) {
    // Catches a key that points into the bag's own key characters being read after they move:
    // each new key is a prefix of one the bag holds, written while the key block grows.
    PropertyBag bag;
    bag.WriteProperty(std::string(300, 'k') + "_last", Value(0.5));
    for (std::size_t n = 1; n < 300; ++n) {
        const std::string_view held = (*bag.entries().begin()).first;
        bag.WriteProperty(held.substr(0, n), Value(static_cast<std::int32_t>(n)));
    }
    ASSERT_EQ(bag.size(), 300u);
    for (std::size_t n = 1; n < 300; ++n)
        ASSERT_EQ(bag.ReadProperty(std::string(n, 'k')), Value(static_cast<std::int32_t>(n)));
    EXPECT_EQ(bag.ReadProperty(std::string(300, 'k') + "_last"), Value(0.5));
}

TEST(PropertyBagBytes, DamagedBlocksDuplicateKeysAndWrongCountsAreRejected) {
    // Catches a reader that accepts, or reads past, a truncated or altered block, lets a second
    // entry of a key replace the first, trusts the count over the bytes, or sizes itself from a
    // count no block of that length can hold.
    PropertyBag bag;
    bag.WriteProperty("m_a", Value(1.5));
    bag.WriteProperty("m_b", Value(std::int16_t{2}));
    bag.WriteProperty("", Value());
    bag.WriteProperty("m_c", Value(std::vector<std::string>{"1:a", "2:b"}));
    bag.WriteProperty("m_d", Value(true));
    const std::vector<std::uint8_t> bytes = bag.Contents();
    ASSERT_EQ(PropertyBag::FromBytes(bytes), bag);
    for (std::size_t n = 0; n < bytes.size(); ++n)
        EXPECT_FALSE(PropertyBag::FromBytes({bytes.begin(), bytes.begin() + n})) << n;
    auto longer = bytes;
    longer.push_back(0);
    EXPECT_FALSE(PropertyBag::FromBytes(longer));
    auto badMagic = bytes;
    badMagic[0] = 'X';
    EXPECT_FALSE(PropertyBag::FromBytes(badMagic));

    auto twice = bytes;
    const std::size_t b =
        std::string_view(reinterpret_cast<const char*>(twice.data()), twice.size()).find("m_b");
    ASSERT_NE(b, std::string_view::npos);
    twice[b + 2] = 'a';
    EXPECT_FALSE(PropertyBag::FromBytes(twice));

    auto setCount = [&bytes](std::uint32_t n) {
        auto out = bytes;
        for (int i = 0; i < 4; ++i) out[4 + i] = static_cast<std::uint8_t>(n >> (8 * i));
        return PropertyBag::FromBytes(out);
    };
    EXPECT_FALSE(setCount(4));  // the fifth entry is left over
    EXPECT_FALSE(setCount(6));
    EXPECT_FALSE(setCount(0xFFFFFFFFu));
    EXPECT_TRUE(setCount(5));
}

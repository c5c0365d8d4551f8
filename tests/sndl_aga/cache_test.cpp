#include <gtest/gtest.h>

#include <array>
#include <thread>
#include <vector>

#include "sndl/sndl_aga.h"

namespace {

using Y21 = std::array<double, 21>;

// Two natural gases that differ in a few fractions only: a lean gas and a richer one.
constexpr Y21 kLean = {0.965, 0.003,  0.006,  0.018,  0.0045, 0, 0, 0, 0, 0, 0.001,
                       0.001, 0.0005, 0.0003, 0.0007, 0,      0, 0, 0, 0, 0};
constexpr Y21 kRich = {0.886, 0.003,  0.006,  0.068,  0.0245, 0, 0, 0, 0, 0, 0.006,
                       0.004, 0.0015, 0.0003, 0.0007, 0,      0, 0, 0, 0, 0};

struct Result {
    int32_t status;
    double vdn, mw;
};

Result Call(double T, double P, Y21 y) {
    Result r{-9, 0.0, 0.0};
    r.status = AgaDtlVdnMw(T, P, y.data(), &r.vdn, &r.mw);
    return r;
}

// The value a thread gets on its first call, with nothing kept from before.
Result Fresh(double T, double P, const Y21& y) {
    Result r{};
    std::thread([&] { r = Call(T, P, y); }).join();
    return r;
}

}  // namespace

// A grid alternating between two gases, and between two temperatures with one gas, must get
// each gas's own value every time, never the one of the call before.
TEST(DetailCache, AlternatingGasesAndTemperaturesEachGetTheirOwnValue) {
    const Result lean = Fresh(288.15, 5e6, kLean);
    const Result rich = Fresh(288.15, 5e6, kRich);
    const Result leanCold = Fresh(263.15, 5e6, kLean);
    ASSERT_EQ(lean.status, SNDL_NORMAL);
    ASSERT_EQ(rich.status, SNDL_NORMAL);
    ASSERT_GT(rich.vdn / lean.vdn, 1.02);  // different enough that a mix-up shows
    for (int k = 0; k < 4; ++k) {
        const Result a = Call(288.15, 5e6, kLean);
        const Result b = Call(288.15, 5e6, kRich);
        const Result c = Call(263.15, 5e6, kLean);
        EXPECT_EQ(a.vdn, lean.vdn);
        EXPECT_EQ(a.mw, lean.mw);
        EXPECT_EQ(b.vdn, rich.vdn);
        EXPECT_EQ(b.mw, rich.mw);
        EXPECT_EQ(c.vdn, leanCold.vdn);
    }
}

// The same array edited in place between calls is a new composition.
TEST(DetailCache, EditedArrayIsANewGas) {
    Y21 y = kLean;
    double v1 = 0, v2 = 0, mw = 0;
    ASSERT_EQ(AgaDtlVdnMw(300.0, 6e6, y.data(), &v1, &mw), SNDL_NORMAL);
    y = kRich;
    ASSERT_EQ(AgaDtlVdnMw(300.0, 6e6, y.data(), &v2, &mw), SNDL_NORMAL);
    EXPECT_EQ(v2, Fresh(300.0, 6e6, kRich).vdn);
}

// Two threads, each with its own gas, calling at the same time: nothing one keeps may reach
// the other.
TEST(DetailCache, ThreadsKeepTheirOwnGas) {
    const Result lean = Fresh(300.0, 6e6, kLean);
    const Result rich = Fresh(300.0, 6e6, kRich);
    int wrong[2] = {0, 0};
    auto run = [&](const Y21& y, double want, int& bad) {
        for (int k = 0; k < 20000; ++k) bad += Call(300.0, 6e6, y).vdn != want;
    };
    std::thread t1(run, std::cref(kLean), lean.vdn, std::ref(wrong[0]));
    std::thread t2(run, std::cref(kRich), rich.vdn, std::ref(wrong[1]));
    t1.join();
    t2.join();
    EXPECT_EQ(wrong[0], 0);
    EXPECT_EQ(wrong[1], 0);
}

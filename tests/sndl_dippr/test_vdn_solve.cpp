#include <gtest/gtest.h>

#include <cmath>
#include <string>
#include <vector>

#include "../common/DataTable.h"
#include "gerg_pure.hpp"
#include "sndl/dippr_catalogue.hpp"
#include "sndl/sndl_dippr.h"

using namespace sndl;

namespace {

// Saturation pressure of the reference equation itself (kPa): where the phase found without
// hints turns from gas to liquid region, by bisection on log p.
double EquationSaturation(const gerg::Fluid& f, double T) {
    double lo = std::log(1e-14), hi = std::log(2.0 * gerg::Pressure(f, f.tc_K, f.rhoc_mol_l));
    for (int it = 0; it < 70; ++it) {
        const double mid = 0.5 * (lo + hi);
        const gerg::Phase ph = gerg::Solve(f, T, std::exp(mid)).phase;
        const bool liquid = ph == gerg::Phase::MetastableGas || ph == gerg::Phase::Liquid;
        (liquid ? hi : lo) = mid;
    }
    return std::exp(lo);
}

}  // namespace

// The density solve must find the very root the earlier, slower solve found: on the gas
// branch where there is one, both sides of the saturation line, around the critical point
// and in the liquid region, for every component with a reference equation.
TEST(GergSolve, SameRootsAsTheEarlierSolve) {
    const auto rows = qdf::testdata::Load("tests/sndl_dippr/data/gerg_solve_roots.csv");
    ASSERT_GT(rows.size(), 4000u);
    int differ = 0, liquid = 0;
    for (const auto& row : rows) {
        double v = -1.0;
        const int32_t st = DprVdn(row.integer("id"), row.num("T_K"), row.num("P_Pa"), &v);
        const double want = row.num("vdn");
        liquid += st == SNDL_ERR_PHASE;
        if (st != row.integer("status") || !(std::fabs(v / want - 1.0) <= 1e-12)) {
            if (++differ <= 10) {
                ADD_FAILURE() << row.where() << ": status " << st << ", " << v << " instead of "
                              << want;
            }
        }
    }
    EXPECT_EQ(differ, 0);
    EXPECT_GT(liquid, 1000);  // the table reaches into the liquid region
}

// The solve skips the liquid root below the pressure the catalogue vouches for; that is
// only right while the bound stays under the equation's own saturation pressure, with room
// to spare, over the whole temperature range where it is given.
TEST(GergSolve, GasStableBoundStaysBelowTheEquationsSaturation) {
    int checked = 0;
    for (int i = 0; i < dippr::kComponentCount; ++i) {
        const dippr::Component& c = dippr::kComponents[i];
        if (c.gerg < 0) continue;
        const gerg::Fluid& f = gerg::kFluids[c.gerg];
        const double t0 = std::fmax(60.0, c.vp.tmin_K);
        const double t1 = std::fmin(c.vp.tmax_K, f.tc_K);
        for (int k = 0; k <= 40 && t1 > t0; ++k) {
            const double T = std::fmin(t0 + (t1 - t0) * k / 40.0, f.tc_K * (1.0 - 1e-6));
            const double bound = dippr::GergHint(c, T, 0.0).gasStableBelow_kPa;
            if (bound == 0.0) continue;
            EXPECT_LT(bound, 0.95 * EquationSaturation(f, T)) << c.name << " at " << T << " K";
            ++checked;
        }
    }
    EXPECT_GT(checked, 600);
}

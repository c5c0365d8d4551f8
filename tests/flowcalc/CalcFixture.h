#pragma once
// A store with the initial values and a private log folder, plus the transmitter's own
// evaluations of the fitted polynomials.

#include <gtest/gtest.h>
#include <unistd.h>

#include <cmath>
#include <filesystem>
#include <string>
#include <vector>

#include "ModDefaults.h"
#include "SND.h"
#include "clsExGlobalVars.h"

namespace qdf::test {

// T in K, p in kPa absolute.
inline double GasDensityPoly(const BoundedArray<double, 19>& a, double T, double p) {
    double sum = 0.0;
    for (int m = 0; m < 4; ++m)
        sum += std::pow(p, m) * (a[3 * m] + a[3 * m + 1] / T + a[3 * m + 2] / (T * T));
    return sum;
}
template <std::size_t N>
double Cubic(const BoundedArray<double, N>& c, double T) {
    return c[0] + c[1] * T + c[2] * T * T + c[3] * T * T * T;
}

inline int32_t CatalogueId(const std::string& name) {
    std::vector<std::string> names;
    std::vector<int32_t> ids;
    SND::DprGetClist(names, ids);
    for (std::size_t i = 0; i < names.size(); ++i)
        if (names[i] == name) return ids[i];
    ADD_FAILURE() << name << " is not in the catalogue";
    return 0;
}

class CalcFixture : public ::testing::Test {
  protected:
    void SetUp() override {
        logDir_ = std::filesystem::temp_directory_path() /
                  ("qdf_flowcalc_" + std::to_string(::getpid()) + "_" +
                   ::testing::UnitTest::GetInstance()->current_test_info()->name());
        std::filesystem::create_directories(logDir_);
        ::setenv("QDF_LOG_DIR", logDir_.c_str(), 1);
        InitializeDefaults(s);
        s.BusID = "HART";
        s.UI_TempRefStandard = 288.15;
        s.UI_PressRefStandard = 101325.0;
        Orifice(50.0, 100.0);
    }
    void TearDown() override {
        std::error_code ec;
        std::filesystem::remove_all(logDir_, ec);
    }
    // Flange taps, 2003 edition.
    void Orifice(double d, double D) {
        s.UI_PEName = "Orifice Flange Taps [ISO5167-2 2003]";
        s.UI_PEPrimaryDeviceCode = 6;
        s.UI_PEDiameterStandard = d;
        s.UI_PEPipeDiameterStandard = D;
    }
    void Fluid(int32_t type, int32_t cat, const std::string& name, int32_t id = 0) {
        s.UI_FluidType = type;
        s.UI_FluidCat = cat;
        s.UI_FluidName = name;
        s.UI_FluidNameMethodCode = id;
    }
    // Entered in kelvin and kPa absolute.
    void Range(double t1, double t2, double p1, double p2) {
        s.UI_RangeTUnit = 35;
        s.UI_RangeT1 = s.UI_RangeT1Standard = t1;
        s.UI_RangeT2 = s.UI_RangeT2Standard = t2;
        s.UI_RangeP1 = p1;
        s.UI_RangeP2 = p2;
        s.UI_RangeP1Standard = p1 * 1000.0;
        s.UI_RangeP2Standard = p2 * 1000.0;
    }
    bool Logged() const { return std::filesystem::exists(logDir_ / "QDFSondra.log"); }

    clsExGlobalVars s;

  private:
    std::filesystem::path logDir_;
};

}  // namespace qdf::test

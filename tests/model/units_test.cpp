#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "FakeComponentList.h"
#include "ModUnit.h"

namespace qdf {
namespace {

// Gauge pressure that forgets the atmosphere, or adds it to absolute units.
TEST(UnitPressure, GaugeAddsAtmosphereAbsoluteDoesNot) {
    const double atm = 101325.0;
    EXPECT_EQ(PressureToStandard(0.0, "kPa gauge", atm), atm);
    EXPECT_EQ(PressureToStandard(50.0, "kPa gauge", atm), 50000.0 + atm);
    EXPECT_EQ(PressureToStandard(2.0, "bar gauge", atm), 200000.0 + atm);
    EXPECT_EQ(PressureToStandard(1.0, "psi gauge", atm), 6894.757 + atm);
    EXPECT_EQ(PressureToStandard(50.0, "kPa abs", atm), 50000.0);
    EXPECT_EQ(PressureToStandard(2.0, "bar abs", atm), 200000.0);
    EXPECT_EQ(PressureToStandard(1.0, "psi abs", atm), 6894.757);
    // By code: the list order 0..5 is the store's code.
    EXPECT_EQ(PressureCodeToStandard(0.0, 3, atm), atm);
    EXPECT_EQ(PressureCodeToStandard(1.0, 5, atm), 6894.757 + atm);
    EXPECT_EQ(PressureCodeToStandard(1.0, 1, atm), 100000.0);
    EXPECT_TRUE(IsGaugePressureCode(3));
    EXPECT_FALSE(IsGaugePressureCode(2));
    EXPECT_FALSE(IsGaugePressureCode(6));
}

// Range tests must compare a gauge value as it stands, in kPa, without the atmosphere.
TEST(UnitPressure, RangeTestValueInKPaIgnoresAtmosphere) {
    EXPECT_EQ(PressureCodeToKPa(50.0, 3), 50.0);
    EXPECT_EQ(PressureCodeToKPa(2.0, 4), 200.0);
    EXPECT_EQ(PressureCodeToKPa(1.0, 5), 6.894757);
    EXPECT_EQ(PressureCodeToKPa(1.0, 2), 6.894757);
    EXPECT_EQ(PressureCodeToKPa(7.0, 0), 7.0);
}

// The psi factors must stay the seven-figure ones, and a round trip must not drift.
TEST(UnitPressure, PsiFactorsAndRoundTrip) {
    EXPECT_EQ(PsiToKPa(1.0), 6.894757);
    EXPECT_EQ(PsiToPa(1.0), 6894.757);
    EXPECT_EQ(KPaToBar(BarToKPa(3.5)), 3.5);
    EXPECT_EQ(PaToKPa(KPaToPa(12.0)), 12.0);
    for (double kpa : {0.61121, 101.325, 275000.0, 1e-7, 12345.678}) {
        SCOPED_TRACE(kpa);
        EXPECT_NEAR(PsiToKPa(KPaToPsi(kpa)), kpa, std::abs(kpa) * 4 * 2.2e-16);
    }
}

// Temperature formulas with a wrong constant or order show at the fixed points.
TEST(UnitTemperature, FixedPoints) {
    EXPECT_EQ(KToDegF(273.15), 32.0);
    EXPECT_EQ(DegFToK(32.0), 273.15);
    EXPECT_EQ(DegCToK(0.0), 273.15);
    EXPECT_EQ(KToDegC(273.15), 0.0);
    EXPECT_EQ(DegCToDegF(100.0), 212.0);
    EXPECT_NEAR(DegFToK(212.0), 373.15, 1e-12);
    EXPECT_NEAR(KToDegF(373.15), 212.0, 1e-12);
    EXPECT_NEAR(DegFToK(-40.0), DegCToK(-40.0), 1e-12);
}

// Page unit texts ("deg C") differ from report texts ("degC"); only the page texts convert.
TEST(UnitTemperature, ByTextAndCode) {
    EXPECT_EQ(TemperatureToStandard(25.0, "deg C"), 298.15);
    EXPECT_EQ(TemperatureToStandard(32.0, "deg F"), 273.15);
    EXPECT_EQ(TemperatureToStandard(300.0, "Kelvin"), 300.0);
    EXPECT_EQ(TemperatureToStandard(25.0, "degC"), 25.0);
    EXPECT_EQ(TemperatureCodeToStandard(25.0, 32), 298.15);
    EXPECT_EQ(TemperatureCodeToStandard(32.0, 33), 273.15);
    EXPECT_EQ(TemperatureCodeToStandard(300.0, 35), 300.0);
    EXPECT_EQ(DiameterToStandard(2.0, "in"), 50.8);
    EXPECT_EQ(DiameterToStandard(2.0, "mm"), 2.0);
    EXPECT_EQ(MmToM(50.8), 0.0508);
}

// Download temperatures: HART and Fieldbus codes each have their own entry; others give 0.
TEST(UnitTemperature, DeviceUnitsForDownload) {
    EXPECT_NEAR(ConvertTemperature(298.15, 32), 25.0, 1e-12);
    EXPECT_EQ(ConvertTemperature(273.15, 33), 32.0);
    EXPECT_EQ(ConvertTemperature(300.0, 35), 300.0);
    EXPECT_EQ(ConvertTemperature(300.0, 1001), 0.0);
    EXPECT_NEAR(ConvertTemperatureFF(298.15, 1001), 25.0, 1e-12);
    EXPECT_EQ(ConvertTemperatureFF(273.15, 1002), 32.0);
    EXPECT_EQ(ConvertTemperatureFF(300.0, 1000), 300.0);
    EXPECT_EQ(ConvertTemperatureFF(300.0, 35), 0.0);

    EXPECT_EQ(FieldbusTempUnit(32), 1001);
    EXPECT_EQ(FieldbusTempUnit(33), 1002);
    EXPECT_EQ(FieldbusTempUnit(35), 1000);
    EXPECT_EQ(FieldbusTempUnit(92), 1097);
    EXPECT_EQ(FieldbusTempUnit(94), 1107);
    EXPECT_EQ(FieldbusTempUnit(45), 1010);
    EXPECT_EQ(FieldbusTempUnit(34), 0);
}

// Density, viscosity and heating value factors against independently known values, and the
// density pair as exact inverses of each other.
TEST(UnitOther, DensityViscosityHeatingValue) {
    EXPECT_NEAR(LbFt3ToKgM3(1.0), 16.01846337, 1e-8);
    EXPECT_NEAR(KgM3ToLbFt3(1000.0), 62.42796058, 1e-7);
    EXPECT_NEAR(LbFt3ToKgM3(KgM3ToLbFt3(997.05)), 997.05, 1e-12);
    EXPECT_NEAR(LbFtSToPaS(1.0), 1.488163944, 1e-9);
    EXPECT_NEAR(PaSToLbFtS(LbFtSToPaS(1.8e-5)), 1.8e-5, 1e-20);
    EXPECT_NEAR(BtuFt3ToMJM3(1000.0), 37.25895101, 1e-7);
    EXPECT_EQ(InToMm(1.0), 25.4);
}

// Smaller and Larger keep a on ties and pick the other side only when strictly beyond it.
TEST(UnitHelpers, SmallerAndLarger) {
    double out = 0;
    Smaller(1.0, 2.0, out);
    EXPECT_EQ(out, 1.0);
    Smaller(3.0, 2.0, out);
    EXPECT_EQ(out, 2.0);
    Larger(1.0, 2.0, out);
    EXPECT_EQ(out, 2.0);
    Larger(3.0, 2.0, out);
    EXPECT_EQ(out, 3.0);
    // -0.0 and 0.0 are equal: a is kept, sign included.
    EXPECT_TRUE(std::signbit(Smaller(-0.0, 0.0)));
    EXPECT_TRUE(std::signbit(Larger(-0.0, 0.0)));
    // A NaN b is never "beyond" a.
    const double nan = std::numeric_limits<double>::quiet_NaN();
    EXPECT_EQ(Smaller(5.0, nan), 5.0);
    EXPECT_EQ(Larger(5.0, nan), 5.0);
}

// Imported cells lose their quotes only when they start with one; short texts must not crash.
TEST(UnitHelpers, StripQuotes) {
    struct Row {
        const char* in;
        const char* out;
    } rows[] = {
        {"\"Carbon Steel\"", "Carbon Steel"},
        {"\"\"", ""},
        {"", ""},
        {"\"", ""},
        {"plain", "plain"},
        {"tail\"", "tail\""},
        {"\"a\"b\"", "a\"b"},
        {" \"lead blank\"", " \"lead blank\""},
    };
    for (const auto& r : rows) {
        SCOPED_TRACE(r.in);
        EXPECT_EQ(StripQuotes(r.in), r.out);
    }
}

// A value cell is numeric by its kind; a string cell by the general text test.
TEST(UnitHelpers, IsNumericValue) {
    EXPECT_TRUE(IsNumericValue("12.5"));
    EXPECT_TRUE(IsNumericValue("-1.5E+3"));
    EXPECT_FALSE(IsNumericValue("1e"));
    EXPECT_FALSE(IsNumericValue("abc"));
    EXPECT_FALSE(IsNumericValue(""));
    EXPECT_TRUE(IsNumericValue(Value(2.5)));
    EXPECT_TRUE(IsNumericValue(Value(static_cast<int32_t>(-999999))));
    EXPECT_TRUE(IsNumericValue(Value(std::string("42"))));
    EXPECT_FALSE(IsNumericValue(Value(std::string("4 2x"))));
    EXPECT_FALSE(IsNumericValue(Value()));
}

// Limits come from the catalogue by whole name; a miss leaves the caller's values alone.
TEST(UnitComponents, GasAndLiquidLimits) {
    const auto list = test::SmallCatalogue();
    double lo = -1, hi = -2;
    EXPECT_EQ(FindGasLimits(list, "AIR", lo, hi), 0);
    EXPECT_EQ(lo, 194.67);
    EXPECT_EQ(hi, 772.9);
    EXPECT_EQ(FindLiquidLimits(list, "METHANE", lo, hi), 0);
    EXPECT_EQ(lo, 90.7);
    EXPECT_EQ(hi, 188.0);

    lo = -1;
    hi = -2;
    EXPECT_EQ(FindGasLimits(list, "AI", lo, hi), 1);
    EXPECT_EQ(FindGasLimits(list, "air", lo, hi), 1);
    EXPECT_EQ(FindLiquidLimits(list, "WATER", lo, hi), 1);
    EXPECT_EQ(lo, -1);
    EXPECT_EQ(hi, -2);
}

}  // namespace
}  // namespace qdf

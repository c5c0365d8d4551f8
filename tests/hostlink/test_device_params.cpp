// Single parameter writes, the unit codes of the two buses, and the async completion object.

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "../common/DataTable.h"
#include "FakeFrame.h"
#include "ModDeviceParams.h"
#include "clsAsyncStatus.h"

namespace qdf::test {
namespace {

using namespace qdf::host;
namespace testdata = qdf::testdata;

TEST(WriteParameter, FiveCallsInOrderEachOnAFreshWriterWithNullStatus) {
    // Catches a writer reused across steps, a step out of order, or a status object passed.
    FakeFrame frame;
    WriteParameter(frame, "qdf_menu_basic_flow_calc", "ref_sp", Value(2.5));
    EXPECT_EQ(frame.calls, (std::vector<std::string>{
                               "OpenMenu qdf_menu_basic_flow_calc",
                               "BeginWrite qdf_menu_basic_flow_calc ref_sp",
                               "WriteValue qdf_menu_basic_flow_calc ref_sp",
                               "EndWrite qdf_menu_basic_flow_calc ref_sp",
                               "CloseMenu qdf_menu_basic_flow_calc",
                           }));
    EXPECT_EQ(frame.writers.size(), 5u);
    EXPECT_FALSE(frame.writerReused);
    EXPECT_TRUE(frame.nullStatusOnly);
    ASSERT_EQ(frame.writes.size(), 1u);
    EXPECT_EQ(frame.writes[0].value, Value(2.5));
}

TEST(WriteParameter, MissingNamesEndSilentlyAndAFailureStopsTheRemainingSteps) {
    // Catches a write attempted on an unknown menu, an empty name taken as a parameter, or
    // EndWrite/CloseMenu still sent after a refused step.
    FakeFrame frame;
    frame.unknown = {"qdf_menu_sp_setup"};
    WriteParameter(frame, "qdf_menu_sp_setup", "atm_pres_value", Value(1.0));
    WriteParameter(frame, "qdf_menu_dummy", "", Value(1.0));
    EXPECT_TRUE(frame.calls.empty());
    EXPECT_TRUE(frame.writers.empty());

    frame.failAt = "BeginWrite sp_urv";
    EXPECT_THROW(WriteParameter(frame, "qdf_menu_dummy", "sp_urv", Value(9.0)), SDKError);
    EXPECT_EQ(frame.calls.size(), 2u);
    EXPECT_TRUE(frame.writes.empty());
}

TEST(UnitCodes, TemperatureConversionForBothCodeSets) {
    // Catches a wrong offset or factor, the two code sets mixed up, or an unknown code passing
    // the value through instead of giving 0.
    struct Row {
        std::int32_t hart, ff;
        double expected;
    };
    for (const Row& r : {Row{32, 1001, 26.85}, Row{33, 1002, 80.33}, Row{35, 1000, 300.0}}) {
        SCOPED_TRACE(r.hart);
        EXPECT_NEAR(ConvertTemperature(300.0, r.hart), r.expected, 1e-9);
        EXPECT_NEAR(ConvertTemperatureFF(300.0, r.ff), r.expected, 1e-9);
        EXPECT_EQ(ConvertTemperature(300.0, r.ff), 0.0);
        EXPECT_EQ(ConvertTemperatureFF(300.0, r.hart), 0.0);
        EXPECT_EQ(HartTempUnitFromFF(r.ff), r.hart);
        EXPECT_EQ(FFTempUnitFromHart(r.hart), r.ff);
    }
    EXPECT_EQ(ConvertTemperature(300.0, 34), 0.0);
    EXPECT_EQ(HartTempUnitFromFF(1003), 0);
}

TEST(UnitCodes, FFPressureCodesFoldOntoHartCodesWithRescaling) {
    // Catches a missing range member, a rescale in the wrong direction, or an unknown code that
    // keeps a stale unit instead of 0.
    for (const testdata::Row& r : testdata::Load("tests/hostlink/data/ff_pressure_codes.csv")) {
        SCOPED_TRACE(r.where());
        const HartPressure p = HartPressUnitFromFF(r.integer("ff"), 2.0);
        EXPECT_EQ(p.code, r.integer("hart"));
        EXPECT_DOUBLE_EQ(p.value, r.num("value"));
    }
}

TEST(UnitCodes, HartPressureCodesWriteBackTheirFFColumn) {
    // Catches a write-back taken from the folded ranges instead of the one FF code per unit.
    EXPECT_EQ(FFPressUnitFromHart(237), 1132);
    EXPECT_EQ(FFPressUnitFromHart(1), 1148);
    EXPECT_EQ(FFPressUnitFromHart(2), 1156);
    EXPECT_EQ(FFPressUnitFromHart(239), 1149);
    EXPECT_EQ(FFPressUnitFromHart(241), 1136);
    EXPECT_EQ(FFPressUnitFromHart(15), 0);
    // A GPa device unit read in and written back lands on MPa.
    EXPECT_EQ(FFPressUnitFromHart(HartPressUnitFromFF(1131, 1.0).code), 1132);
}

TEST(AsyncStatus, FinishedOnlyInTheFramesEndStates) {
    // Catches a finished test that takes any non-zero status, or misses aborted (-1).
    clsAsyncStatus st;
    for (int s : {-1, 4, 5, 6}) {
        st.ISDKAsyncStatus_Status(s);
        EXPECT_TRUE(st.IsFinished()) << s;
    }
    for (int s : {-2, 0, 1, 2, 3, 7}) {
        st.ISDKAsyncStatus_Status(s);
        EXPECT_FALSE(st.IsFinished()) << s;
    }
    EXPECT_TRUE(st.result.isEmpty());
    st.ISDKAsyncStatus_result(SDKResult{Value(std::int32_t{7}), nullptr});
    EXPECT_FALSE(st.result.isEmpty());
}

}  // namespace
}  // namespace qdf::test

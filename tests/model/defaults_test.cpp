// Initial values, resets, compound tables and the JSON view of the default store.

#include <gtest/gtest.h>

#include <string>

#include "../common/DataTable.h"
#include "ModDefaults.h"
#include "StoreRegistry.h"
#include "clsExGlobalVars.h"

using qdf::clsExGlobalVars;
using qdf::kNotEntered;

TEST(Defaults, FirstOpeningShowsTheInitialValues) {
    // Catches a wrong initial value that a module opened without persisted data would show.
    clsExGlobalVars s;
    qdf::ClearHostCommandLine();
    qdf::InitializeDefaults(s);
    for (const qdf::testdata::Row& r : qdf::testdata::Load("tests/model/data/initial_values.csv")) {
        const qdf::Value v = qdf::GetMember(s, r.text("member"));
        if (v.isString())
            EXPECT_EQ(v.str(), r.text("value")) << r.where();
        else
            EXPECT_EQ(v.toDouble(), r.num("value")) << r.where();
    }
}

TEST(Defaults, UserInputResetLeavesManagementAndSpareElements) {
    // Catches a menu reset that touches management values, keeps the device's basic mode, or
    // writes the spare density element the defaults leave alone.
    clsExGlobalVars s;
    qdf::InitializeDefaults(s);
    s.Mgt_DebugModeFlag = 1;
    s.Mgt_ProgramName = "kept";
    s.Xmtr_SimpleFlowCalcMode = 1;
    s.UI_Dens[255] = 7.0;
    s.UI_Dens[256] = 7.0;
    s.UI_PEName = "Orifice";
    qdf::SetUserInputDefaults(s);
    qdf::SetCalculationOptionDefaults(s);
    EXPECT_EQ(s.Mgt_DebugModeFlag, 1);
    EXPECT_EQ(s.Mgt_ProgramName, "kept");
    EXPECT_EQ(s.Xmtr_SimpleFlowCalcMode, 0);
    EXPECT_EQ(s.UI_Dens[255], 0.0);
    EXPECT_EQ(s.UI_Dens[256], 7.0);
    EXPECT_EQ(s.UI_PEName, "");
}

TEST(Defaults, ResetsTouchOnlyTheirRows) {
    // Catches a temperature reset that clears pressures, and a table reset that misses index 256.
    clsExGlobalVars s;
    qdf::InitializeDefaults(s);
    s.UI_RangeP1 = 1.0;
    s.UI_RangeT1 = 2.0;
    s.UI_RangeTUnit = 35;
    s.UI_RangePUnit = 12;
    qdf::ResetOperatingTemperature(s);
    EXPECT_EQ(s.UI_RangeP1, 1.0);
    EXPECT_EQ(s.UI_RangePUnit, 12);
    EXPECT_EQ(s.UI_RangeT1, kNotEntered);
    EXPECT_EQ(s.UI_RangeTUnit, 32);
    qdf::ResetOperatingRange(s);
    EXPECT_EQ(s.UI_RangeP1, kNotEntered);
    EXPECT_EQ(s.UI_RangePUnit, 0);

    s.UI_Dens[256] = 5.0;
    s.UI_DensStandard[256] = 5.0;
    s.UI_Visc[31] = 5.0;
    s.UI_DensTemp[3] = 5.0;
    qdf::ResetPropertyTables(s);
    EXPECT_EQ(s.UI_Dens[256], 0.0);
    EXPECT_EQ(s.UI_DensStandard[256], 0.0);
    EXPECT_EQ(s.UI_Visc[31], 0.0);
    EXPECT_EQ(s.UI_DensTemp[3], 5.0);

    s.UI_IsenExpValue = 1.3;
    s.UI_RefDensValueStandard = 1.2;
    qdf::ResetReferenceProperties(s);
    EXPECT_EQ(s.UI_IsenExpValue, kNotEntered);
    EXPECT_EQ(s.UI_RefDensValueStandard, kNotEntered);
}

TEST(Defaults, LoadFileNameFromTheCommandLine) {
    // Catches quotes kept around a path, or dropped when only one side has one.
    EXPECT_EQ(qdf::LoadFileNameFromCommandLine("\"C:\\a b\\x.qmv\""), "C:\\a b\\x.qmv");
    EXPECT_EQ(qdf::LoadFileNameFromCommandLine("\"x.qmv"), "\"x.qmv");
    EXPECT_EQ(qdf::LoadFileNameFromCommandLine("x.qmv"), "x.qmv");
    EXPECT_EQ(qdf::LoadFileNameFromCommandLine("\"\""), "");
    clsExGlobalVars s;
    qdf::SetHostCommandLine("\"plant.qmv\"");
    qdf::InitializeDefaults(s);
    qdf::ClearHostCommandLine();
    EXPECT_EQ(s.LoadFileName, "plant.qmv");
}

TEST(Defaults, ModuleRecordCopiesTheUserInputInDeclaredOrder) {
    // Catches a record taken before the defaults or in another order than the store's.
    clsExGlobalVars s;
    s.UI_AtmPress = 1.0;
    qdf::InitializeDefaults(s);
    const auto& record = qdf::ModuleUIRecord();
    ASSERT_FALSE(record.empty());
    // The tables are declared with the arrays, ahead of the scalars.
    EXPECT_EQ(record.front().name, "UI_DensAbsPress");
    EXPECT_EQ(record.back().name, "UI_Reserve30");
    bool found = false;
    for (const qdf::RecordField& f : record) {
        EXPECT_NE(f.name, "UI");  // the import cells are not user input
        if (f.name == "UI_AtmPress") {
            found = true;
            ASSERT_EQ(f.values.size(), 1u);
            EXPECT_EQ(f.values[0], qdf::Value(101.325));
        }
        if (f.name == "UI_DensTemp") {
            EXPECT_EQ(f.values.size(), 257u);
        }
    }
    EXPECT_TRUE(found);
}

TEST(Defaults, CompoundTablesReset) {
    // Catches the liquid and gas pressure limits swapped, or rows past 250 reachable.
    qdf::LiquidCompoundTable()[0].Name = "AIR";
    qdf::GasCompoundTable()[250].ID = 9;
    qdf::ResetCompoundTables();
    const qdf::CompoundRecord liquid{"", 0, 0.0, 100.0, 0.0, 1000.0};
    const qdf::CompoundRecord gas{"", 0, 0.0, 100.0, 0.0, 10000.0};
    EXPECT_EQ(qdf::LiquidCompoundTable()[0], liquid);
    EXPECT_EQ(qdf::LiquidCompoundTable()[250], liquid);
    EXPECT_EQ(qdf::GasCompoundTable()[250], gas);
    EXPECT_THROW(qdf::GasCompoundTable()[251], std::out_of_range);
}

TEST(Defaults, JsonViewHasEveryPersistedMember) {
    // Catches members missing from the printed default state or arrays flattened.
    clsExGlobalVars s;
    qdf::InitializeDefaults(s);
    const auto j = qdf::PersistedMembersToJson(s);
    EXPECT_EQ(j.at("Mgt_ProgramName"), "QDFSondra");
    EXPECT_EQ(j.at("Mgt_SoftRevNO"), "1.05.00");
    EXPECT_EQ(j.at("UI_AtmPress"), 101.325);
    EXPECT_EQ(j.at("UI_PEMaterial"), "304 Stainless Steel");
    EXPECT_EQ(j.at("UI_PipeMaterial"), "Carbon Steel");
    EXPECT_EQ(j.at("ClickViaFile"), true);
    EXPECT_EQ(j.at("UI_Dens").size(), 257u);
    EXPECT_TRUE(j.at("UI").at(1000).is_null());
    EXPECT_FALSE(j.contains("Xmtr_DensCoeff"));
    EXPECT_FALSE(j.contains("PageList"));
    EXPECT_EQ(j.begin().key(), "calc_DensitySigma");

    // Setting the members back from the JSON view gives the same view.
    clsExGlobalVars t;
    for (const auto& [name, value] : j.items())
        qdf::MemberFromJson(t, *qdf::FindMember(name), value);
    EXPECT_EQ(qdf::PersistedMembersToJson(t).dump(), j.dump());
}

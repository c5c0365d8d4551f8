#include "HostedModule.h"

using namespace qdf;
using namespace qdf::test;

namespace {

struct Write {
    std::string parameter;
    Value value;
};

std::vector<Write> Writes(const frame::FrameDevice& d) {
    std::vector<Write> w;
    for (const auto& x : d.writes) w.push_back({x.parameter, x.value});
    return w;
}

// Walks Mode, Basic setup and Apply as a user does.
void WalkBasicPath(TVRQDFFCWMain& main) {
    main.ctlModeSelection1->optBasicMode->click();
    main.ctlModeSelection1->cmdNext->click();
    ctlSetupMode& b = *main.ctlSetupMode1;
    b.optLiquid->click();
    b.txtRefTemp->setText("15");
    b.cboRefTemp->setCurrentIndex(0);
    b.txtRefStPress->setText("101.325");
    b.cboRefStPres->setCurrentIndex(11);
    b.txtKFactor->setText("2.5");
    b.txtTempK1->setText("0.25");
    b.cmdNext->click();
    main.ctlSaveAndDownload1->cmdSave->click();
}

}  // namespace

// Catches a Basic run on HART that writes other parameters, types or values than the nine.
TEST_F(HostedModule, BasicPathWritesNineParametersOnHart) {
    AddDevice("qdf300_hart.json");
    Open();
    WalkBasicPath(Main());
    Settle();
    EXPECT_FALSE(host.IsModuleOpen());
    EXPECT_TRUE(messages.shown.empty());
    const std::vector<Write> expected = {
        {"static_pressure_units", Value(std::int32_t(12))},
        {"et_units", Value(std::int32_t(32))},
        {"simple_dens_base", Value(0.0)},
        {"flow_calc_mode", Value(std::int32_t(1))},
        {"fluid_type", Value(std::int32_t(1))},
        {"flow_calc_fixed", Value(2.5)},
        {"ref_sp", Value(101.325)},
        {"ref_temp", Value(15.0)},
        {"temp_k1", Value(0.25)},
    };
    const std::vector<Write> got = Writes(host.Device(0));
    ASSERT_EQ(got.size(), expected.size());
    for (std::size_t i = 0; i < got.size(); ++i) {
        EXPECT_EQ(got[i].parameter, expected[i].parameter) << i;
        EXPECT_EQ(got[i].value, expected[i].value) << got[i].parameter;
    }
    EXPECT_EQ(host.Device(0).Find("flow_calc_fixed")->value.toDouble(), 2.5);

    // The store went into the business object: the next opening finds what was kept, and the
    // device's values win over the kept ones.
    ASSERT_FALSE(host.Device(0).businessObjects.empty());
    ASSERT_TRUE(host.Device(0).SetValue("flow_calc_fixed", Value(7.0)));
    Open();
    EXPECT_EQ(Store().Xmtr_SimpleFlowCalcFixedVar, 7.0);
    EXPECT_EQ(Store().Gbl_ReadyToSave, kTrue);
    EXPECT_EQ(Main().ctlSetupMode1->txtTempK1->text(), "0.25");
}

// Catches a Fieldbus Basic run that writes HART unit codes or more than the eight parameters.
TEST_F(HostedModule, BasicPathWritesEightParametersOnFieldbus) {
    AddDevice("qdf300_ffh1.json");
    Open();
    WalkBasicPath(Main());
    Settle();
    EXPECT_FALSE(host.IsModuleOpen());
    const std::string p = "FLOW_TRANSDUCER_BLOCK.0.";
    const std::vector<Write> expected = {
        {p + "STATIC_PRESSURE_UNIT", Value(std::int32_t(1133))},
        {p + "EXT_TEMPERATURE_UNIT", Value(std::int32_t(1001))},
        {p + "FLOW_CALCULATION_MODE", Value(std::int32_t(1))},
        {p + "FIXED_FLOW_VALUE", Value(2.5)},
        {p + "REF_STATIC_PRESSURE", Value(101.325)},
        {p + "REF_EXT_TEMPERATURE", Value(15.0)},
        {p + "TEMP_K1_FOR_LIQUID", Value(0.25)},
        {p + "FLUID_TYPE_CODE", Value(std::int32_t(1))},
    };
    const std::vector<Write> got = Writes(host.Device(0));
    ASSERT_EQ(got.size(), expected.size());
    for (std::size_t i = 0; i < got.size(); ++i) {
        EXPECT_EQ(got[i].parameter, expected[i].parameter) << i;
        EXPECT_EQ(got[i].value, expected[i].value) << got[i].parameter;
    }
}

#include "../common/DataTable.h"
#include "HostedModule.h"

using namespace qdf;
using namespace qdf::test;

namespace {

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

// The device's writes against its rows of data/basic_writes.csv, type included.
void ExpectBasicWrites(const frame::FrameDevice& d, const std::string& device) {
    std::vector<testdata::Row> rows;
    for (testdata::Row& r : testdata::Load("tests/module/data/basic_writes.csv"))
        if (r.text("device") == device) rows.push_back(std::move(r));
    ASSERT_EQ(d.writes.size(), rows.size());
    for (std::size_t i = 0; i < rows.size(); ++i) {
        const testdata::Row& r = rows[i];
        EXPECT_EQ(d.writes[i].menu, r.text("menu")) << r.where();
        EXPECT_EQ(d.writes[i].parameter, r.text("parameter")) << r.where();
        EXPECT_EQ(d.writes[i].value,
                  r.text("type") == "int32" ? Value(r.integer("value")) : Value(r.num("value")))
            << r.where();
    }
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
    ExpectBasicWrites(host.Device(0), "qdf300_hart.json");
    EXPECT_EQ(host.Device(0).Find("flow_calc_fixed")->value.toDouble(), 2.5);

    // The store went into the business object: the next opening finds what was kept, and the
    // device's values win over the kept ones.
    ASSERT_FALSE(host.Device(0).businessObjects.empty());
    ASSERT_TRUE(host.Device(0).SetValue("flow_calc_fixed", Value(7.0)));
    Open();
    EXPECT_EQ(Store().Xmtr_SimpleFlowCalcFixedVar, 7.0);
    // Kept as true, but the Primary element page's refill at every opening clears it.
    EXPECT_EQ(Store().Gbl_ReadyToSave, kFalse);
    EXPECT_EQ(Main().ctlSetupMode1->txtTempK1->text(), "0.25");
}

// Catches a Fieldbus Basic run that writes HART unit codes or more than the eight parameters.
TEST_F(HostedModule, BasicPathWritesEightParametersOnFieldbus) {
    AddDevice("qdf300_ffh1.json");
    Open();
    WalkBasicPath(Main());
    Settle();
    EXPECT_FALSE(host.IsModuleOpen());
    ExpectBasicWrites(host.Device(0), "qdf300_ffh1.json");
}

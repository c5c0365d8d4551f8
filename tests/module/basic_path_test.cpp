#include <map>
#include <sstream>

#include "../common/DataTable.h"
#include "FrameScript.h"
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

// Catches HART unit lists selected by the short table's positions: in "Japan" the demo device
// delivers its own full enumeration, and its kPa (12) must show and go back to the device as
// 12, not as the fourth entry of the full list (4, "mmH2O @ 68degF").
TEST_F(HostedModule, JapanShowsAndWritesBackTheDevicesOwnUnitsOnHart) {
    setenv("LC_ALL", "ja_JP.UTF-8", 1);
    AddDevice("qdf300_hart.json");
    Open();
    ASSERT_EQ(Store().strCorvanePCLocation, "Japan");
    ASSERT_EQ(Store().Getpress_units().size(), 19u);
    Main().ctlModeSelection1->optBasicMode->click();
    Main().ctlModeSelection1->cmdNext->click();
    ctlSetupMode& b = *Main().ctlSetupMode1;
    QStringList offered;
    for (int i = 0; i < b.cboRefStPres->count(); ++i) offered << b.cboRefStPres->itemText(i);
    EXPECT_EQ(offered, QStringList({"bar", "mbar", "Pa", "kPa", "atm", "MPa", "hPa"}));
    EXPECT_EQ(b.cboRefStPres->currentText(), "kPa");
    EXPECT_EQ(b.cboRefTemp->currentText(), "degC");
    b.cmdNext->click();
    Main().ctlSaveAndDownload1->cmdSave->click();
    Settle();
    EXPECT_TRUE(Texts().empty());
    std::map<std::string, double> written;
    for (const frame::FrameWrite& w : host.Device(0).writes)
        written[w.parameter] = w.value.toDouble();
    EXPECT_EQ(written.at("static_pressure_units"), 12.0);
    EXPECT_EQ(written.at("et_units"), 32.0);
}

// Catches a script that presses what no user could: after the refusal on the Basic page, a
// step on the Apply page (not in view) must stop the run with its number, and nothing may be
// written to the device.
TEST_F(HostedModule, ScriptStopsAtAButtonOnAPageNotInView) {
    AddDevice("qdf300_hart.json");
    std::ostringstream out;
    frame::FrameScript script(out);
    std::string error;
    ASSERT_TRUE(script.Parse(R"({"steps": [
        {"page": "ctlModeSelection1", "click": "optBasicMode"},
        {"page": "ctlModeSelection1", "click": "cmdNext"},
        {"page": "ctlSetupMode1", "set": "txtKFactor", "text": ""},
        {"page": "ctlSetupMode1", "click": "cmdNext"},
        {"page": "ctlSaveAndDownload1", "click": "cmdSave"},
        {"click": "cmdSave"}]})",
                             &error))
        << error;
    script.Attach(host);
    Open();
    EXPECT_FALSE(script.Play(host, &error));
    EXPECT_EQ(error, "step 5: page ctlSaveAndDownload1 is not in view (ctlSetupMode1 is)");
    script.Finish(host, 0);
    EXPECT_EQ(out.str(),
              "message,\"QDF300 Flow Configuration Wizard\",\"Please fill out K factor \",2,2,4,"
              "4\nmodule,open,ctlSetupMode1\n");
    EXPECT_TRUE(host.Device(0).writes.empty());
}

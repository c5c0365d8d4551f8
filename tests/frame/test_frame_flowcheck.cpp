// The flow check of the parameters the wizard wrote into a device: the ethane example is walked
// through the frame, its configuration exported before Apply, and the check run from the
// window's action on the device's data as Apply left it, then with one value spoiled.

#include <gtest/gtest.h>

#include <QAction>
#include <QComboBox>
#include <QFile>
#include <QJsonObject>
#include <QLabel>
#include <QLineEdit>
#include <QTableWidget>
#include <QTemporaryDir>
#include <cmath>
#include <cstdlib>
#include <fstream>
#include <sstream>

#include <nlohmann/json.hpp>

#include "../common/FrameWalk.h"
#include "../common/KeepPicture.h"
#include "FlowCheck.h"
#include "FrameFlowCheck.h"
#include "FrameHost.h"
#include "FrameMainWindow.h"
#include "FrameScript.h"
#include "TVRQDFFlowConfigWizard.h"
#include "WizardServices.h"
#include "ctlFlowCheck.h"

namespace qdf::frame {
namespace {

// The ethane walk once for all tests: the exported configuration and the device's data after
// Apply.
struct Written {
    QTemporaryDir dir;
    std::string qmv;
    QJsonObject device;
    std::string rows;
};

Written& EthaneWritten() {
    static Written* w = [] {
        auto* out = new Written;
        qdf::test::PrepareInstallation(out->dir.path(), false);
        out->qmv = out->dir.filePath("ethane.qmv").toStdString();
        std::ifstream in(QDF_SOURCE_DIR "/examples/scripts/ethane_orifice_hart.json");
        FrameHost host;
        out->rows = qdf::test::PlayInFrame(
            host, qdf::test::SavingBeforeApply(nlohmann::json::parse(in), out->qmv),
            QDF_SOURCE_DIR "/data/devices/qdf300_hart.json");
        out->device = host.Device(0).ToJson();
        return out;
    }();
    return *w;
}

// A frame holding the written device, its window on it and the result of the action.
struct Checked {
    FrameHost host;
    ScriptedMessageService messages;
    std::unique_ptr<FrameMainWindow> window;

    Checked() {
        Written& w = EthaneWritten();
        QString error;
        auto d = FrameDevice::FromJson(w.device, &error);
        EXPECT_TRUE(d) << error.toStdString();
        if (d) host.AddDevice(std::move(*d));
        host.SetMessageService(&messages);
        window = std::make_unique<FrameMainWindow>(host);
        window->SelectDevice(0);
        window->chooseConfiguration = [&w] { return QString::fromStdString(w.qmv); };
    }
    ~Checked() { host.SetMessageService(nullptr); }

    ctlFlowCheck* Run() {
        window->FlowCheckAction()->trigger();
        return window->FlowCheckDialog() ? window->FlowCheckDialog()->View() : nullptr;
    }
};

std::string Row(QTableWidget* t, const QString& item) {
    for (int r = 0; r < t->rowCount(); ++r)
        if (t->item(r, 1) && t->item(r, 1)->text() == item)
            return (t->item(r, 0)->text() + " | " + t->item(r, 3)->text()).toStdString();
    return "<missing>";
}

TEST(FrameFlowCheck, WrittenEthaneParametersCheckWithinTheThreshold) {
    // Catches a read-back that loses or misreads what Apply wrote (bus names, unit codes,
    // the reference temperatures in the device's unit) and a DP range not taken from the device.
    Written& w = EthaneWritten();
    ASSERT_NE(w.rows.find("module,closed"), std::string::npos) << w.rows;
    ASSERT_TRUE(QFile::exists(QString::fromStdString(w.qmv))) << w.rows;
    Checked c;
    ASSERT_TRUE(c.window->FlowCheckAction()->isEnabled());
    ctlFlowCheck* view = c.Run();
    ASSERT_TRUE(view);
    ASSERT_TRUE(view->Result()) << view->lblVerdict->text().toStdString();
    const flowcheck::FlowCheckResult& r = *view->Result();
    EXPECT_TRUE(r.within) << flowcheck::SummaryText(r);
    EXPECT_LT(std::fabs(r.worstError), 0.001);
    EXPECT_EQ(r.failedPoints, 0u);
    EXPECT_TRUE(view->lblVerdict->text().contains("within the threshold of 0.1 %"))
        << view->lblVerdict->text().toStdString();
    EXPECT_TRUE(c.window->FlowCheckDialog()->DpRangeFromDevice());
    EXPECT_EQ(view->txtDpMax->text().toStdString(), "25");
    EXPECT_EQ(view->cboDpUnit->currentText().toStdString(), "kPa");
    EXPECT_DOUBLE_EQ(r.dpAxis.back(), 25000.0);
    for (const char* item : {"Density unit code", "Length unit code", "Temperature unit code"})
        EXPECT_EQ(Row(view->grdApplicability, item).substr(0, 4), "pass") << item;
    EXPECT_EQ(Row(view->grdApplicability, "Parameters in the device data"), "<missing>");
    EXPECT_TRUE(c.window->FlowCheckDialog()->ReadBackLabel()->isHidden());
    EXPECT_TRUE(c.messages.shown.empty());

    qdf::test::KeepPicture(*c.window->FlowCheckDialog(), "flowcheck_written");
}

// One written value spoiled in the device's data, and what the result must then say.
struct Spoiled {
    const char* name;
    const char* parameter;
    double (*change)(double written);
    const char* mainSource;     // "" when the check cannot run at all
    const char* applicability;  // a row that must say FAIL, "" when none
    const char* applicabilityValue;
    const char* readBack;  // what the frame's note must say, "" when nothing
};

class FrameFlowCheckSpoiled : public ::testing::TestWithParam<Spoiled> {};

TEST_P(FrameFlowCheckSpoiled, ResultShowsTheErrorAndNamesItsSource) {
    // Catches a check that reads the wizard's store instead of the device, and one that hides
    // a value the device cannot use.
    const Spoiled s = GetParam();
    Checked c;
    FrameDevice& d = c.host.Device(0);
    const FrameParameter* p = d.Find(s.parameter);
    ASSERT_TRUE(p) << s.parameter;
    ASSERT_TRUE(d.SetValue(s.parameter, Value(s.change(p->value.toDouble()))));
    ctlFlowCheck* view = c.Run();
    ASSERT_TRUE(view);
    const QString readBack = c.window->FlowCheckDialog()->ReadBackLabel()->text();
    EXPECT_EQ(readBack.toStdString(), s.readBack);
    EXPECT_EQ(c.window->FlowCheckDialog()->ReadBackLabel()->isHidden(), !*s.readBack);
    qdf::test::KeepPicture(*c.window->FlowCheckDialog(), QString("flowcheck_") + s.name);
    if (!*s.mainSource) {
        EXPECT_FALSE(view->Result());
        EXPECT_TRUE(view->lblVerdict->text().startsWith("No check: "))
            << view->lblVerdict->text().toStdString();
        return;
    }
    ASSERT_TRUE(view->Result()) << view->lblVerdict->text().toStdString();
    const flowcheck::FlowCheckResult& r = *view->Result();
    EXPECT_FALSE(r.within) << flowcheck::SummaryText(r);
    EXPECT_TRUE(view->lblVerdict->text().contains("above the threshold"))
        << view->lblVerdict->text().toStdString();
    EXPECT_STREQ(flowcheck::SourceName(r.mainSource), s.mainSource);
    EXPECT_TRUE(view->lblWorst->text().contains(QString("Main source: ") + s.mainSource))
        << view->lblWorst->text().toStdString();
    if (*s.applicability) {
        EXPECT_EQ(Row(view->grdApplicability, s.applicability),
                  std::string("FAIL | ") + s.applicabilityValue);
    }
}

INSTANTIATE_TEST_SUITE_P(
    Values, FrameFlowCheckSpoiled,
    ::testing::Values(Spoiled{"PressureTermOff", "density_coef_04",
                              [](double v) { return v * 1.01; }, "density fit", "", "", ""},
                      Spoiled{"ConstantCutToTwoDigits", "density_coef_00",
                              [](double v) { return std::round(v * 10.0) / 10.0; }, "density fit",
                              "", "", ""},
                      Spoiled{"DischargeTermOff", "discharge_coef_0",
                              [](double v) { return v * 1.01; }, "discharge terms", "", "", ""},
                      Spoiled{"KnownButWrongDensityUnit", "density_unit",
                              [](double) { return 94.0; }, "density fit", "", "", ""},
                      Spoiled{"UnknownDensityUnit", "density_unit", [](double) { return 7.0; }, "",
                              "", "",
                              "Read back: density_unit holds 7, a code the device does not know."},
                      Spoiled{"CoefficientNotANumber", "expansion_fact_coef_1",
                              [](double) { return std::nan(""); }, "expansion polynomial",
                              "Parameters in the device data", "1 missing: expansion_fact_coef_1",
                              "Read back: missing or not a number: expansion_fact_coef_1."}),
    [](const ::testing::TestParamInfo<Spoiled>& info) { return std::string(info.param.name); });

TEST(FrameFlowCheck, ARefusedFileIsReportedAndNoResultShown) {
    // Catches a failure that leaves a stale result open or stays silent.
    Checked c;
    QTemporaryDir dir;
    const QString bad = dir.filePath("not_a_configuration.qmv");
    QFile f(bad);
    ASSERT_TRUE(f.open(QIODevice::WriteOnly));
    f.write("not a configuration");
    f.close();
    c.window->chooseConfiguration = [bad] { return bad; };
    EXPECT_EQ(c.Run(), nullptr);
    ASSERT_EQ(c.messages.shown.size(), 1u);
    EXPECT_EQ(c.messages.shown[0].text,
              "No flow check: " + bad.toStdString() + " cannot be loaded as a configuration");
    // A cancelled file dialog does nothing at all.
    c.window->chooseConfiguration = [] { return QString(); };
    EXPECT_FALSE(c.window->FlowCheckWrittenParameters());
    EXPECT_EQ(c.messages.shown.size(), 1u);
}

}  // namespace
}  // namespace qdf::frame

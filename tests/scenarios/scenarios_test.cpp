// Each example script walks the wizard in the frame, as a user would, and saves its
// configuration at the Apply page before Apply. The parameters Apply wrote must be those that a
// fresh store loaded from that file, recalculated and downloaded, gives: so the pages store
// what the calculation needs, and the file keeps what the pages stored.

#include <gtest/gtest.h>

#include <QApplication>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>
#include <cmath>
#include <fstream>
#include <map>
#include <sstream>

#include <nlohmann/json.hpp>

#include "../common/FrameWalk.h"
#include "../wizard/FakeHost.h"
#include "ComponentTables.h"
#include "Fits.h"
#include "FrameHost.h"
#include "FrameScript.h"
#include "ModBinary.h"
#include "ModDefaults.h"
#include "ModDownload.h"
#include "MvConfig.h"
#include "TVRQDFFlowConfigWizard.h"
#include "WizardServices.h"

namespace {

QApplication& App() {
    static int argc = 1;
    static char name[] = "test_scenarios";
    static char* argv[] = {name, nullptr};
    static QApplication* app = new QApplication(argc, argv);
    return *app;
}

using Writes = std::map<std::string, qdf::Value>;

// A script names its device (under data/devices/) and whether the installation runs with the
// debug flag, which some fluids need.
struct Scenario {
    const char* script;
};

std::string Source(const std::string& relative) {
    return std::string(QDF_SOURCE_DIR) + "/" + relative;
}

class Scenarios : public ::testing::TestWithParam<Scenario> {
  protected:
    void SetUp() override {
        App();
        ASSERT_TRUE(dir.isValid());
    }

    nlohmann::json Script(const Scenario& sc) {
        std::ifstream in(Source(sc.script));
        return nlohmann::json::parse(in);
    }

    // A fresh module that imports the saved file on the Mode page and presses Next on each page
    // the script went through, then Apply.
    static nlohmann::json WalkingTheSavedFile(const nlohmann::json& script,
                                              const std::string& qmv) {
        nlohmann::json again = script;
        auto& steps = again["steps"];
        steps = nlohmann::json::array();
        steps.push_back({{"page", "ctlModeSelection1"},
                         {"menu", "MenuImportQMV"},
                         {"path", qmv},
                         {"answers", {6}}});
        std::string last;
        for (const auto& step : script["steps"]) {
            const std::string page = step.value("page", "");
            if (page.empty() || page == last) continue;
            last = page;
            steps.push_back(
                {{"page", page}, {"click", page == "ctlSaveAndDownload1" ? "cmdSave" : "cmdNext"}});
            if (page == "ctlSaveAndDownload1") break;
        }
        return again;
    }

    // Plays a script in the frame; returns the writes the device received and fills the printed
    // rows.
    Writes Play(const nlohmann::json& script, std::string* rows) {
        qdf::test::PrepareInstallation(dir.path(), script.value("debug", false));
        const std::string device = "data/devices/" + script.value("device", "qdf300_hart.json");
        qdf::frame::FrameHost host;
        *rows = qdf::test::PlayInFrame(host, script, QString::fromStdString(Source(device)));
        Writes writes;
        for (const auto& w : host.Device(0).writes) writes[w.parameter] = w.value;
        bus_ = host.Device(0).Bus();
        return writes;
    }

    // The saved file in a fresh store, recalculated and downloaded to a recording frame.
    Writes Recalculate(const std::string& qmv) {
        qdf::clsExGlobalVars s;
        qdf::InitializeDefaults(s);
        qdf::CompoundTables().Build();
        EXPECT_TRUE(QFile::exists(QString::fromStdString(qmv))) << qmv;
        EXPECT_EQ(qdf::OpenBinaryFile(s, qmv), 0);
        qdf::test::FakeHost frame;
        s.SDKManager = &frame;
        s.BusID = bus_;
        if (s.Xmtr_SimpleFlowCalcMode == 0) {
            EXPECT_EQ(qdf::CalculateSavedConfiguration(s), 0);
            EXPECT_EQ(qdf::RunFits(s), 0);
        }
        qdf::host::DownloadToFrame(s);
        Writes writes;
        for (const auto& [name, value] : frame.writes) writes[name] = value;
        return writes;
    }

    QTemporaryDir dir;
    std::string bus_;
};

std::string Text(const qdf::Value& v) {
    return v.isNumber() ? std::to_string(v.toDouble()) : v.str();
}

bool Same(const qdf::Value& a, const qdf::Value& b) {
    if (a.isNumber() && b.isNumber()) {
        const double x = a.toDouble(), y = b.toDouble();
        return x == y || std::fabs(x - y) <= 1e-12 * std::max(std::fabs(x), std::fabs(y));
    }
    return a.str() == b.str();
}

// The second walk wrote what the first did; the date of the record may have turned a minute.
void ExpectSameWrites(const Writes& first, const Writes& second, const std::string& rows) {
    for (const auto& [name, value] : first) {
        if (name.find("CONFIG_DATE") != std::string::npos) continue;
        auto it = second.find(name);
        ASSERT_NE(it, second.end()) << name << " not written again\n" << rows;
        EXPECT_TRUE(Same(it->second, value))
            << name << ": first " << Text(value) << ", again " << Text(it->second);
    }
    EXPECT_EQ(first.size(), second.size()) << rows;
}

// Catches a page that stores less or other than the calculation reads, a file that drops what a
// page stored, and a scenario that no longer reaches Apply.
TEST_P(Scenarios, WritesMatchTheRecalculatedSavedConfiguration) {
    const Scenario sc = GetParam();
    const std::string qmv = dir.filePath("saved.qmv").toStdString();
    std::string rows;
    const Writes written = Play(qdf::test::SavingBeforeApply(Script(sc), qmv), &rows);
    ASSERT_FALSE(written.empty()) << rows;
    EXPECT_NE(rows.find("module,closed"), std::string::npos) << rows;
    const Writes expected = Recalculate(qmv);
    for (const auto& [name, value] : expected) {
        // The temperatures of the two diameters follow the device's unit at the moment of the
        // write, which a recalculation away from the device cannot know.
        if (name.find("t_small_d") != std::string::npos ||
            name.find("t_large_d") != std::string::npos ||
            name.find("REF_TEMPERATURE") != std::string::npos)
            continue;
        // The configuration record (who, when, which revision) belongs to the session that
        // wrote it and is not part of a saved configuration.
        if (name.find("CONFIG_SOFT_REV") != std::string::npos ||
            name.find("CONFIG_DATE") != std::string::npos ||
            name.find("CONFIG_WHO") != std::string::npos)
            continue;
        auto it = written.find(name);
        ASSERT_NE(it, written.end()) << name << " not written\n" << rows;
        EXPECT_TRUE(Same(it->second, value))
            << name << ": written " << Text(it->second) << ", recalculated " << Text(value)
            << " (difference " << it->second.toDouble() - value.toDouble() << ")";
    }
    EXPECT_EQ(written.size(), expected.size()) << rows;
}

// Catches a page that loads less than it stores or stores on Next what it did not show: the saved
// configuration, imported into a fresh module and walked to Apply with Next alone, writes what
// the first walk wrote.
TEST_P(Scenarios, SavedConfigurationWalkedAgainWritesTheSame) {
    const nlohmann::json script = Script(GetParam());
    const std::string qmv = dir.filePath("saved.qmv").toStdString();
    std::string rows, again;
    const Writes first = Play(qdf::test::SavingBeforeApply(script, qmv), &rows);
    ASSERT_FALSE(first.empty()) << rows;
    const Writes second = Play(WalkingTheSavedFile(script, qmv), &again);
    ASSERT_FALSE(second.empty()) << again;
    ExpectSameWrites(first, second, again);
}

// Catches a file command that fails or writes nothing on a configuration of some fluid kind, and
// an import that brings back less than the export took: with the debug flag on, the Apply
// page's exports (QMV, UI, Xmtr, Calc, report) are written, and a fresh module that imports the
// QMV, UI and Xmtr files on the Mode page and walks to Apply with Next writes the same again.
TEST_P(Scenarios, FileCommandsOfModeAndApplyPagesRoundTrip) {
    nlohmann::json script = Script(GetParam());
    script["debug"] = true;
    const auto path = [this](const char* name) { return dir.filePath(name).toStdString(); };
    const std::pair<const char*, const char*> exports[] = {
        {"MenuExportFlowParamUI", "ui.csv"},     {"MenuExportFlowParamXmtr", "xmtr.csv"},
        {"MenuExportFlowParamCalc", "calc.csv"}, {"MenuReport", "report.csv"},
        {"MenuExportQMV", "saved.qmv"},
    };
    nlohmann::json saving = script;
    auto& steps = saving["steps"];
    for (std::size_t i = 0; i < steps.size(); ++i)
        if (steps[i].value("click", "") == "cmdSave") {
            for (const auto& [menu, file] : exports)
                steps.insert(steps.begin() + static_cast<std::ptrdiff_t>(i++),
                             nlohmann::json::object({{"menu", menu}, {"path", path(file)}}));
            break;
        }
    std::string rows, again;
    const Writes first = Play(saving, &rows);
    ASSERT_FALSE(first.empty()) << rows;
    EXPECT_EQ(rows.find("QDF300 Error"), std::string::npos) << rows;
    for (const auto& [menu, file] : exports)
        EXPECT_GT(QFileInfo(QString::fromStdString(path(file))).size(), 100) << menu;

    nlohmann::json walk = WalkingTheSavedFile(script, path("saved.qmv"));
    auto& walkSteps = walk["steps"];
    walkSteps.insert(walkSteps.begin() + 1, {{{"page", "ctlModeSelection1"},
                                              {"menu", "MenuImportFlowParamUI"},
                                              {"path", path("ui.csv")}},
                                             {{"page", "ctlModeSelection1"},
                                              {"menu", "MenuImportFlowParamXmtr"},
                                              {"path", path("xmtr.csv")}}});
    const Writes second = Play(walk, &again);
    ASSERT_FALSE(second.empty()) << again;
    EXPECT_EQ(again.find("QDF300 Error"), std::string::npos) << again;
    ExpectSameWrites(first, second, again);
}

INSTANTIATE_TEST_SUITE_P(
    Examples, Scenarios,
    ::testing::Values(Scenario{"data/demo/basic_hart.json"},
                      Scenario{"examples/scripts/ethane_orifice_hart.json"},
                      Scenario{"examples/scripts/steam_nozzle_ffh1.json"},
                      Scenario{"examples/scripts/water_venturi_hart.json"},
                      Scenario{"examples/scripts/natural_gas_aga8_detail_hart.json"},
                      Scenario{"examples/scripts/natural_gas_aga8_gross1_ffh1.json"},
                      Scenario{"examples/scripts/saturated_steam_orifice_ffh1.json"},
                      Scenario{"examples/scripts/hexane_orifice_hart.json"},
                      Scenario{"examples/scripts/glycol_custom_venturi_hart.json"},
                      Scenario{"examples/scripts/custom_gas_orifice_hart.json"},
                      Scenario{"examples/scripts/natural_gas_aga8_gross2_hart.json"},
                      Scenario{"examples/scripts/natural_gas_iso12213_physical_ffh1.json"},
                      Scenario{"examples/scripts/natural_gas_iso12213_molar_ffh1.json"}),
    [](const auto& info) {
        std::string name = info.param.script;
        name = name.substr(name.rfind('/') + 1);
        name = name.substr(0, name.find('.'));
        for (char& c : name)
            if (!std::isalnum(static_cast<unsigned char>(c))) c = '_';
        return name;
    });

}  // namespace

// qdf-batch: configures every instrument of a list by walking the real wizard pages, hosted
// headless in the reference frame, one step at a time. "qdf batch" runs it.
//
// A row the pages refuse stops at the refusal, whose text goes into the summary; a warning the
// pages ask about is answered Yes and noted. A configured row leaves TAG.qmv (saved from the
// Apply page), TAG_xmtr.csv and TAG_report.csv (from that file, as "qdf calc" writes them).

#include <QApplication>
#include <QFile>
#include <QLineEdit>
#include <QTemporaryDir>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <optional>
#include <sstream>
#include <string>

#include "BatchList.h"
#include "CheckInput.h"
#include "ComponentTables.h"
#include "Fits.h"
#include "FlowCheck.h"
#include "FrameHost.h"
#include "FrameScript.h"
#include "ModBinary.h"
#include "ModDefaults.h"
#include "ModReport.h"
#include "ModXmtrParam.h"
#include "MvConfig.h"
#include "Registry.h"
#include "TVRQDFFlowConfigWizard.h"
#include "WizardServices.h"
#include "clsExGlobalVars.h"

namespace {

constexpr const char* kUsage =
    "usage: qdf batch LIST.csv --out DIR [--device-kind HART|FFH1] [--device DEVICE.json]\n"
    "Configures each row of the instrument list through the wizard's pages and writes, per tag,\n"
    "TAG.qmv, TAG_xmtr.csv and TAG_report.csv into DIR (and TAG_check.csv, the flow check\n"
    "over the device's DP range, when the device holds one), with summary.csv listing every tag's\n"
    "status (configured, warning, refused, error) and its first message. The columns are in\n"
    "the README.\n";

// Rows above this count get a progress line per row on standard error.
constexpr std::size_t kQuietRows = 5;

struct Outcome {
    std::string status = "configured";
    std::string message;  // the first refusal or error, or the first warning
    std::string column;   // where a step could not be played
};

std::string Csv(const std::string& s) {
    std::string q = "\"";
    for (char c : s) q += c == '"' ? std::string("\"\"") : std::string(1, c);
    return q + "\"";
}

std::string DeviceFile(const std::string& kind, const std::string& given) {
    if (!given.empty()) return given;
    const std::string name = kind == "FFH1" ? "qdf300_ffh1.json" : "qdf300_hart.json";
    const std::string exeDir = QCoreApplication::applicationDirPath().toStdString();
    for (const std::string& dir :
         {std::string(qgetenv("QDF_DATA_DIR").constData()), exeDir + "/../share/qdfsondra",
          exeDir + "/../../data", std::string(QDF_SOURCE_DATA_DIR)}) {
        if (dir.empty()) continue;
        const std::string path = dir + "/devices/" + name;
        if (std::filesystem::exists(path)) return path;
    }
    return name;
}

// Plays one row. The module stays open from step to step; a click that leaves the page in view
// where it was, after a notice, is the page's refusal.
Outcome PlayRow(const qdf::cli::InstrumentRow& row, const std::string& device,
                const std::string& qmvPath) {
    Outcome outcome;
    std::ostringstream sink;
    qdf::frame::FrameScript player(sink);
    qdf::frame::FrameHost host;
    player.Attach(host);
    qdf::wizard::ScriptedDialogService dialogs;
    qdf::wizard::WizardServices().dialogs = &dialogs;
    player.fileAnswer = [&dialogs](const std::string& p) { dialogs.answers.push_back({p, false}); };
    QString deviceError;
    if (!host.AddDeviceFile(QString::fromStdString(device), &deviceError)) {
        qdf::wizard::WizardServices().dialogs = nullptr;
        return {"error", deviceError.toStdString(), {}};
    }
    host.OpenModule(0, new TVRQDFFlowConfigWizard(),
                    [](ISDKModule* m) { delete static_cast<TVRQDFFlowConfigWizard*>(m); });
    QCoreApplication::processEvents();

    auto& shown = player.Messages().shown;
    const auto& steps = row.script.at("steps");
    const auto& columns = row.script.at("columns");
    for (std::size_t i = 0; i < steps.size(); ++i) {
        nlohmann::json step = steps[i];
        const bool click = step.contains("click");
        if (click && step.at("click") == "cmdSave") {
            // The configuration as the Apply page holds it, before Apply closes the module.
            nlohmann::json save = {
                {"steps", nlohmann::json::array({{{"menu", "MenuExportQMV"}, {"path", qmvPath}}})}};
            std::string error;
            player.Parse(save.dump(), &error);
            if (!player.Play(host, &error)) {
                outcome = {"error", "the configuration could not be saved: " + error, {}};
                break;
            }
        }
        const std::size_t before = shown.size();
        QWidget* pageBefore =
            host.IsModuleOpen()
                ? qdf::frame::FrameScript::PageInView(static_cast<QWidget*>(host.Module()->View()))
                : nullptr;
        // Every question of the pages is a warning that may be overruled: answer Yes.
        player.Messages().answers.assign(16, 6);
        std::string error;
        player.Parse(nlohmann::json({{"steps", nlohmann::json::array({step})}}).dump(), &error);
        const bool played = player.Play(host, &error);
        player.Messages().answers.clear();
        for (std::size_t m = before; m < shown.size(); ++m) {
            const auto& msg = shown[m];
            if (msg.buttons == 5 && outcome.status == "configured") {
                outcome.status = "warning";
                outcome.message = msg.text;
            }
        }
        if (!played) {
            const std::string column = i < columns.size() ? columns[i].get<std::string>() : "";
            outcome = {"error", error, column};
            break;
        }
        if (!click || !host.IsModuleOpen()) continue;
        QWidget* pageAfter =
            qdf::frame::FrameScript::PageInView(static_cast<QWidget*>(host.Module()->View()));
        const std::string name = step.at("click").get<std::string>();
        if ((name == "cmdNext" || name == "cmdSave") && pageAfter == pageBefore) {
            std::string text = "the page did not go on";
            for (std::size_t m = before; m < shown.size(); ++m)
                if (shown[m].buttons != 5) {
                    text = shown[m].text;
                    break;
                }
            // The natural gas detail page refuses in its own message box, not in a dialog.
            if (auto* box = pageAfter ? pageAfter->findChild<QLineEdit*>("txtMessage") : nullptr;
                box && !box->text().isEmpty() && text == "the page did not go on")
                text = box->text().toStdString();
            outcome = {"refused", text, {}};
            break;
        }
    }
    if (outcome.status == "configured" || outcome.status == "warning") {
        if (host.IsModuleOpen()) outcome = {"error", "Apply did not close the wizard", {}};
    }
    if (host.IsModuleOpen()) host.CloseModuleNow();
    qdf::wizard::WizardServices().dialogs = nullptr;
    return outcome;
}

// The files "qdf calc" writes, from the saved configuration, and the flow check of an Auto
// Compensation configuration over the device's DP range.
std::string WriteFiles(const std::string& qmv, const std::string& base,
                       std::optional<double> dpMaxPa) {
    qdf::clsExGlobalVars store;
    qdf::InitializeDefaults(store);
    if (qdf::OpenBinaryFile(store, qmv) != 0) return "the saved configuration does not load";
    if (store.Xmtr_SimpleFlowCalcMode == 0) {
        if (qdf::CalculateSavedConfiguration(store) != 0 || qdf::RunFits(store) != 0)
            return "the saved configuration does not calculate";
    }
    try {
        qdf::ExportXmtrFile(store, base + "_xmtr.csv");
        if (qdf::WriteReport(store, base + "_report.csv") != 0)
            return "the report cannot be written";
        if (store.Xmtr_SimpleFlowCalcMode == 0 && dpMaxPa) {
            qdf::flowcheck::FlowCheckOptions options;
            options.dpMaxPa = *dpMaxPa;
            const auto check = qdf::flowcheck::RunFlowCheck(
                store, qdf::flowcheck::ParametersFromStore(store), options);
            std::ofstream out(base + "_check.csv", std::ios::binary);
            qdf::flowcheck::WriteCheckCsv(out, check);
            if (!out) return "the flow check cannot be written";
        }
    } catch (const std::exception& e) {
        return e.what();
    }
    return {};
}

}  // namespace

int main(int argc, char** argv) {
    std::string listPath, outDir, kind = "HART", device;
    for (int i = 1; i < argc; ++i) {
        const std::string a = argv[i];
        if (a == "--out" && i + 1 < argc)
            outDir = argv[++i];
        else if (a == "--device-kind" && i + 1 < argc)
            kind = argv[++i];
        else if (a == "--device" && i + 1 < argc)
            device = argv[++i];
        else if (listPath.empty() && !a.starts_with("--"))
            listPath = a;
        else {
            std::cerr << kUsage;
            return 2;
        }
    }
    if (listPath.empty() || outDir.empty() || (kind != "HART" && kind != "FFH1")) {
        std::cerr << kUsage;
        return 2;
    }
    std::ifstream in(listPath, std::ios::binary);
    if (!in) {
        std::cerr << "qdf batch: cannot read " << listPath << "\n";
        return 2;
    }
    std::stringstream text;
    text << in.rdbuf();
    const std::string folder = std::filesystem::path(listPath).parent_path().string();
    const qdf::cli::InstrumentList list = qdf::cli::ParseInstrumentList(text.str(), folder);
    if (list.unusable) {
        const auto& e = list.errors.front();
        std::cerr << "qdf batch: " << listPath << " line " << e.line
                  << (e.column.empty() ? "" : ", column " + e.column) << ": " << e.text << "\n";
        return 2;
    }
    std::error_code ec;
    std::filesystem::create_directories(outDir, ec);
    if (ec) {
        std::cerr << "qdf batch: cannot create " << outDir << ": " << ec.message() << "\n";
        return 2;
    }

    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    QTemporaryDir scratch;
    if (!QFile::exists(QString::fromStdString(qdf::module::RegistryFilePath()))) {
        const QString reg = scratch.filePath("registry.ini");
        QFile f(reg);
        if (f.open(QIODevice::WriteOnly)) {
            f.write(("[" + std::string(qdf::module::kSondraCommonKey) +
                     "]\nPath=" + QCoreApplication::applicationDirPath().toStdString() + "/\n")
                        .c_str());
            f.close();
        }
        qputenv("QDF_REGISTRY", reg.toLocal8Bit());
    }
    qdf::CompoundTables().Build();
    const std::string deviceFile = DeviceFile(kind, device);
    // The flow check runs over the DP range the device holds; without one there is none.
    std::optional<double> dpMax;
    try {
        dpMax = qdf::flowcheck::DpUpperRangeOfDevice(qdf::flowcheck::ReadDeviceData(deviceFile));
    } catch (const std::exception&) {
    }

    std::string summaryText = "tag,line,status,column,message\n";
    int failures = 0;
    // Rows the list itself rules out, then the rows played, each in file order.
    for (const auto& e : list.errors) {
        ++failures;
        summaryText += Csv("") + "," + std::to_string(e.line) + ",\"invalid\"," + Csv(e.column) +
                       "," + Csv(e.text) + "\n";
        std::cerr << "qdf batch: " << listPath << " line " << e.line
                  << (e.column.empty() ? "" : ", column " + e.column) << ": " << e.text << "\n";
    }
    const std::size_t n = list.rows.size();
    for (std::size_t i = 0; i < n; ++i) {
        const auto& row = list.rows[i];
        const std::string base =
            (std::filesystem::path(outDir) / qdf::cli::TagFileName(row.tag)).string();
        std::filesystem::remove(base + ".qmv", ec);
        Outcome o = PlayRow(row, deviceFile, base + ".qmv");
        if (o.status == "configured" || o.status == "warning") {
            const std::string problem = WriteFiles(base + ".qmv", base, dpMax);
            if (!problem.empty()) o = {"error", problem, {}};
        }
        if (o.status == "refused" || o.status == "error") ++failures;
        summaryText += Csv(row.tag) + "," + std::to_string(row.line) + "," + Csv(o.status) + "," +
                       Csv(o.column) + "," + Csv(o.message) + "\n";
        if (n > kQuietRows)
            std::cerr << "[" << i + 1 << "/" << n << "] " << row.tag << ": " << o.status << "\n";
    }
    std::ofstream(std::filesystem::path(outDir) / "summary.csv") << summaryText;
    std::cout << (n + list.errors.size() - static_cast<std::size_t>(failures)) << " of "
              << n + list.errors.size() << " instruments configured; summary in "
              << (std::filesystem::path(outDir) / "summary.csv").string() << "\n";
    return failures == 0 ? 0 : 1;
}

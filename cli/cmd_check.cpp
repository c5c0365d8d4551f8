// qdf check FILE.qmv [--device DEVICE.json] [--dp-max VALUE UNIT] [--threshold PCT] [--csv F]
// [--pdf F]: the transmitter's flow equation with its parameters against the full reference
// calculation over the operating envelope; exit 0 within the threshold, 1 above, 2 bad input.

#include <cstdlib>
#include <fstream>
#include <optional>
#include <ostream>
#include <sstream>

#include "CheckInput.h"
#include "Commands.h"
#include "FlowCheck.h"
#include "Sibling.h"
#include "clsExGlobalVars.h"

namespace qdf::cli {

namespace {

constexpr const char* kUsage =
    "usage: qdf check FILE.qmv [--device DEVICE.json] [--dp-max VALUE UNIT] [--threshold PCT]\n"
    "                 [--csv F.csv] [--pdf F.pdf]\n";

std::optional<double> Number(const std::string& text) {
    std::string t = text;
    if (!t.empty() && t.back() == '%') t.pop_back();
    char* end = nullptr;
    const double v = std::strtod(t.c_str(), &end);
    if (t.empty() || end != t.c_str() + t.size()) return std::nullopt;
    return v;
}

}  // namespace

// Also run by the check report program, which draws the same check as a PDF.
int RunCheck(const std::vector<std::string>& args, Io io, flowcheck::FlowCheckResult* result) {
    std::string file, device, csv, pdf;
    std::optional<double> dpMax, threshold;
    for (std::size_t i = 0; i < args.size(); ++i) {
        const std::string& a = args[i];
        const bool value = i + 1 < args.size();
        if (a == "--device" && value) {
            device = args[++i];
        } else if (a == "--csv" && value) {
            csv = args[++i];
        } else if (a == "--pdf" && value) {
            pdf = args[++i];
        } else if (a == "--threshold" && value) {
            threshold = Number(args[++i]);
            if (!threshold || !(*threshold > 0.0)) {
                io.err << "qdf check: the threshold must be a percentage above 0\n";
                return 2;
            }
        } else if (a == "--dp-max" && i + 2 < args.size()) {
            const auto v = Number(args[i + 1]);
            dpMax = v ? flowcheck::DpToPa(*v, args[i + 2]) : std::nullopt;
            if (!dpMax || !(*dpMax > 0.0)) {
                io.err << "qdf check: --dp-max takes a value above 0 and a unit (Pa, kPa, MPa, "
                          "bar, mbar, hPa, psi, inH2O, mmH2O)\n";
                return 2;
            }
            i += 2;
        } else if (file.empty() && !a.starts_with("--")) {
            file = a;
        } else {
            io.err << kUsage;
            return 2;
        }
    }
    if (file.empty()) {
        io.err << kUsage;
        return 2;
    }
    try {
        clsExGlobalVars store;
        flowcheck::LoadConfigurationForCheck(store, file);
        flowcheck::DeviceParameters params = flowcheck::ParametersFromStore(store);
        if (!device.empty()) {
            const flowcheck::DeviceData data = flowcheck::ReadDeviceData(device);
            params = flowcheck::ParametersFromDevice(data.values, data.bus);
            if (!dpMax) dpMax = flowcheck::DpUpperRangeOfDevice(data);
        }
        if (!dpMax) {
            io.err << "qdf check: no DP upper range value; give --dp-max VALUE UNIT\n";
            return 2;
        }
        flowcheck::FlowCheckOptions options;
        options.dpMaxPa = *dpMax;
        if (threshold) options.thresholdPercent = *threshold;
        flowcheck::FlowCheckResult r = flowcheck::RunFlowCheck(store, params, options);
        io.out << flowcheck::SummaryText(r);
        if (!csv.empty()) {
            std::ofstream out(csv, std::ios::binary);
            flowcheck::WriteCheckCsv(out, r);
            if (!out) {
                io.err << "qdf check: cannot write " << csv << "\n";
                return 2;
            }
        }
        if (!pdf.empty()) {
            // The PDF needs the toolkit's writer, which this tool does without: the report
            // program runs the same check and draws it.
            std::vector<std::string> pdfArgs{pdf, file};
            if (!device.empty()) pdfArgs.insert(pdfArgs.end(), {"--device", device});
            pdfArgs.insert(pdfArgs.end(), {"--dp-max", std::to_string(*dpMax), "Pa"});
            pdfArgs.insert(pdfArgs.end(),
                           {"--threshold", std::to_string(options.thresholdPercent)});
            std::ostringstream sink;
            const int rc = RunSibling("check", "qdf-checkreport", pdfArgs, {io.in, sink, io.err});
            if (rc != 0 && rc != 1) return 2;
        }
        const bool within = r.within;
        if (result) *result = std::move(r);
        return within ? 0 : 1;
    } catch (const flowcheck::FlowCheckError& e) {
        io.err << "qdf check: " << e.what() << "\n";
        return 2;
    }
}

int cmdCheck(const std::vector<std::string>& args, Io io) {
    return RunCheck(args, io, nullptr);
}

}  // namespace qdf::cli

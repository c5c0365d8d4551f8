// qdf calc FILE.qmv [--xmtr F] [--calc F] [--ui F] [--report F]: the calculation and fits of a
// saved configuration, with the files the wizard's exports write.

#include <ostream>
#include <string>
#include <vector>

#include "Commands.h"
#include "FileCommandSupport.h"
#include "Fits.h"
#include "ModBinary.h"
#include "ModCalcValue.h"
#include "ModDefaults.h"
#include "ModReport.h"
#include "ModUserInput.h"
#include "ModXmtrParam.h"
#include "MvConfig.h"
#include "StoreRegistry.h"
#include "clsExGlobalVars.h"

namespace qdf::cli {

int cmdCalc(const std::vector<std::string>& args, Io io) {
    const char* const usage =
        "usage: qdf calc FILE.qmv [--xmtr F.csv] [--calc F.csv] [--ui F.csv] [--report F.csv]\n";
    if (args.empty() || args.size() % 2 == 0) {
        io.err << usage;
        return 2;
    }
    std::string xmtr, calc, ui, report;
    for (std::size_t i = 1; i < args.size(); i += 2) {
        const std::string& flag = args[i];
        std::string* target = flag == "--xmtr"     ? &xmtr
                              : flag == "--calc"   ? &calc
                              : flag == "--ui"     ? &ui
                              : flag == "--report" ? &report
                                                   : nullptr;
        if (!target) {
            io.err << "qdf calc: unknown option " << flag << "\n" << usage;
            return 2;
        }
        *target = args[i + 1];
    }

    clsExGlobalVars store;
    InitializeDefaults(store);
    if (OpenBinaryFile(store, args[0]) != 0) {
        io.err << "qdf calc: " << args[0] << " cannot be loaded\n";
        return 1;
    }

    const std::int32_t calculation = CalculateSavedConfiguration(store);
    const std::int32_t fits = RunFits(store);

    nlohmann::ordered_json out = nlohmann::ordered_json::object();
    out["RunCalculation"] = calculation;
    out["RunFits"] = fits;
    out["Gbl_ErrorCode"] = store.Gbl_ErrorCode;
    out["Gbl_ErrorSubCode"] = store.Gbl_ErrorSubCode;
    for (const MemberInfo& m : StoreMembers())
        if (m.name.starts_with("Xmtr_") && m.kind != MemberKind::Link)
            out[std::string(m.name)] = MemberToJson(store, m);
    for (const char* name : {"calc_GasExpFactorSigma", "calc_DensitySigma", "calc_ViscositySigma",
                             "UI_IsenExpValue", "UI_RefDensValue"})
        out[name] = MemberToJson(store, *FindMember(name));
    PrintJsonObject(io.out, out);

    int rc = calculation == 0 && fits == 0 ? 0 : 1;
    const auto write = [&](const std::string& path, const char* what, auto&& fn) {
        if (path.empty()) return;
        try {
            fn(path);
        } catch (const std::exception& e) {
            io.err << "qdf calc: " << what << " file " << path << ": " << e.what() << "\n";
            rc = 1;
        }
    };
    write(xmtr, "Xmtr", [&](const std::string& p) { ExportXmtrFile(store, p); });
    write(calc, "Calc", [&](const std::string& p) { ExportCalcFile(store, p); });
    write(ui, "UI", [&](const std::string& p) { ExportUIFile(store, p); });
    write(report, "report", [&](const std::string& p) {
        if (WriteReport(store, p) != 0) throw std::runtime_error("cannot be written");
    });
    return rc;
}

}  // namespace qdf::cli

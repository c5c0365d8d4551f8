// qdf check: the summary, the exit codes, the grid as CSV, read-back from a device's data and
// the report as a PDF.

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <sstream>
#include <string>
#include <vector>

#include "../files/FileTestSupport.h"
#include "Cli.h"
#include "QdfRun.h"

namespace {

using qdf::test::Qdf;
using qdf::test::QdfRun;

std::string Example(const std::string& name) {
    return std::string(QDF_SOURCE_DIR) + "/examples/" + name + ".qmv";
}

std::string LineStarting(const std::string& out, const std::string& start) {
    std::istringstream lines(out);
    for (std::string line; std::getline(lines, line);)
        if (line.rfind(start, 0) == 0) return line;
    return {};
}

using Check = qdf::test::FileTest;

// Catches a worst error, main source or exit code that drifts from what the check states for
// each example (25 kPa DP range, threshold 0.1 %).
TEST_F(Check, EveryExampleStatesItsWorstErrorAndSource) {
    struct Case {
        const char* file;
        int rc;
        const char* worst;
        const char* source;
    };
    const Case cases[] = {
        {"ethane_orifice", 0, "Worst error: +0.0482 % at DP 0.25 kPa, SP 2000 kPa abs, ET 313.33 K",
         "density fit"},
        {"natural_gas_aga8_detail", 1, "Worst error: -1.1609 %", "density fit"},
        {"superheated_steam_venturi", 0, "Worst error: +0.0310 % at DP 25 kPa, SP 500 kPa abs",
         "expansion polynomial"},
        {"water_orifice", 1, "Worst error: -100.0000 % at DP 0.25 kPa, SP 500 kPa abs, ET 300 K",
         "expansion polynomial"},
        {"custom_gas", 0, "Worst error: +0.0015 %", "expansion polynomial"},
    };
    for (const Case& c : cases) {
        const QdfRun r = Qdf({"check", Example(c.file), "--dp-max", "25", "kPa"});
        EXPECT_EQ(r.rc, c.rc) << c.file << "\n" << r.out << r.err;
        EXPECT_EQ(LineStarting(r.out, "Worst error:").rfind(c.worst, 0), 0u)
            << c.file << ": " << LineStarting(r.out, "Worst error:");
        EXPECT_EQ(
            LineStarting(r.out, "Main source:").rfind(std::string("Main source: ") + c.source, 0),
            0u)
            << c.file;
        EXPECT_EQ(LineStarting(r.out, "Verdict:"),
                  c.rc == 0 ? "Verdict: within the threshold of 0.1 % of flow"
                            : "Verdict: ABOVE the threshold of 0.1 % of flow");
    }
}

// Catches a threshold that is read in the wrong unit or ignored.
TEST_F(Check, ThresholdDecidesTheExitCode) {
    EXPECT_EQ(Qdf({"check", Example("natural_gas_aga8_detail"), "--dp-max", "25", "kPa",
                   "--threshold", "1.5"})
                  .rc,
              0);
    const QdfRun r = Qdf(
        {"check", Example("ethane_orifice"), "--dp-max", "3.626", "psi", "--threshold", "0.01%"});
    EXPECT_EQ(r.rc, 1);
    EXPECT_EQ(LineStarting(r.out, "Verdict:"), "Verdict: ABOVE the threshold of 0.01 % of flow");
    EXPECT_NE(r.out.find("DP 0.25 to 25 kPa (10 points)"), std::string::npos) << r.out;
}

// Catches bad input reaching the calculation or giving exit 1.
TEST_F(Check, BadInputExitsWithTwo) {
    struct Case {
        std::vector<std::string> args;
        const char* message;
    };
    const Case cases[] = {
        {{"check"}, "usage: qdf check FILE.qmv"},
        {{"check", Example("missing"), "--dp-max", "25", "kPa"}, "cannot be loaded"},
        {{"check", Example("ethane_orifice")}, "no DP upper range value; give --dp-max"},
        {{"check", Example("ethane_orifice"), "--dp-max", "25", "furlong"}, "--dp-max takes"},
        {{"check", Example("ethane_orifice"), "--dp-max", "25", "kPa", "--threshold", "-1"},
         "the threshold must be a percentage above 0"},
        {{"check", Example("ethane_orifice"), "--device", Path("none.json")}, "cannot be opened"},
    };
    for (const Case& c : cases) {
        const QdfRun r = Qdf(c.args);
        EXPECT_EQ(r.rc, 2) << c.message;
        EXPECT_NE(r.err.find(c.message), std::string::npos) << r.err;
        EXPECT_EQ(r.out, "");
    }
}

// Catches a read-back that takes the store's values instead of the device's: the demo device
// holds another device code, a flat density and millimetres, and its own DP range.
TEST_F(Check, DeviceDataIsReadBack) {
    const QdfRun r = Qdf({"check", Example("ethane_orifice"), "--device",
                          std::string(QDF_SOURCE_DIR) + "/data/devices/qdf300_hart.json"});
    EXPECT_EQ(r.rc, 1) << r.out << r.err;
    EXPECT_NE(r.out.find("DP 0.25 to 25 kPa (10 points)"), std::string::npos) << r.out;
    EXPECT_EQ(LineStarting(r.out, "  FAIL  Primary device code"),
              "  FAIL  Primary device code                        limit 6                 "
              "             value 2");
}

// Catches a CSV without a row per point, and a --pdf that writes no PDF.
TEST_F(Check, GridAsCsvAndReportAsPdf) {
    const QdfRun r = Qdf({"check", Example("superheated_steam_venturi"), "--dp-max", "25", "kPa",
                          "--csv", Path("grid.csv")});
    ASSERT_EQ(r.rc, 0) << r.err;
    const std::string csv = ReadText(Path("grid.csv"));
    EXPECT_EQ(std::count(csv.begin(), csv.end(), '\n'), 1001);
    EXPECT_EQ(csv.rfind("et_K,sp_Pa_abs,dp_Pa,", 0), 0u);
#ifdef QDF_TOOL
    const std::string cmd = std::string(QDF_TOOL) + " check '" + Example("ethane_orifice") +
                            "' --dp-max 25 kPa --pdf '" + Path("check.pdf") + "' >/dev/null 2>&1";
    EXPECT_EQ(std::system(cmd.c_str()), 0);
    EXPECT_EQ(ReadText(Path("check.pdf")).substr(0, 5), "%PDF-");
#endif
}

}  // namespace

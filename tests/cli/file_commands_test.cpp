// qdf qmv and qdf calc over the example configurations.

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

#include <nlohmann/json.hpp>

#include "../files/FileTestSupport.h"
#include "Cli.h"
#include "QdfRun.h"

namespace {

using qdf::test::Qdf;
using qdf::test::QdfRun;

std::string Example(const std::string& name) {
    return std::string(QDF_SOURCE_DIR) + "/examples/" + name;
}

// A private folder per test, also the log folder.
using FileCommands = qdf::test::FileTest;

TEST_F(FileCommands, DumpShowsWhatTheFileCarries) {
    // Catches arrays dumped past the file's 256 rows, block 1 members hidden, or a status that
    // doesn't tell a damaged file.
    const QdfRun r = Qdf({"qmv", "dump", Example("ethane_orifice.qmv")});
    ASSERT_EQ(r.rc, 0) << r.err;
    const auto j = nlohmann::json::parse(r.out);
    EXPECT_EQ(j["UI_FluidName"], "ETHANE");
    EXPECT_EQ(j["Mgt_FileFormatRevNo"], "1.00.00");
    EXPECT_EQ(j["UI_DensTemp"].size(), 256u);
    EXPECT_EQ(j["Xmtr_DensCoeff"].size(), 18u);
    EXPECT_EQ(j["UI_RangeT2"], 360.0);
    EXPECT_EQ(j["status"], 0);

    const std::string bytes = ReadText(Example("ethane_orifice.qmv"));
    std::ofstream(Path("cut.qmv"), std::ios::binary) << bytes.substr(0, 4000);
    const QdfRun cut = Qdf({"qmv", "dump", Path("cut.qmv")});
    EXPECT_EQ(cut.rc, 1);
    EXPECT_EQ(nlohmann::json::parse(cut.out)["status"], 1);
}

TEST_F(FileCommands, WriteThenDumpRoundTrips) {
    // Catches members of the JSON dropped or converted on the way into the file, and unknown
    // names accepted in silence.
    std::ofstream(Path("in.json")) << R"({"UI_FluidName": "METHANE", "UI_RangeTUnit": 32,
        "Xmtr_NeverUse": 12.4, "UI_Dens": [1.5, 2.5], "status": 0})";
    ASSERT_EQ(Qdf({"qmv", "write", Path("in.json"), Path("out.qmv")}).rc, 0);
    const auto j = nlohmann::json::parse(Qdf({"qmv", "dump", Path("out.qmv")}).out);
    EXPECT_EQ(j["UI_FluidName"], "METHANE");
    EXPECT_EQ(j["UI_RangeTUnit"], 32);
    EXPECT_EQ(j["Xmtr_NeverUse"], 12.0);
    EXPECT_EQ(j["UI_Dens"][1], 2.5);
    EXPECT_EQ(j["Mgt_GasDensDiv"], 12) << "defaults fill the rest";

    std::ofstream(Path("bad.json")) << R"({"UI_NoSuchMember": 1})";
    const QdfRun bad = Qdf({"qmv", "write", Path("bad.json"), Path("bad.qmv")});
    EXPECT_EQ(bad.rc, 1);
    EXPECT_NE(bad.err.find("UI_NoSuchMember"), std::string::npos);
    EXPECT_FALSE(std::filesystem::exists(Path("bad.qmv")));
}

TEST_F(FileCommands, DiffListsChangedMembersInStoreOrder) {
    // Catches members compared out of store order, a JSON dump that differs from its own QMV
    // file, array elements missed past the first, and an exit code that hides a difference.
    const QdfRun same = Qdf({"qmv", "dump", Example("ethane_orifice.qmv")});
    std::ofstream(Path("ethane.json")) << same.out;
    const QdfRun none = Qdf({"diff", Path("ethane.json"), Example("ethane_orifice.qmv")});
    EXPECT_EQ(none.rc, 0) << none.err;
    EXPECT_EQ(none.out, "");

    const QdfRun fluids =
        Qdf({"diff", Example("ethane_orifice.qmv"), Example("water_orifice.qmv")});
    EXPECT_EQ(fluids.rc, 1);
    EXPECT_EQ(fluids.out.substr(0, fluids.out.find("UI_RangeP2:")),
              "UI_FluidType: 2 -> 1\n"
              "UI_FluidCat: 6 -> 2\n"
              "UI_FluidName: \"ETHANE\" -> \"Pressurised Water\"\n");

    std::ofstream(Path("edited.json")) << R"({"UI_Dens": [0, 0, 7.25], "UI_RangeT2": 360})";
    std::ofstream(Path("base.json")) << R"({"UI_Dens": [0, 0, 7.5], "UI_RangeT2": 360.0,
        "UI_FluidName": "ETHANE", "status": 0})";
    const QdfRun arrays = Qdf({"diff", Path("base.json"), Path("edited.json")});
    EXPECT_EQ(arrays.rc, 1);
    EXPECT_EQ(arrays.out, "UI_Dens[2]: 7.5 -> 7.25\nUI_FluidName: \"ETHANE\" -> null\n");

    std::ofstream(Path("unknown.json")) << R"({"UI_NoSuchMember": 1})";
    const QdfRun unknown = Qdf({"diff", Path("unknown.json"), Path("base.json")});
    EXPECT_EQ(unknown.rc, 2);
    EXPECT_NE(unknown.err.find("UI_NoSuchMember"), std::string::npos);
    const std::string bytes = ReadText(Example("ethane_orifice.qmv"));
    std::ofstream(Path("cut.qmv"), std::ios::binary) << bytes.substr(0, 4000);
    EXPECT_EQ(Qdf({"diff", Path("cut.qmv"), Path("base.json")}).rc, 2);
    EXPECT_EQ(Qdf({"diff", Path("missing.qmv"), Path("base.json")}).rc, 2);
}

TEST_F(FileCommands, CalcWritesTheParameterAndReportFiles) {
    // Catches a calc that prints results other than those it exports, or skips a file.
    const QdfRun r =
        Qdf({"calc", Example("ethane_orifice.qmv"), "--xmtr", Path("x.csv"), "--report",
             Path("r.csv"), "--calc", Path("c.csv"), "--ui", Path("u.csv")});
    ASSERT_EQ(r.rc, 0) << r.err;
    const auto j = nlohmann::json::parse(r.out);
    EXPECT_EQ(j["RunCalculation"], 0);
    EXPECT_EQ(j["RunFits"], 0);
    EXPECT_EQ(j["Xmtr_PDCode"], 6);
    EXPECT_GT(j["UI_RefDensValue"].get<double>(), 1.0);
    const std::string xmtr = ReadText(Path("x.csv"));
    EXPECT_NE(xmtr.find("\"Xmtr Primary Device Code\",6\r\n"), std::string::npos);
    const double d0 = j["Xmtr_DensCoeff"][0];
    const std::string label = "\"Xmtr Density Coefficient 0 \",";
    const auto at = xmtr.find(label);
    ASSERT_NE(at, std::string::npos);
    EXPECT_EQ(std::stod(xmtr.substr(at + label.size())), d0);
    EXPECT_NE(ReadText(Path("r.csv")).find("REPORT FILE"), std::string::npos);
    EXPECT_NE(ReadText(Path("c.csv")).find("\"Density Sigma\""), std::string::npos);
    EXPECT_NE(ReadText(Path("u.csv")).find("\"Fluid Name\",\"ETHANE\""), std::string::npos);

    EXPECT_EQ(Qdf({"calc", Path("missing.qmv")}).rc, 1);
    EXPECT_EQ(Qdf({"calc", Example("water_orifice.qmv"), "--xmtr"}).rc, 2);
    EXPECT_EQ(Qdf({"calc", Example("water_orifice.qmv"), "--pdf", "x"}).rc, 2);
}

TEST_F(FileCommands, EveryExampleCalculates) {
    // Catches an example file that no longer loads or whose calculation fails.
    for (const char* name :
         {"ethane_orifice.qmv", "natural_gas_aga8_detail.qmv", "superheated_steam_venturi.qmv",
          "water_orifice.qmv", "custom_gas.qmv"}) {
        const QdfRun r = Qdf({"calc", Example(name)});
        EXPECT_EQ(r.rc, 0) << name << r.err;
    }
}

}  // namespace

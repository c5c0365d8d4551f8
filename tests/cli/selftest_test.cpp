// qdf selftest: the compiled-in verification values pass, and an altered or damaged table fails
// its own standard's line and the exit code.

#include <gtest/gtest.h>

#include <fstream>
#include <sstream>
#include <string>
#include <vector>

#include "../files/FileTestSupport.h"
#include "Cli.h"
#include "QdfRun.h"

namespace {

using qdf::test::Qdf;
using qdf::test::QdfRun;

// The line of one standard in the summary.
std::string Line(const std::string& out, const std::string& standard) {
    std::istringstream lines(out);
    for (std::string line; std::getline(lines, line);)
        if (line.rfind(standard, 0) == 0) return line;
    return {};
}

using SelfTest = qdf::test::FileTest;

TEST_F(SelfTest, EveryStandardPassesAndTheCasesAreWritten) {
    const QdfRun r = Qdf({"selftest", "--csv", Path("cases.csv")});
    ASSERT_EQ(r.rc, 0) << r.out << r.err;
    for (const char* standard :
         {"IAPWS-IF97", "AGA8 detail", "AGA8 gross", "ISO 12213-3", "GERG-2008", "DIPPR 801"}) {
        const std::string line = Line(r.out, standard);
        EXPECT_NE(line.find("PASS"), std::string::npos) << standard << ": " << line;
    }
    EXPECT_NE(r.out.find("Self-test passed."), std::string::npos);
    const std::string csv = ReadText(Path("cases.csv"));
    EXPECT_EQ(csv.rfind("standard,table,case,expected,computed,tolerance,deviation,result\n", 0),
              0u);
    EXPECT_NE(csv.find("\"IAPWS-IF97\",\"IAPWS R7-97(2012)"), std::string::npos);
    EXPECT_EQ(csv.find(",FAIL"), std::string::npos);
}

TEST_F(SelfTest, AnAlteredValueFailsItsStandardOnly) {
    // Region 1 at 300 K and 3 MPa: v = 1.00215168e-03 m3/kg, altered in its last digit.
    std::ifstream in(std::string(QDF_SOURCE_DIR) +
                     "/tests/sndl_iapws/data/verification_values.csv");
    std::stringstream text;
    text << in.rdbuf();
    std::string altered = text.str();
    const auto at = altered.find("1.00215168e-03");
    ASSERT_NE(at, std::string::npos);
    altered.replace(at, 14, "1.00215178e-03");
    std::ofstream(Path("if97.csv")) << altered;

    const QdfRun r = Qdf({"selftest", "--table", "if97=" + Path("if97.csv")});
    EXPECT_EQ(r.rc, 1);
    const std::string if97 = Line(r.out, "IAPWS-IF97");
    EXPECT_NE(if97.find("FAIL"), std::string::npos) << if97;
    EXPECT_NE(if97.find("v_m3_kg"), std::string::npos) << "the worst case is named: " << if97;
    EXPECT_NE(Line(r.out, "GERG-2008").find("PASS"), std::string::npos);
    EXPECT_NE(r.out.find("Self-test FAILED."), std::string::npos);
}

TEST_F(SelfTest, ADamagedOrMissingTableFailsAndUnknownKeysAreRefused) {
    std::ofstream(Path("short.csv")) << "compound,quantity,T_K\nMETHANE,vvs,200\n";
    const QdfRun damaged = Qdf({"selftest", "--table", "dippr=" + Path("short.csv")});
    EXPECT_EQ(damaged.rc, 1);
    EXPECT_NE(Line(damaged.out, "DIPPR 801").find("FAIL"), std::string::npos) << damaged.out;

    EXPECT_EQ(Qdf({"selftest", "--table", "gerg2008=" + Path("missing.csv")}).rc, 1);
    const QdfRun unknown = Qdf({"selftest", "--table", "nist=" + Path("short.csv")});
    EXPECT_EQ(unknown.rc, 2);
    EXPECT_NE(unknown.err.find("no table nist"), std::string::npos);
}

}  // namespace

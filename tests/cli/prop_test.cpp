#include <gtest/gtest.h>

#include <algorithm>
#include <sstream>
#include <string>
#include <vector>

#include "Cli.h"

namespace {

struct CliRun {
    int rc;
    std::string out;
    std::string err;
};

CliRun qdf(std::vector<std::string> args, const std::string& input = "") {
    std::istringstream in(input);
    std::ostringstream out, err;
    const int rc = qdf::cli::run(args, {in, out, err});
    return {rc, out.str(), err.str()};
}

// A row that fails to parse must not stop the rows after it, and must fail the run.
TEST(QdfProp, BadRowsAreReportedAndSkipped) {
    CliRun r = qdf({"prop", "IapwsLdnw"}, "300,1e6\n300;1e6\n\n300,1e6,7\n300 , 1e6\r\n");
    EXPECT_EQ(r.rc, 1);
    EXPECT_EQ(r.out, "0,996.96032034223845\n0,996.96032034223845\n");
    EXPECT_NE(r.err.find("line 2"), std::string::npos);
    EXPECT_NE(r.err.find("line 4"), std::string::npos);
}

// Each library family is wired with its own column layout: a shifted argument shows as a
// wrong status or value.
TEST(QdfProp, ColumnsFollowTheOperation) {
    CliRun ts = qdf({"prop", "IapwsTs"}, "101325\n");
    EXPECT_EQ(ts.out.substr(0, 8), "0,373.12");

    CliRun n2 = qdf({"prop", "DprVdn"}, "905,300,1e6\n");
    ASSERT_EQ(n2.rc, 0);
    EXPECT_EQ(n2.out.substr(0, 9), "0,0.40154");

    CliRun mw = qdf({"prop", "DprMw"}, "1\n");
    EXPECT_EQ(mw.out.substr(0, 8), "0,16.042");

    CliRun unknown = qdf({"prop", "DprMw"}, "123456\n");
    EXPECT_EQ(unknown.out.substr(0, 2), "6,");

    // Pure methane by the detail method at 300 K, 5 MPa: about 2.1 kmol/m3, M = 16.043.
    std::string methane = "300,5e6,1";
    for (int i = 1; i < 21; ++i) methane += ",0";
    CliRun aga = qdf({"prop", "AgaDtlVdnMw"}, methane + "\n");
    ASSERT_EQ(aga.rc, 0) << aga.err;
    EXPECT_EQ(aga.out.substr(0, 5), "0,2.1");
    EXPECT_NE(aga.out.find(",16.04"), std::string::npos);

    CliRun rng = qdf({"prop", "DprLvsRng"}, "1\n");
    EXPECT_EQ(std::count(rng.out.begin(), rng.out.end(), ','), 2);
}

// The component list is the contract of the catalogue positions.
TEST(QdfProp, ComponentListRows) {
    CliRun r = qdf({"prop", "DprGetClist"});
    ASSERT_EQ(r.rc, 0);
    EXPECT_EQ(std::count(r.out.begin(), r.out.end(), '\n'), 200);
    EXPECT_NE(r.out.find("\n13,1,METHANE\n"), std::string::npos);
    EXPECT_NE(r.out.find("\n14,905,NITROGEN\n"), std::string::npos);
}

// Wrong usage answers with a message and exit code 2, never with output rows.
TEST(QdfProp, UsageErrors) {
    EXPECT_EQ(qdf({"prop"}).rc, 2);
    CliRun r = qdf({"prop", "NoSuchOp"}, "1,2\n");
    EXPECT_EQ(r.rc, 2);
    EXPECT_EQ(r.out, "");
    EXPECT_NE(r.err.find("NoSuchOp"), std::string::npos);
    EXPECT_EQ(qdf({"frobnicate"}).rc, 2);
}

}  // namespace

#include "SelfTest.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <fstream>
#include <iterator>
#include <stdexcept>

#include "TextTable.h"
#include "sndl/if97_verification.hpp"
#include "sndl/sndl_aga.h"
#include "sndl/sndl_dippr.h"

namespace qdf {
std::string_view EmbeddedText(std::string_view name);
}

namespace qdf::flowcheck {

namespace {

using table::Row;

// Gas constant of AGA Report No. 8 and ISO 12213, kJ/(kmol K).
constexpr double kRAga = 8.31451;
// Gas constant of the GERG-2008 reference equations, J/(mol K).
constexpr double kRGerg = 8.314472;

class Cases {
  public:
    Cases(const SelfTestSuite& suite, std::vector<SelfTestCase>& out) : suite_(suite), out_(out) {}

    void Add(const Row& row, const std::string& quantity, double expected, double computed,
             double tolerance) {
        out_.push_back({suite_.standard, suite_.table, row.where() + " " + quantity, expected,
                        computed, tolerance});
    }
    // A relative tolerance on a column the row gives; an empty cell is not a case.
    void Relative(const Row& row, const char* column, double computed, double tolerance) {
        if (!row.has(column)) return;
        const double expected = row.num(column);
        Add(row, column, expected, computed, tolerance * std::fabs(expected));
    }

  private:
    const SelfTestSuite& suite_;
    std::vector<SelfTestCase>& out_;
};

double Fail() {
    return NAN;
}

// IAPWS verification tables: every row to half a unit in its last printed digit. The viscosity
// rows with the critical enhancement are for a form the industrial equation leaves out.
void If97(const Row& row, Cases& cases) {
    const std::string& what = row.text("what");
    if (what.find("critical_enhancement") != std::string::npos) return;
    const double v = sndl::if97::VerificationValue(what, row.text("region"), row.num("T"),
                                                   row.num("x"), row.text("quantity"));
    cases.Add(row, row.text("quantity"), row.num("value"), v,
              table::HalfUnitInLastDigit(row.text("value")));
}

// AGA Report No. 8 detail method at (T, P) through the library's own entry point.
void Aga8Detail(const Row& row, Cases& cases) {
    if (row.text("kind") != "TP") return;  // property evaluations at a given density
    std::array<double, 21> y{};
    for (std::size_t i = 0; i < y.size(); ++i) y[i] = row.num("y" + std::to_string(i));
    const double T = row.num("T_K"), P = row.num("P_kPa"), tol = row.num("rel_tol");
    double D = 0.0, mw = 0.0;
    if (AgaDtlVdnMw(T, P * 1000.0, y.data(), &D, &mw) != SNDL_NORMAL) D = mw = Fail();
    // The molar masses are printed to 10 digits.
    cases.Relative(row, "M", mw, std::max(tol, 5e-10));
    cases.Relative(row, "D", D, tol);
    cases.Relative(row, "Z", P / (D * kRAga * T), tol);
    cases.Relative(row, "rho", D * mw, tol);
}

// AGA Report No. 8 gross methods: the rows whose heating value and relative density are given
// at the conditions the library's entry points take (60 degF, 14.73 psia).
void Aga8Gross(const Row& row, Cases& cases) {
    const double f60 = 288.705555555555556;
    if (std::fabs(row.num("Th_K") - f60) > 1e-6 || std::fabs(row.num("Td_K") - f60) > 1e-6 ||
        std::fabs(row.num("Pd_kPa") - 14.73 * 6.894757293168361) > 1e-6)
        return;
    const bool method1 = row.text("method") == "1";
    const double T = row.num("T_K"), P = row.num("P_kPa"), rd = row.num("rd");
    // The published rows stop their reference-state Z iteration at 1e-7.
    const double tol = std::max(row.num("rel_tol"), 2e-7);
    double x[4] = {method1 ? 0.0 : row.num("xN2"), row.num("xCO2"), 0.0, 0.0};
    double D = 0.0, mw = 0.0;
    const std::int32_t status =
        method1 ? AgaGr1VdnMw(T, P * 1000.0, row.num("hv_in"), rd, x, 4, &D, &mw)
                : AgaGr2VdnMw(T, P * 1000.0, rd, x, 4, &D, &mw);
    if (status != SNDL_NORMAL) D = mw = Fail();
    cases.Relative(row, "M", mw, tol);
    cases.Relative(row, "D", D, tol);
    cases.Relative(row, "Z", P / (D * kRAga * T), tol);
    cases.Relative(row, "rho", D * mw, tol);
}

// ISO 12213-3 (SGERG-88): the compression factor as printed (5 decimals) where the standard
// prints it, and the full-precision value of every row.
void Sgerg(const Row& row, Cases& cases) {
    const double T = row.num("T_K"), P = row.num("P_Pa");
    double x[4] = {0.0, row.num("xCO2"), row.num("xH2"), 0.0};
    double D = 0.0, mw = 0.0;
    if (IsoPpmVdnMw(T, P, row.num("Hs"), row.num("d"), x, 0, &D, &mw) != SNDL_NORMAL)
        D = mw = Fail();
    const double Z = P / 1000.0 / (D * kRAga * T);
    if (row.has("Z_pub")) cases.Add(row, "Z_pub", row.num("Z_pub"), Z, 0.5e-5);
    cases.Relative(row, "Z", Z, 1e-5);
    cases.Relative(row, "M", mw, 2e-5);
}

// GERG-2008 pure-fluid densities, 12 significant digits, checked to 1e-9 as the library
// promises. Below 60 K the status says the temperature is under the range; the value stands.
void Gerg(const Row& row, Cases& cases) {
    const double T = row.num("T_K"), P = row.num("P_Pa");
    double rho = 0.0;
    const std::int32_t status = DprVdn(row.integer("id"), T, P, &rho);
    if (status != SNDL_NORMAL && !(status == SNDL_ERR_TUNDER && T < 60.0)) rho = Fail();
    cases.Relative(row, "rho_mol_l", rho, 1e-9);
    cases.Relative(row, "Z", P / (rho * 1000.0 * kRGerg * T), 1e-9);
}

// DIPPR correlations: the value printed for each correlation, 6 significant digits. Vapour
// pressure has no entry point of its own and is left to the unit tests.
void Dippr(const Row& row, Cases& cases) {
    const std::string& q = row.text("quantity");
    if (q == "vp") return;
    static const auto ids = [] {
        std::vector<std::pair<std::string, std::int32_t>> out;
        std::vector<char> names(SNDL_DPR_NAMES_BYTES);
        std::vector<std::int32_t> id(SNDL_DPR_IDS);
        const std::int32_t n = std::min(DprGetClist(names.data(), id.data()), SNDL_DPR_IDS);
        for (std::int32_t i = 0; i < n; ++i)
            out.emplace_back(std::string(names.data() + i * SNDL_DPR_NAME_WIDTH),
                             id[static_cast<std::size_t>(i)]);
        return out;
    }();
    const auto it = std::find_if(ids.begin(), ids.end(),
                                 [&](const auto& e) { return e.first == row.text("compound"); });
    const double T = row.num("T_K");
    double v = Fail();
    if (it != ids.end()) {
        double mw = 0.0;
        std::int32_t status = -1;
        if (q == "ldn_mass" && (status = DprLdn(it->second, T, &v)) == SNDL_NORMAL)
            status = DprMw(it->second, &mw), v *= mw;
        else if (q == "lvs")
            status = DprLvs(it->second, T, &v);
        else if (q == "vvs")
            status = DprVvs(it->second, T, &v);
        else if (q == "icp")
            status = DprIcp(it->second, T, &v);
        if (status != SNDL_NORMAL) v = Fail();
    }
    cases.Add(row, q, row.num("correlation"), v, 6e-6 * std::fabs(row.num("correlation")));
}

using Evaluator = void (*)(const Row&, Cases&);

struct SuiteDef {
    SelfTestSuite suite;
    Evaluator evaluate;
};

const std::vector<SuiteDef>& Defs() {
    static const std::vector<SuiteDef> defs = {
        {{"if97", "IAPWS-IF97", "IAPWS R7-97(2012), SR5-05(2016), R12-08 verification values",
          "verification_values.csv"},
         If97},
        {{"aga8-detail", "AGA8 detail", "AGA Report No. 8 (1994) example gases and test program",
          "aga8_detail_cases.csv"},
         Aga8Detail},
        {{"aga8-gross", "AGA8 gross", "AGA Report No. 8 (1994) gross method examples",
          "aga8_gross_cases.csv"},
         Aga8Gross},
        {{"iso12213-3", "ISO 12213-3", "ISO 12213-3 (SGERG-88) example gases and computed cases",
          "sgerg88_cases.csv"},
         Sgerg},
        {{"gerg2008", "GERG-2008", "GERG-2008 pure-fluid densities (Kunz and Wagner 2012)",
          "gerg_densities.csv"},
         Gerg},
        {{"dippr", "DIPPR 801", "DIPPR 801 correlation values", "correlation_checks.csv"}, Dippr},
    };
    return defs;
}

}  // namespace

double SelfTestCase::Deviation() const {
    const double d = std::fabs(computed - expected);
    if (std::isnan(d)) return INFINITY;
    return tolerance > 0.0 ? d / tolerance : (d == 0.0 ? 0.0 : INFINITY);
}

const std::vector<SelfTestSuite>& SelfTestSuites() {
    static const std::vector<SelfTestSuite> suites = [] {
        std::vector<SelfTestSuite> out;
        for (const SuiteDef& d : Defs()) out.push_back(d.suite);
        return out;
    }();
    return suites;
}

std::string_view CompiledTable(const SelfTestSuite& suite) {
    return EmbeddedText(suite.file);
}

std::vector<SelfTestCase> RunSelfTest(
    const std::function<std::string(const SelfTestSuite&)>& tableText) {
    std::vector<SelfTestCase> out;
    for (const SuiteDef& d : Defs()) {
        Cases cases(d.suite, out);
        try {
            const std::string text =
                tableText ? tableText(d.suite) : std::string(CompiledTable(d.suite));
            for (const Row& row : table::Parse(text, d.suite.file)) d.evaluate(row, cases);
        } catch (const std::exception& e) {
            // A damaged table is a failed case, never fewer cases in silence.
            out.push_back({d.suite.standard, d.suite.table, e.what(), 0.0, NAN, 0.0});
        }
    }
    return out;
}

std::function<std::string(const SelfTestSuite&)> TablesFromFiles(
    const std::map<std::string, std::string>& files) {
    for (const auto& [key, path] : files) {
        const auto& suites = SelfTestSuites();
        if (std::none_of(suites.begin(), suites.end(),
                         [&](const SelfTestSuite& s) { return key == s.key; }))
            throw std::invalid_argument("no table " + key);
    }
    return [files](const SelfTestSuite& s) {
        const auto it = files.find(s.key);
        if (it == files.end()) return std::string(CompiledTable(s));
        std::ifstream in(it->second, std::ios::binary);
        if (!in) throw std::runtime_error("cannot open " + it->second);
        return std::string((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
    };
}

std::vector<SelfTestLine> SummarizeSelfTest(const std::vector<SelfTestCase>& cases) {
    std::vector<SelfTestLine> lines;
    for (const SelfTestSuite& s : SelfTestSuites()) lines.push_back({s.standard, 0, 0, 0.0, {}});
    for (const SelfTestCase& c : cases) {
        auto line = std::find_if(lines.begin(), lines.end(),
                                 [&](const SelfTestLine& l) { return l.standard == c.standard; });
        if (line == lines.end()) continue;
        ++line->cases;
        if (c.Passed()) ++line->passed;
        if (c.Deviation() > line->worstDeviation || line->worstCase.empty()) {
            line->worstDeviation = c.Deviation();
            line->worstCase = c.name;
        }
    }
    return lines;
}

}  // namespace qdf::flowcheck

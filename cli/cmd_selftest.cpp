// qdf selftest [--csv F] [--pdf F] [--table KEY=FILE]: the published verification values
// recomputed by this copy of the program; exit 0 only when every case passes.

#include <cmath>
#include <cstdio>
#include <fstream>
#include <map>
#include <ostream>
#include <sstream>

#include "Commands.h"
#include "SelfTest.h"
#include "Sibling.h"

namespace qdf::cli {

namespace {

using flowcheck::SelfTestCase;
using flowcheck::SelfTestLine;

std::string Csv(const std::string& s) {
    std::string q = "\"";
    for (char c : s) q += c == '"' ? std::string("\"\"") : std::string(1, c);
    return q + "\"";
}

std::string Deviation(double d) {
    if (std::isinf(d)) return "no value";
    char buf[32];
    std::snprintf(buf, sizeof buf, "%.3g", d);
    return buf;
}

bool WriteCsv(const std::string& path, const std::vector<SelfTestCase>& cases) {
    std::ofstream out(path, std::ios::binary);
    out << "standard,table,case,expected,computed,tolerance,deviation,result\n";
    for (const SelfTestCase& c : cases)
        out << Csv(c.standard) << "," << Csv(c.table) << "," << Csv(c.name) << ","
            << number(c.expected) << "," << number(c.computed) << "," << number(c.tolerance) << ","
            << Deviation(c.Deviation()) << "," << (c.Passed() ? "pass" : "FAIL") << "\n";
    return static_cast<bool>(out);
}

}  // namespace

int cmdSelftest(const std::vector<std::string>& args, Io io) {
    std::string csv, pdf;
    std::map<std::string, std::string> tables;
    for (std::size_t i = 0; i < args.size(); ++i) {
        const std::string& a = args[i];
        const bool value = i + 1 < args.size();
        if (a == "--csv" && value) {
            csv = args[++i];
        } else if (a == "--pdf" && value) {
            pdf = args[++i];
        } else if (a == "--table" && value && args[i + 1].find('=') != std::string::npos) {
            const std::string& kv = args[++i];
            tables[kv.substr(0, kv.find('='))] = kv.substr(kv.find('=') + 1);
        } else {
            io.err << "usage: qdf selftest [--csv F.csv] [--pdf F.pdf] [--table KEY=FILE]\n";
            return 2;
        }
    }
    std::function<std::string(const flowcheck::SelfTestSuite&)> source;
    try {
        source = flowcheck::TablesFromFiles(tables);
    } catch (const std::exception& e) {
        io.err << "qdf selftest: " << e.what() << "\n";
        return 2;
    }
    const auto cases = flowcheck::RunSelfTest(source);

    bool all = true;
    for (const SelfTestLine& l : flowcheck::SummarizeSelfTest(cases)) {
        char line[160];
        std::snprintf(line, sizeof line, "%-12s %4zu cases %4zu passed  worst %-8s ",
                      l.standard.c_str(), l.cases, l.passed, Deviation(l.worstDeviation).c_str());
        io.out << line << "of its tolerance  " << (l.passed == l.cases && l.cases ? "PASS" : "FAIL")
               << "  (" << l.worstCase << ")\n";
        all = all && l.cases > 0 && l.passed == l.cases;
    }
    io.out << (all ? "Self-test passed.\n" : "Self-test FAILED.\n");
    if (!csv.empty() && !WriteCsv(csv, cases)) {
        io.err << "qdf selftest: cannot write " << csv << "\n";
        return 2;
    }
    if (!pdf.empty()) {
        // The certificate needs the toolkit's PDF writer, which this tool does without.
        std::vector<std::string> pdfArgs{pdf};
        for (const auto& [key, path] : tables)
            pdfArgs.insert(pdfArgs.end(), {"--table", key + "=" + path});
        std::ostringstream sink;
        const int rc = RunSibling("selftest", "qdf-certificate", pdfArgs, {io.in, sink, io.err});
        if (rc != 0 && rc != 1) return 2;
    }
    return all ? 0 : 1;
}

}  // namespace qdf::cli

// qdf prop OPERATION: one property library call per input row.

#include <cerrno>
#include <cstdint>
#include <cstdlib>
#include <istream>
#include <ostream>
#include <string>
#include <vector>

#include "Commands.h"
#include "sndl/sndl_aga.h"
#include "sndl/sndl_dippr.h"
#include "sndl/sndl_iapws.h"

namespace qdf::cli {

namespace {

// An operation reads nIn numbers and writes nOut results after the status.
struct PropOp {
    const char* name;
    int nIn;
    int nOut;
    int32_t (*call)(double* in, double* out);
};

int32_t id(double v) {
    return static_cast<int32_t>(v);
}

const PropOp kOps[] = {
    {"IapwsVdnw", 2, 1, [](double* a, double* r) { return IapwsVdnw(a[0], a[1], r); }},
    {"IapwsLdnw", 2, 1, [](double* a, double* r) { return IapwsLdnw(a[0], a[1], r); }},
    {"IapwsVvs", 2, 1, [](double* a, double* r) { return IapwsVvs(a[0], a[1], r); }},
    {"IapwsLvs", 2, 1, [](double* a, double* r) { return IapwsLvs(a[0], a[1], r); }},
    {"IapwsVkap", 2, 1, [](double* a, double* r) { return IapwsVkap(a[0], a[1], r); }},
    {"IapwsTs", 1, 1, [](double* a, double* r) { return IapwsTs(a[0], r); }},
    {"AgaDtlVdnMw", 23, 2,
     [](double* a, double* r) { return AgaDtlVdnMw(a[0], a[1], a + 2, r, r + 1); }},
    {"IsoMcaVdnMw", 23, 2,
     [](double* a, double* r) { return IsoMcaVdnMw(a[0], a[1], a + 2, r, r + 1); }},
    {"AgaGr1VdnMw", 8, 2,
     [](double* a, double* r) { return AgaGr1VdnMw(a[0], a[1], a[2], a[3], a + 4, 4, r, r + 1); }},
    {"IsoPpmVdnMw", 8, 2,
     [](double* a, double* r) { return IsoPpmVdnMw(a[0], a[1], a[2], a[3], a + 4, 0, r, r + 1); }},
    {"AgaGr2VdnMw", 7, 2,
     [](double* a, double* r) { return AgaGr2VdnMw(a[0], a[1], a[2], a + 3, 4, r, r + 1); }},
    {"DprMw", 1, 1, [](double* a, double* r) { return DprMw(id(a[0]), r); }},
    {"DprIcp", 2, 1, [](double* a, double* r) { return DprIcp(id(a[0]), a[1], r); }},
    {"DprLdn", 2, 1, [](double* a, double* r) { return DprLdn(id(a[0]), a[1], r); }},
    {"DprVvs", 2, 1, [](double* a, double* r) { return DprVvs(id(a[0]), a[1], r); }},
    {"DprLvs", 2, 1, [](double* a, double* r) { return DprLvs(id(a[0]), a[1], r); }},
    {"DprVdn", 3, 1, [](double* a, double* r) { return DprVdn(id(a[0]), a[1], a[2], r); }},
    {"DprIcpRng", 1, 2, [](double* a, double* r) { return DprIcpRng(id(a[0]), r, r + 1); }},
    {"DprVdnRng", 1, 2, [](double* a, double* r) { return DprVdnRng(id(a[0]), r, r + 1); }},
    {"DprVvsRng", 1, 2, [](double* a, double* r) { return DprVvsRng(id(a[0]), r, r + 1); }},
    {"DprLdnRng", 1, 2, [](double* a, double* r) { return DprLdnRng(id(a[0]), r, r + 1); }},
    {"DprLvsRng", 1, 2, [](double* a, double* r) { return DprLvsRng(id(a[0]), r, r + 1); }},
    {"DprVpRng", 1, 2, [](double* a, double* r) { return DprVpRng(id(a[0]), r, r + 1); }},
};

// Splits a row at commas and converts every field; false when a field is not a whole number text.
bool parseRow(const std::string& line, std::vector<double>& values) {
    values.clear();
    std::size_t start = 0;
    while (true) {
        std::size_t end = line.find(',', start);
        std::string field = line.substr(start, end == std::string::npos ? end : end - start);
        const char* s = field.c_str();
        char* stop = nullptr;
        errno = 0;
        double v = std::strtod(s, &stop);
        while (*stop == ' ' || *stop == '\t' || *stop == '\r') ++stop;
        if (stop == s || *stop != '\0' || errno == ERANGE) return false;
        values.push_back(v);
        if (end == std::string::npos) return true;
        start = end + 1;
    }
}

int componentList(Io io) {
    std::vector<char> names(SNDL_DPR_NAMES_BYTES, ' ');
    std::vector<int32_t> ids(SNDL_DPR_IDS, 0);
    const int32_t n = DprGetClist(names.data(), ids.data());
    for (int32_t i = 0; i < n && i < SNDL_DPR_IDS; ++i) {
        const char* field = names.data() + static_cast<std::size_t>(i) * SNDL_DPR_NAME_WIDTH;
        std::size_t len = 0;
        while (len < SNDL_DPR_NAME_WIDTH && field[len] != '\0') ++len;
        io.out << i << ',' << ids[static_cast<std::size_t>(i)] << ',' << std::string(field, len)
               << '\n';
    }
    return 0;
}

}  // namespace

int cmdProp(const std::vector<std::string>& args, Io io) {
    if (args.size() != 1) {
        io.err << "usage: qdf prop OPERATION < rows\n";
        return 2;
    }
    if (args[0] == "DprGetClist") return componentList(io);
    const PropOp* op = nullptr;
    for (const PropOp& o : kOps) {
        if (args[0] == o.name) op = &o;
    }
    if (op == nullptr) {
        io.err << "qdf prop: unknown operation '" << args[0] << "'\n";
        return 2;
    }
    int rc = 0;
    std::string line;
    std::vector<double> in;
    int lineNo = 0;
    while (std::getline(io.in, line)) {
        ++lineNo;
        if (!line.empty() && line.back() == '\r') line.pop_back();
        if (line.find_first_not_of(" \t") == std::string::npos) continue;
        if (!parseRow(line, in) || static_cast<int>(in.size()) != op->nIn) {
            io.err << "qdf prop: line " << lineNo << ": expected " << op->nIn
                   << " comma-separated numbers\n";
            rc = 1;
            continue;
        }
        double out[2] = {0.0, 0.0};
        const int32_t status = op->call(in.data(), out);
        io.out << status;
        for (int k = 0; k < op->nOut; ++k) io.out << ',' << number(out[k]);
        io.out << '\n';
    }
    return rc;
}

}  // namespace qdf::cli

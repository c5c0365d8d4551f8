#include "Commands.h"

namespace qdf::cli {

// Each defined in its own cmd_*.cpp.
int cmdDefaults(const std::vector<std::string>& args, Io io);
int cmdProp(const std::vector<std::string>& args, Io io);
int cmdWizard(const std::vector<std::string>& args, Io io);
int cmdQmv(const std::vector<std::string>& args, Io io);
int cmdCalc(const std::vector<std::string>& args, Io io);
int cmdBatch(const std::vector<std::string>& args, Io io);
int cmdDiff(const std::vector<std::string>& args, Io io);
int cmdSelftest(const std::vector<std::string>& args, Io io);
int cmdCheck(const std::vector<std::string>& args, Io io);

std::span<const Command> commands() {
    static const Command table[] = {
        {"prop", cmdProp, "OPERATION < ROWS",
         "Calls one property library operation per input row (comma-separated, SI units:\n"
         "K, Pa, mole fractions) and prints the status and the results with 17 digits.\n"
         "\"qdf prop DprGetClist\" lists the component catalogue.\n"},
        {"calc", cmdCalc, "FILE.qmv [--xmtr F.csv] [--calc F.csv] [--ui F.csv] [--report F.csv]",
         "Loads a saved configuration, runs the calculation and the fits, prints the\n"
         "transmitter parameters as JSON and writes the named parameter and report files.\n"},
        {"qmv", cmdQmv, "dump FILE.qmv | write IN.json OUT.qmv",
         "dump: the members a QMV file carries, as JSON. write: a QMV file from the\n"
         "defaults and the members of a JSON object.\n"},
        {"check", cmdCheck,
         "FILE.qmv [--device DEVICE.json] [--dp-max VALUE UNIT] [--threshold PCT]\n"
         "         [--csv F.csv] [--pdf F.pdf]",
         "Checks the flow the transmitter computes from its parameters against the full\n"
         "reference calculation over the operating envelope: DP from 1 % to 100 % of the\n"
         "DP upper range value, SP and ET over the operating range, 10 x 10 x 10 points.\n"
         "Prints the worst error and where it lies, the error by source (density fit,\n"
         "viscosity fit, discharge terms, expansion polynomial, thermal correction) and\n"
         "the applicability list. --device takes the parameters from a device's data\n"
         "instead (and its DP range when --dp-max is not given). --threshold is in % of\n"
         "flow (default 0.1). --csv writes every point, --pdf the check as a report.\n"
         "Exit 0 within the threshold, 1 above it, 2 on bad input.\n"},
        {"diff", cmdDiff, "A B",
         "The members two configurations (QMV or JSON, in any mix) differ in, old and new,\n"
         "in store order, arrays by index. Exit 1 when any differ, 2 when a file cannot be\n"
         "read.\n"},
        {"wizard", cmdWizard, "--device DEVICE.json --script SCRIPT.json",
         "Walks the wizard's pages headless in the reference frame as the script says and\n"
         "prints the messages shown and the parameters written.\n"},
        {"batch", cmdBatch, "LIST.csv --out DIR [--device-kind HART|FFH1] [--device DEVICE.json]",
         "Configures every instrument of a list through the wizard's pages and writes, per\n"
         "tag, TAG.qmv, TAG_xmtr.csv, TAG_report.csv and TAG_check.csv (the flow check\n"
         "over the device's DP range, when the device holds one), and summary.csv with\n"
         "each tag's status and first message.\n"},
        {"selftest", cmdSelftest, "[--csv F.csv] [--pdf F.pdf] [--table KEY=FILE]",
         "Recomputes the published verification values of the property standards (IAPWS-IF97,\n"
         "AGA8 detail and gross, ISO 12213-3, GERG-2008, DIPPR 801) that the program carries,\n"
         "prints a line per standard (cases, passed, worst deviation in units of the case's\n"
         "tolerance) and exits 0 only when all pass. --csv writes every case, --pdf a\n"
         "certificate; --table checks against another copy of a table (keys: if97,\n"
         "aga8-detail, aga8-gross, iso12213-3, gerg2008, dippr).\n"},
        {"defaults", cmdDefaults, "",
         "Prints the configuration store after its defaults, as JSON.\n"},
    };
    return table;
}

}  // namespace qdf::cli

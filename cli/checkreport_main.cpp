// qdf-checkreport OUT.pdf FILE.qmv [the options of qdf check]: the flow check report that
// "qdf check --pdf" asks for; it needs the toolkit's PDF writer, which qdf itself does without.

#include <QGuiApplication>
#include <cstdlib>
#include <iostream>
#include <sstream>
#include <string>
#include <vector>

#include "Commands.h"
#include "FlowCheck.h"
#include "FlowCheckReport.h"

int main(int argc, char** argv) {
    // Fonts without a display.
    if (qgetenv("QT_QPA_PLATFORM").isEmpty()) setenv("QT_QPA_PLATFORM", "offscreen", 1);
    QGuiApplication app(argc, argv);
    if (argc < 3) {
        std::cerr << "usage: qdf-checkreport OUT.pdf FILE.qmv [OPTIONS]\n";
        return 2;
    }
    const std::vector<std::string> args(argv + 2, argv + argc);
    std::istringstream in;
    std::ostringstream out;
    qdf::flowcheck::FlowCheckResult result;
    const int rc = qdf::cli::RunCheck(args, {in, out, std::cerr}, &result);
    if (rc != 0 && rc != 1) return 2;
    QString error;
    if (!qdf::wizard::WriteFlowCheckPdf(QString::fromLocal8Bit(argv[1]), result, &error)) {
        std::cerr << "qdf check: " << error.toStdString() << "\n";
        return 2;
    }
    return rc;
}

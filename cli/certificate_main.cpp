// qdf-certificate OUT.pdf [--table KEY=FILE]...: the self-test certificate that "qdf selftest
// --pdf" asks for; it needs the toolkit's PDF writer, which qdf itself does without.

#include <QGuiApplication>
#include <cstdlib>
#include <iostream>
#include <map>
#include <string>

#include "SelfTest.h"
#include "SelfTestCertificate.h"

int main(int argc, char** argv) {
    // Fonts without a display.
    if (qgetenv("QT_QPA_PLATFORM").isEmpty()) setenv("QT_QPA_PLATFORM", "offscreen", 1);
    QGuiApplication app(argc, argv);
    std::map<std::string, std::string> tables;
    std::string out;
    for (int i = 1; i < argc; ++i) {
        const std::string a = argv[i];
        if (a == "--table" && i + 1 < argc) {
            const std::string kv = argv[++i];
            tables[kv.substr(0, kv.find('='))] = kv.substr(kv.find('=') + 1);
        } else if (out.empty()) {
            out = a;
        } else {
            out.clear();
            break;
        }
    }
    if (out.empty()) {
        std::cerr << "usage: qdf-certificate OUT.pdf [--table KEY=FILE]...\n";
        return 2;
    }
    try {
        const auto cases = qdf::flowcheck::RunSelfTest(qdf::flowcheck::TablesFromFiles(tables));
        QString error;
        if (!qdf::wizard::WriteSelfTestCertificate(QString::fromStdString(out), cases, &error)) {
            std::cerr << "qdf selftest: " << error.toStdString() << "\n";
            return 2;
        }
    } catch (const std::exception& e) {
        std::cerr << "qdf selftest: " << e.what() << "\n";
        return 2;
    }
    return 0;
}

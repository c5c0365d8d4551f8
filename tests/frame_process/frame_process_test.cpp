// The qdf-frame program started as a user starts it, playing a wizard script through its window
// and the module library it loads.

#include <gtest/gtest.h>

#include <QFile>
#include <QProcess>
#include <QProcessEnvironment>
#include <QStringList>
#include <QTemporaryDir>

#include "../common/DataTable.h"

namespace {

struct Finished {
    int exitCode = -1;
    QStringList out;  // non-empty lines
    QString err;
};

class FrameProcess : public ::testing::Test {
  protected:
    void SetUp() override {
        ASSERT_TRUE(dir.isValid());
        QFile reg(dir.filePath("registry.ini"));
        ASSERT_TRUE(reg.open(QIODevice::WriteOnly));
        reg.write("[SOFTWARE\\TAVRIN\\DTMs\\SondraCommon]\nPath=" + dir.path().toUtf8() + "/\n");
    }

    QString Script(const QByteArray& json) {
        const QString path = dir.filePath("script.json");
        QFile f(path);
        EXPECT_TRUE(f.open(QIODevice::WriteOnly));
        f.write(json);
        return path;
    }

    Finished Run(const QString& program, const QStringList& args, bool registry = true) {
        QProcess p;
        QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
        env.insert("QT_QPA_PLATFORM", "offscreen");
        env.remove("QDF_REGISTRY");
        if (registry) env.insert("QDF_REGISTRY", dir.filePath("registry.ini"));
        // The frame's own settings stay inside the test's folder.
        env.insert("XDG_CONFIG_HOME", dir.path());
        env.insert("QDF_LOG_DIR", dir.path());
        p.setProcessEnvironment(env);
        p.start(program, args);
        Finished f;
        if (!p.waitForFinished(60000)) {
            p.kill();
            p.waitForFinished();
            ADD_FAILURE() << program.toStdString() << " did not quit";
            return f;
        }
        f.exitCode = p.exitStatus() == QProcess::NormalExit ? p.exitCode() : -1;
        f.out = QString::fromUtf8(p.readAllStandardOutput()).split('\n', Qt::SkipEmptyParts);
        f.err = QString::fromUtf8(p.readAllStandardError());
        return f;
    }

    QTemporaryDir dir;
};

const QString kHart = QStringLiteral(QDF_SOURCE_DIR "/data/devices/qdf300_hart.json");

// The nine writes of the Basic path on HART in tests/module/data/basic_writes.csv, as a script
// run prints them.
QStringList BasicHartWrites() {
    QStringList lines;
    for (const qdf::testdata::Row& r : qdf::testdata::Load("tests/module/data/basic_writes.csv"))
        if (r.text("device") == "qdf300_hart.json")
            lines << QString::fromStdString("write,\"" + r.text("menu") + "\",\"" +
                                            r.text("parameter") + "\"," + r.text("type") + "," +
                                            r.text("value"));
    EXPECT_EQ(lines.size(), 9);
    return lines;
}

// Catches a window that never opens the wizard, blocks on a box, or loses or retypes one of
// the nine writes of the Basic path on the HART device.
TEST_F(FrameProcess, DemoScriptWritesTheNineBasicParametersAndCloses) {
    const Finished f =
        Run(QDF_FRAME_EXE, {"--script", QDF_SOURCE_DIR "/data/demo/basic_hart.json", kHart});
    ASSERT_EQ(f.exitCode, 0) << f.err.toStdString();
    const QStringList expected = BasicHartWrites() << "module,closed";
    EXPECT_EQ(f.out, expected) << f.out.join("\n").toStdString();
}

// Catches a run that hangs or reports success when a step names a control the page lacks, or
// that leaves the user without the reason.
TEST_F(FrameProcess, MissingControlStopsTheScriptWithExitCodeOne) {
    const QString script = Script(R"({"steps": [
        {"page": "ctlModeSelection1", "click": "optBasicMode"},
        {"page": "ctlModeSelection1", "click": "optNoSuchMode"},
        {"page": "ctlModeSelection1", "click": "cmdNext"}]})");
    const Finished f = Run(QDF_FRAME_EXE, {"--script", script, kHart});
    EXPECT_EQ(f.exitCode, 1);
    EXPECT_TRUE(f.err.contains("no control optNoSuchMode")) << f.err.toStdString();
    // The step after the failing one was not played: the wizard is still on the first page.
    EXPECT_EQ(f.out, QStringList{"module,open,ctlModeSelection1"});
}

#ifdef QDF_WIZARD_EXE
// Catches the window and the headless run drifting apart, or either losing the refusal answered
// from the script's queue or one of the nine writes: the same script prints the same rows.
TEST_F(FrameProcess, WindowPrintsWhatTheHeadlessRunPrints) {
    const QString script = QDF_SOURCE_DIR "/tests/module/basic_hart.json";
    const Finished window = Run(QDF_FRAME_EXE, {"--script", script, kHart});
    // The headless run needs no machine settings: it runs as installed.
    const Finished headless = Run(QDF_WIZARD_EXE, {"--device", kHart, "--script", script}, false);
    ASSERT_EQ(window.exitCode, 0) << window.err.toStdString();
    ASSERT_EQ(headless.exitCode, 0) << headless.err.toStdString();
    const QString refused =
        "message,\"QDF300 Flow Configuration Wizard\",\"Please fill out "
        "reference temperature \",2,2,4,4";
    const QStringList expected = QStringList{refused} << BasicHartWrites() << "module,closed";
    EXPECT_EQ(window.out, expected) << window.out.join("\n").toStdString();
    EXPECT_EQ(headless.out, expected) << headless.out.join("\n").toStdString();
}
#endif

#if defined(QDF_TOOL_EXE)
// Catches a batch row that meets other checks than the pages', a summary that misreports a
// row, files written for a refused row, and a batch configuration that differs from the same
// instrument configured by hand: only the session's date and user may differ.
TEST_F(FrameProcess, BatchConfiguresGoodRowsAsByHandAndNamesTheBadOnes) {
    const QString out = dir.filePath("out");
    const QString list = QStringLiteral(QDF_SOURCE_DIR) + "/examples/instruments.csv";
    const Finished batch = Run(QDF_TOOL_EXE, {"batch", list, "--out", out});
    EXPECT_EQ(batch.exitCode, 1) << batch.err.toStdString();
    QFile summary(out + "/summary.csv");
    ASSERT_TRUE(summary.open(QIODevice::ReadOnly));
    const QStringList rows = QString::fromUtf8(summary.readAll()).split('\n', Qt::SkipEmptyParts);
    const QStringList expected{
        R"(tag,line,status,column,message)",
        R"("",11,"invalid","","a quoted field is not closed")",
        R"("FT-101",3,"configured","","")",
        R"("FT-102",4,"configured","","")",
        R"("FT-103",5,"configured","","")",
        R"("FT-104",6,"configured","","")",
        R"("FT-105",7,"warning","","The recommended primary device diameter  value shouldn't be less than 12.5 mm. Do you still want to use this value?")",
        R"("FT-106",8,"refused","","Please fill out primary element diameter")",
        R"("FT-107",9,"error","bore_unit","step 1: no entry cm")",
        R"("FT-108",10,"refused","","The value of minimum pressure value must be less than the maximum pressure value")"};
    EXPECT_EQ(rows, expected) << rows.join("\n").toStdString();
    for (const char* tag : {"FT-101", "FT-102", "FT-103", "FT-104", "FT-105"})
        for (const char* suffix : {".qmv", "_xmtr.csv", "_report.csv"})
            EXPECT_TRUE(QFile::exists(out + "/" + tag + suffix)) << tag << suffix;
    EXPECT_FALSE(QFile::exists(out + "/FT-106.qmv"));
    EXPECT_TRUE(batch.err.contains("[8/8] FT-108: refused")) << "a progress line per row";

    // FT-101 is the ETHANE orifice of the example script: walk it by hand and save it.
    QFile in(QStringLiteral(QDF_SOURCE_DIR) + "/examples/scripts/ethane_orifice_hart.json");
    ASSERT_TRUE(in.open(QIODevice::ReadOnly));
    QByteArray script = in.readAll();
    const QString hand = dir.filePath("hand.qmv");
    const int at = script.indexOf("\"cmdSave\"");
    ASSERT_GT(at, 0);
    const int open = script.lastIndexOf('{', at);
    script.insert(open, R"({"menu": "MenuExportQMV", "path": ")" + hand.toUtf8() + R"("}, )");
    const Finished walk =
        Run(QDF_TOOL_EXE, {"wizard", "--device", kHart, "--script", Script(script)});
    ASSERT_EQ(walk.exitCode, 0) << walk.err.toStdString();
    const Finished diff = Run(QDF_TOOL_EXE, {"diff", out + "/FT-101.qmv", hand});
    for (const QString& line : diff.out)
        EXPECT_TRUE(line.startsWith("Mgt_ConfDate: ") || line.startsWith("Mgt_UserName: "))
            << line.toStdString();
}
#endif

}  // namespace

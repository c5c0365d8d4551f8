// The QMV and Flow Param menu commands with a scripted dialog and message service.

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "FileErrors.h"
#include "FileMenuCommands.h"
#include "FileTestSupport.h"
#include "ModBinary.h"
#include "ModDefaults.h"
#include "ModXmtrParam.h"

namespace qdf::test {
namespace {

class MenuCommandTest : public FileTest {
  protected:
    void SetUp() override {
        FileTest::SetUp();
        InitializeDefaults(store);
        ResetBinaryRecord();
        saved_ = ExportCalculationEntries();
        ExportCalculationEntries() = {[this](clsExGlobalVars&) {
                                          events.push_back("calculation");
                                          return 0;
                                      },
                                      [this](clsExGlobalVars&) {
                                          events.push_back("fits");
                                          return 0;
                                      }};
    }
    void TearDown() override {
        ExportCalculationEntries() = saved_;
        FileTest::TearDown();
    }

    // Answers with the next path; "!" stands for a dialog that failed.
    ChooseFile Dialog(std::vector<std::string> paths) {
        answers_ = std::move(paths);
        return [this](const std::string& filter, const std::string& offered) {
            events.push_back("dialog " + filter + " [" + offered + "]");
            std::string next;
            if (!answers_.empty()) {
                next = answers_.front();
                answers_.erase(answers_.begin());
            }
            if (next == "!") throw FileAccessError("dialog");
            return next;
        };
    }

    std::vector<std::string> events;

  private:
    std::vector<std::string> answers_;
    ExportCalculation saved_;
};

const Shown kOpenFailed{"QDF300 Error", "Error occurs while opening a file", 1, 2, 4};
const Shown kOverwrite{"QDF300 Warning",
                       "Flow configuration data will be overwritten! Are you sure you want to "
                       "proceed?",
                       3, 5, 7};
const Shown kReadOnly{"QDF300 Error",
                      "System can't save a read-only file. Please save under a different name! "
                      "Save aborted.",
                      1, 2, 4};

TEST_F(MenuCommandTest, ImportQMVAsksAndLoads) {
    // Catches a load without the overwrite question, a wrong filter, or flags left unset.
    clsExGlobalVars other;
    InitializeDefaults(other);
    other.UI_RangeP2 = 808.0;
    const std::string path = Path("a.qmv");
    SaveBinaryFile(other, path);

    frame.answers = {7};
    EXPECT_FALSE(ImportQMVCommand(store, frame, Dialog({path})));
    EXPECT_EQ(store.UI_RangeP2, -999999.0) << "No keeps the store";
    EXPECT_EQ(frame.shown, std::vector<Shown>{kOverwrite});

    frame.shown.clear();
    frame.answers = {6};
    EXPECT_TRUE(ImportQMVCommand(store, frame, Dialog({path})));
    EXPECT_EQ(events.back(), "dialog QMV File (*.QMV) | *.QMV []");
    EXPECT_EQ(store.UI_RangeP2, 808.0);
    EXPECT_EQ(store.Gbl_SaveBinaryFilePath, path);
    EXPECT_EQ(store.ClickViaFile, kTrue);
    EXPECT_EQ(store.Gbl_ReadyToSave, kTrue);
    EXPECT_EQ(store.Gbl_ReadyToDownload, kTrue);
}

TEST_F(MenuCommandTest, ImportQMVFailures) {
    // Catches a missing file that reaches the reader, and a failed read that keeps the path or
    // shows only one of its two messages.
    store.Gbl_SaveBinaryFilePath = "old";
    EXPECT_FALSE(ImportQMVCommand(store, frame, Dialog({""})));
    EXPECT_TRUE(frame.shown.empty());
    EXPECT_EQ(store.Gbl_SaveBinaryFilePath, "");

    EXPECT_FALSE(ImportQMVCommand(store, frame, Dialog({Path("none.qmv")})));
    EXPECT_EQ(frame.shown, std::vector<Shown>{kOpenFailed});
    EXPECT_EQ(store.Gbl_SaveBinaryFilePath, "");

    // An old file whose device name no longer translates: two errors, the path cleared.
    clsExGlobalVars old;
    InitializeDefaults(old);
    old.Mgt_FileFormatRevNo = "1.0.0";
    old.UI_PEName = "Wedge";
    const std::string path = Path("old.qmv");
    SaveBinaryFile(old, path);
    frame.shown.clear();
    frame.answers = {6};
    EXPECT_FALSE(ImportQMVCommand(store, frame, Dialog({path})));
    ASSERT_EQ(frame.shown.size(), 3u);
    EXPECT_EQ(frame.shown[1].text, "Error occurs in translating primary element code");
    EXPECT_EQ(frame.shown[2], kOpenFailed);
    EXPECT_EQ(store.Gbl_SaveBinaryFilePath, "");
    EXPECT_EQ(store.Gbl_ReadyToDownload, kFalse);
}

TEST_F(MenuCommandTest, ExportQMVReportsOnlyTheReadOnlyCase) {
    // Catches a silent read-only failure, a message on a plain cancel, or the wrong offer.
    store.Gbl_SaveBinaryFilePath = "last.qmv";
    EXPECT_FALSE(ExportQMVCommand(store, frame, Dialog({""})));
    EXPECT_EQ(events.back(), "dialog QMV File (*.QMV) | *.QMV [last.qmv]");
    EXPECT_TRUE(frame.shown.empty());

    EXPECT_FALSE(ExportQMVCommand(store, frame, Dialog({"!"})));
    EXPECT_EQ(frame.shown, std::vector<Shown>{kReadOnly});

    frame.shown.clear();
    EXPECT_FALSE(ExportQMVCommand(store, frame, Dialog({Path("no/such/folder/x.qmv")})));
    EXPECT_EQ(frame.shown, std::vector<Shown>{kReadOnly});

    frame.shown.clear();
    const std::string path = Path("new.qmv");
    ExportQMVCommand(store, frame, Dialog({path}));
    EXPECT_TRUE(frame.shown.empty());
    EXPECT_EQ(store.Gbl_SaveBinaryFilePath, path);
    EXPECT_EQ(ReadBytes(path), BinaryFileBytes(store));
}

TEST_F(MenuCommandTest, FlowParamExportsCalculateFirstAndOfferTheirPaths) {
    // Catches a stale export (calculation after the dialog or not at all) and the Xmtr export
    // offering its own path instead of the QMV file's.
    store.Gbl_SaveBinaryFilePath = "plant.qmv";
    store.Gbl_SaveXmtrFilePath = "xmtr.csv";
    store.Gbl_SaveUIFilePath = "ui.csv";
    store.Gbl_SaveCalcFilePath = "calc.csv";
    ExportFlowParamXmtrCommand(store, frame, Dialog({Path("x.csv")}));
    ExportFlowParamUICommand(store, frame, Dialog({""}));
    ExportFlowParamCalcCommand(store, frame, Dialog({"!"}));
    const std::vector<std::string> expected = {"fits",
                                               "dialog CSV File (*.CSV) | *.CSV [plant.qmv]",
                                               "calculation",
                                               "dialog CSV File (*.CSV) | *.CSV [ui.csv]",
                                               "calculation",
                                               "fits",
                                               "dialog CSV File (*.CSV) | *.CSV [calc.csv]"};
    EXPECT_EQ(events, expected);
    EXPECT_EQ(store.Gbl_SaveXmtrFilePath, Path("x.csv"));
    EXPECT_EQ(ReadText(Path("x.csv")), XmtrFileText(store));
    EXPECT_EQ(store.Gbl_SaveUIFilePath, "ui.csv");
    EXPECT_EQ(frame.shown, std::vector<Shown>{kReadOnly});
}

TEST_F(MenuCommandTest, FlowParamImportsSetTheirFlags) {
    // Catches the Xmtr import's flags not set (or the cancel not clearing the complete flag),
    // and the Mgt import not carrying the display option.
    store.Mgt_ConfigCompleteFlag = 1;
    EXPECT_FALSE(ImportFlowParamXmtrCommand(store, frame, Dialog({""})));
    EXPECT_EQ(store.Mgt_ConfigCompleteFlag, 0);
    EXPECT_EQ(store.Gbl_ReadyToDownload, kFalse);

    const std::string xmtr = Path("x.csv");
    store.Xmtr_PDCode = 9;
    ExportXmtrFile(store, xmtr);
    store.Xmtr_PDCode = 1;
    EXPECT_TRUE(ImportFlowParamXmtrCommand(store, frame, Dialog({xmtr})));
    EXPECT_EQ(store.Xmtr_PDCode, 9);
    EXPECT_EQ(store.Mgt_ConfigCompleteFlag, 1);
    EXPECT_EQ(store.Gbl_ReadyToDownload, kTrue);
    EXPECT_EQ(store.Gbl_OpenXmtrFilePath, xmtr);

    std::string mgt;
    for (int i = 0; i < 45; ++i) mgt += "r," + std::to_string(i == 8 ? 1 : 0) + "\r\n";
    WriteText(Path("m.csv"), mgt);
    EXPECT_TRUE(ImportFlowParamMgtCommand(store, frame, Dialog({Path("m.csv")})));
    EXPECT_EQ(store.Mgt_DisplayCurrentValueFlag, 1);
    EXPECT_EQ(store.Gbl_InitialDisplayCurrentValueFlag, 1);

    // A UI file that fails half-way still counts as imported, without a word.
    WriteText(Path("u.csv"), "a,1\r\nb,x\r\n");
    EXPECT_TRUE(ImportFlowParamUICommand(store, frame, Dialog({Path("u.csv")})));
    EXPECT_EQ(store.Gbl_ReadyToSave, kTrue);
    EXPECT_TRUE(frame.shown.empty());
}

}  // namespace
}  // namespace qdf::test
